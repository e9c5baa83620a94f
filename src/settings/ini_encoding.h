// The encodings in which editors save INI files. A file keeps its own; Windows' own calls read and
// write them all too.
#pragma once

#include <string>
#include <string_view>

namespace ordelan::settings {

// Files of the code page carry no mark; the others begin with their byte order mark.
enum class IniEncoding { code_page, utf8, utf16_low_first, utf16_high_first };

// The encoding of a file, by the mark that its bytes begin with.
IniEncoding encoding_of(std::string_view bytes);

// The text of a file in that encoding, without its mark: UTF-8 of every encoding but the code page,
// whose bytes stay as they are. What is no valid text comes back as it was from `ini_bytes`; only
// half a unit at the end of a UTF-16 file is dropped.
std::string ini_text(std::string_view bytes, IniEncoding encoding);

// Such a text as the bytes of a file in that encoding, with its mark.
std::string ini_bytes(std::string_view text, IniEncoding encoding);

}  // namespace ordelan::settings
