// Which buttons of the mouse are held on a control. It keeps the mouse as long as one is.
#pragma once

#include <windows.h>

namespace ordelan::win32 {

class MouseHold {
 public:
  // A button of the mouse goes down on the control, which takes the mouse.
  void press(HWND control, int button) {
    held_ |= button;
    if (GetCapture() != control) SetCapture(control);
  }

  // It goes up; with the last one, the mouse is released. False for one that was not pressed here.
  bool release(int button) {
    if ((held_ & button) == 0) return false;
    held_ &= ~button;
    if (held_ == 0) ReleaseCapture();
    return true;
  }

  // `next` has taken the mouse. True where that ends a press on the control.
  bool lost(HWND control, HWND next) {
    if (held_ == 0 || next == control) return false;
    held_ = 0;
    return true;
  }

 private:
  int held_ = 0;
};

}  // namespace ordelan::win32
