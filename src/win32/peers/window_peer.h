// The real window of a ui::Window.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <memory>
#include <string>
#include <vector>

#include "ui/peer.h"
#include "ui/window.h"
#include "win32/paint/backdrop.h"
#include "win32/peers/peer_registry.h"
#include "win32/peers/tip_window.h"

namespace ordelan::win32 {

class ControlPeer;

class WindowPeer final : public ui::Peer {
 public:
  WindowPeer(PeerRegistry& registry, ui::Window& window);
  ~WindowPeer() override;
  WindowPeer(const WindowPeer&) = delete;
  WindowPeer& operator=(const WindowPeer&) = delete;

  HWND handle() const { return handle_; }
  ui::Window& window() const { return window_; }
  PeerRegistry& registry() const { return registry_; }
  TipWindow& tips() { return *tips_; }
  int dpi() const { return dpi_; }

  void changed(ui::Aspect aspect) override;

  // Shows a key to the window before the control that has the focus sees it. True when it was
  // kept from it; the window may be gone then or not.
  bool preview(const MSG& key);
  // Raises the event of a button of the mouse that is pressed anywhere on the window.
  void preview_press();

  // Paints over `area` what the window shows at `place`, in its own pixels, where no control is.
  void paint_ground(HDC context, const RECT& area, POINT place);

  // A control goes.
  void forget(ControlPeer& control);

 private:
  static LRESULT CALLBACK procedure(HWND handle, UINT message, WPARAM w, LPARAM l) noexcept;
  LRESULT process(UINT message, WPARAM w, LPARAM l);
  void press_background(POINT place);
  void dropped(HDROP drop);
  void moved();
  void change_dpi(int dpi, const RECT& suggested);
  void focus_something();

  bool is_tool() const;
  DWORD style() const;
  DWORD extended_style() const;
  void place();
  void bring_onto_a_screen();
  void show();
  void update_order();
  void update_state();
  void update_shape();
  int fitting_dpi() const;
  RECT outer_area(ui::Size size, int dpi) const;
  void show_new_size();
  LRESULT part_at(POINT place) const;
  void limit_size(MINMAXINFO& limits) const;
  void resized(int width, int height);
  void rescale();
  void update_kind();
  void update_border();

  PeerRegistry& registry_;
  ui::Window& window_;
  HWND handle_ = nullptr;
  std::wstring name_;
  std::unique_ptr<TipWindow> tips_;
  Backdrop backdrop_;
  HWND last_focus_ = nullptr;  // the control that had the focus when the window lost it
  int screen_dpi_ = 96;        // of the screen that it is on
  int dpi_ = 96;               // at which it is shown
  bool placing_ = false;       // a move of the program's, not the user's
  bool dragging_ = false;      // by the background
  bool topmost_ = false;
  bool was_minimized_ = false;
  std::shared_ptr<void> alive_ = std::make_shared<char>();
};

}  // namespace ordelan::win32
