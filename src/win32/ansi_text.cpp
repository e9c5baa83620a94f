#include "win32/ansi_text.h"

#include <windows.h>

#include <algorithm>

namespace ordelan::win32 {
namespace {

// Puts `text` into `ansi` in the system's code page. False if there are characters that it could
// not hold.
bool convert(std::wstring_view text, std::string& ansi) {
  ansi.clear();
  if (text.empty()) return true;
  // A system whose code page is UTF-8 takes neither the flag nor the report.
  const bool utf8 = GetACP() == CP_UTF8;
  const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL replaced = FALSE;
  BOOL* const report = utf8 ? nullptr : &replaced;
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  ansi.resize(static_cast<std::size_t>(size));
  WideCharToMultiByte(CP_ACP, flags, text.data(), length, ansi.data(), size, nullptr, report);
  return replaced == FALSE;
}

}  // namespace

std::wstring widen(std::string_view ansi) {
  if (ansi.empty()) return {};
  const int length = static_cast<int>(ansi.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, text.data(), size);
  return text;
}

std::optional<std::string> narrow(std::wstring_view text) {
  std::string ansi;
  if (!narrow(text, ansi)) return std::nullopt;
  return ansi;
}

bool narrow(std::wstring_view text, std::string& ansi) {
  // Most names are plain, and those are the same bytes in every code page that Windows takes.
  constexpr wchar_t kFirstOther = 0x80;
  if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < kFirstOther; })) {
    ansi.resize(text.size());
    std::transform(text.begin(), text.end(), ansi.begin(),
                   [](wchar_t c) { return static_cast<char>(c); });
    return true;
  }
  return convert(text, ansi) && widen(ansi) == text;
}

std::string narrow_with_marks(std::wstring_view text) {
  std::string ansi;
  convert(text, ansi);
  return ansi;
}

}  // namespace ordelan::win32
