// The real slider behind a ui::Slider.
#pragma once

#include <optional>

#include "ui/slider.h"
#include "win32/painted_peer.h"

namespace ordelan::win32 {

class SliderPeer final : public PaintedPeer {
 public:
  SliderPeer(WindowPeer& parent, ui::Slider& slider);

  bool is_background() const override { return false; }

 protected:
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void paint(HDC context, const RECT& area) override;

 private:
  bool show(HDC context, const RECT& place, const RECT& seen, const std::string& picture);

  ui::Slider& slider_;
  bool holding_ = false;  // the mouse, for a press
};

}  // namespace ordelan::win32
