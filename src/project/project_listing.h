// Lists the projects of a folder.
#pragma once

#include "project/valido.h"
#include "system/platform.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::project {

class ProjectListing {
 public:
  ProjectListing(const system::Platform& platform, work::WorkInHand& work, work::WorkLists& lists,
                 Validator& validator)
      : platform_(platform), work_(work), lists_(lists), validator_(validator) {}

  // Fills ListProyectos with the valid projects of RutaProyectos itself, numbered from 1. Projects
  // whose path holds "_BAK" count only with `with_backups`. Hides the list while it fills it, and
  // leaves the names of all projects in List1.
  void list_flat(bool with_backups);

 private:
  const system::Platform& platform_;
  work::WorkInHand& work_;
  work::WorkLists& lists_;
  Validator& validator_;
};

}  // namespace ordelan::project
