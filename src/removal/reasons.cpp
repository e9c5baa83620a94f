#include "removal/reasons.h"

namespace ordelan::removal::reason {

std::string of(system::Status status) {
  using system::Reason;
  switch (status.reason()) {
    case Reason::not_found:
      return "no existe";
    case Reason::in_use:
      return "lo tiene abierto otro programa";
    case Reason::read_only:
      return "es de solo lectura";
    case Reason::too_long:
      return "su ruta es demasiado larga";
    case Reason::cancelled:
      return "la respuesta ha sido no";
    case Reason::not_supported:
      return "la unidad no tiene papelera";
    case Reason::no_space:
      return "no hay sitio en el disco";
    case Reason::no_permission:
      return "no hay permiso";
    case Reason::not_ready:
      return "la unidad no está disponible";
    case Reason::exists:
      return "ya existe un archivo con ese nombre";
    default:
      return "no se ha podido";
  }
}

std::string of(const project::RowMention& row) {
  using project::Mentioned;
  switch (row.mentioned) {
    case Mentioned::by_path:
      return "lo nombra " + row.project;
    case Mentioned::path_missing:
      return "puede ser el archivo perdido que nombra " + row.project;
    case Mentioned::without_path:
      return "lo nombra sin su ruta " + row.project;
    case Mentioned::unidentified:
      if (row.project.empty()) return "su nombre no se puede buscar en los proyectos";
      return "puede ser el archivo que nombra " + row.project;
    case Mentioned::linked:
      return "no se busca en la carpeta enlazada " + row.project;
    case Mentioned::unnamed:
      return "no se puede leer, por las letras de su nombre, " + row.project;
    case Mentioned::unread:
      return "no se ha podido leer entero " + row.project;
    case Mentioned::no:
      break;
  }
  return {};
}

}  // namespace ordelan::removal::reason
