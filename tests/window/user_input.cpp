#include "window/user_input.h"

#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "window/wait.h"

namespace ordelan::test {
namespace {

void send(std::vector<INPUT> events) {
  const auto count = static_cast<UINT>(events.size());
  if (SendInput(count, events.data(), sizeof(INPUT)) != count) {
    throw std::runtime_error("the system took no input");
  }
}

INPUT mouse(DWORD flags, LONG x = 0, LONG y = 0) {
  INPUT event{};
  event.type = INPUT_MOUSE;
  event.mi.dx = x;
  event.mi.dy = y;
  event.mi.dwFlags = flags;
  return event;
}

INPUT key(WORD code, DWORD flags) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wVk = code;
  event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  event.ki.dwFlags = flags;
  return event;
}

INPUT character(wchar_t code, DWORD flags) {
  INPUT event{};
  event.type = INPUT_KEYBOARD;
  event.ki.wScan = static_cast<WORD>(code);
  event.ki.dwFlags = KEYEVENTF_UNICODE | flags;
  return event;
}

POINT pointer() {
  POINT place{};
  GetCursorPos(&place);
  return place;
}

struct LastClick {
  POINT place{-1000, -1000};
  std::chrono::steady_clock::time_point time{};
};

LastClick& last_click() {
  static LastClick last;
  return last;
}

// Lets the time run out in which another click would make a double click.
void part_from_last_click() {
  const POINT here = pointer();
  const LastClick& last = last_click();
  const bool near_it = std::abs(here.x - last.place.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                       std::abs(here.y - last.place.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
  if (!near_it) return;
  const auto free = last.time + std::chrono::milliseconds(GetDoubleClickTime() + 20);
  wait_for([&] { return std::chrono::steady_clock::now() > free; });
}

// Where the mouse was moved to last.
POINT& target() {
  static POINT place = pointer();
  return place;
}

// Moves the pointer, and presses or releases a button there if `button_flags` says so. All of it is
// one event: a busy program that still works off earlier moves takes the pointer back to them, also
// between two events that are sent together.
INPUT at(POINT place, DWORD button_flags = 0) {
  const LONG width = GetSystemMetrics(SM_CXSCREEN);
  const LONG height = GetSystemMetrics(SM_CYSCREEN);
  // The system divides again and rounds down.
  return mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | button_flags,
               (place.x * 65536 + width - 1) / width, (place.y * 65536 + height - 1) / height);
}

void click_once(MouseButton button) {
  const bool left = button == MouseButton::left;
  send({at(target(), left ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_RIGHTDOWN),
        at(target(), left ? MOUSEEVENTF_LEFTUP : MOUSEEVENTF_RIGHTUP)});
  last_click() = {pointer(), std::chrono::steady_clock::now()};
}

}  // namespace

void move_mouse(POINT place) {
  target() = place;
  // The screen's own pointer comes along, and the move is made again where it got lost: a window
  // that moves or appears makes Wine look where that pointer is.
  constexpr std::chrono::milliseconds kAgain{250};
  const bool there = wait_for([&] {
    SetCursorPos(place.x, place.y);
    send({at(place)});
    return wait_for(
        [&] {
          const POINT now = pointer();
          return std::abs(now.x - place.x) <= 1 && std::abs(now.y - place.y) <= 1;
        },
        kAgain);
  });
  if (!there) {
    const POINT now = pointer();
    throw std::runtime_error("the pointer did not come to " + std::to_string(place.x) + "," +
                             std::to_string(place.y) + " but to " + std::to_string(now.x) + "," +
                             std::to_string(now.y));
  }
}

void click_mouse(MouseButton button) {
  part_from_last_click();
  click_once(button);
}

void double_click_mouse() {
  part_from_last_click();
  click_once(MouseButton::left);
  click_once(MouseButton::left);
}

void drag_mouse(POINT from, POINT to, const std::function<bool()>& held,
                const std::function<bool()>& followed) {
  move_mouse(from);
  part_from_last_click();
  send({at(from, MOUSEEVENTF_LEFTDOWN)});
  if (!wait_for(held)) {
    send({mouse(MOUSEEVENTF_LEFTUP)});
    throw std::runtime_error("nothing took hold of the mouse");
  }
  // A few steps on the way, as a hand makes them.
  constexpr int kSteps = 5;
  for (int i = 1; i <= kSteps; ++i) {
    move_mouse({from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
  }
  wait_for(followed, std::chrono::seconds(1));
  send({at(to, MOUSEEVENTF_LEFTUP)});
}

void press_key(WORD code, bool control, bool shift, bool alt) {
  std::vector<INPUT> events;
  const auto hold = [&](bool wanted, WORD modifier, DWORD flags) {
    if (wanted) events.push_back(key(modifier, flags));
  };
  hold(control, VK_CONTROL, 0);
  hold(shift, VK_SHIFT, 0);
  hold(alt, VK_MENU, 0);
  events.push_back(key(code, 0));
  events.push_back(key(code, KEYEVENTF_KEYUP));
  hold(alt, VK_MENU, KEYEVENTF_KEYUP);
  hold(shift, VK_SHIFT, KEYEVENTF_KEYUP);
  hold(control, VK_CONTROL, KEYEVENTF_KEYUP);
  send(std::move(events));
}

void type_text(const std::wstring& text) {
  std::vector<INPUT> events;
  for (const wchar_t each : text) {
    events.push_back(character(each, 0));
    events.push_back(character(each, KEYEVENTF_KEYUP));
  }
  if (!events.empty()) send(std::move(events));
}

}  // namespace ordelan::test
