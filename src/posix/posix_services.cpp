#include "posix/posix_services.h"

#include <langinfo.h>
#include <locale.h>

#include <array>
#include <ctime>

namespace ordelan::posix {

char EnvironmentRegional::decimal_mark() {
  const locale_t environment = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (environment == nullptr) return '.';
  const char mark = *::nl_langinfo_l(RADIXCHAR, environment);
  ::freelocale(environment);
  return mark == ',' ? ',' : '.';
}

namespace {

// This moment in a form of the environment's locale; ISO forms where it names none.
std::string moment(const char* format) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  const locale_t environment = ::newlocale(LC_TIME_MASK, "", nullptr);
  std::array<char, 64> text{};
  const std::size_t size =
      environment == nullptr ? std::strftime(text.data(), text.size(), format, &local)
                             : ::strftime_l(text.data(), text.size(), format, &local, environment);
  if (environment != nullptr) ::freelocale(environment);
  return {text.data(), size};
}

}  // namespace

std::string EnvironmentRegional::short_date() {
  return moment("%x");
}

std::string EnvironmentRegional::long_time() {
  return moment("%X");
}

}  // namespace ordelan::posix
