#include "removal/backup_folder.h"

#include <algorithm>
#include <span>
#include <utility>

#include "removal/content_hash.h"
#include "removal/removal_log.h"
#include "system/whole_file.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::removal {
namespace {

using system::Reason;
using system::Status;

constexpr std::size_t kBlock = std::size_t{1} << 18;
constexpr std::size_t kMostNumbers = 9999;

// Reads a file from its start to its end, block by block.
class BlockReader {
 public:
  BlockReader(system::InputFile& file, std::size_t most) : file_(file), buffer_(most) {}

  // The next block, empty at the end. Nothing when it could not be read whole.
  std::optional<std::span<const std::uint8_t>> next() {
    const auto left =
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer_.size(), file_.size() - at_));
    const auto block = std::span(buffer_).first(left);
    if (left == 0) return block;
    if (file_.read(at_, block) != left) return std::nullopt;
    at_ += left;
    return block;
  }

 private:
  system::InputFile& file_;
  std::vector<std::uint8_t> buffer_;
  std::uint64_t at_ = 0;
};

}  // namespace

std::string numbered_folder(std::size_t number) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

bool is_backup_folder(system::FileSystem& files, const std::string& folder) {
  const std::string place = system::with_backslash(folder);
  return files.info(place + kLogName) || files.info(place + kIndexName);
}

system::Result<Content> same_content(system::FileSystem& files, const std::string& a,
                                     const std::string& b, const std::function<bool()>& go_on) {
  const auto first = files.open(a);
  if (!first) return first.status().reason();
  const auto second = files.open(b);
  if (!second) return second.status().reason();
  if (first->size() != second->size()) return Reason::other;
  BlockReader left(*first, kBlock);
  BlockReader right(*second, kBlock);
  ContentHash hash;
  for (;;) {
    const auto x = left.next();
    const auto y = right.next();
    if (!x || !y || !std::ranges::equal(*x, *y)) return Reason::other;
    if (x->empty()) return Content{first->size(), hash.value()};
    hash.add(*x);
    if (!go_on()) return Reason::cancelled;
  }
}

system::Result<std::string> bytes_of(system::FileSystem& files, const std::string& path) {
  const auto file = files.open(path);
  if (!file) return file.status().reason();
  std::string bytes(static_cast<std::size_t>(file->size()), '\0');
  const auto came = file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
  if (!came) return Reason::other;
  bytes.resize(*came);
  return bytes;
}

system::Result<Content> content_of(system::FileSystem& files, const std::string& path,
                                   const std::function<bool()>& go_on) {
  const auto file = files.open(path);
  if (!file) return file.status().reason();
  BlockReader blocks(*file, kBlock);
  ContentHash hash;
  for (;;) {
    const auto block = blocks.next();
    if (!block) return Reason::other;
    if (block->empty()) return Content{file->size(), hash.value()};
    hash.add(*block);
    if (!go_on()) return Reason::cancelled;
  }
}

BackupFolder::BackupFolder(system::FileSystem& files, system::Shell& shell, std::string RutaBackup,
                           std::function<bool()> go_on)
    : files_(files),
      shell_(shell),
      ruta_(std::move(RutaBackup)),
      folder_(system::with_backslash(ruta_)),
      go_on_(std::move(go_on)) {}

Status BackupFolder::take() {
  const auto folder = files_.info(folder_);
  if (!folder || !folder->folder) return Reason::not_found;
  // The lock is an empty file that goes with it: one that holds anything is somebody's own.
  const auto own = files_.info(path_of(kLockName));
  if (own && (own->folder || own->size > 0)) return Reason::exists;
  auto lock = files_.lock(path_of(kLockName));
  if (!lock) return lock.status();
  lock_ = std::move(lock);
  // The user may have made the folder a moment ago. Where the one around it cannot be opened there
  // is no more to be done.
  const std::string bare = folder_.substr(0, folder_.size() - 1);
  files_.flush_folder(text::getPath(bare, "\\")).ignore();
  const Status kept = keep_old_log();
  if (!kept) lock_.reset();
  return kept;
}

// A file that cannot be looked at for a moment must not pass for a missing one: what is then
// written over may be the only copy.
bool BackupFolder::is_missing(const std::string& path) const {
  return !files_.info(path) && files_.open(path).status() == Reason::not_found;
}

// The log goes last: a log without its index would be recovered from as if every copy had its
// file's name.
Status BackupFolder::keep_old_log() {
  std::vector<std::string> old;
  for (const char* const name : {kIndexName, kLogName}) {
    if (is_missing(path_of(name))) continue;
    const auto found = files_.info(path_of(name));
    // Writing there would write somewhere else.
    if (!found || found->folder || found->link) return Reason::not_a_file;
    present_.insert(name);
    if (found->size > 0) old.emplace_back(name);
  }
  if (old.empty()) return {};
  const bool indexed = old.front() == kIndexName;
  std::string place;
  for (std::size_t number = 1;; ++number) {
    if (number > kMostNumbers) return Reason::exists;
    const auto made = folder_without(number);
    if (made.status() == Reason::exists) continue;  // something else has that number
    if (!made) return made.status();
    place = *made;
    if (is_missing(place + kLogName) && is_missing(place + kIndexName)) break;
  }
  if (!indexed) {
    if (const Status made = make_index(place); !made) return made;
  }
  for (const std::string& name : old) {
    const Status copied =
        system::copy_whole(files_, path_of(name), place + name, system::Existing::keep);
    if (!copied) return copied;
    const auto same = same_content(files_, path_of(name), place + name, [] { return true; });
    if (!same) return same.status();
  }
  // The numbered folder may be one that a killed run has left.
  return files_.flush_folder(folder_);
}

// The index that an old log lacks: as long as it has none the copy of a file is the one of its
// name, and this run may write over that.
Status BackupFolder::make_index(const std::string& place) {
  const auto log = bytes_of(files_, path_of(kLogName));
  if (!log) return log.status();
  std::string index;
  for (const std::string& path : read_log(*log, [] { return true; }).paths) {
    const std::string name = text::Obtener_Nombre_Archivo(path);
    if (name.empty() || path.find_first_of(std::string_view("\t\0", 2)) != std::string::npos)
      continue;
    const auto copy = files_.info(path_of(name));
    if (!copy || copy->folder || copy->link) continue;
    const auto content = content_of(files_, path_of(name), go_on_);
    if (!content) return content.status();
    index += index_line({path, name, content->size, content->hash});
  }
  return system::write_whole(files_, place + kIndexName, index);
}

// Only those in the folder or below it can be in the way.
void BackupFolder::keep_place(const std::string& path) {
  std::string key = text::same_file_key(path);
  if (key.starts_with(text::same_file_key(folder_))) kept_places_.insert(std::move(key));
}

bool BackupFolder::is_kept_place(const std::string& path) const {
  return kept_places_.contains(text::same_file_key(path));
}

Status BackupFolder::begin_log() {
  // The log first: should the program end in between, an empty log lists nothing that the index of
  // another run would be taken for.
  auto log = begin_file(kLogName);
  if (!log) return log.status();
  log_ = std::move(log);
  if (const Status emptied = log_->flush(); !emptied) return emptied;
  auto index = begin_file(kIndexName);
  if (!index) {
    // An old one would be taken for that of the new log.
    files_.remove(path_of(kIndexName)).ignore();
    return index.status();
  }
  index_ = std::move(index);
  return files_.flush_folder(folder_);
}

// An empty file. A link to nowhere looks like a free name, and is not followed. One that is there
// makes room for a new one: it may have another name on the disk, whose bytes are not to change.
system::Opened<system::OutputFile> BackupFolder::begin_file(const char* name) {
  if (!present_.contains(name)) return files_.create_new(path_of(name));
  if (const Status made = system::write_whole(files_, path_of(name), {}); !made)
    return made.reason();
  return files_.create(path_of(name));
}

Status BackupFolder::log(std::string_view text) {
  if (!log_) return Reason::other;
  const Status written = log_->write(text);
  return written ? log_->flush() : written;
}

Status BackupFolder::record(const std::string& path, const std::string& place,
                            const Content& content) {
  if (!index_) return Reason::other;
  const Status written = index_->write(index_line({path, place, content.size, content.hash}));
  return written ? index_->flush() : written;
}

void BackupFolder::close() {
  log_.reset();
  index_.reset();
}

// The numbered subfolder with its backslash, made if it is missing.
system::Result<std::string> BackupFolder::folder_without(std::size_t number) {
  const std::string place = path_of(numbered_folder(number));
  const auto found = files_.info(place);
  if (found && (!found->folder || found->link)) return Reason::exists;
  if (!found) {
    if (const Status made = files_.make_folder(place); !made) return made.reason();
    if (const Status kept = files_.flush_folder(folder_); !kept) return kept.reason();
  }
  return place + "\\";
}

system::Result<std::string> BackupFolder::copy_aside(const std::string& from, Content& content) {
  const std::string name = text::Obtener_Nombre_Archivo(from);
  std::size_t& number = next_number_[text::upper(name)];
  while (++number <= kMostNumbers) {
    const auto place = folder_without(number);
    if (!place) {
      if (place.status() == Reason::exists) continue;  // something else has that number
      return place.status().reason();
    }
    const std::string copy = *place + name;
    if (is_kept_place(copy)) continue;
    const Status copied = system::copy_whole(files_, from, copy, system::Existing::keep,
                                             [this](std::uint64_t) { return go_on_(); });
    if (copied == Reason::exists) continue;
    if (!copied) {
      --number;
      return copied.reason();
    }
    const auto same = same_content(files_, from, copy, go_on_);
    if (!same) return same.status().reason();
    content = *same;
    return numbered_folder(number) + "\\" + name;
  }
  number = kMostNumbers;
  return Reason::exists;
}

// Saves what stands under a name, unless that has been done and it is still the same.
Status BackupFolder::save_present(const std::string& name, const std::string& there) {
  const auto now = state_of(there);
  if (!now) return Reason::other;
  const auto before = saved_.find(text::upper(name));
  if (before != saved_.end() && before->second == *now) return {};
  Content content;
  const auto aside = copy_aside(there, content);
  if (!aside) return aside.status();
  // The copy of an earlier row: its line in the index is to lead to where it is from now on.
  const auto copied = copied_.find(text::upper(name));
  if (copied == copied_.end() || copied->second.content != content) return {};
  return record(copied->second.path, *aside, content);
}

std::optional<BackupFolder::Saved> BackupFolder::state_of(const std::string& path) const {
  const auto present = files_.info(path);
  const auto identity = files_.identity(path);
  if (!present || !identity) return std::nullopt;
  return Saved{present->size, present->modified, *identity};
}

Status BackupFolder::copy(const std::string& path) {
  const std::string name = text::Obtener_Nombre_Archivo(path);
  if (name.empty()) return Reason::bad_path;
  if (!files_.info(path)) return Reason::not_found;
  // The place of a row stays free, also once the row has gone: its own file comes back there.
  if (is_kept_place(path_of(name))) return copy_beside(path, name, false);
  if (is_missing(path_of(name))) return copy_to_free_name(path, name);
  const auto present = files_.info(path_of(name));
  return copy_beside(path, name, present && !present->folder && !present->link);
}

Status BackupFolder::copy_to_free_name(const std::string& path, const std::string& name) {
  const std::string there = path_of(name);
  const Status made = shell_.copy_into(path, ruta_);
  if (!made && !files_.info(there)) {
    // The shell takes no long paths, and gives up where another program has a file open.
    const Status ours = system::copy_whole(files_, path, there, system::Existing::keep,
                                           [this](std::uint64_t) { return go_on_(); });
    // A link to nowhere has the name.
    if (ours == Reason::exists) return copy_beside(path, name, false);
    if (!ours) return ours;
  }
  const auto same = same_content(files_, path, there, go_on_);
  if (!same) return same.status();
  // What the shell has written need not have reached the disk.
  if (const Status kept = files_.flush_file(there); !kept) return kept;
  if (const Status kept = files_.flush_folder(folder_); !kept) return kept;
  if (files_.identity(there) == files_.identity(path)) return Reason::exists;
  copied_[text::upper(name)] = {path, *same};
  return record(path, name, *same);
}

Status BackupFolder::copy_beside(const std::string& path, const std::string& name,
                                 bool overwritable) {
  const std::string there = path_of(name);
  Content content;
  const auto aside = copy_aside(path, content);
  if (!aside) return aside.status();
  if (const Status recorded = record(path, *aside, content); !recorded) return recorded;
  if (!overwritable) return {};
  if (!same_content(files_, path, there, go_on_)) {
    if (const Status saved = save_present(name, there); !saved) return saved;
  }
  shell_.copy_into(path, ruta_).ignore();  // the file has its copy, whatever the answer is
  if (const auto now = state_of(there)) saved_.insert_or_assign(text::upper(name), *now);
  return {};
}

}  // namespace ordelan::removal
