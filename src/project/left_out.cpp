#include "project/left_out.h"

#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::project {

const char* motivo(WhyOut why) {
  switch (why) {
    case WhyOut::no_audio:
      return "no se ha encontrado audio en él";
    case WhyOut::backup:
      return "copia _BAK, no incluida";
    case WhyOut::frozen:
      return "en una carpeta FreezeData";
    case WhyOut::unnamed:
      return "su nombre no cabe en la página de códigos";
    case WhyOut::linked:
      return "carpeta enlazada: no se mira";
    case WhyOut::unreadable:
      return "no se puede leer: bloqueado o sin permiso";
    case WhyOut::broken:
      return "no se ha podido leer entero";
    case WhyOut::gone:
      return "ya no está";
    case WhyOut::hidden:
      return "oculto o de sistema";
    case WhyOut::not_listed:
      return "no está entre los proyectos abiertos o soltados";
    case WhyOut::above:
      return "en una carpeta más arriba";
    case WhyOut::after_folder:
      return "soltado con una carpeta que ya tenía proyectos";
  }
  return "";
}

bool is_project_name(std::string_view name) {
  constexpr std::string_view kExtension = ".vip";
  return name.size() >= kExtension.size() &&
         text::equal_ignoring_case(name.substr(name.size() - kExtension.size()), kExtension);
}

void LeftOut::clear() {
  work_.ProyectosFuera.clear();
  seen_.clear();
}

void LeftOut::add(const std::string& path, WhyOut why) {
  if (seen_.insert(text::same_file_key(path)).second) {
    work_.ProyectosFuera.push_back({path, motivo(why)});
  }
}

bool LeftOut::holds(const std::string& path) const {
  return seen_.contains(text::same_file_key(path));
}

}  // namespace ordelan::project
