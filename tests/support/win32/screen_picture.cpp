#include "screen_picture.h"

#include <objidl.h>

#include <algorithm>
#include <utility>

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>

#include "wide_text.h"

namespace ordelan::test {
namespace {

constexpr CLSID kPngEncoder = {
    0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

class GdiPlus {
 public:
  GdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

std::wstring folder() {
  std::wstring folder = environment(L"ORDELAN_SHOTS");
  if (folder.empty()) folder = L"build\\screenshots";
  if (folder.front() == L'/') folder.insert(0, L"Z:");  // the outer system's path, seen from Wine
  std::replace(folder.begin(), folder.end(), L'/', L'\\');
  for (std::size_t end = folder.find(L'\\'); end != folder.npos;
       end = folder.find(L'\\', end + 1)) {
    CreateDirectoryW(folder.substr(0, end).c_str(), nullptr);
  }
  CreateDirectoryW(folder.c_str(), nullptr);
  return folder;
}

RECT whole_screen() {
  return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace

std::vector<std::uint32_t> screen_pixels(const RECT& area) {
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  BITMAPINFO format{};
  format.bmiHeader = {sizeof format.bmiHeader, width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(screen, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
  std::vector<std::uint32_t> result;
  if (bits != nullptr) {
    const HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
    GdiFlush();
    const auto* pixels = static_cast<const std::uint32_t*>(bits);
    result.assign(pixels, pixels + std::size_t(width) * std::size_t(height));
    SelectObject(memory, old);
  }
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return result;
}

void wait_for_still_screen() {
  constexpr int kLooks = 20;
  constexpr DWORD kPause = 50;
  std::vector<std::uint32_t> before;
  for (int look = 0; look < kLooks; ++look) {
    std::vector<std::uint32_t> now = screen_pixels(whole_screen());
    if (now == before) break;
    before = std::move(now);
    Sleep(kPause);
  }
}

std::wstring save_screen(const std::string& name) {
  return save_screen(name, whole_screen());
}

std::wstring save_screen(const std::string& name, const RECT& wanted) {
  // What lies beside the screen would make all of the picture black.
  RECT area{};
  const RECT screen_area = whole_screen();
  if (!IntersectRect(&area, &wanted, &screen_area)) return {};
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ old = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  SelectObject(memory, old);
  std::wstring path = folder() + L"\\" + wide(name) + L".png";
  {
    const GdiPlus gdi_plus;
    Gdiplus::Bitmap picture(bitmap, nullptr);
    if (picture.Save(path.c_str(), &kPngEncoder, nullptr) != Gdiplus::Ok) path.clear();
  }
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return path;
}

}  // namespace ordelan::test
