// Single steps of the main window's handlers, each of which a user would miss.
#include <gmock/gmock.h>

#include <initializer_list>
#include <stdexcept>
#include <utility>
#include <vector>

#include "main_window/main_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct WindowSteps : ::testing::Test, ProgramBench {
  WindowSteps() {
    start();
    disk.write("Mix\\a.vip", project_of({disk.path("Mix\\a.wav")}));
    disk.write("Mix\\b.vip", project_of({disk.path("Mix\\b.wav")}));
    for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\z.wav"}) {
      disk.write(file, file);
    }
  }
};

TEST_F(WindowSteps, a_double_click_does_nothing_while_a_decode_or_a_removal_runs) {
  open("Mix\\a.vip");
  for (bool* busy : {&work.Descodificando, &work.Borrando}) {
    *busy = true;
    double_click(1);
    EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\a.wav")));
    *busy = false;
  }
  double_click(1);
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\b.wav")));
}

TEST_F(WindowSteps, a_drop_does_nothing_while_a_decode_or_a_removal_runs) {
  open("Mix\\a.vip");
  disk.write("Otra\\c.vip", project_of({"D:\\c.wav"}));
  for (bool* busy : {&work.Descodificando, &work.Borrando}) {
    *busy = true;
    drop({"Otra\\c.vip"});
    EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(2));
    *busy = false;
  }
  drop({"Otra\\c.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(1));
}

TEST_F(WindowSteps, a_click_on_a_project_does_nothing_while_a_removal_runs) {
  open("Mix\\a.vip");
  work.Borrando = true;
  work.ClickEnLista = false;
  form.lists.ListProyectos.chosen(0);
  form.lists.ListProyectos.on_click();
  EXPECT_FALSE(work.ClickEnLista);
  EXPECT_THAT(form.path_strip.ListPath.rows(), IsEmpty());
}

TEST_F(WindowSteps, the_first_project_of_a_drop_is_remembered_anew_each_time) {
  drop({"Mix\\a.vip"});
  EXPECT_EQ(work.PrimerProyecto, disk.path("Mix\\a.vip"));
  drop({"Mix\\b.vip"});
  EXPECT_EQ(work.PrimerProyecto, disk.path("Mix\\b.vip"));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\b.wav")));
}

TEST_F(WindowSteps, opening_a_project_forgets_the_first_one_of_an_earlier_drop) {
  drop({"Mix\\a.vip"});
  open("Mix\\b.vip");
  EXPECT_EQ(work.PrimerProyecto, "");
}

TEST_F(WindowSteps, the_search_for_unused_files_is_reported_as_a_result) {
  std::string shown;
  ui::Color colour{};
  in_the_middle([&] { return form.strip.TextDecode.text().starts_with("Buscando archivos"); },
                [&] {
                  shown = form.strip.TextDecode.text();
                  colour = form.strip.TextDecode.back_color();
                  EXPECT_TRUE(form.strip.TextDecode.visible());
                });
  open("Mix\\a.vip");
  EXPECT_EQ(shown, "Buscando archivos no utilizados ");
  EXPECT_EQ(colour, ui::Color{0xFFFFC0});
}

TEST_F(WindowSteps, a_click_on_the_button_hides_what_belongs_to_the_work_before) {
  open("Mix\\a.vip");
  ASSERT_TRUE(form.clocks.LabelD.visible());
  form.clocks.LabelD.set_caption("Tiempo actualización");
  form.strip.Alerta(work::kResult, "algo", true);
  // The dialog is cancelled: what was hidden before it stays so.
  form.AbrirFichero_Click();
  EXPECT_EQ(form.clocks.LabelD.caption(), "Tiempo descodificación");
  for (const ui::Control* hidden : std::initializer_list<const ui::Control*>{
           &form.clocks.LabelD, &form.strip.TextDecode, &form.SalvaListados, &form.ActualizarVip,
           &form.ZoomListas}) {
    EXPECT_FALSE(hidden->visible()) << hidden->name();
  }
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(2)) << "the lists stay";
}

TEST_F(WindowSteps, a_listing_with_subfolders_shows_the_wait_cursor) {
  bool waited = false;
  backend.on_pump = [&] { waited |= form.waiting(); };
  open("Mix\\a.vip");
  EXPECT_TRUE(waited);
  EXPECT_FALSE(form.waiting());
}

TEST_F(WindowSteps, a_cancel_offers_the_reset) {
  form.cmdReset.hide();
  form.cmdCancelar_Click();
  EXPECT_TRUE(form.cmdReset.visible());
  EXPECT_TRUE(work.Cancelar);
}

TEST_F(WindowSteps, a_double_click_hides_the_picture_of_the_project_before) {
  open("Mix\\a.vip");
  form.path_strip.MostrarPath(disk.path("Mix\\a.vip"));
  ASSERT_TRUE(form.path_strip.ImageIcon.visible());
  double_click(1);
  EXPECT_FALSE(form.path_strip.ImageIcon.visible());
  EXPECT_FALSE(form.path_strip.ListPath.visible());
}

TEST_F(WindowSteps, a_project_alone_in_its_folder_heads_what_it_uses) {
  disk.write("Solo\\s.vip", project_of({disk.path("Solo\\s.wav")}));
  open("Solo\\s.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre("1 --> " + disk.path("Solo\\s.vip")));
  EXPECT_THAT(form.lists.ListUtilizados.rows(),
              ElementsAre("1 --> " + disk.path("Solo\\s.vip"), disk.path("Solo\\s.wav")));
}

TEST_F(WindowSteps, backups_that_are_left_out_are_not_counted_in_the_heading) {
  disk.write("Mix\\a_BAK.vip", project_of({disk.path("Mix\\a.wav")}));
  open("Mix\\a.vip");
  EXPECT_EQ(form.lists.LabelCheck[0].caption(), "Encontrados 3 proyectos en:");
  form.CheckBAK.set_checked(false);
  open("Mix\\a.vip");
  EXPECT_EQ(form.lists.LabelCheck[0].caption(), "Encontrados 2 proyectos en:");
}

TEST_F(WindowSteps, a_sweep_that_fails_in_the_middle_leaves_a_window_that_can_be_used) {
  project("Mix\\a.vip", {"Mix\\a.wav"});
  backend.on_pump = [] { throw std::runtime_error("out of memory"); };
  EXPECT_THROW(drop({"Mix\\a.vip"}), std::runtime_error);
  EXPECT_FALSE(work.Descodificando);
  backend.on_pump = nullptr;
  drop({"Mix\\a.vip"});
  EXPECT_EQ(form.lists.ListProyectos.count(), 1u);
}

TEST_F(WindowSteps, a_reset_before_the_folders_are_listed_leaves_no_folder_behind) {
  project("Mix\\a.vip", {"Mix\\a.wav"});
  form.CheckSubPath.set_checked(true);
  in_the_middle([&] { return form.waiting(); }, [&] { form.cmdReset_Click(); });
  open("Mix\\a.vip");
  EXPECT_TRUE(form.lists.List1.empty());
  EXPECT_TRUE(form.lists.empty());
}

// What the window shows in the first turn of a run.
struct FirstTurn : WindowSteps {
  using Controls = std::initializer_list<const ui::Control*>;

  void expect_in_first_turn(Controls shown, Controls hidden) {
    backend.on_pump = [this, shown = std::vector<const ui::Control*>(shown),
                       hidden = std::vector<const ui::Control*>(hidden)] {
      if (std::exchange(looked, true)) return;
      for (const ui::Control* control : shown) EXPECT_TRUE(control->visible()) << control->name();
      for (const ui::Control* control : hidden) EXPECT_FALSE(control->visible()) << control->name();
    };
  }

  bool looked = false;
};

TEST_F(FirstTurn, a_drop_puts_away_what_the_work_before_has_found) {
  project("Mix\\l.vip", {"Mix\\lost.wav"});
  open("Mix\\a.vip");
  ASSERT_TRUE(form.cmdPerdidos.visible());
  ASSERT_TRUE(form.CommandBorrado.visible());
  ASSERT_TRUE(form.SalvaListados.visible());
  expect_in_first_turn(
      {&form.cmdCancelar, &form.strip.LabelAviso},
      {&form.lists.ListVip, &form.lists.ListUtilizados, &form.lists.ListBorrar, &form.cmdPerdidos,
       &form.CommandBorrado, &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas,
       &form.strip.TextDecode, &form.lists.LabelAdd[0], &form.lists.LabelErase[0]});
  drop({"Mix"});
  EXPECT_TRUE(looked);
}

TEST_F(FirstTurn, the_first_drop_puts_away_the_hint_and_the_logo) {
  ASSERT_TRUE(form.ListProyectosInfo.visible());
  ASSERT_TRUE(form.ShowIco.visible());
  expect_in_first_turn({&form.cmdCancelar}, {&form.ListProyectosInfo, &form.ShowIco});
  drop({"Mix"});
  EXPECT_TRUE(looked);
}

TEST_F(WindowSteps, a_double_click_on_a_project_without_audio_shows_the_empty_list) {
  open("Mix\\a.vip");
  disk.write("Mix\\b.vip", project_of({}));
  double_click(1);
  EXPECT_TRUE(form.lists.ListVip.visible());
  EXPECT_THAT(form.lists.ListVip.rows(), IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
