// The real check box behind a ui::CheckBox.
#pragma once

#include <string>

#include "ui/check_box.h"
#include "win32/control_peer.h"

namespace ordelan::win32 {

class CheckBoxPeer final : public ControlPeer {
 public:
  CheckBoxPeer(WindowPeer& parent, ui::CheckBox& box);

 protected:
  std::wstring text() const override;
  void update(const Marks& marks) override;
  void command(WORD code) override;
  void deliver() override;

 private:
  ui::CheckBox& box_;
  bool clicked_ = false;
};

}  // namespace ordelan::win32
