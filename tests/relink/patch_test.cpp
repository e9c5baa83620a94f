#include "relink/patch.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

#include "relink/bytes_file.h"
#include "relink/literal_patch.h"

namespace ordelan::test {
namespace {

using relink::choose_path;
using relink::NewPath;
using relink::PatchRules;
using relink::PathChange;
using relink::Pointer;
using relink::Untouched;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kNul(1, '\0');

// A disk with the given files and folders, whose searches find the given hits.
class Disk final : public relink::Lookups {
 public:
  std::set<std::string> files;
  std::set<std::string> folders;
  std::map<std::string, std::string> hits;
  std::vector<std::string> searched;       // by a search of all drives
  std::vector<std::string> other_letters;  // looked for on other drives

  bool exists(const std::string& path) override { return files.contains(path); }
  bool stands(const std::string& path) override {
    return files.contains(path) || folders.contains(path);
  }
  void BuscarOtraLetra(const std::string& path) override { other_letters.push_back(path); }
  std::optional<std::string> search(const std::string& name) override {
    searched.push_back(name);
    const auto hit = hits.find(name);
    if (hit == hits.end()) return std::nullopt;
    return hit->second;
  }
};

struct ChoosePath : ::testing::Test {
  Disk disk;
  NewPath choose(const std::string& vieja) { return choose_path(vieja, "D:\\Mix\\", disk); }
};

TEST_F(ChoosePath, a_file_that_is_found_nowhere_goes_to_the_folder_of_the_project) {
  const NewPath chosen = choose("C:\\Old\\a.wav");
  EXPECT_EQ(chosen.path, "D:\\Mix\\a.wav");
  EXPECT_FALSE(chosen.found);
  EXPECT_THAT(disk.searched, ElementsAre("a.wav"));
  EXPECT_THAT(disk.other_letters, IsEmpty());
}

TEST_F(ChoosePath, a_hit_of_the_search_is_the_new_path) {
  disk.hits["a.wav"] = "F:\\Tomas\\a.wav";
  const NewPath chosen = choose("C:\\Old\\a.wav");
  EXPECT_EQ(chosen.path, "F:\\Tomas\\a.wav");
  EXPECT_TRUE(chosen.found);
}

TEST_F(ChoosePath, a_hit_elsewhere_wins_over_a_file_in_the_folder_of_the_project) {
  disk.files = {"D:\\Mix\\a.wav"};
  disk.hits["a.wav"] = "F:\\Tomas\\a.wav";
  EXPECT_EQ(choose("C:\\Old\\a.wav").path, "F:\\Tomas\\a.wav");
  EXPECT_THAT(disk.searched, ElementsAre("a.wav"));
}

TEST_F(ChoosePath, a_file_in_the_folder_of_the_project_is_looked_for_on_the_other_drives_first) {
  disk.files = {"D:\\Mix\\a.wav"};
  const NewPath chosen = choose("C:\\Old\\a.wav");
  EXPECT_EQ(chosen.path, "D:\\Mix\\a.wav");
  EXPECT_TRUE(chosen.found);
  EXPECT_THAT(disk.other_letters, ElementsAre("C:\\Old\\a.wav"));
  EXPECT_THAT(disk.searched, ElementsAre("a.wav"));
}

TEST_F(ChoosePath, a_file_in_FreezeData_needs_no_search) {
  disk.files = {"D:\\Mix\\FreezeData\\a.wav"};
  disk.hits["a.wav"] = "F:\\Tomas\\a.wav";
  const NewPath chosen = choose("C:\\Old\\a.wav");
  EXPECT_EQ(chosen.path, "D:\\Mix\\FreezeData\\a.wav");
  EXPECT_TRUE(chosen.found);
  EXPECT_THAT(disk.searched, IsEmpty());
  EXPECT_THAT(disk.other_letters, IsEmpty());
}

TEST_F(ChoosePath, FreezeData_wins_over_the_folder_of_the_project) {
  disk.files = {"D:\\Mix\\a.wav", "D:\\Mix\\FreezeData\\a.wav"};
  EXPECT_EQ(choose("C:\\Old\\a.wav").path, "D:\\Mix\\FreezeData\\a.wav");
  EXPECT_THAT(disk.other_letters, ElementsAre("C:\\Old\\a.wav"));
}

TEST_F(ChoosePath, a_path_in_FreezeData_is_no_other_than_the_rest) {
  EXPECT_EQ(choose("C:\\Old\\FreezeData\\a.wav").path, "D:\\Mix\\a.wav");
  EXPECT_THAT(disk.searched, ElementsAre("a.wav"));
}

TEST_F(ChoosePath, six_extensions_are_searched) {
  for (const std::string ext : {"mp3", "wav", "aif", "flac", "wma", "m4a"}) {
    disk.searched.clear();
    EXPECT_EQ(choose("C:\\Old\\a." + ext).path, "D:\\Mix\\a." + ext);
    EXPECT_THAT(disk.searched, ElementsAre("a." + ext));
  }
}

TEST_F(ChoosePath, all_others_go_to_the_folder_of_the_project_without_a_search) {
  for (const std::string name :
       {"a.ogg", "a.aiff", "a.fla", "a.wave", "a.vip", "a.wav.bak", "a", "a."}) {
    EXPECT_EQ(choose("C:\\Old\\" + name).path, "D:\\Mix\\" + name);
  }
  EXPECT_THAT(disk.searched, IsEmpty());
  EXPECT_THAT(disk.other_letters, IsEmpty());
}

TEST_F(ChoosePath, an_extension_in_capitals_is_not_searched) {
  for (const std::string name : {"a.WAV", "a.Wav", "a.MP3"}) {
    EXPECT_EQ(choose("C:\\Old\\" + name).path, "D:\\Mix\\" + name);
  }
  EXPECT_THAT(disk.searched, IsEmpty());
}

TEST_F(ChoosePath, others_are_not_looked_for_in_FreezeData) {
  disk.files = {"D:\\Mix\\FreezeData\\a.WAV"};
  EXPECT_EQ(choose("C:\\Old\\a.WAV").path, "D:\\Mix\\a.WAV");
}

TEST_F(ChoosePath, a_folder_keeps_its_name) {
  EXPECT_EQ(choose("D:\\Old\\FreezeData").path, "D:\\Mix\\FreezeData");
  EXPECT_FALSE(choose("D:\\Old\\FreezeData").found);
  disk.folders = {"D:\\Mix\\FreezeData"};
  EXPECT_TRUE(choose("D:\\Old\\FreezeData").found);
  EXPECT_THAT(disk.searched, IsEmpty());
}

TEST_F(ChoosePath, a_path_that_ends_in_a_backslash_becomes_the_folder_of_the_project) {
  EXPECT_EQ(choose("D:\\Old\\Tomas\\").path, "D:\\Mix\\");
  EXPECT_EQ(choose("D:\\").path, "D:\\Mix\\");
  EXPECT_EQ(choose("D:\\Old\\a.wav\\").path, "D:\\Mix\\");
  EXPECT_THAT(disk.searched, IsEmpty());
}

TEST_F(ChoosePath, the_dot_of_a_folder_makes_no_extension) {
  EXPECT_EQ(choose("D:\\Old.wav\\toma").path, "D:\\Mix\\toma");
  EXPECT_THAT(disk.searched, IsEmpty());
}

TEST_F(ChoosePath, an_empty_choice_of_the_users_is_taken) {
  disk.hits["a.wav"] = "";
  const NewPath chosen = choose("C:\\Old\\a.wav");
  EXPECT_EQ(chosen.path, "");
  EXPECT_TRUE(chosen.found);
}

struct PatchPair : ::testing::Test {
  Disk disk;
  PatchRules rules{.letter = 'E', .carpeta = "D:\\Mix\\", .careful = false};
  std::string after;  // the bytes when the pair was patched

  // Patches `bytes`, by the literal patch too, which must do the same.
  std::optional<PathChange> patch(const std::string& bytes, const std::vector<Pointer>& pairs) {
    BytesFile file(bytes);
    relink::FileImage image(&file);
    std::optional<PathChange> change;
    for (const Pointer& pair : pairs) {
      change = relink::patch_pair(image, pair, rules, disk);
      if (!change) return std::nullopt;
    }
    after = whole(image);
    const Disk before = disk;
    const LiteralPatched literal = literal_patch(bytes, pairs, rules, disk);
    disk = before;
    EXPECT_EQ(after, literal.image);
    EXPECT_TRUE(literal.whole);
    EXPECT_EQ(with_changes(image, bytes), after);
    EXPECT_EQ(image.size(), after.size());
    EXPECT_FALSE(image.failed());
    return change;
  }
};

TEST_F(PatchPair, a_shorter_path_leaves_zeros_over_the_rest_of_the_old_one) {
  const auto change = patch("##D:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(4, '\0') + "tail");
  ASSERT_TRUE(change);
  EXPECT_EQ(change->vieja, "D:\\Viejas\\a.wav");
  EXPECT_EQ(change->nueva, "D:\\Mix\\a.wav");
  EXPECT_FALSE(change->hallada);
  EXPECT_EQ(change->untouched, Untouched::no);
  EXPECT_EQ(change->sobrescritos, 0u);
}

TEST_F(PatchPair, a_path_of_the_same_length_has_a_zero_of_two_bytes_after_it) {
  const auto change = patch("##D:\\Old\\a.wav" + kNul + "tail", {{3, 14}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(2, '\0') + "ail");
  EXPECT_EQ(change->sobrescritos, 1u);
}

TEST_F(PatchPair, a_path_that_is_one_shorter_ends_with_the_old_NUL) {
  patch("##D:\\Old1\\a.wav" + kNul + "tail", {{3, 15}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(2, '\0') + "tail");
}

TEST_F(PatchPair, the_byte_after_the_old_path_becomes_a_zero_whatever_it_was) {
  patch("##D:\\Viejas\\a.wavXtail", {{3, 17}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(4, '\0') + "tail");
}

TEST_F(PatchPair, a_longer_path_overwrites_what_follows_and_the_file_keeps_its_length) {
  // A path of 12 bytes at 1000, and 24 bytes in its place.
  std::string bytes(2'000, '#');
  bytes.replace(999, 13, "D:\\Old\\a.wav" + kNul);
  disk.hits["a.wav"] = "F:\\Tomas de mayo\\1\\a.wav";
  ASSERT_EQ(disk.hits["a.wav"].size(), 24u);
  const auto change = patch(bytes, {{1'000, 1'011}});
  std::string wanted = bytes;
  wanted.replace(999, 26, disk.hits["a.wav"] + std::string(2, '\0'));
  EXPECT_EQ(after, wanted);
  EXPECT_EQ(after[1'025], '#') << "1025 is the last position that is overwritten";
  EXPECT_EQ(after.size(), 2'000u);
  EXPECT_EQ(change->sobrescritos, 13u);
  EXPECT_TRUE(change->hallada);
}

TEST_F(PatchPair, a_path_at_the_end_of_the_file_makes_it_grow) {
  const auto change = patch("##D:\\a.wav", {{3, 10}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(2, '\0'));
  EXPECT_EQ(change->sobrescritos, 5u);
}

TEST_F(PatchPair, a_shorter_path_at_the_end_of_the_file_makes_it_grow_by_its_zero) {
  patch("##D:\\Viejas\\a.wav", {{3, 17}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(4, '\0'));
}

TEST_F(PatchPair, a_pair_after_the_end_of_the_file_makes_it_grow_up_to_there) {
  patch("tail", {{8, 9}});
  EXPECT_EQ(after, "tail" + std::string(3, '\0') + "D:\\Mix\\" + std::string(2, '\0'));
}

TEST_F(PatchPair, a_path_that_ends_with_the_letter_of_the_projects_drive_is_left_alone) {
  rules.letter = 'D';
  const std::string bytes = "##C:\\Viejas\\TomaD" + kNul + "tail";
  const auto change = patch(bytes, {{3, 17}});
  EXPECT_EQ(after, bytes);
  EXPECT_EQ(change->untouched, Untouched::skipped);
  EXPECT_EQ(change->vieja, "C:\\Viejas\\TomaD");
  EXPECT_EQ(change->sobrescritos, 0u);
  EXPECT_THAT(disk.searched, IsEmpty());
}

TEST_F(PatchPair, the_drive_at_the_beginning_of_a_path_does_not_matter) {
  rules.letter = 'D';
  patch("##D:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(4, '\0') + "tail");
}

TEST_F(PatchPair, the_letter_of_the_drive_is_compared_with_its_case) {
  rules.letter = 'D';
  EXPECT_EQ(patch("##C:\\Viejas\\tomad" + kNul + "tail", {{3, 17}})->untouched, Untouched::no);
  rules.letter = 'd';
  EXPECT_EQ(patch("##C:\\Viejas\\tomaD" + kNul + "tail", {{3, 17}})->untouched, Untouched::no);
  EXPECT_EQ(patch("##C:\\Viejas\\tomad" + kNul + "tail", {{3, 17}})->untouched, Untouched::skipped);
}

TEST_F(PatchPair, the_name_after_a_NUL_within_a_pair_is_looked_for) {
  const std::string bytes = "##D:\\Old\\a.wav" + kNul + "E:\\x\\b.mp3" + kNul + "tail";
  const auto change = patch(bytes, {{3, 25}});
  EXPECT_EQ(after, "##D:\\Mix\\b.mp3" + std::string(12, '\0') + "tail");
  EXPECT_EQ(change->vieja.size(), 23u);
  EXPECT_THAT(disk.searched, ElementsAre("b.mp3"));
}

// The zero of two bytes takes the drive letter of the path right after.
TEST_F(PatchPair, the_path_after_one_of_the_same_length_still_finds_its_file) {
  disk.hits["a.wav"] = "F:\\New\\a.wav";
  disk.hits["b.mp3"] = "F:\\New\\b.mp3";
  const std::string bytes = "D:\\Old\\a.wav" + kNul + "E:\\Old\\b.mp3" + kNul + "tail tail";
  const auto change = patch(bytes, {{1, 12}, {14, 25}});
  EXPECT_EQ(change->vieja, kNul + ":\\Old\\b.mp3");
  EXPECT_EQ(after, "F:\\New\\a.wav" + kNul + "F:\\New\\b.mp3" + kNul + kNul + "ail tail");
}

TEST_F(PatchPair, an_end_at_0_cannot_be_patched) {
  EXPECT_FALSE(patch("##D:\\Old\\a.wav" + kNul, {{3, 0}}));
  EXPECT_FALSE(patch("##D:\\Old\\a.wav" + kNul, {{3, -4}}));
}

TEST_F(PatchPair, a_start_before_the_file_cannot_be_patched) {
  EXPECT_FALSE(patch("##D:\\Old\\a.wav" + kNul, {{0, 14}}));
  EXPECT_FALSE(patch("##D:\\Old\\a.wav" + kNul, {{-3, 14}}));
  EXPECT_FALSE(patch("##D:\\Old\\a.wav" + kNul, {{0, 0}}));
}

TEST_F(PatchPair, an_end_before_the_start_puts_the_folder_of_the_project_there) {
  const auto change = patch(std::string(30, '#'), {{9, 5}});
  EXPECT_EQ(after, std::string(8, '#') + "D:\\Mix\\" + std::string(2, '\0') + std::string(13, '#'));
  EXPECT_EQ(change->vieja, "");
  EXPECT_EQ(change->nueva, "D:\\Mix\\");
}

TEST_F(PatchPair, a_pair_that_begins_right_after_its_end_is_empty_too) {
  patch(std::string(30, '#'), {{9, 8}});
  EXPECT_EQ(after, std::string(8, '#') + "D:\\Mix\\" + std::string(2, '\0') + std::string(13, '#'));
}

TEST_F(PatchPair, an_empty_new_path_is_a_zero_of_two_bytes) {
  disk.hits["a.wav"] = "";
  patch("##D:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}});
  EXPECT_EQ(after, "##" + std::string(16, '\0') + "tail");
}

TEST_F(PatchPair, the_second_patch_reads_what_the_first_has_overwritten) {
  disk.hits["a.wav"] = "F:\\Tomas\\a.wav";
  // The first path grows by two bytes over the NUL and the first byte of the second one, whose
  // place it takes with its zeros.
  const std::string bytes = "D:\\Old\\a.wav" + kNul + "E:\\x\\b.mp3" + kNul + "tail tail";
  const auto change = patch(bytes, {{1, 12}, {14, 23}});
  EXPECT_EQ(change->vieja, "v" + std::string(2, '\0') + "x\\b.mp3");
  EXPECT_EQ(change->nueva, "D:\\Mix\\b.mp3");
  EXPECT_EQ(after, "F:\\Tomas\\a.waD:\\Mix\\b.mp3" + kNul + kNul + "l tail");
}

TEST_F(PatchPair, the_same_pair_twice_gives_the_same_path) {
  patch("##D:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}, {3, 17}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(4, '\0') + "tail");
}

TEST_F(PatchPair, paths_that_exist_are_rewritten_too) {
  disk.files = {"C:\\Old\\a.wav"};
  EXPECT_EQ(patch("##C:\\Old\\a.wav" + kNul + "tail", {{3, 14}})->nueva, "D:\\Mix\\a.wav");
}

TEST_F(PatchPair, bytes_beyond_ASCII_are_written_as_they_are) {
  disk.hits["a.wav"] = "F:\\\xC1\xF1\xFF\\a.wav";
  patch("##D:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}});
  EXPECT_EQ(after, "##F:\\\xC1\xF1\xFF\\a.wav" + std::string(4, '\0') + "tail");
}

TEST_F(PatchPair, across_two_pages_every_byte_has_its_place) {
  std::string bytes(70'000, '#');
  bytes.replace(65'530, 13, "D:\\Old\\a.wav" + kNul);
  patch(bytes, {{65'531, 65'542}});
  std::string wanted = bytes;
  wanted.replace(65'530, 14, "D:\\Mix\\a.wav" + std::string(2, '\0'));
  EXPECT_TRUE(after == wanted);
}

TEST_F(PatchPair, a_read_that_fails_marks_the_image) {
  BytesFile file(std::string(100, '#'));
  file.on_read = [](std::uint64_t) { return false; };
  relink::FileImage image(&file);
  EXPECT_FALSE(relink::patch_pair(image, {3, 17}, rules, disk));
  EXPECT_TRUE(image.failed());
  EXPECT_THAT(disk.searched, IsEmpty()) << "what was read is no path";
}

struct CarefulPatch : PatchPair {
  CarefulPatch() { rules.careful = true; }
};

TEST_F(CarefulPatch, a_path_that_exists_stays) {
  disk.files = {"C:\\Viejas\\a.wav"};
  disk.hits["a.wav"] = "F:\\a.wav";
  const std::string bytes = "##C:\\Viejas\\a.wav" + kNul + "tail";
  const auto change = patch(bytes, {{3, 17}});
  EXPECT_EQ(after, bytes);
  EXPECT_EQ(change->untouched, Untouched::stays);
  EXPECT_EQ(change->vieja, "C:\\Viejas\\a.wav");
  EXPECT_THAT(disk.searched, IsEmpty());
}

TEST_F(CarefulPatch, a_folder_that_exists_stays) {
  disk.folders = {"C:\\Viejas\\Frozen"};
  const std::string bytes = "##C:\\Viejas\\Frozen" + kNul + "tail";
  EXPECT_EQ(patch(bytes, {{3, 18}})->untouched, Untouched::stays);
  EXPECT_EQ(after, bytes);
}

TEST_F(CarefulPatch, a_path_that_does_not_fit_is_left) {
  const std::string bytes = "##D:\\a.wav" + kNul + "tail";
  const auto change = patch(bytes, {{3, 10}});
  EXPECT_EQ(after, bytes);
  EXPECT_EQ(change->untouched, Untouched::too_long);
  EXPECT_EQ(change->vieja, "D:\\a.wav");
  EXPECT_EQ(change->nueva, "D:\\Mix\\a.wav");
  EXPECT_EQ(change->sobrescritos, 0u);
}

TEST_F(CarefulPatch, a_path_of_the_same_length_fits_and_what_follows_its_NUL_stays) {
  const auto change = patch("##D:\\Old\\a.wav" + kNul + "tail", {{3, 14}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + kNul + "tail");
  EXPECT_EQ(change->untouched, Untouched::no);
  EXPECT_EQ(change->sobrescritos, 0u);
}

TEST_F(CarefulPatch, a_path_that_is_one_longer_does_not_fit) {
  const std::string bytes = "##D:\\Ol\\a.wav" + kNul + "tail";
  EXPECT_EQ(patch(bytes, {{3, 13}})->untouched, Untouched::too_long);
  EXPECT_EQ(after, bytes);
}

TEST_F(CarefulPatch, a_shorter_path_is_as_it_is_without_care) {
  patch("##D:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + std::string(4, '\0') + "tail");
}

TEST_F(CarefulPatch, a_path_of_the_same_length_at_the_end_of_the_file_adds_its_NUL_alone) {
  patch("##D:\\Old\\a.wav", {{3, 14}});
  EXPECT_EQ(after, "##D:\\Mix\\a.wav" + kNul);
}

TEST_F(CarefulPatch, an_end_before_the_start_has_no_room) {
  const std::string bytes(30, '#');
  EXPECT_EQ(patch(bytes, {{9, 5}})->untouched, Untouched::too_long);
  EXPECT_EQ(after, bytes);
}

TEST_F(CarefulPatch, a_path_that_ends_in_the_letter_of_the_projects_drive_is_no_exception) {
  rules.letter = 'v';
  disk.files = {"C:\\Viejas\\a.wav"};
  EXPECT_EQ(patch("##C:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}})->untouched, Untouched::stays);
  disk.files.clear();
  EXPECT_EQ(patch("##C:\\Viejas\\a.wav" + kNul + "tail", {{3, 17}})->untouched, Untouched::no);
}

}  // namespace
}  // namespace ordelan::test
