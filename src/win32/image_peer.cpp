#include "win32/image_peer.h"

#include "win32/window_peer.h"

namespace ordelan::win32 {

ImagePeer::ImagePeer(WindowPeer& parent, ui::Image& image)
    : PaintedPeer(parent, image), image_(image) {}

void ImagePeer::paint(HDC context, const RECT& area) {
  FillRect(context, &area, desk().tools().brush(parent().window().back_color()));
  if (image_.pixels().argb.empty()) {
    desk().pictures().paint(context, area, image_.picture());
  } else {
    desk().pictures().paint(context, area, image_.pixels());
  }
}

}  // namespace ordelan::win32
