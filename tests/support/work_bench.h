// The lists and the strip on a window without a screen: what the steps of the work are tested on.
#pragma once

#include <string>

#include "support/computer.h"
#include "text/rows.h"
#include "ui/window.h"
#include "work/status_strip.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::test {

struct WorkBench : Computer {
  // Writes a project below the disk's folder and lists it.
  void list_project(const std::string& below, const std::string& bytes) {
    disk.write(below, bytes);
    lists.ListProyectos.add(text::project_row(lists.ListProyectos.count() + 1, disk.path(below)));
  }

  ui::Window window{backend, "window"};
  work::WorkLists lists{window};
  work::StatusStrip strip{window};
  work::WorkInHand work;
};

}  // namespace ordelan::test
