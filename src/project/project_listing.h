// Lists projects: those of a folder, with or without its subfolders.
#pragma once

#include <string>

#include "project/left_out.h"
#include "project/project_gate.h"
#include "system/platform.h"
#include "work/job.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::project {

class ProjectListing {
 public:
  // The arguments must outlive the listing.
  ProjectListing(const system::Platform& platform, work::WorkInHand& work, work::WorkLists& lists,
                 ProjectGate& gate, LeftOut& left_out)
      : platform_(platform), work_(work), lists_(lists), gate_(gate), left_out_(left_out) {}

  // Fills ListProyectos with the valid projects of RutaProyectos itself, numbered from 1. Projects
  // whose path holds "_BAK" count only with `with_backups`. Hides the list while it fills it, and
  // leaves the paths of all projects in List1. Here and below, projects that get no row are left
  // out with their reason.
  void list_flat(work::Job& job, bool with_backups);

  // List1 becomes RutaProyectos and all the folders below it. Folders that may not be read are
  // passed over; a RutaProyectos that does not exist is reported in a message box.
  void ListarCarpetas(work::Job& job);

  // Fills ListProyectos with the valid projects of the folders of List1, numbered from 1. Here
  // "_BAK" counts in the name alone, not in its folders.
  void ListarProyectosCarpetas(work::Job& job, bool with_backups);

 private:
  // Asks whether a project is to be listed, and notes why not.
  bool accepts(const std::string& path);

  const system::Platform& platform_;
  work::WorkInHand& work_;
  work::WorkLists& lists_;
  ProjectGate& gate_;
  LeftOut& left_out_;
};

}  // namespace ordelan::project
