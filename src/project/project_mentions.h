// Which of the files that are to be removed some project mentions, as far as the bytes of all
// projects tell: the second look, which finds what the reader of projects does not see.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "system/file_system.h"

namespace ordelan::project {

// Why a row is to be kept; the later ones are stronger.
enum class Mentioned {
  no,
  unidentified,  // its name is mentioned, or cannot be searched for, and the disk does not tell
                 // whether its file is another one
  without_path,  // its name is mentioned without a drive's path that can be read
  path_missing,  // a path with its name leads to no file: the row may be the lost file
  by_path,       // a path leads to its file
  // For all rows, as something was not searched:
  linked,   // a folder is only a link, to where nothing is searched
  unnamed,  // the code page lacks the name of a folder or project
  unread    // some project or folder could not be read whole
};

struct RowMention {
  Mentioned mentioned = Mentioned::no;
  // The first project that does so; what was not searched; empty where no project is concerned.
  std::string project;
  bool kept() const { return mentioned != Mentioned::no; }
};

class ProjectMentions {
 public:
  // `files` must outlive every look.
  explicit ProjectMentions(system::FileSystem& files);
  ~ProjectMentions();
  ProjectMentions(const ProjectMentions&) = delete;
  ProjectMentions& operator=(const ProjectMentions&) = delete;

  // Searches every file with ".vip" in its name in and below `folders`, and `projects`, for the
  // names of `rows` (paths), and gives what is to become of each row. The disk is listed anew, so
  // that projects that came since are found.
  //
  // A mention whose path leads to another existing file keeps nothing, as that is another recording
  // of the same name. Where anything in scope cannot be read whole, all rows are kept: a project
  // that is locked, missing or changes while it is read, a folder that cannot be listed, a folder
  // or project that the code page cannot name, a link to a folder that is not searched too.
  //
  // `go_on` is called every few milliseconds, and any handler may run inside, also one that
  // destroys this object or begins another look, which ends this one. Nothing is given when `go_on`
  // gives false or another look has begun: then nothing is known.
  //
  // A later look for the same names, or for fewer, reads only projects that are new or have another
  // size, time or number than before. All paths are looked up again.
  std::optional<std::vector<RowMention>> look(std::vector<std::string> rows,
                                              std::vector<std::string> folders,
                                              std::vector<std::string> projects,
                                              std::function<bool()> go_on);

 private:
  struct State;
  class Look;

  // Shared with the looks under way, which a handler may outlive this object in.
  std::shared_ptr<State> state_;
  system::FileSystem& files_;
};

}  // namespace ordelan::project
