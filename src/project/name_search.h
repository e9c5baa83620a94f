// Which file names stand in the bytes of a project, whatever the project's format makes of them.
// The reader sees only some kinds of references; before files are removed for good, this looks for
// all.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ordelan::project {

class NameSearch {
 public:
  // `names`: bare file names in the code page, each with an extension.
  explicit NameSearch(const std::vector<std::string>& names);

  // Searches a further piece of a file. Names that stand in code-page text, in UTF-8 or in UTF-16
  // (low byte first, at any offset) are found, case ignored; also as the end of a longer name,
  // which errs on the side of finding. Of a mention by a short name ("TOMALA~1.WMA") any name of
  // that extension may be meant: all of them count as found.
  void feed(std::string_view bytes);
  // Between two files: nothing of the one belongs to a name in the other.
  void end_of_file() { tail_.clear(); }

  bool found(std::size_t name) const { return found_[name]; }

 private:
  void search(const std::string& folded);
  void hit(const std::string& folded, std::size_t end, const std::string& extension);

  std::unordered_map<std::string, std::vector<std::size_t>> names_;  // by folded name
  std::vector<std::string> extensions_;                              // folded, with the dot
  std::vector<std::size_t> lengths_;
  std::vector<std::string> folded_;
  std::vector<bool> found_;
  std::string tail_;  // the end of the piece before, as a name may lie across
};

}  // namespace ordelan::project
