// Whether a file can be moved or removed, and waiting for that.
#pragma once

#include <chrono>
#include <string>

namespace ordelan::win32 {

// Whether some program, this one too, has the file open in a way that keeps it from being moved or
// removed. False for a missing file, and where other reasons keep it.
bool is_held(const std::string& path);

// Waits until the file is not held any more, for so long at the most; gives whether it is free. The
// system's objects of the calling thread do their work meanwhile.
bool wait_until_free(const std::string& path, std::chrono::milliseconds most);

}  // namespace ordelan::win32
