// The real edit control of a ui::TextBox. A box of many lines that reaches beyond its window's
// lower edge ends before that, and scrolls: with the wheel, with the caret, and with a bar of ours.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ui/text_box.h"
#include "win32/peers/control_frame.h"
#include "win32/peers/control_peer.h"
#include "win32/peers/scroll_bar.h"

namespace ordelan::win32 {

class TextBoxPeer final : public ControlPeer {
 public:
  TextBoxPeer(WindowPeer& parent, ui::TextBox& box);
  ~TextBoxPeer() override;
  TextBoxPeer(const TextBoxPeer&) = delete;
  TextBoxPeer& operator=(const TextBoxPeer&) = delete;

  // How many lines the text takes in the box's width; at least 1.
  int line_count();

  std::optional<Face> face() const override;

 protected:
  RECT area() const override;
  std::wstring text() const override;
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void command(WORD code) override;
  void deliver() override;

 private:
  void take_typed();
  bool is_cut() const;
  int bar_width() const;
  int lines_in_sight() const;
  void keep_room_for_bar();
  void show_bar();
  void scroll_to(int line);
  void turn_wheel(WPARAM w);

  ui::TextBox& box_;
  ControlFrame frame_;
  bool clicked_ = false;
  std::unique_ptr<ScrollBar> bar_;  // made when it is first needed
  bool showing_bar_ = false;
  int wheel_ = 0;  // what it was turned by and that has not scrolled a whole line yet
};

}  // namespace ordelan::win32
