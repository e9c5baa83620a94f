#include "win32/label_peer.h"

#include "win32/ansi_text.h"

namespace ordelan::win32 {

LabelPeer::LabelPeer(WindowPeer& parent, ui::Label& label)
    : PaintedPeer(parent, label), label_(label) {}

std::wstring LabelPeer::text() const {
  return widen(label_.caption());
}

UINT LabelPeer::layout(const RECT& area) const {
  const int line = desk().tools().line_height(label_.font(), dpi());
  if (area.bottom >= 2 * line) return DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX;
  return DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX;
}

void LabelPeer::paint(HDC context, const RECT& area) {
  FillRect(context, &area, colors(context));
  SetBkMode(context, TRANSPARENT);
  if (!label_.enabled()) SetTextColor(context, color_of(palette().text_off));
  const HGDIOBJ old = SelectObject(context, font());
  const std::wstring caption = text();
  RECT room = area;
  DrawTextW(context, caption.c_str(), static_cast<int>(caption.size()), &room, layout(area));
  SelectObject(context, old);
}

}  // namespace ordelan::win32
