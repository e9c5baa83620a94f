// The real label of a ui::Label. We paint it ourselves: a text that is too long ends in an
// ellipsis, one in several lines breaks at its words, one that is moved is cut off at the edges.
// One that can be clicked is reached with the keys too, and says so under the pointer.
#pragma once

#include <string>

#include "ui/label.h"
#include "win32/peers/painted_peer.h"

namespace ordelan::win32 {

class LabelPeer final : public PaintedPeer {
 public:
  LabelPeer(WindowPeer& parent, ui::Label& label);

  bool press() override;

 protected:
  std::wstring text() const override;
  LONG plain_role() const override { return ROLE_SYSTEM_STATICTEXT; }
  void update(const Marks& marks) override;
  std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l) override;
  void paint(HDC context, const RECT& area) override;

 private:
  std::optional<int> text_start() const;
  UINT layout(const RECT& area) const;
  void paint_invitation(HDC context, const RECT& area);
  void paint_text(HDC context, const RECT& area);
  void follow_pointer(UINT message);

  ui::Label& label_;
  bool over_ = false;               // the pointer is on it
  std::optional<int> shown_start_;  // of a text that is moved, in pixels
};

}  // namespace ordelan::win32
