#include "posix/folder_names.h"

#include <dirent.h>
#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <functional>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>

#include "posix/native_file.h"
#include "text/code_page.h"

namespace ordelan::posix {
namespace {

constexpr std::size_t kLarge = 256;  // entries from which on a folder may be kept
constexpr std::size_t kMostKept = 4;
constexpr std::uint32_t kChanges = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                   IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

// Calls `visit` with each name of a folder. False if it cannot be read.
bool each_name(const std::string& folder, const std::function<void(const char*)>& visit) {
  const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.c_str()), &::closedir);
  if (!open) return false;
  while (const dirent* entry = ::readdir(open.get())) visit(entry->d_name);
  return true;
}

// Whether all changes of a disk are made by this system, which then reports them.
bool reports_changes(const std::string& folder) {
  struct statfs disk {};
  if (::statfs(folder.c_str(), &disk) != 0) return false;
  constexpr long kXfs = 0x58465342;
  constexpr std::array<long, 4> kOwn = {EXT4_SUPER_MAGIC, kXfs, BTRFS_SUPER_MAGIC, TMPFS_MAGIC};
  return std::find(kOwn.begin(), kOwn.end(), static_cast<long>(disk.f_type)) != kOwn.end();
}

// One folder with its names, by their code-page text in small letters.
struct Kept {
  std::string path;
  dev_t device = 0;
  ino_t number = 0;
  int watch = -1;
  std::unordered_map<std::string, std::set<std::string>> names;

  void add(const char* name) {
    if (const auto ansi = text::from_utf8(name)) names[text::lower(*ansi)].insert(name);
  }
  void remove(const char* name) {
    const auto ansi = text::from_utf8(name);
    const auto found = ansi ? names.find(text::lower(*ansi)) : names.end();
    if (found == names.end()) return;
    found->second.erase(name);
    if (found->second.empty()) names.erase(found);
  }
};

class KeptFolders {
 public:
  // The folder, if it is kept and still the one of that path. Null otherwise.
  const Kept* find(const std::string& path, const struct stat& now) {
    if (kept_.empty()) return nullptr;
    take_changes();
    const auto found = std::find_if(kept_.begin(), kept_.end(),
                                    [&](const Kept& kept) { return kept.path == path; });
    if (found == kept_.end()) return nullptr;
    if (found->device == now.st_dev && found->number == now.st_ino) return &*found;
    drop(found);
    return nullptr;
  }

  // Keeps a folder that has just been found to be large. It is watched before it is read, so that
  // no change is missed.
  void keep(const std::string& path, const struct stat& now) {
    if (!changes_.valid() || asked_ != path) {
      asked_ = path;  // it is worth it from the second question on
      return;
    }
    asked_.clear();
    if (!reports_changes(path)) return;
    while (kept_.size() >= kMostKept) drop(std::prev(kept_.end()));
    Kept kept{path,
              now.st_dev,
              now.st_ino,
              ::inotify_add_watch(changes_.number(), path.c_str(), kChanges),
              {}};
    struct stat watched {};
    const bool same = kept.watch >= 0 && ::stat(path.c_str(), &watched) == 0 &&
                      watched.st_dev == now.st_dev && watched.st_ino == now.st_ino;
    // Another path may lead to a folder that is kept: there is one watch for both.
    const bool known = std::any_of(kept_.begin(), kept_.end(),
                                   [&](const Kept& other) { return other.watch == kept.watch; });
    if (known) return;
    if (same && each_name(path, [&](const char* name) { kept.add(name); })) {
      kept_.push_front(std::move(kept));
    } else if (kept.watch >= 0) {
      ::inotify_rm_watch(changes_.number(), kept.watch);
    }
  }

 private:
  using Folders = std::list<Kept>;

  void drop(Folders::iterator folder) {
    ::inotify_rm_watch(changes_.number(), folder->watch);
    kept_.erase(folder);
  }

  void take_changes() {
    alignas(inotify_event) std::array<char, 1 << 14> buffer{};
    for (;;) {
      const auto came = ::read(changes_.number(), buffer.data(), buffer.size());
      if (came <= 0) return;
      for (std::size_t at = 0; at < static_cast<std::size_t>(came);) {
        const auto* const event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
        at += sizeof(inotify_event) + event->len;
        take(*event);
      }
    }
  }

  void take(const inotify_event& event) {
    if ((event.mask & IN_Q_OVERFLOW) != 0) {
      while (!kept_.empty()) drop(kept_.begin());
      return;
    }
    const auto found = std::find_if(kept_.begin(), kept_.end(),
                                    [&](const Kept& kept) { return kept.watch == event.wd; });
    if (found == kept_.end()) return;
    if ((event.mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT)) != 0) {
      drop(found);
    } else if ((event.mask & (IN_CREATE | IN_MOVED_TO)) != 0) {
      found->add(event.name);
    } else if ((event.mask & (IN_DELETE | IN_MOVED_FROM)) != 0) {
      found->remove(event.name);
    }
  }

  Descriptor changes_{::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)};
  Folders kept_;
  std::string asked_;
};

}  // namespace

std::optional<std::string> entry_ignoring_case(const std::string& folder, std::string_view name) {
  static thread_local KeptFolders folders;
  struct stat now {};
  if (::stat(folder.c_str(), &now) != 0) return std::nullopt;
  if (const Kept* const kept = folders.find(folder, now)) {
    const auto found = kept->names.find(text::lower(name));
    if (found == kept->names.end()) return std::nullopt;
    return *found->second.begin();  // the same one every time
  }
  std::optional<std::string> found;
  std::size_t entries = 0;
  const bool read = each_name(folder, [&](const char* entry) {
    ++entries;
    const auto ansi = text::from_utf8(entry);
    if (!ansi || !text::equal_ignoring_case(*ansi, name)) return;
    if (!found || entry < *found) found = entry;
  });
  if (read && entries >= kLarge) folders.keep(folder, now);
  return found;
}

}  // namespace ordelan::posix
