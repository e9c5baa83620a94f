#include "system/whole_file.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <memory>
#include <random>

namespace ordelan::system {
namespace {

// Ten are enough against chance; a name that is taken ten times over is no chance.
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

// The name is short even where the file's own is long: a name may have at most 255 characters.
std::string folder_of(const std::string& path) {
  return path.substr(0, path.rfind('\\') + 1);
}

// Whether a try under another temporary name may go better.
bool is_taken(Status status) {
  return status == Reason::exists;
}

}  // namespace

Status write_whole(FileSystem& files, const std::string& path, std::string_view bytes) {
  const std::string folder = folder_of(path);
  std::string temporary;
  Opened<OutputFile> file = Reason::exists;
  for (int tries = 0; is_taken(file.status()) && tries < kTries; ++tries) {
    temporary = folder + temporary_name();
    file = files.create_new(temporary);
  }
  if (!file) return file.status();
  Status status = file->write(bytes);
  // A name that reaches the disk before its bytes would stand for an empty file after a power cut.
  if (status) status = file->flush();
  const Status closed = file->close();
  if (status) status = closed;
  file.reset();
  if (status) status = files.replace(temporary, path);
  if (!status) {
    files.remove(temporary).ignore();
    return status;
  }
  // The old name leads to the old bytes until this is done: nothing is lost where it fails.
  files.flush_folder(folder).ignore();
  return status;
}

Status copy_whole(FileSystem& files, const std::string& from, const std::string& to,
                  Existing existing, const FileSystem::Progress& progress) {
  // Looked at before gigabytes are copied in vain; `move` looks again.
  const auto taken = files.identity(to);
  if (taken && (existing == Existing::keep || taken == files.identity(from))) {
    return Reason::exists;
  }
  const std::string folder = folder_of(to);
  std::string temporary;
  Status status = Reason::exists;
  for (int tries = 0; is_taken(status) && tries < kTries; ++tries) {
    temporary = folder + temporary_name();
    status = files.copy_new(from, temporary, progress);
  }
  if (!status) return status;
  status = existing == Existing::keep ? files.move(temporary, to) : files.replace(temporary, to);
  if (!status) {
    // A copy of a read-only file is read-only.
    files.set_attributes(temporary, attribute::kArchive).ignore();
    files.remove(temporary).ignore();
    return status;
  }
  return files.flush_folder(folder);
}

}  // namespace ordelan::system
