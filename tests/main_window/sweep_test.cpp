// Sweeps: folders with their subfolders, drops, and one row decoded by a double click.
#include <gmock/gmock.h>

#include "main_window/main_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct Sweep : ::testing::Test, ProgramBench {
  Sweep() { start(); }

  void remember_side_files(bool remove) {
    settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>",
                       remove ? "1" : "0");
  }
  bool is_empty_window() {
    return form.lists.empty() && form.TextNum1[0].visible() && !work.Descodificando;
  }
};

TEST_F(Sweep, a_folder_is_listed_with_its_subfolders_each_before_its_own) {
  for (const char* project :
       {"Mix\\b.vip", "Mix\\a.VIP", "Mix\\Dos\\c.vip", "Mix\\Dos\\Tres\\d.vip", "Mix\\Uno\\e.vip",
        "Mix\\FreezeData\\f.vip"}) {
    disk.write(project, project_of({"D:\\x.wav"}));
  }
  disk.write("Mix\\Uno\\midi.vip", project_of({}));
  open("Mix\\b.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Mix\\a.VIP"), row(2, "Mix\\b.vip"), row(3, "Mix\\Dos\\c.vip"),
                          row(4, "Mix\\Dos\\Tres\\d.vip"), row(5, "Mix\\Uno\\e.vip")));
  EXPECT_EQ(form.lists.LabelCheck[0].caption(), "Encontrados 5 proyectos en:");
}

TEST_F(Sweep, without_subfolders_only_the_folder_itself_is_listed) {
  disk.write("Mix\\b.vip", project_of({"D:\\x.wav"}));
  disk.write("Mix\\Dos\\c.vip", project_of({"D:\\x.wav"}));
  form.CheckSubPath.set_checked(false);
  open("Mix\\b.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Mix\\b.vip")));
}

TEST_F(Sweep, with_subfolders_the_backup_mark_counts_in_the_name_alone) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  disk.write("Mix\\Viejo_BAK\\b.vip", project_of({"D:\\x.wav"}));
  disk.write("Mix\\Viejo_BAK\\c_BAK.vip", project_of({"D:\\x.wav"}));
  form.CheckBAK.set_checked(false);
  open("Mix\\a.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Mix\\a.vip"), row(2, "Mix\\Viejo_BAK\\b.vip")));
  EXPECT_THAT(form.lists.ListUtilizados.rows(), ElementsAre(row(1, "Mix\\a.vip"), "D:\\x.wav"))
      << "the decoding looks for the mark in the whole row";
}

TEST_F(Sweep, a_shared_file_stands_once_under_the_first_project) {
  disk.write("a.vip", project_of({"D:\\x.wav", "D:\\y.wav"}));
  disk.write("b.vip", project_of({"D:\\x.wav"}));
  open("a.vip");
  EXPECT_THAT(form.lists.ListUtilizados.rows(),
              ElementsAre(row(1, "a.vip"), "D:\\x.wav", "D:\\y.wav", row(2, "b.vip")));
  EXPECT_EQ(form.lists.LabelAdd[0].caption(),
            "3  archivos en: 2 proyectos, 1 duplicados; Total: 2");
  EXPECT_EQ(form.lists.LabelAdd[1].caption(), disk.folder());
  EXPECT_TRUE(form.lists.ListUtilizados.visible());
  EXPECT_TRUE(form.lists.LabelAdd[0].visible());
}

TEST_F(Sweep, one_unused_file_shows_the_removal_button) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  disk.write("toma.wav", "audio");
  open("a.vip");
  EXPECT_THAT(form.lists.ListBorrar.rows(), ElementsAre(disk.path("toma.wav")));
  EXPECT_EQ(form.lists.LabelErase[1].caption(),
            "Archivos no utilizados: 1     Duplicados: 0    Total: 1");
  EXPECT_TRUE(form.CommandBorrado.visible());
}

TEST_F(Sweep, without_unused_files_the_removal_button_shows_only_for_side_files) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  open("a.vip");
  EXPECT_FALSE(form.CommandBorrado.visible());
  EXPECT_EQ(form.lists.LabelErase[0].caption(), "No se han encontrado archivos no utilizados");
  EXPECT_TRUE(form.lists.LabelErase[0].visible());
  remember_side_files(true);
  open("a.vip");
  EXPECT_TRUE(form.CommandBorrado.visible());
}

TEST_F(Sweep, dropped_projects_of_two_folders_are_both_decoded) {
  disk.write("Uno\\a.vip", project_of({"D:\\x.wav"}));
  disk.write("Dos\\b.vip", project_of({"D:\\y.wav"}));
  disk.write("Uno\\toma 1.wav", "1");
  disk.write("Dos\\toma 2.wav", "2");
  drop({"Uno\\a.vip", "Dos\\b.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Uno\\a.vip"), row(2, "Dos\\b.vip")));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\x.wav"));
  EXPECT_THAT(form.lists.ListUtilizados.rows(),
              ElementsAre(row(1, "Uno\\a.vip"), "D:\\x.wav", row(2, "Dos\\b.vip"), "D:\\y.wav"));
  EXPECT_THAT(form.lists.ListBorrar.rows(),
              ElementsAre(disk.path("Uno\\toma 1.wav"), disk.path("Dos\\toma 2.wav")));
  EXPECT_EQ(work.RutaProyectos, disk.path("Uno\\a.vip")) << "the first project, not its folder";
  EXPECT_EQ(form.lists.LabelCheck[1].caption(), disk.path("Uno\\a.vip"));
  EXPECT_FALSE(work.Descodificando);
  for (const ui::Control* shown : std::initializer_list<const ui::Control*>{
           &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas, &form.cmdReset,
           &form.cmdPerdidos, &form.lists.ListBorrar, &form.lists.ListVip}) {
    EXPECT_TRUE(shown->visible()) << shown->name();
  }
  EXPECT_FALSE(form.cmdCancelar.visible());
  EXPECT_FALSE(form.strip.XP_ProgressBar1.visible());
}

TEST_F(Sweep, a_dropped_folder_is_swept_with_all_below_it_and_ends_the_drop) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  disk.write("Mix\\Voces\\b.vip", project_of({"D:\\y.wav"}));
  disk.write("Otro\\c.vip", project_of({"D:\\z.wav"}));
  drop({"Mix", "Otro\\c.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Mix\\a.vip"), row(2, "Mix\\Voces\\b.vip")));
  EXPECT_EQ(work.RutaProyectos, disk.path("Mix")) << "without its backslash";
  EXPECT_TRUE(form.SalvaListados.visible());
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(Sweep, a_dropped_folder_is_headed_by_its_own_path_after_other_projects) {
  disk.write("Uno\\a.vip", project_of({"D:\\x.wav"}));
  disk.write("Dos\\b.vip", project_of({"D:\\y.wav"}));
  open("Uno\\a.vip");
  drop({"Dos"});
  EXPECT_EQ(form.lists.LabelCheck[1].caption(), disk.path("Dos"));
}

TEST_F(Sweep, dropping_works_whatever_the_box_of_the_hint_says) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  form.CheckDragDrop.toggle();
  drop({"a.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(1));
}

TEST_F(Sweep, refused_projects_of_a_drop_are_skipped_without_a_word) {
  disk.write("midi.vip", project_of({}));
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  drop({"midi.vip", "a.vip"});
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "a.vip")));
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(Sweep, a_drop_without_any_project_resets_the_window) {
  disk.make_folder("vacia");
  disk.write("nota.txt", "x");
  drop({"vacia"});
  EXPECT_TRUE(is_empty_window());
  drop({"nota.txt"});
  EXPECT_TRUE(is_empty_window());
  drop({});
  EXPECT_TRUE(is_empty_window());
  EXPECT_THAT(dialogs.messages, IsEmpty()) << "side files are not asked about";
}

TEST_F(Sweep, side_files_of_a_folder_without_projects_go_when_that_is_confirmed) {
  remember_side_files(true);
  for (const char* name : {"a.h2", "a.HDP", "b.cue", "c.wma", "d.m4a", "e.hs", "f.wav", "g.h2x",
                           "h.txt", "Sub\\a.h2"}) {
    disk.write(std::string("Viejo\\") + name, "x");
  }
  dialogs.answers.push_back(system::Answer::cancel);
  drop({"Viejo"});
  ASSERT_THAT(dialogs.messages, SizeIs(1));
  EXPECT_EQ(dialogs.messages[0].title, "Borrar archivos asociados");
  EXPECT_EQ(dialogs.messages[0].text,
            "Se van a borrar todos los archivos\r\n\r\nAsociados en la carpeta ....\r\n" +
                disk.path("Viejo"));
  EXPECT_EQ(dialogs.messages[0].icon, system::Icon::critical);
  EXPECT_EQ(dialogs.messages[0].buttons, system::Buttons::ok_cancel);
  EXPECT_TRUE(there("Viejo\\a.h2"));

  dialogs.answers.push_back(system::Answer::ok);
  drop({"Viejo"});
  for (const char* gone : {"a.h2", "a.HDP", "b.cue", "c.wma", "d.m4a", "e.hs"}) {
    EXPECT_FALSE(there(std::string("Viejo\\") + gone)) << gone;
  }
  for (const char* kept : {"f.wav", "g.h2x", "h.txt", "Sub\\a.h2"}) {
    EXPECT_TRUE(there(std::string("Viejo\\") + kept)) << kept;
  }
}

TEST_F(Sweep, a_dropped_file_that_is_no_project_asks_like_a_folder_and_nothing_goes) {
  remember_side_files(true);
  disk.write("nota.txt", "x");
  dialogs.answers.push_back(system::Answer::ok);
  drop({"nota.txt"});
  EXPECT_THAT(dialogs.messages, SizeIs(1));
  EXPECT_TRUE(there("nota.txt"));
}

TEST_F(Sweep, a_double_click_decodes_that_project_alone) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  disk.write("b.vip", project_of({"D:\\y.wav", "D:\\z.wav"}));
  open("a.vip");
  const auto used = form.lists.ListUtilizados.rows();
  double_click(1);
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\y.wav", "D:\\z.wav"));
  EXPECT_EQ(form.lists.LabelCount[0].caption(), "2 Archivos utilizados en: " + disk.path("b.vip"));
  EXPECT_EQ(work.NombreProyecto, disk.path("b.vip"));
  EXPECT_EQ(form.lists.ListUtilizados.rows(), used);
  EXPECT_FALSE(work.Descodificando);
  EXPECT_FALSE(form.strip.XP_ProgressBar1.visible());
  EXPECT_TRUE(form.CheckLogo.visible());
}

TEST_F(Sweep, a_project_that_has_lost_its_audio_meanwhile_is_reported_as_a_midi_one) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  open("a.vip");
  disk.write("a.vip", project_of({}));
  double_click(0);
  EXPECT_EQ(form.lists.LabelCount[0].caption(), "No hay archivos, es un Vip MIDI.");
  EXPECT_TRUE(form.lists.LabelCount[0].visible());
  EXPECT_FALSE(form.lists.LabelCount[1].visible());
}

TEST_F(Sweep, a_click_shows_the_row_in_full_and_notes_that_a_list_was_clicked) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  open("a.vip");
  work.ClickEnLista = false;
  form.lists.ListProyectos.chosen(0);
  form.lists.ListProyectos.on_click();
  EXPECT_TRUE(work.ClickEnLista);
  EXPECT_THAT(form.path_strip.ListPath.rows(), ElementsAre(row(1, "a.vip")));
  work.ClickEnLista = false;
  work.Descodificando = true;
  form.path_strip.ListPath.clear();
  form.lists.ListProyectos.on_click();
  EXPECT_TRUE(work.ClickEnLista);
  EXPECT_THAT(form.path_strip.ListPath.rows(), IsEmpty());
}

TEST_F(Sweep, drops_and_double_clicks_wait_for_the_end_of_a_decode) {
  disk.write("a.vip", project_of({"D:\\x.wav"}, 3'000'000));
  disk.write("Otro\\b.vip", project_of({"D:\\y.wav"}));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] {
                  drop({"Otro"});
                  double_click(0);
                });
  open("a.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "a.vip"), row(2, "Otro\\b.vip")));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\x.wav"));
}

// A button pressed in each loop of a sweep: whatever is pressed, the window is usable after it.
struct SweepInterrupted : Sweep {
  SweepInterrupted() {
    for (int i = 10; i < 40; ++i) {
      const std::string n = std::to_string(i);
      disk.write("Mix\\" + n + "\\p" + n + ".vip",
                 project_of({"D:\\Mix\\" + n + "\\u.wav", "D:\\Mix\\shared.wav"}));
      disk.write("Mix\\" + n + "\\u.wav", n);
      disk.write("Mix\\" + n + "\\toma.wav", n);
    }
  }

  void expect_usable() {
    EXPECT_FALSE(work.Descodificando);
    backend.on_pump = nullptr;
    open("Mix\\10\\p10.vip");
    EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(1));
    EXPECT_THAT(form.lists.ListVip.rows(), SizeIs(2));
  }
};

TEST_F(SweepInterrupted, a_cancel_at_any_turn_ends_the_sweep_and_offers_no_used_file) {
  for (int turn = 1; turn < 140; turn += 3) {
    int turns = 0;
    backend.on_pump = [&] {
      if (++turns == turn) form.cmdCancelar_Click();
    };
    drop({"Mix"});
    EXPECT_FALSE(work.Descodificando) << turn;
    if (turns >= turn) {
      EXPECT_TRUE(is_empty_window()) << "a sweep that was cancelled is put away, at turn " << turn;
      EXPECT_TRUE(form.SalvaListados.visible()) << "the last step of every drop, at turn " << turn;
    }
    for (const std::string& offered : form.lists.ListBorrar.rows()) {
      EXPECT_FALSE(offered.ends_with("u.wav")) << offered << " at turn " << turn;
    }
    form.cmdReset_Click();
  }
  expect_usable();
}

// The steps after the reset are those after any sweep, so the entries stand on the empty window.
TEST_F(SweepInterrupted, a_cancelled_sweep_ends_with_the_entries_of_every_sweep) {
  in_the_middle([&] { return form.lists.ListVip.visible(); }, [&] { form.cmdCancelar_Click(); });
  drop({"Mix"});
  EXPECT_TRUE(is_empty_window());
  for (const ui::Control* shown : std::initializer_list<const ui::Control*>{
           &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas}) {
    EXPECT_TRUE(shown->visible()) << shown->name();
  }
}

TEST_F(SweepInterrupted, a_reset_at_any_turn_leaves_the_window_empty) {
  for (int turn = 1; turn < 100; turn += 3) {
    int turns = 0;
    backend.on_pump = [&] {
      if (++turns == turn) form.cmdReset_Click();
    };
    drop({"Mix"});
    if (turns >= turn) {
      EXPECT_TRUE(is_empty_window()) << turn;
    }
  }
  expect_usable();
}

TEST_F(SweepInterrupted, a_second_drop_after_a_cancel_takes_the_place_of_the_first) {
  disk.write("Otro\\z.vip", project_of({"D:\\z.wav"}));
  for (int turn = 1; turn < 100; turn += 3) {
    int turns = 0;
    backend.on_pump = [&] {
      if (++turns != turn) return;
      form.cmdCancelar_Click();
      drop({"Otro"});
    };
    drop({"Mix"});
    if (turns < turn) break;
    EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Otro\\z.vip"))) << turn;
    EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\z.wav")) << turn;
    EXPECT_FALSE(work.Descodificando) << turn;
    form.cmdReset_Click();
  }
  expect_usable();
}

TEST_F(Sweep, a_folder_of_frozen_tracks_is_never_swept) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  for (const bool decoding : {false, true}) {
    work.RutaProyectos = "D:\\Mix\\FreezeData\\";
    work.Descodificando = decoding;
    form.lists.List1.clear();
    form.lists.List1.add(disk.path("a.vip"));
    auto job = work::Job::begin(work, platform);
    form.BarrerProyectos(job);
    EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
    EXPECT_EQ(work.Descodificando, decoding);
  }
}

TEST_F(Sweep, reports_of_a_dropped_folder_lie_beside_it) {
  // The folder's path has no backslash at its end, and the reports' folder is simply appended.
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  drop({"Mix"});
  form.SalvaListados.on_click();
  EXPECT_TRUE(there("MixListados\\Archivos Totales.log"));
}

TEST_F(Sweep, saving_twice_replaces_the_reports) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  open("Mix\\a.vip");
  form.SalvaListados.on_click();
  const auto first = disk.files().info(disk.path("Mix\\Listados\\Archivos Totales.log"));
  form.SalvaListados.on_click();
  const auto second = disk.files().info(disk.path("Mix\\Listados\\Archivos Totales.log"));
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->size, second->size);
}

TEST_F(Sweep, reports_are_not_saved_while_files_are_removed) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  open("Mix\\a.vip");
  work.Borrando = true;
  form.SalvaListados.on_click();
  EXPECT_FALSE(there("Mix\\Listados"));
}

TEST_F(Sweep, reports_are_saved_beside_the_projects) {
  disk.write("Mix\\a.b.vip", project_of({"D:\\x.wav"}));
  disk.write("Mix\\c.vip", project_of({"D:\\y.wav"}));
  disk.write("Mix\\toma.wav", "1");
  open("Mix\\c.vip");
  EXPECT_TRUE(form.SalvaListados.enabled());
  form.SalvaListados.on_click();
  for (const char* report : {"Archivos de a.b.vip.log", "Archivos de c.vip.log",
                             "Archivos Totales.log", "Archivos a Borrar.log"}) {
    EXPECT_TRUE(there(std::string("Mix\\Listados\\") + report)) << report;
  }
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\y.wav")) << "as it stood";
  EXPECT_EQ(work.NombreProyecto, disk.path("Mix\\c.vip"));
  EXPECT_FALSE(work.Descodificando);
  EXPECT_TRUE(form.lists.ListProyectos.visible());
  EXPECT_TRUE(form.CheckLogo.visible());
  EXPECT_FALSE(form.strip.XP_ProgressBar1.visible());

  const auto file = disk.files().open(disk.path("Mix\\Listados\\Archivos de a.b.vip.log"));
  ASSERT_TRUE(file);
  std::string report(file->size(), '\0');
  file->read(0, {reinterpret_cast<std::uint8_t*>(report.data()), report.size()});
  EXPECT_EQ(report, "Fecha: 21/11/2026    Hora: 9:05\r\n \r\n1 Archivos utilizados en: " +
                        disk.path("Mix\\a.b.vip") + "\r\n" + disk.path("Mix\\") + "\r\n" +
                        std::string(66, '-') + "\r\n \r\nD:\\x.wav\r\n");
}

struct SavedReports : Sweep {
  std::string report(const std::string& below) {
    const auto file = disk.files().open(disk.path(below));
    if (!file) return "";
    std::string bytes(file->size(), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }
  void expect_shown(const std::string& project, const std::vector<std::string>& rows) {
    EXPECT_EQ(form.lists.ListVip.rows(), rows);
    EXPECT_EQ(work.NombreProyecto, project);
    EXPECT_EQ(form.lists.LabelCount[0].caption(),
              std::to_string(rows.size()) + " Archivos utilizados en: " + project);
    EXPECT_TRUE(form.lists.LabelCount[1].visible());
    EXPECT_TRUE(form.lists.ListVip.visible());
  }
};

TEST_F(SavedReports, leave_a_backup_that_was_opened_by_hand_on_screen) {
  form.CheckBAK.set_checked(false);
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  disk.write("b_BAK.vip", project_of({"D:\\y.wav"}));
  open("b_BAK.vip");
  form.SalvaListados.on_click();
  expect_shown(disk.path("b_BAK.vip"), {"D:\\y.wav"});
}

TEST_F(SavedReports, leave_a_project_on_screen_that_was_picked_in_another_case) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  disk.write("b.vip", project_of({"D:\\y.wav"}));
  open("A.VIP");
  form.SalvaListados.on_click();
  expect_shown(disk.path("A.VIP"), {"D:\\x.wav"});
}

TEST_F(SavedReports, leave_what_was_shown_of_a_project_that_is_gone) {
  disk.write("a.vip", project_of({"D:\\x.wav"}));
  disk.write("b.vip", project_of({"D:\\y.wav"}));
  open("a.vip");
  disk.remove("a.vip");
  form.SalvaListados.on_click();
  expect_shown(disk.path("a.vip"), {"D:\\x.wav"});
}

TEST_F(SavedReports, that_cannot_be_written_are_reported_on_the_strip) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  disk.make_folder("Mix\\Listados\\Archivos Totales.log");
  open("Mix\\a.vip");
  form.SalvaListados.on_click();
  EXPECT_EQ(form.strip.TextDecode.text(), " >>> AVISO <<<   No se ha podido salvar:\r\n" +
                                              disk.path("Mix\\Listados\\Archivos Totales.log"));
  EXPECT_TRUE(form.strip.TextDecode.visible());
  EXPECT_TRUE(there("Mix\\Listados\\Archivos de a.vip.log"));
  EXPECT_TRUE(dialogs.messages.empty());
  disk.remove("Mix\\Listados\\Archivos Totales.log");
  form.SalvaListados.on_click();
  EXPECT_FALSE(form.strip.TextDecode.visible());
}

TEST_F(SavedReports, of_projects_with_the_longest_names_are_written) {
  for (const std::size_t length : {236, 239}) {
    const std::string name = std::string(length - 4, 'n') + ".vip";
    disk.write("Mix\\" + name, project_of({"D:\\x.wav"}));
    open("Mix\\" + name);
    form.SalvaListados.on_click();
    EXPECT_TRUE(there("Mix\\Listados\\Archivos de " + name + ".log")) << length;
  }
}

TEST_F(SavedReports, of_unused_files_are_not_headed_by_an_earlier_empty_result) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  open("Mix\\a.vip");
  EXPECT_EQ(form.lists.LabelErase[0].caption(), "No se han encontrado archivos no utilizados");
  disk.write("Mix\\toma.wav", "x");
  open("Mix\\a.vip");
  form.SalvaListados.on_click();
  const std::string text = report("Mix\\Listados\\Archivos a Borrar.log");
  EXPECT_EQ(text.find("No se han encontrado"), std::string::npos) << text;
  EXPECT_NE(text.find("Archivos no utilizados: 1"), std::string::npos) << text;
}

TEST_F(Sweep, the_bar_runs_a_second_time_over_the_candidates_that_are_left) {
  disk.write("a.vip", project_of({disk.path("a.wav")}));
  for (const char* file : {"a.wav", "b.wav", "c.wav", "d.wav", "e.h2"}) disk.write(file, file);
  open("a.vip");
  EXPECT_EQ(form.strip.XP_ProgressBar1.maximum(), 3) << "c, d and the side file";
}

TEST_F(Sweep, a_listing_that_was_superseded_gives_the_pointer_back) {
  for (int i = 0; i < 40; ++i) {
    disk.write("Mix\\" + std::to_string(i) + "\\p.vip", project_of({"D:\\x.wav"}));
  }
  disk.write("Otro\\z.vip", project_of({"D:\\z.wav"}));
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  bool waited = false;
  in_the_middle([&] { return form.waiting(); },
                [&] {
                  waited = true;
                  form.cmdCancelar_Click();
                  drop({"Otro"});
                });
  open("Mix\\a.vip");
  EXPECT_TRUE(waited);
  EXPECT_FALSE(form.waiting());
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Otro\\z.vip")));
}

TEST_F(Sweep, a_stop_asked_of_a_double_click_does_not_end_the_next_search) {
  disk.write("a.vip", project_of({"D:\\x.wav"}, 3'000'000));
  disk.write("Otra\\x.wav", "x");
  open("a.vip");
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] { form.cmdCancelar_Click(); });
  double_click(0);
  EXPECT_TRUE(work.Cancelar);
  EXPECT_TRUE(buscar().BuscarEnTodasUnidades("D:\\x.wav", form.lists.ListUtilizados));
  EXPECT_EQ(work.ArchivoActual, disk.path("Otra\\x.wav"));
  // While projects are updated, a search is part of that job and obeys its stop.
  work.ModoPosiciones = true;
  work.Cancelar = true;
  EXPECT_FALSE(buscar().BuscarEnTodasUnidades("D:\\x.wav", form.lists.ListUtilizados));
}

TEST_F(Sweep, the_backup_rule_of_the_flat_listing_looks_at_the_whole_path) {
  disk.write("Viejo_BAK\\a.vip", project_of({"D:\\x.wav"}));
  form.CheckBAK.set_checked(false);
  form.CheckSubPath.set_checked(false);
  open("Viejo_BAK\\a.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
  form.CheckBAK.set_checked(true);
  open("Viejo_BAK\\a.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(1));
}

}  // namespace
}  // namespace ordelan::test
