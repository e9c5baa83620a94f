// Fonts, brushes and the measure of text, made once and kept.
#pragma once

#include <windows.h>

#include <map>
#include <tuple>

#include "ui/backend.h"
#include "ui/geometry.h"
#include "ui/palette.h"

namespace ordelan::win32 {

// The colours that everything is painted in; the system's own until others are given. To be given
// before the first window is loaded.
const ui::Palette& palette();
void use_palette(const ui::Palette& palette);

// Whether everything is painted in the system's own colours, of which some are the same: what is
// raised may not stand out from its ground.
bool palette_is_the_systems();

// What a colour word stands for: the palette has its own for the system's colours of windows and
// texts.
COLORREF color_of(ui::Color color);

class DrawingTools {
 public:
  DrawingTools() = default;
  ~DrawingTools();
  DrawingTools(const DrawingTools&) = delete;
  DrawingTools& operator=(const DrawingTools&) = delete;

  // The interface's typeface at this size. Lives as long as this object.
  HFONT font(const ui::Font& font, int dpi);

  // The height of a line of text.
  int line_height(const ui::Font& font, int dpi);

  HBRUSH brush(ui::Color color);

  ui::CharacterWidths character_widths(const ui::Font& font, int dpi);

 private:
  using FontKey = std::tuple<int, bool, int>;  // points, bold, dots per inch

  std::map<FontKey, HFONT> fonts_;
  std::map<FontKey, ui::CharacterWidths> widths_;
  std::map<COLORREF, HBRUSH> brushes_;
};

}  // namespace ordelan::win32
