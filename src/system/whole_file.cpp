#include "system/whole_file.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <random>

namespace ordelan::system {
namespace {

// Ten would do against chance alone; a folder in which nothing can be created fails fast.
constexpr int kTries = 10;

// A name such as "ord1f3a90c2.tmp". Another program's temporary file, or one that a crash has left,
// has the same name once in four thousand million times, and is then passed by.
std::string temporary_name() {
  static std::mt19937 random{std::random_device{}()};
  std::array<char, 8> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), random() & 0xFFFFFFFFu, 16);
  return "ord" + std::string(digits.data(), end.ptr) + ".tmp";
}

}  // namespace

bool write_whole(FileSystem& files, const std::string& path, std::string_view bytes) {
  // The name is short whatever the file's own is: a name may have 255 characters, and no more.
  const std::string folder = path.substr(0, path.rfind('\\') + 1);
  std::string temporary;
  std::unique_ptr<OutputFile> file;
  for (int tries = 0; !file && tries < kTries; ++tries) {
    temporary = folder + temporary_name();
    file = files.create_new(temporary);
  }
  if (!file) return false;
  const bool written = file->write(bytes);
  const bool closed = file->close();
  file.reset();
  if (written && closed && files.replace(temporary, path)) return true;
  files.remove(temporary);
  return false;
}

}  // namespace ordelan::system
