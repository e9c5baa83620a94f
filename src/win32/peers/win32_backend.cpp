#include "win32/peers/win32_backend.h"

#include <commctrl.h>

#include <algorithm>
#include <chrono>

#include "win32/paint/screen_scale.h"
#include "win32/peers/balloon_peer.h"
#include "win32/peers/bar_chart_peer.h"
#include "win32/peers/button_peer.h"
#include "win32/peers/check_box_peer.h"
#include "win32/peers/check_list_box_peer.h"
#include "win32/peers/image_peer.h"
#include "win32/peers/label_peer.h"
#include "win32/peers/list_box_peer.h"
#include "win32/peers/progress_bar_peer.h"
#include "win32/peers/slider_peer.h"
#include "win32/peers/text_box_peer.h"
#include "win32/peers/timer_peer.h"
#include "win32/peers/waveform_peer.h"
#include "win32/peers/window_peer.h"

namespace ordelan::win32 {
namespace {

constexpr std::chrono::milliseconds kLongestPump{10};
constexpr DWORD kLongestSleep = 50;  // milliseconds

bool is_dialog(HWND window) {
  wchar_t name[8] = {};
  return GetClassNameW(window, name, 8) > 0 && std::wstring_view(name) == L"#32770";
}

bool is_press(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
      return true;
    default:
      return false;
  }
}

}  // namespace

Win32Backend::Win32Backend(HINSTANCE instance) : registry_(instance) {
  INITCOMMONCONTROLSEX wanted{
      sizeof wanted, ICC_STANDARD_CLASSES | ICC_PROGRESS_CLASS | ICC_TAB_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&wanted);
  registry_.charts().on_window = [this](HWND chart) {
    if (on_chart_window) on_chart_window(chart);
  };
}

template <class PeerKind, class ControlKind>
std::unique_ptr<ui::Peer> Win32Backend::attach_control(ControlKind& control) {
  WindowPeer* const parent = registry_.window(control.window());
  if (!parent) return nullptr;
  auto peer = std::make_unique<PeerKind>(*parent, control);
  peer->appear();
  return peer;
}

std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Window& window) {
  return std::make_unique<WindowPeer>(registry_, window);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::BarChart& chart) {
  return attach_control<BarChartPeer>(chart);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Button& button) {
  return attach_control<ButtonPeer>(button);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::CheckBox& box) {
  return attach_control<CheckBoxPeer>(box);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::CheckListBox& boxes) {
  return attach_control<CheckListBoxPeer>(boxes);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Image& image) {
  return attach_control<ImagePeer>(image);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Label& label) {
  return attach_control<LabelPeer>(label);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::ListBox& list) {
  return attach_control<ListBoxPeer>(list);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::ProgressBar& bar) {
  return attach_control<ProgressBarPeer>(bar);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Slider& slider) {
  return attach_control<SliderPeer>(slider);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::TextBox& box) {
  return attach_control<TextBoxPeer>(box);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Timer& timer) {
  return std::make_unique<TimerPeer>(registry_, timer);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Waveform& wave) {
  return attach_control<WaveformPeer>(wave);
}
std::unique_ptr<ui::Peer> Win32Backend::attach(ui::Class1& balloon, ui::Window& window,
                                               ui::Control* control) {
  const WindowPeer* const peer = registry_.window(window);
  if (!peer) return nullptr;
  if (!control) return std::make_unique<BalloonPeer>(*peer, balloon, peer->handle());
  const ControlPeer* const parent = registry_.control(*control);
  return parent ? std::make_unique<BalloonPeer>(*peer, balloon, parent->handle()) : nullptr;
}

int Win32Backend::line_count(const ui::TextBox& box) {
  if (TextBoxPeer* const peer = registry_.text_box(box)) return peer->line_count();
  // Not on the screen: only its own breaks count.
  return 1 + static_cast<int>(std::count(box.text().begin(), box.text().end(), '\n'));
}

std::optional<int> Win32Backend::row_at(const ui::ListBox& list, ui::Point place) {
  const ControlPeer* const peer = registry_.control(list);
  if (!peer || !peer->handle()) return std::nullopt;
  return row_of(peer->handle(), to_pixels(place.y, peer->parent().dpi()), list.count());
}

ui::CharacterWidths Win32Backend::character_widths(const ui::Font& font) {
  return registry_.tools().character_widths(font, registry_.measure_dpi());
}

std::optional<ui::Size> Win32Backend::picture_size(const std::string& name) {
  return registry_.pictures().size(name);
}

void Win32Backend::end() {
  if (registry_.ended()) return;
  registry_.end();
  PostQuitMessage(0);
}

void Win32Backend::pump() {
  using Clock = std::chrono::steady_clock;
  if (ended()) return;
  registry_.flush();
  const auto until = Clock::now() + kLongestPump;
  MSG message{};
  while (!ended() && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // Meant for the main loop, which is on hold under the job that pumps.
      quit_ = true;
      exit_code_ = static_cast<int>(message.wParam);
      return;
    }
    dispatch(message);
    registry_.flush();
    if (Clock::now() >= until) break;
  }
  if (ended()) return;
  for (const auto& [handle, peer] : registry_.windows()) {
    RedrawWindow(handle, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }
}

void Win32Backend::wait() {
  pump();
  if (ended()) return;
  // Also for what came before and was left in the queue: the plain wait would sleep on it.
  MsgWaitForMultipleObjectsEx(0, nullptr, kLongestSleep, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
}

int Win32Backend::run() {
  MSG message{};
  while (!ended()) {
    registry_.flush();
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got == -1) continue;
    if (got == 0) {
      exit_code_ = static_cast<int>(message.wParam);
      break;
    }
    dispatch(message);
    if (between_events) between_events();
  }
  // A loop that runs after this one must not find the message that was meant for it.
  PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  return exit_code_;
}

HWND Win32Backend::owner() const {
  const HWND active = GetActiveWindow();
  if (active && registry_.window(active)) return active;
  for (const auto& [handle, peer] : registry_.windows()) {
    if (IsWindowVisible(handle)) return handle;
  }
  return nullptr;
}

void Win32Backend::dispatch(MSG& message) {
  const HWND root = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
  if (root) {
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
      WindowPeer* const window = registry_.window(root);
      if (window && window->preview(message)) return;
      if (!IsWindow(message.hwnd)) return;  // unloaded by the key
      ControlPeer* const focused = registry_.control(message.hwnd);
      if (message.wParam == VK_RETURN && focused && focused->press()) return;
    }
    if (is_press(message.message)) {
      if (WindowPeer* const window = registry_.window(root)) window->preview_press();
      if (!IsWindow(message.hwnd)) return;
    }
    // Only windows that hold controls: a dialog may be up while a job of ours pumps.
    if ((registry_.window(root) || is_dialog(root)) && IsDialogMessageW(root, &message)) return;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace ordelan::win32
