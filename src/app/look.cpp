#include "app/look.h"

#include "skin/palette.h"

namespace ordelan::app {

ui::Palette skin_palette() {
  const auto color = [](std::uint32_t word) { return static_cast<ui::Color>(word); };
  ui::Palette palette;
  palette.ground = color(skin::kGround);
  palette.surface = color(skin::kSurface);
  palette.raised = color(skin::kRaised);
  palette.raised_over = color(skin::kRaisedOver);
  palette.raised_down = color(skin::kRaisedDown);
  palette.line = color(skin::kLine);
  palette.text = color(skin::kText);
  palette.text_over = color(skin::kTextOver);
  palette.text_dim = color(skin::kTextDim);
  palette.text_off = color(skin::kTextOff);
  palette.accent = color(skin::kAccent);
  palette.loud = color(skin::kStep4);
  palette.chosen = color(skin::kAccentDark);
  palette.chosen_text = color(skin::kTextOver);
  return palette;
}

}  // namespace ordelan::app
