#include "text/paths.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "text/code_page.h"

namespace ordelan::test {
namespace {

using text::compact_path;
using text::getPath;
using text::Obtener_Extension;
using text::Obtener_Nombre_Archivo;
using text::Obtener_Nombre_Path;
using text::Obtener_VipPath;
using text::root;

TEST(GetPath, goes_up_to_the_last_separator_and_takes_it_along) {
  EXPECT_EQ(getPath("D:\\Mix\\tema.vip", "\\"), "D:\\Mix\\");
  EXPECT_EQ(getPath("D:\\Mix\\", "\\"), "D:\\Mix\\");
  EXPECT_EQ(getPath("a/b/c", "/"), "a/b/");
}

TEST(GetPath, takes_separators_of_several_bytes) {
  EXPECT_EQ(getPath("1 --> 2 --> x", "-->"), "1 --> 2 -->");
  EXPECT_EQ(getPath("x", "xyz"), "");
}

TEST(GetPath, is_empty_without_a_separator) {
  EXPECT_EQ(getPath("tema.vip", "\\"), "");
  EXPECT_EQ(getPath("", "\\"), "");
  EXPECT_EQ(getPath("D:\\Mix", ""), "");
  EXPECT_EQ(getPath("", ""), "");
}

TEST(ObtenerNombrePath, is_the_folder_with_or_without_its_backslash) {
  EXPECT_EQ(Obtener_Nombre_Path("D:\\Mix\\tema.vip", true), "D:\\Mix\\");
  EXPECT_EQ(Obtener_Nombre_Path("D:\\Mix\\tema.vip", false), "D:\\Mix");
  EXPECT_EQ(Obtener_Nombre_Path("D:\\tema.vip", true), "D:\\");
  EXPECT_EQ(Obtener_Nombre_Path("D:\\tema.vip", false), "D:");
  EXPECT_EQ(Obtener_Nombre_Path("D:\\Mix\\", true), "D:\\Mix\\");
}

TEST(ObtenerNombrePath, drops_the_number_and_the_arrow_of_a_row) {
  EXPECT_EQ(Obtener_Nombre_Path("7 --> E:\\a\\p.vip", true), "E:\\a\\");
  EXPECT_EQ(Obtener_Nombre_Path("7 --> E:\\a\\p.vip", false), "E:\\a");
  EXPECT_EQ(Obtener_Nombre_Path("xE:\\p.vip", true), "E:\\");
}

TEST(ObtenerNombrePath, begins_at_the_first_colon) {
  EXPECT_EQ(Obtener_Nombre_Path("C:\\a:\\b.wav", true), "C:\\a:\\");
}

TEST(ObtenerNombrePath, without_a_drive_keeps_what_it_has) {
  EXPECT_EQ(Obtener_Nombre_Path("a\\b\\c.wav", true), "a\\b\\");
  EXPECT_EQ(Obtener_Nombre_Path("\\\\server\\share\\c.wav", false), "\\\\server\\share");
  EXPECT_EQ(Obtener_Nombre_Path("\\c.wav", true), "\\");
  EXPECT_EQ(Obtener_Nombre_Path("\\c.wav", false), "");
}

TEST(ObtenerNombrePath, a_colon_with_nothing_before_it_is_no_drive) {
  EXPECT_EQ(Obtener_Nombre_Path(":\\a\\b.wav", true), ":\\a\\");
  EXPECT_EQ(Obtener_Nombre_Path(":\\a\\b.wav", false), ":\\a");
}

TEST(ObtenerNombrePath, a_colon_after_the_last_backslash_is_part_of_the_name) {
  EXPECT_EQ(Obtener_Nombre_Path("folder\\b:c.wav", true), "folder\\");
}

TEST(ObtenerNombrePath, is_empty_without_a_backslash) {
  for (const bool slash : {true, false}) {
    EXPECT_EQ(Obtener_Nombre_Path("tema.vip", slash), "");
    EXPECT_EQ(Obtener_Nombre_Path("D:tema.vip", slash), "");
    EXPECT_EQ(Obtener_Nombre_Path("", slash), "");
  }
}

TEST(ObtenerNombreArchivo, is_what_stands_after_the_last_separator) {
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\Mix\\Canci\xF3n.wav"), "Canci\xF3n.wav");
  EXPECT_EQ(Obtener_Nombre_Archivo("7 --> E:\\a\\p.vip"), "p.vip");
  EXPECT_EQ(Obtener_Nombre_Archivo("tema.vip"), "tema.vip");
  EXPECT_EQ(Obtener_Nombre_Archivo("a/b/c.wav"), "c.wav");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:c.wav"), "c.wav");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\a/b\\c:d.wav"), "d.wav");
}

TEST(ObtenerNombreArchivo, is_empty_where_no_file_is_named) {
  EXPECT_EQ(Obtener_Nombre_Archivo(""), "");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\Mix\\"), "");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:/Mix/"), "");
  EXPECT_EQ(Obtener_Nombre_Archivo("C:"), "");
}

TEST(ObtenerNombreArchivo, keeps_brackets_and_characters_that_no_name_can_hold) {
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\a[1].wav"), "a[1].wav");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\[2024] Mix\\tema.vip"), "tema.vip");
  EXPECT_EQ(Obtener_Nombre_Archivo("1 --> D:\\[2024] Mix\\tema [master].vip"), "tema [master].vip");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\a].wav"), "a].wav");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\*.wav"), "*.wav");
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\x?\\a?.wav"), "a?.wav");
}

TEST(SameFileKey, is_equal_for_the_spellings_of_one_path) {
  using text::same_file_key;
  const std::string key = same_file_key("D:\\Mix\\Tomas\\a.wav");
  for (const char* other :
       {"d:\\mix\\tomas\\A.WAV", "D:/Mix/Tomas/a.wav", "D:\\Mix\\\\Tomas\\a.wav",
        "D:\\Mix\\Otro\\..\\Tomas\\a.wav", "D:\\.\\Mix\\Tomas\\.\\a.wav",
        "D:\\..\\..\\Mix\\Tomas\\a.wav", "D:\\Mix\\Tomas\\a.wav.", "D:\\Mix \\Tomas\\a.wav "}) {
    EXPECT_EQ(same_file_key(other), key) << other;
  }
  for (const char* other :
       {"E:\\Mix\\Tomas\\a.wav", "D:\\Mix\\Tomas\\b.wav", "D:\\Mix\\a.wav", "D:\\MixTomas\\a.wav",
        "\\\\D\\Mix\\Tomas\\a.wav", "D:\\Mix\\Tomas\\a.wav\\..", ""}) {
    EXPECT_NE(same_file_key(other), key) << other;
  }
  EXPECT_EQ(same_file_key("D:\\CANCI\xD3N.wav"), same_file_key("D:\\canci\xF3n.wav"));
  EXPECT_EQ(same_file_key("D:\\"), same_file_key("d:"));
  EXPECT_NE(same_file_key("\\\\server\\a.wav"), same_file_key("\\server\\a.wav"));
}

TEST(ObtenerNombreArchivo, ends_at_a_NUL) {
  EXPECT_EQ(Obtener_Nombre_Archivo(std::string("D:\\a.wav\0D:\\b.wav", 17)), "a.wav");
  EXPECT_EQ(Obtener_Nombre_Archivo(std::string("D:\\a.wav\0*", 10)), "a.wav")
      << "what stands after the NUL is not looked at";
}

TEST(ObtenerNombreArchivo, is_never_cut) {
  const std::string longest(255, 'a');  // the longest that a disk takes
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\" + longest), longest);
  EXPECT_EQ(Obtener_Nombre_Archivo("D:\\" + std::string(1000, 'f') + "\\c.wav"), "c.wav");
}

TEST(ObtenerVipPath, is_a_clean_path_out_of_a_row) {
  EXPECT_EQ(Obtener_VipPath("7 --> E:\\a\\p.vip"), "E:\\a\\p.vip");
  EXPECT_EQ(Obtener_VipPath("E:\\a\\p.vip"), "E:\\a\\p.vip");
  EXPECT_EQ(Obtener_VipPath("p.vip"), "p.vip");
  EXPECT_EQ(Obtener_VipPath("7 --> E:\\a\\"), "E:\\a\\");
  EXPECT_EQ(Obtener_VipPath("7 --> E:\\a[1]\\p.vip"), "E:\\a[1]\\p.vip")
      << "brackets are part of names like any other character";
  EXPECT_EQ(Obtener_VipPath(""), "");
}

TEST(ObtenerExtension, is_what_stands_after_the_last_dot_in_its_own_case) {
  EXPECT_EQ(Obtener_Extension("a.b"), "b");
  EXPECT_EQ(Obtener_Extension("D:\\Mix\\tema.vip.Wav"), "Wav");
  EXPECT_EQ(Obtener_Extension(".wav"), "wav");
}

TEST(ObtenerExtension, is_empty_where_there_is_none) {
  EXPECT_EQ(Obtener_Extension("none"), "");
  EXPECT_EQ(Obtener_Extension("a."), "");
  EXPECT_EQ(Obtener_Extension("D:\\my.folder\\none"), "") << "the dot belongs to a folder";
  EXPECT_EQ(Obtener_Extension("a.b c"), "") << "no extension holds a blank";
  EXPECT_EQ(Obtener_Extension("Vol. 1"), "");
  EXPECT_EQ(Obtener_Extension(""), "");
}

TEST(ObtenerExtension, blanks_before_the_dot_do_no_harm) {
  EXPECT_EQ(Obtener_Extension("Vol. 1.wav"), "wav");
}

TEST(Root, is_the_drive_or_the_share) {
  EXPECT_EQ(root("D:\\Mix\\a.wav"), "D:\\");
  EXPECT_EQ(root("d:a.wav"), "d:\\");
  EXPECT_EQ(root("\\\\server\\share\\a.wav"), "\\\\server\\share");
  EXPECT_EQ(root("\\\\server\\share"), "\\\\server\\share");
  for (const char* none :
       {"", "a.wav", "\\Mix\\a.wav", "\\\\server", "\\\\server\\", "\\\\\\x", "1:\\a"}) {
    EXPECT_EQ(root(none), "") << none;
  }
}

TEST(CompactPath, gives_up_the_middle_before_the_name) {
  const std::string path = "D:\\Mix\\Viejo\\toma.wav";  // 21 characters
  EXPECT_EQ(compact_path(path, 21), path);
  EXPECT_EQ(compact_path(path, 20), "D:\\Mix\\V...\\toma.wav");
  EXPECT_EQ(compact_path(path, 12), "...\\toma.wav");
  EXPECT_EQ(compact_path(path, 11), "...\\toma...");
  EXPECT_EQ(compact_path(path, 3), "...");
  EXPECT_EQ(compact_path(path, 0), "");
  EXPECT_EQ(compact_path("toma larga.wav", 8), "toma ...");
  for (std::size_t length = 0; length < 30; ++length) {
    EXPECT_LE(compact_path(path, length).size(), length);
  }
}

// The key character by character, without the shorter way of clean paths.
std::string literal_key(const std::string& path) {
  std::string key;
  std::string rest = path;
  std::vector<std::string> names;
  if (rest.size() >= 2 && rest[1] == ':') {
    key = {text::upper(rest[0]), ':'};
    rest.erase(0, 2);
  } else if (rest.size() >= 2 && (rest.substr(0, 2) == "\\\\" || rest.substr(0, 2) == "//")) {
    key = "\\";
  }
  std::string name;
  for (const char c : rest + "\\") {
    if (c != '\\' && c != '/') {
      name += c;
      continue;
    }
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else {
      while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.pop_back();
      if (!name.empty()) names.push_back(text::upper(name));
    }
    name.clear();
  }
  for (const std::string& each : names) key += "\\" + each;
  return key.empty() ? "\\" : key;
}

TEST(SameFileKey, is_the_literal_one_for_random_paths) {
  std::mt19937 random(7);
  const std::string_view letters = "\\\\\\/..  :aBz\xF1\xD1";
  for (int i = 0; i < 200'000; ++i) {
    std::string path = random() % 4 != 0 ? "d:\\" : "";
    for (std::size_t size = random() % 12; size > 0; --size)
      path += letters[random() % letters.size()];
    ASSERT_EQ(text::same_file_key(path), literal_key(path)) << path;
  }
}

TEST(SameFileKey, is_added_to_a_text_and_leaves_what_that_holds) {
  for (const char* path : {"d:\\a\\b.wav", "d:\\a.\\b.wav", "d:\\a\\", "a", ""}) {
    std::string key = "kept ";
    text::append_same_file_key(path, key);
    EXPECT_EQ(key, "kept " + text::same_file_key(path)) << path;
  }
}

TEST(FolderOf, ends_at_the_last_separator_of_either_kind) {
  EXPECT_EQ(text::folder_of("D:\\a\\b.wav"), "D:\\a\\");
  EXPECT_EQ(text::folder_of("D:\\a/b.wav"), "D:\\a/");
  EXPECT_EQ(text::folder_of("D:/a\\b.wav"), "D:/a\\");
  EXPECT_EQ(text::folder_of("D:b.wav"), "");
  EXPECT_EQ(text::folder_of(""), "");
}

}  // namespace
}  // namespace ordelan::test
