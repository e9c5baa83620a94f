// The ground of a window: a colour, and a picture on it where there is one.
#pragma once

#include <windows.h>

#include <string>
#include <tuple>

#include "ui/window.h"
#include "win32/paint/drawing_tools.h"
#include "win32/paint/picture_store.h"

namespace ordelan::win32 {

class Backdrop {
 public:
  // Both must outlive the backdrop.
  Backdrop(DrawingTools& tools, PictureStore& pictures) : tools_(tools), pictures_(pictures) {}
  ~Backdrop() { forget(); }
  Backdrop(const Backdrop&) = delete;
  Backdrop& operator=(const Backdrop&) = delete;

  // Paints over `area` what of the window's ground begins at `origin`, in the window's pixels. The
  // picture lies in the window's top left corner in its own size; it is made ready when it is first
  // painted, and kept until the window names another one or comes to another density.
  void paint(HDC context, const RECT& area, POINT origin, const ui::Window& window, int dpi);

 private:
  void make_ready(const ui::Window& window, int dpi);
  void forget();

  DrawingTools& tools_;
  PictureStore& pictures_;
  std::tuple<std::string, int, COLORREF> made_for_;  // picture, dots per inch, colour
  HBITMAP bitmap_ = nullptr;
  SIZE size_{};
};

}  // namespace ordelan::win32
