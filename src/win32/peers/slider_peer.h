// The real slider of a ui::Slider: to others it is the system's own, with our looks, mouse and
// keys.
#pragma once

#include <optional>
#include <string>

#include "ui/slider.h"
#include "win32/peers/dressed_peer.h"
#include "win32/peers/mouse_hold.h"

namespace ordelan::win32 {

class SliderPeer final : public DressedPeer {
 public:
  SliderPeer(WindowPeer& parent, ui::Slider& slider);

  std::optional<Face> face() const override;
  bool take_value(const std::wstring& value) override;

 protected:
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  void paint(HDC context, const RECT& area) override;

 private:
  void stand();
  bool show(HDC context, const RECT& place, const RECT& seen, const std::string& picture);

  ui::Slider& slider_;
  MouseHold hold_;
};

}  // namespace ordelan::win32
