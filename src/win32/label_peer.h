// The real text behind a ui::Label.
#pragma once

#include <string>

#include "ui/label.h"
#include "win32/painted_peer.h"

namespace ordelan::win32 {

class LabelPeer final : public PaintedPeer {
 public:
  LabelPeer(WindowPeer& parent, ui::Label& label);

 protected:
  std::wstring text() const override;
  void paint(HDC context, const RECT& area) override;

 private:
  UINT layout(const RECT& area) const;

  ui::Label& label_;
};

}  // namespace ordelan::win32
