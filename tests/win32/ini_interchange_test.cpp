// The configuration file is common property: Windows' own calls and the program read each other's.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "settings/settings.h"
#include "support/fake_services.h"
#include "test_disk.h"
#include "win32/ansi_text.h"

namespace ordelan::test {
namespace {

using win32::widen;

struct IniInterchange : ::testing::Test {
  TestDisk disk;
  FixedRegional regional;
  settings::Settings store{disk.files(), regional, disk.path("Config.ini")};

  std::string read(const std::string& key) const {
    wchar_t value[256] = {};
    GetPrivateProfileStringW(L"Settings", widen(key).c_str(), L"?", value, 256,
                             widen(store.RutaConfig).c_str());
    return win32::narrow(value).value_or("unreadable");
  }
  void write(const std::string& key, const std::string& value) const {
    ASSERT_TRUE(WritePrivateProfileStringW(L"Settings", widen(key).c_str(), widen(value).c_str(),
                                           widen(store.RutaConfig).c_str()));
  }
};

const char* const kKeys[] = {
    "Me_Left",
    "Player automático",
    "Reporducir audio de cada item ->",
    "Borrar lista 4 \"Archivos no utilizados\"",
    "Borrar todos los asociados      ------>",
    "ToolTip lista.",
    "Ruta 12",
    "Unidad: D:\\MÚSICA",
};

TEST_F(IniInterchange, windows_reads_what_the_program_wrote) {
  for (const char* key : kKeys) store.GrabarIni(store.RutaConfig, key, "D:\\Año 1");
  for (const char* key : kKeys) EXPECT_EQ(read(key), "D:\\Año 1") << key;
}

TEST_F(IniInterchange, the_program_reads_what_windows_wrote) {
  for (const char* key : kKeys) write(key, "D:\\Año 1");
  for (const char* key : kKeys) {
    EXPECT_EQ(store.LeerIni(store.RutaConfig, key, "?"), "D:\\Año 1") << key;
  }
}

TEST_F(IniInterchange, both_take_off_enclosing_quotes_and_blanks) {
  disk.write("Config.ini", "[Settings]\r\na=\"x y\"\r\nb='z'\r\nc =  w  \r\nd=\"q\r\n");
  for (const char* key : {"a", "b", "c", "d"}) {
    EXPECT_EQ(store.LeerIni(store.RutaConfig, key, "?"), read(key)) << key;
  }
}

TEST_F(IniInterchange, each_changes_the_value_of_the_other_in_its_place) {
  store.GrabarIni(store.RutaConfig, "Me_Left", "1");
  write("Me_Left", "2");
  EXPECT_EQ(store.LeerIni(store.RutaConfig, "Me_Left", "?"), "2");
  store.GrabarIni(store.RutaConfig, "Me_Left", "3");
  EXPECT_EQ(read("Me_Left"), "3");
}

TEST_F(IniInterchange, foreign_keys_comments_and_order_stay) {
  const std::string foreign = "; mine\r\n[Other]\r\nb=1\r\na=2\r\n[Settings]\r\nz=1\r\n";
  disk.write("Config.ini", foreign);
  store.GrabarIni(store.RutaConfig, "Me_Left", "7");
  const auto file = disk.files().open(store.RutaConfig);
  ASSERT_TRUE(file);
  std::string bytes(static_cast<std::size_t>(file->size()), '\0');
  file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
  EXPECT_EQ(bytes, foreign + "Me_Left=7\r\n");
}

}  // namespace
}  // namespace ordelan::test
