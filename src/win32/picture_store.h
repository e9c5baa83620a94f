// The program's pictures: PNG files among its resources, read once and kept.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>

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

 private:
  Gdiplus::Bitmap* picture(const std::string& name);
  std::unique_ptr<Gdiplus::Bitmap> read(const std::string& name);

  HINSTANCE instance_;
  ULONG_PTR token_ = 0;
  std::map<std::string, std::unique_ptr<Gdiplus::Bitmap>> pictures_;  // null where there is none
};

}  // namespace ordelan::win32
