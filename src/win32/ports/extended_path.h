// Paths in the form that Windows takes literally and at any length.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ordelan::win32 {

// "D:\Mix\a.vip" as "\\?\D:\Mix\a.vip", "\\server\share\a.vip" as "\\?\UNC\server\share\a.vip".
// Windows then looks for exactly that name: it no longer drops blanks and dots from its end. So
// what it would otherwise normalise is normalised here: slashes, doubled backslashes, "." and "..".
// A backslash at the end stays. Nothing for what is no absolute path, and for names that only a
// search, a stream or a device could have: with NUL, wildcards or a second colon.
std::optional<std::wstring> extended_path(std::string_view path);

// The same for something that is a file by its form: nothing with a backslash at the end.
std::optional<std::wstring> file_path(std::string_view path);

// An extended path as it is usually spelt.
std::wstring plain_path(std::wstring_view extended);

// Whether an extended path is that of a drive or of a share itself, with or without the backslash.
bool is_root(std::wstring_view extended);

}  // namespace ordelan::win32
