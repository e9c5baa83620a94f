#include "relink/undo.h"

#include <utility>

#include "removal/reasons.h"
#include "system/whole_file.h"
#include "text/paths.h"

namespace ordelan::relink {
namespace {

// The folder that a folder lies in; both with their backslash.
std::string folder_around(const std::string& folder) {
  return text::getPath(folder.substr(0, folder.size() - 1), "\\");
}

}  // namespace

using system::Reason;
using system::Result;
using system::Status;

Undo::Undo(system::FileSystem& files, system::Shell& shell, std::string folder,
           std::function<bool()> go_on)
    : files_(files), shell_(shell), folder_(std::move(folder)), go_on_(std::move(go_on)) {
  read();
}

bool Undo::available(system::FileSystem& files, const std::string& folder) {
  return !runs_of(files, folder).open.empty();
}

std::size_t Undo::projects() const {
  return steps_.size();
}

std::vector<RunRecord> Undo::records_of(const std::string& name) const {
  const auto bytes = removal::bytes_of(files_, folder_ + name);
  return bytes ? read_run(*bytes) : std::vector<RunRecord>();
}

// The copies of all updates count: a later one may have moved a copy of this one aside.
void Undo::read() {
  const Runs runs = runs_of(files_, folder_);
  if (runs.open.empty()) return;
  number_ = runs.open.back();
  std::vector<std::string> names;
  for (const std::size_t each : runs.undone) names.push_back(undone_run_name(each));
  for (const std::size_t each : runs.open) names.push_back(run_name(each));
  std::vector<RunRecord> latest;
  for (const std::string& name : names) {
    std::vector<RunRecord> records = records_of(name);
    for (const RunRecord& record : records) {
      if (record.kind == RunRecord::Kind::copy) copies_.push_back(record);
    }
    if (name == names.back()) latest = std::move(records);
  }

  is_ = folder_around(folder_);
  was_ = is_;
  std::map<std::string, std::size_t> at;  // by key of the path
  for (const RunRecord& record : latest) {
    if (record.kind == RunRecord::Kind::folder) {
      was_ = folder_around(record.path);
      moved_ = text::same_file_key(was_) != text::same_file_key(is_) &&
               files_.identity(was_) != files_.identity(is_);
    }
    const std::string path = here(record.path);
    const auto step = at.find(text::same_file_key(path));
    switch (record.kind) {
      case RunRecord::Kind::target:
      case RunRecord::Kind::created:
        if (step != at.end()) break;
        at[text::same_file_key(path)] = steps_.size();
        steps_.push_back(
            {path, record.content, std::nullopt, record.kind == RunRecord::Kind::created});
        break;
      case RunRecord::Kind::done:
        if (step != at.end()) steps_[step->second].done = record.content;
        break;
      case RunRecord::Kind::copy:
      case RunRecord::Kind::folder:
        break;
    }
  }
}

std::string Undo::here(const std::string& path) const {
  return moved_ && path.starts_with(was_) ? is_ + path.substr(was_.size()) : path;
}

Result<std::string> Undo::copy_with(const Content& content) const {
  for (const RunRecord& copy : copies_) {
    if (copy.content != content) continue;
    const std::string path = folder_ + copy.place;
    const auto found = removal::content_of(files_, path, go_on_);
    if (found && *found == content) return path;
    if (!found && found.status() == Reason::cancelled) return Reason::cancelled;
  }
  return Reason::not_found;
}

// Puts the bytes of a copy into a project. One that is a link or has other names stays the same
// file under all of them: its bytes are written anew, and its copy stays until that has gone well.
Status Undo::give_back(const std::string& copy, const std::string& path) const {
  const auto there = files_.info(path);
  if (!there) return system::copy_whole(files_, copy, path, system::Existing::keep);
  auto present = files_.change(path);
  if (!present) return present.status();
  const bool in_place = there->link || present->names() > 1;
  present.reset();
  if (!in_place) return system::copy_whole(files_, copy, path, system::Existing::replace);
  const auto bytes = removal::bytes_of(files_, copy);
  if (!bytes) return bytes.status();
  auto file = files_.create(path);
  if (!file) return file.status();
  Status status = file->write(*bytes);
  if (status) status = file->flush();
  const Status closed = file->close();
  return status ? closed : status;
}

Status Undo::restore(const Step& step) const {
  if (step.created) {
    const Status removed = files_.remove(step.path);
    if (!removed && removed != Reason::not_found) return removed;
    // Before the update passes for undone.
    return files_.flush_folder(text::getPath(step.path, "\\"));
  }
  const auto copy = copy_with(step.before);
  if (!copy) return copy.status();
  if (const Status given = give_back(*copy, step.path); !given) return given;
  const auto now = removal::content_of(files_, step.path, [] { return true; });
  return now && *now == step.before ? Status() : Reason::other;
}

std::vector<removal::Kept> Undo::run() {
  std::vector<removal::Kept> failed;
  const auto fail = [&](const std::string& path, Status status) {
    failed.push_back({path, removal::reason::of(status), {}});
  };
  if (number_ == 0) {
    fail(folder_, Reason::not_found);
    return failed;
  }
  // What has changed since is saved as an update saves it, with an index of its own.
  Originals originals(files_, shell_, folder_, go_on_);
  if (const Status taken = originals.take(Originals::Purpose::undo); !taken) {
    fail(folder_, taken);
    return failed;
  }
  std::vector<Step> wanted;
  for (const Step& step : steps_) {
    const auto now = removal::content_of(files_, step.path, go_on_);
    const bool missing = now.status() == Reason::not_found;
    if (step.created ? missing : now && *now == step.before) continue;
    if (!now && !missing) {
      fail(step.path, now.status());
      continue;
    }
    // What the update made is here alone if the folder is where it was then. In a copy of it, what
    // is not what the update made may be any other project.
    if (moved_ && !(now && step.done == *now && step.path.starts_with(is_))) {
      failed.push_back({step.path, "no es el proyecto que se actualizó en " + was_, {}});
      continue;
    }
    if (now && step.done != *now) {
      if (const Status saved = originals.save(step.path); !saved) {
        fail(step.path, saved);
        continue;
      }
      ++saved_;
    }
    wanted.push_back(step);
    if (!go_on_()) break;
  }
  if (const Status settled = originals.settle(); !settled) {
    fail(folder_, settled);
    return failed;
  }
  for (const Step& step : wanted) {
    const Status status = go_on_() ? restore(step) : Reason::cancelled;
    if (status) {
      ++restored_;
    } else {
      fail(step.path, status);
    }
  }
  originals.close();
  if (failed.empty() && go_on_()) {
    const Status moved =
        files_.move(folder_ + run_name(number_), folder_ + undone_run_name(number_));
    if (!moved) fail(folder_ + run_name(number_), moved);
    files_.flush_folder(folder_).ignore();
  }
  return failed;
}

}  // namespace ordelan::relink
