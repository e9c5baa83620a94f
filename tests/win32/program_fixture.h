// The whole program with its real windows, inside the test's own process: what the user does
// comes as messages. Folders of a temporary disk serve as drives.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/forwarding_files.h"
#include "test_disk.h"
#include "win32/own_windows.h"
#include "win32/peers/win32_backend.h"
#include "win32/ports/win32_clock.h"
#include "win32/ports/win32_dialogs.h"
#include "win32/ports/win32_regional.h"
#include "win32/ports/win32_shell.h"

namespace ordelan::test {

// The real disk, and how much of it was looked at.
class CountedFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;

  int seen = 0;       // entries of folders
  bool slow = false;  // rests a moment now and then, as a disk that has to look
  std::function<void()> on_entry;

 private:
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    const auto counted = [&](system::FileInfo& entry) {
      ++seen;
      if (slow && seen % 100 == 0) Sleep(1);
      if (on_entry) on_entry();
      return visit(entry);
    };
    return files().each(folder, detail, counted, unnamed);
  }
};

class ProgramTest : public testing::Test {
 protected:
  // Starts the program with these drives, ticked.
  void start(const std::vector<std::string>& roots) {
    std::string ticked = "[Settings]\r\n";
    for (const std::string& root : roots) {
      drives.add(root);
      ticked += "Unidad: " + root + "=1\r\n";
    }
    disk.write("Config.ini", ticked);
    program.emplace(backend, platform, settings);
    program->start();
    backend.pump();
  }

  // The real windows and controls by their names in the program; null if there is none.
  static HWND top_level(const std::wstring& name) { return window_with(L"Ordelan.Window." + name); }
  static HWND control(const std::wstring& window, const std::wstring& name) {
    return child_with(top_level(window), L"Ordelan." + name);
  }

  TestDisk disk;
  CountedFiles files{disk.files()};
  win32::Win32Clock clock;
  win32::Win32Regional regional;
  FakeDrives drives;
  win32::Win32Shell shell;
  FakeMedia media;
  win32::Win32Backend backend{GetModuleHandleW(nullptr)};
  win32::Win32Dialogs dialogs{[this] { return backend.owner(); }};
  system::Platform platform{files, dialogs, backend, clock, regional, drives, shell, media};
  settings::Settings settings{files, regional, disk.path("Config.ini")};
  std::optional<app::Program> program;
};

}  // namespace ordelan::test
