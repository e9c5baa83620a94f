#include "project/candidates.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "project/candidates_of.h"
#include "project/memory_folders.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;

TEST(Candidates, keep_a_file_once_however_often_its_folder_is_searched) {
  MemoryFolders disk;
  disk.add_folder("D:\\Mix");
  for (const char* name : {"a.wav", "b.mp3", "n.txt"}) {
    disk.add_file("D:\\Mix\\" + std::string(name), "");
  }
  project::Candidates candidates;
  {
    work::FolderTree tree(disk);
    for (int i = 0; i < 2; ++i) {
      const auto [first, end] = candidates.files_of("D:\\Mix\\", tree.listing("D:\\Mix\\"));
      EXPECT_EQ(first, 0u);
      EXPECT_EQ(end, 2u) << "the text file is no candidate";
    }
  }
  candidates.list({1, 0});
  candidates.list({0});
  EXPECT_EQ(candidates.files(), 2u);
  EXPECT_THAT(paths_of(candidates),
              ElementsAre("D:\\Mix\\b.mp3", "D:\\Mix\\a.wav", "D:\\Mix\\a.wav"))
      << "the listing that they came from has gone";
}

TEST(Candidates, stay_what_they_are_when_they_are_moved) {
  auto made = candidates_of({"D:\\a.wav", "D:\\FreezeData\\a.wav"});
  const project::Candidates candidates = std::move(made);
  EXPECT_THAT(paths_of(candidates), ElementsAre("D:\\a.wav", "D:\\FreezeData\\a.wav"));
}

TEST(Candidates, are_at_their_own_path_alone) {
  const auto candidates = candidates_of({"D:\\Mix\\a.wav"});
  EXPECT_TRUE(candidates.is_at(0, "D:\\Mix\\a.wav"));
  for (const char* other : {"D:\\mix\\a.wav", "D:\\Mix\\A.wav", "D:\\Mix\\a.wa", "D:\\Mix\\aa.wav",
                            "D:\\Mix\\Mix\\a.wav", "a.wav", "D:\\Max\\a.wav", ""}) {
    EXPECT_FALSE(candidates.is_at(0, other)) << other;
  }
}

TEST(Candidates, that_are_no_audio_or_frozen_may_not_be_offered) {
  const auto candidates =
      candidates_of({"D:\\a.wav", "D:\\a.h2", "D:\\FreezeData\\a.wav", "D:\\a FreezeData.wav",
                     "D:\\x.wav\\.h2", "D:\\mi FreezeData 2\\b\\a.wav", "D:\\freezedata\\a.WAV"});
  std::vector<bool> may;
  for (const auto file : all_of(candidates)) may.push_back(candidates.may_be_offered(file));
  EXPECT_THAT(may, ElementsAre(true, false, false, false, false, false, true));
}

}  // namespace
}  // namespace ordelan::test
