#include "win32/button_peer.h"

#include <utility>

#include "win32/ansi_text.h"
#include "win32/handlers.h"

namespace ordelan::win32 {

ButtonPeer::ButtonPeer(WindowPeer& parent, ui::Button& button)
    : ControlPeer(parent, button, L"BUTTON", BS_PUSHBUTTON | BS_MULTILINE | WS_TABSTOP),
      button_(button) {}

bool ButtonPeer::press() {
  send(BM_CLICK);
  return true;
}

std::wstring ButtonPeer::text() const {
  return widen(button_.caption());
}

void ButtonPeer::command(WORD code) {
  if (code == BN_CLICKED) clicked_ = true;
}

void ButtonPeer::deliver() {
  if (std::exchange(clicked_, false)) raise(button_.on_click);
}

}  // namespace ordelan::win32
