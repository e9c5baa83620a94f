// The names of files that projects are searched for, in the forms in which the search finds them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ordelan::project {

inline constexpr std::size_t kLongestName = 255;  // characters, on any disk
inline constexpr std::size_t kShortStem = 6;      // characters of a short name before "~"

// The names that are searched for. It never changes, so that many searches can share it.
class MentionNames {
 public:
  // `names`: bare file names in the code page. Equal ones may stand there more than once. `go_on`
  // is called now and then; once it has given false, the table is of no use.
  explicit MentionNames(
      const std::vector<std::string>& names,
      const std::function<bool()>& go_on = [] { return true; });

  // Whether a name can be found: it has an extension, at most 255 characters, and none that no file
  // name holds. The caller must take the others as mentioned.
  bool searchable(std::size_t name) const { return searchable_[name]; }

  // Names that one mention may mean: those that differ by letter case at most, or those that may
  // have one short name ("VOCALA~1.WAV").
  using Group = std::uint32_t;
  // The places of the group's names among `names`, ascending.
  const std::vector<std::uint32_t>& names_of(Group group) const { return groups_[group]; }
  std::size_t groups() const { return groups_.size(); }

 private:
  friend class MentionSearch;

  struct Extension {
    std::string text;    // folded, without the dot
    std::uint64_t hash;  // of the extension and its dot, read backwards
    bool whole;          // that of a name
    bool cut;            // that of a short name
    bool ascii;
  };
  struct Slot {
    std::uint64_t hash = 0;
    Group group = 0;
    bool used = false;
  };

  void add_name(std::uint32_t name, const std::string& folded);
  void add_short_names(std::uint32_t name, const std::string& folded);
  Extension& extension(const std::string& text);
  void put(std::uint64_t hash, Group group);
  // The group of a folded name that is given backwards, with its hash.
  std::optional<Group> find(std::uint64_t hash, std::string_view backwards) const;
  // The groups that may have a short name with that stem (what stands before "~") and extension.
  void find_short(std::string_view stem, std::string_view extension,
                  std::vector<Group>& found) const;

  std::vector<bool> searchable_;
  std::vector<std::vector<std::uint32_t>> groups_;
  std::vector<std::string> folded_;                  // by group, of whole names; backwards
  std::vector<Slot> slots_;                          // the whole names by their hashes
  std::unordered_map<std::string, Group> by_whole_;  // while it is made
  // By the first letters of the stem, a dot and the extension; see mention_names.cpp.
  std::unordered_map<std::string, Group> by_stem_;
  std::unordered_map<std::string, Group> by_open_stem_;
  std::vector<Extension> extensions_;
  std::array<bool, 256> begins_extension_{};  // the bytes that may follow a dot
  std::array<bool, 256> lengths_{};           // of whole names
  std::size_t longest_name_ = 0;
  std::size_t longest_extension_ = 0;
};

}  // namespace ordelan::project
