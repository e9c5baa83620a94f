// The text of an INI file, read and changed by the rules of Windows' own profile calls, so that the
// file stays common property: comments, foreign keys, their order and their spelling stay.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ordelan::settings {

// The value of a key, without the blanks around it and without quotes that enclose it. Sections
// and keys are told apart with case ignored, and the first of several counts. Nothing if there is
// no such key.
std::optional<std::string> ini_value(std::string_view text, std::string_view section,
                                     std::string_view key);

// The text with the key's value set: in the line where it stands, else at the end of its section,
// else in a new section at the end. Lines end as the file's own lines do, in CR LF in a new file.
std::string with_ini_value(std::string_view text, std::string_view section, std::string_view key,
                           std::string_view value);

}  // namespace ordelan::settings
