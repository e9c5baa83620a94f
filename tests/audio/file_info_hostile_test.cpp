#include <gtest/gtest.h>

#include <cstdlib>

#include "audio/info_agreement.h"

namespace ordelan::test {
namespace {

// How many inputs are tried; a long run sets the variable.
std::uint64_t info_inputs() {
  const char* wished = std::getenv("ORDELAN_INFO_INPUTS");
  return wished == nullptr ? 20'000 : std::strtoull(wished, nullptr, 10);
}

TEST(FileInfoHostile, texts_are_those_of_the_literal_reading_for_bytes_of_any_kind) {
  Dice dice(15);
  std::uint64_t formats = 0;
  std::uint64_t tags = 0;
  const std::uint64_t count = info_inputs();
  for (std::uint64_t i = 0; i < count; ++i) {
    const std::string file = hostile_info_file(dice);
    ASSERT_EQ(compare_info(file), "") << "input " << i;
    if (literal_wav(file).find("Canales: 0") == std::string::npos) ++formats;
    if (literal_mp3(file).find("Título: -") == std::string::npos) ++tags;
  }
  // The files must be worth comparing.
  EXPECT_GT(formats * 20, count);
  EXPECT_GT(tags * 5, count);
}

}  // namespace
}  // namespace ordelan::test
