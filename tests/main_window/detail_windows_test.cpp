// The detail window and the enlarged list beside the lists of the main window.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "audio/lists_zoom.h"
#include "audio/player.h"
#include "audio/zoom.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const std::string kNoSound = " >>> AVISO <<<   Este archivo no es reproducible";

struct DetailWindows : ::testing::Test, SoundProgram {
  std::string stored(const std::string& name, double seconds = 60) {
    disk.write(name, std::string(300, 'x'));
    return song(name, seconds);
  }
  audio::Zoom& zoom() { return *program.windows.touch<audio::Zoom>(); }
  audio::ListasZoom& enlarged() { return *program.windows.touch<audio::ListasZoom>(); }
  work::WorkInHand& work() { return program.work; }
  ui::ListBox& vip() { return program.form.lists.ListVip; }
  void click(const std::string& row) {
    zoom().fill({row});
    zoom().ListFilesZoom.chosen(0);
    zoom().ListFilesZoom.on_click();
  }
  void click_enlarged(const std::string& row) {
    ui::ListBox& list = enlarged().ListZoom;
    list.clear();
    list.add(row);
    list.chosen(0);
    list.on_click();
  }
  std::string strip() {
    const auto& text = program.form.strip.TextDecode;
    return text.visible() ? text.text() : "";
  }
  bool plays() { return media.playState() == system::Media::kPlaying; }
  bool marker() {
    EXPECT_EQ(zoom().ImageIcono.visible(), zoom().LabelVip.visible());
    EXPECT_EQ(zoom().ShapeVip.visible(), zoom().LabelVip.visible());
    return zoom().LabelVip.visible();
  }
  std::string marks() { return shown(program.form.play.ImagePlayPauSt); }
};

TEST_F(DetailWindows, a_click_loads_a_row_which_waits_without_the_box_and_plays_with_it) {
  start();
  const std::string a = stored("a.wav");
  click(a);
  EXPECT_EQ(media.URL(), a);
  EXPECT_FALSE(plays());
  EXPECT_EQ(work().ArchivoActual, a);
  zoom().CheckAutoPlay.set_checked(true);
  click(a);
  EXPECT_TRUE(plays());
  EXPECT_TRUE(player().LabelDisplay.caption().starts_with("  >>>> a -- "));
}

TEST_F(DetailWindows, without_a_click_on_a_list_before_a_row_plays_at_once) {
  start();
  work().ClickEnLista = false;
  click(stored("a.wav"));
  EXPECT_TRUE(plays());
  EXPECT_EQ(marks(), "nyn");
}

TEST_F(DetailWindows, the_row_of_a_project_blinks_and_says_its_name_and_folder) {
  start();
  click("D:\\Mix\\tema.vip");
  EXPECT_TRUE(marker());
  EXPECT_EQ(strip(), "");
  EXPECT_EQ(zoom().TextInfo.text(), "tema.vip\r\nD:\\Mix\\");
  EXPECT_EQ(sound().rows.shown_text(), "D:\\Mix\\");
  EXPECT_EQ(zoom().TimerVip.interval(), std::chrono::milliseconds(330));
  pass(0.35);
  EXPECT_FALSE(marker());
  pass(0.33);
  EXPECT_TRUE(marker());
  click(stored("a.wav"));
  EXPECT_FALSE(marker());
  EXPECT_FALSE(zoom().TimerVip.running());
}

TEST_F(DetailWindows, a_kind_that_does_not_play_warns_and_is_loaded_all_the_same) {
  start();
  const std::string flac = stored("c.flac");
  click(flac);
  EXPECT_EQ(strip(), kNoSound);
  EXPECT_EQ(media.URL(), flac);
  EXPECT_FALSE(plays());
  // Hits of a search are offered without a warning.
  zoom().fill_with_hits({flac});
  zoom().ListFilesZoom.chosen(0);
  zoom().ListFilesZoom.on_click();
  EXPECT_EQ(strip(), "");
}

TEST_F(DetailWindows, separators_and_empty_rows_lead_nowhere) {
  start();
  for (const std::string& row : {std::string(100, '-'), std::string("x.---"), std::string()}) {
    click(row);
    EXPECT_EQ(strip(), kNoSound) << row;
    EXPECT_EQ(media.URL(), "") << row;
    EXPECT_NE(player().LabelDisplay.caption(), "  >>>> --------------- <<<< ") << row;
  }
}

TEST_F(DetailWindows, a_lost_row_is_searched_and_loaded_from_where_it_is) {
  drives.add(disk.folder());
  start("Unidad: " + disk.folder() + "=1\r\n");
  const std::string found = stored("Otra\\a.wav");
  click(disk.path("Mix\\a.wav"));
  EXPECT_EQ(media.URL(), found);
  EXPECT_EQ(work().ArchivoActual, found);
  EXPECT_EQ(zoom().ListFilesZoom.row(0), found);
  EXPECT_FALSE(plays());
}

TEST_F(DetailWindows, a_row_that_is_nowhere_empties_the_player) {
  start();
  sound().set_URL(stored("a.wav"));
  click(disk.path("Mix\\falta.wav"));
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(player().LabelDisplay.caption(), "  >>>> --------------- <<<< ");
  EXPECT_THAT(strip(), HasSubstr("No existe"));
}

TEST_F(DetailWindows, no_search_begins_while_projects_are_read_or_updated) {
  start();
  stored("Otra\\a.wav");
  for (bool* const flag : {&work().Descodificando, &work().Actualizando}) {
    *flag = true;
    click(disk.path("Mix\\a.wav"));
    EXPECT_EQ(media.URL(), "");
    *flag = false;
  }
  work().Borrando = true;
  click(disk.path("Otra\\a.wav"));
  EXPECT_EQ(media.URL(), "");
}

TEST_F(DetailWindows, counts_audio_and_projects) {
  start();
  zoom().Files.hide();
  zoom().LabelNvip.hide();
  zoom().fill({"1 --> D:\\a.vip", "----------"});
  zoom().ContarFiles();
  EXPECT_FALSE(zoom().Files.visible());
  EXPECT_EQ(zoom().LabelNvip.caption(), "1 Proyectos Vips");
  zoom().fill({"1 -> x", "D:\\a.wav", "D:\\b.wav"});
  zoom().ContarFiles();
  EXPECT_EQ(zoom().Files.caption(), "2 archivos de audio");
  EXPECT_TRUE(zoom().Files.visible());
}

TEST_F(DetailWindows, the_playlist_ends_the_list_that_was_shown_and_not_the_flag_of_hits) {
  start();
  vip().add(stored("a.wav"));
  vip().on_right_click();
  EXPECT_TRUE(zoom().list_mode());
  EXPECT_EQ(zoom().List1.rows(), zoom().ListFilesZoom.rows());
  zoom().fill_with_hits({"D:\\x.wav"});
  EXPECT_TRUE(work().ZoomConHallados);
  EXPECT_FALSE(zoom().list_mode());
  // Until a list is shown again, or the window is emptied, no row here is taken for one of a list.
  zoom().fill({});
  EXPECT_TRUE(work().ZoomConHallados);
  program.form.cmdReset_Click();
  EXPECT_FALSE(work().ZoomConHallados);
}

TEST_F(DetailWindows, tips_go_and_come_with_their_box_which_both_windows_share) {
  start("ToolTip lista.=0\r\n");
  EXPECT_EQ(zoom().ListFilesZoom.tip(), "");
  EXPECT_EQ(enlarged().ListZoom.tip(), "");
  zoom().CheckToolTips.set_checked(true);
  zoom().CheckToolTips.on_click();
  EXPECT_THAT(zoom().ListFilesZoom.tip(),
              StartsWith("Clic botón izq. en item reproduce audio si esta activo AutoPl"));
  enlarged().CheckToolTips.set_checked(true);
  enlarged().CheckToolTips.on_click();
  EXPECT_EQ(enlarged().ListZoom.tip(), "Click botón izquierdo Play, botón derecho Stop");
  enlarged().on_mouse_down();
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "ToolTip lista.", ""), "1");
}

TEST_F(DetailWindows, the_number_under_the_pointer_stands_on_each_window) {
  start();
  zoom().fill({"a", "b"});
  zoom().ListFilesZoom.on_mouse_move({.at = {3, 20}});
  EXPECT_EQ(zoom().ZoomLabelIndice.caption(), "Item: 2");
  zoom().ListFilesZoom.on_mouse_move({.at = {3, 40}});
  EXPECT_FALSE(zoom().ZoomLabelIndice.visible());
  enlarged().ListZoom.add("a");
  enlarged().ListZoom.on_mouse_move({.at = {3, 2}});
  EXPECT_EQ(enlarged().LZLabelIndice.caption(), "Item: 1");
}

TEST_F(DetailWindows, an_enlarged_row_plays_by_itself_and_shows_its_details) {
  start();
  const std::string a = stored("a.wav");
  click_enlarged(a);
  EXPECT_TRUE(plays());
  EXPECT_EQ(work().ArchivoActual, a);
  EXPECT_EQ(marks(), "nyn");
  EXPECT_EQ(shown(player().Control), "nyy");
  EXPECT_TRUE(zoom().Pause.visible()) << "where it is opened after the click";
  EXPECT_THAT(sound().rows.shown_text(), HasSubstr(" Tipo: Wav"));
  zoom().Pause.hide();
  click_enlarged(a);
  EXPECT_TRUE(zoom().Pause.visible());
  EXPECT_FALSE(zoom().Play.visible());
}

TEST_F(DetailWindows, an_enlarged_project_shows_its_mark_and_any_other_kind_nothing) {
  start();
  disk.write("tema.vip", "x");
  click_enlarged("1 --> " + disk.path("tema.vip"));
  EXPECT_TRUE(enlarged().ImageIcono.visible());
  EXPECT_THAT(sound().rows.shown_text(), StartsWith(" Tamaño: 0 Mb\r\n Fecha: "));
  click_enlarged(stored("c.flac"));
  EXPECT_FALSE(enlarged().ImageIcono.visible());
  EXPECT_EQ(media.URL(), "");
}

TEST_F(DetailWindows, the_right_button_on_an_enlarged_row_ends_the_sound) {
  start();
  zoom();
  click_enlarged(stored("a.wav"));
  enlarged().ListZoom.on_right_click();
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(marks(), "ynn");
  EXPECT_EQ(shown(player().Control), "yny");
  EXPECT_TRUE(zoom().Pause.visible());
  EXPECT_FALSE(zoom().Play.visible());
}

TEST_F(DetailWindows, nothing_plays_in_the_enlarged_list_during_a_removal) {
  start();
  const std::string a = stored("a.wav");
  work().Borrando = true;
  click_enlarged(a);
  EXPECT_EQ(media.URL(), "");
  work().Borrando = false;
  click_enlarged(a);
  work().Borrando = true;
  enlarged().ListZoom.on_right_click();
  EXPECT_EQ(media.URL(), a);
  work().Borrando = false;
}

TEST_F(DetailWindows, an_enlarged_list_that_is_closed_while_a_file_is_read_plays_nothing) {
  start();
  const std::string a = stored("a.wav");
  bool once = true;
  backend.on_pump = [&] {
    if (std::exchange(once, false)) program.windows.close<audio::ListasZoom>();
  };
  click_enlarged(a);
  EXPECT_FALSE(once);
  EXPECT_EQ(media.URL(), "");
}

TEST_F(DetailWindows, the_enlarged_list_stands_where_it_was_and_as_large) {
  start("ListasZoom_Left=33\r\nListasZoom_Top=44\r\n");
  EXPECT_EQ(enlarged().position(), (ui::Point{33, 44}));
  enlarged().moved_to({50, 60});
  enlarged().resized_to({700, 500});
  enlarged().on_close();
  program.windows.free_closed();
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "ListasZoom_Left", ""), "50");
  EXPECT_EQ(enlarged().position(), (ui::Point{50, 60}));
  EXPECT_EQ(enlarged().size(), (ui::Size{700, 500}));
}

}  // namespace
}  // namespace ordelan::test
