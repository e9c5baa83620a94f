// The code-page texts of the tests, as Windows takes and gives them.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ordelan::test {

inline std::wstring wide(std::string_view text) {
  std::wstring result(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()),
                                         result.data(), static_cast<int>(result.size()));
  result.resize(static_cast<std::size_t>(length));
  return result;
}

inline std::string bytes(std::wstring_view text) {
  const int given = static_cast<int>(text.size());
  const int length =
      WideCharToMultiByte(CP_ACP, 0, text.data(), given, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<std::size_t>(length), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), given, result.data(), length, nullptr, nullptr);
  return result;
}

// An environment variable; empty if there is none.
inline std::wstring environment(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

}  // namespace ordelan::test
