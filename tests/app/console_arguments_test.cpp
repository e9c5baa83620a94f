// What the console program takes as a path, and what it says of arguments that are of no use.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/console_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct ConsoleArguments : Console {
  static constexpr const char* kNotInCodePage =
      "no cabe en la p\xC3\xA1gina de c\xC3\xB3"
      "digos\n";
  // A name that exists on the disk and that the code page lacks.
  static constexpr const char* kEast = "\xE6\x9D\xB1";

  void write_east(const std::string& extension) {
    std::ofstream(disk.native_path("").string() + "/" + kEast + extension, std::ios::binary)
        << project_of({"D:\\a.wav"});
  }
};

TEST_F(ConsoleArguments, a_drive_alone_is_its_root) {
  disk.write("a.vip", project_of({"D:\\a.wav"}));
  for (const char* item : {"D:", "d:", "D:/", "'D:\\'"}) {
    const auto result = run(std::string("--json soltar ") + item);
    ASSERT_EQ(result.exit_code, 0) << item << result.error;
    const std::string row = result.json()["ListProyectos"].at(0);
    EXPECT_EQ(row, std::string("1 --> ") + item[item[0] == '\'' ? 1 : 0] + ":\\a.vip") << item;
  }
}

TEST_F(ConsoleArguments, slashes_separate_as_backslashes_do) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  disk.write("Mix\\a.wav", "");
  disk.write("Mix\\b.wav", "the one after a used file is not offered");
  disk.write("Mix\\c.wav", "unused");
  for (const char* project : {"D:/Mix/tema.vip", "'D:\\Mix/tema.vip'", "D://Mix//tema.vip",
                              "D:/./Mix/nada/../tema.vip"}) {
    for (const char* command : {"abrir", "listados", "soltar"}) {
      const auto result = run(std::string("--json ") + command + " " + project);
      ASSERT_EQ(result.exit_code, 0) << command << project << result.error;
      const Json json = result.json();
      EXPECT_EQ(json["ListProyectos"], Json({"1 --> D:\\Mix\\tema.vip"})) << command << project;
      EXPECT_EQ(json["ListBorrar"], Json({"D:\\Mix\\c.wav"})) << command << project;
    }
  }
  EXPECT_NE(bytes_of("Mix\\Listados\\Archivos de tema.vip.log"), "");
}

TEST_F(ConsoleArguments, a_folder_may_end_in_a_separator) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  for (const std::string& folder :
       {std::string("D:/Mix/"), std::string("'D:\\Mix\\'"), std::string("D:/Mix"),
        std::string("D:/Mix//"), native("Mix") + "/"}) {
    const auto result = run("--json soltar " + folder);
    ASSERT_EQ(result.exit_code, 0) << folder << result.error;
    EXPECT_EQ(result.json()["ListProyectos"], Json({"1 --> D:\\Mix\\tema.vip"})) << folder;
  }
  EXPECT_EQ(run("abrir D:/Mix/tema.vip/").exit_code, 2) << "a project is no folder";
}

TEST_F(ConsoleArguments, a_searched_path_may_have_slashes) {
  disk.write("e\\Mix\\toma.wav", "");
  const std::string more = "--unidad E=" + native("e") + " --json ";
  const auto same = run(more + "buscar X:/Mix//toma.wav --en E:/");
  EXPECT_EQ(same.exit_code, 0);
  EXPECT_EQ(same.json()["ArchivoActual"], "E:\\Mix\\toma.wav");
  EXPECT_EQ(same.json()["ListaHallados"], Json::array()) << "the same path needs no walk";
  for (const char* nameless : {"D:", "D:/", "D:/Mix/", "''"}) {
    const auto result = run(std::string("buscar --en D ") + nameless);
    EXPECT_EQ(result.exit_code, 2) << nameless;
    EXPECT_THAT(result.error, HasSubstr("no es el nombre de un archivo\n")) << nameless;
  }
  EXPECT_EQ(run("buscar toma.wav --en D:x").exit_code, 2);
}

TEST_F(ConsoleArguments, a_missing_configuration_is_reported_and_the_defaults_count) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  disk.write("tema_BAK.vip", project_of({"D:\\a.wav"}));
  // The usual file says otherwise; it is not what was asked for.
  disk.write("QZT\\Ordelan\\Config.ini", "[Settings]\r\nIncluir Vip_BAK=0\r\n");
  const std::string c = "--unidad C=" + native("") + " --json ";
  ASSERT_EQ(run(c + "abrir D:/tema.vip").json()["ListProyectos"].size(), 1u);
  disk.make_folder("carpeta.ini");
  for (const std::string& config :
       {native("none.ini"), native("no/folder.ini"), native("carpeta.ini"), std::string("''"),
        std::string("D:/none.ini")}) {
    const auto result = run(c + "--config " + config + " abrir D:/tema.vip");
    EXPECT_EQ(result.exit_code, 0) << config;
    EXPECT_EQ(result.json()["ListProyectos"].size(), 2u) << config;
    EXPECT_THAT(result.error, HasSubstr("--config")) << config;
    EXPECT_THAT(result.error, HasSubstr("de f\xC3\xA1"
                                        "brica"))
        << config;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << config;
  }
}

TEST_F(ConsoleArguments, a_configuration_may_be_named_by_either_kind_of_path) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  disk.write("tema_BAK.vip", project_of({"D:\\a.wav"}));
  disk.write("Mix\\own.ini", "[Settings]\r\nIncluir Vip_BAK=0\r\n");
  for (const std::string& config :
       {native("Mix\\own.ini"), std::string("D:/Mix/own.ini"), std::string("'D:\\Mix\\own.ini'")}) {
    const auto result = run("--json --config " + config + " abrir D:/tema.vip");
    EXPECT_EQ(result.json()["ListProyectos"].size(), 1u) << config;
    EXPECT_EQ(result.error, "") << config;
  }
}

TEST_F(ConsoleArguments, no_configuration_is_ever_written) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  const std::string ini = "[Settings]\r\nMe_Left=7\r\n";
  disk.write("own.ini", ini);
  disk.write("QZT\\Ordelan\\Config.ini", ini);
  const std::string c = "--unidad C=" + native("") + " ";
  for (const std::string& config :
       {std::string(), "--config " + native("own.ini"), "--config " + native("none.ini")}) {
    for (const char* command :
         {" abrir --sin-bak D:/tema.vip", " soltar D:", " buscar tema.vip --en D",
          " listados --sin-subcarpetas D:/tema.vip", " abrir D:/none.vip"}) {
      run(c + config + command);
      EXPECT_EQ(bytes_of("own.ini"), ini) << config << command;
      EXPECT_EQ(bytes_of("QZT\\Ordelan\\Config.ini"), ini) << config << command;
      EXPECT_FALSE(std::filesystem::exists(native("none.ini"))) << config << command;
    }
  }
}

TEST_F(ConsoleArguments, missing_items_of_a_drop_are_named_and_the_others_go_on) {
  disk.write("a.vip", project_of({"D:\\a.wav"}));
  disk.write("b.vip", project_of({"D:\\b.wav"}));
  const auto result = run("--json soltar D:/a.vip D:/none D:/b.vip /nowhere");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.json()["ListProyectos"], Json({"1 --> D:\\a.vip", "2 --> D:\\b.vip"}));
  EXPECT_EQ(result.error,
            "ordelan: D:/none: no existe\n"
            "ordelan: /nowhere: no est\xC3\xA1 en ninguna unidad\n");
  const auto none = run("--json soltar D:/none /nowhere");
  EXPECT_EQ(none.exit_code, 2);
  EXPECT_EQ(none.output, "");
  EXPECT_EQ(none.error, result.error);
}

TEST_F(ConsoleArguments, what_the_code_page_cannot_hold_is_reported_as_that) {
  write_east(".vip");
  write_east(".ini");
  disk.write("a.vip", project_of({"D:\\a.wav"}));
  const std::string windows = std::string("D:/") + kEast + ".vip";
  const std::string own = native("") + "/" + kEast + ".vip";
  for (const std::string& path : {windows, own}) {
    for (const char* command : {"abrir ", "listados ", "soltar "}) {
      const auto result = run(command + path);
      EXPECT_EQ(result.exit_code, 2) << command << path;
      EXPECT_EQ(result.error, "ordelan: " + path + ": " + kNotInCodePage) << command << path;
    }
    const auto rest = run("--json soltar D:/a.vip " + path);
    EXPECT_EQ(rest.exit_code, 0);
    EXPECT_THAT(rest.error, HasSubstr(kNotInCodePage));
  }
  const auto searched = run("buscar --en D " + windows);
  EXPECT_EQ(searched.exit_code, 2);
  EXPECT_EQ(searched.error, "ordelan: " + windows + ": " + kNotInCodePage);
  const auto config = run("--config " + native("") + "/" + kEast + ".ini --json abrir D:/a.vip");
  EXPECT_EQ(config.exit_code, 0);
  EXPECT_THAT(config.error, HasSubstr("no cabe en la p\xC3\xA1gina de c\xC3\xB3"
                                      "digos"));
  EXPECT_THAT(config.error, Not(HasSubstr("no existe")));
}

TEST_F(ConsoleArguments, a_name_that_windows_does_not_have_is_reported_as_that) {
  std::ofstream(disk.native_path("").string() + "/a?b.vip") << project_of({"D:\\a.wav"});
  const auto result = run("abrir '" + native("") + "/a?b.vip'");
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_THAT(result.error, HasSubstr("Windows no admite este nombre\n"));
}

}  // namespace
}  // namespace ordelan::test
