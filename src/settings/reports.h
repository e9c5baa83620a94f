// The reports that the user saves: lists as plain text.
#pragma once

#include <string>

#include "system/file_system.h"
#include "system/regional.h"
#include "ui/list_box.h"

namespace ordelan::settings {

// Writes a list with the date, the time and two texts above it; an old file is replaced. A title
// row is followed by a blank line, and the next title is led by a line of hyphens. An empty
// `Archivo` does nothing. False when the file could not be written, which nobody tells the user.
bool SalvarListados(system::FileSystem& files, system::Regional& regional,
                    const std::string& Archivo, const ui::ListBox& Lista, const std::string& Texto1,
                    const std::string& Texto2);

// Writes every row of the list to `Archivo`, one a line and nothing else. False when that fails,
// and when `Archivo` is empty: nothing is written then.
bool SalvarLog(system::FileSystem& files, const std::string& Archivo, const ui::ListBox& Lista);

}  // namespace ordelan::settings
