// The user's side of the driver: mouse, keys and drops.
#include <shlobj.h>

#include <algorithm>
#include <stdexcept>

#include "wide_text.h"
#include "window/program.h"
#include "window/user_input.h"
#include "window/wait.h"

namespace ordelan::test {

void Program::to_front() const {
  wait_until("the program in front", [&] {
    DWORD front = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &front);
    if (front == process_.dwProcessId) return true;
    SetForegroundWindow(window_);
    return false;
  });
}

POINT Program::centre(HWND window) const {
  RECT area{};
  GetWindowRect(window, &area);
  return {(area.left + area.right) / 2, (area.top + area.bottom) / 2};
}

// Moves the pointer onto a control once a click there would meet it.
namespace {

// The names of a window of the program, for what went wrong.
std::string property_of(HWND window) {
  std::string names;
  EnumPropsExW(
      window,
      [](HWND, LPWSTR name, HANDLE, ULONG_PTR found) -> BOOL {
        if (IS_INTRESOURCE(name)) return TRUE;
        for (const wchar_t* c = name; *c != 0; ++c) {
          *reinterpret_cast<std::string*>(found) += static_cast<char>(*c);
        }
        *reinterpret_cast<std::string*>(found) += ' ';
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&names));
  if (!names.empty()) return names;
  char kind[100] = {};
  GetClassNameA(window, kind, sizeof kind);
  return kind;
}

}  // namespace

void Program::point_at(HWND window, POINT place) const {
  to_front();
  // The window may move until it can be clicked.
  ScreenToClient(window, &place);
  const POINT in_window = place;
  const bool clickable = wait_for([&] {
    place = in_window;
    ClientToScreen(window, &place);
    return IsWindowVisible(window) && IsWindowEnabled(window) && WindowFromPoint(place) == window;
  });
  if (!clickable) {
    fail("a control that can be clicked (" + property_of(window) + ", shown " +
         std::to_string(IsWindowVisible(window)) + ", enabled " +
         std::to_string(IsWindowEnabled(window)) + ") below " +
         property_of(WindowFromPoint(place)));
  }
  move_mouse(place);
}

void Program::click(const std::string& name) {
  const HWND target = control(name);
  point_at(target, centre(target));
  click_mouse();
}

void Program::click_at(const std::string& name, POINT place) {
  const HWND target = control(name);
  ClientToScreen(target, &place);
  point_at(target, place);
  click_mouse();
}

void Program::right_click(const std::string& name) {
  const HWND target = control(name);
  point_at(target, centre(target));
  click_mouse(MouseButton::right);
}

void Program::double_click(const std::string& name) {
  const HWND target = control(name);
  point_at(target, centre(target));
  double_click_mouse();
}

void Program::hover(const std::string& name) {
  const HWND target = control(name);
  point_at(target, centre(target));
}

POINT Program::place_of_row(const std::string& list, int row) const {
  const HWND target = control(list);
  wait_until("row " + std::to_string(row) + " of " + list,
             [&] { return row >= 0 && static_cast<LRESULT>(row) < send(target, LB_GETCOUNT); });
  const auto height = static_cast<int>(send(target, LB_GETITEMHEIGHT));
  RECT client{};
  GetClientRect(target, &client);
  auto top = static_cast<int>(send(target, LB_GETTOPINDEX));
  if (row < top || (row - top + 1) * height > client.bottom) {
    send(target, LB_SETTOPINDEX, static_cast<WPARAM>(row));
    top = static_cast<int>(send(target, LB_GETTOPINDEX));
  }
  POINT place{std::min<LONG>(20, client.right / 2), (row - top) * height + height / 2};
  ClientToScreen(target, &place);
  return place;
}

void Program::click_row(const std::string& list, int row) {
  point_at(control(list), place_of_row(list, row));
  click_mouse();
}

void Program::right_click_row(const std::string& list, int row) {
  point_at(control(list), place_of_row(list, row));
  click_mouse(MouseButton::right);
}

void Program::double_click_row(const std::string& list, int row) {
  point_at(control(list), place_of_row(list, row));
  double_click_mouse();
}

void Program::hover_row(const std::string& list, int row) {
  point_at(control(list), place_of_row(list, row));
}

void Program::key(WORD code, bool with_control, bool with_shift, bool with_alt) {
  to_front();
  press_key(code, with_control, with_shift, with_alt);
}

void Program::type(const std::string& text) {
  to_front();
  type_text(wide(text));
}

void Program::drop(const std::string& name, const std::vector<std::string>& paths) {
  std::wstring names;
  for (const std::string& path : paths) names.append(wide(path)).push_back(L'\0');
  names.push_back(L'\0');
  DROPFILES head{};
  head.pFiles = sizeof head;
  head.fWide = TRUE;
  head.pt = {5, 5};
  const std::size_t size = sizeof head + names.size() * sizeof(wchar_t);
  // The list of names must lie in the program's own memory, as the shell puts it there. It goes
  // with the program.
  void* const memory =
      VirtualAllocEx(process_.hProcess, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
  if (!memory || !WriteProcessMemory(process_.hProcess, memory, &head, sizeof head, nullptr) ||
      !WriteProcessMemory(process_.hProcess, static_cast<char*>(memory) + sizeof head, names.data(),
                          names.size() * sizeof(wchar_t), nullptr)) {
    throw std::runtime_error("nothing can be dropped on the program");
  }
  const HWND target = control(name);
  if ((GetWindowLongPtrW(target, GWL_EXSTYLE) & WS_EX_ACCEPTFILES) == 0) {
    throw std::runtime_error(name + " takes no drops");
  }
  PostMessageW(target, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

}  // namespace ordelan::test
