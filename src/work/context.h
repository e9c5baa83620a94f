// What every window works with.
#pragma once

#include "settings/settings.h"
#include "system/platform.h"
#include "ui/backend.h"
#include "work/clocks.h"
#include "work/status_strip.h"
#include "work/window_directory.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::work {

// References only: everything named here outlives the windows.
struct Context {
  ui::Backend& backend;
  const system::Platform& platform;
  WorkInHand& work;
  WindowDirectory& windows;
  settings::Settings& settings;
  // On the main window.
  WorkLists& lists;
  StatusStrip& strip;
  Clocks& clocks;
};

}  // namespace ordelan::work
