// Numbers, dates and times as the user has set Windows to write them.
#include <windows.h>

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "win32/ansi_text.h"
#include "win32/ports/win32_regional.h"

namespace ordelan::test {
namespace {

std::wstring locale_text(LCTYPE which) {
  wchar_t text[81] = {};
  EXPECT_GT(GetLocaleInfoW(LOCALE_USER_DEFAULT, which, text, 81), 0);
  return text;
}

// A regional setting of the user's, for as long as it lives.
class Setting {
 public:
  Setting(LCTYPE which, const wchar_t* value) : which_(which), before_(locale_text(which)) {
    EXPECT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, which_, value));
  }
  ~Setting() { SetLocaleInfoW(LOCALE_USER_DEFAULT, which_, before_.c_str()); }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  LCTYPE which_;
  std::wstring before_;
};

std::string two_digits(int number) {
  return std::string(number < 10 ? "0" : "") + std::to_string(number);
}

// The minute or the day may end between two looks: what is given is one of two.
template <class Text, class Look>
void expect_now(Text text, Look look) {
  SYSTEMTIME before{};
  SYSTEMTIME after{};
  GetLocalTime(&before);
  const std::string given = look();
  GetLocalTime(&after);
  EXPECT_TRUE(given == text(before) || given == text(after)) << given << " " << text(after);
}

TEST(Regional, the_decimal_mark_is_the_users) {
  win32::Win32Regional regional;
  EXPECT_EQ(static_cast<wchar_t>(regional.decimal_mark()), locale_text(LOCALE_SDECIMAL)[0]);
}

TEST(Regional, dates_are_in_the_users_short_format) {
  win32::Win32Regional regional;
  const Setting format(LOCALE_SSHORTDATE, L"yyyy.MM.dd");
  expect_now(
      [](const SYSTEMTIME& t) {
        return std::to_string(t.wYear) + "." + two_digits(t.wMonth) + "." + two_digits(t.wDay);
      },
      [&] { return regional.short_date(); });
}

TEST(Regional, a_moment_is_written_with_its_date_and_its_time) {
  win32::Win32Regional regional;
  const Setting date(LOCALE_SSHORTDATE, L"yyyy.MM.dd");
  const Setting time(LOCALE_STIMEFORMAT, L"HH-mm-ss");
  EXPECT_EQ(regional.date_and_time(45658.5 + 7.0 / 86400), "2025.01.01 12-00-07");
  EXPECT_EQ(regional.date_and_time(1), "1899.12.31 00-00-00");
  EXPECT_EQ(regional.date_and_time(std::nan("")), "");
  EXPECT_EQ(regional.date_and_time(1e9), "");
}

TEST(Regional, times_are_in_the_users_short_format_whatever_the_long_one_is) {
  win32::Win32Regional regional;
  const Setting long_format(LOCALE_STIMEFORMAT, L"HH-mm-ss");
  {
    const Setting format(LOCALE_SSHORTTIME, L"HH'h'mm");
    expect_now(
        [](const SYSTEMTIME& t) { return two_digits(t.wHour) + "h" + two_digits(t.wMinute); },
        [&] { return regional.short_time(); });
  }
  const Setting format(LOCALE_SSHORTTIME, L"H:mm");
  expect_now(
      [](const SYSTEMTIME& t) { return std::to_string(t.wHour) + ":" + two_digits(t.wMinute); },
      [&] { return regional.short_time(); });
}

}  // namespace
}  // namespace ordelan::test
