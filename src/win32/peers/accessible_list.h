// What screen readers are given of a list: its rows by their numbers, of which none costs anything
// until it is asked about.
#pragma once

#include <windows.h>

#include <string>

#include "ui/check_list_box.h"
#include "ui/list_box.h"
#include "win32/peers/accessible.h"

namespace ordelan::win32 {

class AccessibleList final : public Accessible {
 public:
  AccessibleList(ControlPeer& peer, ui::ListBox& list) : Accessible(peer), list_(list) {}
  // The rows of boxes are ticked; the one that has the focus is a row of the list beside them.
  AccessibleList(ControlPeer& peer, ui::CheckListBox& boxes)
      : Accessible(peer), list_(boxes), boxes_(&boxes) {}

 protected:
  LONG count() const override;
  LONG role(LONG part) const override;
  std::wstring name(LONG part) const override;
  std::wstring help(LONG part) const override;
  std::wstring action(LONG part) const override;
  LONG state(LONG part) const override;
  RECT place(LONG part) const override;
  LONG part_at(POINT place) const override;
  LONG chosen() const override;
  bool choose(LONG part) override;
  std::string mark_of(LONG part) const override;

 private:
  RECT inside() const;  // where rows are seen, on the screen
  LONG row_height() const;
  LONG top() const;
  bool ticked(LONG part) const;

  ui::ListBox& list_;
  ui::CheckListBox* boxes_ = nullptr;
};

// Reports to screen readers what happens in a list that is shown.
class ListEvents {
 public:
  // Rows have come or gone, or say something else.
  static void rows_changed(HWND list);
  // To be called whenever the chosen row (-1 for none) or the focus may be another: reports it
  // where it is.
  void look(HWND list, LRESULT row);

 private:
  LRESULT row_ = -1;
  bool focused_ = false;
};

}  // namespace ordelan::win32
