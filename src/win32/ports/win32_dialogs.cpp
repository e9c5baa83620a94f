#include "win32/ports/win32_dialogs.h"

#include <windows.h>

#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <memory>
#include <type_traits>

#include "win32/ansi_text.h"
#include "win32/ports/message_room.h"

namespace ordelan::win32 {
namespace {

// Room for a thousand long paths at once.
constexpr std::size_t kNameRoom = 1024 * 1024;
constexpr std::size_t kLongestPath = 32768;

// "a|*.a" as the dialog takes it: each piece ends in a NUL, and one more NUL ends them all.
std::wstring filter_of(std::string_view filter) {
  std::wstring pieces = widen(filter);
  std::replace(pieces.begin(), pieces.end(), L'|', L'\0');
  return pieces + L'\0' + L'\0';
}

// What the dialog leaves in its buffer: one path, or a folder and the names in it, NUL between.
std::vector<std::string> paths_in(const wchar_t* buffer) {
  std::vector<std::wstring> pieces;
  for (const wchar_t* at = buffer; *at; at += pieces.back().size() + 1) pieces.emplace_back(at);
  std::vector<std::string> paths;
  if (pieces.size() == 1) {
    if (auto path = narrow(pieces[0])) paths.push_back(*std::move(path));
    return paths;
  }
  for (std::size_t i = 1; i < pieces.size(); ++i) {
    std::wstring full = pieces[0];
    if (!full.ends_with(L'\\')) full += L'\\';
    if (auto path = narrow(full + pieces[i])) paths.push_back(*std::move(path));
  }
  return paths;
}

// What both file dialogs have in common. `filter` and `buffer` stay with the caller.
OPENFILENAMEW file_dialog(HWND owner, const std::wstring& filter, std::vector<wchar_t>& buffer) {
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.front() == L'\0' ? nullptr : filter.c_str();
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  // The current folder stays as it is: a program whose current folder it is keeps a folder from
  // being moved or removed.
  dialog.Flags =
      OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
  return dialog;
}

// "*.log" or "log" as the dialog takes it; empty for what is no extension of a name ("*.*").
std::wstring plain_extension(std::string_view extension) {
  const std::string_view plain = extension.substr(extension.rfind('.') + 1);
  return plain.find_first_of("*?") == plain.npos ? widen(plain) : std::wstring();
}

struct ShellFree {
  void operator()(ITEMIDLIST* item) const { CoTaskMemFree(item); }
};

UINT icon_of(system::Icon icon) {
  switch (icon) {
    case system::Icon::critical:
      return MB_ICONERROR;
    case system::Icon::question:
      return MB_ICONQUESTION;
    case system::Icon::exclamation:
      return MB_ICONWARNING;
    case system::Icon::information:
      return MB_ICONINFORMATION;
    case system::Icon::none:
      break;
  }
  return 0;
}

UINT buttons_of(system::Buttons buttons) {
  switch (buttons) {
    case system::Buttons::ok_cancel:
      return MB_OKCANCEL;
    case system::Buttons::yes_no:
      return MB_YESNO | MB_DEFBUTTON2;  // Enter presses the careful button
    case system::Buttons::ok:
      break;
  }
  return MB_OK;
}

system::Answer careful_answer(system::Buttons buttons) {
  switch (buttons) {
    case system::Buttons::ok_cancel:
      return system::Answer::cancel;
    case system::Buttons::yes_no:
      return system::Answer::no;
    case system::Buttons::ok:
      break;
  }
  return system::Answer::ok;
}

struct MenuEnd {
  void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<std::remove_pointer_t<HMENU>, MenuEnd>;

// Items have the numbers from 1 on.
Menu menu_of(const std::vector<system::MenuItem>& items) {
  Menu menu(CreatePopupMenu());
  UINT_PTR number = 0;
  for (const system::MenuItem& item : items) {
    ++number;
    if (item.text.empty()) {
      AppendMenuW(menu.get(), MF_SEPARATOR, number, nullptr);
      continue;
    }
    std::wstring text;
    for (const wchar_t letter : widen(item.text)) text.append(letter == L'&' ? 2 : 1, letter);
    AppendMenuW(menu.get(),
                MF_STRING | (item.ticked ? MF_CHECKED : 0u) | (item.enabled ? 0u : MF_GRAYED),
                number, text.c_str());
  }
  return menu;
}

POINT menu_place(system::MenuPlace place, HWND owner) {
  POINT point{};
  GetCursorPos(&point);
  if (place == system::MenuPlace::pointer) return point;
  const HWND focus = GetFocus() ? GetFocus() : owner;
  RECT area{};
  if (focus == nullptr || !GetWindowRect(focus, &area)) return point;
  return {area.left, area.bottom};
}

}  // namespace

std::vector<std::string> Win32Dialogs::open_files(const system::OpenRequest& request) {
  const std::wstring filter = filter_of(request.filter);
  std::vector<wchar_t> buffer(kNameRoom, L'\0');
  OPENFILENAMEW dialog = file_dialog(owner_(), filter, buffer);
  dialog.Flags |= OFN_FILEMUSTEXIST;
  if (request.several) dialog.Flags |= OFN_ALLOWMULTISELECT;
  if (!GetOpenFileNameW(&dialog)) return {};
  return paths_in(buffer.data());
}

std::string Win32Dialogs::save_file(const system::SaveRequest& request) {
  const std::wstring filter = filter_of(request.filter);
  const std::wstring extension = plain_extension(request.extension);
  std::vector<wchar_t> buffer(kNameRoom, L'\0');
  OPENFILENAMEW dialog = file_dialog(owner_(), filter, buffer);
  dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  dialog.Flags |= OFN_OVERWRITEPROMPT;
  if (!GetSaveFileNameW(&dialog)) return {};
  return narrow(buffer.data()).value_or("");
}

std::string Win32Dialogs::pick_folder(const std::string& title) {
  const std::wstring heading = widen(title);
  wchar_t name[MAX_PATH] = {};
  BROWSEINFOW dialog{};
  dialog.hwndOwner = owner_();
  dialog.pszDisplayName = name;
  dialog.lpszTitle = heading.c_str();
  dialog.ulFlags = BIF_NEWDIALOGSTYLE | BIF_RETURNONLYFSDIRS;
  const std::unique_ptr<ITEMIDLIST, ShellFree> picked(SHBrowseForFolderW(&dialog));
  std::vector<wchar_t> path(kLongestPath, L'\0');
  if (!picked || !SHGetPathFromIDListEx(picked.get(), path.data(), static_cast<DWORD>(path.size()),
                                        GPFIDL_DEFAULT)) {
    return {};
  }
  return narrow(path.data()).value_or("");
}

system::Answer Win32Dialogs::message(const system::Message& message) {
  const HWND owner = owner_();
  const std::wstring text = fitting_text(
      widen(message.text), [owner](const std::wstring& part) { return fits_screen(owner, part); });
  const int button = MessageBoxW(owner, text.c_str(), widen(message.title).c_str(),
                                 icon_of(message.icon) | buttons_of(message.buttons));
  switch (button) {
    case IDOK:
      return system::Answer::ok;
    case IDYES:
      return system::Answer::yes;
    case IDNO:
      return system::Answer::no;
    default:  // closed
      return careful_answer(message.buttons);
  }
}

std::optional<std::size_t> Win32Dialogs::menu(const std::vector<system::MenuItem>& items,
                                              system::MenuPlace place) {
  const HWND owner = owner_();
  const POINT at = menu_place(place, owner);
  const Menu menu = menu_of(items);
  const int chosen =
      TrackPopupMenuEx(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_LEFTALIGN | TPM_TOPALIGN,
                       at.x, at.y, owner, nullptr);
  return chosen > 0 ? std::optional(static_cast<std::size_t>(chosen) - 1) : std::nullopt;
}

}  // namespace ordelan::win32
