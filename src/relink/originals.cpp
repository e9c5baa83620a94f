#include "relink/originals.h"

#include <utility>

#include "removal/shell_calls.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::relink {
namespace {

using system::Reason;
using system::Status;

constexpr std::string_view kOriginals = "Originales\\";
constexpr const char* kLock = "Actualizacion.lock";
constexpr std::string_view kEnding = ".orig";
constexpr std::size_t kMostNumbers = 9999;

}  // namespace

// These two spellings alone: what a drop leaves is a project's path, and its ending is hardly ever
// spelt ".Vip".
std::string projects_folder(const std::string& RutaProyectos) {
  const bool names_project = RutaProyectos.find("VIP") != std::string::npos ||
                             RutaProyectos.find("vip") != std::string::npos;
  return names_project ? text::getPath(RutaProyectos, "\\") : RutaProyectos;
}

std::string originals_folder(const std::string& projects_folder) {
  return system::with_backslash(projects_folder) + std::string(kOriginals);
}

bool is_original(std::string_view path) {
  const std::string key = text::same_file_key(path);
  return key.find("\\" + text::upper(kOriginals)) != std::string::npos;
}

Originals::Originals(system::FileSystem& files, system::Shell& shell, std::string folder,
                     std::function<bool()> go_on)
    : files_(files), shell_(shell), folder_(std::move(folder)), go_on_(std::move(go_on)) {}

Status Originals::take(Purpose purpose) {
  const auto found = files_.info(folder_);
  if (!found || !found->folder) return Reason::not_found;
  // The lock is an empty file that goes with it: one that holds anything is somebody's own.
  const auto own = files_.info(path_of(kLock));
  if (own && (own->folder || own->size > 0)) return Reason::exists;
  auto lock = files_.lock(path_of(kLock));
  if (!lock) return lock.status();
  lock_ = std::move(lock);
  const bool listed = files_.each(folder_, system::Detail::names, [this](system::FileInfo& entry) {
    names_.insert(text::upper(entry.name));
    return true;
  });
  if (!listed) return Reason::other;
  purpose_ = purpose;
  number_ = runs_of(files_, folder_).last() + 1;
  // The undoing of an update cannot be undone: its index only says where copies are.
  index_name_ = purpose == Purpose::update ? run_name(number_) : undone_run_name(number_);
  auto index = files_.create_new(path_of(index_name_));
  if (!index) return index.status();
  index_ = std::move(index);
  return index_->write(run_line({RunRecord::Kind::folder, folder_}));
}

bool Originals::has_name(std::string_view name) const {
  return names_.contains(text::upper(name));
}

// A copy that is one: the same bytes in another file, and a project that has not changed meanwhile.
system::Result<OriginalCopy> Originals::verified(const std::string& path,
                                                 const std::string& place) {
  const auto before = files_.info(path);
  const auto same = removal::same_content(files_, path, path_of(place), go_on_);
  const auto after = files_.info(path);
  if (!same) return same.status().reason();
  if (!before || !after || after->modified != before->modified || after->size != before->size) {
    return Reason::in_use;
  }
  if (files_.identity(path) == files_.identity(path_of(place))) return Reason::exists;
  return OriginalCopy{place, *same, {after->size, after->modified}};
}

// The numbered subfolder with its backslash, made if it is missing; `exists` where something else
// has that name.
system::Result<std::string> Originals::subfolder(std::size_t number) {
  const std::string place = path_of(removal::numbered_folder(number));
  const auto found = files_.info(place);
  if (found && (!found->folder || found->link)) return Reason::exists;
  if (!found) {
    if (const Status made = files_.make_folder(place); !made) return made.reason();
  }
  return place + "\\";
}

system::Result<OriginalCopy> Originals::put_aside(const std::string& path) {
  const std::string name = text::Obtener_Nombre_Archivo(path) + std::string(kEnding);
  std::size_t& number = next_number_[text::upper(name)];
  while (++number <= kMostNumbers) {
    const auto place = subfolder(number);
    if (!place) {
      if (place.status() == Reason::exists) continue;
      return place.status().reason();
    }
    const Status copied = files_.copy_new(
        path, *place + name, [this](std::uint64_t) { return go_on(); }, system::Flush::no);
    if (copied == Reason::exists) continue;
    if (!copied) {
      --number;
      return copied.reason();
    }
    return verified(path, removal::numbered_folder(number) + "\\" + name);
  }
  number = kMostNumbers;
  return Reason::exists;
}

void Originals::keep(const std::string& path, OriginalCopy copy) {
  copies_.insert_or_assign(text::same_file_key(path), Kept{path, std::move(copy)});
}

// What stands under a name makes room: it is saved, and the projects of this update whose copy it
// was have theirs there from now on.
Status Originals::save_present(const std::string& name) {
  const std::string there = path_of(name);
  auto aside = put_aside(there);
  if (!aside) return aside.status();
  for (auto& [key, kept] : copies_) {
    const bool its_copy = text::equal_ignoring_case(kept.copy.place, name);
    if (its_copy && kept.copy.content == aside->content) kept.copy.place = aside->place;
  }
  saved_.push_back({there, *aside});
  return {};
}

// The copies of a folder are saved together: each wait for the disk takes as long as all at once.
Status Originals::make_room(const std::vector<std::string>& paths) {
  const std::size_t saved_before = saved_.size();
  for (const std::string& path : paths) {
    const std::string name = text::Obtener_Nombre_Archivo(path);
    const std::string there = path_of(name);
    const auto present = has_name(name) ? files_.info(there) : std::nullopt;
    if (present && !present->folder && !present->link && !room_.contains(text::upper(name)) &&
        (removal::same_content(files_, path, there, go_on_) || save_present(name))) {
      room_[text::upper(name)] = {present->size, present->modified};
    }
    if (!go_on()) return Reason::cancelled;
  }
  return flush_saved(saved_before);
}

// What was saved from that one on reaches the disk, and the index says where it is: other updates
// may lead to it, however this one ends.
Status Originals::flush_saved(std::size_t from) {
  if (from == saved_.size()) return {};
  return flush_copies({saved_.begin() + static_cast<std::ptrdiff_t>(from), saved_.end()});
}

// The copies reach the disk, with the lines of the index that lead to them, and the names of the
// index and of numbered subfolders.
Status Originals::flush_copies(const std::vector<Kept>& copies) {
  std::vector<std::string> places;
  std::vector<RunRecord> records;
  for (const Kept& kept : copies) {
    places.push_back(path_of(kept.copy.place));
    records.push_back({RunRecord::Kind::copy, kept.path, kept.copy.content, kept.copy.place});
  }
  Status status = files_.flush_files(places, go_on_);
  if (status) status = note(records);
  return status ? files_.flush_folder(folder_) : status;
}

// Another path with the same key is another file only where case counts: it has no copy then.
Status Originals::has_copy(const std::string& path) const {
  const auto found = copies_.find(text::same_file_key(path));
  if (found == copies_.end()) return Reason::not_found;
  const bool same =
      found->second.path == path || files_.identity(found->second.path) == files_.identity(path);
  return same ? Reason::ok : Reason::exists;
}

Status Originals::copy(const std::string& path) {
  if (const Status has = has_copy(path); has != Reason::not_found) return has;
  const std::string name = text::Obtener_Nombre_Archivo(path);
  if (name.empty()) return Reason::bad_path;
  if (!files_.info(path)) return Reason::not_found;
  const std::string there = path_of(name);
  const auto present = has_name(name) ? files_.info(there) : std::nullopt;
  // A file that cannot be looked at for a moment must not pass for a missing one: what is then
  // written over may be the only copy.
  if (has_name(name) && (!present || present->folder || present->link)) return copy_aside(path);
  // A second project of the name finds the copy of the first there.
  const auto room = room_.extract(text::upper(name));
  const bool has_room = present && room && room.mapped().size == present->size &&
                        room.mapped().modified == present->modified;
  if (present && !has_room && !removal::same_content(files_, path, there, go_on_)) {
    const std::size_t saved_before = saved_.size();
    Status saved = save_present(name);
    if (saved) saved = flush_saved(saved_before);
    if (!saved) return saved;
  }
  // The answer to its question, and where it fails (it takes no long paths), show in what stands
  // there after it.
  removal::CopiarArchivo(shell_, path, folder_).ignore();
  names_.insert(text::upper(name));
  auto copied = verified(path, name);
  if (!copied) return go_on() ? copy_aside(path) : Status(Reason::cancelled);
  keep(path, *copied);
  return {};
}

Status Originals::copy_aside(const std::string& path) {
  if (const Status has = has_copy(path); has != Reason::not_found) return has;
  const auto copied = put_aside(path);
  if (copied) keep(path, *copied);
  return copied.status();
}

Status Originals::save(const std::string& path) {
  const std::size_t saved_before = saved_.size();
  const auto copied = put_aside(path);
  if (!copied) return copied.status();
  saved_.push_back({path, *copied});
  return flush_saved(saved_before);
}

Status Originals::settle() {
  std::vector<Kept> copies;
  for (const auto& [key, kept] : copies_) copies.push_back(kept);
  const Status status = flush_copies(copies);
  // The name of the folder itself, where it is new: a project that is changed in place says nothing
  // about it.
  const std::string without_backslash = folder_.substr(0, folder_.size() - 1);
  return status ? files_.flush_folder(text::getPath(without_backslash, "\\")) : status;
}

const OriginalCopy* Originals::copy_of(const std::string& path) const {
  const auto found = copies_.find(text::same_file_key(path));
  return found == copies_.end() ? nullptr : &found->second.copy;
}

Status Originals::note(const std::vector<RunRecord>& records) {
  if (!index_) return Reason::other;
  std::string lines;
  for (const RunRecord& record : records) lines += run_line(record);
  const Status written = index_->write(lines);
  return written ? index_->flush() : written;
}

Status Originals::note_changes(const std::vector<ProjectChange>& changes) {
  std::vector<RunRecord> records;
  for (const ProjectChange& change : changes) {
    const OriginalCopy* const copy = change.created ? nullptr : copy_of(change.path);
    if (!change.created && copy == nullptr) return Reason::not_found;
    if (change.created) {
      records.push_back({RunRecord::Kind::created, change.path});
    } else {
      records.push_back({RunRecord::Kind::target, change.path, copy->content});
    }
    records.push_back({RunRecord::Kind::done, change.path, change.after});
  }
  changes_ = true;
  return note(records);
}

Status Originals::note_left(const std::string& path) {
  return note({{RunRecord::Kind::left, path}});
}

void Originals::close() {
  if (!index_) return;
  index_->flush().ignore();
  index_.reset();
  if (purpose_ == Purpose::undo && saved_.empty()) {
    files_.remove(path_of(index_name_)).ignore();
    return;
  }
  // Its copies may be those of other updates too, so that it stays.
  const std::string undone = undone_run_name(number_);
  if (!changes_ && index_name_ != undone) {
    files_.move(path_of(index_name_), path_of(undone)).ignore();
  }
}

}  // namespace ordelan::relink
