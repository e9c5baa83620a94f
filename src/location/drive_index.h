// Where the files of some names are on the drives, from one walk of each drive.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "system/event_pump.h"
#include "system/platform.h"

namespace ordelan::location {

// For one job that looks for many names. Files that come to a drive after its walk are not found.
// Only files of expected names are kept.
class DriveIndex {
 public:
  // `platform` must outlive it.
  explicit DriveIndex(const system::Platform& platform);
  DriveIndex(const DriveIndex&) = delete;
  DriveIndex& operator=(const DriveIndex&) = delete;

  // The folders that no walk could list, with their backslash: what lies in them is not found.
  const std::set<std::string>& unseen() const { return unseen_; }

  // Called before each walk, which may take minutes.
  std::function<void()> before_walk;

  // A name that may be asked for. Names first expected after a drive was walked cost that drive
  // another walk, for all new names at once.
  void expect(std::string_view name);

  // The full paths of the files of that name (case ignored) on the drive with that root, in the
  // order in which cFindFiles::Find(root, name, "", 1) finds them. The drive is walked at the first
  // call. Patterns, lists of extensions, names that Windows would read as another one and calls
  // from inside a walk are searched without the index. Each path is looked at again: when one has
  // gone, the drive is walked anew. The window gets its turns, and `go_on` is called after each;
  // gives nothing, and keeps nothing of a walk under way, once it has given false.
  std::optional<std::vector<std::string>> find(const std::string& root, const std::string& name,
                                               const std::function<bool()>& go_on);

 private:
  using Number = std::uint32_t;  // of a name, a hit or a folder
  static constexpr Number kNone = UINT32_MAX;

  // As small as it can be: the drives may hold a million of them.
  struct Hit {
    Number folder = 0;
    Number next = kNone;           // of the same name
    std::unique_ptr<char[]> name;  // as it stands on the disk, ended by a NUL
  };
  struct Drive {
    Number walked = 0;          // names with lower numbers have been looked for
    std::vector<Number> first;  // the hits of each name
    std::vector<Number> last;
    std::deque<Hit> hits;
    std::vector<std::string> folders;  // of the hits, in the order of the walk
  };
  enum class Walk { whole, stopped, failed };

  Number number_of(std::string_view name);
  // False for nearly all names that are not expected, and for none that is.
  bool may_be_expected(std::string_view name) const;
  void mark_expected(std::string_view name);
  Walk walk(const std::string& root, Drive& drive, const std::function<bool()>& go_on);
  void keep(Drive& drive, const std::string& path);
  static std::vector<std::string> paths(const Drive& drive, Number number);
  bool is_there(const std::string& path) const;
  std::optional<std::vector<std::string>> search(const std::string& root, const std::string& name,
                                                 const std::function<bool()>& go_on) const;

  const system::Platform& platform_;
  system::Pacer pacer_;
  std::unordered_map<std::string, Number> names_;  // in lower case
  std::vector<bool> marks_;                        // by hash of a name; a power of two of them
  std::map<std::string, Drive> drives_;            // by root
  std::set<std::string> unseen_;
  std::string key_;  // kept for its room
  bool busy_ = false;
};

}  // namespace ordelan::location
