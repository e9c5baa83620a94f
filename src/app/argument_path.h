// What the user names on a command line, as the path that the program works with.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ordelan::app {

// A path of an argument, or the reason why there is none.
struct ArgumentPath {
  std::optional<std::string> path;  // a Windows path in code-page bytes
  std::string motivo;               // the reason, for the user; empty with a path

  static ArgumentPath of(std::string path) { return {std::move(path), {}}; }
  static ArgumentPath none(std::string motivo) { return {std::nullopt, std::move(motivo)}; }
};

inline constexpr const char* kNotInCodePage = "no cabe en la página de códigos";

// Whether a text begins with a drive: "D:".
bool has_drive(std::string_view path);

// A path with a drive as the lists show paths: backslashes only, none doubled, "." and ".."
// resolved in the text and never above the drive. A drive alone ("D:") is its root. A backslash at
// the end stays. A text without a drive, or one that names no place on it ("D:tema.vip"), is given
// back as it is.
std::string full_path(std::string_view path);

// The same for an argument in UTF-8 that has a drive.
ArgumentPath drive_path(const std::string& argument);

}  // namespace ordelan::app
