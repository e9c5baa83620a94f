#include "win32/ansi_text.h"

#include <windows.h>

namespace ordelan::win32 {
namespace {

// Writes `text` in the system's code page. `lost` tells of characters that it could not hold.
std::string convert(std::wstring_view text, bool& lost) {
  lost = false;
  if (text.empty()) return {};
  // A system whose code page is UTF-8 takes neither the flag nor the report.
  const bool utf8 = GetACP() == CP_UTF8;
  const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
  BOOL replaced = FALSE;
  BOOL* const report = utf8 ? nullptr : &replaced;
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, flags, text.data(), length, ansi.data(), size, nullptr, report);
  lost = replaced != FALSE;
  return ansi;
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
  bool lost = false;
  std::string ansi = convert(text, lost);
  if (lost || widen(ansi) != text) return std::nullopt;
  return ansi;
}

std::string narrow_with_marks(std::wstring_view text) {
  bool lost = false;
  return convert(text, lost);
}

}  // namespace ordelan::win32
