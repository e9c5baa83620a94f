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

constexpr std::string_view kBegin = "ordelan-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::size_t kDigits = 8;

std::string folder_of(const std::string& path) {
  return path.substr(0, path.rfind('\\') + 1);
}

// Whether a try under another temporary name may go better.
bool is_taken(Status status) {
  return status == Reason::exists;
}

}  // namespace

std::string temporary_name() {
  static std::mt19937 random{std::random_device{}()};
  std::array<char, kDigits> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), random() & 0xFFFFFFFFu, 16);
  const std::string number(digits.data(), end.ptr);
  return std::string(kBegin).append(kDigits - number.size(), '0').append(number).append(kEnd);
}

bool is_temporary_name(std::string_view name) {
  return name.size() == kBegin.size() + kDigits + kEnd.size() && name.starts_with(kBegin) &&
         name.ends_with(kEnd) &&
         name.substr(kBegin.size(), kDigits).find_first_not_of("0123456789abcdef") ==
             std::string_view::npos;
}

Status write_whole(FileSystem& files, const std::string& path, std::string_view bytes) {
  return write_in_pieces(files, path, [&](OutputFile& file) { return file.write(bytes); });
}

Status write_in_pieces(FileSystem& files, const std::string& path,
                       const std::function<Status(OutputFile&)>& write) {
  const std::string folder = folder_of(path);
  std::string temporary;
  Opened<OutputFile> file = Reason::exists;
  for (int tries = 0; is_taken(file.status()) && tries < kTries; ++tries) {
    temporary = folder + temporary_name();
    file = files.create_new(temporary);
  }
  if (!file) return file.status();
  Status status = write(*file);
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
                  Existing existing, const FileSystem::Progress& progress,
                  const std::function<Status()>& last_look) {
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
  if (last_look) status = last_look();
  if (status) {
    status = existing == Existing::keep ? files.move(temporary, to) : files.replace(temporary, to);
  }
  if (!status) {
    // A copy of a read-only file is read-only.
    files.set_attributes(temporary, attribute::kArchive).ignore();
    files.remove(temporary).ignore();
    return status;
  }
  return files.flush_folder(folder);
}

}  // namespace ordelan::system
