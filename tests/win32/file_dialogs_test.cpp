// The dialogs that ask for a place to save and for a folder, answered from inside their own loops.
#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <functional>
#include <string>

#include "ui/timer.h"
#include "win32/ansi_text.h"
#include "win32/backend_fixture.h"
#include "win32/ports/win32_dialogs.h"
#include "win32/temporary_folder.h"

namespace ordelan::test {
namespace {

class FileDialogs : public BackendTest {
 protected:
  // The box in which the name is typed, whichever look the dialog has.
  static HWND name_box(HWND dialog) {
    constexpr int kNameInList = 0x47C;
    constexpr int kName = 0x480;
    if (const HWND list = GetDlgItem(dialog, kNameInList)) {
      const HWND box = FindWindowExW(list, nullptr, L"ComboBox", nullptr);
      if (const HWND edit = FindWindowExW(box ? box : list, nullptr, L"Edit", nullptr)) return edit;
    }
    return GetDlgItem(dialog, kName);
  }

  // Runs `ask`; whatever dialog it puts up is shown to `act` again and again, until that says that
  // it is done.
  template <class Ask>
  std::string answered(Ask ask, const std::function<bool(HWND)>& act) {
    show();
    ui::Timer timer(window, "Timer1", std::chrono::milliseconds(300));
    HWND seen = nullptr;
    timer.on_tick = [&] {
      const HWND up = dialog_in_sight();
      // One that has only just come up is not yet ready for answers.
      const bool ready = up && up == seen;
      seen = up;
      if (ready && act(up)) timer.stop();
    };
    timer.attach(backend);
    timer.start();
    win32::Win32Dialogs dialogs([&] { return backend.owner(); });
    return ask(dialogs);
  }

  std::string save(const system::SaveRequest& request, const std::function<bool(HWND)>& act) {
    return answered([&](win32::Win32Dialogs& dialogs) { return dialogs.save_file(request); }, act);
  }
  std::string pick(const std::function<bool(HWND)>& act) {
    return answered([](win32::Win32Dialogs& dialogs) { return dialogs.pick_folder("Destino"); },
                    act);
  }

  std::function<bool(HWND)> typing(const std::wstring& name) {
    return [name](HWND up) {
      SendMessageW(name_box(up), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
      PostMessageW(up, WM_COMMAND, IDOK, 0);
      return true;
    };
  }
  static bool cancel(HWND up) {
    PostMessageW(up, WM_COMMAND, IDCANCEL, 0);
    return true;
  }

  TemporaryFolder folder;
};

TEST_F(FileDialogs, a_name_without_an_extension_is_given_the_one_that_was_asked_for) {
  const std::string wanted = win32::narrow(folder.path()).value() + "\\lista.log";
  EXPECT_EQ(save({"Listas|*.log", "*.log"}, typing(folder.path() + L"\\lista")), wanted);
  EXPECT_EQ(save({"Listas|*.log", "log"}, typing(folder.path() + L"\\lista")), wanted);
  EXPECT_EQ(save({"Listas|*.log", "log"}, typing(folder.path() + L"\\lista.log")), wanted);
}

TEST_F(FileDialogs, without_an_extension_to_give_the_name_stays_as_it_is) {
  EXPECT_EQ(save({"Todos|*.*", "*.*"}, typing(folder.path() + L"\\lista")),
            win32::narrow(folder.path()).value() + "\\lista");
}

TEST_F(FileDialogs, saving_that_is_cancelled_names_nothing) {
  EXPECT_EQ(save({"Listas|*.log", "log"}, &FileDialogs::cancel), "");
}

TEST_F(FileDialogs, saving_moves_the_program_to_no_other_folder) {
  wchar_t before[MAX_PATH + 1] = {};
  wchar_t after[MAX_PATH + 1] = {};
  GetCurrentDirectoryW(MAX_PATH + 1, before);
  EXPECT_NE(save({"", "log"}, typing(folder.path() + L"\\lista")), "");
  GetCurrentDirectoryW(MAX_PATH + 1, after);
  EXPECT_STREQ(before, after);
}

TEST_F(FileDialogs, an_existing_file_is_asked_about_before_it_is_named) {
  write_file(folder.path() + L"\\lista.log", "viejo");
  HWND asked = nullptr;
  HWND first = nullptr;
  const auto act = [&](HWND up) {
    if (!first) {
      first = up;
      typing(folder.path() + L"\\lista.log")(up);
      return false;
    }
    if (up == first) {  // back after the question, or still on the way to it
      if (!asked) return false;
      return cancel(up);
    }
    if (!asked) {
      asked = up;
      PostMessageW(up, WM_COMMAND, IDNO, 0);
    }
    return false;
  };
  EXPECT_EQ(save({"Listas|*.log", "log"}, act), "");
  EXPECT_NE(asked, nullptr);
}

// The folder on which the dialog's tree stands.
std::wstring chosen_folder(HWND dialog) {
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
  if (!tree) return {};
  wchar_t text[MAX_PATH] = {};
  TVITEMW item{};
  item.mask = TVIF_TEXT;
  item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
  item.pszText = text;
  item.cchTextMax = MAX_PATH;
  SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  return text;
}

TEST_F(FileDialogs, the_folder_that_is_picked_comes_with_its_whole_path) {
  make_folders(folder.path() + L"\\Destino \u00F1");
  const std::wstring wanted = folder.path() + L"\\Destino \u00F1";
  const auto act = [&](HWND up) {
    if (chosen_folder(up) == L"Destino \u00F1") {
      PostMessageW(up, WM_COMMAND, IDOK, 0);
      return true;
    }
    // Until the dialog has filled its tree, it does not listen.
    SendMessageW(up, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(wanted.c_str()));
    return false;
  };
  EXPECT_EQ(win32::widen(pick(act)), wanted);
}

TEST_F(FileDialogs, picking_that_is_cancelled_gives_no_folder) {
  EXPECT_EQ(pick(&FileDialogs::cancel), "");
}

}  // namespace
}  // namespace ordelan::test
