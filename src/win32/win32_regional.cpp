#include "win32/win32_regional.h"

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

std::string Win32Regional::long_time() {
  wchar_t time[128] = {};
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, nullptr, time, 128);
  return narrow_with_marks(time);
}

}  // namespace ordelan::win32
