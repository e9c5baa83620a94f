// The tooltips of the controls of one window.
#pragma once

#include <windows.h>

#include <string>

namespace ordelan::win32 {

class DrawingTools;

// Makes a tooltip window write as large as other windows at this density, and break its lines.
void scale_tips(HWND tips, DrawingTools& tools, int dpi);

// Whether a tooltip window looks like the system's theme. It does at first; with a theme it shows
// no colours but the theme's.
void theme_tips(HWND tips, bool themed);

class TipWindow {
 public:
  // `tools` must outlive the window.
  TipWindow(HINSTANCE instance, HWND owner, DrawingTools& tools)
      : instance_(instance), owner_(owner), tools_(tools) {}
  ~TipWindow();
  TipWindow(const TipWindow&) = delete;
  TipWindow& operator=(const TipWindow&) = delete;

  // Sets the tooltip of one control; empty removes it.
  void set(HWND control, const std::wstring& text);

  // The owner is shown at this density from now on.
  void scale(int dpi);

  // Passes on a mouse message of a control; tooltips appear and vanish by these.
  void relay(HWND control, UINT message, WPARAM w, LPARAM l) const;

 private:
  bool make();

  HINSTANCE instance_;
  HWND owner_;
  DrawingTools& tools_;
  int dpi_ = 96;
  HWND window_ = nullptr;  // made when the first tooltip is needed
};

}  // namespace ordelan::win32
