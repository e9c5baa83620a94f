// Saving a file so that others find the old one or the new one, never a half.
#pragma once

#include <string>
#include <string_view>

#include "system/file_system.h"

namespace ordelan::system {

// Writes the bytes to a temporary file in the same folder, under a short name that nothing else
// has, and puts it in the place of `path`. What stays of an old file is as `FileSystem::replace`
// has it. False when any step fails: the old file is then as it was, and the temporary file is
// removed. Files of other names are never touched.
bool write_whole(FileSystem& files, const std::string& path, std::string_view bytes);

}  // namespace ordelan::system
