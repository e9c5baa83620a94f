// The whole program, tied together: the one place that includes all rooms.
#pragma once

#include "main_window/main_window.h"
#include "settings/settings.h"
#include "system/platform.h"
#include "ui/backend.h"
#include "work/window_directory.h"
#include "work/work_in_hand.h"

namespace ordelan::app {

class Program {
 public:
  // The arguments must outlive the program.
  Program(ui::Backend& backend, const system::Platform& platform, settings::Settings& settings);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // Starts it: the main window loads and shows itself.
  void start() { form.load(); }

  work::WorkInHand work;
  work::WindowDirectory windows;
  main_window::Form1 form;
};

}  // namespace ordelan::app
