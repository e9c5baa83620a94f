#include "win32/peers/control_peer.h"

#include <utility>

#include "win32/paint/screen_scale.h"
#include "win32/peers/handlers.h"
#include "win32/peers/mouse_message.h"
#include "win32/peers/property_names.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

bool is_input(UINT message) {
  return (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
         (message >= WM_KEYFIRST && message <= WM_KEYLAST);
}

// The messages at which the system's controls paint themselves at once, without being asked to.
bool paints_at_once(UINT message) {
  switch (message) {
    case BM_SETCHECK:
    case BM_SETSTATE:
    case BM_SETSTYLE:
    case WM_CAPTURECHANGED:
    case WM_ENABLE:
    case WM_KEYDOWN:
    case WM_KEYUP:
    case WM_KILLFOCUS:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_SETFOCUS:
    case WM_SETTEXT:
    case WM_UPDATEUISTATE:
      return true;
    default:
      return false;
  }
}

// Counts how deep the real control's code is nested, as long as its peer lives.
class Depth {
 public:
  Depth(int& depth, std::weak_ptr<void> alive) : depth_(depth), alive_(std::move(alive)) {
    ++depth_;
  }
  ~Depth() {
    if (!alive_.expired()) --depth_;
  }
  Depth(const Depth&) = delete;
  Depth& operator=(const Depth&) = delete;

 private:
  int& depth_;
  std::weak_ptr<void> alive_;
};

}  // namespace

ControlPeer::ControlPeer(WindowPeer& parent, ui::Control& control, const wchar_t* window_class,
                         DWORD style, DWORD extended_style)
    : parent_(parent),
      control_(control),
      window_class_(window_class),
      style_(style),
      extended_style_(extended_style),
      name_(property_name(control)) {}

ControlPeer::~ControlPeer() {
  if (accessible_) accessible_->disconnect();
  if (!handle_) return;
  parent_.forget(*this);
  registry().leave(*this);
  RemovePropW(handle_, name_.c_str());
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(standard_));
  DestroyWindow(handle_);
}

void ControlPeer::appear() {
  handle_ = CreateWindowExW(extended_style_, window_class_, text().c_str(),
                            WS_CHILD | WS_CLIPSIBLINGS | style_, 0, 0, 0, 0, parent_.handle(),
                            nullptr, registry().instance(), nullptr);
  if (!handle_) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  standard_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(handle_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
  SetPropW(handle_, name_.c_str(), reinterpret_cast<HANDLE>(INT_PTR{1}));
  registry().enter(*this);
  marks_.add_all();
  flush();
  appeared_ = true;
}

void ControlPeer::changed(ui::Aspect aspect) {
  if (!handle_) return;
  const bool first = marks_.empty();
  marks_.add(aspect);
  if (first) registry().mark(*this);
}

void ControlPeer::flush() {
  if (marks_.empty() || flushing_ || !handle_) return;
  flushing_ = true;
  const Marks marks = std::exchange(marks_, Marks());
  if (marks.has(ui::Aspect::font)) send(WM_SETFONT, reinterpret_cast<WPARAM>(font()), FALSE);
  if (marks.has(ui::Aspect::bounds)) place();
  if (marks.has(ui::Aspect::text)) SetWindowTextW(handle_, text().c_str());
  if (marks.has(ui::Aspect::enabled)) {
    if (!control_.enabled()) leave_focus();
    EnableWindow(handle_, control_.enabled());
  }
  if (marks.has(ui::Aspect::tip)) parent_.tips().set(handle_, widen(control_.tip()));
  update(marks);
  if (marks.has(ui::Aspect::font) || marks.has(ui::Aspect::colors)) repaint();
  // In the beginning the controls stand in the order they were made in.
  if (marks.has(ui::Aspect::order) && appeared_) {
    SetWindowPos(handle_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  }
  if (marks.has(ui::Aspect::visible)) show(control_.visible());
  flushing_ = false;
  if (!appeared_) return;
  if (control_.announced()) announce(marks);
  report(marks);
}

void ControlPeer::rescale() {
  changed(ui::Aspect::font);
  changed(ui::Aspect::bounds);
  changed(ui::Aspect::extent);
}

void ControlPeer::notified(WORD code) {
  command(code);
  if (inside_ == 0) deliver();
}

// Where only the ground was given a colour of its own, the text is one that can be read on it.
COLORREF ControlPeer::text_color() const {
  const ui::Color text = control_.fore_color();
  if (text != ui::Color::window_text && text != ui::Color::button_text) return color_of(text);
  const COLORREF ground = color_of(control_.back_color());
  const int brightness =
      (GetRValue(ground) * 299 + GetGValue(ground) * 587 + GetBValue(ground) * 114) / 1000;
  constexpr int kBright = 128;
  const COLORREF usual = color_of(text);
  const bool usual_is_bright = GetRValue(usual) + GetGValue(usual) + GetBValue(usual) > 3 * kBright;
  if ((brightness > kBright) != usual_is_bright) return usual;
  return brightness > kBright ? RGB(0, 0, 0) : RGB(255, 255, 255);
}

HBRUSH ControlPeer::colors(HDC context) {
  SetTextColor(context, text_color());
  SetBkColor(context, color_of(control_.back_color()));
  return registry().tools().brush(control_.back_color());
}

PeerRegistry& ControlPeer::registry() const {
  return parent_.registry();
}
int ControlPeer::dpi() const {
  return parent_.dpi();
}
HFONT ControlPeer::font() const {
  return registry().tools().font(control_.font(), dpi());
}
std::wstring ControlPeer::text() const {
  return widen(control_.description());
}

std::optional<LRESULT> ControlPeer::incoming(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_MOUSEMOVE) raise(control_.on_mouse_move, mouse_of(message, w, l, dpi()));
  return std::nullopt;
}

LRESULT CALLBACK ControlPeer::procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  auto* const peer = reinterpret_cast<ControlPeer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!peer) return DefWindowProcW(window, message, w, l);
  return guarded([&] { return peer->process(message, w, l); });
}

LRESULT ControlPeer::process(UINT message, WPARAM w, LPARAM l) {
  const std::weak_ptr<void> still = alive_;
  // A caller that reads the control, or acts on it, finds it in the program's state.
  settle();
  if (const auto result = access(message, w, l)) return *result;
  if (is_input(message)) parent_.tips().relay(handle_, message, w, l);
  if (const auto result = incoming(message, w, l)) return *result;
  if (still.expired()) return 0;
  LRESULT result = 0;
  {
    const Depth depth(inside_, still);
    result = respond(message, w, l);
  }
  if (!still.expired() && inside_ == 0) deliver();
  return result;
}

ComPtr<Accessible> ControlPeer::make_accessible() {
  return face() ? ComPtr<Accessible>(new AccessibleControl(*this)) : ComPtr<Accessible>();
}

// What comes from screen readers and is for them.
std::optional<LRESULT> ControlPeer::access(UINT message, WPARAM w, LPARAM l) {
  if (message == WM_GETOBJECT && static_cast<LONG>(l) == OBJID_CLIENT) {
    if (!accessible_) accessible_ = make_accessible();
    if (!accessible_) return std::nullopt;
    return LresultFromObject(kAccessibleId, w, accessible_.get());
  }
  if (message == action_message()) {
    if (accessible_) accessible_->act();
    return 0;
  }
  if (message == WM_TIMER && live_text_.ticked(handle_, w)) return 0;
  return std::nullopt;
}

// What comes to be shown has often got its text a moment before.
void ControlPeer::announce(const Marks& marks) {
  if (!marks.has(ui::Aspect::text) && !marks.has(ui::Aspect::visible)) return;
  if (!IsWindowVisible(handle_)) return;
  NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, handle_, OBJID_CLIENT, CHILDID_SELF);
  if (!text().empty()) live_text_.changed(handle_);
}

LRESULT ControlPeer::standard_unpainted(UINT message, WPARAM w, LPARAM l) {
  const bool shown = (GetWindowLongPtrW(handle_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (!shown || !paints_at_once(message)) return standard(message, w, l);
  const HWND control = handle_;
  const std::weak_ptr<void> still = alive_;
  // What it would paint itself goes nowhere.
  DefWindowProcW(control, WM_SETREDRAW, FALSE, 0);
  const LRESULT result = standard(message, w, l);
  if (still.expired()) return result;
  DefWindowProcW(control, WM_SETREDRAW, TRUE, 0);
  repaint();
  return result;
}

RECT ControlPeer::area() const {
  return to_pixels(control_.bounds(), dpi());
}

void ControlPeer::place() {
  const RECT place = area();
  SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlPeer::show(bool visible) {
  if (!visible) leave_focus();
  ShowWindow(handle_, visible ? SW_SHOWNA : SW_HIDE);
}

void ControlPeer::leave_focus() {
  // The focus on a control that takes no keys would leave the keyboard without any.
  if (GetFocus() != handle_) return;
  const HWND next = GetNextDlgTabItem(parent_.handle(), handle_, FALSE);
  SetFocus(next && next != handle_ ? next : parent_.handle());
}

}  // namespace ordelan::win32
