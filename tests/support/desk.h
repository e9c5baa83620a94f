// The whole program on a real disk and no screen: what a test of a flow sits down at.
#pragma once

#include <string>
#include <vector>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "project/main_window.h"
#include "settings/settings.h"
#include "support/fake_services.h"
#include "test_disk.h"
#include "work/window_directory.h"
#include "work/work_in_hand.h"

namespace ordelan::test {

// A project that refers to the given paths, each in a field of its own, and says nothing else.
inline std::string project_of(const std::vector<std::string>& paths, std::size_t padding = 0) {
  std::string bytes(96, 'x');
  bytes += std::string("cabecera") + '\0';
  for (const std::string& path : paths) bytes += path + std::string(260 - path.size(), '\0');
  bytes += std::string(padding, ' ') + std::string("    LIST\0\0\0\0mdrl tail", 21);
  return bytes;
}

class Desk {
 public:
  Desk() {
    // Every look at the clock is a while: each turn of a loop pumps.
    clock.step = std::chrono::milliseconds(20);
  }

  void start() { form.load(); }

  // Picks the project below the disk's folder in the file dialog.
  void open(const std::string& below) {
    dialogs.files.push_back({disk.path(below)});
    form.AbrirFichero_Click();
  }

  // Runs `action` in the pump at which `when` first holds.
  template <class Condition, class Action>
  void in_the_middle(Condition when, Action action) {
    backend.on_pump = [when, action, done = false]() mutable {
      if (done || !when()) return;
      done = true;
      action();
    };
  }

  TestDisk disk;
  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  FakeShell shell;
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform{disk.files(), dialogs, backend, clock, regional, drives, shell};
  work::WorkInHand work;
  work::WindowDirectory windows;
  settings::Settings settings{disk.files(), regional, disk.path("Config.ini")};
  project::Form1 form{backend, platform, work, windows, settings};
};

}  // namespace ordelan::test
