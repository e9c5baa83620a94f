// The configuration file is common property: Windows' own calls and the program read each other's.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "settings/ini_encoding.h"
#include "settings/settings.h"
#include "support/fake_services.h"
#include "test_disk.h"
#include "win32/ansi_text.h"

namespace ordelan::test {
namespace {

using win32::widen;

struct IniInterchange : ::testing::Test {
  ~IniInterchange() override { forget(); }

  TestDisk disk;
  FixedRegional regional;
  settings::Settings store{disk.files(), regional, disk.path("Config.ini")};

  // Windows keeps a file in memory for a while; this makes it look at the disk again.
  static void forget() { WritePrivateProfileStringW(nullptr, nullptr, nullptr, nullptr); }

  std::string bytes() {
    const auto file = disk.files().open(store.RutaConfig);
    if (!file) return "no file";
    std::string bytes(static_cast<std::size_t>(file->size()), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }
  // Starts again with a file of these bytes; with none where there are none.
  void begin(const std::string& content) {
    forget();
    disk.remove("Config.ini");
    if (!content.empty()) disk.write("Config.ini", content);
    forget();
  }

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
  EXPECT_EQ(bytes(), foreign + "Me_Left=7\r\n");
}

// A file with the section and nothing in it, in every encoding; the first makes a new file.
std::vector<std::string> fresh_files() {
  using settings::IniEncoding;
  std::vector<std::string> files = {""};
  for (const IniEncoding encoding : {IniEncoding::code_page, IniEncoding::utf8,
                                     IniEncoding::utf16_low_first, IniEncoding::utf16_high_first}) {
    files.push_back(settings::ini_bytes("[Settings]\r\n", encoding));
    files.push_back(settings::ini_bytes("; mine\r\n[Other]\r\na=1\r\n", encoding));
  }
  return files;
}

const char* const kOddKeys[] = {
    "Unidad: ",
    "a   ",
    "Borrar lista 4 \"Archivos no utilizados\"",
    "\"q\"",
    "Reporducir audio de cada item ->",
    "Borrar todos los asociados      ------>",
    "Unidad: D:\\MÚSICA €",
};

TEST_F(IniInterchange, a_key_is_written_byte_for_byte_as_windows_writes_it) {
  for (const std::string& fresh : fresh_files()) {
    for (const char* key : kOddKeys) {
      begin(fresh);
      write(key, "D:\\Año");
      forget();
      const std::string windows = bytes();
      begin(fresh);
      store.GrabarIni(store.RutaConfig, key, "D:\\Año");
      EXPECT_EQ(bytes(), windows) << key;
      EXPECT_EQ(read(key), "D:\\Año") << key;
      EXPECT_EQ(store.LeerIni(store.RutaConfig, key, "?"), "D:\\Año") << key;
    }
  }
}

TEST_F(IniInterchange, a_key_is_changed_in_its_line_in_every_encoding) {
  for (const std::string& fresh : fresh_files()) {
    for (const char* key : kOddKeys) {
      begin(fresh);
      write(key, "1");
      forget();
      store.GrabarIni(store.RutaConfig, key, "22");
      const std::string once = bytes();
      EXPECT_EQ(read(key), "22") << key;
      write(key, "3");
      forget();
      EXPECT_EQ(store.LeerIni(store.RutaConfig, key, "?"), "3") << key;
      // Here Windows' call may drop the blanks at the end of a key that it finds in a file. The
      // program keeps them: the key goes to the file as it stands, each time.
      store.GrabarIni(store.RutaConfig, key, "22");
      EXPECT_EQ(bytes(), once) << key;
    }
  }
}

TEST_F(IniInterchange,
       a_key_with_an_equals_sign_is_written_alike_and_then_only_the_program_finds_it) {
  const std::string key = "Unidad: D:\\a=b";
  write(key, "1");
  forget();
  const std::string windows = bytes();
  begin("");
  store.GrabarIni(store.RutaConfig, key, "1");
  EXPECT_EQ(bytes(), windows);
  // Windows' calls end the key at its first sign and so add a line at every write. One more line
  // at each close of the program is no good: here it goes its own way.
  EXPECT_EQ(read(key), "?");
  EXPECT_EQ(store.LeerIni(store.RutaConfig, key, "?"), "1");
  store.GrabarIni(store.RutaConfig, key, "0");
  EXPECT_EQ(bytes(), "[Settings]\r\nUnidad: D:\\a=b=0\r\n");
}

}  // namespace
}  // namespace ordelan::test
