#include "win32/peers/image_peer.h"

#include "win32/peers/window_peer.h"

namespace ordelan::win32 {

ImagePeer::ImagePeer(WindowPeer& parent, ui::Image& image)
    : PaintedPeer(parent, image), image_(image) {}

void ImagePeer::paint(HDC context, const RECT& area) {
  if (image_.back_color() != ui::Color::button_face) {
    FillRect(context, &area, registry().tools().brush(image_.back_color()));
  } else {
    POINT place{};
    MapWindowPoints(handle(), parent().handle(), &place, 1);
    parent().paint_ground(context, area, place);
  }
  if (image_.pixels().argb.empty()) {
    registry().pictures().paint(context, area, image_.picture(), dpi());
  } else {
    registry().pictures().paint(context, area, image_.pixels());
  }
}

}  // namespace ordelan::win32
