// The real check box of a ui::CheckBox.
#pragma once

#include <string>

#include "ui/check_box.h"
#include "win32/peers/dressed_peer.h"

namespace ordelan::win32 {

class CheckBoxPeer final : public DressedPeer {
 public:
  CheckBoxPeer(WindowPeer& parent, ui::CheckBox& box);

 protected:
  std::wstring text() const override;
  void update(const Marks& marks) override;
  void paint(HDC context, const RECT& area) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  void command(WORD code) override;
  void deliver() override;

 private:
  ui::CheckBox& box_;
  bool clicked_ = false;
  bool over_ = false;  // the pointer is on it
};

}  // namespace ordelan::win32
