#include "relink/file_image.h"

#include <gtest/gtest.h>

#include "relink/bytes_file.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

using relink::FileImage;
using system::Reason;
using system::Status;

std::string numbered(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>('a' + (i + i / 256) % 26);
  return bytes;
}

TEST(FileImage, holds_the_bytes_of_its_file) {
  BytesFile file("abc");
  FileImage image(&file);
  EXPECT_EQ(image.size(), 3u);
  EXPECT_EQ(image.at(1), 'a');
  EXPECT_EQ(image.at(3), 'c');
  EXPECT_EQ(whole(image), "abc");
  EXPECT_FALSE(image.differs());
  EXPECT_FALSE(image.failed());
}

TEST(FileImage, holds_zeros_after_the_end_and_does_not_grow_by_being_asked) {
  BytesFile file("abc");
  FileImage image(&file);
  EXPECT_EQ(image.at(4), 0);
  EXPECT_EQ(image.at(200'000), 0);
  EXPECT_EQ(image.size(), 3u);
  EXPECT_EQ(whole(image), "abc");
  EXPECT_FALSE(image.failed());
}

TEST(FileImage, holds_bytes_of_all_values) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  BytesFile file(bytes);
  FileImage image(&file);
  for (int i = 0; i < 256; ++i) EXPECT_EQ(image.at(i + 1), i);
}

TEST(FileImage, a_byte_that_is_set_is_seen_and_the_others_stay) {
  BytesFile file("abc");
  FileImage image(&file);
  image.put(2, 'X');
  EXPECT_EQ(image.at(2), 'X');
  EXPECT_EQ(whole(image), "aXc");
  EXPECT_EQ(with_changes(image, "abc"), "aXc");
  EXPECT_TRUE(image.differs());
  EXPECT_EQ(image.size(), 3u);
}

TEST(FileImage, grows_by_the_byte_after_its_last_one) {
  BytesFile file("abc");
  FileImage image(&file);
  image.put(4, 'd');
  EXPECT_EQ(image.size(), 4u);
  EXPECT_EQ(whole(image), "abcd");
  EXPECT_EQ(with_changes(image, "abc"), "abcd");
}

TEST(FileImage, grows_with_zeros_up_to_a_far_byte) {
  BytesFile file("abc");
  FileImage image(&file);
  image.put(200'000, 'z');
  const std::string wanted = "abc" + std::string(199'996, '\0') + "z";
  EXPECT_EQ(image.size(), 200'000u);
  EXPECT_EQ(image.at(100'000), 0);
  EXPECT_TRUE(whole(image) == wanted);
  EXPECT_TRUE(with_changes(image, "abc") == wanted);
}

TEST(FileImage, of_no_file_is_empty_and_grows) {
  FileImage image(nullptr);
  EXPECT_EQ(image.size(), 0u);
  EXPECT_EQ(image.at(1), 0);
  EXPECT_EQ(whole(image), "");
  image.put(3, 'c');
  EXPECT_EQ(whole(image), std::string("\0\0c", 3));
  EXPECT_FALSE(image.failed());
}

TEST(FileImage, changes_at_the_edges_of_pages_are_written_where_they_belong) {
  for (const std::int64_t edge : {65'536, 131'072}) {
    const std::string bytes = numbered(200'000);
    BytesFile file(bytes);
    FileImage image(&file);
    std::string wanted = bytes;
    for (const std::int64_t at : {edge - 1, edge, edge + 1, edge + 2}) {
      image.put(at, '!');
      wanted[static_cast<std::size_t>(at - 1)] = '!';
    }
    EXPECT_TRUE(whole(image) == wanted) << edge;
    EXPECT_TRUE(with_changes(image, bytes) == wanted) << edge;
  }
}

TEST(FileImage, a_file_of_whole_pages_grows_by_a_page) {
  const std::string bytes = numbered(65'536);
  BytesFile file(bytes);
  FileImage image(&file);
  EXPECT_EQ(image.at(65'537), 0);
  image.put(65'537, '!');
  EXPECT_TRUE(whole(image) == bytes + "!");
  EXPECT_TRUE(with_changes(image, bytes) == bytes + "!");
}

TEST(FileImage, writes_only_pages_that_were_changed) {
  BytesFile file(numbered(500'000));
  FileImage image(&file);
  image.put(200'000, '!');
  for (std::int64_t at = 1; at <= 500'000; at += 1'000) image.at(at);
  std::uint64_t written = 0;
  EXPECT_TRUE(image.write_changes([&](std::uint64_t offset, std::string_view bytes) {
    EXPECT_LE(offset, 199'999u);
    EXPECT_GT(offset + bytes.size(), 199'999u);
    written += bytes.size();
    return Status{};
  }));
  EXPECT_LE(written, 65'536u);
  EXPECT_GT(written, 0u);
}

TEST(FileImage, writes_no_page_when_nothing_was_changed) {
  BytesFile file(numbered(100'000));
  FileImage image(&file);
  image.at(70'000);
  EXPECT_TRUE(image.write_changes([](std::uint64_t, std::string_view) {
    ADD_FAILURE() << "a page that was not changed";
    return Status{};
  }));
}

TEST(FileImage, is_what_a_text_with_the_same_changes_is) {
  Dice dice(8);
  for (int round = 0; round < 60; ++round) {
    const std::string bytes = numbered(dice.below(3) == 0 ? 0 : dice.below(200'000));
    std::string wanted = bytes;
    BytesFile file(bytes);
    FileImage image(&file);
    for (int i = 0; i < 200; ++i) {
      const auto at = static_cast<std::size_t>(1 + dice.below(dice.below(2) == 0 ? 200 : 220'000));
      const auto byte = static_cast<std::uint8_t>(dice.below(256));
      if (dice.below(3) == 0) {
        image.put(static_cast<relink::Position>(at), byte);
        if (wanted.size() < at) wanted.resize(at, '\0');
        wanted[at - 1] = static_cast<char>(byte);
      }
      const auto look = static_cast<std::size_t>(1 + dice.below(220'000));
      const int there = look > wanted.size() ? 0 : static_cast<unsigned char>(wanted[look - 1]);
      ASSERT_EQ(image.at(static_cast<relink::Position>(look)), there);
    }
    ASSERT_EQ(image.size(), wanted.size());
    ASSERT_TRUE(whole(image) == wanted);
    ASSERT_TRUE(with_changes(image, bytes) == wanted);
  }
}

TEST(FileImage, knows_that_a_read_has_failed) {
  BytesFile file("abc");
  file.on_read = [](std::uint64_t) { return false; };
  FileImage image(&file);
  EXPECT_FALSE(image.failed()) << "nothing was read as yet";
  image.at(1);
  EXPECT_TRUE(image.failed());
}

TEST(FileImage, a_failed_read_under_a_byte_that_is_set_is_a_failure_too) {
  BytesFile file("abc");
  file.on_read = [](std::uint64_t) { return false; };
  FileImage image(&file);
  image.put(1, 'x');
  EXPECT_TRUE(image.failed());
}

TEST(FileImage, a_failure_is_not_forgotten_when_later_reads_go_well) {
  BytesFile file(numbered(200'000));
  file.on_read = [](std::uint64_t offset) { return offset < 65'536; };
  FileImage image(&file);
  EXPECT_EQ(image.at(1), 'a');
  EXPECT_FALSE(image.failed());
  image.at(150'000);
  EXPECT_TRUE(image.failed());
  image.at(2);
  EXPECT_TRUE(image.failed());
}

TEST(FileImage, a_file_that_became_shorter_is_a_failure) {
  BytesFile file(numbered(1'000));
  file.shrink(500);
  FileImage image(&file);
  image.at(1);
  EXPECT_TRUE(image.failed());
}

TEST(FileImage, does_not_write_the_whole_of_what_could_not_be_read) {
  BytesFile file(numbered(200'000));
  file.on_read = [](std::uint64_t offset) { return offset < 65'536; };
  FileImage image(&file);
  image.put(1, 'x');
  EXPECT_FALSE(image.failed());
  EXPECT_FALSE(image.write_whole([](std::string_view) { return Status{}; }));
  EXPECT_TRUE(image.failed());
}

TEST(FileImage, writes_no_changes_over_a_file_that_could_not_be_read) {
  BytesFile file(numbered(200'000));
  file.on_read = [](std::uint64_t) { return false; };
  FileImage image(&file);
  image.put(1, 'x');
  EXPECT_FALSE(image.write_changes([](std::uint64_t, std::string_view) {
    ADD_FAILURE() << "a page of which only one byte is true";
    return Status{};
  }));
}

TEST(FileImage, writing_ends_with_the_first_failure) {
  BytesFile file(numbered(200'000));
  FileImage image(&file);
  image.put(1, 'x');
  image.put(150'000, 'x');
  int calls = 0;
  EXPECT_EQ(image
                .write_whole([&](std::string_view) {
                  return ++calls == 2 ? Status(Reason::no_space) : Status{};
                })
                .reason(),
            Reason::no_space);
  EXPECT_EQ(calls, 2);
  calls = 0;
  EXPECT_EQ(image
                .write_changes([&](std::uint64_t, std::string_view) {
                  ++calls;
                  return Status(Reason::in_use);
                })
                .reason(),
            Reason::in_use);
  EXPECT_EQ(calls, 1);
}

}  // namespace
}  // namespace ordelan::test
