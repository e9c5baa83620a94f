#include "work/status_strip.h"

#include <algorithm>

#include "skin/main_window_layout.h"

namespace ordelan::work {
namespace {

constexpr int kLineHeight = 16;

}  // namespace

StatusStrip::StatusStrip(ui::Window& window)
    : TextDecode(window, "TextDecode"),
      LabelAviso(window, "LabelAviso"),
      XP_ProgressBar1(window, "XP_ProgressBar1") {
  TextDecode.set_multiline(true);
  TextDecode.set_bordered(false);  // its height is that of its lines
  TextDecode.set_fore_color(ui::rgb(0, 0, 0));
  TextDecode.hide();
  TextDecode.set_announced(true);
  LabelAviso.hide();
  LabelAviso.set_announced(true);
  XP_ProgressBar1.hide();
  XP_ProgressBar1.set_description("Progreso");
}

void StatusStrip::Alerta(int Color, const std::string& Texto, bool Visible) {
  switch (Color) {
    case kProgress:
      TextDecode.set_back_color(ui::Color{0xC0E0FF});
      break;
    case kResult:
      TextDecode.set_back_color(ui::Color{0xFFFFC0});
      break;
    case kWarning:
      TextDecode.set_back_color(ui::Color{0x8080EE});
      break;
    case kWaiting:
      TextDecode.set_back_color(ui::Color{0xC0C0FF});
      break;
    default:
      break;
  }
  TextDecode.set_text(Texto);
  ui::Rect bounds = TextDecode.bounds();
  // Its lower edge stays where the layout has it, so that more lines cover no heading.
  if (!bottom_) bottom_ = bounds.top + bounds.height;
  bounds.height = kLineHeight * TextDecode.line_count();
  bounds.top = std::max(*bottom_ - bounds.height, skin::kStripTop);
  TextDecode.set_bounds(bounds);
  TextDecode.set_visible(Visible);
}

void StatusStrip::notice_decoding() {
  LabelAviso.set_font({.points = 18, .bold = true});
  LabelAviso.set_caption("Descodificando datos... esperar a que termine.");
  LabelAviso.show();
}

}  // namespace ordelan::work
