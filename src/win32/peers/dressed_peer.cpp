#include "win32/peers/dressed_peer.h"

#include "win32/paint/canvas.h"

namespace ordelan::win32 {

std::optional<LRESULT> DressedPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint_out_of_sight(handle(), [this](HDC context, const RECT& area) { paint(context, area); });
      return 0;
    default:
      return ControlPeer::incoming(message, w, l);
  }
}

}  // namespace ordelan::win32
