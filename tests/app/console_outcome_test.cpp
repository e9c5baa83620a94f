// How a run of the console program ends: its exit code, and which projects it lists as left out.
#include <gmock/gmock.h>

#include <string>

#include "app/console_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct ConsoleOutcome : Console {};

TEST_F(ConsoleOutcome, listed_projects_of_which_none_was_decoded_give_1) {
  disk.write("Mix\\a_BAK.vip", project_of({"D:\\a.wav"}));
  for (const char* item : {"D:/Mix", "D:/Mix/a_BAK.vip"}) {
    const auto result = run(std::string("--json soltar --sin-bak ") + item);
    EXPECT_EQ(result.exit_code, 1) << item;
    EXPECT_THAT(result.error, HasSubstr("ordelan: no se ha descodificado ning\xC3\xBAn proyecto"));
    EXPECT_EQ(result.json()["ListProyectos"].size(), 1u) << item;
    EXPECT_EQ(run(std::string("soltar --bak ") + item).exit_code, 0) << item;
  }
}

TEST_F(ConsoleOutcome, a_backup_opened_by_hand_is_decoded) {
  disk.write("a_BAK.vip", project_of({"D:\\a.wav"}));
  const auto result = run("--json abrir --sin-bak D:/a_BAK.vip");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.json()["ListVip"], Json({"D:\\a.wav"}));
  EXPECT_EQ(result.error, "");
}

TEST_F(ConsoleOutcome, a_drop_without_projects_gives_1_and_says_so) {
  disk.write("Mix\\midi.vip", project_of({}));
  const auto result = run("--json soltar D:/Mix");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.error, "ordelan: no hay proyectos con audio en lo que se ha soltado\n");
}

TEST_F(ConsoleOutcome, reports_that_could_not_be_saved_give_1_and_are_named) {
  disk.write("Mix\\a.vip", project_of({"D:\\a.wav"}));
  disk.write("Mix\\Listados", "a file stands where the folder would");
  const auto result = run("--json listados D:/Mix/a.vip");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.error,
            " >>> AVISO <<<   No se ha podido salvar:\n"
            "D:\\Mix\\Listados\\Archivos de a.vip.log\n"
            "D:\\Mix\\Listados\\Archivos Totales.log\n"
            "D:\\Mix\\Listados\\Archivos a Borrar.log\n");
  EXPECT_EQ(result.json()["ListVip"], Json({"D:\\a.wav"}));
}

TEST_F(ConsoleOutcome, projects_that_are_left_out_are_listed_with_their_reasons) {
  disk.write("A\xF1o\\a.vip", project_of({"D:\\a.wav"}));
  disk.write("A\xF1o\\b_BAK.vip", project_of({"D:\\a.wav"}));
  disk.write("A\xF1o\\midi.vip", project_of({}));
  const std::string folder = "D:\\A\xC3\xB1o\\";
  const auto result = run("--json abrir --sin-bak D:/A\xC3\xB1o/a.vip");
  const Json out = result.json()["ProyectosFuera"];
  ASSERT_EQ(out.size(), 2u) << out;
  for (const Json& each : out) {
    EXPECT_EQ(each.size(), 2u);
    EXPECT_NE(each["motivo"].get<std::string>(), "");
  }
  EXPECT_EQ(out[0]["ruta"], folder + "b_BAK.vip");
  EXPECT_EQ(out[1]["ruta"], folder + "midi.vip");
  EXPECT_LT(result.output.find("\"ListPerdidos\""), result.output.find("\"ProyectosFuera\""));
  EXPECT_LT(result.output.find("\"ProyectosFuera\""), result.output.find("\"LabelCheck\""));

  const std::string text = run("abrir --sin-bak D:/A\xC3\xB1o/a.vip").output;
  EXPECT_THAT(text, HasSubstr("2 proyectos no cuentan:\n  " + folder + "b_BAK.vip   (" +
                              out[0]["motivo"].get<std::string>() + ")\n  " + folder +
                              "midi.vip   (" + out[1]["motivo"].get<std::string>() + ")\n"));
  disk.remove("A\xF1o\\midi.vip");
  EXPECT_THAT(run("abrir --bak D:/A\xC3\xB1o/a.vip").output, Not(HasSubstr("no cuentan")));
}

TEST_F(ConsoleOutcome, a_refused_project_is_listed_among_those_that_are_left_out) {
  disk.write("midi.vip", project_of({}));
  for (const char* command : {"abrir", "soltar"}) {
    const auto result = run(std::string("--json ") + command + " D:/midi.vip");
    EXPECT_EQ(result.exit_code, 1) << command;
    const Json out = result.json()["ProyectosFuera"];
    ASSERT_EQ(out.size(), 1u) << command;
    EXPECT_EQ(out[0]["ruta"], "D:\\midi.vip") << command;
  }
}

TEST_F(ConsoleOutcome, the_help_says_what_the_exit_codes_mean) {
  const auto result = run("--help");
  EXPECT_EQ(result.exit_code, 0);
  for (const char* said :
       {"abrir", "soltar", "listados", "buscar", "--config", "Termina con 0", "con 1", "con 2"}) {
    EXPECT_THAT(result.output, HasSubstr(said));
  }
}

}  // namespace
}  // namespace ordelan::test
