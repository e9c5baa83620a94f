// Replays what the fuzzers have kept.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <vector>

#include "fuzz/fuzz_input.h"

namespace ordelan::test {
namespace {

using Check = std::function<std::string(std::string_view)>;

// Runs `check` over every file of a target's corpus and gives how many there were.
std::size_t replay(const std::string& target, const Check& check) {
  const auto folder = std::filesystem::path(ORDELAN_SOURCE_DIR) / "tests/fuzz/corpus" / target;
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  for (const auto& path : files) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    const std::string input{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(check(input), "") << path;
  }
  return files.size();
}

TEST(FuzzCorpus, the_reader_agrees_with_the_literal_one_on_every_kept_file) {
  EXPECT_GE(replay("fuzz_vip_reader", check_vip_reader), 20u);
}

TEST(FuzzCorpus, the_code_page_keeps_its_rules_on_every_kept_text) {
  EXPECT_GE(replay("fuzz_code_page", check_code_page), 20u);
}

TEST(FuzzCorpus, logs_of_removed_files_are_read_like_plain_lines_in_every_kept_one) {
  EXPECT_GE(replay("fuzz_removal_log", check_removal_log), 12u);
}

TEST(FuzzCorpus, indexes_of_copies_keep_their_rules_in_every_kept_one) {
  EXPECT_GE(replay("fuzz_copy_index", check_copy_index), 12u);
}

TEST(FuzzCorpus, mentions_are_those_of_the_literal_search_in_every_kept_file) {
  EXPECT_GE(replay("fuzz_mentions", check_mentions), 12u);
}

TEST(FuzzCorpus, pointer_files_and_walks_are_those_of_the_literal_ones_in_every_kept_file) {
  EXPECT_GE(replay("fuzz_pointers", check_pointers), 20u);
}

TEST(FuzzCorpus, patches_leave_the_bytes_of_the_literal_one_in_every_kept_project) {
  EXPECT_GE(replay("fuzz_patch", check_patch), 12u);
}

TEST(FuzzCorpus, texts_on_audio_files_are_those_of_the_literal_reading_in_every_kept_file) {
  EXPECT_GE(replay("fuzz_audio_info", check_audio_info), 12u);
}

TEST(FuzzCorpus, details_of_audio_files_keep_their_rules_in_every_kept_file) {
  EXPECT_GE(replay("fuzz_audio_details", check_audio_details), 20u);
}

TEST(FuzzCorpus, waveforms_keep_their_rules_in_every_kept_file) {
  EXPECT_GE(replay("fuzz_waveform", check_waveform), 18u);
}

}  // namespace
}  // namespace ordelan::test
