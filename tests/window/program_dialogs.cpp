// The system's dialogs that the program puts up: choosing files, and message boxes.
#include <windows.h>

#include <commdlg.h>

#include <stdexcept>

#include "wide_text.h"
#include "window/program.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

constexpr int kNameCombo = 0x47c;  // of the file dialog, with an edit box in it
constexpr int kNameEdit = 0x480;   // the edit box of dialogs that remember no names
constexpr int kMessageText = 0xFFFF;

// Where a file dialog takes its names; null in a dialog of another kind.
HWND name_box(HWND dialog) {
  HWND box = GetDlgItem(dialog, kNameCombo);
  if (box) {
    if (const HWND combo = FindWindowExW(box, nullptr, L"ComboBox", nullptr)) box = combo;
    const HWND edit = FindWindowExW(box, nullptr, L"Edit", nullptr);
    if (edit) return edit;
  }
  return GetDlgItem(dialog, kNameEdit);
}

struct DialogSearch {
  DWORD process;
  bool with_file_name;
  HWND found;
};

BOOL CALLBACK look(HWND window, LPARAM l) {
  auto& search = *reinterpret_cast<DialogSearch*>(l);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  wchar_t name[16] = {};
  GetClassNameW(window, name, 16);
  if (process != search.process || std::wstring(name) != L"#32770" || !IsWindowVisible(window) ||
      (name_box(window) != nullptr) != search.with_file_name) {
    return TRUE;
  }
  search.found = window;
  return FALSE;
}

std::wstring folder_of(const std::wstring& path) {
  return path.substr(0, path.rfind(L'\\') + 1);
}

}  // namespace

HWND Program::dialog(bool with_file_name) const {
  DialogSearch search{process_.dwProcessId, with_file_name, nullptr};
  EnumWindows(look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool Program::file_dialog_shown() const {
  return dialog(true) != nullptr;
}
bool Program::message_shown() const {
  return dialog(false) != nullptr;
}

// The folder that the file dialog stands in. It writes it into memory of its own process.
std::wstring Program::folder_shown(HWND dialog) const {
  wchar_t folder[MAX_PATH] = {};
  void* const memory =
      VirtualAllocEx(process_.hProcess, nullptr, sizeof folder, MEM_COMMIT, PAGE_READWRITE);
  send(dialog, CDM_GETFOLDERPATH, MAX_PATH, reinterpret_cast<LPARAM>(memory));
  ReadProcessMemory(process_.hProcess, memory, folder, sizeof folder - sizeof(wchar_t), nullptr);
  VirtualFreeEx(process_.hProcess, memory, 0, MEM_RELEASE);
  return folder;
}

// Puts names into the file dialog and presses its button. The dialog loses its names while
// it still fills itself, so that they are checked before the button is pressed.
void Program::accept(HWND dialog, const std::wstring& names) const {
  const auto ask = [](HWND box, UINT message, WPARAM w, const wchar_t* text) {
    DWORD_PTR ignored = 0;
    return SendMessageTimeoutW(box, message, w, reinterpret_cast<LPARAM>(text), SMTO_NORMAL, 1000,
                               &ignored) != 0;
  };
  wait_until("the names in the file dialog", [&] {
    if (!IsWindow(dialog)) return true;  // an earlier press was heard after all
    const HWND box = name_box(dialog);
    if (!box || !ask(box, WM_SETTEXT, 0, names.c_str())) return false;
    Sleep(20);
    std::wstring shown(names.size() + 2, L'\0');
    return ask(box, WM_GETTEXT, shown.size(), shown.data()) && shown.c_str() == names;
  });
  PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

void Program::pick_files(const std::vector<std::string>& paths) {
  if (paths.empty()) throw std::invalid_argument("no files to pick");
  HWND up = nullptr;
  wait_until("the file dialog", [&] { return (up = dialog(true)) != nullptr; });
  std::wstring names = wide(paths.front());
  if (paths.size() > 1) {
    const std::wstring folder = folder_of(names);
    accept(up, folder);
    wait_until("the dialog in the folder",
               [&] { return lstrcmpiW((folder_shown(up) + L"\\").c_str(), folder.c_str()) == 0; });
    names.clear();
    for (const std::string& path : paths) {
      const std::wstring each = wide(path);
      if (folder_of(each) != folder) throw std::invalid_argument("files of several folders");
      names += (names.empty() ? L"\"" : L" \"") + each.substr(folder.size()) + L"\"";
    }
  }
  accept(up, names);
  // A press that comes while the dialog is still busy is lost: it is pressed until it is gone.
  wait_until("the end of the file dialog", [&] {
    if (!IsWindow(up) || !IsWindowVisible(up)) return true;
    if (wait_for([&] { return !IsWindow(up); }, std::chrono::milliseconds(500))) return true;
    accept(up, names);
    return false;
  });
}

void Program::name_file(const std::string& path) {
  HWND up = nullptr;
  wait_until("the file dialog", [&] { return (up = dialog(true)) != nullptr; });
  accept(up, wide(path));
}

void Program::cancel_file_dialog() {
  HWND up = nullptr;
  wait_until("the file dialog", [&] { return (up = dialog(true)) != nullptr; });
  wait_until("the end of the file dialog", [&] {
    PostMessageW(up, WM_COMMAND, IDCANCEL, 0);
    return wait_for([&] { return !IsWindow(up); }, std::chrono::milliseconds(500));
  });
}

MessageShown Program::wait_for_message() const {
  MessageShown shown;
  wait_until("a message box", [&] { return (shown.handle = dialog(false)) != nullptr; });
  shown.title = text_of(shown.handle);
  if (const HWND text = GetDlgItem(shown.handle, kMessageText)) shown.text = text_of(text);
  return shown;
}

MessageShown Program::answer_message(int button) {
  const MessageShown shown = wait_for_message();
  if (!GetDlgItem(shown.handle, button)) {
    throw std::runtime_error("the message box has no such button: " + shown.text);
  }
  PostMessageW(shown.handle, WM_COMMAND, static_cast<WPARAM>(button), 0);
  wait_until("the end of the message box", [&] { return !IsWindow(shown.handle); });
  return shown;
}

}  // namespace ordelan::test
