// The text of an INI file, read and changed by the rules of Windows' own profile calls, so that the
// file can be shared with other programs: comments, foreign keys, their order and their spelling
// stay.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ordelan::settings {

// What the bytes of a text mean: names are compared letter by letter, with case ignored.
enum class TextCode { code_page, utf8 };

// The value of a key, without the blanks around it and without quotes that enclose it. Names of
// sections and keys are compared with case and the blanks around them ignored, and the first of
// several counts. A key may hold "=": its line is the one that begins with all of it. Nothing if
// there is no such key. Section and key are in the code of the text.
std::optional<std::string> ini_value(std::string_view text, std::string_view section,
                                     std::string_view key, TextCode code = TextCode::code_page);

// The text with the key's value set: in the line where it stands, else at the end of its section,
// else in a new section at the end. Blanks at the end of a key are written too. Lines end as the
// file's own lines do, in CR LF in a new file. What could not be read back (a line end or a NUL in
// key or value, a key that reads as a comment or a section) changes nothing.
std::string with_ini_value(std::string_view text, std::string_view section, std::string_view key,
                           std::string_view value, TextCode code = TextCode::code_page);

}  // namespace ordelan::settings
