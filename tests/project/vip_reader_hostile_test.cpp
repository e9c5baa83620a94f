#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "project/vip_reader_agreement.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

// How many files are tried; a long run sets the variable.
std::uint64_t rounds(std::uint64_t usual) {
  const char* wished = std::getenv("ORDELAN_HOSTILE_ROUNDS");
  return wished == nullptr ? usual : std::strtoull(wished, nullptr, 10);
}

std::string printable(const std::string& bytes) {
  std::string shown;
  for (const char c : bytes) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F) {
      shown += c;
    } else {
      shown += std::string("<") + kDigits[byte >> 4] + kDigits[byte & 15] + ">";
    }
  }
  return shown;
}

void expect_agreement(std::size_t block, std::uint64_t seed, std::uint64_t files) {
  Agreement agreement(block);
  Dice dice(seed);
  std::uint64_t with_rows = 0;
  for (std::uint64_t i = 0; i < files; ++i) {
    const std::string file = hostile_project(dice);
    const std::string difference = agreement.compare(file);
    ASSERT_EQ(difference, "") << "file " << i << " of seed " << seed << ", blocks of " << block
                              << ": " << printable(file);
    LiteralReader literal;
    with_rows += literal.ExtraerNombres_Archivos(file, "", true).found ? 1 : 0;
  }
  std::cout << files << " files, " << with_rows << " of them with rows\n";
  // The files must be worth comparing.
  EXPECT_GT(with_rows * 20, files);
}

TEST(VipReaderHostile, agrees_with_the_literal_reader_on_whole_blocks) {
  expect_agreement(project::FileWindow::kBlock, 1, rounds(60'000));
}

TEST(VipReaderHostile, agrees_with_the_literal_reader_when_blocks_cut_everything) {
  expect_agreement(1, 2, rounds(20'000));
  expect_agreement(7, 3, rounds(20'000));
  expect_agreement(13, 4, rounds(20'000));
}

}  // namespace
}  // namespace ordelan::test
