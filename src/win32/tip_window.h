// The short helps that appear over the controls of one window.
#pragma once

#include <windows.h>

#include <string>

namespace ordelan::win32 {

class TipWindow {
 public:
  TipWindow(HINSTANCE instance, HWND owner) : instance_(instance), owner_(owner) {}
  ~TipWindow();
  TipWindow(const TipWindow&) = delete;
  TipWindow& operator=(const TipWindow&) = delete;

  // The help of one control; empty takes it away.
  void set(HWND control, const std::wstring& text);

  // Tells of a mouse message that a control got; helps come and go by these.
  void relay(HWND control, UINT message, WPARAM w, LPARAM l) const;

 private:
  bool make();

  HINSTANCE instance_;
  HWND owner_;
  HWND window_ = nullptr;  // made when the first help is wanted
};

}  // namespace ordelan::win32
