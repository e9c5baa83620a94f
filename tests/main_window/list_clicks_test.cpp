// What a click on a list of the main window plays, shows, enlarges and searches.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "audio/lists_zoom.h"
#include "audio/player.h"
#include "audio/sa.h"
#include "audio/zoom.h"
#include "removal/removal_run.h"
#include "support/sound_program.h"
#include "support/update_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

const std::string kWarning = " >>> AVISO <<<   Este archivo no es reproducible";

struct ListClicks : ::testing::Test, UpdateBench {
  // Two projects: the first uses a.wav, b.mp3, a flac and a file that is elsewhere by now.
  void open_studio(const std::vector<std::string>& lost_at = {"Otra\\perdido.wav"}) {
    for (const char* const name : {"Mix\\a.wav", "Mix\\b.mp3", "Mix\\c.flac"}) {
      disk.write(name, std::string(300, 'x'));
    }
    disk.write("Mix\\resto.wav", "sin uso");
    disk.write("Mix\\aa.wav", "x");  // what follows a used file is struck out with it
    for (const std::string& file : lost_at) audio(file);
    project("Mix\\tema.vip", {"Mix\\a.wav", "Mix\\b.mp3", "Mix\\c.flac", "Mix\\perdido.wav"});
    project("Mix\\voces.vip", {"Mix\\b.mp3"});
    start();
    form.ZoomListas.set_checked(false);
    open("Mix\\tema.vip");
    for (const char* const name : {"Mix\\a.wav", "Mix\\b.mp3", "Mix\\resto.wav"}) {
      media.files[disk.path(name)] = {.duration = 60};
    }
    for (const std::string& file : lost_at) media.files[disk.path(file)] = {.duration = 60};
  }
  static int row_of(const ui::ListBox& list, const std::string& end) {
    for (std::size_t i = 0; i < list.count(); ++i) {
      if (list.row(i).ends_with(end)) return static_cast<int>(i);
    }
    ADD_FAILURE() << "no row " << end;
    return -1;
  }
  void click(ui::ListBox& list, const std::string& end) {
    list.chosen(row_of(list, end));
    list.on_click();
  }
  void click_vip(const std::string& end) { click(vip(), end); }

  ui::ListBox& vip() { return form.lists.ListVip; }
  ui::ListBox& all() { return form.lists.ListUtilizados; }
  ui::ListBox& unused() { return form.lists.ListBorrar; }
  audio::Player& player() { return *windows.touch<audio::Player>(); }
  audio::Zoom& zoom() { return *windows.touch<audio::Zoom>(); }
  audio::ListasZoom& enlarged() { return *windows.touch<audio::ListasZoom>(); }
  audio::Sound& sound() { return form.sound(); }
  std::string balloon() { return sound().rows.shown_text(); }
  std::string strip() {
    return form.strip.TextDecode.visible() ? form.strip.TextDecode.text() : "";
  }
  bool plays(const std::string& below) {
    return media.URL() == disk.path(below) && media.playState() == system::Media::kPlaying;
  }
  bool silent() { return media.playState() != system::Media::kPlaying; }
};

TEST_F(ListClicks, a_left_click_plays_the_row_on_each_list) {
  open_studio();
  click_vip("a.wav");
  EXPECT_TRUE(plays("Mix\\a.wav"));
  EXPECT_EQ(work.ArchivoActual, disk.path("Mix\\a.wav"));
  EXPECT_EQ(shown(form.play.ImagePlayPauSt), "nyn");
  EXPECT_EQ(form.clicks.IndiceActual, 0);
  EXPECT_TRUE(player().visible()) << "the box for it is ticked";
  EXPECT_TRUE(player().TimerTime.running());
  EXPECT_EQ(form.path_strip.ListPath.row(0), disk.path("Mix\\a.wav"));
  click(all(), "b.mp3");
  EXPECT_TRUE(plays("Mix\\b.mp3"));
  click(unused(), "resto.wav");
  EXPECT_TRUE(plays("Mix\\resto.wav"));
  EXPECT_THAT(zoom().ListFilesZoom.rows(), ElementsAre(disk.path("Mix\\resto.wav")));
  EXPECT_FALSE(zoom().visible());
}

TEST_F(ListClicks, the_balloon_of_a_row_has_size_and_date_and_what_the_file_says) {
  open_studio();
  disk.write("Mix\\a.wav", std::string(1536, 'x'));
  click_vip("a.wav");
  EXPECT_THAT(balloon(), StartsWith(" Tamaño: 1,5 Kb\r\n Fecha: ["));
  EXPECT_THAT(balloon(), HasSubstr("]\r\n" + std::string(40, '-') + "\r\n Tipo: Wav"));
  EXPECT_EQ(balloon(), sound().info.TextoToolTip);
  disk.write("Mix\\a.wav", std::string((1 << 20) + 200000, 'x'));
  click_vip("a.wav");
  EXPECT_THAT(balloon(), StartsWith(" Tamaño: 1,19 Mb\r\n"));
}

TEST_F(ListClicks, a_row_that_does_not_play_hides_the_player_and_warns) {
  open_studio();
  click_vip("a.wav");
  ASSERT_TRUE(player().visible());
  click_vip("c.flac");
  EXPECT_EQ(strip(), kWarning);
  EXPECT_FALSE(player().visible());
  EXPECT_TRUE(silent());
  // The row that was heard before is loaded again, and waits.
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
}

TEST_F(ListClicks, without_the_box_for_the_player_that_is_left_alone) {
  open_studio();
  form.CheckPlayer.set_checked(false);
  click_vip("a.wav");
  EXPECT_TRUE(plays("Mix\\a.wav"));
  EXPECT_FALSE(player().visible());
  player().show();
  click_vip("c.flac");
  EXPECT_TRUE(player().visible());
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ListClicks, the_player_that_is_shown_later_says_that_a_file_plays) {
  open_studio();
  form.CheckPlayer.set_checked(false);
  click_vip("a.wav");
  ASSERT_TRUE(plays("Mix\\a.wav"));
  form.cmdPlayer.on_click();
  EXPECT_EQ(shown(player().Control), "nyy");
  EXPECT_TRUE(player().TimerTime.running());
}

TEST_F(ListClicks, the_row_of_a_project_among_the_used_files_shows_its_details_and_no_warning) {
  open_studio();
  click(all(), "tema.vip");
  EXPECT_EQ(strip(), "");
  EXPECT_THAT(balloon(), StartsWith(" Tamaño: 0 Mb\r\n Fecha: ["));
  EXPECT_TRUE(silent());
}

TEST_F(ListClicks, with_the_box_for_it_the_first_click_enlarges_and_the_next_plays) {
  open_studio();
  form.ZoomListas.set_checked(true);
  click_vip("a.wav");
  EXPECT_TRUE(silent());
  ASSERT_TRUE(enlarged().visible());
  EXPECT_EQ(enlarged().LabelTitulo.caption(),
            "Archivos utilizados en Vip: " + form.lists.LabelCount[1].caption());
  EXPECT_EQ(enlarged().LabelUp.caption(), form.lists.LabelCount[0].caption());
  EXPECT_EQ(enlarged().LabelDwn.caption(), form.lists.LabelCount[1].caption());
  EXPECT_EQ(enlarged().ListZoom.rows(), vip().rows());
  EXPECT_EQ(enlarged().ListZoom.tag(), "1");
  click_vip("a.wav");
  EXPECT_TRUE(plays("Mix\\a.wav"));

  click(all(), "b.mp3");
  EXPECT_EQ(enlarged().ListZoom.tag(), "2");
  EXPECT_EQ(enlarged().LabelTitulo.caption(), "Archivos totales utilizados");
  EXPECT_EQ(enlarged().LabelUp.caption(), form.lists.LabelAdd[0].caption());
  EXPECT_TRUE(plays("Mix\\a.wav"));
  click(unused(), "resto.wav");
  EXPECT_EQ(enlarged().ListZoom.tag(), "4");
  EXPECT_EQ(enlarged().LabelTitulo.caption(), "Archivos totales que no se utilizan");
  EXPECT_FALSE(enlarged().LabelUp.visible());
  EXPECT_EQ(enlarged().LabelDwn.caption(), form.lists.LabelErase[1].caption());
  click(unused(), "resto.wav");
  EXPECT_TRUE(plays("Mix\\resto.wav"));
}

TEST_F(ListClicks, a_click_on_a_project_enlarges_the_files_of_the_decoded_one) {
  open_studio();
  form.ZoomListas.set_checked(true);
  click(form.lists.ListProyectos, "voces.vip");
  EXPECT_EQ(enlarged().LabelTitulo.caption(), "Proyectos Vip's en carpeta: ");
  EXPECT_EQ(enlarged().ListZoom.rows(), vip().rows());
  EXPECT_EQ(enlarged().LabelUp.caption(), form.lists.LabelCheck[0].caption());
  // A double click there decodes the project of the same number.
  enlarged().ListZoom.chosen(1);
  enlarged().ListZoom.on_double_click();
  EXPECT_THAT(vip().rows(), ElementsAre(disk.path("Mix\\b.mp3")));
}

TEST_F(ListClicks, a_double_click_on_an_enlarged_row_beyond_the_projects_does_nothing) {
  open_studio();
  form.ZoomListas.set_checked(true);
  click(form.lists.ListProyectos, "voces.vip");
  const auto before = vip().rows();
  enlarged().ListZoom.chosen(3);
  enlarged().ListZoom.on_double_click();
  EXPECT_EQ(vip().rows(), before);
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(ListClicks, a_click_on_a_project_shows_its_size_and_a_double_click_shows_it_again) {
  open_studio();
  click(form.lists.ListProyectos, "tema.vip");
  EXPECT_THAT(balloon(), StartsWith(" Tamaño: 0 Mb\r\n Fecha: ["));
  sound().hide_balloons();
  double_click(0);
  EXPECT_THAT(balloon(), StartsWith(" Tamaño: 0 Mb\r\n Fecha: ["));
}

TEST_F(ListClicks, during_a_decode_a_click_plays_nothing_but_enlarges) {
  open_studio();
  work.Descodificando = true;
  click_vip("a.wav");
  EXPECT_TRUE(silent());
  EXPECT_EQ(balloon(), "");
  form.ZoomListas.set_checked(true);
  click_vip("a.wav");
  EXPECT_TRUE(enlarged().visible());
}

TEST_F(ListClicks, during_a_removal_a_click_does_nothing) {
  open_studio();
  work.Borrando = true;
  form.ZoomListas.set_checked(true);
  player().AvisoPL.show();
  click_vip("a.wav");
  vip().on_right_click();
  EXPECT_TRUE(player().AvisoPL.visible());
  EXPECT_TRUE(silent());
  EXPECT_FALSE(windows.visible("ListasZoom"));
  EXPECT_FALSE(windows.visible("Zoom"));
}

TEST_F(ListClicks, a_right_click_takes_what_can_be_shown_to_the_detail_window) {
  open_studio();
  vip().set_current(1);
  vip().on_right_click();
  EXPECT_TRUE(zoom().visible());
  EXPECT_EQ(zoom().ListFilesZoom.rows(), vip().rows());
  EXPECT_EQ(zoom().LabelNvip.caption(), form.lists.LabelCount[0].caption());
  EXPECT_EQ(zoom().Files.caption(), form.lists.LabelCount[1].caption());
  EXPECT_EQ(work.ListaActual, &vip());
  EXPECT_EQ(form.clicks.IndiceActual, 1);
  EXPECT_EQ(zoom().ListFilesZoom.current(), -1) << "nothing is loaded";
  form.sound().set_URL(disk.path("Mix\\a.wav"));
  all().set_current(2);
  all().on_right_click();
  EXPECT_EQ(zoom().ListFilesZoom.current(), 2);
  EXPECT_EQ(zoom().LabelNvip.caption(), form.lists.LabelAdd[0].caption());
  unused().on_right_click();
  EXPECT_EQ(zoom().Files.caption(), form.lists.LabelErase[1].caption());
}

TEST_F(ListClicks, a_right_click_on_rows_of_other_kinds_shows_an_empty_window) {
  open_studio();
  vip().clear();
  vip().add("D:\\a.ogg");
  vip().add("D:\\b.txt");
  vip().on_right_click();
  EXPECT_TRUE(zoom().visible());
  EXPECT_TRUE(zoom().ListFilesZoom.empty());
  zoom().hide();
  vip().clear();
  vip().on_right_click();
  EXPECT_FALSE(zoom().visible()) << "an empty list has nothing to show";
}

TEST_F(ListClicks, a_click_follows_in_the_detail_window_while_it_shows_that_list) {
  open_studio();
  vip().on_right_click();
  click_vip("b.mp3");
  EXPECT_EQ(zoom().ListFilesZoom.current(), 1);
  EXPECT_THAT(zoom().ListFilesZoom.count(), vip().count());
  EXPECT_TRUE(zoom().Pause.visible());
  // A row of another list than the one that is shown.
  click(unused(), "resto.wav");
  EXPECT_EQ(zoom().ListFilesZoom.current(), 1);
}

TEST_F(ListClicks, a_click_in_the_detail_window_chooses_the_row_of_the_list) {
  open_studio();
  vip().on_right_click();
  zoom().ListFilesZoom.chosen(1);
  zoom().ListFilesZoom.on_click();
  EXPECT_EQ(vip().current(), 1);
  EXPECT_EQ(media.URL(), disk.path("Mix\\b.mp3"));
  EXPECT_TRUE(silent());
}

TEST_F(ListClicks, a_row_of_the_detail_window_that_the_list_does_not_have_leaves_its_choice) {
  open_studio();
  vip().on_right_click();
  vip().set_current(2);
  zoom().fill({"D:\\1.wav", "D:\\2.wav", "D:\\3.wav", "D:\\4.wav", "D:\\5.wav"});
  zoom().ListFilesZoom.chosen(4);
  zoom().ListFilesZoom.on_click();
  EXPECT_EQ(vip().current(), 2);
}

TEST_F(ListClicks, a_lost_row_is_searched_and_what_is_found_is_loaded) {
  open_studio();
  click_vip("perdido.wav");
  EXPECT_EQ(work.ArchivoActual, disk.path("Otra\\perdido.wav"));
  EXPECT_EQ(media.URL(), disk.path("Otra\\perdido.wav"));
  EXPECT_THAT(strip(), HasSubstr("Ha sido encontrado en: \r\n" + disk.path("Otra\\perdido.wav")));
  EXPECT_THAT(zoom().ListFilesZoom.rows(), ElementsAre(disk.path("Mix\\perdido.wav")));
  EXPECT_FALSE(form.clicks.cmdPararBusqueda.visible());
  EXPECT_FALSE(work.Buscando);
  // The player was hidden: what was found waits in it.
  EXPECT_TRUE(silent());
  EXPECT_TRUE(player().visible());
  click_vip("perdido.wav");
  EXPECT_TRUE(plays("Otra\\perdido.wav"));
}

TEST_F(ListClicks, a_found_file_takes_its_row_in_the_detail_window_and_says_so) {
  open_studio();
  vip().on_right_click();
  click_vip("perdido.wav");
  EXPECT_EQ(zoom().ListFilesZoom.row(3), disk.path("Otra\\perdido.wav"));
  EXPECT_THAT(strip(), EndsWith("\r\nLa ruta del PlayList ha sido actualizada"));
  EXPECT_EQ(vip().row(3), disk.path("Mix\\perdido.wav")) << "the list stays as it is";
}

TEST_F(ListClicks, several_hits_are_offered_and_one_of_them_is_heard) {
  open_studio({"Otra\\perdido.wav", "Mas\\perdido.wav"});
  click_vip("perdido.wav");
  EXPECT_TRUE(zoom().visible());
  EXPECT_TRUE(work.ZoomConHallados);
  EXPECT_EQ(zoom().Files.caption(), "Hay 2 archivos con el mismo nombre");
  EXPECT_EQ(zoom().LabelNvip.caption(), "");
  ASSERT_EQ(zoom().ListFilesZoom.count(), 2u);
  const int current = vip().current();
  zoom().CheckAutoPlay.set_checked(true);
  click(zoom().ListFilesZoom, "Mas\\perdido.wav");
  EXPECT_TRUE(plays("Mas\\perdido.wav"));
  EXPECT_EQ(vip().current(), current) << "a hit is no row of the list";
  vip().on_right_click();
  EXPECT_FALSE(work.ZoomConHallados);
}

TEST_F(ListClicks, a_file_that_is_nowhere_is_said_to_be_missing) {
  open_studio({});
  click_vip("perdido.wav");
  EXPECT_THAT(strip(), HasSubstr("No existe\r\nEn ninguna unidad"));
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(form.clicks.IndiceActual, -1);
}

TEST_F(ListClicks, a_file_found_for_the_used_ones_takes_the_place_of_the_side_files) {
  disk.write("Mix\\tema.h2", "pico");
  disk.write("Mix\\voces.h2", "pico");
  open_studio();
  ASSERT_FALSE(form.lists.List1.empty());
  click(all(), "perdido.wav");
  EXPECT_THAT(form.lists.List1.rows(), ElementsAre(disk.path("Otra\\perdido.wav")));
  EXPECT_THAT(balloon(), StartsWith(" Tamaño: "));
  EXPECT_TRUE(unused().rows() == std::vector<std::string>{disk.path("Mix\\resto.wav")});
}

TEST_F(ListClicks, a_search_is_ended_by_its_button_and_what_was_decoded_stays) {
  open_studio();
  const auto rows = vip().rows();
  in_the_middle([&] { return work.Buscando; },
                [&] {
                  EXPECT_TRUE(form.clicks.cmdPararBusqueda.visible());
                  form.clicks.cmdPararBusqueda.on_click();
                });
  click_vip("perdido.wav");
  EXPECT_EQ(vip().rows(), rows);
  EXPECT_FALSE(work.Cancelar);
  EXPECT_EQ(strip(), "");
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(form.clicks.cmdPararBusqueda.visible());
  backend.on_pump = {};
  click_vip("perdido.wav");
  EXPECT_EQ(media.URL(), disk.path("Otra\\perdido.wav")) << "the next search is not ended by it";
}

TEST_F(ListClicks, escape_ends_the_search_and_not_the_program) {
  open_studio();
  in_the_middle([&] { return work.Buscando; }, [&] { form.on_escape(); });
  click_vip("perdido.wav");
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(backend.ended());
  form.on_escape();
  EXPECT_FALSE(backend.ended());
  EXPECT_FALSE(work.Cancelar) << "nothing runs";
}

TEST_F(ListClicks, a_click_in_the_middle_of_a_search_is_the_one_that_counts) {
  open_studio();
  in_the_middle([&] { return work.Buscando; }, [&] { click_vip("a.wav"); });
  click_vip("perdido.wav");
  EXPECT_TRUE(plays("Mix\\a.wav"));
  EXPECT_EQ(work.ArchivoActual == disk.path("Otra\\perdido.wav"),
            work.ArchivoActual != media.URL());
}

TEST_F(ListClicks, another_lost_row_ends_the_search_and_is_searched_next) {
  open_studio();
  disk.write("Otra\\tambien.wav", "audio");
  vip().add(disk.path("Mix\\tambien.wav"));
  in_the_middle([&] { return work.Buscando; }, [&] { click_vip("tambien.wav"); });
  click_vip("perdido.wav");
  EXPECT_EQ(media.URL(), disk.path("Otra\\tambien.wav"));
}

TEST_F(ListClicks, an_update_does_not_begin_inside_a_search) {
  open_studio();
  const std::size_t messages = dialogs.messages.size();
  in_the_middle([&] { return work.Buscando; }, [&] { form.ActualizarVip.on_click(); });
  click_vip("perdido.wav");
  EXPECT_EQ(dialogs.messages.size(), messages);
  EXPECT_FALSE(work.Actualizando);
}

TEST_F(ListClicks, a_reset_in_the_middle_of_a_search_leaves_an_empty_window) {
  open_studio();
  in_the_middle([&] { return work.Buscando; }, [&] { form.cmdReset_Click(); });
  click_vip("perdido.wav");
  EXPECT_TRUE(form.lists.empty());
  EXPECT_EQ(media.URL(), "");
  EXPECT_FALSE(windows.visible("Player"));
  EXPECT_FALSE(form.clicks.cmdPararBusqueda.visible());
}

TEST_F(ListClicks, a_removal_that_begins_while_a_file_is_read_keeps_it_from_being_opened) {
  open_studio();
  in_the_middle([&] { return sound().media().URL().empty() && !work.Buscando; },
                [&] { work.Borrando = true; });
  click_vip("a.wav");
  EXPECT_EQ(media.URL(), "");
  work.Borrando = false;
}

TEST_F(ListClicks, the_number_of_the_row_under_the_pointer_is_shown) {
  open_studio();
  ui::Label& label = form.clicks.LabelIndice;
  vip().on_mouse_move({.at = {10, 16 * 2 + 3}});
  EXPECT_TRUE(label.visible());
  EXPECT_EQ(label.caption(), "Item: 3");
  EXPECT_EQ(sound().rows.ItemBajoCursor, 2);
  EXPECT_EQ(sound().rows.PosicionLista, 35 * 65536 + 10);
  EXPECT_LT(label.bounds().top, vip().bounds().top);
  vip().on_mouse_move({.at = {10, 16 * 30}});
  EXPECT_FALSE(label.visible()) << "below the last row";
  all().on_mouse_move({.at = {10, 3}});
  EXPECT_EQ(label.caption(), "Item: 1");
  EXPECT_LT(label.bounds().top, all().bounds().top);
  EXPECT_GT(label.bounds().top, vip().bounds().top);
  work.Descodificando = true;
  all().on_mouse_move({.at = {10, 19}});
  EXPECT_EQ(label.caption(), "Item: 1");
  work.Descodificando = false;
  form.cmdReset_Click();
  EXPECT_FALSE(label.visible());
  vip().on_mouse_move({.at = {10, 3}});
  EXPECT_FALSE(label.visible()) << "an empty list";
}

TEST_F(ListClicks, the_box_for_tips_sets_and_empties_those_of_the_lists) {
  open_studio();
  const std::string files =
      "Clic bot.iqz. reproduce archivo clicado. Clic bot.dcho. carga todos los archivos en "
      "PlayList";
  EXPECT_EQ(vip().tip(), files);
  EXPECT_EQ(all().tip(), files);
  EXPECT_EQ(unused().tip(), files);
  EXPECT_EQ(form.lists.ListProyectos.tip(),
            "Lista de proyectos en la Carpeta, doble clic en un item, descodifica ese proyecto");
  form.CheckToolTips.set_checked(false);
  form.CheckToolTips.on_click();
  for (const ui::ListBox* list : {&vip(), &all(), &unused(), &form.lists.ListProyectos}) {
    EXPECT_EQ(list->tip(), "");
  }
}

TEST_F(ListClicks, balloons_go_by_time_by_scrolling_by_keys_and_with_the_program) {
  open_studio();
  const std::vector<std::function<void()>> ends = {[&] { vip().on_scroll(); },
                                                   [&] {
                                                     ui::Key key{.code = 65};
                                                     form.on_key_down(key);
                                                   },
                                                   [&] { form.on_deactivate(); },
                                                   [&] { click_vip("c.flac"); },
                                                   [&] {
                                                     clock.time += std::chrono::milliseconds(10100);
                                                     backend.pump();
                                                   }};
  for (std::size_t i = 0; i < ends.size(); ++i) {
    click_vip("a.wav");
    ASSERT_NE(balloon(), "") << i;
    ends[i]();
    EXPECT_EQ(balloon(), "") << i;
  }
}

TEST_F(ListClicks, a_file_that_goes_before_it_is_looked_at_shows_no_balloon) {
  open_studio();
  in_the_middle([&] { return media.URL().empty(); },
                [&] { disk.files().remove(disk.path("Mix\\a.wav")).ignore(); });
  click_vip("a.wav");
  EXPECT_EQ(balloon(), "");
}

TEST_F(ListClicks, a_reset_while_a_file_is_read_ends_the_click) {
  open_studio();
  bool done = false;
  backend.on_pump = [&] {
    if (done || work.Buscando || work.ArchivoActual.empty()) return;
    done = true;
    form.cmdReset_Click();
  };
  click_vip("a.wav");
  ASSERT_TRUE(done);
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(shown(form.play.ImagePlayPauSt), "nnn");
  EXPECT_EQ(balloon(), "");
}

TEST_F(ListClicks, a_project_that_is_decoded_while_a_file_is_read_ends_the_click) {
  open_studio();
  bool done = false;
  backend.on_pump = [&] {
    if (done || work.Buscando || work.Descodificando || work.ArchivoActual.empty()) return;
    done = true;
    double_click(1);
  };
  click_vip("a.wav");
  ASSERT_TRUE(done);
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ListClicks, a_key_during_a_search_does_not_lead_the_hit_to_another_row) {
  open_studio();
  vip().on_right_click();
  in_the_middle([&] { return work.Buscando; }, [&] { vip().chosen(0, true); });
  const auto before = zoom().ListFilesZoom.rows();
  click_vip("perdido.wav");
  EXPECT_EQ(zoom().ListFilesZoom.row(0), before[0]);
}

TEST_F(ListClicks, a_click_in_the_detail_window_ends_its_search) {
  open_studio();
  vip().on_right_click();
  const auto before = zoom().ListFilesZoom.rows();
  in_the_middle([&] { return work.Buscando; }, [&] { click(zoom().ListFilesZoom, "a.wav"); });
  click(zoom().ListFilesZoom, "perdido.wav");
  EXPECT_EQ(zoom().ListFilesZoom.row(0), before[0]);
  EXPECT_EQ(work.ArchivoActual, before[0]);
  EXPECT_EQ(strip(), "");
}

TEST_F(ListClicks, a_click_that_plays_ends_the_search_of_the_one_before) {
  open_studio();
  in_the_middle([&] { return work.Buscando; }, [&] { click_vip("a.wav"); });
  click_vip("perdido.wav");
  EXPECT_TRUE(plays("Mix\\a.wav"));
  EXPECT_EQ(work.ArchivoActual, disk.path("Mix\\a.wav"));
  EXPECT_EQ(strip(), "");
}

TEST_F(ListClicks, another_lost_row_of_the_detail_window_is_searched_next) {
  open_studio();
  disk.write("Otra\\tambien.wav", "audio");
  vip().add(disk.path("Mix\\tambien.wav"));
  vip().on_right_click();
  in_the_middle([&] { return work.Buscando; }, [&] { click(zoom().ListFilesZoom, "tambien.wav"); });
  click(zoom().ListFilesZoom, "perdido.wav");
  EXPECT_EQ(media.URL(), disk.path("Otra\\tambien.wav"));
}

TEST_F(ListClicks, a_click_in_the_enlarged_list_is_newer_than_a_search) {
  open_studio();
  form.ZoomListas.set_checked(true);
  click_vip("a.wav");
  in_the_middle([&] { return work.Buscando; }, [&] { click(enlarged().ListZoom, "a.wav"); });
  click_vip("perdido.wav");
  EXPECT_TRUE(plays("Mix\\a.wav"));
}

TEST_F(ListClicks, a_click_on_a_project_ends_the_search) {
  open_studio();
  form.CheckPlayer.set_checked(false);
  in_the_middle([&] { return work.Buscando; },
                [&] { click(form.lists.ListProyectos, "voces.vip"); });
  click_vip("perdido.wav");
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ListClicks, a_detail_window_that_is_closed_ends_its_search) {
  open_studio();
  vip().on_right_click();
  int pumps = 0;
  bool closed = false;
  backend.on_pump = [&] {
    if (!work.Buscando) return;
    if (!closed) {
      closed = true;
      zoom().on_escape();
      return;
    }
    if (windows.find<audio::Zoom>() == nullptr) ++pumps;
  };
  click(zoom().ListFilesZoom, "perdido.wav");
  EXPECT_TRUE(closed);
  EXPECT_EQ(windows.find<audio::Zoom>(), nullptr);
  EXPECT_LE(pumps, 1) << "it searched on";
  EXPECT_EQ(strip(), "");
}

TEST_F(ListClicks, a_decode_while_a_row_of_the_detail_window_is_read_ends_that_click) {
  open_studio();
  vip().on_right_click();
  bool done = false;
  backend.on_pump = [&] {
    if (done || work.Descodificando || work.ArchivoActual.empty()) return;
    done = true;
    double_click(1);
  };
  click(zoom().ListFilesZoom, "a.wav");
  ASSERT_TRUE(done);
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ListClicks, a_decode_while_an_enlarged_row_is_read_ends_that_click) {
  open_studio();
  form.ZoomListas.set_checked(true);
  click_vip("a.wav");
  bool done = false;
  backend.on_pump = [&] {
    if (done || work.ArchivoActual.empty()) return;
    done = true;
    double_click(1);
  };
  click(enlarged().ListZoom, "a.wav");
  ASSERT_TRUE(done);
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ListClicks, a_row_with_a_mark_plays_what_stands_before_it) {
  open_studio();
  vip().set_current(-1);
  vip().clear();
  vip().add(disk.path("Mix\\a.wav > nota.wav"));
  vip().chosen(0);
  vip().on_click();
  EXPECT_TRUE(plays("Mix\\a.wav"));
}

// What is heard and said stays while a job of those runs, whatever is clicked.
TEST_F(ListClicks, during_a_removal_the_two_windows_of_lists_do_nothing) {
  open_studio();
  click_vip("a.wav");
  vip().on_right_click();
  enlarged().show_list(vip(), "", "1");
  media.orders.clear();
  work.Borrando = true;
  const std::string current = work.ArchivoActual;
  click(zoom().ListFilesZoom, "b.mp3");
  click(enlarged().ListZoom, "b.mp3");
  enlarged().ListZoom.on_double_click();
  enlarged().ListZoom.on_right_click();
  work.Borrando = false;
  EXPECT_THAT(media.orders, IsEmpty());
  EXPECT_EQ(work.ArchivoActual, current);
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
}

TEST_F(ListClicks, during_a_decode_or_an_update_what_is_heard_stays) {
  open_studio();
  click_vip("a.wav");
  enlarged().show_list(vip(), "", "1");
  for (bool work::WorkInHand::*const busy :
       {&work::WorkInHand::Descodificando, &work::WorkInHand::Actualizando}) {
    work.*busy = true;
    media.orders.clear();
    click_vip("b.mp3");
    enlarged().ListZoom.chosen(1);
    enlarged().ListZoom.on_double_click();
    double_click(1);
    work.*busy = false;
    EXPECT_THAT(media.orders, IsEmpty());
    EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
  }
}

TEST_F(ListClicks, during_a_decode_the_detail_window_takes_no_list) {
  open_studio();
  work.Descodificando = true;
  vip().on_right_click();
  work.Descodificando = false;
  EXPECT_FALSE(windows.visible("Zoom"));
  EXPECT_EQ(work.ListaActual, nullptr);
}

TEST_F(ListClicks, during_a_decode_or_an_update_the_detail_window_searches_nothing) {
  open_studio();
  vip().on_right_click();
  for (bool work::WorkInHand::*const busy :
       {&work::WorkInHand::Descodificando, &work::WorkInHand::Actualizando}) {
    bool searched = false;
    backend.on_pump = [&] { searched = searched || work.Buscando; };
    work.*busy = true;
    click(zoom().ListFilesZoom, "perdido.wav");
    work.*busy = false;
    backend.on_pump = {};
    EXPECT_FALSE(searched);
    EXPECT_EQ(media.URL(), "");
  }
}

TEST_F(ListClicks, a_lost_row_that_waits_is_not_searched_once_another_is_chosen) {
  open_studio();
  disk.write("Otra\\tambien.wav", "audio");
  vip().add(disk.path("Mix\\tambien.wav"));
  in_the_middle([&] { return work.Buscando; },
                [&] {
                  click_vip("tambien.wav");
                  vip().chosen(0, true);
                });
  click_vip("perdido.wav");
  EXPECT_EQ(media.URL(), "");
}

TEST_F(ListClicks, what_begins_while_a_file_is_read_or_searched_keeps_it_from_being_opened) {
  open_studio();
  for (bool* const flag : {&work.Borrando, &work.Descodificando, &work.Actualizando}) {
    for (const char* const row : {"a.wav", "perdido.wav"}) {
      in_the_middle([] { return true; }, [flag] { *flag = true; });
      click_vip(row);
      EXPECT_EQ(media.URL(), "") << row;
      *flag = false;
      backend.on_pump = {};
    }
  }
}

TEST_F(ListClicks, the_path_that_was_found_can_be_copied_until_the_lists_are_others) {
  open_studio();
  click_vip("perdido.wav");
  ui::Key key{.code = 'C', .shift = true, .control = true, .focus = &vip()};
  form.on_key_down(key);
  EXPECT_EQ(shell.clipboard, disk.path("Otra\\perdido.wav"));
  shell.clipboard.reset();
  form.open_again();
  vip().chosen(3);
  form.on_key_down(key);
  EXPECT_EQ(shell.clipboard, std::nullopt);
}

// What a search puts among the side files is of a kind that plays: a removal of side files leaves
// audio.
TEST_F(ListClicks, no_kind_that_plays_is_a_side_file) {
  for (const char* const row : {"D:\\a.wav", "D:\\a.mp3", "D:\\a.aif", "D:\\a.wma", "D:\\a.m4a",
                                "D:\\A.WAV", "D:\\a;b.M4A"}) {
    EXPECT_TRUE(removal::is_audio_row(row)) << row;
  }
}

}  // namespace
}  // namespace ordelan::test
