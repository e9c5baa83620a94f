// The projects that are left out of the work in hand, each with its reason. What such a
// project uses may pass for unused, so that the user must be able to see them.
#pragma once

#include <string>
#include <unordered_set>

#include "work/work_in_hand.h"

namespace ordelan::project {

enum class WhyOut {
  no_audio,      // no reference was found in it
  backup,        // "_BAK", while backups are not included
  frozen,        // in a folder of frozen tracks
  unnamed,       // its name, or that of its folder, does not fit into the code page
  linked,        // a folder that only leads to another place, whose projects are not looked for
  unreadable,    // locked, or not allowed to be read
  broken,        // a read failed: what it uses may be known only in part
  gone,          // it was listed and is no longer there
  hidden,        // a hidden or system file
  not_listed,    // it lies in a searched folder and was not among the projects of the work
  above,         // in a folder that holds one of those searched: its audio may lie below it
  after_folder,  // dropped together with a folder that ended the drop
};

// The reason as the user reads it.
const char* motivo(WhyOut why);

// Whether a file name is that of a project.
bool is_project_name(std::string_view name);

class LeftOut {
 public:
  // `work` must outlive this object.
  explicit LeftOut(work::WorkInHand& work) : work_(work) {}

  // Forgets all: another work begins.
  void clear();

  // Adds a path with its reason, unless the path is there already: the first reason stays.
  void add(const std::string& path, WhyOut why);
  bool holds(const std::string& path) const;

 private:
  work::WorkInHand& work_;
  std::unordered_set<std::string> seen_;  // keys of the paths that were added
};

}  // namespace ordelan::project
