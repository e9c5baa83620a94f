// The real picture of a ui::Image.
#pragma once

#include "ui/image.h"
#include "win32/peers/painted_peer.h"

namespace ordelan::win32 {

// What the picture lets through is the window's ground; or the image's own back colour, once it was
// given one: a picture that covers another control wants that.
class ImagePeer final : public PaintedPeer {
 public:
  ImagePeer(WindowPeer& parent, ui::Image& image);

 protected:
  void paint(HDC context, const RECT& area) override;

 private:
  ui::Image& image_;
};

}  // namespace ordelan::win32
