// Writing a file so that whoever looks at it finds the old one or the new one, never a half.
#pragma once

#include <string>
#include <string_view>

#include "system/file_system.h"

namespace ordelan::system {

// Writes a draft beside the file and puts it in the file's place. False when that fails at any
// step: the file is then as it was, and no draft is left.
bool write_whole(FileSystem& files, const std::string& path, std::string_view bytes);

}  // namespace ordelan::system
