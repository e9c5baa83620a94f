// The pointers that controls ask for by number, and those made of pictures.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace ordelan::win32 {

class PictureStore;

class MousePointers {
 public:
  explicit MousePointers(PictureStore& pictures) : pictures_(pictures) {}
  ~MousePointers();
  MousePointers(const MousePointers&) = delete;
  MousePointers& operator=(const MousePointers&) = delete;

  // The number of the pointer that a picture makes.
  static constexpr std::int16_t kOwn = 99;

  // The pointer of that number, or of the picture for `kOwn`; it points with its top left corner.
  // Null for the usual one: number 0, an unknown number, a missing picture. Lives as long
  // as this object.
  HCURSOR find(std::int16_t number, const std::string& picture, int dpi);

 private:
  HCURSOR made_of(const std::string& picture, int dpi);

  PictureStore& pictures_;
  std::map<std::pair<std::string, int>, HCURSOR> made_;  // by picture and density
};

}  // namespace ordelan::win32
