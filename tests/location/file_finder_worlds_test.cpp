// The finder against the literal one, over thousands of random little disks.
#include <gmock/gmock.h>

#include <cstdlib>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "location/file_finder.h"
#include "location/literal_finder.h"
#include "project/memory_folders.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/hostile_bytes.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAreArray;

std::uint64_t worlds_to_run() {
  const char* asked = std::getenv("ORDELAN_WORLDS");
  return asked == nullptr ? 5'000 : std::strtoull(asked, nullptr, 10);
}

template <class Table>
auto one_of(Dice& dice, const Table& table) {
  return table[dice.below(std::size(table))];
}

constexpr const char* kNames[] = {"a",          "b",        "take.wav",     "TAKE.WAV",
                                  "take.mp3",   "x.fla",    "x.flac",       "[x].wav",
                                  ".wav",       "a.b.wav",  "a;b.wav",      "mix 1.wav",
                                  "mix 1 .wav", "RECICLER", "\xC1rbol.wav", "\xE1rbol.wav"};
constexpr std::uint64_t kSizes[] = {0, 1, 99, 100, 101, 0x7FFFFFFF, 0x80000000, 0x1'0000'0064};

// A disk of up to seventy folders and files, some of them links.
void fill(Dice& dice, MemoryFolders& disk) {
  std::vector<std::string> folders = {"D:\\"};
  const std::size_t count = 10 + dice.below(60);
  for (std::size_t i = 0; i < count; ++i) {
    const std::string path = one_of(dice, folders) + one_of(dice, kNames);
    if (dice.below(3) == 0) {
      const bool link = dice.below(8) == 0;
      if (disk.add_folder(path, link) && !link) folders.push_back(path + "\\");
      continue;
    }
    system::FileInfo file;
    file.size = one_of(dice, kSizes);
    file.attributes = dice.below(2) == 0 ? 0x20 : 0x21;
    for (double* const date : {&file.modified, &file.created, &file.accessed}) {
      *date = 46000 + static_cast<double>(dice.below(12)) / 4;
    }
    disk.add_file(path, file);
  }
  disk.backwards = dice.below(2) == 0;
}

LiteralSearch random_search(Dice& dice) {
  constexpr const char* kPaths[] = {
      "D:\\", "D:\\", "D:\\", "D:", "D:\\a", "D:\\a\\", "D:\\nada", ""};
  constexpr const char* kExtensions[] = {"",       ";",        ";;",    "wav;mp3", "*.wav;*.mp3;",
                                         "WAV;",   "take.wav", "*.wav", "*.fla",   "x.fla",
                                         "t?ke.*", "wav;;fla", "*.*"};
  constexpr const char* kFileNames[] = {"",     "",  "",        "",         "",   "take",
                                        "TAKE", "a", " mix 1 ", "\xC1rbol", "a.b"};
  constexpr std::int64_t kLimits[] = {0, 0, 0, 0, 0, 1, 100, 0x7FFFFFFF};
  constexpr double kDates[] = {0, 0, 0, 0, 0, 0, 46001, 46001.5, 46002};
  LiteralSearch search;
  search.Path = one_of(dice, kPaths);
  search.Extensions = one_of(dice, kExtensions);
  search.FileName = one_of(dice, kFileNames);
  search.Mode = dice.below(4) == 0 ? 0 : 1;
  search.SearchSubDirs = dice.below(5) != 0;
  search.MinFileSize = one_of(dice, kLimits);
  search.MaxFileSize = one_of(dice, kLimits);
  if (search.MaxFileSize != 0 && search.MinFileSize > search.MaxFileSize) search.MinFileSize = 0;
  search.Attributes = dice.below(8) == 0 ? 0x21 : 0;
  search.DateLastModifiedFrom = one_of(dice, kDates);
  search.DateLastModifiedTo = one_of(dice, kDates);
  if (dice.below(4) == 0) {
    search.DateCreationFrom = one_of(dice, kDates);
    search.DateCreationTo = one_of(dice, kDates);
    search.DateLastAccessFrom = one_of(dice, kDates);
    search.DateLastAccessTo = one_of(dice, kDates);
  }
  search.stop_after = dice.below(4) == 0 ? 1 + dice.below(3) : 0;
  return search;
}

TEST(FileFinderWorlds, hits_events_and_counts_are_those_of_the_literal_search) {
  const std::uint64_t worlds = worlds_to_run();
  std::uint64_t hits = 0;
  for (std::uint64_t seed = 0; seed < worlds; ++seed) {
    Dice dice(seed);
    MemoryFolders disk;
    fill(dice, disk);
    const LiteralSearch search = random_search(dice);

    HandClock clock;
    FixedRegional regional;
    FakeDrives drives;
    drives.add("D:\\");
    drives.add("E:\\", system::DriveType::removable).medium = false;
    FakeShell shell;
    FakeMedia media;
    headless::ScriptedDialogs dialogs;
    headless::HeadlessBackend backend(clock);
    const system::Platform platform{disk, dialogs, backend, clock, regional, drives, shell, media};
    location::cFindFiles finder(platform);
    finder.SearchSubDirs = search.SearchSubDirs;
    finder.set_MaxFileSize(search.MaxFileSize);
    finder.set_MinFileSize(search.MinFileSize);
    finder.Attributes = search.Attributes;
    finder.DateLastModifiedFrom = search.DateLastModifiedFrom;
    finder.DateLastModifiedTo = search.DateLastModifiedTo;
    finder.DateCreationFrom = search.DateCreationFrom;
    finder.DateCreationTo = search.DateCreationTo;
    finder.DateLastAccessFrom = search.DateLastAccessFrom;
    finder.DateLastAccessTo = search.DateLastAccessTo;
    std::vector<std::string> events;
    finder.InitSearch = [&] { events.push_back("InitSearch"); };
    finder.EndSearch = [&] { events.push_back("EndSearch"); };
    finder.GetFile = [&](const std::string& path) {
      events.push_back("GetFile " + path);
      if (finder.ColFiles().size() + 1 == search.stop_after) finder.StopSearch();
    };
    finder.Find(search.Path, search.Extensions, search.FileName, search.Mode);
    for (const auto& [folder, times] : disk.listings) {
      EXPECT_EQ(times, 1) << folder << " has been listed more than once";
    }

    const LiteralOutcome wanted = literal_find(disk, finder.ColDrives(), search);
    ASSERT_THAT(events, ElementsAreArray(wanted.events)) << "seed " << seed;
    ASSERT_THAT(finder.ColFiles(), ElementsAreArray(wanted.ColFiles)) << "seed " << seed;
    ASSERT_EQ(finder.FilesCount(), wanted.FilesCount) << "seed " << seed;
    ASSERT_EQ(finder.TotalSize(), wanted.TotalSize) << "seed " << seed;
    if (search.stop_after == 0 || wanted.ColFiles.size() < search.stop_after) {
      ASSERT_EQ(finder.DirCount(), wanted.DirCount) << "seed " << seed;
    }
    hits += wanted.ColFiles.size();
  }
  EXPECT_GT(hits, worlds / 2) << "the disks are too poor to prove anything";
}

}  // namespace
}  // namespace ordelan::test
