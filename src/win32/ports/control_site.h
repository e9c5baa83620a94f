// A window that one of the system's controls is shown in.
#pragma once

#include <windows.h>

#include <ole2.h>

#include "win32/com_ptr.h"

namespace ordelan::win32 {

// Fills a window with a control for as long as it lives. The window must outlive it.
class ControlSite {
 public:
  ControlSite(ComPtr<IOleObject> control, HWND window);
  ~ControlSite();
  ControlSite(const ControlSite&) = delete;
  ControlSite& operator=(const ControlSite&) = delete;

  // True where the control has taken its place in the window.
  bool shown() const { return shown_; }
  // The window has another size.
  void fit();

 private:
  class Site;

  RECT area() const;

  ComPtr<IOleObject> control_;
  HWND window_;
  ComPtr<Site> site_;
  bool shown_ = false;
};

}  // namespace ordelan::win32
