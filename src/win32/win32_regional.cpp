#include "win32/win32_regional.h"

#include <windows.h>

namespace ordelan::win32 {

char Win32Regional::decimal_mark() {
  wchar_t mark[8] = {};
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, mark, 8);
  return length > 0 && mark[0] == L',' ? ',' : '.';
}

}  // namespace ordelan::win32
