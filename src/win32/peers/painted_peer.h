// A control that we paint ourselves, and whose presses of the mouse become clicks here.
#pragma once

#include "win32/peers/control_peer.h"

namespace ordelan::win32 {

class PaintedPeer : public ControlPeer {
 public:
  bool is_background() const override;

  std::optional<Face> face() const override;
  void act(int row) override;

 protected:
  // `can_be_pressed`: it is a button to the keys and to screen readers. `style` is added to its
  // own.
  PaintedPeer(WindowPeer& parent, ui::Control& control, bool can_be_pressed = false,
              DWORD style = 0);

  // Paints all of `area`, which begins at the control's top left corner. The painting is shown at
  // once when it is done.
  virtual void paint(HDC context, const RECT& area) = 0;

  // What it is to a screen reader where a click does nothing.
  virtual LONG plain_role() const { return ROLE_SYSTEM_GRAPHIC; }

  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void deliver() override;
  // The user has clicked there, in pixels. The peer may be gone afterwards.
  virtual void clicked(POINT place);

 private:
  void press_window(UINT message, WPARAM w, LPARAM l) const;

  bool pressed_ = false;
  bool clicked_ = false;
  POINT click_{};  // where the last press has ended
  bool double_clicked_ = false;
};

}  // namespace ordelan::win32
