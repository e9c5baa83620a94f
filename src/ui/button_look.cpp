#include "ui/button_look.h"

namespace ordelan::ui {
namespace {

constexpr int kNearEdge = 3;
constexpr int kFarEdge = 4;

const std::string& wanted_picture(const ButtonProperties& properties, bool down, bool over) {
  if (down) return properties.picture_down;
  if (over && !properties.selected) return properties.picture_over;
  if (properties.selected) return properties.picture_disabled;
  return properties.picture_normal;
}

}  // namespace

const std::string& chosen_picture(const ButtonProperties& properties, bool down, bool over) {
  const std::string& wanted = wanted_picture(properties, down, over);
  return wanted.empty() ? properties.picture_normal : wanted;
}

Point picture_place(std::int16_t picture_align, Size control, Size picture) {
  const Point middle{(control.width - picture.width) / 2, (control.height - picture.height) / 2};
  switch (picture_align) {
    case 1:
      return {middle.x, kNearEdge};
    case 2:
      return {middle.x, control.height - picture.height - kFarEdge};
    case 3:
      return {kNearEdge, middle.y};
    case 4:
      return {control.width - picture.width - kFarEdge, middle.y};
    default:
      return middle;
  }
}

}  // namespace ordelan::ui
