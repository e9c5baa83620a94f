// Brings files back from the folder of a log.
#pragma once

#include <functional>
#include <string>
#include <unordered_map>
#include <vector>

#include "removal/copy_index.h"
#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::removal {

class Recovery {
 public:
  // Reads the index beside the log, if there is one. `go_on` is called while files are read; when
  // it gives false, the call under way ends. `files` and `shell` must outlive this.
  Recovery(system::FileSystem& files, system::Shell& shell, const std::string& log,
           std::function<bool()> go_on);

  // What would be done for a line of the log.
  struct Step {
    std::string path;    // where the file goes
    std::string copy;    // from where
    std::string motivo;  // why nothing can be done; empty if something can
  };
  // Looks for the copy: the one that the index names, if it has the bytes that were copied;
  // otherwise any of that name and those bytes in the folder of the log, the one above a numbered
  // folder, or a numbered folder below. Without an index the file of that name beside the log; a
  // line that an index lacks has no copy, and a file of its name is another one.
  Step plan(const std::string& line) const;

  // Copies the file back, and checks it. A file that stands in its place and has other content is
  // written over only when the user says so. Gives why the file is not back; empty if it is.
  std::string bring_back(const std::string& line);

 private:
  bool is_place(const std::string& place, const std::string& name) const;
  bool is_copy(const std::string& path) const;
  bool holds(const std::string& copy, const CopyRecord& record) const;
  std::string copy_of(const CopyRecord& record, const std::string& name) const;

  system::FileSystem& files_;
  system::Shell& shell_;
  std::function<bool()> go_on_;
  std::vector<std::string> folders_;  // of the log, and of the backup where that is another
  bool indexed_ = false;              // whether there is an index
  std::unordered_map<std::string, CopyRecord> records_;  // by path
};

}  // namespace ordelan::removal
