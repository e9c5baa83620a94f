// A picture.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ui/control.h"

namespace ordelan::ui {

// A picture as its pixels: 0xAARRGGBB, colours not multiplied by their opacity, rows from the top.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> argb;  // width times height, or empty for no picture
};

class Image : public Control {
 public:
  using Control::Control;
  void attach(Backend& backend) override;

  // The name of the picture among the program's resources; empty shows nothing. Setting it takes
  // pixels away.
  const std::string& picture() const { return picture_; }
  void set_picture(std::string picture);

  // Shows these pixels, stretched over the control, in place of a picture by name. Any other number
  // of them than width times height shows nothing.
  const Pixels& pixels() const { return pixels_; }
  void set_pixels(int width, int height, std::vector<std::uint32_t> argb);

 private:
  std::string picture_;
  Pixels pixels_;
};

}  // namespace ordelan::ui
