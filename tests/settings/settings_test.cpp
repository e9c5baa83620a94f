#include "settings/settings.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <new>
#include <optional>

#include "support/computer.h"
#include "support/faulty_files.h"
#include "support/reader_bench.h"

namespace ordelan::test {
namespace {

constexpr const char* kFile = "C:\\Config.ini";

struct SettingsTest : ::testing::Test, ReaderBench {
  settings::Settings store{files, regional, kFile};
};

TEST_F(SettingsTest, the_file_stands_at_its_fixed_path) {
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

TEST_F(SettingsTest, settings_that_are_read_only_never_write) {
  files.contents[kFile] = "[Settings]\r\nMe_Left=7\r\n";
  const auto before = files.contents;
  store.set_read_only();
  store.set_number("Volumen", 3);
  store.GrabarIni(kFile, "Me_Left", "8");
  store.GrabarIni("C:\\other.ini", "Me_Left", "8");
  EXPECT_EQ(files.contents, before);
  EXPECT_EQ(store.number("Me_Left", 0), 7);
}

TEST_F(SettingsTest, without_a_file_reading_gives_the_defaults_and_makes_none) {
  EXPECT_EQ(store.number("Volumen", 40), 40);
  EXPECT_EQ(store.LeerIni(kFile, "Ruta 1", ""), "");
  EXPECT_TRUE(files.contents.empty());
}

TEST_F(SettingsTest, a_key_goes_to_the_file_as_it_stands_with_all_its_blanks_and_quotes) {
  for (const std::string key :
       {"Unidad: ", "Unidad: D:\\   ", "Borrar todos los asociados      ------>",
        "Borrar lista 4 \"Archivos no utilizados\""}) {
    files.contents.clear();
    for (const char* value : {"1", "0", "1"}) {
      store.GrabarIni(kFile, key, value);
      EXPECT_EQ(files.contents[kFile], "[Settings]\r\n" + key + "=" + value + "\r\n");
      EXPECT_EQ(store.LeerIni(kFile, key, "-"), value);
    }
  }
}

TEST_F(SettingsTest, a_file_whose_reading_fails_is_not_written_over) {
  const std::string old = "[Settings]\r\nA=1\r\n";
  files.contents[kFile] = old;
  FaultyFiles failing(files);
  settings::Settings unlucky(failing, regional, kFile);
  failing.faults.fail(FaultyFiles::Call::read);
  EXPECT_EQ(unlucky.LeerIni(kFile, "A", "7"), "7");
  unlucky.GrabarIni(kFile, "A", "2");
  EXPECT_EQ(files.contents[kFile], old);
  failing.faults.heal();
  failing.on_read = [](std::uint64_t) -> std::optional<std::size_t> { throw std::bad_alloc(); };
  EXPECT_EQ(unlucky.LeerIni(kFile, "A", "7"), "7");
  unlucky.GrabarIni(kFile, "A", "2");
  EXPECT_EQ(files.contents[kFile], old);
}

TEST_F(SettingsTest, an_empty_file_and_a_missing_one_get_the_first_value) {
  files.contents[kFile] = "";
  store.GrabarIni(kFile, "A", "1");
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nA=1\r\n");
  files.contents.clear();
  store.GrabarIni(kFile, "A", "1");
  EXPECT_EQ(files.contents[kFile], "[Settings]\r\nA=1\r\n");
}

TEST_F(SettingsTest,
       a_value_that_the_code_page_lacks_gives_the_default_and_its_key_can_be_written) {
  files.contents[kFile] = "\xEF\xBB\xBF[Settings]\r\nA=\xD0\x96\r\nB=1\r\n";
  EXPECT_EQ(store.LeerIni(kFile, "A", "7"), "7");
  EXPECT_EQ(store.LeerIni(kFile, "B", "7"), "1");
  store.GrabarIni(kFile, "A", "2");
  EXPECT_EQ(files.contents[kFile], "\xEF\xBB\xBF[Settings]\r\nA=2\r\nB=1\r\n");
}

TEST_F(SettingsTest, a_value_of_255_characters_is_whole_and_so_is_a_number_with_an_exponent) {
  files.contents[kFile] = "[Settings]\r\nk=" + std::string(255, 'y') + "\r\nn=1E+2\r\n";
  EXPECT_EQ(store.LeerIni(kFile, "k", ""), std::string(255, 'y'));
  EXPECT_EQ(store.LeerIni(kFile, "missing", std::string(300, 'z')).size(), 255u);
  EXPECT_EQ(store.number("n", 0), 100);
  EXPECT_EQ(store.number("missing", 5), 5);
}

// A file of that size is none of the program's own.
TEST(SettingsOnDisk, a_file_of_hundreds_of_megabytes_is_neither_read_nor_written) {
  Computer computer;
  computer.disk.write_sparse("Config.ini", std::uint64_t{257} << 20);
  const std::string path = computer.disk.path("Config.ini");
  FaultyFiles watched(computer.disk.files());
  settings::Settings store(watched, computer.regional, path);
  EXPECT_EQ(store.LeerIni(path, "A", "7"), "7");
  store.GrabarIni(path, "A", "2");
  EXPECT_EQ(watched.faults.count(FaultyFiles::Call::read), 0);
  EXPECT_EQ(watched.faults.count(FaultyFiles::Call::create_new), 0);
  EXPECT_EQ(watched.info(path)->size, std::uint64_t{257} << 20);
}

}  // namespace
}  // namespace ordelan::test
