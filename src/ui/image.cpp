#include "ui/image.h"

#include <utility>

#include "ui/backend.h"

namespace ordelan::ui {

void Image::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void Image::set_picture(std::string picture) {
  if (picture == picture_ && pixels_.argb.empty()) return;
  picture_ = std::move(picture);
  pixels_ = {};
  notify(Aspect::value);
}

void Image::set_pixels(int width, int height, std::vector<std::uint32_t> argb) {
  const bool sound =
      width > 0 && height > 0 &&
      argb.size() == static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(height);
  picture_.clear();
  pixels_ = sound ? Pixels{width, height, std::move(argb)} : Pixels{};
  notify(Aspect::value);
}

}  // namespace ordelan::ui
