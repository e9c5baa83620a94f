#include "relink/pointer_walk.h"

#include <gmock/gmock.h>

#include "relink/pointer_agreement.h"

namespace ordelan::test {
namespace {

using project::Position;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kZero(1, '\0');

// A project whose position 97 is the first byte of `content`, and whose last byte that is looked
// at is the last one of it.
std::string walked_vip(const std::string& content) {
  return std::string(96, 'x') + content + "....LIST" + std::string(4, '\1') + "mdrl" +
         "Z:\\detras.wav" + kZero;
}

// The numbers that the walk prints, which are the same in chunks of any size.
std::vector<std::int64_t> walk(const std::string& file) {
  const LiteralPointers literal = literal_pointers(file);
  for (const std::size_t chunk : {2u, 3u, 4u, 5u, 7u, 16u, 4096u}) {
    std::size_t printed = 0;
    EXPECT_EQ(compare_walk(file, chunk, printed), "") << "chunks of " << chunk;
  }
  return literal.numbers;
}
std::vector<std::int64_t> walk_of(const std::string& content) {
  return walk(walked_vip(content));
}

TEST(PointerWalk, a_path_gives_the_positions_of_its_first_and_its_last_byte) {
  EXPECT_THAT(walk_of("xxC:\\a.wav" + kZero + "yy"), ElementsAre(99, 106));
}

TEST(PointerWalk, paths_come_in_the_order_of_the_file) {
  EXPECT_THAT(walk_of("C:\\a" + kZero + "D:\\bc" + kZero + "x"), ElementsAre(97, 100, 102, 106));
}

TEST(PointerWalk, a_file_without_the_marker_has_no_numbers) {
  EXPECT_THAT(walk(std::string(96, 'x') + "C:\\a.wav" + kZero + "tail"), IsEmpty());
  EXPECT_EQ(literal_limit(std::string(200, 'x'), 97), 0);
}

TEST(PointerWalk, a_limit_of_nothing_or_less_walks_nowhere) {
  for (const Position limit : {Position{0}, Position{-3}, Position{96}, Position{97}}) {
    relink::PointerWalk walk(limit);
    const std::string file = walked_vip("C:\\a" + kZero);
    ChunkSource source(file, file.size());
    Position line = 0;
    EXPECT_FALSE(walk.next(source.at(1), line)) << limit;
    EXPECT_TRUE(walk.ended()) << limit;
  }
}

TEST(PointerWalk, the_marker_at_the_header_leaves_nothing_to_walk_over) {
  EXPECT_THAT(walk(std::string(96, 'x') + "LIST1234mdrl" + "C:\\a" + kZero), IsEmpty());
}

TEST(PointerWalk, the_marker_is_searched_from_the_header_on) {
  std::string file = walked_vip("C:\\a" + kZero);
  file.replace(20, 12, "LIST1234mdrl");
  EXPECT_THAT(walk(file), ElementsAre(97, 100));
}

TEST(PointerWalk, a_marker_after_another_L_is_missed) {
  EXPECT_THAT(walk(std::string(96, 'x') + "C:\\a" + kZero + "xxxLxxxxxLIST1234mdrl"), IsEmpty());
}

TEST(PointerWalk, what_stands_after_the_limit_is_not_seen) {
  // The four bytes before the marker are after it.
  const std::string file = std::string(96, 'x') + "xxxxxC:\\aLIST1234mdrl" + kZero;
  EXPECT_THAT(walk(file), IsEmpty());
}

TEST(PointerWalk, any_byte_will_do_for_a_drive_and_any_for_a_path) {
  EXPECT_THAT(walk_of("\xFF:\\\x01\xF1\r\n" + kZero), ElementsAre(97, 103));
  EXPECT_THAT(walk_of("x" + kZero + ":\\a" + kZero), ElementsAre(98, 101));
}

TEST(PointerWalk, nothing_need_stand_before_a_path) {
  EXPECT_THAT(walk_of("nameC:\\a" + kZero), ElementsAre(101, 104));
}

TEST(PointerWalk, a_colon_at_the_header_begins_a_path_one_byte_before_it) {
  EXPECT_THAT(walk_of(":\\a" + kZero), ElementsAre(96, 99));
}

TEST(PointerWalk, a_backslash_at_the_header_is_skipped_whatever_stands_before_it) {
  std::string file = walked_vip("\\a" + kZero + "x");
  file[95] = ':';
  EXPECT_THAT(walk(file), IsEmpty());
}

TEST(PointerWalk, a_colon_and_a_backslash_inside_a_path_begin_no_other) {
  EXPECT_THAT(walk_of("C:\\a:\\b\\\\c" + kZero), ElementsAre(97, 106));
}

TEST(PointerWalk, a_backslash_without_a_colon_begins_nothing) {
  EXPECT_THAT(walk_of("a\\b:c\\d" + kZero), IsEmpty());
  EXPECT_THAT(walk_of("C:/a" + kZero + "C:" + kZero + "\\a"), IsEmpty());
}

TEST(PointerWalk, after_a_single_backslash_the_walk_goes_on_with_the_next_byte) {
  EXPECT_THAT(walk_of("x\\C:\\a" + kZero), ElementsAre(99, 102));
  EXPECT_THAT(walk_of("x\\:\\a" + kZero), ElementsAre(98, 101));
}

TEST(PointerWalk, after_a_doubled_backslash_one_byte_is_skipped) {
  // The skipped byte is the drive letter: nothing is lost by that.
  EXPECT_THAT(walk_of("x\\\\C:\\q" + kZero), ElementsAre(100, 103));
  // It is the colon: its backslash is the first byte of the next pass and is skipped too.
  EXPECT_THAT(walk_of("x\\\\:\\q" + kZero + "xx"), IsEmpty());
  // The server of a network path begins where the pass ended.
  EXPECT_THAT(walk_of("x\\\\server\\share" + kZero + "C:\\a" + kZero), ElementsAre(113, 116));
}

TEST(PointerWalk, in_a_row_of_backslashes_every_one_after_the_second_is_skipped) {
  EXPECT_THAT(walk_of("x\\\\\\\\\\:\\q" + kZero + "D:\\r" + kZero),
              ElementsAre(102, 105, 107, 110));
  // Of six the third is skipped with the pass, and the three after it are first bytes.
  EXPECT_THAT(walk_of("x\\\\\\\\\\\\C:\\q" + kZero), ElementsAre(104, 107));
}

TEST(PointerWalk, a_path_right_after_the_end_of_another_is_seen) {
  EXPECT_THAT(walk_of("C:\\a" + kZero + ":\\b" + kZero), ElementsAre(97, 100, 101, 104));
}

TEST(PointerWalk, a_backslash_right_after_a_path_is_skipped) {
  // It is half of a doubled one, which does not end the pass then.
  EXPECT_THAT(walk_of("C:\\a" + kZero + "\\x\\:\\b" + kZero), ElementsAre(97, 100, 104, 107));
  EXPECT_THAT(walk_of("C:\\a" + kZero + "\\\\:\\b" + kZero), ElementsAre(97, 100, 103, 106));
}

TEST(PointerWalk, an_empty_first_path_ends_at_0) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "xx"), ElementsAre(97, 0));
}

TEST(PointerWalk, an_empty_path_ends_where_the_one_before_it_did) {
  EXPECT_THAT(walk_of("C:\\ab" + kZero + "D:\\" + kZero + "xx"), ElementsAre(97, 101, 103, 101));
}

TEST(PointerWalk, after_an_empty_path_a_first_backslash_gives_a_second_end) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "\\abc" + kZero + "zD:\\q" + kZero),
              ElementsAre(97, 0, 104, 107, 110));
}

TEST(PointerWalk, the_second_end_is_given_once) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "\\abc" + kZero + "\\abc" + kZero), ElementsAre(97, 0, 104));
}

TEST(PointerWalk, after_an_empty_path_a_doubled_backslash_gives_a_second_end) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "x\\\\abc" + kZero + "x"), ElementsAre(97, 0, 106));
  // However far away.
  EXPECT_THAT(walk_of("C:\\" + kZero + std::string(20, 'x') + "\\\\abc" + kZero + "x"),
              ElementsAre(97, 0, 125));
}

TEST(PointerWalk, a_second_end_that_is_a_NUL_at_once_keeps_the_walk_inside) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "x\\\\" + kZero + "\\a" + kZero + "x"),
              ElementsAre(97, 0, 0, 106));
}

TEST(PointerWalk, a_path_with_an_end_takes_the_mark_of_an_empty_one_away) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "xD:\\q" + kZero + "\\abc" + kZero),
              ElementsAre(97, 0, 102, 105));
}

TEST(PointerWalk, another_empty_path_keeps_the_mark) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "D:\\" + kZero + "\\abc" + kZero),
              ElementsAre(97, 0, 101, 0, 108));
}

TEST(PointerWalk, a_path_without_a_NUL_before_the_limit_has_no_end) {
  EXPECT_THAT(walk_of("C:\\a" + kZero + "D:\\b.wav"), ElementsAre(97, 100, 102));
}

TEST(PointerWalk, a_second_end_without_a_NUL_before_the_limit_is_not_printed) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "\\abc"), ElementsAre(97, 0));
  EXPECT_THAT(walk_of("C:\\" + kZero + "x\\\\abc"), ElementsAre(97, 0));
}

TEST(PointerWalk, a_NUL_on_the_limit_ends_a_path) {
  EXPECT_THAT(walk_of("C:\\a" + kZero), ElementsAre(97, 100));
  EXPECT_THAT(walk_of("C:\\" + kZero), ElementsAre(97, 0));
}

TEST(PointerWalk, a_path_whose_backslash_is_on_the_limit_has_a_start_alone) {
  EXPECT_THAT(walk_of("xC:\\"), ElementsAre(98));
  EXPECT_THAT(walk(std::string(96, 'x') + "xC:" + "\\...LIST1234mdrl"), IsEmpty());
}

TEST(PointerWalk, no_pass_begins_on_the_limit) {
  EXPECT_THAT(walk_of("C:\\" + kZero + "\\"), ElementsAre(97, 0));
  EXPECT_THAT(walk_of("C:\\" + kZero + "x\\\\" + kZero), ElementsAre(97, 0, 0));
  EXPECT_THAT(walk_of("\\"), IsEmpty());
}

TEST(PointerWalk, ends_with_a_file_that_is_shorter_than_the_limit) {
  const std::string file = std::string(96, 'x') + "C:\\a" + kZero + "D:\\b";
  relink::PointerWalk walk(project::kNoLimit);
  ChunkSource source(file, file.size());
  const project::Chunk chunk = source.at(1);
  std::vector<Position> numbers;
  Position line = 0;
  while (walk.next(chunk, line)) numbers.push_back(line);
  EXPECT_THAT(numbers, ElementsAre(97, 100, 102));
}

TEST(PointerWalk, may_be_stopped_between_paths_and_not_inside_of_one) {
  const std::string file = walked_vip("xxxC:\\abc" + kZero + "xxx");
  relink::PointerWalk walk(literal_limit(file, 97));
  ChunkSource source(file, 2);
  std::string stops;
  Position line = 0;
  while (!walk.ended()) {
    stops += walk.may_stop() ? '-' : 'P';
    const project::Chunk chunk = source.at(walk.position() - 1);
    while (walk.next(chunk, line)) {
    }
  }
  EXPECT_EQ(stops, "------PPPP---");
}

TEST(PointerWalk, says_of_each_number_whether_it_is_an_end) {
  const std::string file = walked_vip("C:\\" + kZero + "\\abc" + kZero + "D:\\b" + kZero);
  relink::PointerWalk walk(literal_limit(file, 97));
  ChunkSource source(file, file.size());
  const project::Chunk chunk = source.at(1);
  std::string ends;
  Position line = 0;
  while (walk.next(chunk, line)) ends += walk.gave_end() ? 'e' : 's';
  EXPECT_EQ(ends, "seese");
}

}  // namespace
}  // namespace ordelan::test
