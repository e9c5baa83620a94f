#include "win32/check_box_peer.h"

#include <utility>

#include "win32/ansi_text.h"

namespace ordelan::win32 {

// The box does not tick itself: the object does, and the tick that is shown is the object's.
CheckBoxPeer::CheckBoxPeer(WindowPeer& parent, ui::CheckBox& box)
    : ControlPeer(parent, box, L"BUTTON", BS_CHECKBOX | BS_MULTILINE | WS_TABSTOP), box_(box) {}

std::wstring CheckBoxPeer::text() const {
  return widen(box_.caption());
}

void CheckBoxPeer::update(const Marks& marks) {
  if (marks.has(ui::Aspect::value)) {
    send(BM_SETCHECK, static_cast<WPARAM>(box_.checked() ? BST_CHECKED : BST_UNCHECKED));
  }
}

void CheckBoxPeer::command(WORD code) {
  if (code == BN_CLICKED) clicked_ = true;
}

void CheckBoxPeer::deliver() {
  if (std::exchange(clicked_, false)) box_.toggle();
}

}  // namespace ordelan::win32
