#include "tools/studio_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>
#include <string>

#include "text/code_page.h"
#include "tools/vip_writer.h"

namespace ordelan::studio {
namespace {

StudioPlan planned(std::size_t projects, std::size_t references, std::size_t files,
                   std::uint64_t seed = 1, bool has_second = false) {
  return large_plan('D', 'E', has_second, {projects, references, files, 0}, seed);
}

void expect_all_references_read_back(const StudioPlan& plan) {
  for (const PlannedProject& project : plan.projects()) {
    std::set<std::string> seen;
    for (const std::string& reference : project.references) {
      EXPECT_TRUE(reads_back(reference)) << text::to_utf8(reference);
      EXPECT_TRUE(seen.insert(text::lower(reference)).second) << text::to_utf8(reference);
      EXPECT_LT(reference.size(), kPathField);
    }
  }
}

TEST(StudioPlan, names_that_differ_only_in_case_are_the_same_file) {
  StudioPlan plan('D', 'E');
  plan.audio("Mix\\Año.wav", plan.tone({}));
  EXPECT_THROW(plan.side_file("mix\\AÑO.WAV"), std::logic_error);
  plan.audio("Mix\\Año.wav", plan.tone({}), Drive::second);
  EXPECT_EQ(plan.files().size(), 2u);
  EXPECT_EQ(plan.tones().size(), 1u);
}

TEST(StudioPlan, the_summary_separates_used_moved_lost_and_unused) {
  StudioPlan plan('D', 'E');
  const std::size_t tone = plan.tone({});
  plan.audio("Mix\\usada.wav", tone);
  plan.audio("Otra\\movida.WAV", tone);
  plan.audio("Mix\\libre.wav", tone);
  plan.side_files("Mix\\usada.wav", 12, 3);
  plan.project({"Mix\\a.vip", "a", {"D:\\MIX\\Usada.wav", "D:\\Mix\\movida.wav"}, 0});
  plan.project({"Mix\\b.vip", "b", {"D:\\Mix\\usada.wav", "E:\\Mix\\nada.wav"}, 0});
  plan.project({"Mix\\c.vip", "c", {}, 0});
  const StudioSummary summary = plan.summary();
  EXPECT_EQ(summary.projects, 3u);
  EXPECT_EQ(summary.projects_without_audio, 1u);
  EXPECT_EQ(summary.references, 4u);
  EXPECT_EQ(summary.files, 6u);
  EXPECT_EQ(summary.audio_files, 3u);
  EXPECT_EQ(summary.side_files, 3u);
  EXPECT_EQ(summary.unused, 2u);
  EXPECT_EQ(summary.moved, 1u);
  EXPECT_EQ(summary.lost, 1u);
}

TEST(DemoPlan, has_every_kind_of_file_and_reference) {
  const StudioPlan plan = demo_plan('D', 'E', false, 0);
  expect_all_references_read_back(plan);
  const StudioSummary summary = plan.summary();
  EXPECT_EQ(summary.projects, 6u);
  EXPECT_EQ(summary.projects_without_audio, 1u);
  EXPECT_GT(summary.moved, 0u);
  EXPECT_GT(summary.lost, 0u);
  EXPECT_GT(summary.unused, 0u);

  std::set<std::string> extensions;
  for (const PlannedFile& file : plan.files()) {
    extensions.insert(file.path.substr(file.path.rfind('.') + 1));
  }
  for (const char* extension :
       {"wav", "WAV", "mp3", "MP3", "flac", "ogg", "aif", "aiff", "m4a", "wma", "h2", "hdp",
        "hm2", "hmp", "ha2", "hap", "hg2",  "hgp", "hf2", "hfp",  "cue", "hz",  "hs"}) {
    EXPECT_EQ(extensions.count(extension), 1u) << extension;
  }
}

TEST(DemoPlan, has_copies_and_namesakes_and_files_that_two_projects_share) {
  const StudioPlan plan = demo_plan('D', 'E', false, 0);
  std::map<std::string, std::multiset<std::size_t>> tones;
  for (const PlannedFile& file : plan.files()) {
    if (file.tone == PlannedFile::kSideFile) continue;
    tones[file.path.substr(file.path.rfind('\\') + 1)].insert(file.tone);
  }
  EXPECT_EQ(tones["bajo.flac"].count(*tones["bajo.flac"].begin()), 3u);
  EXPECT_EQ(tones["toma 1.wav"].size(), 2u);
  EXPECT_NE(*tones["toma 1.wav"].begin(), *tones["toma 1.wav"].rbegin());

  std::map<std::string, int> users;
  for (const PlannedProject& project : plan.projects()) {
    for (const std::string& reference : project.references) ++users[reference];
  }
  EXPECT_EQ(users["D:\\Mix\\Compartido\\palmas.wav"], 2);
}

TEST(DemoPlan, what_is_lost_without_the_second_drive_exists_with_it) {
  const StudioSummary without = demo_plan('D', 'E', false, 0).summary();
  const StudioSummary with = demo_plan('D', 'E', true, 0).summary();
  EXPECT_EQ(with.references, without.references);
  EXPECT_EQ(with.lost, without.lost - 3);
  EXPECT_EQ(with.moved, without.moved + 1);
}

TEST(DemoPlan, projects_name_the_drives_by_the_letters_asked_for) {
  const StudioPlan plan = demo_plan('S', 'T', true, 0);
  std::set<char> letters;
  for (const PlannedProject& project : plan.projects()) {
    for (const std::string& reference : project.references) letters.insert(reference.front());
  }
  EXPECT_THAT(letters, ::testing::ElementsAre('S', 'T'));
}

TEST(LargePlan, has_exactly_as_much_of_everything_as_asked_for) {
  struct Wanted {
    std::size_t projects, references, files;
  };
  for (const Wanted& wanted :
       {Wanted{1, 30, 60}, Wanted{1, 0, 0}, Wanted{0, 0, 50}, Wanted{40, 1000, 3000},
        Wanted{41, 999, 200}, Wanted{100, 7, 13}, Wanted{300, 9000, 20001}}) {
    for (const bool has_second : {false, true}) {
      const StudioPlan plan =
          planned(wanted.projects, wanted.references, wanted.files, 3, has_second);
      const StudioSummary summary = plan.summary();
      EXPECT_EQ(summary.projects, wanted.projects);
      EXPECT_EQ(summary.references, wanted.references);
      EXPECT_EQ(summary.files, wanted.files);
      expect_all_references_read_back(plan);
    }
  }
}

TEST(LargePlan, most_references_have_their_file_and_some_are_moved_or_lost) {
  const StudioSummary summary = planned(200, 10'000, 20'000).summary();
  EXPECT_GT(summary.moved, 100u);
  EXPECT_LT(summary.moved, 1000u);
  EXPECT_GT(summary.lost, 100u);
  EXPECT_LT(summary.lost, 1500u);
  EXPECT_GT(summary.unused, 3000u);
  EXPECT_GT(summary.side_files, 3000u);
  EXPECT_GT(summary.projects_without_audio, 0u);
}

TEST(LargePlan, no_folder_is_crowded_even_when_one_song_has_everything) {
  const StudioPlan plan = planned(1, 100, 30'000);
  std::map<std::string, int> per_folder;
  for (const PlannedFile& file : plan.files()) {
    ++per_folder[file.path.substr(0, file.path.rfind('\\'))];
  }
  for (const auto& [folder, files] : per_folder) EXPECT_LE(files, 130) << text::to_utf8(folder);
  EXPECT_GT(per_folder.size(), 300u);
}

TEST(LargePlan, another_seed_gives_another_studio) {
  const StudioPlan one = planned(20, 500, 1000, 1);
  const StudioPlan same = planned(20, 500, 1000, 1);
  const StudioPlan other = planned(20, 500, 1000, 2);
  const auto names = [](const StudioPlan& plan) {
    std::vector<std::string> paths;
    for (const PlannedFile& file : plan.files()) paths.push_back(file.path);
    for (const PlannedProject& project : plan.projects()) {
      paths.insert(paths.end(), project.references.begin(), project.references.end());
    }
    return paths;
  };
  EXPECT_EQ(names(one), names(same));
  EXPECT_NE(names(one), names(other));
}

}  // namespace
}  // namespace ordelan::studio
