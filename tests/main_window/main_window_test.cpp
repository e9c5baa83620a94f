#include "main_window/main_window.h"

#include <gmock/gmock.h>

#include "support/program_bench.h"
#include "text/numbers.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct MainWindow : ::testing::Test, ProgramBench {
  MainWindow() { start(); }

  void expect_empty_state() {
    EXPECT_FALSE(work.Descodificando);
    EXPECT_TRUE(form.lists.ListProyectos.visible());
    EXPECT_TRUE(form.lists.empty());
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(form.TextNum1[i].visible());
    EXPECT_TRUE(form.CheckDragDrop.visible());
    EXPECT_TRUE(form.CheckLogo.visible());
    EXPECT_EQ(form.ShowIco.visible(), form.CheckLogo.checked());
    EXPECT_EQ(form.ListProyectosInfo.visible(), form.CheckDragDrop.checked());
    for (const ui::Control* hidden :
         std::initializer_list<const ui::Control*>{&form.lists.ListVip,
                                                   &form.lists.ListUtilizados,
                                                   &form.lists.ListBorrar,
                                                   &form.lists.List1,
                                                   &form.lists.LabelCheck[0],
                                                   &form.lists.LabelCheck[1],
                                                   &form.lists.LabelCount[0],
                                                   &form.lists.LabelCount[1],
                                                   &form.lists.LabelAdd[0],
                                                   &form.lists.LabelAdd[1],
                                                   &form.lists.LabelErase[0],
                                                   &form.lists.LabelErase[1],
                                                   &form.cmdCancelar,
                                                   &form.cmdPerdidos,
                                                   &form.CommandBorrado,
                                                   &form.SalvaListados,
                                                   &form.ActualizarVip,
                                                   &form.ZoomListas,
                                                   &form.strip.TextDecode,
                                                   &form.strip.LabelAviso,
                                                   &form.strip.XP_ProgressBar1,
                                                   &form.path_strip.ListPath,
                                                   &form.LabelFuera}) {
      EXPECT_FALSE(hidden->visible()) << hidden->name();
    }
  }
};

TEST_F(MainWindow, starts_empty_and_shown_with_its_boxes_ticked) {
  EXPECT_TRUE(form.visible());
  EXPECT_TRUE(work.ClickEnLista);
  expect_empty_state();
  for (const ui::CheckBox* box : {&form.CheckToolTips, &form.CheckPlayer, &form.CheckSubPath,
                                  &form.CheckBAK, &form.CheckDragDrop, &form.CheckLogo}) {
    EXPECT_TRUE(box->checked()) << box->caption();
  }
}

TEST_F(MainWindow, opens_a_project_and_ends_decoded) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav", "D:\\Mix\\b.mp3"}));
  disk.write("Mix\\balada.vip", project_of({"D:\\Mix\\c.wav"}));
  open("Mix\\tema.vip");

  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Mix\\balada.vip"), row(2, "Mix\\tema.vip")));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Mix\\a.wav", "D:\\Mix\\b.mp3"));
  EXPECT_EQ(form.lists.LabelCheck[0].caption(), "Encontrados 2 proyectos en:");
  EXPECT_EQ(form.lists.LabelCheck[1].caption(), disk.path("Mix\\"));
  EXPECT_EQ(form.lists.LabelCount[0].caption(),
            "2 Archivos utilizados en: " + disk.path("Mix\\tema.vip"));
  EXPECT_EQ(form.lists.LabelCount[1].caption(), disk.path("Mix\\"));
  EXPECT_EQ(work.RutaProyectos, disk.path("Mix\\"));
  EXPECT_EQ(work.RutaVip, disk.path("Mix\\tema.vip"));
  EXPECT_EQ(work.NombreProyecto, disk.path("Mix\\tema.vip"));
  EXPECT_EQ(work.CabeceraVip, "cabecera");
  EXPECT_FALSE(work.Descodificando);

  for (const ui::Control* shown : std::initializer_list<const ui::Control*>{
           &form.lists.ListProyectos, &form.lists.ListVip, &form.lists.LabelCheck[0],
           &form.lists.LabelCheck[1], &form.lists.LabelCount[0], &form.lists.LabelCount[1],
           &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas, &form.cmdReset,
           &form.CheckDragDrop, &form.CheckLogo, &form.clocks.TimeDeco, &form.clocks.LabelD}) {
    EXPECT_TRUE(shown->visible()) << shown->name();
  }
  for (const ui::Control* hidden : std::initializer_list<const ui::Control*>{
           &form.cmdCancelar, &form.strip.TextDecode, &form.strip.LabelAviso,
           &form.strip.XP_ProgressBar1, &form.TextNum1[0], &form.ShowIco,
           &form.ListProyectosInfo}) {
    EXPECT_FALSE(hidden->visible()) << hidden->name();
  }
}

TEST_F(MainWindow, shows_the_decoding_state_while_it_decodes) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 1'000'000));
  bool seen = false;
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] {
                  seen = true;
                  EXPECT_TRUE(work.Descodificando);
                  EXPECT_TRUE(form.cmdCancelar.visible());
                  EXPECT_TRUE(form.strip.LabelAviso.visible());
                  EXPECT_TRUE(form.strip.TextDecode.visible());
                  EXPECT_TRUE(form.clocks.TextLapsoTotal.visible());
                  EXPECT_FALSE(form.CheckDragDrop.visible());
                  EXPECT_FALSE(form.CheckLogo.visible());
                  EXPECT_FALSE(form.cmdPerdidos.visible());
                  EXPECT_FALSE(form.CommandBorrado.visible());
                  EXPECT_FALSE(form.ZoomListas.visible());
                  EXPECT_EQ(form.strip.TextDecode.text(),
                            "Descodificando: " + disk.path("Mix\\tema.vip"));
                  EXPECT_EQ(form.strip.TextDecode.back_color(), ui::Color{0xC0E0FF});
                  EXPECT_EQ(form.strip.LabelAviso.caption(),
                            "Descodificando datos... esperar a que termine.");
                  EXPECT_EQ(form.strip.LabelAviso.font(), (ui::Font{.points = 18, .bold = true}));
                });
  open("Mix\\tema.vip");
  EXPECT_TRUE(seen);
}

TEST_F(MainWindow, asks_for_projects_in_the_file_dialog) {
  form.AbrirFichero_Click();
  ASSERT_THAT(dialogs.requests, SizeIs(1));
  EXPECT_EQ(dialogs.requests[0].filter, "Proyectos (*.vip)|*.vip");
  EXPECT_FALSE(dialogs.requests[0].several);
}

TEST_F(MainWindow, a_cancelled_dialog_leaves_the_results_on_screen) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\tema.vip");
  form.AbrirFichero_Click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Mix\\a.wav"));
  EXPECT_TRUE(form.lists.ListVip.visible());
  EXPECT_FALSE(form.ZoomListas.visible());
  EXPECT_FALSE(form.SalvaListados.visible());
}

TEST_F(MainWindow, a_project_alone_in_its_folder_fills_one_row) {
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  open("tema.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "tema.vip")));
}

TEST_F(MainWindow, a_refused_project_warns_on_an_already_reset_window) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  disk.write("Mix\\midi.vip", project_of({}));
  open("Mix\\tema.vip");
  open("Mix\\midi.vip");
  EXPECT_EQ(form.strip.TextDecode.text(),
            " >>> AVISO <<<   Este proyecto no tiene archivos de audio");
  EXPECT_EQ(form.strip.TextDecode.back_color(), ui::Color{0x8080EE});
  EXPECT_TRUE(form.strip.TextDecode.visible());
  EXPECT_TRUE(form.lists.empty());
  EXPECT_FALSE(form.lists.ListVip.visible());
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(MainWindow, a_project_among_frozen_tracks_is_refused_unread) {
  disk.write("Mix\\FreezeData\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\FreezeData\\tema.vip");
  EXPECT_EQ(form.strip.TextDecode.text(),
            " >>> AVISO <<<   Este proyecto no tiene archivos de audio");
}

TEST_F(MainWindow, a_project_that_is_gone_is_refused) {
  open("Mix\\tema.vip");
  EXPECT_TRUE(form.strip.TextDecode.visible());
  EXPECT_TRUE(form.lists.empty());
}

TEST_F(MainWindow, midi_projects_and_frozen_folders_get_no_row) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  disk.write("Mix\\midi.vip", project_of({}));
  disk.make_folder("Mix\\carpeta.vip");
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Mix\\tema.vip")));
}

TEST_F(MainWindow, backup_projects_count_only_when_their_box_is_ticked) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  disk.write("Mix\\tema_BAK.vip", project_of({"D:\\Mix\\b.wav"}));
  disk.write("Mix\\tema_bak2.vip", project_of({"D:\\Mix\\c.wav"}));
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(3));
  form.CheckBAK.toggle();
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(),
              ElementsAre(row(1, "Mix\\tema.vip"), row(2, "Mix\\tema_bak2.vip")))
      << "the mark is looked for in capitals";
}

TEST_F(MainWindow, a_backup_project_opened_by_hand_is_decoded_though_it_is_not_listed) {
  disk.write("Mix\\tema_BAK.vip", project_of({"D:\\Mix\\b.wav"}));
  form.CheckBAK.set_checked(false);
  open("Mix\\tema_BAK.vip");
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Mix\\b.wav"));
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
  EXPECT_EQ(form.lists.LabelCheck[0].caption(), "Encontrados 0 proyectos en:");
}

TEST_F(MainWindow, reset_goes_back_to_the_empty_window) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\tema.vip");
  form.cmdReset.on_click();
  expect_empty_state();
  EXPECT_EQ(form.clocks.TimeDeco.text(), "");
  EXPECT_EQ(form.clocks.TextLapsoTotal.text(), "");
  EXPECT_EQ(form.clocks.TimeDeco.back_color(), ui::Color::window_background);
  EXPECT_EQ(form.clocks.LabelD.caption(), "Tiempo descodificación");
  EXPECT_EQ(form.clocks.LapsoDeco, 0);
}

TEST_F(MainWindow, reset_shows_hint_and_logo_only_where_their_boxes_are_ticked) {
  form.CheckDragDrop.set_checked(false);
  form.CheckLogo.set_checked(false);
  form.Inicio();
  EXPECT_FALSE(form.ListProyectosInfo.visible());
  EXPECT_FALSE(form.ShowIco.visible());
}

TEST_F(MainWindow, a_cancel_in_the_middle_of_the_decode_ends_it_and_keeps_what_is_listed) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 3'000'000));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] {
                  form.cmdCancelar.on_click();
                  EXPECT_TRUE(work.Cancelar);
                  EXPECT_FALSE(work.Descodificando);
                });
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Mix\\tema.vip")));
  EXPECT_THAT(form.lists.ListVip.rows(), IsEmpty());
  EXPECT_FALSE(form.lists.LabelCount[0].visible())
      << "it is not known yet whether it is a MIDI one";
  EXPECT_TRUE(form.cmdReset.visible());
  EXPECT_FALSE(form.cmdCancelar.visible());
  EXPECT_FALSE(work.Cancelar);
}

TEST_F(MainWindow, a_cancel_in_the_middle_of_the_listing_lists_no_more) {
  for (int i = 0; i < 20; ++i) {
    disk.write("Mix\\p" + std::to_string(10 + i) + ".vip", project_of({"D:\\Mix\\a.wav"}));
  }
  in_the_middle([&] { return form.lists.ListProyectos.count() == 5; },
                [&] { form.cmdCancelar_Click(); });
  open("Mix\\p10.vip");
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(5));
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(MainWindow, after_a_cancel_the_next_project_opens) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 3'000'000));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] { form.cmdCancelar_Click(); });
  open("Mix\\tema.vip");
  work.Cancelar = true;  // as a job leaves it that did not reset it
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Mix\\a.wav"));
}

TEST_F(MainWindow, a_reset_in_the_middle_of_the_decode_leaves_the_window_empty) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 3'000'000));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] { form.cmdReset_Click(); });
  open("Mix\\tema.vip");
  expect_empty_state();
}

TEST_F(MainWindow, a_reset_in_the_middle_of_the_listing_leaves_the_window_empty) {
  for (int i = 0; i < 20; ++i) {
    disk.write("Mix\\p" + std::to_string(10 + i) + ".vip", project_of({"D:\\Mix\\a.wav"}));
  }
  in_the_middle([&] { return form.lists.ListProyectos.count() == 5; },
                [&] { form.cmdReset_Click(); });
  open("Mix\\p10.vip");
  expect_empty_state();
}

TEST_F(MainWindow, a_project_opened_right_after_a_cancel_takes_the_place_of_the_old_one) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 3'000'000));
  disk.write("Otro\\otro.vip", project_of({"D:\\Otro\\z.wav"}));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] {
                  form.cmdCancelar_Click();
                  open("Otro\\otro.vip");
                });
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Otro\\z.wav"));
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Otro\\otro.vip")));
  EXPECT_EQ(work.NombreProyecto, disk.path("Otro\\otro.vip"));
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(MainWindow, opening_while_it_decodes_does_nothing) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 3'000'000));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); },
                [&] { form.AbrirFichero_Click(); });
  open("Mix\\tema.vip");
  EXPECT_THAT(dialogs.requests, SizeIs(1));
}

TEST_F(MainWindow, nothing_opens_resets_or_cancels_while_files_are_removed) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\tema.vip");
  work.Borrando = true;
  form.AbrirFichero_Click();
  form.cmdReset_Click();
  form.cmdCancelar_Click();
  EXPECT_THAT(dialogs.requests, SizeIs(1));
  EXPECT_THAT(form.lists.ListVip.rows(), SizeIs(1));
  EXPECT_FALSE(work.Cancelar);
}

TEST_F(MainWindow, the_clock_runs_while_it_decodes) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 5'000'000));
  open("Mix\\tema.vip");
  EXPECT_GT(form.clocks.LapsoDeco, 0);
  EXPECT_EQ(form.clocks.TextLapsoTotal.text(), form.clocks.TimeDeco.text());
  EXPECT_EQ(form.clocks.TimeDeco.text(), text::elapsed(form.clocks.LapsoDeco, ','));
  EXPECT_FALSE(form.clocks.TimerLap.running());
}

TEST_F(MainWindow, a_click_on_a_heading_shows_it_in_full_and_a_second_one_hides_it) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\tema.vip");
  form.lists.LabelCount[0].on_click();
  EXPECT_THAT(form.path_strip.ListPath.rows(),
              ElementsAre("1 Archivos utilizados en: " + disk.path("Mix\\tema.vip")));
  EXPECT_TRUE(form.path_strip.ListPath.visible());
  EXPECT_TRUE(form.path_strip.ImageIcon.visible());
  form.lists.LabelCount[0].on_click();
  EXPECT_FALSE(form.path_strip.ListPath.visible());
  EXPECT_FALSE(form.path_strip.ImageIcon.visible());
  form.lists.LabelCheck[1].on_click();
  EXPECT_TRUE(form.path_strip.ListPath.visible());
  EXPECT_FALSE(form.path_strip.ImageIcon.visible()) << "a folder is no project";
}

TEST_F(MainWindow, the_hint_follows_its_box_and_hides_under_the_pointer) {
  form.CheckDragDrop.toggle();
  EXPECT_FALSE(form.ListProyectosInfo.visible());
  form.CheckDragDrop.toggle();
  EXPECT_TRUE(form.ListProyectosInfo.visible());
  form.ListProyectosInfo.on_mouse_move({1, 1});
  EXPECT_FALSE(form.ListProyectosInfo.visible());
}

TEST_F(MainWindow, the_logo_follows_its_box_only_while_all_lists_are_empty) {
  form.CheckLogo.toggle();
  EXPECT_FALSE(form.ShowIco.visible());
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\tema.vip");
  form.CheckLogo.toggle();
  EXPECT_FALSE(form.ShowIco.visible());
}

TEST_F(MainWindow, minimises_and_ends) {
  form.cmdMinimizar.on_click();
  EXPECT_TRUE(form.minimized());
  form.Salir.on_click();
  EXPECT_TRUE(backend.ended());
}

TEST_F(MainWindow, ends_by_its_second_way_out_with_its_place_and_boxes_stored) {
  EXPECT_TRUE(form.cmdSalir.visible());
  EXPECT_EQ(form.cmdSalir.caption(), "Salir");
  EXPECT_EQ(form.cmdSalir.tip(), "Cerrar la aplicación");
  form.set_position({120, 45});
  form.CheckBAK.toggle();
  form.cmdSalir.on_click();
  EXPECT_TRUE(backend.ended());
  EXPECT_EQ(settings.number("Me_Left", 0), 120);
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "Incluir Vip_BAK", ""), "0");
}

TEST_F(MainWindow, ending_in_the_middle_of_a_decode_ends_the_decode) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}, 3'000'000));
  in_the_middle([&] { return form.strip.XP_ProgressBar1.visible(); }, [&] { form.on_close(); });
  open("Mix\\tema.vip");
  EXPECT_TRUE(backend.ended());
  EXPECT_THAT(form.lists.ListVip.rows(), IsEmpty());
}

TEST_F(MainWindow, place_and_boxes_survive_a_restart) {
  form.set_position({120, 45});
  form.CheckBAK.toggle();
  form.CheckLogo.toggle();
  form.Salir.on_click();

  app::Program restarted(backend, platform, settings);
  restarted.start();
  const main_window::Form1& again = restarted.form;
  EXPECT_EQ(again.position(), (ui::Point{120, 45}));
  EXPECT_FALSE(again.CheckBAK.checked());
  EXPECT_FALSE(again.CheckLogo.checked());
  EXPECT_TRUE(again.CheckSubPath.checked());
  EXPECT_FALSE(again.ShowIco.visible());
}

TEST_F(MainWindow, options_are_stored_in_their_order_under_their_captions) {
  form.Salir.on_click();
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "Player automático", ""), "1");
  std::string stored;
  const auto file = disk.files().open(settings.RutaConfig);
  ASSERT_TRUE(file);
  stored.resize(file->size());
  file->read(0, {reinterpret_cast<std::uint8_t*>(stored.data()), stored.size()});
  EXPECT_EQ(stored,
            "[Settings]\r\nUnidad: " + disk.folder() +
                "=1\r\nMe_Left=0\r\nMe_Top=0\r\nVer Info de esta ventana al inicio=1\r\n"
                "Ver tooltips de listas=1\r\nPlayer automático=1\r\nIncluir subcarpetas=1\r\n"
                "Incluir Vip_BAK=1\r\nVer Logo al inicio=1\r\nVolumen=80\r\n");
}

// What a folder may hold: each gives its rows or nothing, and no message box.
TEST_F(MainWindow, hostile_files_give_their_rows_or_nothing) {
  disk.write("cero.vip", "");
  disk.write("b96.vip", std::string(96, 'x'));
  disk.write("b97.vip", std::string(97, 'x'));
  disk.write("sin_nul.vip", std::string(300'000, 'x'));
  disk.make_folder("carpeta.vip");
  disk.write_sparse("hueco.vip", std::uint64_t{2} << 30);
  for (const char* name :
       {"cero.vip", "b96.vip", "b97.vip", "sin_nul.vip", "carpeta.vip", "hueco.vip"}) {
    open(name);
    EXPECT_EQ(form.strip.TextDecode.text(),
              " >>> AVISO <<<   Este proyecto no tiene archivos de audio")
        << name;
    EXPECT_TRUE(form.lists.empty()) << name;
    EXPECT_FALSE(work.Descodificando) << name;
  }
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(MainWindow, a_project_that_vanishes_in_the_middle_leaves_the_window_usable) {
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  in_the_middle([&] { return work.Descodificando; }, [&] { disk.remove("Mix\\tema.vip"); });
  open("Mix\\tema.vip");
  EXPECT_FALSE(work.Descodificando);
  EXPECT_THAT(dialogs.messages, IsEmpty());
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  open("Mix\\tema.vip");
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Mix\\a.wav"));
}

TEST_F(MainWindow, a_project_opened_after_a_reset_in_the_middle_sees_the_disk_as_it_is_now) {
  for (const char* name : {"Mix\\a.vip", "Mix\\b.vip"}) {
    disk.write(name, project_of({disk.path("Mix\\a.wav")}));
  }
  form.CheckSubPath.set_checked(true);
  in_the_middle([&] { return form.lists.ListProyectos.count() == 2; },
                [&] { form.cmdReset_Click(); });
  open("Mix\\a.vip");
  ASSERT_TRUE(form.lists.empty());
  disk.write("Mix\\c.vip", project_of({disk.path("Mix\\c.wav")}));
  open("Mix\\a.vip");
  EXPECT_EQ(form.lists.ListProyectos.count(), 3u);
}

}  // namespace
}  // namespace ordelan::test
