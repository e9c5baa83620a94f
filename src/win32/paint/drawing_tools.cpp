#include "win32/paint/drawing_tools.h"

#include <string>

#include "win32/ansi_text.h"

namespace ordelan::win32 {
namespace {

constexpr std::uint32_t kSystemColor = 0x80000000;

// A font selected into a screen's context for measuring.
class Measure {
 public:
  explicit Measure(HFONT font) : screen_(GetDC(nullptr)), old_(SelectObject(screen_, font)) {}
  ~Measure() {
    SelectObject(screen_, old_);
    ReleaseDC(nullptr, screen_);
  }
  Measure(const Measure&) = delete;
  Measure& operator=(const Measure&) = delete;

  HDC context() const { return screen_; }

 private:
  HDC screen_;
  HGDIOBJ old_;
};

// The look that the user has chosen for texts in windows.
LOGFONTW interface_font() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0)) {
    return metrics.lfMessageFont;
  }
  LOGFONTW font{};
  font.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(font.lfFaceName, L"Segoe UI", LF_FACESIZE);
  return font;
}

}  // namespace

namespace {

ui::Palette& colors_in_force() {
  static ui::Palette palette;
  return palette;
}

// What the palette has in the place of a system colour.
ui::Color dressed(ui::Color color) {
  const ui::Palette& palette = colors_in_force();
  switch (color) {
    case ui::Color::window_background:
      return palette.surface;
    case ui::Color::button_face:
      return palette.ground;
    case ui::Color::window_text:
    case ui::Color::button_text:
      return palette.text;
    default:
      return color;
  }
}

}  // namespace

const ui::Palette& palette() {
  return colors_in_force();
}

void use_palette(const ui::Palette& palette) {
  colors_in_force() = palette;
}

bool palette_is_the_systems() {
  const ui::Palette usual;
  return palette().raised == usual.raised && palette().text == usual.text;
}

COLORREF color_of(ui::Color color) {
  const auto word = static_cast<std::uint32_t>(dressed(color));
  if ((word & kSystemColor) == 0) return word & 0xFFFFFF;
  return GetSysColor(static_cast<int>(word & 0xFF));
}

DrawingTools::~DrawingTools() {
  for (const auto& [key, font] : fonts_) DeleteObject(font);
  for (const auto& [color, brush] : brushes_) DeleteObject(brush);
}

HFONT DrawingTools::font(const ui::Font& font, int dpi) {
  HFONT& made = fonts_[{font.points, font.bold, dpi}];
  if (!made) {
    constexpr int kPointsPerInch = 72;
    LOGFONTW look = interface_font();
    look.lfHeight = -MulDiv(font.points, dpi, kPointsPerInch);
    look.lfWidth = 0;
    look.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    made = CreateFontIndirectW(&look);
  }
  return made;
}

int DrawingTools::line_height(const ui::Font& font_wanted, int dpi) {
  const Measure measure(font(font_wanted, dpi));
  TEXTMETRICW metrics{};
  GetTextMetricsW(measure.context(), &metrics);
  return metrics.tmHeight;
}

HBRUSH DrawingTools::brush(ui::Color color) {
  const COLORREF value = color_of(color);
  HBRUSH& made = brushes_[value];
  if (!made) made = CreateSolidBrush(value);
  return made;
}

ui::CharacterWidths DrawingTools::character_widths(const ui::Font& font_wanted, int dpi) {
  const FontKey key{font_wanted.points, font_wanted.bold, dpi};
  if (const auto known = widths_.find(key); known != widths_.end()) return known->second;
  const Measure measure(font(font_wanted, dpi));
  ui::CharacterWidths widths{};
  for (std::size_t byte = 0; byte < widths.size(); ++byte) {
    const std::wstring character = widen(std::string(1, static_cast<char>(byte)));
    SIZE size{};
    GetTextExtentPoint32W(measure.context(), character.data(), static_cast<int>(character.size()),
                          &size);
    widths[byte] = size.cx;
  }
  return widths_.emplace(key, widths).first->second;
}

}  // namespace ordelan::win32
