// The index of one update of projects, in the folder of the originals: which copy is whose, what
// each project was before and after. One line a fact, its parts separated by tabs, in the code
// page:
//
//   folder  <folder of the originals>                where the update took place; the first line
//   copy    <size>  <fingerprint>  <place>  <path>   a copy, its place from the folder on
//   target  <size>  <fingerprint>  <path>            a project that is about to be patched
//   new     <path>                                   a file that is about to be created
//   done    <size>  <fingerprint>  <path>            what either will be after that
//   left    <path>                                   the last of these did not come about
//
// A line counts once it is ended by CR LF. An index is only added to; when its update has been
// undone it gets another name, as its copies may be those of an earlier one too.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "removal/backup_folder.h"
#include "system/file_system.h"

namespace ordelan::relink {

using removal::Content;

// A project that is about to change: its path and the content that it gets.
struct ProjectChange {
  std::string path;
  Content after;
  bool created = false;  // no file has that name yet
};

struct RunRecord {
  enum class Kind { copy, target, done, created, folder, left };
  Kind kind;
  std::string path;
  Content content{};
  std::string place{};  // of a copy
  bool operator==(const RunRecord&) const = default;
};

// The line of a fact. Neither path nor place may hold a tab or a line end, which no Windows name
// does.
std::string run_line(const RunRecord& record);
// The facts of an index, in their order. Lines that are none are passed over.
std::vector<RunRecord> read_run(std::string_view bytes);

// Whether an index holds a whole line that says nothing: somebody else has written into it. What a
// power cut has kept from being written is no damage.
bool is_damaged_run(std::string_view bytes);

// The names of the index of the update of that number, while it can be undone and after that.
std::string run_name(std::size_t number);
std::string undone_run_name(std::size_t number);

// The updates of a folder of originals, by number.
struct Runs {
  std::vector<std::size_t> open;    // those that can be undone, in ascending order
  std::vector<std::size_t> undone;  // and those that have been
  std::size_t last() const;         // the highest number of all, 0 without any
};
Runs runs_of(system::FileSystem& files, const std::string& folder);

}  // namespace ordelan::relink
