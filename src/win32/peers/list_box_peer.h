// The real list of a ui::ListBox. It is a virtual one: it stores how many rows there are and
// which is chosen, and asks for the text of those that it paints. Its own scroll bars keep count of
// what is in sight, but are cut out of the list's outline: what is seen there are bars of ours.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <memory>

#include "ui/list_box.h"
#include "win32/peers/accessible_list.h"
#include "win32/peers/control_frame.h"
#include "win32/peers/control_peer.h"
#include "win32/peers/scroll_bar.h"

namespace ordelan::win32 {

// The message by which other processes read rows. The real list keeps no texts, so that other
// programs and tests ask here: wParam is the number of a row, or -1 for all; lParam is a window of
// theirs, which gets WM_COPYDATA messages: dwData is how many rows the list has, the data a piece
// of their texts in UTF-16, with a line feed between two rows. The pieces come in order and belong
// together. Gives 1 once all have been taken, 0 when one was not.
inline constexpr wchar_t kRowsMessage[] = L"Ordelan.Rows";

// The row of a real list at a height of the list's, in pixels; -1 where none of its `count` rows
// is.
int row_of(HWND list, int y, std::size_t count);

class ListBoxPeer final : public ControlPeer {
 public:
  ListBoxPeer(WindowPeer& parent, ui::ListBox& list);

  void draw(const DRAWITEMSTRUCT& item) override;

  // Takes what was dropped on the list, and frees `drop`.
  void dropped(HDROP drop);

  void act(int row) override;

 protected:
  void report(const Marks& marks) override;
  ComPtr<Accessible> make_accessible() override;
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;
  void command(WORD code) override;
  void deliver() override;

 private:
  void show_rows(bool keep_place);
  void note_scroll();
  void erase_below(HDC context);
  void paint_empty();
  int row_at(int y) const { return row_of(handle(), y, list_.count()); }
  void right_button(int y);
  void press_below();
  bool mark_press(int row, WPARAM held);
  std::optional<LRESULT> key_down(WPARAM key, LPARAM l);
  void letter(WPARAM unit);
  void bring_into_sight(int row) const;
  void scroll_sideways(int pixels) const;
  void turn_sideways(int delta) const;
  int rows_in_sight() const;
  LRESULT answer_rows(WPARAM row, HWND asker);
  LRESULT shrink_client(WPARAM w, LPARAM l) const;
  void focus_changed(bool focused);
  void show_bars();
  void show_bar(std::unique_ptr<ScrollBar>& bar, int which, const RECT& area, int track,
                HWND above);
  void scroll_to(int which, int place) const;
  void cut_out(const RECT& right, const RECT& bottom);

  ui::ListBox& list_;
  bool chosen_ = false;  // the user has chosen a row
  bool by_mouse_ = false;
  bool double_clicked_ = false;
  WPARAM key_ = 0;         // the last that went down
  bool scrolled_ = false;  // the first row in sight is another one
  ControlFrame frame_{0, 0};
  std::unique_ptr<ScrollBar> vertical_;  // made when they are first needed
  std::unique_ptr<ScrollBar> horizontal_;
  bool showing_bars_ = false;
  RECT client_{};     // in its window, when the boxes beside the rows were placed
  RECT right_cut_{};  // of the list's own area
  RECT bottom_cut_{};
  SIZE cut_from_{};
  ListEvents events_;
};

}  // namespace ordelan::win32
