// The system's dialogs that the program puts up: choosing files, and message boxes.
#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <shlobj.h>

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

// The tree of a folder dialog; null in a dialog of another kind.
HWND folder_tree(HWND dialog) {
  HWND tree = nullptr;
  EnumChildWindows(
      dialog,
      [](HWND each, LPARAM l) -> BOOL {
        wchar_t name[32] = {};
        GetClassNameW(each, name, 32);
        if (std::wstring(name) != WC_TREEVIEWW) return TRUE;
        *reinterpret_cast<HWND*>(l) = each;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&tree));
  return tree;
}

// Bytes in the memory of another process, for messages that carry the address of some.
class RemoteMemory {
 public:
  RemoteMemory(HANDLE process, const void* bytes, std::size_t size)
      : process_(process),
        place_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {
    if (!place_ || !WriteProcessMemory(process_, place_, bytes, size, nullptr)) {
      throw std::runtime_error("no memory in the program");
    }
  }
  ~RemoteMemory() { VirtualFreeEx(process_, place_, 0, MEM_RELEASE); }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;
  void* place() const { return place_; }
  void read(void* bytes, std::size_t size) const {
    ReadProcessMemory(process_, place_, bytes, size, nullptr);
  }

 private:
  HANDLE process_;
  void* place_;
};

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

HWND Program::folder_dialog() const {
  const HWND up = dialog(false);
  return up && folder_tree(up) ? up : nullptr;
}

// The name of the folder on which the dialog's tree stands.
std::wstring Program::folder_chosen(HWND dialog) const {
  const HWND tree = folder_tree(dialog);
  if (!tree) return {};
  wchar_t name[MAX_PATH] = {};
  const RemoteMemory text(process_.hProcess, name, sizeof name);
  TVITEMW item{};
  item.mask = TVIF_TEXT;
  item.hItem = reinterpret_cast<HTREEITEM>(send(tree, TVM_GETNEXTITEM, TVGN_CARET));
  item.pszText = static_cast<wchar_t*>(text.place());
  item.cchTextMax = MAX_PATH - 1;
  const RemoteMemory asked(process_.hProcess, &item, sizeof item);
  if (!send(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(asked.place()))) return {};
  text.read(name, sizeof name - sizeof(wchar_t));
  return name;
}

void Program::pick_folder(const std::string& path) {
  HWND up = nullptr;
  wait_until("the folder dialog", [&] { return (up = folder_dialog()) != nullptr; });
  const std::wstring folder = wide(path);
  const RemoteMemory text(process_.hProcess, folder.c_str(), (folder.size() + 1) * sizeof(wchar_t));
  // Until the dialog has filled its tree, it does not listen.
  wait_until("the folder in the dialog", [&] {
    if (folder_chosen(up) == folder.substr(folder_of(folder).size())) return true;
    send(up, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(text.place()));
    return false;
  });
  PostMessageW(up, WM_COMMAND, IDOK, 0);
  wait_until("the end of the folder dialog", [&] { return !IsWindow(up); });
}

void Program::cancel_folder_dialog() {
  HWND up = nullptr;
  wait_until("the folder dialog", [&] { return (up = folder_dialog()) != nullptr; });
  wait_until("the end of the folder dialog", [&] {
    PostMessageW(up, WM_COMMAND, IDCANCEL, 0);
    return wait_for([&] { return !IsWindow(up); }, std::chrono::milliseconds(500));
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
