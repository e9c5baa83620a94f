// The real edit control behind a ui::TextBox.
#pragma once

#include <string>

#include "ui/text_box.h"
#include "win32/control_frame.h"
#include "win32/control_peer.h"

namespace ordelan::win32 {

class TextBoxPeer final : public ControlPeer {
 public:
  TextBoxPeer(WindowPeer& parent, ui::TextBox& box);
  ~TextBoxPeer() override;
  TextBoxPeer(const TextBoxPeer&) = delete;
  TextBoxPeer& operator=(const TextBoxPeer&) = delete;

  // How many lines the text takes in the box's width; at least 1.
  int line_count();

 protected:
  std::wstring text() const override;
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void command(WORD code) override;
  void deliver() override;

 private:
  void take_typed();

  ui::TextBox& box_;
  ControlFrame frame_;
  bool clicked_ = false;
};

}  // namespace ordelan::win32
