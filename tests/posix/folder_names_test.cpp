// Names that differ by case at most, in folders small and large, while both change.
#include "posix/folder_names.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "posix/native_folder.h"

namespace ordelan::test {
namespace {

namespace fs = std::filesystem;

struct FolderNames : ::testing::TestWithParam<int> {
  FolderNames() {
    std::string made = (fs::temp_directory_path() / "ordelan_names_XXXXXX").string();
    folder = ::mkdtemp(made.data());
    for (int i = 0; i < GetParam(); ++i) touch("Toma " + std::to_string(i) + ".wav");
  }
  ~FolderNames() override { fs::remove_all(folder); }

  void touch(const std::string& name) const { std::ofstream(folder + "/" + name); }
  std::string find(const std::string& name) const {
    return posix::entry_ignoring_case(folder, name).value_or("<none>");
  }
  // Questions enough for a large folder to be kept.
  void ask_often() const {
    for (int i = 0; i < 5; ++i) find("nothing");
  }

  std::string folder;
};

TEST_P(FolderNames, are_found_whatever_their_case) {
  for (int i = 0; i < 5; ++i) EXPECT_EQ(find("TOMA 1.WAV"), "Toma 1.wav");
  EXPECT_EQ(find("Toma 1.wa"), "<none>");
}

TEST_P(FolderNames, that_come_and_go_are_seen_at_once) {
  ask_often();
  EXPECT_EQ(find("NUEVA.wav"), "<none>");
  touch("nueva.wav");
  EXPECT_EQ(find("NUEVA.wav"), "nueva.wav");
  fs::rename(folder + "/nueva.wav", folder + "/otra.wav");
  EXPECT_EQ(find("NUEVA.wav"), "<none>");
  EXPECT_EQ(find("OTRA.wav"), "otra.wav");
  fs::remove(folder + "/otra.wav");
  EXPECT_EQ(find("OTRA.wav"), "<none>");
}

TEST_P(FolderNames, of_two_the_first_by_its_bytes_is_given) {
  touch("nueva.wav");
  ask_often();
  touch("NUEVA.wav");
  EXPECT_EQ(find("Nueva.wav"), "NUEVA.wav");
  fs::remove(folder + "/NUEVA.wav");
  EXPECT_EQ(find("Nueva.wav"), "nueva.wav");
}

TEST_P(FolderNames, are_those_of_the_folder_that_has_the_path_now) {
  ask_often();
  fs::rename(folder, folder + "_old");
  fs::create_directory(folder);
  touch("otra.wav");
  EXPECT_EQ(find("TOMA 1.wav"), "<none>");
  EXPECT_EQ(find("OTRA.wav"), "otra.wav");
  fs::remove_all(folder + "_old");
  fs::remove_all(folder);
  EXPECT_EQ(find("OTRA.wav"), "<none>");
}

TEST_P(FolderNames, are_the_same_after_very_many_changes) {
  ask_often();
  std::mt19937 random(7);
  for (int i = 0; i < 40'000; ++i) {
    const std::string name = folder + "/" + std::to_string(random() % 50) + ".Wav";
    if (random() % 2 == 0) {
      std::ofstream(name).close();
    } else {
      fs::remove(name);
    }
  }
  for (int i = 0; i < 50; ++i) {
    const std::string name = std::to_string(i) + ".Wav";
    EXPECT_EQ(find(std::to_string(i) + ".WAV") == name, fs::exists(folder + "/" + name)) << name;
  }
}

TEST_P(FolderNames, of_several_large_folders_are_not_mixed_up) {
  std::vector<std::string> others;
  for (int other = 0; other < 6; ++other) {
    others.push_back(folder + "/Sub" + std::to_string(other));
    fs::create_directory(others.back());
    for (int i = 0; i < GetParam(); ++i) {
      std::ofstream(others.back() + "/" + std::to_string(other) + "x" + std::to_string(i) + ".Wav");
    }
  }
  for (int round = 0; round < 4; ++round) {
    for (int other = 0; other < 6; ++other) {
      const std::string name = std::to_string(other) + "x1.WAV";
      for (int i = 0; i < 3; ++i) {
        for (int in = 0; in < 6; ++in) {
          EXPECT_EQ(
              posix::entry_ignoring_case(others[static_cast<std::size_t>(in)], name).has_value(),
              in == other);
        }
        EXPECT_TRUE(posix::entry_ignoring_case(others[static_cast<std::size_t>(other)], name));
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, FolderNames, ::testing::Values(3, 400));

}  // namespace
}  // namespace ordelan::test
