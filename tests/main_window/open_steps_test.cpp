// Single steps of the opening of a project, of the start, the reset and the end of the program, and
// what each button and label of the main window leads to.
#include <gmock/gmock.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "location/lost_file_window.h"
#include "main_window/about_window.h"
#include "main_window/main_window.h"
#include "main_window/projects_left_out_window.h"
#include "removal/backup_options_window.h"
#include "removal/recovery_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct OpenSteps : ::testing::Test, ProgramBench {
  OpenSteps() {
    disk.write("Mix\\a.vip", project_of({disk.path("Mix\\a.wav")}, 1'000'000));
    project("Mix\\b.vip", {"Mix\\b.wav"});
    disk.write("Mix\\m.wav", "m");
  }

  bool clock_runs() { return form.clocks.TimerLap.running(); }
};

TEST_F(OpenSteps, a_refused_project_is_counted_with_its_reason) {
  start();
  disk.write("midi.vip", project_of({}));
  open("midi.vip");
  ASSERT_THAT(work.ProyectosFuera, SizeIs(1));
  EXPECT_EQ(work.ProyectosFuera[0].ruta, disk.path("midi.vip"));
  EXPECT_TRUE(form.LabelFuera.visible());
  EXPECT_EQ(form.LabelFuera.caption(), "1 proyectos no cuentan");
  EXPECT_FALSE(form.cmdCancelar.visible());
}

TEST_F(OpenSteps, what_is_left_out_is_counted_at_the_end) {
  start();
  disk.write("Mix\\midi.vip", project_of({}));
  open("Mix\\a.vip");
  EXPECT_THAT(work.ProyectosFuera, SizeIs(1));
  EXPECT_TRUE(form.LabelFuera.visible());
  EXPECT_EQ(form.LabelFuera.caption(), "1 proyectos no cuentan");
}

TEST_F(OpenSteps, an_error_in_the_middle_leaves_the_display_as_far_as_it_got) {
  start();
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [] { throw std::runtime_error("out of memory"); });
  EXPECT_NO_THROW(open("Mix\\a.vip"));
  EXPECT_FALSE(work.Descodificando);
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(2));
  backend.on_pump = nullptr;
  open("Mix\\a.vip");
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("Mix\\a.wav")));
}

// A backup that was opened by hand and is not listed: nothing is used by those that are listed.
TEST_F(OpenSteps, the_list_of_unused_files_is_shown_even_where_no_project_is_listed) {
  disk.write("Solo\\s_BAK.vip", project_of({disk.path("Solo\\s.wav")}));
  start();
  form.CheckBAK.set_checked(false);
  open("Solo\\s_BAK.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
  EXPECT_THAT(form.lists.ListVip.rows(), SizeIs(1));
  for (const ui::ListBox* list : {&form.lists.ListProyectos, &form.lists.ListVip,
                                  &form.lists.ListUtilizados, &form.lists.ListBorrar}) {
    EXPECT_TRUE(list->visible()) << list->name();
  }
  EXPECT_FALSE(form.strip.TextDecode.visible());
}

TEST_F(OpenSteps, a_cancel_while_the_report_is_made_empties_the_window_but_for_the_box) {
  start();
  bool cancelled = false;
  in_the_middle([&] { return work.Descodificando && !clock_runs(); },
                [&] {
                  cancelled = true;
                  form.cmdCancelar_Click();
                });
  open("Mix\\a.vip");
  EXPECT_TRUE(cancelled);
  EXPECT_TRUE(form.lists.empty());
  EXPECT_FALSE(form.SalvaListados.visible());
  EXPECT_TRUE(form.ZoomListas.visible());
  EXPECT_TRUE(form.TextNum1[0].visible());
}

TEST_F(OpenSteps, the_report_of_lost_files_belongs_to_the_work_in_hand) {
  start();
  open("Mix\\a.vip");
  EXPECT_THAT(form.lost_files().TextoPerdidos(), ::testing::Contains(disk.path("Mix\\a.wav")));
  project("Otro\\z.vip", {"Otro\\z.wav"});
  drop({"Otro"});
  EXPECT_THAT(form.lost_files().TextoPerdidos(),
              ElementsAre(row(1, "Otro\\z.vip"), disk.path("Otro\\z.wav")));
}

// One row is the title of one project that has lost nothing; the button is for more.
TEST_F(OpenSteps, a_report_of_one_row_has_no_button) {
  start();
  project("Solo\\s.vip", {"Solo\\s.wav"});
  disk.write("Solo\\s.wav", "s");
  open("Solo\\s.vip");
  ASSERT_THAT(form.lost_files().TextoPerdidos(), SizeIs(1));
  EXPECT_FALSE(form.cmdPerdidos.visible());
  disk.remove("Solo\\s.wav");
  open("Solo\\s.vip");
  ASSERT_THAT(form.lost_files().TextoPerdidos(), SizeIs(2));
  EXPECT_TRUE(form.cmdPerdidos.visible());
}

TEST_F(OpenSteps, a_reset_puts_back_all_that_a_run_may_have_left) {
  start();
  form.set_waiting(true);
  form.strip.TextDecode.set_text("algo");
  form.clocks.iniciarCrono();
  form.clocks.IniciarCronoActualizar();
  work.Descodificando = true;
  work.ModoPosiciones = true;
  const auto job = work.current_job();
  form.cmdReset_Click();
  EXPECT_FALSE(form.waiting());
  EXPECT_EQ(form.strip.TextDecode.text(), "");
  EXPECT_FALSE(form.clocks.TimerLap.running());
  EXPECT_FALSE(form.clocks.TimerActualizar.running());
  EXPECT_FALSE(work.Descodificando);
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_TRUE(work.superseded(job));
}

TEST_F(OpenSteps, the_start_shows_the_window_with_its_stored_boxes) {
  disk.write("Config.ini", "[Settings]\r\nUnidad: " + disk.folder() +
                               "=1\r\nVer tooltips de listas=0\r\nPlayer automático=0\r\n"
                               "Incluir subcarpetas=0\r\nIncluir Vip_BAK=0\r\n"
                               "Ver Info de esta ventana al inicio=0\r\nVer Logo al inicio=0\r\n");
  start();
  EXPECT_TRUE(form.visible());
  for (const ui::CheckBox* box : {&form.CheckToolTips, &form.CheckPlayer, &form.CheckSubPath,
                                  &form.CheckBAK, &form.CheckDragDrop, &form.CheckLogo}) {
    EXPECT_FALSE(box->checked()) << box->caption();
  }
  EXPECT_FALSE(form.ShowIco.visible());
  EXPECT_FALSE(form.ListProyectosInfo.visible());
  EXPECT_THAT(dialogs.messages, IsEmpty());
  EXPECT_FALSE(boxes().visible());
}

TEST_F(OpenSteps, a_start_without_a_ticked_drive_warns_and_shows_the_boxes_of_the_drives) {
  disk.write("Config.ini", "[Settings]\r\n");
  bool shown_before = false;
  dialogs.on_dialog = [&] { shown_before = form.visible(); };
  start();
  ASSERT_THAT(dialogs.messages, SizeIs(1));
  EXPECT_EQ(dialogs.messages[0].title, "Configuración");
  EXPECT_EQ(dialogs.messages[0].icon, system::Icon::critical);
  EXPECT_TRUE(shown_before);
  EXPECT_TRUE(boxes().visible());
  EXPECT_TRUE(work.ClickEnLista);
}

TEST_F(OpenSteps, every_button_and_label_leads_where_it_says) {
  start();
  form.Configurar.on_click();
  EXPECT_TRUE(boxes().visible());
  ASSERT_EQ(windows.find<main_window::Acerca>(), nullptr);
  form.AcercaDe.on_click();
  ASSERT_NE(windows.find<main_window::Acerca>(), nullptr);
  EXPECT_TRUE(windows.find<main_window::Acerca>()->visible());
  open("Mix\\a.vip");
  form.cmdPerdidos.on_click();
  EXPECT_TRUE(windows.find<location::Perdidos>()->visible());
  form.LabelFuera.on_click();
  EXPECT_TRUE(windows.find<main_window::Fuera>()->visible());
  form.SalvaListados.on_click();
  EXPECT_TRUE(there("Mix\\Listados\\Archivos Totales.log"));
  form.cmdReset.on_click();
  EXPECT_TRUE(form.lists.empty());
  form.AbrirFichero.on_click();
  EXPECT_THAT(dialogs.requests, SizeIs(2));
  form.CommandBorrado.on_click();
  EXPECT_TRUE(windows.find<removal::BacUp>()->visible());
  form.RecuperaBorrados.on_click();
  EXPECT_TRUE(windows.find<removal::Recuperar>()->visible());
  form.ActualizarVip.on_click();
  EXPECT_EQ(dialogs.messages.back().title, "Leer con atención");
  EXPECT_TRUE(form.ZoomListas.enabled());
}

TEST_F(OpenSteps, every_heading_can_be_read_in_full) {
  start();
  for (auto* headings : {&form.lists.LabelAdd, &form.lists.LabelCheck, &form.lists.LabelCount,
                         &form.lists.LabelErase}) {
    for (auto& heading : *headings) {
      const std::string caption = heading->name() + std::to_string(heading->index());
      heading->set_caption(caption);
      heading->on_click();
      EXPECT_THAT(form.path_strip.ListPath.rows(), ElementsAre(caption));
      EXPECT_TRUE(form.path_strip.ListPath.visible()) << caption;
    }
  }
}

TEST_F(OpenSteps, the_end_of_the_program_supersedes_what_runs) {
  start();
  const auto job = work.current_job();
  form.Salir_Click();
  EXPECT_TRUE(work.superseded(job));
  EXPECT_TRUE(backend.ended());
}

}  // namespace
}  // namespace ordelan::test
