// The console program on Windows.
#include <windows.h>

#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/console.h"
#include "text/code_page.h"
#include "win32/ansi_text.h"
#include "win32/win32_clock.h"
#include "win32/win32_drives.h"
#include "win32/win32_file_system.h"
#include "win32/win32_regional.h"
#include "win32/win32_shell.h"

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

// The absolute path that an argument means, seen from the current folder.
std::optional<std::string> absolute(const std::string& argument) {
  const auto ansi = ordelan::text::from_utf8(argument);
  if (!ansi) return std::nullopt;
  const std::wstring wide = ordelan::win32::widen(*ansi);
  std::wstring full(32768, L'\0');
  const DWORD length =
      GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return std::nullopt;
  full.resize(length);
  return ordelan::win32::narrow(full);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  using namespace ordelan;
  SetConsoleOutputCP(CP_UTF8);
  win32::Win32FileSystem files;
  win32::Win32Clock clock;
  win32::Win32Regional regional;
  win32::Win32Drives drives;
  win32::Win32Shell shell;
  std::vector<std::string> list;
  for (int i = 1; i < count; ++i) list.push_back(utf8(arguments[i]));
  const auto settings = [&](const std::string& file) {
    const auto path = file.empty() ? std::nullopt : absolute(file);
    return path ? std::make_unique<settings::Settings>(files, regional, *path)
                : std::make_unique<settings::Settings>(files, regional);
  };
  return app::run_console(list,
                          {files, clock, regional, drives, shell, nullptr, settings, absolute},
                          std::cout, std::cerr);
}
