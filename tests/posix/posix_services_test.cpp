#include "posix/posix_services.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cmath>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <utility>

namespace ordelan::test {
namespace {

// Sets an environment variable for as long as it lives.
class Environment {
 public:
  Environment(const char* name, const char* value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    ::setenv(name, value, 1);
  }
  ~Environment() {
    if (before_) {
      ::setenv(name_, before_->c_str(), 1);
    } else {
      ::unsetenv(name_);
    }
  }
  Environment(const Environment&) = delete;
  Environment& operator=(const Environment&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

TEST(EnvironmentRegional, the_plain_locale_has_a_point) {
  const Environment plain("LC_ALL", "C");
  EXPECT_EQ(posix::EnvironmentRegional().decimal_mark(), '.');
}

TEST(EnvironmentRegional, a_missing_locale_has_a_point) {
  const Environment unknown("LC_ALL", "xx_XX.nothing");
  EXPECT_EQ(posix::EnvironmentRegional().decimal_mark(), '.');
}

TEST(EnvironmentRegional, a_spanish_system_has_a_comma) {
  const locale_t spanish = ::newlocale(LC_NUMERIC_MASK, "es_ES.UTF-8", nullptr);
  if (spanish == nullptr) GTEST_SKIP() << "this system has no Spanish locale";
  ::freelocale(spanish);
  const Environment in_spain("LC_ALL", "es_ES.UTF-8");
  EXPECT_EQ(posix::EnvironmentRegional().decimal_mark(), ',');
}

// What strftime makes of this moment. The minute may pass between two looks: so it takes one of
// two.
std::pair<std::string, std::string> around(const char* format, const std::function<void()>& look) {
  const auto now = [&] {
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&moment, &local);
    char text[64] = {};
    std::strftime(text, sizeof text, format, &local);
    return std::string(text);
  };
  std::string before = now();
  look();
  return {std::move(before), now()};
}

TEST(EnvironmentRegional, dates_and_times_are_the_short_ones_of_the_locale) {
  for (const char* locale : {"C", "C.UTF-8", "xx_XX.nothing"}) {
    const Environment environment("LC_ALL", locale);
    posix::EnvironmentRegional regional;
    std::string text;
    auto [before, after] = around("%H:%M", [&] { text = regional.short_time(); });
    EXPECT_TRUE(text == before || text == after) << locale << " " << text;
    std::tie(before, after) = around("%m/%d/%y", [&] { text = regional.short_date(); });
    EXPECT_TRUE(text == before || text == after) << locale << " " << text;
  }
}

TEST(EnvironmentRegional, a_moment_is_written_with_its_date_and_its_time) {
  const Environment environment("LC_ALL", "C");
  posix::EnvironmentRegional regional;
  EXPECT_EQ(regional.date_and_time(45658.5 + 7.0 / 86400), "01/01/25 12:00:07");
  EXPECT_EQ(regional.date_and_time(1), "12/31/99 00:00:00") << "of the year 1899";
  EXPECT_EQ(regional.date_and_time(std::nan("")), "");
  EXPECT_EQ(regional.date_and_time(1e9), "");
}

TEST(EnvironmentRegional, the_short_time_is_the_locales_own_without_seconds) {
  using posix::without_seconds;
  EXPECT_EQ(without_seconds("%H:%M:%S", ""), "%H:%M");
  EXPECT_EQ(without_seconds("%T", ""), "%H:%M");
  EXPECT_EQ(without_seconds("%k.%M.%S", ""), "%k.%M");
  EXPECT_EQ(without_seconds("%r", "%I:%M:%S %p"), "%I:%M %p");
  EXPECT_EQ(without_seconds("%r", ""), "%I:%M %p");
  EXPECT_EQ(without_seconds("%l:%M:%S %P", ""), "%l:%M %P");
  EXPECT_EQ(without_seconds("%H:%M:%OS", ""), "%H:%M");
  EXPECT_EQ(without_seconds("%H:%M", ""), "%H:%M");
}

TEST(SteadyClock, never_goes_back) {
  posix::SteadyClock clock;
  const auto first = clock.now();
  EXPECT_GE(clock.now(), first);
}

}  // namespace
}  // namespace ordelan::test
