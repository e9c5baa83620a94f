#include "win32/ports/win32_regional.h"

#include <windows.h>

#include "win32/ansi_text.h"

namespace ordelan::win32 {

char Win32Regional::decimal_mark() {
  wchar_t mark[8] = {};
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, mark, 8);
  return length > 0 && mark[0] == L',' ? ',' : '.';
}

std::string Win32Regional::short_date() {
  wchar_t date[128] = {};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date, 128, nullptr);
  return narrow_with_marks(date);
}

std::string Win32Regional::short_time() {
  // The user's own short format; only its cut-down long one can be asked for with a flag.
  wchar_t format[81] = {};
  const bool known = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SSHORTTIME, format, 81) > 0;
  wchar_t time[128] = {};
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, known ? 0 : TIME_NOSECONDS, nullptr,
                  known ? format : nullptr, time, 128);
  return narrow_with_marks(time);
}

std::string Win32Regional::long_time() {
  wchar_t time[128] = {};
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, time, 128);
  return narrow_with_marks(time);
}

}  // namespace ordelan::win32
