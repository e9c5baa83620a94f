// All ports to the machine, in one bundle.
#pragma once

#include "system/clock.h"
#include "system/dialogs.h"
#include "system/drives.h"
#include "system/event_pump.h"
#include "system/file_system.h"
#include "system/media.h"
#include "system/regional.h"
#include "system/shell.h"

namespace ordelan::system {

// References only: the code that builds a platform owns its parts and outlives its users.
struct Platform {
  FileSystem& files;
  Dialogs& dialogs;
  EventPump& pump;
  Clock& clock;
  Regional& regional;
  Drives& drives;
  Shell& shell;
  Media& media;
};

}  // namespace ordelan::system
