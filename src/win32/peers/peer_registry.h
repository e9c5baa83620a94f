// What the windows and controls of one program share while they are shown.
#pragma once

#include <windows.h>

#include <deque>
#include <map>
#include <unordered_map>
#include <vector>

#include "win32/paint/drawing_tools.h"
#include "win32/paint/mouse_pointers.h"
#include "win32/paint/picture_store.h"
#include "win32/peers/chart_host.h"

namespace ordelan::ui {
class Control;
class TextBox;
class Window;
}  // namespace ordelan::ui

namespace ordelan::win32 {

class BalloonPeer;
class ControlPeer;
class TextBoxPeer;
class TimerPeer;
class WindowPeer;

class PeerRegistry {
 public:
  explicit PeerRegistry(HINSTANCE instance);
  ~PeerRegistry();
  PeerRegistry(const PeerRegistry&) = delete;
  PeerRegistry& operator=(const PeerRegistry&) = delete;

  HINSTANCE instance() const { return instance_; }
  DrawingTools& tools() { return tools_; }
  PictureStore& pictures() { return pictures_; }
  MousePointers& pointers() { return pointers_; }
  ChartHost& charts() { return charts_; }

  // The density at which texts are measured for the program, whichever screen a window is on.
  int measure_dpi() const { return measure_dpi_; }

  // Windows and controls enter when they are made and leave before they go. The look-ups give null
  // for what is not registered.
  void enter(WindowPeer& window);
  void leave(WindowPeer& window);
  void enter(ControlPeer& control);
  void leave(ControlPeer& control);
  void enter(const ui::TextBox& box, TextBoxPeer& peer) { text_boxes_[&box] = &peer; }
  void leave(const ui::TextBox& box) { text_boxes_.erase(&box); }
  // A balloon is notified when its window or control leaves.
  void enter(BalloonPeer& balloon) { balloons_.push_back(&balloon); }
  void leave(BalloonPeer& balloon);
  WindowPeer* window(const ui::Window& window) const;
  WindowPeer* window(HWND handle) const;
  ControlPeer* control(HWND handle) const;
  ControlPeer* control(const ui::Control& control) const;
  TextBoxPeer* text_box(const ui::TextBox& box) const;
  const std::map<HWND, WindowPeer*>& windows() const { return windows_; }

  // A control has something new to show. It is shown at the next flush, which comes by itself in
  // any loop: a thousand changes in a row cost one showing.
  void mark(ControlPeer& control);
  void flush();

  // Timers tick in any loop. Starting one again begins its interval anew.
  UINT_PTR enter(TimerPeer& timer);
  void leave(UINT_PTR timer);
  void start(UINT_PTR timer, UINT milliseconds);
  void stop(UINT_PTR timer);

  // The program has ended: windows are destroyed, and no more are shown.
  void end();
  bool ended() const { return ended_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
  void tick(UINT_PTR timer);
  void take_balloons_of(HWND parent);

  HINSTANCE instance_;
  DrawingTools tools_;
  PictureStore pictures_;
  MousePointers pointers_{pictures_};
  ChartHost charts_;
  int measure_dpi_;
  HWND messages_ = nullptr;  // a hidden window that receives timers and reminders
  std::map<HWND, WindowPeer*> windows_;
  std::unordered_map<HWND, ControlPeer*> controls_;
  std::unordered_map<const ui::TextBox*, TextBoxPeer*> text_boxes_;
  std::vector<BalloonPeer*> balloons_;
  std::map<UINT_PTR, TimerPeer*> timers_;
  UINT_PTR last_timer_ = 0;
  std::deque<ControlPeer*> marked_;
  bool reminded_ = false;
  bool ended_ = false;
};

}  // namespace ordelan::win32
