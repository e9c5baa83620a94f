#include "window/program.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

#include "screen_picture.h"
#include "wide_text.h"
#include "window/row_reader.h"
#include "window/user_input.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

constexpr UINT kAnswerTimeout = 15000;

bool exists(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring own_folder() {
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring text = path;
  return text.substr(0, text.rfind(L'\\') + 1);
}

std::wstring program_path(const std::wstring& wanted) {
  std::wstring path = wanted.empty() ? environment(L"ORDELAN_EXE") : wanted;
  if (path.empty()) path = own_folder() + L"Ordelan.exe";
  if (!exists(path)) path = own_folder() + L"..\\src\\app\\Ordelan.exe";
  return path;
}

// The first of a family of windows for which `wanted` is true.
template <class Wanted>
struct Search {
  const Wanted& wanted;
  HWND found = nullptr;

  static BOOL CALLBACK look(HWND window, LPARAM l) {
    auto& search = *reinterpret_cast<Search*>(l);
    if (!search.wanted(window)) return TRUE;
    search.found = window;
    return FALSE;
  }
};

template <class Wanted>
HWND find_top_level(const Wanted& wanted) {
  Search<Wanted> search{wanted};
  EnumWindows(&Search<Wanted>::look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

template <class Wanted>
HWND find_child(HWND parent, const Wanted& wanted) {
  Search<Wanted> search{wanted};
  EnumChildWindows(parent, &Search<Wanted>::look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

DWORD process_of(HWND window) {
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  return id;
}

std::string test_name() {
  const auto* info = testing::UnitTest::GetInstance()->current_test_info();
  return info ? std::string(info->test_suite_name()) + "." + info->name() : "no-test";
}

}  // namespace

Program::Program(ProgramOptions options) {
  SetProcessDPIAware();  // places on the screen are pixels, for the program and for us
  const std::wstring path = program_path(options.exe);
  std::wstring command = L"\"" + path + L"\" " + options.arguments;
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  const auto begin = std::chrono::steady_clock::now();
  // Wine now and then refuses a start that succeeds a moment later.
  constexpr int kTries = 10;
  for (int tries = 1; !CreateProcessW(path.c_str(), command.data(), nullptr, nullptr, FALSE, 0,
                                      nullptr, nullptr, &startup, &process_);
       ++tries) {
    const DWORD error = GetLastError();
    if (tries < kTries) {
      Sleep(200);
      continue;
    }
    throw std::runtime_error("cannot start " + bytes(path) + ": error " + std::to_string(error));
  }
  try {
    use_window(options.main_window);
  } catch (...) {
    TerminateProcess(process_.hProcess, 1);
    throw;
  }
  start_time_ = std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now() - begin);
}

Program::~Program() {
  if (running()) {
    TerminateProcess(process_.hProcess, 1);
    WaitForSingleObject(process_.hProcess, kAnswerTimeout);
  }
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

bool Program::running() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD Program::wait_for_end() {
  if (!wait_for([&] { return !running(); })) fail("the program's end");
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

void Program::wait_until(const std::string& what, const std::function<bool()>& reached) const {
  bool gone = false;
  const bool there = wait_for([&] {
    if (reached()) return true;
    gone = !running();
    return gone;
  });
  if (gone) fail(what + " (the program has ended)");
  if (!there) fail(what);
}

void Program::fail(const std::string& what) const {
  save_screen(test_name() + "-failure");
  throw std::runtime_error("waited in vain for: " + what);
}

HWND Program::top_level(const std::string& property) const {
  const std::wstring wanted = wide(property);
  return find_top_level([&](HWND each) {
    return process_of(each) == process_.dwProcessId && IsWindowVisible(each) &&
           GetPropW(each, wanted.c_str());
  });
}

void Program::use_window(const std::string& name) {
  wait_until("the window " + name, [&] {
    const HWND found = top_level("Ordelan.Window." + name);
    if (found) window_ = found;
    return found != nullptr;
  });
}

bool Program::window_shown(const std::string& name) const {
  return top_level("Ordelan.Window." + name) != nullptr;
}

void Program::close_window() {
  PostMessageW(window_, WM_SYSCOMMAND, SC_CLOSE, 0);
}
std::string Program::title() const {
  return text_of(window_);
}

double Program::processor_seconds() const {
  FILETIME made{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(process_.hProcess, &made, &ended, &kernel, &user);
  constexpr double kTick = 1e-7;
  const auto ticks = [](const FILETIME& time) {
    return static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime;
  };
  return kTick * (ticks(kernel) + ticks(user));
}

RECT Program::place() const {
  RECT area{};
  GetWindowRect(window_, &area);
  return area;
}

bool Program::minimized() const {
  return IsIconic(window_) != FALSE;
}
void Program::restore_window() {
  PostMessageW(window_, WM_SYSCOMMAND, SC_RESTORE, 0);
}

void Program::drag_window(POINT grip, POINT by) {
  to_front();
  ClientToScreen(window_, &grip);
  const auto held = [&] {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(process_.dwThreadId, &info);
    return info.hwndMoveSize != nullptr || info.hwndCapture != nullptr;
  };
  // Let go any earlier, and the window stands where the move before the last one has brought it.
  // One at its smallest size does not follow the mouse all the way.
  const RECT from = place();
  const auto followed = [&] {
    const RECT now = place();
    return now.right - from.right == by.x && now.bottom - from.bottom == by.y;
  };
  drag_mouse(grip, {grip.x + by.x, grip.y + by.y}, held, followed);
  wait_until("the end of the drag", [&] { return !held(); });
}

RECT Program::place_of(const std::string& name) const {
  RECT area{};
  GetWindowRect(control(name), &area);
  return area;
}

HWND Program::child(const std::string& name) const {
  const std::wstring wanted = wide("Ordelan." + name);
  return find_child(window_, [&](HWND each) { return GetPropW(each, wanted.c_str()) != nullptr; });
}

HWND Program::control(const std::string& name) const {
  HWND found = nullptr;
  wait_until("the control " + name, [&] {
    found = child(name);
    return found != nullptr;
  });
  return found;
}

bool Program::has(const std::string& name) const {
  return child(name) != nullptr;
}

LRESULT Program::send(HWND window, UINT message, WPARAM w, LPARAM l) const {
  DWORD_PTR result = 0;
  if (!SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, kAnswerTimeout, &result)) {
    fail("an answer to message " + std::to_string(message));
  }
  return static_cast<LRESULT>(result);
}

std::string Program::text_of(HWND window) const {
  const auto length = static_cast<std::size_t>(send(window, WM_GETTEXTLENGTH));
  std::wstring text(length + 1, L'\0');
  const LRESULT came = send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(came));
  return bytes(text);
}

std::string Program::text(const std::string& name) const {
  return text_of(control(name));
}

bool Program::visible(const std::string& name) const {
  return IsWindowVisible(control(name)) != FALSE;
}
bool Program::enabled(const std::string& name) const {
  return IsWindowEnabled(control(name)) != FALSE;
}
bool Program::checked(const std::string& name) const {
  return send(control(name), BM_GETCHECK) == BST_CHECKED;
}
int Program::progress(const std::string& name) const {
  return static_cast<int>(send(control(name), PBM_GETPOS));
}

std::string Program::focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(process_.dwThreadId, &info);
  if (info.hwndFocus == window_ || !IsChild(window_, info.hwndFocus)) return "";
  std::wstring name;
  EnumPropsExW(
      info.hwndFocus,
      [](HWND, LPWSTR property, HANDLE, ULONG_PTR found) -> BOOL {
        constexpr std::wstring_view kPrefix = L"Ordelan.";
        // A number stands for a property that the system gave.
        if (reinterpret_cast<ULONG_PTR>(property) <= 0xFFFF) return TRUE;
        if (!std::wstring_view(property).starts_with(kPrefix)) return TRUE;
        *reinterpret_cast<std::wstring*>(found) = property + kPrefix.size();
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&name));
  return bytes(name);
}

std::vector<std::string> Program::rows(const std::string& list) const {
  const auto read = read_rows(control(list));
  if (!read) fail("the rows of " + list);
  std::vector<std::string> result;
  for (const std::wstring& row : read->rows) result.push_back(bytes(row));
  return result;
}

std::string Program::row(const std::string& list, int index) const {
  const auto read = read_rows(control(list), index);
  if (!read) fail("a row of " + list);
  return read->rows.empty() ? std::string() : bytes(read->rows.front());
}

std::size_t Program::row_count(const std::string& list) const {
  const auto read = read_rows(control(list), 0);
  if (!read) fail("the number of rows of " + list);
  return read->count;
}

int Program::selected(const std::string& list) const {
  return static_cast<int>(send(control(list), LB_GETCURSEL));
}
int Program::first_row(const std::string& list) const {
  return static_cast<int>(send(control(list), LB_GETTOPINDEX));
}

bool Program::ticked(const std::string& boxes, int row) const {
  const LRESULT state = send(control(boxes), LB_GETSEL, static_cast<WPARAM>(row));
  if (state == LB_ERR) fail("a row of " + boxes);
  return state > 0;
}

COLORREF Program::pixel(const std::string& name, POINT place) const {
  ClientToScreen(control(name), &place);
  const HDC screen = GetDC(nullptr);
  const COLORREF color = GetPixel(screen, place.x, place.y);
  ReleaseDC(nullptr, screen);
  return color;
}

void Program::picture_of_screen(const std::string& name) const {
  wait_for_still_screen();
  picture_now(name);
}

void Program::picture_now(const std::string& name) const {
  if (save_screen(name).empty()) throw std::runtime_error("the picture could not be saved");
}
void Program::picture_of_window(const std::string& name) const {
  wait_for_still_screen();
  if (save_screen(name, place()).empty()) {
    throw std::runtime_error("the picture could not be saved");
  }
}

}  // namespace ordelan::test
