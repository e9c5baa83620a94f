#include "relink/patched_project.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <random>
#include <utility>
#include <vector>

#include "removal/content_hash.h"
#include "text/paths.h"

namespace ordelan::relink {
namespace {

using system::Reason;
using system::Result;
using system::Status;

constexpr int kTries = 10;
constexpr std::string_view kBegin = "ordelan-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::size_t kDigits = 8;

// No project's name: a listing that meets it takes it for nothing.
std::string temporary_name() {
  static std::mt19937 random{std::random_device{}()};
  std::array<char, kDigits> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), random() & 0xFFFFFFFFu, 16);
  const std::string number(digits.data(), end.ptr);
  return std::string(kBegin).append(kDigits - number.size(), '0').append(number).append(kEnd);
}

bool is_temporary(std::string_view name) {
  return name.size() == kBegin.size() + kDigits + kEnd.size() && name.starts_with(kBegin) &&
         name.ends_with(kEnd) &&
         name.substr(kBegin.size(), kDigits).find_first_not_of("0123456789abcdef") ==
             std::string_view::npos;
}

// Whether the project is as it was seen: another program may have saved it meanwhile.
bool is_as_seen(system::FileSystem& files, const std::string& path, const work::Visto& seen) {
  const auto now = files.info(path);
  return now && now->size == seen.size && now->modified == seen.modified;
}

struct Written {
  std::string path;
  Content content;
};

// The image as a temporary file in the folder, on the disk for good.
Result<Written> write_beside(system::FileSystem& files, OpenProject& project,
                             const std::string& folder) {
  Written written;
  system::Opened<system::OutputFile> file = Reason::exists;
  for (int tries = 0; file.status() == Reason::exists && tries < kTries; ++tries) {
    written.path = folder + temporary_name();
    file = files.create_new(written.path);
  }
  if (!file) return file.status().reason();
  removal::ContentHash hash;
  Status status = project.image.write_whole([&](std::string_view bytes) {
    hash.add({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    return file->write(bytes);
  });
  if (status) status = file->flush();
  const Status closed = file->close();
  if (status) status = closed;
  file.reset();
  project.file.reset();  // it could not be replaced while it is open
  if (!status) {
    files.remove(written.path).ignore();
    return status.reason();
  }
  written.content = {project.image.size(), hash.value()};
  return written;
}

struct Chunk {
  std::uint64_t offset;
  std::string bytes;
};

// The bytes of a file from one on, as many as there are up to a count.
Result<Chunk> chunk_at(system::InputFile& file, std::uint64_t offset, std::size_t count) {
  const std::uint64_t rest = file.size() > offset ? file.size() - offset : 0;
  Chunk chunk{offset,
              std::string(static_cast<std::size_t>(std::min<std::uint64_t>(count, rest)), 0)};
  const auto read =
      file.read(offset, {reinterpret_cast<std::uint8_t*>(chunk.bytes.data()), chunk.bytes.size()});
  if (read != chunk.bytes.size()) return Reason::other;
  return chunk;
}

// Writes back what a change in place that has failed has overwritten. Where that fails too, the
// project has its copy.
void take_back(system::FileSystem& files, const std::string& path,
               const std::vector<Chunk>& overwritten) {
  auto file = files.change(path);
  if (!file) return;
  for (const Chunk& chunk : overwritten) {
    if (!file->write_at(chunk.offset, chunk.bytes)) return;
  }
  file->flush().ignore();
  file->close().ignore();
}

Status change_in_place(system::FileSystem& files, OpenProject& project,
                       std::unique_ptr<system::ChangeFile> file, const std::string& path,
                       const BeforeChange& before) {
  removal::ContentHash hash;
  Status status = project.image.write_whole([&](std::string_view bytes) {
    hash.add({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    return Status();
  });
  if (status) status = before({project.image.size(), hash.value()});
  if (!status) return status;
  std::vector<Chunk> overwritten;
  status = project.image.write_changes([&](std::uint64_t offset, std::string_view bytes) {
    const auto chunk = chunk_at(*project.file, offset, bytes.size());
    if (!chunk) return chunk.status();
    overwritten.push_back(*chunk);
    return file->write_at(offset, bytes);
  });
  if (status) status = file->flush();
  const Status closed = file->close();
  if (status) status = closed;
  file.reset();
  project.file.reset();
  if (!status) take_back(files, path, overwritten);
  return status;
}

}  // namespace

Result<std::unique_ptr<OpenProject>> open_project(system::FileSystem& files,
                                                  const std::string& path) {
  auto project = std::make_unique<OpenProject>();
  auto opened = files.open(path);
  if (!opened && opened.status() != Reason::not_found) return opened.status().reason();
  project->file = std::move(opened);
  project->image = FileImage(project->file.get());
  return project;
}

Status put_over(system::FileSystem& files, OpenProject& project, const std::string& path,
                const work::Visto& seen, const BeforeChange& before) {
  const auto info = files.info(path);
  // A project that another program has open, or that is not to be written, fails here.
  auto present = files.change(path);
  if (!present) return present.status();
  if (!info || !is_as_seen(files, path, seen)) return Reason::in_use;
  if (info->link || present->names() > 1) {
    return change_in_place(files, project, std::move(present), path, before);
  }
  present.reset();
  const auto written = write_beside(files, project, text::getPath(path, "\\"));
  if (!written) return written.status();
  Status status = before(written->content);
  if (status && !is_as_seen(files, path, seen)) status = Reason::in_use;
  if (status) status = files.replace(written->path, path);
  if (!status) files.remove(written->path).ignore();
  return status;
}

Status put_new(system::FileSystem& files, OpenProject& project, const std::string& path,
               const BeforeChange& before) {
  const auto written = write_beside(files, project, text::getPath(path, "\\"));
  if (!written) return written.status();
  Status status = before(written->content);
  if (status) status = files.move(written->path, path);
  if (!status) files.remove(written->path).ignore();
  return status;
}

void remove_leftovers(system::FileSystem& files, const std::string& folder) {
  std::vector<std::string> left;
  files.each(folder, system::Detail::names, [&](system::FileInfo& entry) {
    if (!entry.folder && !entry.link && is_temporary(entry.name)) left.push_back(entry.name);
    return true;
  });
  for (const std::string& name : left) files.remove(folder + name).ignore();
}

}  // namespace ordelan::relink
