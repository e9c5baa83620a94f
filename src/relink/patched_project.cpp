#include "relink/patched_project.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "removal/content_hash.h"
#include "system/whole_file.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::relink {
namespace {

using system::Reason;
using system::Result;
using system::Status;

constexpr int kTries = 10;
// A batch ends before its wait for the disk could be noticed, or its room on the disk.
constexpr std::size_t kMostWaiting = 32;
constexpr std::uint64_t kMostBytes = 64 << 20;
constexpr std::chrono::milliseconds kLongest{50};
struct Written {
  std::string path;
  Content content;
};

// The image as a temporary file in the folder. The project is closed then: it could not be replaced
// while it is open.
Result<Written> write_beside(system::FileSystem& files, OpenProject& project,
                             const std::string& folder) {
  Written written;
  system::Opened<system::OutputFile> file = Reason::exists;
  for (int tries = 0; file.status() == Reason::exists && tries < kTries; ++tries) {
    written.path = folder + system::temporary_name();
    file = files.create_new(written.path);
  }
  if (!file) return file.status().reason();
  removal::ContentHash hash;
  Status status = project.image.write_whole([&](std::string_view bytes) {
    hash.add({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    return file->write(bytes);
  });
  const Status closed = file->close();
  if (status) status = closed;
  file.reset();
  if (!status) {
    files.remove(written.path).ignore();
    return status.reason();
  }
  project.file.reset();
  written.content = {project.image.size(), hash.value()};
  return written;
}

struct Overwritten {
  std::uint64_t offset;
  std::string bytes;
};

// The bytes of a file from one on, as many as there are up to a count.
Result<Overwritten> chunk_at(system::InputFile& file, std::uint64_t offset, std::size_t count) {
  const std::uint64_t rest = file.size() > offset ? file.size() - offset : 0;
  Overwritten chunk{offset,
                    std::string(static_cast<std::size_t>(std::min<std::uint64_t>(count, rest)), 0)};
  const auto read =
      file.read(offset, {reinterpret_cast<std::uint8_t*>(chunk.bytes.data()), chunk.bytes.size()});
  if (read != chunk.bytes.size()) return Reason::other;
  return chunk;
}

// Writes back what a change in place that has failed has overwritten. False where that fails too:
// the project has its copy.
bool take_back(system::FileSystem& files, const std::string& path, std::uint64_t size,
               const std::vector<Overwritten>& overwritten) {
  auto file = files.change(path);
  // Shorter first: the disk may be full.
  if (!file || !file->set_size(size)) return false;
  for (const Overwritten& chunk : overwritten) {
    if (!file->write_at(chunk.offset, chunk.bytes)) return false;
  }
  return file->flush() && file->close();
}

Status change_in_place(system::FileSystem& files, OpenProject& project,
                       std::unique_ptr<system::ChangeFile> file, const std::string& path,
                       const PutBatch::Record& record) {
  removal::ContentHash hash;
  Status status = project.image.write_whole([&](std::string_view bytes) {
    hash.add({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    return Status();
  });
  if (status) status = record.changes({{path, {project.image.size(), hash.value()}}});
  if (!status) return status;
  std::vector<Overwritten> overwritten;
  const std::uint64_t size = project.file->size();
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
  if (!status && take_back(files, path, size, overwritten)) record.left(path);
  return status;
}

}  // namespace

bool is_as_seen(system::FileSystem& files, const std::string& path, const work::Visto& seen) {
  const auto now = files.info(path);
  return now && now->size == seen.size && now->modified == seen.modified;
}

Result<std::unique_ptr<OpenProject>> open_project(system::FileSystem& files,
                                                  const std::string& path) {
  auto project = std::make_unique<OpenProject>();
  auto opened = files.open(path);
  if (!opened && opened.status() != Reason::not_found) return opened.status().reason();
  project->file = std::move(opened);
  project->image = FileImage(project->file.get());
  return project;
}

PutBatch::PutBatch(system::FileSystem& files, system::Clock& clock, Record record,
                   std::function<void()> turn)
    : files_(files), clock_(clock), record_(std::move(record)), turn_(std::move(turn)) {}

PutBatch::~PutBatch() {
  for (const Waiting& project : waiting_) files_.remove(project.temporary).ignore();
}

bool PutBatch::holds(const std::string& path) const {
  const std::string key = text::same_file_key(path);
  return std::any_of(waiting_.begin(), waiting_.end(), [&](const Waiting& project) {
    return text::same_file_key(project.change.path) == key;
  });
}

bool PutBatch::due() const {
  return !waiting_.empty() && (waiting_.size() >= kMostWaiting || bytes_ >= kMostBytes ||
                               clock_.now() - since_ >= kLongest);
}

void PutBatch::add(OpenProject& project, const std::string& path,
                   const std::optional<work::Visto>& seen, Ended ended) {
  if (seen) {
    const auto info = files_.info(path);
    // A project that another program has open, or that is not to be written, fails here.
    auto present = files_.change(path);
    if (!present) return ended(present.status());
    const bool in_place = info && (info->link || present->names() > 1);
    // It may be one of those that wait, by another name.
    if (in_place) put();
    if (!info || !is_as_seen(files_, path, *seen)) return ended(Reason::in_use);
    if (in_place) {
      return ended(change_in_place(files_, project, std::move(present), path, record_));
    }
  }
  const std::string folder = text::getPath(path, "\\");
  auto written = write_beside(files_, project, folder);
  if (!written && !waiting_.empty()) {
    // A full disk has room again when those that wait have replaced their projects.
    put();
    written = write_beside(files_, project, folder);
  }
  if (!written) return ended(written.status());
  if (waiting_.empty()) since_ = clock_.now();
  bytes_ += written->content.size;
  waiting_.push_back({{path, written->content, !seen}, written->path, seen, std::move(ended)});
}

void PutBatch::put() {
  if (waiting_.empty()) return;
  std::vector<Waiting> projects;
  projects.swap(waiting_);
  bytes_ = 0;
  try {
    place(projects);
  } catch (...) {
    for (const Waiting& project : projects) files_.remove(project.temporary).ignore();
    throw;
  }
}

void PutBatch::place(std::vector<Waiting>& projects) {
  std::vector<std::string> temporaries;
  for (const Waiting& project : projects) temporaries.push_back(project.temporary);
  const auto turn = [this] {
    turn_();
    return true;
  };
  // Where some of them cannot reach the disk, the others may.
  const bool all = files_.flush_files(temporaries, turn).ok();
  std::erase_if(projects, [&](const Waiting& project) {
    const Status flushed = all ? Status() : files_.flush_file(project.temporary);
    if (!flushed) drop(project, flushed);
    return !flushed;
  });
  std::vector<ProjectChange> changes;
  for (const Waiting& project : projects) changes.push_back(project.change);
  const Status recorded = changes.empty() ? Status() : record_.changes(changes);
  for (const Waiting& project : projects) {
    const Status placed = recorded ? place(project) : recorded;
    if (placed) {
      project.ended(placed);
    } else {
      if (recorded) record_.left(project.change.path);
      drop(project, placed);
    }
  }
}

Status PutBatch::place(const Waiting& project) {
  const std::string& path = project.change.path;
  if (!project.seen) return files_.move(project.temporary, path);
  if (!is_as_seen(files_, path, *project.seen)) return Reason::in_use;
  return files_.replace(project.temporary, path);
}

void PutBatch::drop(const Waiting& project, Status why) {
  files_.remove(project.temporary).ignore();
  project.ended(why);
}

Status write_in_place(system::FileSystem& files, const std::string& path, std::string_view bytes) {
  const auto old = removal::bytes_of(files, path);
  if (!old) return old.status();
  auto file = files.change(path);
  if (!file) return file.status();
  Status status = file->write_at(0, bytes);
  if (status) status = file->set_size(bytes.size());
  if (status) status = file->flush();
  const Status closed = file->close();
  if (status) status = closed;
  file.reset();
  if (!status) take_back(files, path, old->size(), {{0, *old}});
  return status;
}

void remove_leftovers(system::FileSystem& files, const std::string& folder) {
  std::vector<std::string> left;
  files.each(folder, system::Detail::names, [&](system::FileInfo& entry) {
    const bool file = !entry.folder && !entry.link;
    if (file && system::is_temporary_name(entry.name)) left.push_back(entry.name);
    return true;
  });
  for (const std::string& name : left) files.remove(folder + name).ignore();
}

}  // namespace ordelan::relink
