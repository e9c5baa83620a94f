// The program's pictures: PNG files among its resources, read once and kept. Paints pictures that
// others hold as pixels too.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>

#include "ui/image.h"

namespace Gdiplus {
class Bitmap;
}

namespace ordelan::win32 {

class PictureStore {
 public:
  explicit PictureStore(HINSTANCE instance);
  ~PictureStore();
  PictureStore(const PictureStore&) = delete;
  PictureStore& operator=(const PictureStore&) = delete;

  // Paints the picture over `area`, stretched to fill it, its transparent parts letting through
  // what is there. False when there is no such picture.
  bool paint(HDC context, const RECT& area, const std::string& name);

  // The same with pixels. False when there are none.
  bool paint(HDC context, const RECT& area, const ui::Pixels& pixels);

 private:
  bool start();
  Gdiplus::Bitmap* picture(const std::string& name);
  std::unique_ptr<Gdiplus::Bitmap> read(const std::string& name);

  HINSTANCE instance_;
  ULONG_PTR token_ = 0;
  std::map<std::string, std::unique_ptr<Gdiplus::Bitmap>> pictures_;  // null where there is none
};

}  // namespace ordelan::win32
