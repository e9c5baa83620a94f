#include "removal/shell_calls.h"

namespace ordelan::removal {

using system::Confirm;
using system::Status;

Status EnviarPapelera(system::Shell& shell, const std::string& Archivo, bool ask) {
  return shell.recycle(Archivo, ask ? Confirm::ask : Confirm::without_asking);
}

Status VaciarPapelera(system::Shell& shell, const std::string& Ruta, bool SinConfirmar) {
  return shell.empty_bin(Ruta, SinConfirmar ? Confirm::without_asking : Confirm::ask);
}

Status CopiarArchivo(system::Shell& shell, const std::string& Origen, const std::string& Destino) {
  return shell.copy_into(Origen, Destino);
}

}  // namespace ordelan::removal
