#include "system/whole_file.h"

namespace ordelan::system {

bool write_whole(FileSystem& files, const std::string& path, std::string_view bytes) {
  const std::string draft = path + ".new";
  auto file = files.create(draft);
  if (!file) return false;
  const bool written = file->write(bytes);
  const bool closed = file->close();
  file.reset();
  if (written && closed && files.replace(draft, path)) return true;
  files.remove(draft);
  return false;
}

}  // namespace ordelan::system
