#include "text/recent.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_map>

namespace ordelan::test {
namespace {

using Table = std::unordered_map<std::string, int>;

TEST(Recent, finds_an_entry_only_by_its_whole_text) {
  Table table;
  text::Recent<Table::value_type> recent;
  EXPECT_EQ(recent.find("D:\\a\\"), nullptr);
  auto& entry = *table.try_emplace("D:\\a\\", 1).first;
  recent.put(entry);
  EXPECT_EQ(recent.find("D:\\a\\"), &entry);
  EXPECT_EQ(recent.find("E:\\a\\"), nullptr) << "the same length and last letter";
  EXPECT_EQ(recent.find("D:\\A\\"), nullptr);
  EXPECT_EQ(recent.find(""), nullptr);
}

TEST(Recent, takes_texts_of_any_length) {
  Table table;
  text::Recent<Table::value_type> recent;
  for (const char* text : {"", "a", "ab", "\xFF\xFE\\"}) {
    auto& entry = *table.try_emplace(text, 1).first;
    recent.put(entry);
    EXPECT_EQ(recent.find(text), &entry);
  }
}

TEST(Recent, of_many_entries_finds_the_last_ones_and_never_a_wrong_one) {
  Table table;
  text::Recent<Table::value_type> recent;
  for (int i = 0; i < 1000; ++i) {
    auto& entry = *table.try_emplace("D:\\" + std::to_string(i) + "\\", i).first;
    recent.put(entry);
    EXPECT_EQ(recent.find(entry.first), &entry);
  }
  int found = 0;
  for (auto& entry : table) {
    const auto* const hit = recent.find(entry.first);
    EXPECT_TRUE(hit == nullptr || hit == &entry);
    found += hit != nullptr;
  }
  EXPECT_GT(found, 1);
}

TEST(Recent, forgets) {
  Table table;
  text::Recent<Table::value_type> recent;
  recent.put(*table.try_emplace("D:\\a\\", 1).first);
  recent.forget();
  EXPECT_EQ(recent.find("D:\\a\\"), nullptr);
}

}  // namespace
}  // namespace ordelan::test
