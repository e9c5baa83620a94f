#include "win32/image_peer.h"

#include <utility>

#include "win32/canvas.h"
#include "win32/handlers.h"
#include "win32/window_peer.h"

namespace ordelan::win32 {

ImagePeer::ImagePeer(WindowPeer& parent, ui::Image& image)
    : ControlPeer(parent, image, L"STATIC", SS_LEFT | SS_NOTIFY | SS_NOPREFIX), image_(image) {}

void ImagePeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::value) || marks.has(ui::Aspect::bounds)) repaint();
}

std::optional<LRESULT> ImagePeer::incoming(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_SETTEXT:  // the name that is read out; nothing to paint
      return DefWindowProcW(handle(), message, w, l);
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    default:
      return ControlPeer::incoming(message, w, l);
  }
}

LRESULT ImagePeer::respond(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    pressed_ = true;
    return 0;
  }
  if (message == WM_LBUTTONUP) {
    clicked_ = std::exchange(pressed_, false);
    return 0;
  }
  return standard(message, w, l);
}

void ImagePeer::deliver() {
  if (std::exchange(clicked_, false)) raise(image_.on_click);
}

void ImagePeer::paint() {
  PAINTSTRUCT painting{};
  const HDC target = BeginPaint(handle(), &painting);
  RECT area{};
  GetClientRect(handle(), &area);
  if (target && area.right > 0 && area.bottom > 0) {
    const Canvas canvas(target, area);
    FillRect(canvas.context(), &area, desk().tools().brush(parent().window().back_color()));
    desk().pictures().paint(canvas.context(), area, image_.picture());
    canvas.show();
  }
  EndPaint(handle(), &painting);
}

}  // namespace ordelan::win32
