#include "win32/ports/message_room.h"

#include <algorithm>
#include <memory>
#include <type_traits>
#include <vector>

namespace ordelan::win32 {
namespace {

constexpr std::wstring_view kLineEnd = L"\r\n";
// Title, margins and buttons of a message box, and some room around it.
constexpr int kAround = 200;
// Systems differ in where they break a line; none breaks it before this.
constexpr int kLineWidth = 280;

constexpr int kUsualDots = 96;

// Of the main screen, whose font the box has.
int dots_per_inch() {
  const HDC screen = GetDC(nullptr);
  const int dots = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dots;
}

struct FontDelete {
  void operator()(HFONT font) const { DeleteObject(font); }
};
using Font = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDelete>;

Font message_font() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  return Font(CreateFontIndirectW(&metrics.lfMessageFont));
}

// How tall the text is in lines that are so wide.
int height_of(const std::wstring& text, int width) {
  const Font font = message_font();
  const HDC screen = GetDC(nullptr);
  const HGDIOBJ before = SelectObject(screen, font.get());
  RECT area{0, 0, width, 0};
  DrawTextW(screen, text.c_str(), static_cast<int>(text.size()), &area,
            DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS | DT_EXTERNALLEADING | DT_NOPREFIX);
  SelectObject(screen, before);
  ReleaseDC(nullptr, screen);
  return area.bottom;
}

// Where the lines of a text end, before their CR LF.
std::vector<std::size_t> line_ends(const std::wstring& text) {
  std::vector<std::size_t> ends;
  for (auto at = text.find(kLineEnd); at != text.npos; at = text.find(kLineEnd, at + 2)) {
    ends.push_back(at);
  }
  if (!text.ends_with(kLineEnd)) ends.push_back(text.size());
  return ends;
}

}  // namespace

std::wstring fitting_text(const std::wstring& text,
                          const std::function<bool(const std::wstring&)>& fits) {
  const std::vector<std::size_t> ends = line_ends(text);
  const auto first = [&](std::size_t lines) {
    const std::size_t left_out = ends.size() - lines;
    return text.substr(0, ends[lines - 1]) + L"\r\n\r\n... y " + std::to_wstring(left_out) +
           (left_out == 1 ? L" línea más" : L" líneas más");
  };
  // To measure thousands of lines takes long: it is seen from a few first that they do not fit.
  constexpr std::size_t kAdded = 2;  // the line that says how many more, and an empty one
  std::size_t tried = 1;
  while (tried + kAdded < ends.size() && fits(first(tried))) tried *= 2;
  const bool nearly_all = tried + kAdded >= ends.size();
  if (ends.size() < 2 || (nearly_all && fits(text))) return text;
  // One line is shown in any case.
  std::size_t shown = std::max<std::size_t>(1, tried / 2);
  std::size_t beyond = nearly_all ? ends.size() : tried;
  while (beyond - shown > 1) {
    const std::size_t middle = shown + (beyond - shown) / 2;
    (fits(first(middle)) ? shown : beyond) = middle;
  }
  return first(shown);
}

bool fits_screen(HWND owner, const std::wstring& text) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &monitor);
  const RECT& room = monitor.rcWork;
  const int scale = dots_per_inch();
  return height_of(text, MulDiv(kLineWidth, scale, kUsualDots)) <=
         room.bottom - room.top - MulDiv(kAround, scale, kUsualDots);
}

}  // namespace ordelan::win32
