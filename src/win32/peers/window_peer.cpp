#include "win32/peers/window_peer.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "win32/paint/screen_scale.h"
#include "win32/peers/control_peer.h"
#include "win32/peers/handlers.h"
#include "win32/peers/list_box_peer.h"
#include "win32/peers/property_names.h"
#include "win32/peers/window_frame.h"

namespace ordelan::win32 {
namespace {

constexpr wchar_t kWindowClass[] = L"Ordelan.Window";
constexpr WPARAM kSystemCommand = 0xFFF0;  // the system keeps the last bits for itself

// The styles by which a borderless window is a tool or one that the user switches to.
constexpr DWORD kKindStyles = WS_MINIMIZEBOX;
constexpr DWORD kKindExtendedStyles = WS_EX_TOOLWINDOW | WS_EX_APPWINDOW;

void register_class(HINSTANCE instance, WNDPROC procedure) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.style = CS_DBLCLKS;
  kind.lpfnWndProc = procedure;
  kind.hInstance = instance;
  kind.hIcon = LoadIconW(instance, MAKEINTRESOURCEW(1));
  kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  kind.lpszClassName = kWindowClass;
  RegisterClassExW(&kind);  // the second window finds it there
}

}  // namespace

WindowPeer::WindowPeer(PeerRegistry& registry, ui::Window& window)
    : registry_(registry),
      window_(window),
      name_(property_name(window)),
      backdrop_(registry.tools(), registry.pictures()) {
  register_class(registry.instance(), procedure);
  was_minimized_ = window.minimized();
  const int dpi = system_dpi();
  handle_ =
      CreateWindowExW(extended_style(), kWindowClass, widen(window.title()).c_str(), style(),
                      to_pixels(window.position().x, dpi), to_pixels(window.position().y, dpi), 0,
                      0, nullptr, nullptr, registry.instance(), nullptr);
  SetWindowLongPtrW(handle_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  SetPropW(handle_, name_.c_str(), reinterpret_cast<HANDLE>(INT_PTR{1}));
  tips_ = std::make_unique<TipWindow>(registry.instance(), handle_, registry.tools());
  screen_dpi_ = dpi_of(handle_);
  dpi_ = fitting_dpi();
  tips_->scale(dpi_);
  registry_.enter(*this);
  // Where the focus is can always be seen, not only once a key has been pressed.
  SendMessageW(handle_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL),
               0);
  place();
  update_shape();
  update_order();
  update_state();
  show();
}

WindowPeer::~WindowPeer() {
  registry_.leave(*this);
  RemovePropW(handle_, name_.c_str());
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  tips_.reset();
  DestroyWindow(handle_);
}

void WindowPeer::changed(ui::Aspect aspect) {
  switch (aspect) {
    case ui::Aspect::text:
      SetWindowTextW(handle_, widen(window_.title()).c_str());
      break;
    case ui::Aspect::visible:
      show();
      break;
    case ui::Aspect::bounds:
      place();
      break;
    case ui::Aspect::colors:
      update_border();
      // The controls too: pictures stand on the window's ground.
      RedrawWindow(handle_, nullptr, nullptr,
                   RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
      break;
    case ui::Aspect::order:
      update_order();
      break;
    case ui::Aspect::state:
      update_state();
      break;
    case ui::Aspect::shape:
      update_shape();
      break;
    default:
      break;
  }
}

bool WindowPeer::is_tool() const {
  return window_.borderless() && window_.topmost() && !window_.minimizable() && !was_minimized_;
}

// These two alone say what kind of window a window is.
DWORD WindowPeer::style() const {
  constexpr DWORD kCommon = WS_SYSMENU | WS_CLIPCHILDREN;
  if (!window_.borderless()) return WS_OVERLAPPED | WS_CAPTION | WS_MINIMIZEBOX | kCommon;
  const DWORD border = window_.background().empty() ? DWORD{WS_BORDER} : DWORD{0};
  return WS_POPUP | border | kCommon | (is_tool() ? DWORD{0} : DWORD{WS_MINIMIZEBOX});
}

DWORD WindowPeer::extended_style() const {
  if (!window_.borderless()) return WS_EX_CONTROLPARENT;
  return WS_EX_CONTROLPARENT | (is_tool() ? DWORD{WS_EX_TOOLWINDOW} : DWORD{WS_EX_APPWINDOW});
}

void WindowPeer::show() {
  if (window_.visible() && !IsWindowVisible(handle_)) bring_onto_a_screen();
  if (!window_.visible() || registry_.ended()) {
    ShowWindow(handle_, SW_HIDE);
    return;
  }
  update_kind();
  // One that was hidden as an icon and is none any more would come back as one.
  const int plain = window_.shows_quietly() ? SW_SHOWNA : SW_SHOW;
  const int open = IsIconic(handle_) ? SW_RESTORE : plain;
  ShowWindow(handle_, window_.minimized() ? SW_SHOWMINIMIZED : open);
  // At once: the caller may be busy for a while, and the controls would be holes in it.
  registry_.flush();
  RedrawWindow(handle_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void WindowPeer::update_order() {
  if (std::exchange(topmost_, window_.topmost()) != window_.topmost()) {
    SetWindowPos(handle_, topmost_ ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    update_kind();
  } else if (IsWindowVisible(handle_) && !IsIconic(handle_)) {
    // One that stays on top comes before the others of them, and leaves the keys where they are.
    if (topmost_) {
      SetWindowPos(handle_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    } else {
      SetForegroundWindow(handle_);
    }
  }
}

void WindowPeer::update_state() {
  update_kind();
  const bool minimized = IsIconic(handle_) != FALSE;
  if (minimized != window_.minimized() && IsWindowVisible(handle_)) {
    ShowWindow(handle_, window_.minimized() ? SW_MINIMIZE : SW_RESTORE);
  }
  // The pointer follows at once, not only when the mouse moves.
  POINT pointer{};
  GetCursorPos(&pointer);
  const HWND under = WindowFromPoint(pointer);
  if (under == handle_ || IsChild(handle_, under)) {
    SetCursor(LoadCursorW(nullptr, window_.waiting() ? IDC_WAIT : IDC_ARROW));
  }
}

// A minimised tool could not be brought back: it becomes a window to switch to, and stays one.
void WindowPeer::update_kind() {
  was_minimized_ = was_minimized_ || window_.minimized();
  const auto old = static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_EXSTYLE));
  if ((old & kKindExtendedStyles) == (extended_style() & kKindExtendedStyles)) return;
  const bool visible = IsWindowVisible(handle_) != FALSE;
  const bool active = GetActiveWindow() == handle_;
  constexpr UINT kNothingElse = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
  // The task bar looks at a window when that appears.
  if (visible) SetWindowPos(handle_, nullptr, 0, 0, 0, 0, kNothingElse | SWP_HIDEWINDOW);
  const auto change = [&](int index, DWORD mask, DWORD wanted) {
    const auto kept = static_cast<DWORD>(GetWindowLongPtrW(handle_, index)) & ~mask;
    SetWindowLongPtrW(handle_, index, static_cast<LONG_PTR>(kept | (wanted & mask)));
  };
  change(GWL_STYLE, kKindStyles, style());
  change(GWL_EXSTYLE, kKindExtendedStyles, extended_style());
  if (visible) SetWindowPos(handle_, nullptr, 0, 0, 0, 0, kNothingElse | SWP_SHOWWINDOW);
  if (visible && active) SetActiveWindow(handle_);
}

// A picture brings its own line, or none.
void WindowPeer::update_border() {
  const auto old = static_cast<DWORD>(GetWindowLongPtrW(handle_, GWL_STYLE));
  if ((old & WS_BORDER) == (style() & WS_BORDER)) return;
  SetWindowLongPtrW(handle_, GWL_STYLE, static_cast<LONG_PTR>(old ^ DWORD{WS_BORDER}));
  SetWindowPos(handle_, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  place();
}

void WindowPeer::paint_ground(HDC context, const RECT& area, POINT place) {
  backdrop_.paint(context, area, place, window_, dpi_);
}

bool WindowPeer::preview(const MSG& key) {
  ui::Key pressed;
  pressed.code = static_cast<int>(key.wParam);
  pressed.shift = GetKeyState(VK_SHIFT) < 0;
  pressed.control = GetKeyState(VK_CONTROL) < 0;
  constexpr LPARAM kAlt = 1 << 29;
  pressed.alt = key.message == WM_SYSKEYDOWN && (key.lParam & kAlt) != 0;
  if (const ControlPeer* const focused = registry_.control(key.hwnd)) {
    pressed.focus = &focused->control();
  }
  const std::weak_ptr<void> still = alive_;
  guarded([&]() -> LRESULT {
    raise(window_.on_key_down, pressed);
    const bool alone = !pressed.shift && !pressed.control && !pressed.alt;
    if (still.expired() || pressed.swallowed || pressed.code != VK_ESCAPE || !alone) return 0;
    pressed.swallowed = true;
    raise(window_.on_escape);
    return 0;
  });
  return pressed.swallowed;
}

void WindowPeer::preview_press() {
  guarded([&]() -> LRESULT {
    raise(window_.on_mouse_down);
    return 0;
  });
}

void WindowPeer::forget(ControlPeer& control) {
  tips_->set(control.handle(), L"");
  if (last_focus_ == control.handle()) last_focus_ = nullptr;
}

LRESULT CALLBACK WindowPeer::procedure(HWND handle, UINT message, WPARAM w, LPARAM l) noexcept {
  auto* const peer = reinterpret_cast<WindowPeer*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (!peer) return DefWindowProcW(handle, message, w, l);
  return guarded([&] { return peer->process(message, w, l); });
}

// Nothing of the peer may be touched after an event: the window may have been unloaded in it.
LRESULT WindowPeer::process(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_CLOSE:
      raise(window_.on_close);
      return 0;
    case WM_COMMAND:
      if (ControlPeer* const control = registry_.control(reinterpret_cast<HWND>(l))) {
        control->notified(HIWORD(w));
      }
      return 0;
    case WM_DRAWITEM: {
      const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(l);
      if (ControlPeer* const control = registry_.control(item->hwndItem)) control->draw(*item);
      return TRUE;
    }
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC: {
      ControlPeer* const control = registry_.control(reinterpret_cast<HWND>(l));
      HBRUSH const brush = control ? control->colors(reinterpret_cast<HDC>(w)) : nullptr;
      if (brush) return reinterpret_cast<LRESULT>(brush);
      break;
    }
    case WM_ERASEBKGND: {
      RECT area{};
      GetClientRect(handle_, &area);
      paint_ground(reinterpret_cast<HDC>(w), area, {});
      return 1;
    }
    case WM_NCPAINT:
      if (!window_.borderless()) break;
      if (window_.background().empty()) {
        paint_frame(handle_, registry_.tools(), window_.back_color());
      }
      return 0;
    case WM_NCACTIVATE:
      // The line looks the same in the background; the system would paint its own over it.
      if (window_.borderless()) l = -1;
      break;
    case WM_LBUTTONDOWN:
      press_background({GET_X_LPARAM(l), GET_Y_LPARAM(l)});
      return 0;
    case WM_LBUTTONDBLCLK:
      raise(window_.on_double_click);
      return 0;
    case WM_ACTIVATEAPP:
      if (w == FALSE) raise(window_.on_deactivate);
      break;
    case WM_CONTEXTMENU:
      if (!window_.on_context_menu) break;
      raise(window_.on_context_menu, l == -1);
      return 0;
    case WM_DROPFILES:
      dropped(reinterpret_cast<HDROP>(w));
      return 0;
    case WM_SETCURSOR:
      if (!window_.waiting()) break;
      SetCursor(LoadCursorW(nullptr, IDC_WAIT));
      return TRUE;
    case WM_MOVE:
      moved();
      break;
    case WM_EXITSIZEMOVE:
      moved();
      if (!dragging_) raise(window_.on_drag_end);
      return 0;
    case WM_NCHITTEST:
      if (!window_.resizable() || !window_.borderless()) break;
      return part_at({GET_X_LPARAM(l), GET_Y_LPARAM(l)});
    case WM_GETMINMAXINFO:
      if (window_.resizable()) limit_size(*reinterpret_cast<MINMAXINFO*>(l));
      return 0;
    case WM_SYSCOMMAND:
      if ((w & kSystemCommand) == SC_MINIMIZE) {
        was_minimized_ = true;
        update_kind();
      }
      break;
    case WM_SIZE:
      if (w == SIZE_MINIMIZED) window_.minimized_by_user(true);
      if (w == SIZE_RESTORED && IsWindowVisible(handle_)) window_.minimized_by_user(false);
      if (w == SIZE_RESTORED) resized(LOWORD(l), HIWORD(l));
      break;
    case WM_ACTIVATE:
      if (LOWORD(w) == WA_INACTIVE && IsChild(handle_, GetFocus())) last_focus_ = GetFocus();
      break;
    case WM_SETFOCUS:
      focus_something();
      return 0;
    case WM_DPICHANGED:
      change_dpi(HIWORD(w), *reinterpret_cast<const RECT*>(l));
      return 0;
    default:
      break;
  }
  return DefWindowProcW(handle_, message, w, l);
}

void WindowPeer::press_background(POINT place) {
  if (!window_.drag_by_background()) return;
  // The mouse falls through controls that are disabled, which makes no background of them.
  const HWND under = ChildWindowFromPointEx(handle_, place, CWP_SKIPINVISIBLE);
  const ControlPeer* const control = registry_.control(under);
  if (control && !control->is_background()) return;
  const std::weak_ptr<void> still = alive_;
  POINT pointer{};
  GetCursorPos(&pointer);
  ReleaseCapture();
  // The system drags the window as if it were held by its title, and comes back at the end.
  dragging_ = true;
  SendMessageW(handle_, WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(pointer.x, pointer.y));
  if (still.expired()) return;
  dragging_ = false;
  raise(window_.on_drag_end);
}

void WindowPeer::dropped(HDROP drop) {
  POINT place{};
  DragQueryPoint(drop, &place);
  const HWND under = ChildWindowFromPointEx(handle_, place, CWP_SKIPINVISIBLE | CWP_SKIPDISABLED);
  if (auto* const list = dynamic_cast<ListBoxPeer*>(registry_.control(under))) {
    list->dropped(drop);
  } else {
    DragFinish(drop);
  }
}

void WindowPeer::focus_something() {
  HWND target = last_focus_;
  if (!target || !IsWindowVisible(target) || !IsWindowEnabled(target)) {
    target = GetNextDlgTabItem(handle_, nullptr, FALSE);
  }
  if (target && target != handle_ && IsWindowVisible(target)) SetFocus(target);
}

}  // namespace ordelan::win32
