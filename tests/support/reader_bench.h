// A VipReader on a disk in memory, with the list and the bar that it works on.
#pragma once

#include <string>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "project/vip_reader.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/faulty_files.h"
#include "support/memory_files.h"
#include "ui/list_box.h"
#include "ui/progress_bar.h"
#include "ui/window.h"
#include "work/work_in_hand.h"

namespace ordelan::test {

struct ReaderBench {
  explicit ReaderBench(std::size_t block = project::FileWindow::kBlock)
      : reader(platform, work, progress, block) {}

  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  FakeShell shell;
  FakeMedia media;
  MemoryFiles files;
  FaultyFiles disk{files};
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform{disk, dialogs, backend, clock, regional, drives, shell, media};
  ui::Window window{backend, "window"};
  ui::ListBox list{window, "list"};
  ui::ProgressBar progress{window, "progress"};
  work::WorkInHand work;
  project::VipReader reader;
};

}  // namespace ordelan::test
