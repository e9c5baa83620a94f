#include "settings/settings.h"

#include <gtest/gtest.h>

#include "support/faulty_files.h"
#include "support/reader_bench.h"
#include "ui/check_box.h"
#include "work/stored_state.h"

namespace ordelan::test {
namespace {

constexpr const char* kFile = "C:\\Config.ini";

struct SettingsTest : ::testing::Test, ReaderBench {
  settings::Settings store{files, regional, kFile};
  ui::CheckBox box{window, "box"};
};

TEST_F(SettingsTest, the_file_stands_where_it_always_stood) {
  settings::Settings usual(files, regional);
  EXPECT_EQ(usual.RutaConfig, "C:\\QZT\\Ordelan\\Config.ini");
  EXPECT_EQ(usual.SeccionConfig, "Settings");
}

TEST_F(SettingsTest, a_missing_file_or_key_gives_the_default) {
  EXPECT_EQ(store.LeerIni(kFile, "Volumen", "40"), "40");
  store.GrabarIni(kFile, "Other", "1");
  EXPECT_EQ(store.LeerIni(kFile, "Volumen", "40"), "40");
}

TEST_F(SettingsTest, a_written_value_is_read_back) {
  store.GrabarIni(kFile, "Ruta 1", "D:\\Audio\\Ca\xF1\xF3n");
  EXPECT_EQ(store.LeerIni(kFile, "Ruta 1", ""), "D:\\Audio\\Ca\xF1\xF3n");
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nRuta 1=D:\\Audio\\Ca\xF1\xF3n\r\n");
  EXPECT_EQ(files.contents.size(), 1u) << "no draft is left";
}

TEST_F(SettingsTest, a_value_is_cut_at_255_characters) {
  store.GrabarIni(kFile, "k", std::string(400, 'x'));
  EXPECT_EQ(store.LeerIni(kFile, "k", "").size(), 255u);
}

TEST_F(SettingsTest, a_box_is_kept_under_its_caption) {
  box.set_caption("Borrar lista 4 \"Archivos no utilizados\"");
  box.set_checked(true);
  work::write_box(store, box);
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nBorrar lista 4 \"Archivos no utilizados\"=1\r\n");
  box.set_checked(false);
  work::read_box(store, box);
  EXPECT_TRUE(box.checked());
}

TEST_F(SettingsTest, a_box_without_a_key_stays_as_designed) {
  box.set_caption("Auto Play");
  for (const bool designed : {false, true}) {
    box.set_checked(designed);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), designed);
  }
}

TEST_F(SettingsTest, broken_values_give_the_defaults) {
  for (const char* broken : {"", "abc", "-", "nan", "inf", "\xFF", "1e999x"}) {
    files.contents[kFile] = std::string("[Settings]\r\nMe_Left=") + broken + "\r\n";
    EXPECT_EQ(store.number("Me_Left", 17), 17) << broken;
  }
}

TEST_F(SettingsTest, numbers_may_carry_the_systems_decimal_mark) {
  files.contents[kFile] = "[Settings]\r\nMe_Left=12,5\r\nMe_Top=-3\r\n";
  EXPECT_EQ(store.number("Me_Left", 0), 12.5);
  EXPECT_EQ(store.number("Me_Top", 0), -3);
}

TEST_F(SettingsTest, numbers_are_written_with_the_systems_decimal_mark) {
  store.set_number("Me_Left", 12.5);
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nMe_Left=12,5\r\n");
  EXPECT_EQ(store.number("Me_Left", 0), 12.5);
  regional.mark = '.';
  store.set_number("Me_Left", 12.5);
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nMe_Left=12.5\r\n");
  EXPECT_EQ(store.number("Me_Left", 0), 12.5);
}

TEST_F(SettingsTest, values_that_no_box_has_leave_it_as_designed) {
  box.set_caption("Auto Play");
  for (const char* value : {"2", "-1", "0,5", "10", "abc", "", "True", "1x"}) {
    files.contents[kFile] = std::string("[Settings]\r\nAuto Play=") + value + "\r\n";
    for (const bool designed : {false, true}) {
      box.set_checked(designed);
      work::read_box(store, box);
      EXPECT_EQ(box.checked(), designed) << value;
    }
  }
  for (const bool stored : {false, true}) {
    files.contents[kFile] = std::string("[Settings]\r\nAuto Play=") + (stored ? "1" : "0") + "\r\n";
    box.set_checked(!stored);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), stored);
  }
}

TEST_F(SettingsTest, a_caption_with_blanks_at_its_end_is_a_key_as_it_stands) {
  box.set_caption("Unidad: ");
  for (const bool ticked : {true, false, true}) {
    box.set_checked(ticked);
    work::write_box(store, box);
    EXPECT_EQ(files.contents[kFile],
              std::string("[Settings]\r\nUnidad: =") + (ticked ? "1" : "0") + "\r\n");
    box.set_checked(!ticked);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), ticked);
  }
}

TEST_F(SettingsTest, a_volume_label_with_an_equals_sign_keeps_to_its_one_line) {
  box.set_caption("Unidad: D:\\a=b");
  for (const bool ticked : {true, false, true}) {
    box.set_checked(ticked);
    work::write_box(store, box);
    EXPECT_EQ(files.contents[kFile],
              std::string("[Settings]\r\nUnidad: D:\\a=b=") + (ticked ? "1" : "0") + "\r\n");
    box.set_checked(!ticked);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), ticked);
  }
}

TEST_F(SettingsTest, a_window_is_placed_where_it_was) {
  window.set_position({120, 45});
  work::write_place(store, window, "Me");
  window.set_position({0, 0});
  work::read_place(store, window, "Me", {1, 1});
  EXPECT_EQ(window.position(), (ui::Point{120, 45}));
  work::read_place(store, window, "Zoom", {7, 8});
  EXPECT_EQ(window.position(), (ui::Point{7, 8}));
}

TEST_F(SettingsTest, places_beyond_all_measure_do_no_harm) {
  files.contents[kFile] = "[Settings]\r\nMe_Left=1e300\r\nMe_Top=-99999999999999\r\n";
  work::read_place(store, window, "Me", {0, 0});
  EXPECT_EQ(window.position(), (ui::Point{1'000'000, -1'000'000}));
}

TEST_F(SettingsTest, a_file_that_cannot_be_read_is_not_written_over) {
  files.contents[kFile] = "[Settings]\r\nA=1\r\n";
  FaultyFiles locked(files);
  locked.faults.fail(FaultyFiles::Call::open, system::Reason::in_use);
  settings::Settings unlucky(locked, regional, kFile);
  unlucky.GrabarIni(kFile, "B", "2");
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nA=1\r\n");
}

TEST_F(SettingsTest, a_failed_write_leaves_the_file_as_it_was) {
  const std::string old = "[Settings]\r\nA=1\r\n";
  files.contents[kFile] = old;
  FaultyFiles failing(files);
  settings::Settings unlucky(failing, regional, kFile);
  using Call = FaultyFiles::Call;
  for (const Call call : {Call::create_new, Call::write, Call::flush, Call::close, Call::replace}) {
    failing.faults.heal();
    failing.faults.fail(call);
    unlucky.GrabarIni(kFile, "A", "2");
    EXPECT_EQ(files.contents[kFile], old);
    EXPECT_EQ(files.contents.size(), 1u);
  }
}

TEST_F(SettingsTest, a_value_that_stands_there_already_is_not_written_again) {
  files.contents[kFile] = "[Settings]\r\nA=1\r\n";
  FaultyFiles watched(files);
  const auto writes = [&] { return watched.faults.count(FaultyFiles::Call::create_new); };
  settings::Settings watching(watched, regional, kFile);
  watching.GrabarIni(kFile, "A", "1");
  EXPECT_EQ(writes(), 0);
  watching.GrabarIni(kFile, "A", "2");
  EXPECT_EQ(writes(), 1);
}

TEST_F(SettingsTest, settings_that_are_read_only_never_write) {
  files.contents[kFile] = "[Settings]\r\nAuto Play=1\r\nMe_Left=7\r\n";
  const auto before = files.contents;
  store.set_read_only();
  box.set_caption("Auto Play");
  work::write_box(store, box);
  work::write_place(store, window, "Me");
  store.set_number("Volumen", 3);
  store.GrabarIni(kFile, "Me_Left", "8");
  store.GrabarIni("C:\\other.ini", "Me_Left", "8");
  EXPECT_EQ(files.contents, before);
  EXPECT_EQ(store.number("Me_Left", 0), 7);
  work::read_box(store, box);
  EXPECT_TRUE(box.checked());
}

TEST_F(SettingsTest, without_a_file_everything_stays_as_designed_and_reading_makes_none) {
  EXPECT_EQ(store.number("Volumen", 40), 40);
  EXPECT_EQ(store.LeerIni(kFile, "Ruta 1", ""), "");
  window.set_position({5, 6});
  work::read_place(store, window, "Me", {0, 0});
  EXPECT_EQ(window.position(), (ui::Point{0, 0}));
  for (const bool designed : {false, true}) {
    box.set_checked(designed);
    work::read_box(store, box);
    EXPECT_EQ(box.checked(), designed);
  }
  EXPECT_TRUE(files.contents.empty());
}

TEST_F(SettingsTest, a_million_lines_are_read_through) {
  std::string& text = files.contents[kFile];
  for (int i = 0; i < 1'000'000; ++i) text += "line\r\n";
  text += "[Settings]\r\nA=1\r\n";
  EXPECT_EQ(store.LeerIni(kFile, "A", ""), "1");
}

TEST_F(SettingsTest, a_file_saved_as_utf16_is_read_and_stays_utf16) {
  using namespace std::string_literals;
  files.contents[kFile] =
      "\xFF\xFE[\0S\0e\0t\0t\0i\0n\0g\0s\0]\0\r\0\n\0\xF1\0=\0"
      "1\0\r\0\n\0"s;
  EXPECT_EQ(store.LeerIni(kFile, "\xF1", "0"), "1");
  store.GrabarIni(kFile, "\xF1", "2");
  EXPECT_EQ(files.contents[kFile],
            "\xFF\xFE[\0S\0e\0t\0t\0i\0n\0g\0s\0]\0\r\0\n\0\xF1\0=\0"
            "2\0\r\0\n\0"s);
}

TEST_F(SettingsTest, a_file_saved_as_utf16_high_byte_first_is_read_and_stays_so) {
  using namespace std::string_literals;
  files.contents[kFile] =
      "\xFE\xFF\0[\0S\0e\0t\0t\0i\0n\0g\0s\0]\0\r\0\n\0\xF1\0=\0"
      "1\0\r\0\n"s;
  EXPECT_EQ(store.LeerIni(kFile, "\xF1", "0"), "1");
  store.GrabarIni(kFile, "\xF1", "\x80");  // the euro: 20AC
  EXPECT_EQ(store.LeerIni(kFile, "\xF1", "0"), "\x80");
  EXPECT_EQ(files.contents[kFile],
            "\xFE\xFF\0[\0S\0e\0t\0t\0i\0n\0g\0s\0]\0\r\0\n\0\xF1\0=\x20\xAC\0\r\0\n"s);
}

TEST_F(SettingsTest, a_file_saved_as_utf8_with_its_mark_is_read_and_stays_utf8) {
  files.contents[kFile] = "\xEF\xBB\xBF[Settings]\r\n\xC3\xB1=1\r\n";
  EXPECT_EQ(store.LeerIni(kFile, "\xF1", "0"), "1");
  store.GrabarIni(kFile, "\xF1", "\x80");
  store.GrabarIni(kFile, "M\xDASICA", "1");
  EXPECT_EQ(store.LeerIni(kFile, "\xF1", "0"), "\x80");
  EXPECT_EQ(store.LeerIni(kFile, "m\xFAsica", "0"), "1") << "case is ignored as in other files";
  EXPECT_EQ(store.LeerIni(kFile, "m\xCAsica", "0"), "0") << "another letter is another key";
  EXPECT_EQ(files.contents[kFile],
            "\xEF\xBB\xBF[Settings]\r\n\xC3\xB1=\xE2\x82\xAC\r\nM\xC3\x9ASICA=1\r\n");
}

}  // namespace
}  // namespace ordelan::test
