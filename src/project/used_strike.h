// Strikes from the files of the folders those that projects use.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "project/candidates.h"

namespace ordelan::project {

// What has to be asked of the disk. Whether a candidate exists, its listing has told.
struct DiskQuestions {
  // Whether the path of a used file names an existing file.
  std::function<bool(const std::string& path)> exists;
  // Whether two existing files have the same bytes.
  std::function<bool(const std::string& a, const std::string& b)> equal;
};

// Marks (true) the places of the candidates that are struck out. For each used file in turn, the
// candidates are gone through from the first:
//
// - One with the same name, letter for letter, goes if its content is that of the used file, and
//   also if one of the two is not there: a file that was moved is not offered.
// - One whose whole path is the used one goes in any case. Where it went by its name already, the
//   candidate after it goes in its place, unlooked at: at worst a file is kept that no project
//   uses.
// - The candidate after one that went is not looked at in this turn. Where a file was listed
//   twice it may thus stay although it is used: the caller that offers files looks once more.
//
// Rows of `used` that are no files, and those that hold "FreezeData", strike nothing: frozen tracks
// can be made again. `go_on` is asked before each used file, with its index, and now and then
// before the first; when it gives false the rest is left. The cost grows with the rows, not with
// their product.
std::vector<bool> strike_used(const std::vector<std::string>& used, const Candidates& candidates,
                              const DiskQuestions& disk,
                              const std::function<bool(std::size_t index)>& go_on);

}  // namespace ordelan::project
