// Named streams of a file: bytes that a volume keeps beside those of the file itself.
#pragma once

#include <string>
#include <vector>

namespace ordelan::win32 {

// Copies the bytes of one stream, or of one file, over another at an extended path, whose name is
// added to `made` if it is new. Gives the error of Windows, 0 if none.
unsigned long copy_stream(const std::wstring& from, const std::wstring& to,
                          std::vector<std::wstring>& made);

// Copies the named streams of the file `from` to the file `to`, over those of the same name, and
// adds the new ones to `made`. The time at which `to` was last written stays. Gives the error of
// Windows, 0 if none; some may have been copied by then. A volume without streams has none.
unsigned long copy_streams(const std::wstring& from, const std::wstring& to,
                           std::vector<std::wstring>& made);

// Removes streams of the file `of`, whose time of the last write stays.
void remove_streams(const std::wstring& of, const std::vector<std::wstring>& streams);

}  // namespace ordelan::win32
