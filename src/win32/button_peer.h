// The real push button behind a ui::Button.
#pragma once

#include <string>

#include "ui/button.h"
#include "win32/control_peer.h"

namespace ordelan::win32 {

class ButtonPeer final : public ControlPeer {
 public:
  ButtonPeer(WindowPeer& parent, ui::Button& button);

  // The system's own colours: a button looks like every other program's.
  HBRUSH colors(HDC) override { return nullptr; }
  bool press() override;

 protected:
  std::wstring text() const override;
  void command(WORD code) override;
  void deliver() override;

 private:
  ui::Button& button_;
  bool clicked_ = false;
};

}  // namespace ordelan::win32
