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

std::string capitals(std::string_view name) {
  std::string key(name);
  for (char& c : key) c = text::upper(c);
  return key;
}

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
  auto lock = files_.lock(path_of(kLockName));
  if (!lock) return lock.status();
  lock_ = std::move(lock);
  const Status kept = keep_old_log();
  if (!kept) lock_.reset();
  return kept;
}

// The log goes last: a log without its index would be recovered from as if every copy had its
// file's name.
Status BackupFolder::keep_old_log() {
  std::vector<std::string> old;
  for (const char* const name : {kIndexName, kLogName}) {
    const auto found = files_.info(path_of(name));
    if (!found) continue;
    // Writing there would write somewhere else.
    if (found->folder || found->link) return Reason::not_a_file;
    if (found->size > 0) old.emplace_back(name);
  }
  if (old.empty()) return {};
  std::string place;
  for (std::size_t number = 1;; ++number) {
    if (number > kMostNumbers) return Reason::exists;
    const auto made = folder_without(number);
    if (!made) return made.status();
    place = *made;
    if (!is_backup_folder(files_, place)) break;
  }
  for (const std::string& name : old) {
    const Status copied =
        system::copy_whole(files_, path_of(name), place + name, system::Existing::keep);
    if (!copied) return copied;
    const auto same = same_content(files_, path_of(name), place + name, [] { return true; });
    if (!same) return same.status();
  }
  return {};
}

void BackupFolder::keep_names(const std::vector<std::string>& names) {
  for (const std::string& name : names) kept_names_.insert(capitals(name));
}

Status BackupFolder::begin_log() {
  // The log first: should the program end in between, an empty log lists nothing that the index of
  // another run would be taken for.
  auto log = files_.create(path_of(kLogName));
  if (!log) return log.status();
  log_ = std::move(log);
  auto index = files_.create(path_of(kIndexName));
  if (!index) return index.status();
  index_ = std::move(index);
  return files_.flush_folder(folder_);
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
  std::size_t& number = next_number_[capitals(name)];
  while (++number <= kMostNumbers) {
    const auto place = folder_without(number);
    if (!place) {
      if (place.status() == Reason::exists) continue;  // something else has that number
      return place.status().reason();
    }
    const std::string copy = *place + name;
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
  const auto before = saved_.find(capitals(name));
  if (before != saved_.end() && before->second == *now) return {};
  Content content;
  return copy_aside(there, content).status();
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
  const auto present = files_.info(path_of(name));
  // The place of a row stays free, also once the row has gone: its own file comes back there.
  if (!present && !kept_names_.contains(capitals(name))) return copy_to_free_name(path, name);
  const bool overwritable =
      present && !present->folder && !present->link && !kept_names_.contains(capitals(name));
  return copy_beside(path, name, overwritable);
}

Status BackupFolder::copy_to_free_name(const std::string& path, const std::string& name) {
  const std::string there = path_of(name);
  const Status made = shell_.copy_into(path, ruta_);
  if (!made && !files_.info(there)) {
    // The shell takes no long paths, and gives up where another program has a file open.
    const Status ours = system::copy_whole(files_, path, there, system::Existing::keep,
                                           [this](std::uint64_t) { return go_on_(); });
    if (!ours) return ours;
  }
  const auto same = same_content(files_, path, there, go_on_);
  if (!same) return same.status();
  // What the shell has written need not have reached the disk.
  if (const Status kept = files_.flush_file(there); !kept) return kept;
  if (const Status kept = files_.flush_folder(folder_); !kept) return kept;
  if (files_.identity(there) == files_.identity(path)) return Reason::exists;
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
  if (const auto now = state_of(there)) saved_.insert_or_assign(capitals(name), *now);
  return {};
}

}  // namespace ordelan::removal
