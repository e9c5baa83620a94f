// The real boxes of a ui::CheckListBox. They lie over the left of the real list that they stand
// beside, as high as its rows are seen. To others they are a list too, that is as long and has the
// ticked rows selected; all that is seen of it we paint ourselves, so that it can be scrolled as
// far as the other list, and shows no bars.
#pragma once

#include "ui/check_list_box.h"
#include "win32/peers/dressed_peer.h"

namespace ordelan::win32 {

class CheckListBoxPeer final : public DressedPeer {
 public:
  CheckListBoxPeer(WindowPeer& parent, ui::CheckListBox& boxes);

  void act(int row) override { press_row(row); }

 protected:
  void report(const Marks& marks) override;
  ComPtr<Accessible> make_accessible() override;
  RECT area() const override;
  void update(const Marks& marks) override;
  void paint(HDC context, const RECT& area) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  LRESULT respond(UINT message, WPARAM w, LPARAM l) override;

 private:
  // The list beside which they stand; null while it is not shown.
  HWND list() const;
  int row_height() const;
  // The row at a height of theirs, -1 where there is none.
  int row_at(int y) const;
  // Row -1 for a press below all rows. The boxes may be gone afterwards.
  void press_row(int row);
  void report_tick(int row) const;
  void point_at(int row);
  std::optional<LRESULT> answer(UINT message, WPARAM w) const;

  ui::CheckListBox& boxes_;
  int over_ = -1;     // the row of the box under the pointer
  int pressed_ = -1;  // the row that the user has last clicked on
};

}  // namespace ordelan::win32
