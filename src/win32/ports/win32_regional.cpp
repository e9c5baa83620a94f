#include "win32/ports/win32_regional.h"

#include <windows.h>

#include <cmath>
#include <optional>

#include "win32/ansi_text.h"

namespace ordelan::win32 {
namespace {

// Null for a moment means now.
std::string short_date_of(const SYSTEMTIME* moment) {
  wchar_t date[128] = {};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, moment, nullptr, date, 128, nullptr);
  return narrow_with_marks(date);
}

std::string long_time_of(const SYSTEMTIME* moment) {
  wchar_t time[128] = {};
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, moment, nullptr, time, 128);
  return narrow_with_marks(time);
}

std::optional<SYSTEMTIME> system_time(double moment) {
  constexpr double kFirstDay = 109205;  // from the first day of file times to the first of moments
  constexpr double kSecondsOfDay = 86400;
  constexpr std::uint64_t kUnitsOfSecond = 10'000'000;
  constexpr double kMost = 3e6;  // days; file times go no farther than some millions
  if (!(moment > -kFirstDay && moment < kMost)) return std::nullopt;
  const auto seconds =
      static_cast<std::uint64_t>(std::llround((moment + kFirstDay) * kSecondsOfDay));
  ULARGE_INTEGER units{};
  units.QuadPart = seconds * kUnitsOfSecond;
  const FILETIME time{units.LowPart, units.HighPart};
  SYSTEMTIME parts{};
  if (!FileTimeToSystemTime(&time, &parts)) return std::nullopt;
  return parts;
}

}  // namespace

char Win32Regional::decimal_mark() {
  wchar_t mark[8] = {};
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, mark, 8);
  return length > 0 && mark[0] == L',' ? ',' : '.';
}

std::string Win32Regional::short_date() {
  return short_date_of(nullptr);
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
  return long_time_of(nullptr);
}

std::string Win32Regional::date_and_time(double moment) {
  const auto parts = system_time(moment);
  return parts ? short_date_of(&*parts) + " " + long_time_of(&*parts) : "";
}

}  // namespace ordelan::win32
