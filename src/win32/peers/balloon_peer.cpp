#include "win32/peers/balloon_peer.h"

#include <algorithm>
#include <utility>

#include "win32/ansi_text.h"
#include "win32/paint/screen_scale.h"
#include "win32/peers/tip_window.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

constexpr int kBalloonStyle = 1;
constexpr std::size_t kTitle = 99;  // the system takes no longer title, and none instead

}  // namespace

BalloonPeer::BalloonPeer(const WindowPeer& window, ui::Class1& balloon, HWND parent)
    : registry_(window.registry()), balloon_(balloon), parent_(parent) {
  const DWORD style = TTS_ALWAYSTIP | TTS_NOPREFIX |
                      (balloon.style() == kBalloonStyle ? DWORD{TTS_BALLOON} : DWORD{0});
  window_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | style,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, parent,
                            nullptr, registry_.instance(), nullptr);
  if (!window_) return;
  registry_.enter(*this);
  // Without a width, line breaks would not break lines.
  scale_tips(window_, registry_.tools(), window.dpi());
  tool_.cbSize = TTTOOLINFOW_V2_SIZE;
  tool_.hwnd = parent;
  tool_.uId = reinterpret_cast<UINT_PTR>(parent);
  tool_.hinst = registry_.instance();
  add_tool(TTF_SUBCLASS);
  if (!balloon.title().empty() || balloon.icon() != 0) set_title();
  set_colors();
  set_times();
}

BalloonPeer::~BalloonPeer() {
  destroy();
}

void BalloonPeer::parent_left(HWND parent) {
  if (parent == parent_) destroy();
}

void BalloonPeer::destroy() {
  if (!window_) return;
  registry_.leave(*this);
  DestroyWindow(std::exchange(window_, nullptr));
}

void BalloonPeer::add_tool(UINT flags) {
  tool_.uFlags = flags | TTF_IDISHWND | (balloon_.centered() ? UINT{TTF_CENTERTIP} : 0u);
  set_text(TTM_ADDTOOLW);
}

LRESULT BalloonPeer::send(UINT message, WPARAM w, LPARAM l) const {
  return SendMessageW(window_, message, w, l);
}

void BalloonPeer::changed(ui::Aspect aspect) {
  if (!window_) return;
  switch (aspect) {
    case ui::Aspect::text:
      set_text(TTM_UPDATETIPTEXTW);
      break;
    case ui::Aspect::value:
      set_title();
      break;
    case ui::Aspect::colors:
      set_colors();
      break;
    case ui::Aspect::interval:
      set_times();
      break;
    case ui::Aspect::visible:
      show();
      break;
    default:
      break;
  }
}

void BalloonPeer::set_text(UINT message) {
  text_ = widen(balloon_.tip_text());
  tool_.lpszText = text_.data();
  send(message, 0, tool());
}

void BalloonPeer::set_title() {
  const std::wstring title = widen(balloon_.title()).substr(0, kTitle);
  send(TTM_SETTITLEW, static_cast<WPARAM>(balloon_.icon()),
       reinterpret_cast<LPARAM>(title.c_str()));
}

void BalloonPeer::set_colors() {
  const bool themed = !balloon_.fore_color() && !balloon_.back_color();
  if (std::exchange(themed_, themed) != themed) theme_tips(window_, themed);
  // One that was taken away becomes the system's again.
  const auto color = [](const std::optional<ui::Color>& chosen, int standard) {
    return static_cast<WPARAM>(chosen ? color_of(*chosen) : GetSysColor(standard));
  };
  send(TTM_SETTIPTEXTCOLOR, color(balloon_.fore_color(), COLOR_INFOTEXT), 0);
  send(TTM_SETTIPBKCOLOR, color(balloon_.back_color(), COLOR_INFOBK), 0);
}

void BalloonPeer::set_times() {
  const auto milliseconds = [](int time) {
    return MAKELPARAM(std::clamp(time, 0, 0x7FFF), 0);  // 16 bits with a sign is what it takes
  };
  send(TTM_SETDELAYTIME, TTDT_AUTOPOP, milliseconds(balloon_.visible_time()));
  send(TTM_SETDELAYTIME, TTDT_INITIAL, milliseconds(balloon_.delay_time()));
}

void BalloonPeer::show() {
  const auto& place = balloon_.shown();
  const WindowPeer* const over = place ? registry_.window(*place->window) : nullptr;
  if (!over) return;
  POINT at{to_pixels(place->at.x, over->dpi()), to_pixels(place->at.y, over->dpi())};
  ClientToScreen(over->handle(), &at);
  // From here on the pointer neither brings it nor takes it away.
  if ((tool_.uFlags & TTF_TRACK) == 0) {
    send(TTM_DELTOOLW, 0, tool());
    add_tool(TTF_TRACK | TTF_ABSOLUTE);
  }
  send(TTM_TRACKPOSITION, 0, MAKELPARAM(at.x, at.y));
  send(TTM_TRACKACTIVATE, TRUE, tool());
}

}  // namespace ordelan::win32
