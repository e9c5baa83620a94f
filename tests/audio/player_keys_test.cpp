// What the player has beside its buttons: keys for the place, its menu, what it says of a file.
#include <gmock/gmock.h>

#include "audio/zoom.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr int kHome = 36;
constexpr int kLeft = 37;
constexpr int kRight = 39;

struct PlayerKeys : testing::Test, SoundProgram {
  audio::Zoom& zoom() { return *program.windows.touch<audio::Zoom>(); }

  // A file that plays, at that second.
  void play(double seconds, double at) {
    sound().set_URL(song("a.wav", seconds));
    sound().Control_Click(audio::kPlay);
    media.set_currentPosition(at);
    media.orders.clear();
  }
  std::string text_of(const system::MenuItem& item) {
    return (item.ticked ? "*" : "") + item.text + (item.enabled ? "" : " (off)");
  }
  std::vector<std::string> last_menu() {
    std::vector<std::string> texts;
    for (const auto& item : dialogs.menus.back()) texts.push_back(text_of(item));
    return texts;
  }
  void choose(const std::string& text) {
    dialogs.choices = {text};
    player().on_context_menu(true);
  }
};

// --- keys

TEST_F(PlayerKeys, left_and_right_go_five_seconds_back_and_on) {
  start();
  play(100, 30);
  EXPECT_TRUE(press(player(), kRight));
  EXPECT_EQ(media.currentPosition(), 35);
  EXPECT_EQ(player().SliderTime.value(), 35);
  EXPECT_DOUBLE_EQ(player().ImageOnda.cursor(), 0.35);
  press(player(), kLeft);
  press(player(), kLeft);
  EXPECT_EQ(media.currentPosition(), 25);
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  sound().Control_Click(audio::kPause);
  press(player(), kRight);
  EXPECT_EQ(media.currentPosition(), 30);
  EXPECT_EQ(media.playState(), system::Media::kPaused);
}

TEST_F(PlayerKeys, home_goes_to_the_beginning) {
  start();
  play(100, 30);
  EXPECT_TRUE(press(player(), kHome));
  EXPECT_EQ(media.currentPosition(), 0);
  EXPECT_EQ(player().SliderTime.value(), 0);
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
}

TEST_F(PlayerKeys, a_step_goes_neither_before_the_beginning_nor_over_the_end) {
  start();
  play(100, 3);
  press(player(), kLeft);
  EXPECT_EQ(media.currentPosition(), 0);
  press(player(), kRight);
  EXPECT_EQ(media.currentPosition(), 5) << "from the beginning too";
  media.set_currentPosition(98);
  press(player(), kRight);
  EXPECT_EQ(media.currentPosition(), 99.5);
  media.set_currentPosition(99.75);
  press(player(), kRight);
  EXPECT_EQ(media.currentPosition(), 99.75) << "no step back";
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
}

TEST_F(PlayerKeys, without_a_file_that_plays_the_keys_move_nothing) {
  start();
  for (const int code : {kHome, kLeft, kRight}) EXPECT_TRUE(press(player(), code));
  sound().set_URL(song("a.wav", 100));
  sound().Control_Click(audio::kStop);
  media.orders.clear();
  for (const int code : {kHome, kLeft, kRight}) press(player(), code);
  sound().set_URL(song("corto.wav", 0.3));
  press(player(), kRight);
  EXPECT_THAT(media.orders, testing::Not(testing::Contains(testing::StartsWith("position"))));
}

TEST_F(PlayerKeys, the_slider_of_the_volume_has_them_for_itself) {
  start();
  play(100, 30);
  for (const int code : {kHome, kLeft, kRight}) {
    ui::Key key{.code = code, .focus = &player().SliderVol};
    player().on_key_down(key);
    EXPECT_FALSE(key.swallowed);
    EXPECT_EQ(media.currentPosition(), 30);
  }
  ui::Key key{.code = kLeft, .focus = &player().SliderTime};
  player().on_key_down(key);
  EXPECT_TRUE(key.swallowed);
  EXPECT_EQ(media.currentPosition(), 25);
}

TEST_F(PlayerKeys, with_shift_or_control_they_are_left_to_the_control) {
  start();
  play(100, 30);
  for (const bool shift : {false, true}) {
    ui::Key key{.code = kRight, .shift = shift, .control = !shift};
    player().on_key_down(key);
    EXPECT_FALSE(key.swallowed);
  }
  ui::Key other{.code = kRight + 1};
  player().on_key_down(other);
  EXPECT_FALSE(other.swallowed);
  EXPECT_EQ(media.currentPosition(), 30);
}

// --- its menu

TEST_F(PlayerKeys, its_menu_offers_the_devices_and_marks_the_chosen_one) {
  media.plugged_in = {{"id-a", "Altavoces"}, {"id-b", "Cascos"}};
  start();
  player().on_context_menu(false);
  EXPECT_THAT(last_menu(),
              ElementsAre("Información del archivo (off)", "", "*Salida: la del sistema",
                          "Salida: Altavoces", "Salida: Cascos"));
  EXPECT_EQ(media.device(), "") << "it was put away";
  choose("Salida: Cascos");
  EXPECT_EQ(media.device(), "id-b");
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "Salida", "none"), "id-b");
  choose("Salida: la del sistema");
  EXPECT_THAT(last_menu(),
              ElementsAre("Información del archivo (off)", "", "Salida: la del sistema",
                          "Salida: Altavoces", "*Salida: Cascos"));
  EXPECT_EQ(media.device(), "");
  EXPECT_EQ(settings.LeerIni(settings.RutaConfig, "Salida", "none"), "");
}

TEST_F(PlayerKeys, its_menu_comes_where_it_was_asked_for_and_puts_the_notice_away) {
  start();
  disk.write("a.wav", "x");
  play(100, 30);
  player().AvisoPL.show();
  player().on_context_menu(false);
  player().on_context_menu(true);
  EXPECT_THAT(dialogs.menu_places,
              ElementsAre(system::MenuPlace::pointer, system::MenuPlace::focus));
  EXPECT_FALSE(player().AvisoPL.visible());
  EXPECT_FALSE(player().Bal.exists()) << "nothing was chosen";
}

TEST_F(PlayerKeys, the_choice_of_a_device_leaves_volume_and_place) {
  media.plugged_in = {{"id-a", "Altavoces"}};
  start("Volumen=35\r\n");
  play(100, 30);
  choose("Salida: Altavoces");
  EXPECT_THAT(media.orders, ElementsAre("device id-a"));
  EXPECT_EQ(media.volume(), 35);
  EXPECT_EQ(media.currentPosition(), 30);
}

TEST_F(PlayerKeys, the_device_is_that_of_the_last_start_also_for_a_new_engine) {
  start("Salida=id-b\r\n");
  EXPECT_EQ(media.device(), "id-b");
  spectrum().Close_Click();
  EXPECT_EQ(media.device(), "");
  program.windows.free_closed();
  spectrum();
  EXPECT_EQ(media.device(), "id-b");
}

TEST_F(PlayerKeys, the_menu_can_outlive_the_window_and_the_file) {
  media.plugged_in = {{"id-a", "Altavoces"}};
  start();
  play(100, 30);
  dialogs.on_dialog = [&] { sound().set_URL(""); };
  choose("Información del archivo");
  EXPECT_FALSE(player().Bal.exists());
  dialogs.on_dialog = [&] { player().CloseW.on_click(); };
  choose("Salida: Altavoces");
  EXPECT_EQ(media.device(), "");
}

// --- what it says of a file

TEST_F(PlayerKeys, the_balloon_has_size_date_and_what_is_known_of_the_file) {
  start();
  const std::string path = song("a.ogg", 100);
  disk.write("a.ogg", std::string(1'600'000, 'x'));
  player().show();
  player().MostrarInfoArchivo(player().PictureLD, path, "Tema");
  const std::string text =
      " Tamaño: 1,5 Mb\r\n Fecha: " + regional.date_and_time(faulty.info(path)->modified) +
      "\r\nNo tiene información";
  EXPECT_EQ(player().Bal.tip_text(), text);
  EXPECT_EQ(sound().info.TextoToolTip, text);
  EXPECT_EQ(player().Bal.title(), "Tema");
  EXPECT_EQ(program.work.ArchivoActual, path);
  const ui::Rect& frame = player().PictureLD.bounds();
  EXPECT_EQ(player().Bal.shown(),
            (ui::Class1::Place{&player(), {frame.left + frame.width, frame.top + frame.height}}));
}

TEST_F(PlayerKeys, its_balloon_is_a_plain_box_of_its_own_colour) {
  start();
  EXPECT_EQ(player().Bal.back_color(), static_cast<ui::Color>(0xC0E0FF));
  EXPECT_EQ(player().Bal.style(), 0);
  EXPECT_EQ(player().Bal.icon(), 1);
  EXPECT_EQ(player().Bal.delay_time(), 10);
}

TEST_F(PlayerKeys, sizes_are_rounded_to_one_decimal_that_is_left_out_at_zero) {
  start();
  const auto size_line = [&](std::size_t size) {
    const std::string path = disk.path("a.ogg");
    disk.write("a.ogg", std::string(size, 'x'));
    player().MostrarInfoArchivo(player().PictureLD, path, "");
    return player().Bal.tip_text().substr(0, player().Bal.tip_text().find("\r\n"));
  };
  EXPECT_EQ(size_line(0), " Tamaño: 0 Mb");
  EXPECT_EQ(size_line(1000), " Tamaño: 0 Mb");
  EXPECT_EQ(size_line(1 << 20), " Tamaño: 1 Mb");
  EXPECT_EQ(size_line(2'202'010), " Tamaño: 2,1 Mb");
}

TEST_F(PlayerKeys, the_kind_of_a_file_is_taken_as_it_is_spelt) {
  start();
  const std::string tail = "No tiene información";
  for (const auto& [name, known] : {std::pair{"a.wav", true}, {"b.WAV", false}, {"c.mp3", true}}) {
    disk.write(name, std::string(300, 'x'));
    player().MostrarInfoArchivo(player().PictureLD, disk.path(name), "");
    EXPECT_EQ(!player().Bal.tip_text().ends_with(tail), known) << name;
  }
}

TEST_F(PlayerKeys, of_a_missing_file_no_balloon_is_shown) {
  start();
  disk.write("a.ogg", "x");
  player().MostrarInfoArchivo(player().PictureLD, disk.path("a.ogg"), "");
  ASSERT_TRUE(player().Bal.exists());
  player().MostrarInfoArchivo(player().PictureLD, disk.path("falta.ogg"), "");
  EXPECT_FALSE(player().Bal.exists());
  EXPECT_EQ(program.work.ArchivoActual, disk.path("falta.ogg"));
}

TEST_F(PlayerKeys, the_menu_shows_it_for_what_is_loaded) {
  start();
  disk.write("a.wav", "x");
  play(100, 30);
  choose("Información del archivo");
  EXPECT_THAT(last_menu(), ElementsAre("Información del archivo", "", "*Salida: la del sistema"));
  EXPECT_TRUE(player().Bal.shown());
  EXPECT_EQ(player().Bal.title(), "a.wav");
}

TEST_F(PlayerKeys, a_click_or_a_key_puts_balloon_and_notice_away) {
  start();
  disk.write("a.wav", "x");
  play(100, 30);
  const std::vector<std::function<void()>> acts = {[&] { player().on_mouse_down(); },
                                                   [&] { press(player(), kLeft); }};
  for (const auto& act : acts) {
    choose("Información del archivo");
    act();
    EXPECT_FALSE(player().Bal.exists());
  }
  player().AvisoPL.show();
  player().on_mouse_down();
  EXPECT_FALSE(player().AvisoPL.visible());
}

TEST_F(PlayerKeys, a_click_on_a_row_of_the_playlist_shows_what_is_known_of_its_file) {
  start();
  disk.write("a.WAV", std::string((1 << 20) + (1 << 18), 'x'));
  zoom().show();
  zoom().fill({song("a.WAV", 100)});
  zoom().ListFilesZoom.set_current(0);
  zoom().ListFilesZoom.on_click();
  const std::string text = sound().rows.shown_text();
  EXPECT_THAT(text, testing::StartsWith(" Tamaño: 1,25 Mb\r\n Fecha: "));
  EXPECT_THAT(text, testing::HasSubstr("\r\n" + std::string(40, '-') + "\r\n"));
  EXPECT_THAT(text, testing::HasSubstr(" Tipo: Wav"));
  EXPECT_EQ(zoom().TextInfo.text(), text);
}

TEST_F(PlayerKeys, windows_that_go_while_a_file_is_read_leave_no_balloon) {
  start();
  disk.write("a.wav", std::string(300, 'x'));
  zoom().show();
  const std::vector<std::function<void()>> closings = {
      [&] { program.windows.close<audio::Zoom>(); }, [&] { player().CloseW.on_click(); }};
  for (const auto& close : closings) {
    ui::ListBox& list = zoom().ListFilesZoom;
    audio::Player& shown_by = player();
    backend.on_pump = close;
    shown_by.MostrarInfoArchivo(list, disk.path("a.wav"), "");
    backend.on_pump = {};
    EXPECT_FALSE(player().Bal.exists());
    EXPECT_THAT(sound().info.TextoToolTip, testing::Not(testing::HasSubstr("Tama")));
    program.windows.free_closed();
  }
}

}  // namespace
}  // namespace ordelan::test
