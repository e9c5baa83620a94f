// Where the bytes of projects mention files of given names, whatever the project's format makes of
// them. The reader of projects sees only some kinds of references; before files are removed, this
// looks for all.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "project/mention_names.h"

namespace ordelan::project {

// Searches one file after another, each in pieces of any size, in one pass whose cost does not
// depend on the number of names.
//
// Names are found in code-page text, in UTF-8 and in UTF-16 (low byte first, at any offset), letter
// case ignored. A name begins at the start of the file, after a character that no file name holds,
// after one of = , ; ' ( [ { # and quotes, in UTF-16 after a character that the code page lacks,
// and after blanks after these. It does not end before a letter, a digit, "_" or "-", nor before a
// dot with a letter or digit. But where a length stands before a name, or before its path, and
// equals its own, it is a mention whatever is next to it.
class MentionSearch {
 public:
  struct Mention {
    MentionNames::Group group;
    // The path from its drive letter on, with the name, as it is spelt there but in the code page;
    // empty where none can be read. A path that reads differently as UTF-8 has both readings, of
    // which `other_path` is that of UTF-8; otherwise it is empty. Both are gone after the call.
    std::string_view path;
    std::string_view other_path;
    // False where more letters follow, as in "D:\\Mix\\a.wavD:\\Mix\\b.wav": what ends a text in a
    // project need not be a character that ends a name. The path then says something if it leads
    // to the file, and nothing if it does not.
    bool firm;
  };
  using Report = std::function<void(const Mention& mention)>;

  // `names` must outlive the search. `report` is called once in each file for each different
  // mention. From kMostText bytes of different paths on, a file's further mentions come without
  // them: a hostile file must not fill the memory.
  static constexpr std::size_t kMostText = std::size_t{16} << 20;
  MentionSearch(const MentionNames& names, Report report);

  // Searches a further piece of the file. What it ends with may be reported only later.
  void feed(std::string_view bytes);
  // Reports the rest. The next piece begins another file.
  void end_of_file();

  // How far before a name its drive letter may stand.
  static constexpr std::size_t kFarthestDrive = 12'288;  // bytes; 4,096 letters of UTF-8
  // So many blanks before a name pass for the start of a text.
  static constexpr std::size_t kManyBlanks = 256;

 private:
  enum class Reading { code_page, utf8, utf16 };
  struct Symbol {
    int c;             // its byte in the code page, or one of the following
    std::size_t size;  // bytes
  };
  static constexpr int kForeign = -1;  // a character that the code page lacks
  static constexpr int kNone = -2;     // the file ends there, or the bytes are no UTF-8

  // What stands before a name, found by a walk back over the characters of paths: places in the
  // file.
  struct PathStart {
    std::uint64_t from = 0;              // the place of the name; 0 before any walk
    std::optional<std::uint64_t> drive;  // of the nearest drive letter
    std::optional<std::uint64_t> run;    // where the characters of paths begin
  };

  void search(bool last);
  void at_dot(std::size_t dot);
  bool has_extension(Reading reading, std::size_t at, const MentionNames::Extension& extension,
                     std::size_t& end) const;
  bool look_before(Reading reading, std::size_t dot, std::size_t end,
                   const MentionNames::Extension& extension);
  void look_for_short(Reading reading, std::size_t begin, std::size_t end, std::string_view base,
                      const MentionNames::Extension& extension);
  enum class Found { no, loose, firm };
  Found mention_at(Reading reading, std::size_t begin, std::size_t end, std::size_t letters);
  bool begins(Reading reading, std::size_t at) const;
  bool ends(Reading reading, std::size_t at) const;
  bool ends_in(Reading reading, std::size_t at) const;
  bool length_before(Reading reading, std::size_t begin, std::size_t end,
                     std::size_t letters) const;
  bool path_length_before(Reading reading, std::size_t begin, std::size_t end) const;
  const PathStart& path_start(Reading reading, std::size_t begin);
  void report(Reading reading, MentionNames::Group group, std::size_t begin, std::size_t end,
              Found found);
  bool decode(Reading reading, std::size_t begin, std::size_t end, std::string& text) const;

  Symbol next(Reading reading, std::size_t at) const;
  Symbol before(Reading reading, std::size_t at) const;
  unsigned char byte(std::size_t at) const { return static_cast<unsigned char>(buffer_[at]); }

  const MentionNames& names_;
  Report report_;
  std::string buffer_;        // the end of the file as far as it has come
  std::uint64_t start_ = 0;   // the place of the buffer in the file
  std::size_t searched_ = 0;  // the place in the buffer up to which dots were looked at
  // The last walks, so that each byte is walked over once: of 8-bit text, and of UTF-16 at even and
  // odd places.
  std::array<PathStart, 3> walks_;
  std::unordered_set<std::string> seen_;
  std::size_t seen_text_ = 0;
  // Room that is made once.
  std::string name_;
  std::string path_;
  std::string other_;
  std::string folder_;
  std::string key_;
  std::vector<MentionNames::Group> short_groups_;
};

}  // namespace ordelan::project
