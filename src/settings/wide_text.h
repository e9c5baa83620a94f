// INI files that an editor has saved as UTF-16: Windows' own calls read and write them too.
#pragma once

#include <string>
#include <string_view>

namespace ordelan::settings {

// Whether a file's bytes begin with the mark of UTF-16, low byte first.
bool is_wide(std::string_view bytes);

// The text of a wide file as UTF-8, without its mark.
std::string utf8_of_wide(std::string_view bytes);

// UTF-8 text as the bytes of a wide file, its mark included.
std::string wide_of_utf8(std::string_view utf8);

}  // namespace ordelan::settings
