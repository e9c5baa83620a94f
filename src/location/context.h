// What the windows of this floor work with.
#pragma once

#include "project/main_pieces.h"
#include "settings/settings.h"
#include "system/platform.h"
#include "ui/backend.h"
#include "work/window_directory.h"
#include "work/work_in_hand.h"

namespace ordelan::location {

// References only: everything named here outlives the windows.
struct Context {
  ui::Backend& backend;
  const system::Platform& platform;
  work::WorkInHand& work;
  work::WindowDirectory& windows;
  settings::Settings& settings;
  project::MainPieces main;
};

}  // namespace ordelan::location
