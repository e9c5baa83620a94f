// What the desktop of the system knows of files, and what it opens for the user.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace ordelan::system {

// A picture, row by row from the top; each pixel is 0xAARRGGBB, its colours not multiplied by its
// alpha.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> argb;
};

class Shell {
 public:
  virtual ~Shell() = default;

  // Opens a web page or a file with whatever the user has for it. False when nothing could.
  virtual bool open(const std::string& target) = 0;

  // What the system calls files of this kind ("Archivo WAV"); empty if the file is not there.
  virtual std::string file_type(const std::string& path) = 0;

  // The program that opens the file; empty if there is none.
  virtual std::string executable(const std::string& path) = 0;

  // The icon that the system shows for the file; nothing if it has none.
  virtual std::optional<Pixels> icon(const std::string& path) = 0;
};

}  // namespace ordelan::system
