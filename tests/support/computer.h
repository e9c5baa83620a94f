// A computer without a screen: a real disk of its own, and all that the program asks of a system.
#pragma once

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/faulty_files.h"
#include "system/platform.h"
#include "test_disk.h"

namespace ordelan::test {

struct Computer {
  TestDisk disk;
  FaultyFiles faulty{disk.files()};  // the program's way to the disk: a test can let calls fail
  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  FakeShell shell;
  FakeMedia media;
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform{faulty, dialogs, backend, clock, regional, drives, shell, media};
};

}  // namespace ordelan::test
