#include "win32/win32_dialogs.h"

#include <windows.h>

#include <commdlg.h>

#include <algorithm>

#include "win32/ansi_text.h"
#include "win32/win32_backend.h"

namespace ordelan::win32 {
namespace {

// Room for a thousand long paths at once.
constexpr std::size_t kNameRoom = 1024 * 1024;

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
      return MB_YESNO;
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

}  // namespace

std::vector<std::string> Win32Dialogs::open_files(const system::OpenRequest& request) {
  const std::wstring filter = filter_of(request.filter);
  std::vector<wchar_t> buffer(kNameRoom, L'\0');
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = backend_.owner();
  dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  // The current folder stays as it is: a program that sits in a folder keeps it from being moved
  // or removed.
  dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY |
                 OFN_NOCHANGEDIR | OFN_ENABLESIZING;
  if (request.several) dialog.Flags |= OFN_ALLOWMULTISELECT;
  if (!GetOpenFileNameW(&dialog)) return {};
  return paths_in(buffer.data());
}

system::Answer Win32Dialogs::message(const system::Message& message) {
  const int button =
      MessageBoxW(backend_.owner(), widen(message.text).c_str(), widen(message.title).c_str(),
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

}  // namespace ordelan::win32
