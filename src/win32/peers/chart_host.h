// The window of a chart as a place for a window of another part of the program.
#pragma once

#include <windows.h>

#include <functional>

namespace ordelan::win32 {

// The first chart that comes is the place, until it goes; those that come meanwhile are none.
class ChartHost {
 public:
  // Called with the window when it comes, again when its size has changed, and with null before it
  // goes.
  std::function<void(HWND)> on_window;

  void enter(HWND chart);
  void sized(HWND chart);
  void leave(HWND chart);

 private:
  void report(HWND chart) const;

  HWND chart_ = nullptr;
};

}  // namespace ordelan::win32
