// The real picture behind a ui::Image.
#pragma once

#include "ui/image.h"
#include "win32/painted_peer.h"

namespace ordelan::win32 {

class ImagePeer final : public PaintedPeer {
 public:
  ImagePeer(WindowPeer& parent, ui::Image& image);

 protected:
  void paint(HDC context, const RECT& area) override;

 private:
  ui::Image& image_;
};

}  // namespace ordelan::win32
