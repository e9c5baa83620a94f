// From the value of a slider to the place of its thumb, and back. Computed exactly, and rounded
// down, also below zero.
#pragma once

#include <cstdint>
#include <optional>

namespace ordelan::ui {

// How far the thumb stands from the end that shows `min`:
// Int((value - min) / (max - min) * room), where `room` is the length of the track less that of the
// thumb; it is below zero when the thumb is the longer one. Nothing for an empty range.
std::optional<int> thumb_offset(std::int32_t value, std::int32_t min, std::int32_t max, int room);

// The value that an offset stands for: Int(offset / room * (max - min) + min). Nothing for an empty
// range, and where there is no room.
std::optional<std::int32_t> value_at(int offset, int room, std::int32_t min, std::int32_t max);

// The value of a vertical slider, whose offset is measured from the top, from what `value_at` gives
// for that: max - value, or -value where `min` is below zero.
std::int32_t inverted(std::int32_t value, std::int32_t min, std::int32_t max);

}  // namespace ordelan::ui
