#include "posix/posix_services.h"

#include <gtest/gtest.h>
#include <locale.h>

#include <cstdlib>
#include <optional>
#include <string>

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

TEST(EnvironmentRegional, a_locale_that_is_not_there_has_a_point) {
  const Environment unknown("LC_ALL", "xx_XX.nothing");
  EXPECT_EQ(posix::EnvironmentRegional().decimal_mark(), '.');
}

TEST(EnvironmentRegional, a_spanish_system_has_a_comma) {
  const locale_t spanish = ::newlocale(LC_NUMERIC_MASK, "es_ES.UTF-8", nullptr);
  if (spanish == nullptr) GTEST_SKIP() << "this system knows no Spanish";
  ::freelocale(spanish);
  const Environment in_spain("LC_ALL", "es_ES.UTF-8");
  EXPECT_EQ(posix::EnvironmentRegional().decimal_mark(), ',');
}

TEST(SteadyClock, never_goes_back) {
  posix::SteadyClock clock;
  const auto first = clock.now();
  EXPECT_GE(clock.now(), first);
}

}  // namespace
}  // namespace ordelan::test
