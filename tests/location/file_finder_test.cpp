#include "location/file_finder.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "project/memory_folders.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using location::cFindFiles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

// A finder on a real disk, with a record of its events.
struct FileFinder : ::testing::Test {
  FileFinder() {
    finder.InitSearch = [this] { events.push_back("InitSearch"); };
    finder.EndSearch = [this] { events.push_back("EndSearch"); };
    finder.GetFile = [this](const std::string& path) { events.push_back(path); };
  }

  std::vector<std::string> find(const std::string& extensions, const std::string& name = "",
                                int mode = 1) {
    finder.Find(bench.disk.folder(), extensions, name, mode);
    return finder.ColFiles();
  }
  std::string path(const std::string& below) const { return bench.disk.path(below); }

  ProgramBench bench;
  cFindFiles finder{bench.platform};
  std::vector<std::string> events;
};

TEST_F(FileFinder, an_empty_list_of_extensions_finds_every_file) {
  bench.disk.write("b.wav", "1");
  bench.disk.write("sin punto", "12");
  EXPECT_THAT(find(""), ElementsAre(path("b.wav"), path("sin punto")));
  EXPECT_THAT(finder.ColExtensions(), ElementsAre("*.*"));
  EXPECT_EQ(finder.FilesCount(), 2);
  EXPECT_EQ(finder.TotalSize(), 3);
}

TEST_F(FileFinder, several_extensions_are_compared_without_their_stars_and_without_case) {
  bench.disk.write("a.MP3", "");
  bench.disk.write("b.wav", "");
  bench.disk.write("c.flac", "");
  bench.disk.write("d.wave", "");
  EXPECT_THAT(find("mp3;wav;"), ElementsAre(path("a.MP3"), path("b.wav")));
  EXPECT_THAT(finder.ColExtensions(), ElementsAre("mp3", "wav"));
  EXPECT_THAT(find("*.mp3;*.wav"), ElementsAre(path("a.MP3"), path("b.wav")));
  EXPECT_THAT(finder.ColExtensions(), ElementsAre("mp3", "wav"));
}

TEST_F(FileFinder, one_piece_without_a_wildcard_is_a_whole_name_in_every_folder) {
  bench.disk.write("Mix\\toma.wav", "");
  bench.disk.write("Mix\\Viejo\\Toma.WAV", "");
  bench.disk.write("Mix\\otra toma.wav", "");
  bench.disk.write("toma.wave", "");
  EXPECT_THAT(find("toma.wav"), ElementsAre(path("Mix\\toma.wav"), path("Mix\\Viejo\\Toma.WAV")));
}

TEST_F(FileFinder, files_come_before_subfolders_each_in_alphabetical_order) {
  for (const char* name : {"b\\2.wav", "b\\1.wav", "a\\z\\3.wav", "a\\4.wav", "c.wav", "B2.wav"}) {
    bench.disk.write(name, "");
  }
  EXPECT_THAT(find("*.wav"), ElementsAre(path("B2.wav"), path("c.wav"), path("a\\4.wav"),
                                         path("a\\z\\3.wav"), path("b\\1.wav"), path("b\\2.wav")));
  EXPECT_EQ(finder.DirCount(), 3);
}

TEST_F(FileFinder, without_subfolders_none_is_searched_or_counted) {
  bench.disk.write("a.wav", "");
  bench.disk.write("b\\c.wav", "");
  finder.SearchSubDirs = false;
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
  EXPECT_EQ(finder.DirCount(), 0);
}

TEST_F(FileFinder, an_empty_path_searches_all_drives_in_their_order) {
  bench.drives.drives.clear();
  bench.add_drive("dos");
  bench.add_drive("uno", system::DriveType::cdrom);
  cFindFiles everywhere(bench.platform);
  EXPECT_THAT(everywhere.ColDrives(), ElementsAre(path("dos\\"), path("uno\\")));
  bench.disk.write("uno\\a.wav", "");
  bench.disk.write("dos\\a.wav", "");
  bench.disk.write("tres\\a.wav", "");
  everywhere.Find("", "a.wav", "", 1);
  EXPECT_THAT(everywhere.ColFiles(), ElementsAre(path("dos\\a.wav"), path("uno\\a.wav")));
}

TEST_F(FileFinder, a_name_with_a_colon_ends_at_once_and_the_search_is_never_begun) {
  bench.disk.write("a.wav", "");
  EXPECT_THAT(find("*.wav", "D:a"), IsEmpty());
  EXPECT_THAT(events, ElementsAre("EndSearch"));
  ASSERT_EQ(bench.dialogs.messages.size(), 1u);
  const system::Message& box = bench.dialogs.messages[0];
  EXPECT_EQ(box.title, "Error en nombre de archivo");
  EXPECT_EQ(
      box.text,
      "El nombre de archivo no puede contener ninguno de estos caracteres : / \\ * ? : | < > ");
  EXPECT_EQ(box.icon, system::Icon::critical);
}

TEST_F(FileFinder, every_forbidden_character_of_a_name_is_refused) {
  for (const char c : std::string("*|><?:/\\")) {
    events.clear();
    find("*.wav", std::string("a") + c);
    EXPECT_THAT(events, ElementsAre("EndSearch")) << c;
  }
}

TEST_F(FileFinder, what_was_found_last_stays_when_a_name_is_refused) {
  bench.disk.write("a.wav", "");
  find("*.wav");
  EXPECT_THAT(find("*.wav", "a?"), ElementsAre(path("a.wav")));
}

TEST_F(FileFinder, limits_of_the_size_let_files_of_just_that_size_pass) {
  bench.disk.write("99.wav", std::string(99, 'x'));
  bench.disk.write("100.wav", std::string(100, 'x'));
  bench.disk.write("101.wav", std::string(101, 'x'));
  finder.set_MaxFileSize(100);
  EXPECT_THAT(find("*.wav"), ElementsAre(path("100.wav"), path("99.wav")));
  finder.set_MinFileSize(100);
  EXPECT_THAT(find("*.wav"), ElementsAre(path("100.wav")));
  EXPECT_EQ(finder.TotalSize(), 100);
}

// Limits are compared with 32 bits of the size; a maximum lets the very large pass.
TEST_F(FileFinder, a_file_over_two_gibibytes_counts_as_one_of_a_negative_size) {
  bench.disk.write_sparse("grande.wav", 0x8000'0000u);
  finder.set_MaxFileSize(10);
  EXPECT_THAT(find("*.wav"), ElementsAre(path("grande.wav")));
  EXPECT_EQ(finder.TotalSize(), -2147483648.0);
}

TEST_F(FileFinder, a_minimum_above_the_maximum_is_refused_and_goes_back_to_none) {
  finder.set_MaxFileSize(100);
  finder.set_MinFileSize(50);
  finder.set_MinFileSize(101);
  EXPECT_EQ(finder.MinFileSize(), 0);
  EXPECT_EQ(finder.MaxFileSize(), 100);
  ASSERT_EQ(bench.dialogs.messages.size(), 1u);
  EXPECT_EQ(bench.dialogs.messages[0].text,
            "El valor mínimo no puede ser mayor al valor máximo. Cambie el valor de MaxFileSize.");
  EXPECT_EQ(bench.dialogs.messages[0].icon, system::Icon::exclamation);
}

TEST_F(FileFinder, a_maximum_below_the_minimum_is_refused_in_the_same_way) {
  finder.set_MinFileSize(100);
  finder.set_MaxFileSize(99);
  EXPECT_EQ(finder.MaxFileSize(), 0);
  EXPECT_EQ(finder.MinFileSize(), 100);
  ASSERT_EQ(bench.dialogs.messages.size(), 1u);
  EXPECT_EQ(bench.dialogs.messages[0].icon, system::Icon::exclamation);
  finder.set_MaxFileSize(100);
  EXPECT_EQ(finder.MaxFileSize(), 100);
}

TEST_F(FileFinder, attributes_must_be_equal_as_a_whole) {
  bench.disk.write("a.wav", "");
  const auto there = bench.disk.files().info(path("a.wav"));
  finder.Attributes = static_cast<std::int32_t>(there->attributes);
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
  finder.Attributes ^= 0x2000;
  EXPECT_THAT(find("*.wav"), IsEmpty());
}

TEST_F(FileFinder, limits_of_the_date_look_at_the_day_alone) {
  bench.disk.write("a.wav", "");
  const auto dates = finder.GetFileDateTime(path("a.wav"));
  ASSERT_TRUE(dates);
  const double today = static_cast<double>(static_cast<int>(dates->LastModified));
  finder.DateLastModifiedFrom = today;
  finder.DateLastModifiedTo = today;
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
  finder.DateLastModifiedFrom = today + 0.5;  // after its own day
  EXPECT_THAT(find("*.wav"), IsEmpty());
  finder.DateLastModifiedFrom = 0;
  finder.DateLastModifiedTo = today - 1;
  EXPECT_THAT(find("*.wav"), IsEmpty());
}

// A file of one date each on a disk in memory: made on day 46001, changed on day 46002 and last
// read on day 46003, all at noon.
struct FinderOfDates : ::testing::Test {
  FinderOfDates() {
    system::FileInfo file;
    file.created = 46001.5;
    file.modified = 46002.5;
    file.accessed = 46003.5;
    files.add_file("D:\\a.wav", file);
  }
  // Whether the file is found with one limit alone.
  bool found(location::Date cFindFiles::*limit, location::Date date) {
    const system::Platform platform{files,          bench.dialogs, bench.backend, bench.clock,
                                    bench.regional, bench.drives,  bench.shell,   bench.media};
    cFindFiles finder(platform);
    finder.*limit = date;
    finder.Find("D:\\", "*.wav", "", 1);
    return !finder.ColFiles().empty();
  }

  ProgramBench bench;
  MemoryFolders files;
};

TEST_F(FinderOfDates, each_limit_looks_at_its_own_date_and_at_the_day_alone) {
  struct Limits {
    location::Date cFindFiles::*from;
    location::Date cFindFiles::*to;
    double day;
  };
  const Limits all[] = {
      {&cFindFiles::DateCreationFrom, &cFindFiles::DateCreationTo, 46001},
      {&cFindFiles::DateLastModifiedFrom, &cFindFiles::DateLastModifiedTo, 46002},
      {&cFindFiles::DateLastAccessFrom, &cFindFiles::DateLastAccessTo, 46003},
  };
  for (const auto& [from, to, day] : all) {
    EXPECT_TRUE(found(from, day - 1)) << day;
    EXPECT_TRUE(found(from, day)) << day;
    EXPECT_FALSE(found(from, day + 0.5)) << "a limit with a time lies after its own day: " << day;
    EXPECT_FALSE(found(from, day + 1)) << day;
    EXPECT_FALSE(found(to, day - 1)) << day;
    EXPECT_FALSE(found(to, day - 0.5)) << day;
    EXPECT_TRUE(found(to, day)) << day;
    EXPECT_TRUE(found(to, day + 1)) << day;
    EXPECT_TRUE(found(from, 0) && found(to, 0)) << "0 is no limit";
  }
}

TEST_F(FileFinder, limits_of_creation_and_of_the_last_access_are_those_of_the_disk) {
  bench.disk.write("a.wav", "");
  const auto dates = finder.GetFileDateTime(path("a.wav"));
  ASSERT_TRUE(dates);
  const auto day_of = [](location::Date date) {
    return static_cast<double>(static_cast<int>(date));
  };
  struct Limits {
    location::Date* from;
    location::Date* to;
    double day;
  };
  for (const auto& [from, to, day] :
       {Limits{&finder.DateCreationFrom, &finder.DateCreationTo, day_of(dates->Creation)},
        Limits{&finder.DateLastAccessFrom, &finder.DateLastAccessTo, day_of(dates->LastAccess)}}) {
    ASSERT_GT(day, 40000) << "a date of this century";
    *from = *to = day;
    EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
    *from = day + 1;
    *to = 0;
    EXPECT_THAT(find("*.wav"), IsEmpty());
    *from = 0;
    *to = day - 1;
    EXPECT_THAT(find("*.wav"), IsEmpty());
    *to = 0;
  }
}

TEST_F(FileFinder, the_name_is_looked_for_in_what_stands_before_the_extension) {
  bench.disk.write("toma 1.wav", "");
  bench.disk.write("La Toma.mp3", "");
  bench.disk.write("otra.toma", "");
  EXPECT_THAT(find("", "TOMA"), ElementsAre(path("La Toma.mp3"), path("toma 1.wav")));
  EXPECT_THAT(find("", "toma 1", 0), ElementsAre(path("toma 1.wav")));
  EXPECT_THAT(find("", " Toma 1 ", 2), ElementsAre(path("toma 1.wav")));
  EXPECT_THAT(find("", "toma", 0), IsEmpty());
}

TEST_F(FileFinder, a_stop_ends_the_search_at_once_and_is_forgotten_at_its_end) {
  for (const char* name : {"a.wav", "b.wav", "c\\d.wav"}) bench.disk.write(name, "");
  finder.GetFile = [this](const std::string& hit) {
    events.push_back(hit);
    finder.StopSearch();
  };
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
  EXPECT_THAT(events, ElementsAre("InitSearch", path("a.wav"), "EndSearch"));
  finder.GetFile = nullptr;
  EXPECT_EQ(find("*.wav").size(), 3u);
}

TEST_F(FileFinder, a_search_asked_for_during_a_search_does_nothing) {
  bench.disk.write("a.wav", "");
  bench.disk.write("b.mp3", "");
  finder.GetFile = [this](const std::string&) { finder.Find(bench.disk.folder(), "*.mp3", "", 1); };
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
  EXPECT_THAT(events, ElementsAre("InitSearch", "EndSearch"));
}

TEST_F(FileFinder, a_search_that_fails_ends_without_a_word_and_can_be_repeated) {
  bench.disk.write("a.wav", "");
  finder.GetFile = [](const std::string&) { throw std::runtime_error("no"); };
  find("*.wav");
  EXPECT_THAT(events, ElementsAre("InitSearch"));
  finder.GetFile = nullptr;
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
}

TEST_F(FileFinder, a_folder_that_vanishes_during_the_search_is_an_empty_one) {
  bench.disk.write("a.wav", "");
  bench.disk.write("b\\c.wav", "");
  bench.disk.write("d\\e.wav", "");
  finder.GetFile = [this](const std::string&) { bench.disk.remove("b"); };
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav"), path("d\\e.wav")));
}

TEST_F(FileFinder, trees_deeper_than_any_path_used_to_be_are_searched_to_their_ends) {
  std::string deep;
  for (int i = 0; i < 40; ++i) deep += "carpeta profunda\\";
  bench.disk.write(deep + "a.wav", "");
  EXPECT_THAT(find("a.wav"), ElementsAre(path(deep + "a.wav")));
  EXPECT_EQ(finder.DirCount(), 40);
}

TEST_F(FileFinder, the_window_has_its_turns_and_may_stop_the_search_in_them) {
  for (int i = 0; i < 50; ++i) bench.disk.write(std::to_string(i) + "\\a.wav", "");
  int turns = 0;
  finder.on_turn = [&] {
    if (++turns == 10) finder.StopSearch();
  };
  find("*.wav");
  EXPECT_EQ(turns, 11);  // the last one is given at the end
  EXPECT_LT(finder.FilesCount(), 11);
  EXPECT_EQ(events.back(), "EndSearch");
}

TEST_F(FileFinder, questions_about_a_path_distinguish_files_from_folders) {
  bench.disk.write("a.wav", "");
  EXPECT_TRUE(finder.FileExist(path("a.wav")));
  EXPECT_TRUE(finder.FileExist(bench.disk.folder()));
  EXPECT_FALSE(finder.FileExist(path("b.wav")));
  EXPECT_TRUE(finder.IsDirectory(bench.disk.folder()));
  EXPECT_FALSE(finder.IsDirectory(path("a.wav")));
}

TEST_F(FileFinder, helpers_cut_paths) {
  EXPECT_EQ(cFindFiles::GetFileName("D:\\Mix\\toma.wav"), "toma.wav");
  EXPECT_EQ(cFindFiles::GetExtension("D:\\Mix\\toma.WAV"), "WAV");
  EXPECT_EQ(cFindFiles::GetDriveFromPath("D:\\Mix\\toma.wav"), "D:\\");
  EXPECT_EQ(cFindFiles::CompactPath("D:\\Mix\\Viejo\\toma.wav", 16), "D:\\M...\\toma.wav");
}

TEST_F(FileFinder, helpers_find_the_drives) {
  auto& removable = bench.drives.add("F:\\", system::DriveType::removable, "TARJETA");
  removable.space = {1000, 300};
  bench.drives.add("G:\\", system::DriveType::removable).medium = false;
  const system::DriveType kinds[] = {system::DriveType::unknown,   system::DriveType::no_root_dir,
                                     system::DriveType::removable, system::DriveType::fixed,
                                     system::DriveType::remote,    system::DriveType::cdrom,
                                     system::DriveType::ramdisk};
  const char* names[] = {"DRIVE_UNKNOWN", "DRIVE_NO_ROOT_DIR", "DRIVE_REMOVABLE", "DRIVE_FIXED",
                         "DRIVE_REMOTE",  "DRIVE_CDROM",       "DRIVE_RAMDISK"};
  for (int i = 0; i < 7; ++i) {
    bench.drives.add("H:\\", kinds[i]);
    EXPECT_EQ(finder.GetDriveType("H"), names[i]);
  }
  EXPECT_EQ(finder.GetDriveType("Z:\\"), "DRIVE_NO_ROOT_DIR");
  EXPECT_TRUE(finder.DriveIsReady("F"));
  EXPECT_FALSE(finder.DriveIsReady("G"));
  EXPECT_EQ(finder.GetDriveInfo("F:")->label, "TARJETA");
  EXPECT_FALSE(finder.GetDriveInfo("G:\\"));
  EXPECT_EQ(finder.GetDiskFreeSpace("F:\\")->free, 300u);
}

TEST_F(FileFinder, sizes_are_written_with_two_decimals) {
  EXPECT_EQ(finder.GetFormatSize(0), "0,00 bytes");
  EXPECT_EQ(finder.GetFormatSize(1023), "1023,00 bytes");
  EXPECT_EQ(finder.GetFormatSize(1024), "1,00 KB");
  EXPECT_EQ(finder.GetFormatSize(1.5 * 1024 * 1024), "1,50 MB");
  EXPECT_EQ(finder.GetFormatSize(5.0 * 1024 * 1024 * 1024 * 1024), "5120,00 GB");
}

TEST_F(FileFinder, the_desktop_is_asked_for_kinds_programs_icons_and_folders) {
  bench.shell.types["D:\\a.wav"] = "Sonido";
  bench.shell.executables["D:\\a.wav"] = "C:\\player.exe";
  bench.shell.icons["D:\\a.wav"] = {1, 1, {0xFF00FF00}};
  bench.dialogs.folders.push_back("D:\\Copia");
  EXPECT_EQ(finder.GetFileType("D:\\a.wav"), "Sonido");
  EXPECT_EQ(finder.GetExecutable("D:\\a.wav"), "C:\\player.exe");
  const auto icon = finder.LoadIcon("D:\\a.wav");
  ASSERT_TRUE(icon);
  EXPECT_FALSE(finder.LoadIcon("D:\\b.wav"));
  EXPECT_EQ(finder.BrowseForFolder("Elige"), "D:\\Copia");
  EXPECT_EQ(finder.BrowseForFolder("Elige"), "");

  ui::Window window(bench.backend, "W");
  ui::Image image(window, "Icono");
  cFindFiles::DrawIcon(*icon, image);
  EXPECT_EQ(image.pixels().argb, icon->argb);
}

TEST_F(FileFinder, a_stop_that_came_before_a_search_is_none_of_its_own) {
  bench.disk.write("a.wav", "1");
  finder.StopSearch();
  EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav")));
}

TEST_F(FileFinder, each_search_counts_from_nothing) {
  bench.disk.write("a.wav", "123");
  bench.disk.write("b\\c.wav", "45");
  for (int i = 0; i < 2; ++i) {
    EXPECT_THAT(find("*.wav"), ElementsAre(path("a.wav"), path("b\\c.wav")));
    EXPECT_EQ(finder.FilesCount(), 2);
    EXPECT_EQ(finder.DirCount(), 1);
    EXPECT_EQ(finder.TotalSize(), 5);
    EXPECT_THAT(finder.ColExtensions(), ElementsAre("*.wav"));
  }
  EXPECT_THAT(find("c.wav"), ElementsAre(path("b\\c.wav"))) << "the pattern of before is forgotten";
}

TEST_F(FileFinder, a_maximum_of_none_and_limits_that_are_equal_are_taken) {
  finder.set_MinFileSize(100);
  finder.set_MaxFileSize(100);
  EXPECT_EQ(finder.MaxFileSize(), 100);
  finder.set_MinFileSize(100);
  EXPECT_EQ(finder.MinFileSize(), 100);
  finder.set_MaxFileSize(0);
  EXPECT_EQ(finder.MaxFileSize(), 0);
  finder.set_MinFileSize(1000);
  EXPECT_EQ(finder.MinFileSize(), 1000);
  EXPECT_THAT(bench.dialogs.messages, IsEmpty());
}

// A finder on a disk in memory, and all that it passes over.
struct FinderOfUnseen : ::testing::Test {
  FinderOfUnseen() {
    for (const char* folder : {"D:\\a", "D:\\b", "D:\\c"}) files.add_folder(folder);
    files.add_folder("D:\\a\\Enlace", true);
    for (const char* file : {"D:\\a\\1.wav", "D:\\b\\2.wav", "D:\\c\\3.wav"}) {
      files.add_file(file, "x");
    }
  }
  void note_unseen() {
    finder.on_unseen = [this](const std::string& path, cFindFiles::Unseen why) {
      unseen.emplace_back(path, why);
    };
  }

  ProgramBench bench;
  MemoryFolders files;
  system::Platform platform{files,          bench.dialogs, bench.backend, bench.clock,
                            bench.regional, bench.drives,  bench.shell,   bench.media};
  cFindFiles finder{platform};
  std::vector<std::pair<std::string, cFindFiles::Unseen>> unseen;
};

TEST_F(FinderOfUnseen, links_names_outside_the_code_page_and_closed_folders_are_reported) {
  files.forbid("D:\\b\\");
  files.add_unnamed("D:\\c\\", {"toma ?.wav", false});
  files.add_unnamed("D:\\c\\", {"Mezcla ?", true});
  for (const bool listens : {false, true}) {
    if (listens) note_unseen();
    finder.Find("D:\\", "*.wav", "", 1);
    EXPECT_THAT(finder.ColFiles(), ElementsAre("D:\\a\\1.wav", "D:\\c\\3.wav")) << listens;
  }
  using Unseen = cFindFiles::Unseen;
  EXPECT_THAT(unseen, ElementsAre(Pair("D:\\a\\Enlace\\", Unseen::linked),
                                  Pair("D:\\b\\", Unseen::unreadable),
                                  Pair("D:\\c\\toma ?.wav", Unseen::unnamed),
                                  Pair("D:\\c\\Mezcla ?\\", Unseen::unnamed)));
  EXPECT_EQ(finder.DirCount(), 4) << "the link is counted";
}

TEST_F(FinderOfUnseen, a_folder_that_is_missing_is_not_called_unreadable) {
  note_unseen();
  finder.Find("D:\\nada", "*.wav", "", 1);
  EXPECT_THAT(finder.ColFiles(), IsEmpty());
  EXPECT_THAT(unseen, IsEmpty());
}

TEST_F(FinderOfUnseen, a_search_without_subfolders_reports_no_link) {
  note_unseen();
  finder.SearchSubDirs = false;
  finder.Find("D:\\a", "*.wav", "", 1);
  EXPECT_THAT(finder.ColFiles(), ElementsAre("D:\\a\\1.wav"));
  EXPECT_THAT(unseen, IsEmpty());
}

TEST_F(FinderOfUnseen, the_window_has_its_turns_in_a_folder_of_files_that_do_not_fit) {
  for (int i = 0; i < 5'000; ++i) files.add_file("D:\\c\\" + std::to_string(i) + ".mp3", "");
  int turns = 0;
  finder.on_turn = [&] { ++turns; };
  finder.Find("D:\\c", "*.wav", "", 1);
  EXPECT_GE(turns, 5'000 / 256);
  EXPECT_LE(turns, 200) << "not one for each file";

  // A stop in the middle of the folder: what was found in it is not reported.
  turns = 0;
  files.add_file("D:\\c\\0.wav", "");
  finder.on_turn = [&] {
    if (++turns == 4) finder.StopSearch();
  };
  finder.Find("D:\\c", "*.wav", "", 1);
  EXPECT_THAT(finder.ColFiles(), IsEmpty());
  EXPECT_LE(turns, 6) << "the rest of the folder is left alone";
}

TEST_F(FinderOfUnseen, each_drive_of_a_search_of_all_begins_with_a_turn) {
  bench.drives.drives.clear();
  for (const char* root : {"D:\\", "E:\\", "F:\\"}) bench.drives.add(root);
  cFindFiles everywhere(platform);
  bench.clock.step = {};  // no turn is due
  int turns = 0;
  everywhere.on_turn = [&] { ++turns; };
  int pumps = 0;
  bench.backend.on_pump = [&] { ++pumps; };
  everywhere.Find("", "*.wav", "", 1);
  EXPECT_EQ(everywhere.ColFiles().size(), 3u);
  EXPECT_EQ(turns, 4) << "and one at the end";
  EXPECT_EQ(pumps, 4);
}

}  // namespace
}  // namespace ordelan::test
