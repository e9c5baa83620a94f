// What screen readers are given of a control that says its own face, and of texts that are news.
#pragma once

#include <windows.h>

#include <string>

#include "win32/peers/accessible.h"

namespace ordelan::win32 {

class AccessibleControl final : public Accessible {
 public:
  explicit AccessibleControl(ControlPeer& peer) : Accessible(peer) {}

 protected:
  LONG role(LONG) const override;
  std::wstring name(LONG) const override;
  std::wstring value(LONG) const override;
  std::wstring description(LONG) const override;
  std::wstring action(LONG) const override;
  LONG state(LONG) const override;
  bool take_value(const std::wstring& value) override;
};

// Has screen readers read out a text that changes: at once, but not again within a second. What
// comes meanwhile waits for its end, so that the last text is always read.
class LiveText {
 public:
  // To be called when the text of a control is another one, or is shown.
  void changed(HWND control);
  // To be called with the control's timers. True when it was the one that is waited for.
  bool ticked(HWND control, WPARAM timer);

 private:
  bool waiting_ = false;
  bool due_ = false;
};

}  // namespace ordelan::win32
