#include "system/status.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <sstream>
#include <string>

namespace ordelan::test {
namespace {

using system::Opened;
using system::Reason;
using system::Result;
using system::Status;

TEST(Status, is_true_exactly_if_the_call_went_well) {
  EXPECT_TRUE(Status());
  EXPECT_TRUE(Status(Reason::ok));
  EXPECT_FALSE(Status(Reason::in_use));
  EXPECT_EQ(Status(Reason::in_use).reason(), Reason::in_use);
  EXPECT_NE(Status(Reason::in_use), Reason::ok);
}

TEST(Status, every_reason_has_a_word_of_its_own) {
  std::set<std::string_view> words;
  const int count = static_cast<int>(Reason::other) + 1;
  for (int reason = 0; reason < count; ++reason) {
    words.insert(system::name_of(static_cast<Reason>(reason)));
  }
  EXPECT_EQ(words.size(), static_cast<std::size_t>(count));
  std::ostringstream written;
  written << Status(Reason::no_space) << " " << Reason::too_long;
  EXPECT_EQ(written.str(), "no_space too_long");
}

TEST(Opened, holds_a_file_or_the_reason_why_there_is_none) {
  Opened<const int> file = std::make_unique<const int>(5);
  ASSERT_TRUE(file);
  EXPECT_EQ(*file, 5);
  EXPECT_EQ(file.status(), Reason::ok);
  const std::unique_ptr<const int> taken = std::move(file);
  EXPECT_EQ(*taken, 5);
  const Opened<const int> none = Reason::not_found;
  EXPECT_FALSE(none);
  EXPECT_TRUE(none == nullptr);
  EXPECT_EQ(none.status(), Reason::not_found);
  EXPECT_EQ(Opened<const int>(nullptr).status(), Reason::other) << "never ok without a file";
}

TEST(Result, holds_a_value_or_the_reason_why_there_is_none) {
  const Result<std::string> text = std::string("abc");
  ASSERT_TRUE(text);
  EXPECT_EQ(*text, "abc");
  EXPECT_EQ(text->size(), 3u);
  EXPECT_EQ(text.status(), Reason::ok);
  const Result<std::string> none = Reason::not_ready;
  EXPECT_FALSE(none);
  EXPECT_EQ(none.status(), Reason::not_ready);
  EXPECT_EQ(std::optional<std::string>(none), std::nullopt);
}

}  // namespace
}  // namespace ordelan::test
