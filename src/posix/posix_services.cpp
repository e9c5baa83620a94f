#include "posix/posix_services.h"

#include <langinfo.h>
#include <locale.h>

#include <array>
#include <cmath>
#include <ctime>

#include "text/code_page.h"

namespace ordelan::posix {
namespace {

// The locale of the environment. Null where it names none that this system has.
class Locale {
 public:
  explicit Locale(int categories) : locale_(::newlocale(categories, "", nullptr)) {}
  ~Locale() {
    if (locale_ != nullptr) ::freelocale(locale_);
  }
  Locale(const Locale&) = delete;
  Locale& operator=(const Locale&) = delete;

  locale_t get() const { return locale_; }
  std::string item(nl_item which) const { return ::nl_langinfo_l(which, locale_); }

 private:
  locale_t locale_;
};

}  // namespace

char EnvironmentRegional::decimal_mark() {
  const Locale locale(LC_NUMERIC_MASK);
  return locale.get() != nullptr && locale.item(RADIXCHAR).starts_with(',') ? ',' : '.';
}

std::string without_seconds(std::string_view format, std::string_view halves) {
  constexpr std::string_view kHalves = "%I:%M:%S %p";
  std::string whole;
  for (std::size_t at = 0; at < format.size(); ++at) {
    const std::string_view two = format.substr(at, 2);
    if (two == "%T") {
      whole += "%H:%M:%S";
    } else if (two == "%r") {
      whole += halves.empty() ? kHalves : halves;
    } else {
      whole += format[at];
      continue;
    }
    ++at;
  }
  for (const std::string_view seconds : {"%S", "%OS"}) {
    const auto found = whole.find(seconds);
    if (found == std::string::npos) continue;
    // The mark between minutes and seconds goes with them.
    const bool marked =
        found > 0 && std::string_view(":. -").find(whole[found - 1]) != std::string_view::npos;
    const std::size_t from = marked ? found - 1 : found;
    whole.erase(from, found + seconds.size() - from);
  }
  return whole;
}

namespace {

// A time in that format of the locale, in the code page as far as it can hold it.
std::string written_time(const Locale& locale, const std::string& format, const std::tm& time) {
  std::array<char, 128> text{};
  const std::size_t size =
      locale.get() == nullptr
          ? std::strftime(text.data(), text.size(), format.c_str(), &time)
          : ::strftime_l(text.data(), text.size(), format.c_str(), &time, locale.get());
  const std::string written(text.data(), size);
  return text::from_utf8(written).value_or(written);
}

// This moment in that format of the locale.
std::string moment(const Locale& locale, const std::string& format) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return written_time(locale, format, local);
}

constexpr int kTimeAndLetters = LC_TIME_MASK | LC_CTYPE_MASK;

}  // namespace

std::string EnvironmentRegional::short_date() {
  return moment(Locale(kTimeAndLetters), "%x");
}

std::string EnvironmentRegional::short_time() {
  const Locale locale(kTimeAndLetters);
  if (locale.get() == nullptr) return moment(locale, "%H:%M");
  return moment(locale, without_seconds(locale.item(T_FMT), locale.item(T_FMT_AMPM)));
}

std::string EnvironmentRegional::long_time() {
  return moment(Locale(kTimeAndLetters), "%X");
}

std::string EnvironmentRegional::date_and_time(double moment) {
  constexpr double kFirstDay = 25569;  // of the system's own times
  constexpr double kSecondsOfDay = 86400;
  constexpr double kMost = 3e6;  // days, as on the other system
  if (!(std::abs(moment) < kMost)) return "";
  // The moment is local already: it only has to be taken apart.
  const auto seconds = static_cast<std::time_t>(std::llround((moment - kFirstDay) * kSecondsOfDay));
  std::tm parts{};
  if (::gmtime_r(&seconds, &parts) == nullptr) return "";
  const Locale locale(kTimeAndLetters);
  return written_time(locale, "%x", parts) + " " + written_time(locale, "%X", parts);
}

}  // namespace ordelan::posix
