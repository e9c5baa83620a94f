// A control of the system's of which only the looks are ours: it keeps its behaviour, its keys and
// what it reports to screen readers.
#pragma once

#include "win32/peers/control_peer.h"

namespace ordelan::win32 {

class DressedPeer : public ControlPeer {
 protected:
  using ControlPeer::ControlPeer;

  // Paints all of `area`, which begins at the control's top left corner. The painting is shown at
  // once when it is done.
  virtual void paint(HDC context, const RECT& area) = 0;

  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override {
    return standard_unpainted(message, w, l);
  }

  bool has_focus() const { return GetFocus() == handle(); }
};

}  // namespace ordelan::win32
