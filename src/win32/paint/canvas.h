// A piece of a window that is painted out of sight and shown at once, so that it does not flicker.
#pragma once

#include <windows.h>

namespace ordelan::win32 {

class Canvas {
 public:
  // Covers `area` of `target`, in the target's own coordinates.
  Canvas(HDC target, const RECT& area)
      : target_(target),
        area_(area),
        context_(CreateCompatibleDC(target)),
        bitmap_(CreateCompatibleBitmap(target, width(), height())),
        old_bitmap_(SelectObject(context_, bitmap_)) {
    SetViewportOrgEx(context_, -area.left, -area.top, nullptr);
  }
  ~Canvas() {
    SelectObject(context_, old_bitmap_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  // What to paint on: the target's coordinates hold here too.
  HDC context() const { return context_; }

  void show() const {
    BitBlt(target_, area_.left, area_.top, width(), height(), context_, area_.left, area_.top,
           SRCCOPY);
  }

 private:
  int width() const { return area_.right - area_.left; }
  int height() const { return area_.bottom - area_.top; }

  HDC target_;
  RECT area_;
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ old_bitmap_;
};

// Answers the order to paint a control: `paint(context, area)` paints all of it, and it is shown at
// once when it is done.
template <class Paint>
void paint_out_of_sight(HWND control, const Paint& paint) {
  PAINTSTRUCT painting{};
  const HDC target = BeginPaint(control, &painting);
  RECT area{};
  GetClientRect(control, &area);
  if (target && area.right > 0 && area.bottom > 0) {
    const Canvas canvas(target, area);
    paint(canvas.context(), area);
    canvas.show();
  }
  EndPaint(control, &painting);
}

}  // namespace ordelan::win32
