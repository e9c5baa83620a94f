// The ground of a window: a colour, and a picture on it where there is one.
#pragma once

#include <windows.h>

#include <string>
#include <tuple>

#include "ui/window.h"
#include "win32/paint/drawing_tools.h"
#include "win32/paint/picture_store.h"

namespace ordelan::win32 {

// The pixels of a window's ground or shape at this density: the picture in its own size, or in that
// of a window that can be resized. Empty where there is no such picture.
ui::Pixels ground_of(PictureStore& pictures, const ui::Window& window, const std::string& picture,
                     int dpi);

class Backdrop {
 public:
  // Both must outlive the backdrop.
  Backdrop(DrawingTools& tools, PictureStore& pictures) : tools_(tools), pictures_(pictures) {}
  ~Backdrop() { forget(); }
  Backdrop(const Backdrop&) = delete;
  Backdrop& operator=(const Backdrop&) = delete;

  // Paints over `area` what of the window's ground begins at `origin`, in the window's pixels. The
  // picture lies in the window's top left corner in its own size, or fills a window that can be
  // resized; it is made ready when it is first painted, and kept until the window names another
  // one, or comes to another density or size.
  void paint(HDC context, const RECT& area, POINT origin, const ui::Window& window, int dpi);

 private:
  void make_ready(const ui::Window& window, int dpi);
  void forget();

  DrawingTools& tools_;
  PictureStore& pictures_;
  // Picture, dots per inch, colour; the size where the window can be resized.
  std::tuple<std::string, int, COLORREF, int, int> made_for_;
  HBITMAP bitmap_ = nullptr;
  SIZE size_{};
};

}  // namespace ordelan::win32
