// The outline of a window taken from a picture: the pixels of one colour are cut out.
#pragma once

#include <string>
#include <vector>

#include "ui/geometry.h"
#include "ui/image.h"

namespace ordelan::ui {

class Window;

// Neighbours in one row of a picture: from `left` up to, but without, `right`.
struct PixelRun {
  int row = 0;
  int left = 0;
  int right = 0;
  friend bool operator==(const PixelRun&, const PixelRun&) = default;
};

// The parts of a picture that are not of exactly that colour, row by row, each run as long as it
// can be. The opacity of the pixels is ignored. `mask` is a plain colour: a backend looks a system
// colour up first. Pixels that do not fill their size give nothing.
std::vector<PixelRun> runs_without(const Pixels& picture, Color mask);

// Gives a window the outline of a picture, by name. A window that cannot be shaped stays as it is.
void AplicarForma(Window& Ventana, const std::string& Picture, Color ColorMascara);

}  // namespace ordelan::ui
