// The real picture behind a ui::Image.
#pragma once

#include "ui/image.h"
#include "win32/control_peer.h"

namespace ordelan::win32 {

class ImagePeer final : public ControlPeer {
 public:
  ImagePeer(WindowPeer& parent, ui::Image& image);

 protected:
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void deliver() override;

 private:
  void paint();

  ui::Image& image_;
  bool pressed_ = false;
  bool clicked_ = false;
};

}  // namespace ordelan::win32
