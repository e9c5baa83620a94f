#include "win32/ports/sample_ring.h"

#include <gmock/gmock.h>

#include <cstring>
#include <numeric>

namespace ordelan::win32 {
namespace {

using ::testing::ElementsAre;
using ::testing::FloatNear;
using ::testing::IsEmpty;
using Bytes = std::vector<std::uint8_t>;

template <class Number>
Bytes bytes_of(std::initializer_list<Number> numbers) {
  Bytes bytes(numbers.size() * sizeof(Number));
  std::memcpy(bytes.data(), numbers.begin(), bytes.size());
  return bytes;
}

SampleFormat format(int bits, int channels = 1, bool fraction = false) {
  return {8000, channels, bits, fraction};
}

TEST(Mix, every_width_of_samples_has_its_full_range) {
  EXPECT_THAT(mix(format(8), Bytes{0, 128, 192}), ElementsAre(-1, 0, 0.5));
  EXPECT_THAT(mix(format(16), bytes_of<std::int16_t>({-32768, 0, 16384})), ElementsAre(-1, 0, 0.5));
  EXPECT_THAT(mix(format(24), Bytes{0, 0, 0x80, 0, 0, 0x40}), ElementsAre(-1, 0.5));
  EXPECT_THAT(mix(format(32), bytes_of<std::int32_t>({INT32_MIN, 1 << 30})), ElementsAre(-1, 0.5));
  EXPECT_THAT(mix(format(32, 1, true), bytes_of<float>({-0.25F, 7.0F})), ElementsAre(-0.25, 1));
  EXPECT_THAT(mix(format(64, 1, true), bytes_of<double>({-0.25, -9})), ElementsAre(-0.25, -1));
}

TEST(Mix, channels_become_one_and_what_is_left_over_is_left_out) {
  EXPECT_THAT(mix(format(16, 2), bytes_of<std::int16_t>({16384, 0, -32768, 32767, 5})),
              ElementsAre(0.25, FloatNear(0, 1e-4F)));
  EXPECT_THAT(mix(format(8, 6), Bytes{192, 192, 192, 128, 128, 128}), ElementsAre(0.25));
}

TEST(Mix, what_is_no_number_is_silence) {
  EXPECT_THAT(mix(format(32, 1, true), bytes_of<float>({NAN, INFINITY})), ElementsAre(0, 0));
}

TEST(Mix, other_formats_give_nothing) {
  EXPECT_THAT(mix({}, Bytes(64)), IsEmpty());
  EXPECT_THAT(mix(format(12), Bytes(64)), IsEmpty());
  EXPECT_THAT(mix(format(16, 0), Bytes(64)), IsEmpty());
  EXPECT_THAT(mix(format(16, 1, true), Bytes(64)), IsEmpty());
}

struct SampleRingTest : testing::Test {
  SampleRingTest() { ring.start(100); }

  // Samples that are their own numbers, a hundred a second.
  void add(int first, int count) {
    std::vector<float> samples(static_cast<std::size_t>(count));
    std::iota(samples.begin(), samples.end(), static_cast<float>(first));
    ring.add(first / 100.0, samples);
  }

  SampleRing ring;
};

TEST_F(SampleRingTest, gives_the_newest_samples_before_a_time) {
  add(0, 10);
  add(10, 10);
  EXPECT_THAT(ring.before(0.05, 3).samples, ElementsAre(2, 3, 4));
  EXPECT_THAT(ring.before(0.15, 3).samples, ElementsAre(12, 13, 14));
  EXPECT_THAT(ring.before(0.02, 5).samples, ElementsAre(0, 1));
  EXPECT_EQ(ring.before(0.05, 3).rate, 100);
}

TEST_F(SampleRingTest, has_nothing_of_times_that_it_does_not_hold) {
  EXPECT_THAT(ring.before(0.05, 3).samples, IsEmpty());
  add(100, 10);
  EXPECT_THAT(ring.before(0.5, 3).samples, IsEmpty());
  EXPECT_THAT(ring.before(2, 3).samples, IsEmpty());
  EXPECT_THAT(ring.before(1.15, 2).samples, ElementsAre(108, 109)) << "a little late";
}

TEST_F(SampleRingTest, forgets_the_oldest) {
  for (int first = 0; first < 1000; first += 50) add(first, 50);
  EXPECT_THAT(ring.before(5.95, 3).samples, IsEmpty());
  EXPECT_THAT(ring.before(6.02, 5).samples, ElementsAre(600, 601));
  EXPECT_THAT(ring.before(10, 2).samples, ElementsAre(998, 999));
}

TEST_F(SampleRingTest, keeps_the_end_of_what_is_larger_than_itself) {
  add(0, 1000);
  EXPECT_THAT(ring.before(10, 2).samples, ElementsAre(998, 999));
}

TEST_F(SampleRingTest, samples_of_another_place_take_the_place_of_those_before) {
  add(0, 10);
  add(300, 10);
  EXPECT_THAT(ring.before(0.05, 3).samples, IsEmpty());
  EXPECT_THAT(ring.before(3.05, 2).samples, ElementsAre(303, 304));
  add(5, 10);
  EXPECT_THAT(ring.before(3.05, 2).samples, IsEmpty());
  EXPECT_THAT(ring.before(0.1, 2).samples, ElementsAre(8, 9));
}

TEST_F(SampleRingTest, says_how_far_it_goes) {
  EXPECT_EQ(ring.newest(), std::nullopt);
  add(100, 10);
  EXPECT_NEAR(ring.newest().value(), 1.1, 1e-9);
  ring.clear();
  EXPECT_EQ(ring.newest(), std::nullopt);
  add(20, 10);
  EXPECT_THAT(ring.before(0.25, 2).samples, ElementsAre(23, 24));
}

TEST_F(SampleRingTest, a_start_forgets_all) {
  add(0, 10);
  ring.start(100);
  EXPECT_THAT(ring.before(0.05, 3).samples, IsEmpty());
  ring.start(0);
  add(0, 10);
  EXPECT_THAT(ring.before(0.05, 3).samples, IsEmpty());
}

}  // namespace
}  // namespace ordelan::win32
