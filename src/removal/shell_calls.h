// The three calls to the shell by which files are copied and removed and the bin is emptied.
#pragma once

#include <string>

#include "system/shell.h"

namespace ordelan::removal {

// Sends a file to the recycle bin. `ask` is the user's wish to be asked for each file.
system::Status EnviarPapelera(system::Shell& shell, const std::string& Archivo, bool ask);

// Empties the bin of the drive with the root `Ruta`, of all drives if it is empty.
system::Status VaciarPapelera(system::Shell& shell, const std::string& Ruta, bool SinConfirmar);

// Copies a file into a folder; the shell asks before it writes over another.
system::Status CopiarArchivo(system::Shell& shell, const std::string& Origen,
                             const std::string& Destino);

}  // namespace ordelan::removal
