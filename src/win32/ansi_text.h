// The one place where the program's code-page text becomes Windows' own UTF-16, and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ordelan::win32 {

// The text as Windows takes it. Any bytes will do.
std::wstring widen(std::string_view ansi);

// The text in the system's code page. Nothing unless it gives the very same text back: a name that
// was only nearly kept would be taken for another file's.
std::optional<std::string> narrow(std::wstring_view text);
// The same into an existing text, in place of what it held, so that a thousand names need no
// room but that of the longest. False where the other gives nothing; `ansi` is then of no use.
bool narrow(std::wstring_view text, std::string& ansi);

// The text in the system's code page with "?" for what it cannot hold: for texts that name nothing.
std::string narrow_with_marks(std::wstring_view text);

}  // namespace ordelan::win32
