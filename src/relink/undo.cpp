#include "relink/undo.h"

#include <algorithm>
#include <utility>

#include "relink/patched_project.h"
#include "removal/reasons.h"
#include "system/whole_file.h"
#include "text/paths.h"

namespace ordelan::relink {
namespace {

constexpr const char* kNoCopy = "falta su copia";
constexpr const char* kDamaged = "está dañado";
constexpr const char* kChanged = "ha cambiado mientras se restauraban";
constexpr const char* kAnother = "otra actualización se ha hecho o deshecho entretanto";

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

// The copies of all updates count: a later one may have moved a copy of this one aside.
void Undo::read() {
  number_ = 0;
  unread_.clear();
  steps_.clear();
  copies_.clear();
  const Runs runs = runs_of(files_, folder_);
  if (runs.open.empty()) return;
  number_ = runs.open.back();
  std::vector<std::string> names;
  for (const std::size_t each : runs.undone) names.push_back(undone_run_name(each));
  for (const std::size_t each : runs.open) names.push_back(run_name(each));
  std::vector<RunRecord> latest;
  for (const std::string& name : names) {
    const auto bytes = removal::bytes_of(files_, folder_ + name);
    std::vector<RunRecord> records = bytes ? read_run(*bytes) : std::vector<RunRecord>();
    for (const RunRecord& record : records) {
      if (record.kind == RunRecord::Kind::copy) copies_.push_back(record);
    }
    if (name != names.back()) continue;
    latest = std::move(records);
    if (!bytes) {
      unread_ = removal::reason::of(bytes.status());
    } else if (is_damaged_run(*bytes)) {
      unread_ = kDamaged;
    }
  }
  is_ = folder_around(folder_);
  was_ = is_;
  moved_ = false;
  read_steps(latest);
}

void Undo::read_steps(const std::vector<RunRecord>& records) {
  std::map<std::string, std::size_t> at;  // by key of the path
  for (const RunRecord& record : records) {
    if (record.kind == RunRecord::Kind::folder) {
      was_ = folder_around(record.path);
      moved_ = text::same_file_key(was_) != text::same_file_key(is_) &&
               files_.identity(was_) != files_.identity(is_);
    }
    const std::string path = here(record.path);
    const std::string key = text::same_file_key(path);
    const bool created = record.kind == RunRecord::Kind::created;
    if (created || record.kind == RunRecord::Kind::target) {
      if (at.emplace(key, steps_.size()).second) steps_.push_back({path, record.content, created});
      steps_[at[key]].made.push_back(std::nullopt);
      continue;
    }
    if (!at.contains(key) || steps_[at[key]].made.empty()) continue;
    std::vector<std::optional<Content>>& made = steps_[at[key]].made;
    if (record.kind == RunRecord::Kind::done) made.back() = record.content;
    if (record.kind == RunRecord::Kind::left) made.pop_back();
  }
  // What did not come about is not undone: it is what it was, or what somebody made of it since.
  std::erase_if(steps_, [](const Step& step) { return step.made.empty(); });
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
Status Undo::give_back(const std::string& copy, const Step& step) const {
  const std::string& path = step.path;
  if (!step.seen) return system::copy_whole(files_, copy, path, system::Existing::keep);
  // What somebody saves while other projects are restored has no copy.
  const auto still = [&] {
    return is_as_seen(files_, path, *step.seen) ? Status() : Status(Reason::in_use);
  };
  auto present = files_.change(path);
  if (!present) return present.status();
  const auto there = files_.info(path);
  const bool in_place = (there && there->link) || present->names() > 1;
  present.reset();
  if (!in_place) {
    return system::copy_whole(files_, copy, path, system::Existing::replace, nullptr, still);
  }
  const auto bytes = removal::bytes_of(files_, copy);
  if (!bytes) return bytes.status();
  const Status same = still();
  return same ? write_in_place(files_, path, *bytes) : same;
}

std::string Undo::restore(const Step& step) const {
  if (step.created) {
    if (step.seen && !is_as_seen(files_, step.path, *step.seen)) return kChanged;
    Status removed = files_.remove(step.path);
    if (removed == Reason::not_found) removed = Status();
    // Before the update passes for undone.
    if (removed) removed = files_.flush_folder(text::getPath(step.path, "\\"));
    return removed ? "" : removal::reason::of(removed);
  }
  const auto copy = copy_with(step.before);
  if (!copy && copy.status() == Reason::not_found) return kNoCopy;
  if (!copy) return removal::reason::of(copy.status());
  if (const Status given = give_back(*copy, step); !given) {
    const bool changed = step.seen && !is_as_seen(files_, step.path, *step.seen);
    return given == Reason::in_use && changed ? kChanged : removal::reason::of(given);
  }
  const auto now = removal::content_of(files_, step.path, [] { return true; });
  return now && *now == step.before ? "" : removal::reason::of(Reason::other);
}

// Whether a step is to be done. What has changed since the update is saved.
void Undo::look_at(Originals& originals, Step step, std::vector<Step>& wanted, Failed& failed) {
  const auto there = files_.info(step.path);
  if (there) step.seen = {there->size, there->modified};
  const auto now = removal::content_of(files_, step.path, go_on_);
  const bool missing = now.status() == Reason::not_found;
  if (step.created ? missing : now && *now == step.before) return;
  if (!now && !missing) {
    failed.push_back({step.path, removal::reason::of(now.status()), {}});
    return;
  }
  // What the update made is here alone if the folder is where it was then. In a copy of it, what is
  // not what the update made may be any other project.
  if (moved_ && !(now && step.done() == *now && step.path.starts_with(is_))) {
    failed.push_back({step.path, "no es el proyecto que se actualizó en " + was_, {}});
    return;
  }
  if (now && step.done() != *now) {
    if (const Status saved = originals.save(step.path); !saved) {
      failed.push_back({step.path, removal::reason::of(saved), {}});
      return;
    }
    ++saved_;
  }
  wanted.push_back(std::move(step));
}

std::vector<removal::Kept> Undo::run() {
  Failed failed;
  const auto fail = [&](const std::string& path, const std::string& why) {
    failed.push_back({path, why, {}});
    return failed;
  };
  if (number_ == 0) return fail(folder_, removal::reason::of(Reason::not_found));
  // What has changed since is saved as an update saves it, with an index of its own.
  Originals originals(files_, shell_, folder_, go_on_);
  if (const Status taken = originals.take(Originals::Purpose::undo); !taken) {
    return fail(folder_, removal::reason::of(taken));
  }
  // Only now no other program changes the index any more.
  const std::size_t asked = number_;
  read();
  if (number_ != asked) return fail(folder_, kAnother);
  const std::string index = folder_ + run_name(number_);
  if (!unread_.empty()) fail(index, unread_);
  std::vector<Step> wanted;
  for (const Step& step : steps_) {
    look_at(originals, step, wanted, failed);
    if (!go_on_()) break;
  }
  if (const Status settled = originals.settle(); !settled) {
    return fail(folder_, removal::reason::of(settled));
  }
  for (const Step& step : wanted) {
    const std::string why = go_on_() ? restore(step) : removal::reason::of(Reason::cancelled);
    if (why.empty()) {
      ++restored_;
    } else {
      fail(step.path, why);
    }
  }
  originals.close();
  if (failed.empty() && go_on_()) {
    if (const Status retired = retire(); !retired) fail(index, removal::reason::of(retired));
  }
  return failed;
}

Status Undo::retire() {
  const Status moved = files_.move(folder_ + run_name(number_), folder_ + undone_run_name(number_));
  files_.flush_folder(folder_).ignore();
  return moved;
}

Status Undo::give_up() {
  Originals originals(files_, shell_, folder_, go_on_);
  const Status taken = originals.take(Originals::Purpose::undo);
  const Status retired = taken ? retire() : taken;
  originals.close();
  return retired;
}

}  // namespace ordelan::relink
