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

}  // namespace ordelan::removal::reason
