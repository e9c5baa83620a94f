// Single steps of a drop, and what stays of one that was overtaken.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "main_window/main_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

struct DropSteps : ::testing::Test, ProgramBench {
  DropSteps() {
    start();
    disk.write("Mix\\a.vip", project_of({disk.path("Mix\\a.wav")}, 150'000));
    disk.write("Mix\\b.vip", project_of({disk.path("Mix\\b.wav")}, 150'000));
    project("Otro\\z.vip", {"Otro\\z.wav"});
  }

  // A folder without projects, with side files: one that a project names and one that none does.
  void make_old_folder() {
    settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>", "1");
    disk.write("Viejo\\toma.m4a", "x");
    disk.write("Viejo\\toma.h2", "x");
    disk.write("v.vip", project_of({disk.path("Viejo\\toma.m4a")}));
    dialogs.answers = {system::Answer::ok};
  }
  std::vector<std::string> left_out() const {
    std::vector<std::string> paths;
    for (const work::ProyectoFuera& each : work.ProyectosFuera) paths.push_back(each.ruta);
    return paths;
  }
};

TEST_F(DropSteps, a_drop_of_no_files_leaves_the_empty_window_without_its_commands) {
  open("Mix\\a.vip");
  drop({});
  EXPECT_TRUE(form.lists.empty());
  EXPECT_FALSE(form.SalvaListados.visible());
  EXPECT_FALSE(form.ActualizarVip.visible());
  EXPECT_FALSE(form.ZoomListas.visible());
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(DropSteps, slashes_in_a_dropped_path_are_backslashes_in_the_lists) {
  std::string path = disk.path("Mix\\a.vip");
  std::replace(path.begin(), path.end(), '\\', '/');
  form.lists.ListProyectos.on_drop({path});
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Mix\\a.vip")));
  EXPECT_EQ(work.RutaProyectos, disk.path("Mix\\a.vip"));
}

TEST_F(DropSteps, slashes_in_a_picked_path_are_backslashes_in_the_lists) {
  std::string path = disk.path("Otro\\z.vip");
  std::replace(path.begin(), path.end(), '\\', '/');
  dialogs.files.push_back({path});
  form.AbrirFichero_Click();
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Otro\\z.vip")));
  EXPECT_EQ(work.RutaProyectos, disk.path("Otro\\"));
}

TEST_F(DropSteps, the_rows_of_the_work_before_go_with_the_first_project_that_is_taken) {
  open("Otro\\z.vip");
  std::vector<std::string> rows;
  in_the_middle([&] { return !work.PrimerProyecto.empty(); },
                [&] { rows = form.lists.ListProyectos.rows(); });
  drop({"Mix\\a.vip", "Mix\\b.vip"});
  EXPECT_THAT(rows, ElementsAre(row(1, "Mix\\a.vip"))) << "while the second one is checked";
  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Mix\\a.vip"), row(2, "Mix\\b.vip")));
}

TEST_F(DropSteps, a_drop_that_was_overtaken_in_its_search_asks_nothing) {
  settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>", "1");
  for (int turn = 1; turn < 100; ++turn) {
    int turns = 0;
    backend.on_pump = [&] {
      if (++turns == turn) form.cmdReset_Click();
    };
    drop({"Mix"});
    backend.on_pump = nullptr;
    if (turns < turn) {
      EXPECT_GT(turn, 2);
      break;
    }
    EXPECT_THAT(dialogs.messages, IsEmpty()) << turn;
  }
}

TEST_F(DropSteps, side_files_that_were_kept_are_named_after_a_sweep_and_after_a_drop_of_nothing) {
  make_old_folder();
  const std::string told = " >>> AVISO <<<   Se conserva el audio que nombra algún proyecto:\r\n" +
                           disk.path("Viejo\\toma.m4a");
  drop({"Viejo", "Mix\\a.vip"});
  EXPECT_EQ(form.strip.TextDecode.text(), told);
  EXPECT_TRUE(form.strip.TextDecode.visible());
  EXPECT_FALSE(there("Viejo\\toma.h2"));
  EXPECT_TRUE(there("Viejo\\toma.m4a"));

  for (const auto& items : {std::vector<std::string>{"Viejo"}, {"Viejo", "Mix"}}) {
    dialogs.answers = {system::Answer::ok};
    drop(items);
    EXPECT_EQ(form.strip.TextDecode.text(), told) << "once, by " << items.size();
    EXPECT_TRUE(form.strip.TextDecode.visible());
  }
}

TEST_F(DropSteps,
       side_files_that_were_kept_in_a_drop_that_was_overtaken_are_not_named_by_the_next) {
  make_old_folder();
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] { form.cmdReset_Click(); });
  drop({"Viejo", "Mix\\a.vip"});
  ASSERT_EQ(dialogs.messages.size(), 1u);
  backend.on_pump = nullptr;
  drop({"Otro"});
  EXPECT_THAT(form.strip.TextDecode.text(), Not(HasSubstr("AVISO")));
  EXPECT_FALSE(form.strip.TextDecode.visible());
}

TEST_F(DropSteps, a_project_that_is_listed_already_is_not_left_out_for_being_dropped_again) {
  drop({"Otro\\z.vip", "Mix", "Otro\\z.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(), ::testing::SizeIs(3));
  EXPECT_THAT(left_out(), IsEmpty());
}

TEST_F(DropSteps, only_projects_and_folders_dropped_after_a_folder_are_left_out) {
  disk.make_folder("Carpeta");
  disk.write("nota.txt", "x");
  drop({"Mix", "Mix\\a.vip", "Mix\\Dos", "nota.txt", "nada.vip", "Carpeta", "Otro\\z.vip"});
  EXPECT_THAT(left_out(), UnorderedElementsAre(disk.path("Carpeta"), disk.path("Otro\\z.vip")));
  EXPECT_TRUE(form.LabelFuera.visible());
}

TEST_F(DropSteps, what_is_no_project_is_not_left_out_as_one) {
  disk.write("nota.txt", "x");
  disk.make_folder("carpeta.vip");
  drop({"nota.txt", "nada.txt", "carpeta.vip"});
  EXPECT_THAT(left_out(), IsEmpty());
  EXPECT_FALSE(form.LabelFuera.visible());
}

// A folder of a similar name is not below the swept one.
TEST_F(DropSteps, a_folder_whose_name_begins_like_the_swept_one_is_left_out) {
  project("Mixto\\m.vip", {"Mixto\\m.wav"});
  drop({"Mix", "Mixto"});
  EXPECT_THAT(left_out(), ElementsAre(disk.path("Mixto")));
}

TEST_F(DropSteps, why_nothing_of_a_drop_counts_stays_to_be_seen) {
  disk.write("midi.vip", project_of({}));
  drop({"midi.vip", "nada.vip"});
  EXPECT_TRUE(form.lists.empty());
  EXPECT_THAT(left_out(), UnorderedElementsAre(disk.path("midi.vip"), disk.path("nada.vip")));
  EXPECT_TRUE(form.LabelFuera.visible());
  EXPECT_EQ(form.LabelFuera.caption(), "2 proyectos no cuentan");
  EXPECT_TRUE(form.SalvaListados.visible());
}

// What reports have put aside belongs to the window as it was then.
struct OvertakenReports : DropSteps {
  // Saving is cancelled in its first turn, and something else is done at once.
  template <class Action>
  void save_and_overtake(Action action) {
    open("Mix\\a.vip");
    in_the_middle([&] { return work.Descodificando; },
                  [&] {
                    form.cmdCancelar_Click();
                    action();
                  });
    form.SalvaListados_Click();
    backend.on_pump = nullptr;
  }
};

TEST_F(OvertakenReports, by_a_double_click_put_nothing_back_when_they_are_saved_again) {
  save_and_overtake([&] { double_click(1); });
  ASSERT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\b.wav")));
  form.SalvaListados_Click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\b.wav")));
  EXPECT_EQ(work.NombreProyecto, disk.path("Mix\\b.vip"));
}

TEST_F(OvertakenReports, by_a_drop_put_nothing_back_when_they_are_saved_again) {
  save_and_overtake([&] { drop({"Otro\\z.vip"}); });
  form.SalvaListados_Click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Otro\\z.wav")));
  EXPECT_EQ(work.NombreProyecto, disk.path("Otro\\z.vip"));
}

TEST_F(OvertakenReports, by_an_opening_put_nothing_back_when_they_are_saved_again) {
  save_and_overtake([&] { open("Otro\\z.vip"); });
  form.SalvaListados_Click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Otro\\z.wav")));
}

TEST_F(OvertakenReports, by_reports_put_back_what_stood_before_the_first) {
  save_and_overtake([&] { form.SalvaListados_Click(); });
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\a.wav")));
  EXPECT_EQ(work.NombreProyecto, disk.path("Mix\\a.vip"));
}

struct DoubleClickSteps : DropSteps {};

TEST_F(DoubleClickSteps, without_a_row_under_it_nothing_is_decoded) {
  open("Mix\\a.vip");
  form.lists.ListProyectos.set_current(-1);
  form.lists.ListProyectos.on_double_click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\a.wav")));
  EXPECT_EQ(work.NombreProyecto, disk.path("Mix\\a.vip"));
  EXPECT_FALSE(form.strip.XP_ProgressBar1.visible());
}

TEST_F(DoubleClickSteps, it_is_busy_until_its_end) {
  open("Mix\\a.vip");
  int turns = 0;
  bool busy = true;
  backend.on_pump = [&] {
    ++turns;
    busy = busy && work.Descodificando;
  };
  double_click(1);
  EXPECT_GT(turns, 0);
  EXPECT_TRUE(busy);
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(DoubleClickSteps, one_that_was_overtaken_puts_nothing_of_the_newer_work_away) {
  open("Mix\\a.vip");
  in_the_middle([&] { return work.Descodificando; },
                [&] {
                  form.cmdCancelar_Click();
                  open("Otro\\z.vip");
                  form.lists.LabelCheck[1].on_click();
                });
  double_click(1);
  EXPECT_TRUE(form.path_strip.ListPath.visible());
}

TEST_F(DoubleClickSteps, its_time_is_measured_anew_and_shown) {
  open("Mix\\a.vip");
  form.clocks.LapsoDeco = 1000;
  form.clocks.TimeDeco.set_text("");
  double_click(1);
  EXPECT_LT(form.clocks.LapsoDeco, 1000);
  EXPECT_FALSE(form.clocks.TimerLap.running());
  EXPECT_THAT(form.clocks.TimeDeco.text(), HasSubstr(" seg"));
  EXPECT_EQ(form.clocks.TextLapsoTotal.text(), form.clocks.TimeDeco.text());
}

TEST_F(DoubleClickSteps, the_decoded_project_is_the_clicked_one_even_without_audio) {
  open("Mix\\a.vip");
  disk.write("Mix\\b.vip", project_of({}));
  double_click(1);
  EXPECT_EQ(work.NombreProyecto, disk.path("Mix\\b.vip"));
}

}  // namespace
}  // namespace ordelan::test
