// The console program, run as a script runs it: a process with arguments, output and exit code.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>

#include "app/console_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST_F(Console, prints_the_lists_with_their_headings) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\Canci\xF3n.wav"}));
  const auto result = run("abrir 'D:\\Mix\\tema.vip'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_THAT(result.output, HasSubstr("Encontrados 1 proyectos en:\nD:\\Mix\\\n"
                                       "  1 --> D:\\Mix\\tema.vip\n\n"
                                       "1 Archivos utilizados en: D:\\Mix\\tema.vip\nD:\\Mix\\\n"
                                       "  D:\\Mix\\Canci\xC3\xB3n.wav\n"));
  EXPECT_EQ(result.error, "");
}

TEST_F(Console, prints_one_json_object_in_utf8) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\Canci\xF3n.wav", "D:\\Mix\\b.mp3"}));
  const auto result = run("--json abrir 'D:\\Mix\\tema.vip'");
  const Json json = result.json();
  std::vector<std::string> keys;
  for (const auto& item : json.items()) keys.push_back(item.key());
  EXPECT_THAT(keys, ::testing::UnorderedElementsAre("ListProyectos", "ListVip", "ListUtilizados",
                                                    "ListBorrar", "ListPerdidos", "ProyectosFuera",
                                                    "LabelCheck", "LabelCount", "LabelAdd",
                                                    "LabelErase", "TextDecode", "mensajes"));
  EXPECT_EQ(json["ProyectosFuera"], Json::array());
  EXPECT_EQ(json["ListProyectos"], Json({"1 --> D:\\Mix\\tema.vip"}));
  EXPECT_EQ(json["ListVip"], Json({"D:\\Mix\\Canci\xC3\xB3n.wav", "D:\\Mix\\b.mp3"}));
  EXPECT_EQ(json["LabelCheck"], Json({"Encontrados 1 proyectos en:", "D:\\Mix\\"}));
  EXPECT_EQ(json["LabelCount"], Json({"2 Archivos utilizados en: D:\\Mix\\tema.vip", "D:\\Mix\\"}));
  EXPECT_EQ(json["mensajes"], Json::array());
}

TEST_F(Console, takes_a_native_path_under_a_mapped_folder) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  const auto result = run("--json abrir " + disk.native_path("Mix\\tema.vip").string());
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.json()["ListProyectos"], Json({"1 --> D:\\Mix\\tema.vip"}));
}

TEST_F(Console, ignores_case_in_paths_as_windows_does) {
  disk.write("Mix\\A\xD1O\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  EXPECT_EQ(run("abrir 'd:\\MIX\\a\xC3\xB1o\\TEMA.VIP'").exit_code, 0);
}

TEST_F(Console, a_refused_project_gives_1_and_the_warning) {
  disk.write("midi.vip", project_of({}));
  const auto result = run("--json abrir 'D:\\midi.vip'");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.error, " >>> AVISO <<<   Este proyecto no tiene archivos de audio\n");
  EXPECT_EQ(result.json()["TextDecode"],
            " >>> AVISO <<<   Este proyecto no tiene archivos de audio");
}

TEST_F(Console, wrong_use_gives_2_and_one_clear_line) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  disk.make_folder("carpeta.vip");
  for (const char* wrong :
       {"", "abrir", "cerrar x", "abrir --nada x", "abrir 'D:\\none.vip'", "abrir /none.vip",
        "abrir 'E:\\tema.vip'", "abrir 'D:\\carpeta.vip'", "--unidad D abrir 'D:\\tema.vip'",
        "--unidad E=/does/not/exist abrir 'D:\\tema.vip'", "abrir 'D:\\tema.vip' more"}) {
    const auto result = run(wrong);
    EXPECT_EQ(result.exit_code, 2) << wrong;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << wrong;
    EXPECT_THAT(result.output, IsEmpty()) << wrong;
  }
}

TEST_F(Console, backups_are_listed_as_asked) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  disk.write("tema_BAK.vip", project_of({"D:\\a.wav"}));
  EXPECT_EQ(run("--json abrir 'D:\\tema.vip' --bak").json()["ListProyectos"].size(), 2u);
  EXPECT_EQ(run("--json abrir 'D:\\tema.vip' --sin-bak").json()["ListProyectos"].size(), 1u);
  EXPECT_EQ(run("abrir --sin-bak --json 'D:\\tema.vip'").json()["ListProyectos"].size(), 1u)
      << "options may stand anywhere";
}

TEST_F(Console, a_drop_sweeps_projects_and_folders) {
  disk.write("Mix\\a.vip", project_of({"D:\\a.wav"}));
  disk.write("Mix\\Voces\\b.vip", project_of({"D:\\b.wav"}));
  disk.write("Mix\\toma.wav", "1");
  const auto result = run("--json soltar 'D:\\Mix'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.json()["ListProyectos"],
            Json({"1 --> D:\\Mix\\a.vip", "2 --> D:\\Mix\\Voces\\b.vip"}));
  EXPECT_EQ(result.json()["ListBorrar"], Json({"D:\\Mix\\toma.wav"}));
  EXPECT_EQ(run("--json soltar 'D:\\Mix\\Voces\\b.vip' 'D:\\Mix\\a.vip'").json()["ListVip"],
            Json({"D:\\b.wav"}));
  disk.make_folder("vacia");
  EXPECT_EQ(run("soltar 'D:\\vacia'").exit_code, 1);
  EXPECT_EQ(run("soltar 'D:\\nada'").exit_code, 2);
}

TEST_F(Console, reports_are_saved_beside_the_projects) {
  disk.write("Mix\\a.vip", project_of({"D:\\a.wav"}));
  EXPECT_EQ(run("listados 'D:\\Mix\\a.vip'").exit_code, 0);
  for (const char* name :
       {"Archivos de a.vip.log", "Archivos Totales.log", "Archivos a Borrar.log"}) {
    EXPECT_TRUE(disk.files().info(disk.path(std::string("Mix\\Listados\\") + name))) << name;
  }
}

TEST_F(Console, options_come_from_the_configuration_file_and_the_command_line_wins) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  disk.write("tema_BAK.vip", project_of({"D:\\a.wav"}));
  disk.write("own.ini", "[Settings]\r\nIncluir Vip_BAK=0\r\n");
  const std::string config = "--config " + disk.native_path("own.ini").string() + " --json ";
  EXPECT_EQ(run(config + "abrir 'D:\\tema.vip'").json()["ListProyectos"].size(), 1u);
  EXPECT_EQ(run(config + "abrir --bak 'D:\\tema.vip'").json()["ListProyectos"].size(), 2u);
}

TEST_F(Console, projects_come_in_alphabetical_order_without_case) {
  for (const char* name : {"b.vip", "A.vip", "c.VIP", "\xE1.vip"}) {
    disk.write(name, project_of({"D:\\a.wav"}));
  }
  EXPECT_EQ(
      run("--json abrir 'D:\\b.vip'").json()["ListProyectos"],
      Json({"1 --> D:\\A.vip", "2 --> D:\\b.vip", "3 --> D:\\c.VIP", "4 --> D:\\\xC3\xA1.vip"}));
}

TEST_F(Console, lists_the_lost_files_of_each_project) {
  disk.write("tema.vip", project_of({"D:\\ok.wav", "D:\\lost.wav"}));
  disk.write("ok.wav", "");
  const auto result = run("--json abrir 'D:\\tema.vip'");
  EXPECT_EQ(result.json()["ListPerdidos"], Json({"1 --> D:\\tema.vip", "D:\\lost.wav"}));
  EXPECT_THAT(run("abrir 'D:\\tema.vip'").output,
              HasSubstr("Archivos perdidos o desubicados:\n"
                        "  1 --> D:\\tema.vip\n  D:\\lost.wav\n"));
}

TEST_F(Console, finds_a_file_on_the_drives_that_are_named) {
  disk.write("Otra\\toma.wav", "");
  const auto result = run("--json buscar toma.wav --en D");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.error, "");
  const Json json = result.json();
  EXPECT_EQ(json.size(), 4u);
  EXPECT_EQ(json["ListaHallados"], Json({"D:\\Otra\\toma.wav"}));
  EXPECT_EQ(json["ArchivoActual"], "D:\\Otra\\toma.wav");
  EXPECT_EQ(json["Hallado"], true);
  EXPECT_EQ(json["TextDecode"],
            "El archivo: toma.wav\r\nHa sido encontrado en: \r\nD:\\Otra\\toma.wav");
}

TEST_F(Console, searches_on_several_drives_in_the_order_of_their_letters) {
  disk.write("e\\toma.wav", "");
  disk.write("f\\toma.wav", "");
  const std::string more = "--unidad F=" + disk.native_path("f").string() +
                           " --unidad E=" + disk.native_path("e").string();
  const auto both = run(more + " --json buscar toma.wav --en f: --en 'E:\\'");
  EXPECT_EQ(both.json()["ListaHallados"], Json({"E:\\toma.wav", "F:\\toma.wav"}));
  EXPECT_EQ(both.json()["ArchivoActual"], "E:\\toma.wav");
  // The same path on another drive needs no walk, and the last drive counts.
  const auto same = run(more + " --json buscar 'X:\\toma.wav' --en E --en F");
  EXPECT_EQ(same.json()["ListaHallados"], Json::array());
  EXPECT_EQ(same.json()["ArchivoActual"], "F:\\toma.wav");
}

TEST_F(Console, a_file_that_is_not_found_gives_1_and_what_the_strip_says) {
  const auto result = run("--json buscar 'D:\\Mix\\toma.wav' --en D");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.json()["Hallado"], false);
  EXPECT_EQ(result.json()["TextDecode"],
            "El archivo: \r\nD:\\Mix\\toma.wav\r\nNo existe\r\nEn ninguna unidad");
  EXPECT_THAT(result.error, HasSubstr("En ninguna unidad"));
}

TEST_F(Console, without_a_ticked_drive_nothing_is_searched) {
  disk.write("toma.wav", "");
  const auto result = run("buscar toma.wav");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_THAT(result.error, HasSubstr("NO HAY NIGUNA UNIDAD DE DISCO"));
}

TEST_F(Console, the_drives_of_a_configuration_are_searched_when_none_is_named) {
  disk.write("toma.wav", "");
  disk.write("Config.ini", "[Settings]\r\nUnidad: D:\\=1\r\n");
  const auto result =
      run("--config " + disk.native_path("Config.ini").string() + " buscar toma.wav");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.output, "El archivo: toma.wav\r\nHa sido encontrado en: \r\nD:\\toma.wav\n");
}

TEST_F(Console, a_missing_drive_is_wrong_use) {
  for (const char* wrong : {"buscar", "buscar a.wav --en Z", "buscar a.wav --en DD",
                            "buscar a.wav --en", "buscar a.wav --en ''"}) {
    const auto result = run(wrong);
    EXPECT_EQ(result.exit_code, 2) << wrong;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << wrong;
  }
}

}  // namespace
}  // namespace ordelan::test
