// Writing to an open file.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string_view>

#include "system/status.h"
#include "win32/handle.h"

namespace ordelan::win32 {

// One call to the disk takes and gives at most this much.
inline constexpr std::size_t kLargestPiece = 16 * 1024 * 1024;

// Writes all bytes at the place of an open file that its pointer has reached.
system::Status write_all(const FileHandle& file, std::string_view bytes);

}  // namespace ordelan::win32
