#include "text/row_table.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "support/hostile_bytes.h"

namespace ordelan::text {
namespace {

struct Rows {
  std::vector<std::string> rows;
  std::string_view operator()(RowTable::Row row) const { return rows[row]; }
};

TEST(RowTable, an_empty_one_finds_nothing) {
  const Rows none;
  const RowTable table(0);
  EXPECT_EQ(table.find("", none), RowTable::kNone);
  EXPECT_EQ(table.find("a.wav", none), RowTable::kNone);
}

TEST(RowTable, a_row_takes_the_place_of_one_with_the_same_text) {
  const Rows all{{"D:\\a.wav", "D:\\b.wav", "D:\\a.wav", "D:\\A.wav", ""}};
  RowTable table(all.rows.size());
  EXPECT_EQ(table.put(0, all), RowTable::kNone);
  EXPECT_EQ(table.put(1, all), RowTable::kNone);
  EXPECT_EQ(table.put(2, all), 0u);
  EXPECT_EQ(table.put(3, all), RowTable::kNone) << "case counts";
  EXPECT_EQ(table.find("D:\\a.wav", all), 2u);
  EXPECT_EQ(table.find("", all), RowTable::kNone);
  EXPECT_EQ(table.put(4, all), RowTable::kNone);
  EXPECT_EQ(table.find("", all), 4u);
}

TEST(RowTable, finds_what_a_map_finds_however_full_it_is) {
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    test::Dice dice(seed);
    Rows all;
    const std::size_t count = dice.below(200);
    const std::size_t texts = 1 + dice.below(200);
    for (std::size_t i = 0; i < count; ++i) {
      all.rows.push_back("toma " + std::to_string(dice.below(texts)));
    }
    RowTable table(count);
    std::map<std::string, RowTable::Row> literal;
    for (RowTable::Row row = 0; row < count; ++row) {
      const auto [known, is_new] = literal.try_emplace(all.rows[row], RowTable::kNone);
      ASSERT_EQ(table.put(row, all), known->second) << seed;
      known->second = row;
    }
    for (std::size_t i = 0; i < texts + 5; ++i) {
      const std::string text = "toma " + std::to_string(i);
      const auto known = literal.find(text);
      ASSERT_EQ(table.find(text, all), known == literal.end() ? RowTable::kNone : known->second);
    }
  }
}

}  // namespace
}  // namespace ordelan::text
