#include "project/valido.h"

namespace ordelan::project {

bool Validator::Valido(const std::string& Ruta) {
  if (Ruta.find("FreezeData") != std::string::npos) return false;
  const auto there = files_.look_up(Ruta);
  if (!there || there->name.find('.') == std::string::npos) return false;
  return reader_.ExtraerNombres_Archivos(Ruta, scratch_, "", false);
}

}  // namespace ordelan::project
