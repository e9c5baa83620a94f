#include "win32/peers/accessible_control.h"

#include <utility>

#include "win32/ansi_text.h"
#include "win32/peers/control_peer.h"

namespace ordelan::win32 {
namespace {

// Not in the headers of all compilers yet.
constexpr DWORD kLiveRegionChanged = 0x8019;

constexpr UINT_PTR kTimer = 0x4F524C;  // none that the system's controls have
constexpr UINT kPause = 1000;          // milliseconds

void read_out(HWND control) {
  if (!IsWindowVisible(control)) return;
  NotifyWinEvent(kLiveRegionChanged, control, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace

LONG AccessibleControl::role(LONG) const {
  return peer().face().value_or(Face()).role;
}
std::wstring AccessibleControl::name(LONG) const {
  return peer().face().value_or(Face()).name;
}
std::wstring AccessibleControl::value(LONG) const {
  return peer().face().value_or(Face()).value;
}
std::wstring AccessibleControl::action(LONG) const {
  return peer().face().value_or(Face()).action;
}
LONG AccessibleControl::state(LONG) const {
  return state_of_window() | peer().face().value_or(Face()).state;
}

std::wstring AccessibleControl::description(LONG part) const {
  std::wstring tip = widen(peer().control().tip());
  return tip == name(part) ? std::wstring() : tip;
}

bool AccessibleControl::take_value(const std::wstring& value) {
  return peer().take_value(value);
}

void LiveText::changed(HWND control) {
  if (waiting_) {
    due_ = true;
    return;
  }
  waiting_ = SetTimer(control, kTimer, kPause, nullptr) != 0;
  read_out(control);
}

bool LiveText::ticked(HWND control, WPARAM timer) {
  if (timer != kTimer) return false;
  if (std::exchange(due_, false)) {
    read_out(control);
  } else {
    KillTimer(control, kTimer);
    waiting_ = false;
  }
  return true;
}

}  // namespace ordelan::win32
