// The commands of relinking, by the console program.
#include <gmock/gmock.h>

#include <string>

#include "app/console_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

struct ConsoleRelink : Console {
  ConsoleRelink() {
    disk.write("Mix\\tema.vip", project_of({"D:\\Viejo\\a.wav", "D:\\Viejo\\largo\\b.wav"}));
    disk.write("Nuevo\\a.wav", "a");
    disk.write("Nuevo\\b.wav", "b");
  }
  bool there(const std::string& below) { return disk.files().info(disk.path(below)).has_value(); }
  std::string before = project_of({"D:\\Viejo\\a.wav", "D:\\Viejo\\largo\\b.wav"});
};

TEST_F(ConsoleRelink, a_project_is_updated_and_the_update_is_undone) {
  const auto updated = run("--json actualizar 'D:\\Mix\\tema.vip' --en D");
  EXPECT_EQ(updated.exit_code, 0) << updated.error;
  const Json json = updated.json();
  EXPECT_EQ(json["titulo"], "Estos proyectos Vip no tienen archivos desubicados");
  EXPECT_EQ(json["icono"], "exclamation");
  EXPECT_THAT(json["Informe"].get<std::string>(), HasSubstr("D:\\Mix\\Originales\\tema.vip\r\n"));
  const Json project = json["proyectos"][0];
  EXPECT_EQ(project["path"], "D:\\Mix\\tema.vip");
  EXPECT_EQ(project["result"], "actualizado");
  EXPECT_EQ(project["pairs"][0]["old"], "D:\\Viejo\\a.wav");
  EXPECT_EQ(project["pairs"][0]["new"], "D:\\Nuevo\\a.wav");
  EXPECT_EQ(project["pairs"][0]["found"], true);
  EXPECT_EQ(project["pairs"][0]["overlong"], 1) << "the zero after a path of the same length";
  EXPECT_EQ(project["pairs"][1]["overlong"], 0);
  EXPECT_EQ(bytes_of("Mix\\Originales\\tema.vip"), before);
  EXPECT_NE(bytes_of("Mix\\tema.vip"), before);

  const auto undone = run("deshacer 'D:\\Mix\\tema.vip'");
  EXPECT_EQ(undone.exit_code, 0);
  EXPECT_THAT(undone.output, HasSubstr("Proyectos restaurados: 1"));
  EXPECT_EQ(bytes_of("Mix\\tema.vip"), before);
  EXPECT_EQ(run("deshacer 'D:\\Mix\\tema.vip'").exit_code, 2) << "nothing is left to be undone";
}

TEST_F(ConsoleRelink, a_simulation_says_what_would_be_written_and_writes_nothing) {
  const auto result = run("actualizar 'D:\\Mix\\tema.vip' --en D --simular");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_THAT(result.output,
              HasSubstr("D:\\Viejo\\a.wav -> D:\\Nuevo\\a.wav   (sobrescribe 1 bytes)"));
  EXPECT_EQ(bytes_of("Mix\\tema.vip"), before);
  EXPECT_FALSE(there("Mix\\Originales"));
}

TEST_F(ConsoleRelink, a_name_with_several_files_leaves_its_project_unless_one_is_chosen) {
  disk.write("Otro\\a.wav", "another");
  const std::string update = "--json actualizar 'D:\\Mix\\tema.vip' --en D --simular ";
  const auto left = run(update);
  EXPECT_EQ(left.exit_code, 1);
  EXPECT_THAT(left.json()["proyectos"][0]["result"].get<std::string>(),
              HasSubstr("varios archivos"));
  const auto chosen = [&](const std::string& how) {
    return run(update + how).json()["proyectos"][0]["pairs"][0]["new"];
  };
  EXPECT_EQ(chosen("--elegir primera"), "D:\\Nuevo\\a.wav");
  EXPECT_EQ(chosen("--elegir 2"), "D:\\Otro\\a.wav");
  EXPECT_EQ(chosen("--elegir ninguna"), "D:\\Mix\\a.wav");
  EXPECT_EQ(run(update + "--elegir 3").exit_code, 1) << "there is no third";
  EXPECT_EQ(run(update + "--elegir otra").exit_code, 2);
  EXPECT_EQ(run(update + "--elegir 0").exit_code, 2);
}

TEST_F(ConsoleRelink, the_careful_way_patches_each_project_in_its_own_folder) {
  disk.write("Mix\\Sub\\otro.vip",
             project_of({"D:\\Nuevo\\a.wav", "D:\\V\\b.wav", "D:\\Viejo\\b.wav"}));
  const auto result =
      run("--json actualizar 'D:\\Mix\\tema.vip' --en D --en-su-carpeta --subcarpetas");
  EXPECT_EQ(result.exit_code, 1) << "one path has no room";
  const Json pairs = result.json()["proyectos"][1]["pairs"];
  EXPECT_EQ(pairs[0]["left"], true) << "it exists";
  EXPECT_EQ(pairs[1]["left"], true) << "it does not fit";
  EXPECT_EQ(pairs[1]["new"], "D:\\Nuevo\\b.wav");
  EXPECT_EQ(pairs[2]["left"], false);
  EXPECT_EQ(pairs[2]["overlong"], 0);
  EXPECT_EQ(bytes_of("Mix\\Sub\\otro.vip"),
            project_of({"D:\\Nuevo\\a.wav", "D:\\V\\b.wav", "D:\\Nuevo\\b.wav"}));
  EXPECT_FALSE(there("Mix\\otro.vip"));
}

TEST_F(ConsoleRelink, without_a_drive_nothing_is_updated) {
  const auto result = run("actualizar 'D:\\Mix\\tema.vip'");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_THAT(result.error, HasSubstr("Pulsar men\xC3\xBA Configurar, y seleccionar unidades."));
  EXPECT_EQ(bytes_of("Mix\\tema.vip"), before);
}

TEST_F(ConsoleRelink, pointers_are_written_to_a_folder_that_exists) {
  disk.make_folder("Punteros");
  const auto result = run("punteros 'D:\\Mix\\tema.vip' 'D:\\Punteros'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.output, "D:\\Punteros\\tema_vip.ptr\n");
  EXPECT_EQ(bytes_of("Punteros\\tema_vip.ptr"), " 106 \r\n 119 \r\n 366 \r\n 385 \r\n");
  EXPECT_EQ(run("punteros 'D:\\Mix\\tema.vip' 'D:\\Nada'").exit_code, 2);
}

TEST_F(ConsoleRelink, a_file_that_only_has_the_name_of_pointers_stays) {
  disk.write("Punteros\\tema_vip.ptr", "my notes");
  EXPECT_EQ(run("punteros 'D:\\Mix\\tema.vip' 'D:\\Punteros'").exit_code, 1);
  EXPECT_EQ(bytes_of("Punteros\\tema_vip.ptr"), "my notes");
}

}  // namespace
}  // namespace ordelan::test
