// What a benchmark of the program's own pieces runs on: the real disk, and no screen.
#pragma once

#include <string>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "posix/posix_drives.h"
#include "posix/posix_file_system.h"
#include "posix/posix_services.h"
#include "posix/posix_shell.h"
#include "posix/silent_media.h"
#include "system/platform.h"
#include "ui/window.h"
#include "work/work_in_hand.h"

namespace ordelan::bench {

struct Machine {
  // `folder` is drive D.
  explicit Machine(const std::string& folder) { mapped.map('D', folder); }

  posix::MappedDrives mapped;
  posix::PosixFileSystem files{mapped};
  posix::SteadyClock clock;
  posix::EnvironmentRegional regional;
  posix::PosixDrives drives{mapped};
  posix::PosixShell shell{files};
  posix::SilentMedia media{clock, {}};
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform{files, dialogs, backend, clock, regional, drives, shell, media};
  ui::Window window{backend, "window"};
  work::WorkInHand work;
};

}  // namespace ordelan::bench
