#include "text/byte_search.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

constexpr std::size_t kOffsets = 41;
constexpr std::size_t kLengths = 71;

// Few different bytes, so that hits, near hits and long runs without one all come about. Bytes
// beyond 0x7F are among them.
std::vector<std::uint8_t> random_bytes(Dice& dice) {
  static constexpr std::uint8_t kBytes[] = {0, ':', '\\', 0x80, 0xFF, 'a', 'b', 'c'};
  const std::size_t kinds = 2 + dice.below(7);
  std::vector<std::uint8_t> bytes(kOffsets + kLengths + 1);
  for (auto& byte : bytes) byte = kBytes[dice.below(kinds)];
  return bytes;
}

template <class Hit>
const std::uint8_t* naive(const std::uint8_t* from, const std::uint8_t* end, Hit hit) {
  while (from != end && !hit(from)) ++from;
  return from;
}

// Calls `compare(from, end)` for every offset and length of many arrays.
template <class Compare>
void over_random_bytes(Compare compare) {
  Dice dice(11);
  for (int round = 0; round < 40; ++round) {
    const auto bytes = random_bytes(dice);
    for (std::size_t offset = 0; offset < kOffsets; ++offset) {
      for (std::size_t length = 0; length < kLengths; ++length) {
        const std::uint8_t* from = bytes.data() + offset;
        compare(from, from + length);
        if (::testing::Test::HasFatalFailure()) return;
      }
    }
  }
}

TEST(ByteSearch, finds_a_byte_where_a_plain_loop_finds_it) {
  for (const std::uint8_t wanted : {std::uint8_t{':'}, std::uint8_t{0}, std::uint8_t{0xFF}}) {
    over_random_bytes([&](const std::uint8_t* from, const std::uint8_t* end) {
      ASSERT_EQ(text::find_byte(from, end, wanted) - from,
                naive(from, end, [&](const std::uint8_t* p) { return *p == wanted; }) - from);
    });
  }
}

TEST(ByteSearch, finds_either_byte_where_a_plain_loop_finds_it) {
  over_random_bytes([](const std::uint8_t* from, const std::uint8_t* end) {
    const auto hit = [](const std::uint8_t* p) { return *p == 'c' || *p == 0x80; };
    ASSERT_EQ(text::find_either(from, end, 'c', 0x80) - from, naive(from, end, hit) - from);
  });
}

TEST(ByteSearch, finds_a_pair_where_a_plain_loop_finds_it) {
  over_random_bytes([](const std::uint8_t* from, const std::uint8_t* end) {
    const auto hit = [](const std::uint8_t* p) {
      return p[0] == ':' && (p[1] == '\\' || p[1] == 0);
    };
    ASSERT_EQ(text::find_pair(from, end, ':', '\\', 0) - from, naive(from, end, hit) - from);
  });
}

TEST(ByteSearch, one_hit_is_found_at_each_place_of_a_long_run) {
  for (std::size_t place = 0; place < kLengths; ++place) {
    std::vector<std::uint8_t> bytes(kLengths + 1, 'x');
    bytes[place] = ':';
    bytes[place + 1] = '\\';
    const auto* begin = bytes.data();
    const auto* end = begin + kLengths;
    const auto expected = static_cast<std::ptrdiff_t>(place);
    EXPECT_EQ(text::find_byte(begin, end, ':') - begin, expected);
    EXPECT_EQ(text::find_either(begin, end, 'q', ':') - begin, expected);
    EXPECT_EQ(text::find_either(begin, end, ':', 'q') - begin, expected);
    EXPECT_EQ(text::find_pair(begin, end, ':', 'q', '\\') - begin, expected);
    EXPECT_EQ(text::find_pair(begin, end, ':', '\\', 'q') - begin, expected);
  }
}

TEST(ByteSearch, the_second_byte_of_a_pair_may_stand_right_at_the_end) {
  const std::vector<std::uint8_t> bytes = {'a', ':', '\\', ':'};
  const auto* begin = bytes.data();
  EXPECT_EQ(text::find_pair(begin, begin + 2, ':', '\\', '\\'), begin + 1);
  EXPECT_EQ(text::find_pair(begin, begin + 1, ':', '\\', '\\'), begin + 1) << "the end: no hit";
}

TEST(ByteSearch, a_byte_right_at_the_end_is_not_found) {
  const std::vector<std::uint8_t> bytes(40, 'a');
  for (std::size_t length = 0; length < 33; ++length) {
    auto copy = bytes;
    copy[length] = ':';
    const auto* begin = copy.data();
    EXPECT_EQ(text::find_byte(begin, begin + length, ':'), begin + length);
    EXPECT_EQ(text::find_either(begin, begin + length, ':', ':'), begin + length);
  }
}

}  // namespace
}  // namespace ordelan::test
