// Finding bytes at the speed of memory, on every system alike.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ordelan::text {

// The first place in [from, end) that holds `byte`; `end` if there is none.
const std::uint8_t* find_byte(const std::uint8_t* from, const std::uint8_t* end, std::uint8_t byte);

// The first place in [from, end) that holds either byte; `end` if there is none.
const std::uint8_t* find_either(const std::uint8_t* from, const std::uint8_t* end,
                                std::uint8_t byte, std::uint8_t other);

// The first place p with p[0] == `first` and p[1] one of `second` and `third`, where p lies in
// [from, end) and p[1] may be read also at `end`. `end` if there is none.
const std::uint8_t* find_pair(const std::uint8_t* from, const std::uint8_t* end, std::uint8_t first,
                              std::uint8_t second, std::uint8_t third);

}  // namespace ordelan::text
