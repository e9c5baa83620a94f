// The whole program without a screen, over a media engine whose time is the test's.
#pragma once

#include <string>

#include "app/program.h"
#include "audio/player.h"
#include "audio/sa.h"
#include "settings/settings.h"
#include "support/computer.h"

namespace ordelan::test {

struct SoundProgram : Computer {
  SoundProgram() { drives.add("D:\\"); }

  // Starts the program, with these lines below "[Settings]".
  void start(const std::string& lines = "") {
    disk.write("Config.ini", "[Settings]\r\nUnidad: D:\\=1\r\n" + lines);
    program.start();
    media.orders.clear();
  }

  // A file that the engine can play.
  std::string song(const std::string& name, double seconds, int kilobits = 192) {
    const std::string path = disk.path(name);
    media.files[path] = {.duration = seconds, .kilobits = kilobits};
    return path;
  }

  // Time passes for the engine and for the timers, in steps as short as those of the clock.
  void pass(double seconds) {
    constexpr double kStep = 0.025;
    for (double done = 0; done < seconds - 1e-9; done += kStep) {
      media.advance(kStep);
      clock.time += std::chrono::milliseconds(25);
      backend.pump();
    }
  }

  // A key on a window; gives whether the window kept it for itself.
  bool press(ui::Window& window, int code) {
    ui::Key key{.code = code};
    window.on_key_down(key);
    return key.swallowed;
  }

  audio::Sound& sound() { return program.form.sound(); }
  audio::Player& player() { return *program.windows.touch<audio::Player>(); }
  audio::SA& spectrum() { return *program.windows.touch<audio::SA>(); }

  settings::Settings settings{faulty, regional, disk.path("Config.ini")};
  app::Program program{backend, platform, settings};
};

// Which of the controls of an array are shown, "y" or "n" for each.
template <class Array>
std::string shown(const Array& controls) {
  std::string marks;
  for (const auto& control : controls) marks += control->visible() ? 'y' : 'n';
  return marks;
}

}  // namespace ordelan::test
