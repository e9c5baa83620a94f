#include "ui/slider_scale.h"

#include <algorithm>
#include <limits>

namespace ordelan::ui {
namespace {

// A value and a length have 32 bits: no product of two of them overflows here.
std::int64_t floor_quotient(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  const bool cut_upward = dividend % divisor != 0 && (dividend < 0) != (divisor < 0);
  return cut_upward ? quotient - 1 : quotient;
}

std::int32_t in_32_bits(std::int64_t number) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, Limits::min(), Limits::max()));
}

}  // namespace

std::optional<int> thumb_offset(std::int32_t value, std::int32_t min, std::int32_t max, int room) {
  const std::int64_t range = std::int64_t{max} - min;
  if (range == 0) return std::nullopt;
  return in_32_bits(floor_quotient((std::int64_t{value} - min) * room, range));
}

std::optional<std::int32_t> value_at(int offset, int room, std::int32_t min, std::int32_t max) {
  const std::int64_t range = std::int64_t{max} - min;
  if (range == 0 || room == 0) return std::nullopt;
  return in_32_bits(floor_quotient(offset * range, room) + min);
}

std::int32_t inverted(std::int32_t value, std::int32_t min, std::int32_t max) {
  return in_32_bits(min >= 0 ? std::int64_t{max} - value : -std::int64_t{value});
}

}  // namespace ordelan::ui
