// The boxes of the drives: where each stands, and how high the window is.
#include <algorithm>

#include "location/drive_window.h"

namespace ordelan::location {
namespace {

// Lengths are reckoned in twentieths of a point, of which a pixel has fifteen.
constexpr int kTwipsPerPixel = 15;
constexpr int kBoxDistance = 300;
constexpr int kFarthest = 32767;  // no box is placed farther down than this
constexpr int kCharacter = 107;
constexpr int kWideBox = 3850;
constexpr int kWideWindow = 4770;
constexpr int kMargin = 12;  // below the last control, in pixels

constexpr int pixels(int twips) {
  return twips / kTwipsPerPixel;
}

int box_width(const std::string& text) {
  return (static_cast<int>(text.size()) + 5) * kCharacter;
}

}  // namespace

void UnidadesBuscar::connect(ui::CheckBox& box) {
  box.on_click = [this] { redraw(); };
}

void UnidadesBuscar::CrearCheckBox(int Indice, const std::string& Texto) {
  if (Indice >= Check1.size()) connect(Check1.load());
  ui::CheckBox& box = Check1[Indice];
  box.set_caption(Texto);
  ui::Rect bounds = Check1[0].bounds();
  if (Indice * kBoxDistance <= kFarthest) bounds.top += pixels(Indice * kBoxDistance);
  bounds.width = pixels(box_width(Texto));
  box.set_bounds(bounds);
  box.show();
  if (box_width(Texto) > kWideBox) {
    // The text's part is divided, not multiplied: the window has one wide size, whatever the label.
    const int width = kWideWindow + (static_cast<int>(Texto.size()) + 5) / kCharacter;
    set_size({pixels(width), size().height});
  }
  ui::Rect below = Label2.bounds();
  below.top = bounds.top + pixels(kBoxDistance);
  Label2.set_bounds(below);
  fit_window();
}

void UnidadesBuscar::name_box(int index, const std::string& caption, const std::string& root) {
  ui::CheckBox& box = Check1[index];
  box.set_caption(caption);
  box.set_tag(root);
  ui::Rect bounds = box.bounds();
  bounds.width = pixels(box_width(caption));
  box.set_bounds(bounds);
}

void UnidadesBuscar::keep(int count) {
  while (Check1.size() > std::max(count, 1)) Check1.unload();
  const ui::Rect& last = Check1[Check1.size() - 1].bounds();
  ui::Rect below = Label2.bounds();
  below.top = last.top + pixels(kBoxDistance);
  Label2.set_bounds(below);
  fit_window();
}

int UnidadesBuscar::ticked() const {
  return static_cast<int>(
      std::count_if(Check1.begin(), Check1.end(), [](const auto& box) { return box->checked(); }));
}

void UnidadesBuscar::redraw() {
  std::string drives;
  for (const auto& box : Check1) {
    if (box->checked()) drives += (drives.empty() ? "" : ", ") + box->tag();
  }
  Label2.set_caption(drives.empty() ? "No se buscará en ninguna unidad."
                                    : "Se buscará en: " + drives);
}

void UnidadesBuscar::fit_window() {
  const ui::Rect& below = Label2.bounds();
  set_size({size().width, below.top + below.height + kMargin});
}

}  // namespace ordelan::location
