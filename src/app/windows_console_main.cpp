// The console program on Windows.
#include <windows.h>

#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "app/console.h"
#include "audio/media_facts.h"
#include "win32/ansi_text.h"
#include "win32/ole_session.h"
#include "win32/ports/graph_worker.h"
#include "win32/ports/win32_clock.h"
#include "win32/ports/win32_drives.h"
#include "win32/ports/win32_file_system.h"
#include "win32/ports/win32_media.h"
#include "win32/ports/win32_regional.h"
#include "win32/ports/win32_shell.h"

namespace {

std::string utf8(const std::wstring& wide) {
  const int length = static_cast<int>(wide.size());
  std::string bytes(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length,
                                                                 nullptr, 0, nullptr, nullptr)),
                    '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()),
                      nullptr, nullptr);
  return bytes;
}

std::wstring utf16(const std::string& text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), size);
  return wide;
}

// The absolute path that an argument means, seen from the current folder. A drive alone is its
// root, whatever its current folder is.
ordelan::app::ArgumentPath absolute(const std::string& argument) {
  using ordelan::app::ArgumentPath;
  std::wstring wide = utf16(argument);
  if (wide.size() == 2 && wide[1] == L':') wide += L'\\';
  std::wstring full(32768, L'\0');
  const DWORD length =
      GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return ArgumentPath::none("no es una ruta");
  full.resize(length);
  auto path = ordelan::win32::narrow(full);
  if (!path) return ArgumentPath::none(ordelan::app::kNotInCodePage);
  return ArgumentPath::of(std::move(*path));
}

// Sleeps until there is something to do, for a moment at most, and does it: an engine works by the
// messages of its thread.
void rest() {
  constexpr DWORD kMoment = 5;
  MsgWaitForMultipleObjects(0, nullptr, FALSE, kMoment, QS_ALLINPUT);
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  using namespace ordelan;
  SetConsoleOutputCP(CP_UTF8);
  const win32::OleSession ole;
  win32::Win32FileSystem files;
  win32::Win32Clock clock;
  win32::Win32Regional regional;
  win32::Win32Drives drives;
  win32::Win32Shell shell(win32::Win32Shell::Questions::answered_no);
  std::vector<std::string> list;
  for (int i = 1; i < count; ++i) list.push_back(utf8(arguments[i]));
  const auto config = [&](const std::string& file) {
    return app::ConfigFile{files, absolute(file)};
  };
  int code = 0;
  {
    win32::Win32Media media(clock, audio::media_facts(files));
    code = app::run_console(
        list, {files, clock, regional, drives, shell, media, nullptr, config, absolute, rest},
        std::cout, std::cerr);
  }
  win32::end_process_despite_workers(code);
  return code;
}
