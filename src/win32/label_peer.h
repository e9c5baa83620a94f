// The real text behind a ui::Label.
#pragma once

#include <string>

#include "ui/label.h"
#include "win32/control_peer.h"

namespace ordelan::win32 {

class LabelPeer final : public ControlPeer {
 public:
  LabelPeer(WindowPeer& parent, ui::Label& label);

 protected:
  std::wstring text() const override;
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void deliver() override;

 private:
  void paint();
  UINT layout() const;

  ui::Label& label_;
  bool pressed_ = false;
  bool clicked_ = false;
  bool double_clicked_ = false;
};

}  // namespace ordelan::win32
