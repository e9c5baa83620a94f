// The short helps that appear over the controls of one window.
#pragma once

#include <windows.h>

#include <string>

namespace ordelan::win32 {

class DrawingTools;

// Has a window of tips write as large as other windows at this density, and break its lines.
void scale_tips(HWND tips, DrawingTools& tools, int dpi);

// Whether a window of tips looks like the system's theme. It does at first; with a theme it shows
// no colours but the theme's.
void theme_tips(HWND tips, bool themed);

class TipWindow {
 public:
  // `tools` must live longer.
  TipWindow(HINSTANCE instance, HWND owner, DrawingTools& tools)
      : instance_(instance), owner_(owner), tools_(tools) {}
  ~TipWindow();
  TipWindow(const TipWindow&) = delete;
  TipWindow& operator=(const TipWindow&) = delete;

  // The help of one control; empty takes it away.
  void set(HWND control, const std::wstring& text);

  // The owner is shown at this density from now on.
  void scale(int dpi);

  // Tells of a mouse message that a control got; helps come and go by these.
  void relay(HWND control, UINT message, WPARAM w, LPARAM l) const;

 private:
  bool make();

  HINSTANCE instance_;
  HWND owner_;
  DrawingTools& tools_;
  int dpi_ = 96;
  HWND window_ = nullptr;  // made when the first help is wanted
};

}  // namespace ordelan::win32
