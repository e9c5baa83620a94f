// The real push button of a ui::Button: the system's keys and names, our looks and mouse.
#pragma once

#include <string>

#include "ui/button.h"
#include "win32/peers/dressed_peer.h"
#include "win32/peers/mouse_hold.h"

namespace ordelan::win32 {

class ButtonPeer final : public DressedPeer {
 public:
  ButtonPeer(WindowPeer& parent, ui::Button& button);

  bool press() override;

 protected:
  std::wstring text() const override;
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  void command(WORD code) override;
  void deliver() override;
  void paint(HDC context, const RECT& area) override;

 private:
  std::optional<LRESULT> mouse(UINT message, WPARAM w, LPARAM l);
  void paint_ground(HDC context, const RECT& area, bool pressed, bool over);
  int paint_picture(HDC context, const RECT& area);
  std::string picture() const;

  ui::Button& button_;
  bool clicked_ = false;
  MouseHold hold_;
};

}  // namespace ordelan::win32
