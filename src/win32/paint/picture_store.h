// The program's pictures: PNG files among its resources, one for each of the usual scales of a
// screen, decoded once and kept. Paints pictures that others hold as pixels too.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "ui/geometry.h"
#include "ui/image.h"

namespace ordelan::win32 {

// In a picture that has the shape of a window, pixels of exactly this are not the window, unless
// the window names another mask. They are never mixed with others.
inline constexpr std::uint32_t kMaskPixel = 0xFFFF00FF;

class PictureStore {
 public:
  // `instance` is the program whose resources hold the pictures: NAME_100 is what NAME looks like
  // at 96 dots per inch, NAME_150 at half as many again, and so on. Which of them there are is up
  // to the program.
  explicit PictureStore(HINSTANCE instance);
  PictureStore(const PictureStore&) = delete;
  PictureStore& operator=(const PictureStore&) = delete;

  // Paints the picture over `area`, stretched to fill it, its transparent parts letting through
  // the ground. It is taken in the scale of `dpi`, or in the next larger one. False when there
  // is no such picture.
  bool paint(HDC context, const RECT& area, const std::string& name, int dpi);

  // The same with pixels. False when there are none.
  bool paint(HDC context, const RECT& area, const ui::Pixels& pixels);

  // How large the picture is in the layout. Nothing when there is no such picture.
  std::optional<ui::Size> size(const std::string& name);

  // The picture as it is shown at this density, of its own size there. Empty when there is none.
  // Pixels of `mask` are not mixed with others where it has to be made smaller or larger.
  ui::Pixels pixels(const std::string& name, int dpi, std::uint32_t mask = kMaskPixel);

  // How many pictures have been decoded so far.
  int decodes() const { return decodes_; }

 private:
  HRSRC resource(const std::string& name, int scale) const;
  std::optional<int> scale_for(const std::string& name, int dpi) const;
  const ui::Pixels* picture(const std::string& name, int dpi);
  ui::Pixels decode(const std::string& name, int scale);
  ui::Pixels scaled(ui::Pixels picture, ui::Size wanted, std::uint32_t mask);

  HINSTANCE instance_;
  int decodes_ = 0;
  std::map<std::pair<std::string, int>, ui::Pixels> pictures_;  // by name and scale
};

}  // namespace ordelan::win32
