// A control as a screen reader sees it, and the events by which a screen reader hears of it. The
// thread that uses them must have its session of the system's objects.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <oleacc.h>
#include <oleauto.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "wide_text.h"

namespace ordelan::test {

class AccessibleView {
 public:
  // Of a control of this process or another one.
  explicit AccessibleView(HWND control) {
    constexpr IID kAccessible = {
        0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
    void* object = nullptr;
    if (SUCCEEDED(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), kAccessible,
                                             &object))) {
      object_ = static_cast<IAccessible*>(object);
    }
  }
  ~AccessibleView() {
    if (object_) object_->Release();
  }
  AccessibleView(const AccessibleView&) = delete;
  AccessibleView& operator=(const AccessibleView&) = delete;

  explicit operator bool() const { return object_ != nullptr; }
  IAccessible* operator->() const { return object_; }

  static VARIANT part(LONG number) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    return value;
  }

  LONG count() const {
    LONG count = -1;
    object_->get_accChildCount(&count);
    return count;
  }
  // -1 where the call fails.
  LONG role(LONG of = 0) const {
    VARIANT value{};
    return SUCCEEDED(object_->get_accRole(part(of), &value)) && value.vt == VT_I4 ? value.lVal : -1;
  }
  LONG state(LONG of = 0) const {
    VARIANT value{};
    return SUCCEEDED(object_->get_accState(part(of), &value)) && value.vt == VT_I4 ? value.lVal
                                                                                   : -1;
  }
  bool has_state(LONG wanted, LONG of = 0) const { return (state(of) & wanted) == wanted; }
  // Texts as code-page bytes, empty where there is none.
  std::string name(LONG of = 0) const {
    BSTR text = nullptr;
    return taken(object_->get_accName(part(of), &text), text);
  }
  std::string value(LONG of = 0) const {
    BSTR text = nullptr;
    return taken(object_->get_accValue(part(of), &text), text);
  }
  std::string description(LONG of = 0) const {
    BSTR text = nullptr;
    return taken(object_->get_accDescription(part(of), &text), text);
  }
  std::string action(LONG of = 0) const {
    BSTR text = nullptr;
    return taken(object_->get_accDefaultAction(part(of), &text), text);
  }
  // Nothing where no part has it.
  std::optional<LONG> selection() const {
    VARIANT value{};
    return number(object_->get_accSelection(&value), value);
  }
  std::optional<LONG> focus() const {
    VARIANT value{};
    return number(object_->get_accFocus(&value), value);
  }
  std::optional<LONG> at(POINT place) const {
    VARIANT value{};
    return number(object_->accHitTest(place.x, place.y, &value), value);
  }
  std::optional<LONG> next(LONG direction, LONG of) const {
    VARIANT value{};
    return number(object_->accNavigate(direction, part(of), &value), value);
  }
  RECT place(LONG of = 0) const {
    RECT area{};
    LONG width = 0;
    LONG height = 0;
    object_->accLocation(&area.left, &area.top, &width, &height, part(of));
    area.right = area.left + width;
    area.bottom = area.top + height;
    return area;
  }
  HRESULT select(LONG flags, LONG of) const { return object_->accSelect(flags, part(of)); }
  HRESULT act(LONG of = 0) const { return object_->accDoDefaultAction(part(of)); }
  HRESULT set_value(const wchar_t* value) const {
    const BSTR text = SysAllocString(value);
    const HRESULT result = object_->put_accValue(part(0), text);
    SysFreeString(text);
    return result;
  }

 private:
  static std::string taken(HRESULT result, const BSTR& text) {
    std::string copy = SUCCEEDED(result) && text ? bytes({text, SysStringLen(text)}) : "";
    SysFreeString(text);
    return copy;
  }
  static std::optional<LONG> number(HRESULT result, const VARIANT& value) {
    if (FAILED(result) || value.vt != VT_I4) return std::nullopt;
    return value.lVal;
  }

  IAccessible* object_ = nullptr;
};

// The events of one control from now on, as they come to this thread while it looks at its
// messages. One at a time.
class EventLog {
 public:
  struct Event {
    DWORD event;
    LONG part;
    friend bool operator==(const Event&, const Event&) = default;
  };

  explicit EventLog(HWND control) : control_(control) {
    log_ = this;
    hook_ = SetWinEventHook(EVENT_OBJECT_CREATE, kLiveRegionChanged, nullptr, &came, 0, 0,
                            WINEVENT_OUTOFCONTEXT);
  }
  ~EventLog() {
    UnhookWinEvent(hook_);
    log_ = nullptr;
  }
  EventLog(const EventLog&) = delete;
  EventLog& operator=(const EventLog&) = delete;

  static constexpr DWORD kLiveRegionChanged = 0x8019;

  // Takes what has come.
  static void pump() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  }
  int count(DWORD event, LONG part = 0) const {
    return static_cast<int>(std::count(events_.begin(), events_.end(), Event{event, part}));
  }
  bool has(DWORD event, LONG part = 0) const { return count(event, part) > 0; }
  void clear() { events_.clear(); }

  // An event of ours comes after all that the control has reported before: true once it has.
  void send_last() const { NotifyWinEvent(EVENT_OBJECT_HELPCHANGE, control_, OBJID_CLIENT, kLast); }
  bool last_has_come() const { return has(EVENT_OBJECT_HELPCHANGE, kLast); }

 private:
  static void CALLBACK came(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG part, DWORD,
                            DWORD) {
    if (log_ && window == log_->control_ && object == OBJID_CLIENT) {
      log_->events_.push_back({event, part});
    }
  }

  static constexpr LONG kLast = 1000000;

  inline static EventLog* log_ = nullptr;
  HWND control_;
  HWINEVENTHOOK hook_ = nullptr;
  std::vector<Event> events_;
};

}  // namespace ordelan::test
