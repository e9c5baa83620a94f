#include "win32/paint/gdi_plus.h"

namespace ordelan::win32 {

bool gdi_plus_started() {
  static const bool started = [] {
    ULONG_PTR token = 0;
    const Gdiplus::GdiplusStartupInput input;
    return Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok;
  }();
  return started;
}

}  // namespace ordelan::win32
