#include "text/numbers.h"

#include <array>
#include <cctype>
#include <charconv>
#include <cmath>

#include "text/code_page.h"

namespace ordelan::text {
namespace {

std::string with_mark(std::string digits, char decimal_mark) {
  for (char& c : digits) {
    if (c == '.') c = decimal_mark;
  }
  return digits;
}

std::string formatted(double value, std::chars_format format, int precision) {
  std::array<char, 400> buffer{};
  const auto result =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, precision);
  return {buffer.data(), result.ptr};
}

}  // namespace

std::string number(double value, char decimal_mark) {
  return with_mark(formatted(value, std::chars_format::general, 15), decimal_mark);
}

std::string fixed(double value, int decimals, char decimal_mark) {
  return with_mark(formatted(value, std::chars_format::fixed, decimals), decimal_mark);
}

double parse_number(std::string_view text, char decimal_mark) {
  std::string digits(trim_left(text));
  for (char& c : digits) {
    if (c == decimal_mark) c = '.';
  }
  // Words such as "infinito" begin with what the conversion takes for a number too.
  const auto first = digits.find_first_not_of('-');
  if (first == std::string::npos || std::isalpha(static_cast<unsigned char>(digits[first])) != 0) {
    return 0;
  }
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

std::string elapsed(double seconds, char decimal_mark) {
  if (seconds > 59) {
    const long long whole = std::llrint(seconds);
    return std::to_string(whole / 60) + " min " + std::to_string(whole % 60) + " seg";
  }
  return fixed(seconds, 2, decimal_mark) + " seg";
}

std::string format_size(double bytes, char decimal_mark) {
  constexpr double kStep = 1024;
  constexpr std::array kUnits = {" bytes", " KB", " MB", " GB"};
  std::size_t unit = 0;
  while (bytes >= kStep && unit + 1 < kUnits.size()) {
    bytes /= kStep;
    ++unit;
  }
  return fixed(bytes, 2, decimal_mark) + kUnits[unit];
}

}  // namespace ordelan::text
