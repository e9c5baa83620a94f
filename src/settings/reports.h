// The reports that the user saves: lists as plain text.
#pragma once

#include <string>
#include <vector>

#include "system/file_system.h"
#include "system/regional.h"

namespace ordelan::settings {

// Writes a list with the date, the time (both in the system's short forms) and two texts above it;
// an old file is replaced as a whole. A title row is followed by a blank line, and before the next
// title stands a line of hyphens. False when the file could not be written, which leaves an old one
// as it was, and when `Archivo` is empty: nothing is written then.
bool SalvarListados(system::FileSystem& files, system::Regional& regional,
                    const std::string& Archivo, const std::vector<std::string>& Lista,
                    const std::string& Texto1, const std::string& Texto2);

// Writes every row of the list to `Archivo`, one a line and nothing else; an old file is replaced
// as a whole. False when that fails, which leaves an old one as it was, and when `Archivo` is
// empty: nothing is written then.
bool SalvarLog(system::FileSystem& files, const std::string& Archivo,
               const std::vector<std::string>& Lista);

}  // namespace ordelan::settings
