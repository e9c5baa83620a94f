// Removal and recovery by the console program.
#include <gmock/gmock.h>

#include <string>

#include "app/console_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct ConsoleRemoval : Console {
  ConsoleRemoval() {
    disk.write("Mix\\usado.wav", "used");
    disk.write("Mix\\usado2.wav", "the neighbour of a used file is not offered");
    disk.write("Mix\\a.wav", "a");
    disk.write("Mix\\Voces\\b.wav", "b");
    disk.write("Mix\\a.h2", "side file");
    disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\usado.wav"}));
    disk.make_folder("Copias");
  }
  bool there(const std::string& below) { return disk.files().info(disk.path(below)).has_value(); }
};

TEST_F(ConsoleRemoval, unused_files_are_removed_for_good) {
  const auto result = run("--json borrar 'D:\\Mix\\tema.vip' --definitivo");
  EXPECT_EQ(result.exit_code, 0) << result.error;
  const Json json = result.json();
  EXPECT_EQ(json["ListBorrar"],
            Json({"D:\\Mix\\a.wav  --> Borrado", "D:\\Mix\\Voces\\b.wav  --> Borrado"}));
  EXPECT_EQ(json["ListStatus"], Json({true, true}));
  EXPECT_EQ(json["LabelInfo"]["texto"], " >> Se han efectuado todas las operaciones << ");
  EXPECT_EQ(json["LabelInfo"]["color"], "0x00FF00");
  EXPECT_EQ(json["borrados"], 2);
  EXPECT_EQ(json["asociados"], 0);
  EXPECT_EQ(json["noBorrados"], Json::array());
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\usado.wav"));
  EXPECT_TRUE(there("Mix\\a.h2"));
}

TEST_F(ConsoleRemoval, side_files_go_where_that_is_asked_for) {
  const auto result = run("--json borrar 'D:\\Mix\\tema.vip' --definitivo --asociados");
  EXPECT_EQ(result.json()["asociados"], 1);
  EXPECT_FALSE(there("Mix\\a.h2"));
}

TEST_F(ConsoleRemoval, what_is_to_be_kept_stays) {
  const auto result = run("borrar 'D:\\Mix\\tema.vip' --definitivo --conservar 'D:\\mix\\VOCES'");
  EXPECT_EQ(result.exit_code, 0) << result.error;
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\Voces\\b.wav"));
  EXPECT_EQ(
      run("borrar 'D:\\Mix\\tema.vip' --definitivo --conservar 'D:\\Mix\\Voces\\B.wav'").exit_code,
      0);
  EXPECT_TRUE(there("Mix\\Voces\\b.wav"));
}

TEST_F(ConsoleRemoval, what_is_to_be_kept_stays_under_any_path) {
  const std::string two = " --unidad E=" + native("");
  const auto result = run(two +
                          " borrar 'D:\\Mix\\tema.vip' --definitivo --asociados"
                          " --conservar 'E:\\Mix\\a.wav' --conservar 'E:\\Mix\\Voces'"
                          " --conservar 'D:\\Mix\\a.h2'");
  EXPECT_EQ(result.exit_code, 0) << result.error;
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\Voces\\b.wav"));
  EXPECT_TRUE(there("Mix\\a.h2")) << "a side file is kept too";
  EXPECT_EQ(run("borrar 'D:\\Mix\\tema.vip' --definitivo --conservar 'D:\\Mix\\a.*'").exit_code, 2);
}

TEST_F(ConsoleRemoval, what_is_to_be_kept_and_is_nowhere_is_a_slip) {
  const auto result = run("borrar 'D:\\Mix\\tema.vip' --definitivo --conservar 'D:\\Mix\\aa.wav'");
  EXPECT_EQ(result.exit_code, 2);
  EXPECT_THAT(result.error, HasSubstr("--conservar D:\\Mix\\aa.wav: no existe"));
  EXPECT_TRUE(there("Mix\\a.wav"));
}

TEST_F(ConsoleRemoval, bin_and_for_good_exclude_each_other) {
  for (const char* both :
       {"--papelera --definitivo", "--definitivo --papelera", "--definitivo --bak --sin-bak",
        "--definitivo --sin-subcarpetas --subcarpetas"}) {
    EXPECT_EQ(run(std::string("borrar 'D:\\Mix\\tema.vip' ") + both).exit_code, 2) << both;
    EXPECT_TRUE(there("Mix\\a.wav")) << both;
  }
}

TEST_F(ConsoleRemoval, projects_that_are_left_out_are_named) {
  disk.write("Mix\\vacio.vip", "");
  EXPECT_THAT(run("borrar 'D:\\Mix\\tema.vip' --definitivo --simular").error,
              HasSubstr("1 proyectos no cuentan:\n  D:\\Mix\\vacio.vip"));
}

TEST_F(ConsoleRemoval, a_plan_touches_nothing) {
  const auto result =
      run("--json borrar 'D:\\Mix\\tema.vip' --papelera --asociados --simular "
          "--copia 'D:\\Copias' --conservar 'D:\\Mix\\a.wav'");
  EXPECT_EQ(result.exit_code, 0) << result.error;
  const Json plan = result.json()["plan"];
  ASSERT_EQ(plan.size(), 3u);
  EXPECT_EQ(plan[0]["ruta"], "D:\\Mix\\a.h2");
  EXPECT_EQ(plan[0]["asociado"], true);
  EXPECT_EQ(plan[1]["accion"], "conservar");
  EXPECT_EQ(plan[1]["motivo"], "est\xC3\xA1 desactivado");
  EXPECT_EQ(plan[1]["copia"], true);
  EXPECT_EQ(plan[2]["accion"], "papelera");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\a.h2"));
  EXPECT_FALSE(there("Copias\\Archivos_Borrados.log"));
  EXPECT_FALSE(there("Copias\\a.wav"));
}

TEST_F(ConsoleRemoval, a_plan_lists_what_projects_name_with_the_project_and_the_reason) {
  disk.write("Mix\\Sub\\otro_BAK.vip", "D:\\Mix\\a.wav");
  disk.write("Mix\\Sub\\ca\xF1\xF3n.vip", "X:\\Vieja\\b.wav");
  const auto result = run("--json borrar 'D:\\Mix\\tema.vip' --papelera --simular");
  EXPECT_EQ(result.exit_code, 0) << result.error;
  const Json json = result.json();
  EXPECT_EQ(json["conservados"],
            Json::array({{{"ruta", "D:\\Mix\\a.wav"},
                          {"motivo", "lo nombra D:\\Mix\\Sub\\otro_BAK.vip"},
                          {"proyecto", "D:\\Mix\\Sub\\otro_BAK.vip"}},
                         {{"ruta", "D:\\Mix\\Voces\\b.wav"},
                          {"motivo",
                           "puede ser el archivo perdido que nombra "
                           "D:\\Mix\\Sub\\ca\xC3\xB1\xC3\xB3n.vip"},
                          {"proyecto", "D:\\Mix\\Sub\\ca\xC3\xB1\xC3\xB3n.vip"}}}));
  EXPECT_EQ(json["plan"][0]["accion"], "conservar");
  EXPECT_EQ(json["plan"][0]["motivo"], "lo nombra D:\\Mix\\Sub\\otro_BAK.vip");
  EXPECT_THAT(run("borrar 'D:\\Mix\\tema.vip' --papelera --simular").output,
              HasSubstr("conservar  D:\\Mix\\a.wav   (lo nombra D:\\Mix\\Sub\\otro_BAK.vip)\n"));
  const Json unchecked =
      run("--json borrar 'D:\\Mix\\tema.vip' --papelera --simular --sin-comprobar").json();
  EXPECT_EQ(unchecked["conservados"], Json::array());
  EXPECT_EQ(unchecked["plan"][0]["accion"], "papelera");
}

TEST_F(ConsoleRemoval, what_projects_name_stays) {
  disk.write("Mix\\Sub\\otro_BAK.vip", "D:\\Mix\\a.wav");
  const auto result = run("--json borrar 'D:\\Mix\\tema.vip' --definitivo");
  EXPECT_EQ(result.exit_code, 1) << "a ticked file is still there";
  EXPECT_EQ(result.json()["noBorrados"],
            Json::array({{{"ruta", "D:\\Mix\\a.wav"},
                          {"motivo", "lo nombra D:\\Mix\\Sub\\otro_BAK.vip"},
                          {"proyecto", "D:\\Mix\\Sub\\otro_BAK.vip"}}}));
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_FALSE(there("Mix\\Voces\\b.wav"));
}

TEST_F(ConsoleRemoval, opening_lists_the_unused_files_that_projects_name_where_that_is_asked_for) {
  disk.write("Mix\\Sub\\otro_BAK.vip", "D:\\Mix\\a.wav");
  const auto text = run("abrir 'D:\\Mix\\tema.vip' --nombrados");
  EXPECT_EQ(text.exit_code, 0) << text.error;
  EXPECT_THAT(text.output,
              HasSubstr("Los nombra alg\xC3\xBAn proyecto: 1\n"
                        "  D:\\Mix\\a.wav   (lo nombra D:\\Mix\\Sub\\otro_BAK.vip)\n\n"));
  const Json json = run("--json abrir 'D:\\Mix\\tema.vip' --nombrados").json();
  EXPECT_EQ(json["conservados"], Json::array({{{"ruta", "D:\\Mix\\a.wav"},
                                               {"motivo", "lo nombra D:\\Mix\\Sub\\otro_BAK.vip"},
                                               {"proyecto", "D:\\Mix\\Sub\\otro_BAK.vip"}}}));
  EXPECT_EQ(json["ListBorrar"], Json({"D:\\Mix\\a.wav", "D:\\Mix\\Voces\\b.wav"}))
      << "the list itself stays as it is";
  EXPECT_FALSE(run("--json abrir 'D:\\Mix\\tema.vip'").json().contains("conservados"));
  disk.remove("Mix\\Sub");
  EXPECT_EQ(run("--json abrir 'D:\\Mix\\tema.vip' --nombrados").json()["conservados"],
            Json::array());
}

TEST_F(ConsoleRemoval, a_folder_whose_projects_are_not_seen_keeps_all) {
  disk.make_folder("Otra");
  std::filesystem::create_directory_symlink(native("Otra"), native("Mix\\enlace"));
  const Json json = run("--json abrir 'D:\\Mix\\tema.vip' --nombrados").json();
  ASSERT_EQ(json["conservados"].size(), 2u);
  EXPECT_EQ(json["conservados"][0]["motivo"], "no se busca en la carpeta enlazada D:\\Mix\\enlace");
}

TEST_F(ConsoleRemoval, copies_are_made_and_brought_back) {
  ASSERT_EQ(run("borrar --soltar 'D:\\Mix' --definitivo --copia 'D:\\Copias'").exit_code, 0);
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Copias\\a.wav"));
  const auto planned = run("recuperar 'D:\\Copias\\Archivos_Borrados.log' --simular");
  EXPECT_THAT(planned.output, HasSubstr("D:\\Copias\\a.wav -> D:\\Mix\\a.wav\n"));
  EXPECT_FALSE(there("Mix\\a.wav"));
  const auto result = run("--json recuperar 'D:\\Copias\\Archivos_Borrados.log'");
  EXPECT_EQ(result.exit_code, 0) << result.error;
  EXPECT_EQ(result.json()["recuperados"], 2);
  EXPECT_EQ(result.json()["Label1"], "Operaci\xC3\xB3n terminada");
  EXPECT_EQ(result.json()["ListRecuperar"], Json({"D:\\Mix\\a.wav", "D:\\Mix\\Voces\\b.wav"}));
  EXPECT_TRUE(there("Mix\\a.wav"));
}

TEST_F(ConsoleRemoval, a_log_of_two_lines_is_written_for_an_empty_list) {
  disk.remove("Mix\\a.wav");
  disk.remove("Mix\\Voces");
  ASSERT_EQ(run("borrar 'D:\\Mix\\tema.vip' --definitivo --copia 'D:\\Copias'").exit_code, 0);
  EXPECT_TRUE(there("Copias\\Archivos_Borrados.log"));
  EXPECT_GT(disk.files().info("D:\\Copias\\Archivos_Borrados.log")->size, 80u);
}

TEST_F(ConsoleRemoval, what_stays_is_told_with_its_reason) {
  ASSERT_TRUE(disk.files().set_attributes("D:\\Mix\\a.wav", system::attribute::kReadOnly));
  const auto result = run("--json borrar 'D:\\Mix\\tema.vip' --definitivo");
  EXPECT_EQ(result.exit_code, 1);
  EXPECT_EQ(result.json()["noBorrados"][0]["ruta"], "D:\\Mix\\a.wav");
  EXPECT_EQ(result.json()["noBorrados"][0]["motivo"], "es de solo lectura");
  EXPECT_EQ(result.json()["borrados"], 1);
}

TEST_F(ConsoleRemoval, wrong_use_gives_2_and_touches_nothing) {
  disk.write("Copias\\x.log", std::string(200, 'x'));
  for (const char* wrong : {"borrar", "borrar 'D:\\Mix\\tema.vip'", "borrar --definitivo",
                            "borrar 'D:\\Mix\\none.vip' --definitivo",
                            "borrar 'D:\\Mix\\tema.vip' --definitivo --copia 'D:\\none'",
                            "borrar 'D:\\Mix\\tema.vip' --definitivo --copia 'D:\\Mix\\a.wav'",
                            "borrar --soltar 'D:\\Mix' 'D:\\none' --definitivo", "recuperar",
                            "recuperar 'D:\\none.log'", "recuperar 'D:\\Copias\\x.log'"}) {
    const auto result = run(wrong);
    EXPECT_EQ(result.exit_code, 2) << wrong;
    EXPECT_THAT(result.error, testing::Not(IsEmpty())) << wrong;
  }
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\Voces\\b.wav"));
}

TEST_F(ConsoleRemoval, a_folder_without_projects_removes_nothing) {
  EXPECT_EQ(run("borrar --soltar 'D:\\Copias' --definitivo --asociados").exit_code, 1);
  EXPECT_TRUE(there("Mix\\a.h2"));
}

}  // namespace
}  // namespace ordelan::test
