// The keys of the windows: Escape, F5, Ctrl+O, and those of the lists.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "audio/lists_zoom.h"
#include "audio/player.h"
#include "audio/sa.h"
#include "audio/zoom.h"
#include "location/lost_file_window.h"
#include "location/path_choice_window.h"
#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "support/update_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr int kApps = 93;
constexpr int kF5 = 116;
constexpr int kF10 = 121;
constexpr int kEnd = 35;

struct WindowKeys : ::testing::Test, UpdateBench {
  void open_studio() {
    disk.write("Mix\\a.wav", "x");
    project("Mix\\tema.vip", {"Mix\\a.wav"});
    start();
    open("Mix\\tema.vip");
  }
  // Presses a key on a window; gives whether the window kept it for itself.
  static bool press(ui::Window& window, ui::Key key) {
    window.on_key_down(key);
    return key.swallowed;
  }
  ui::ListBox& vip() { return form.lists.ListVip; }
};

TEST_F(WindowKeys, escape_closes_a_window_as_its_own_button_does) {
  open_studio();
  for (const char* const name : {"Player", "SA", "Zoom", "ListasZoom", "UnidadesBuscar", "Acerca",
                                 "BacUp", "ParaBorrar", "Recuperar", "FormNoBorrar"}) {
    ui::Window* const window = windows.touch(name);
    ASSERT_NE(window, nullptr) << name;
    window->show();
    window->on_escape();
    EXPECT_FALSE(windows.visible(name)) << name;
    windows.free_closed();
  }
}

TEST_F(WindowKeys, escape_leaves_the_choice_of_a_path_and_windows_of_a_run_open) {
  open_studio();
  work.Borrando = true;
  for (const char* const name : {"ElegirRuta", "BacUp", "ParaBorrar"}) {
    ui::Window* const window = windows.touch(name);
    window->show();
    window->on_escape();
    EXPECT_TRUE(windows.visible(name)) << name;
  }
  work.Borrando = false;
  windows.touch<location::ElegirRuta>()->on_escape();
  EXPECT_TRUE(windows.visible("ElegirRuta"));
}

TEST_F(WindowKeys, escape_in_the_main_window_cancels_only_what_can_be_cancelled) {
  open_studio();
  form.on_escape();
  EXPECT_FALSE(work.Cancelar);
  EXPECT_FALSE(backend.ended());
  in_the_middle([&] { return work.Descodificando; }, [&] { form.on_escape(); });
  open("Mix\\tema.vip");
  EXPECT_TRUE(form.lists.ListBorrar.empty() || !work.ListaBorrarCompleta);
}

TEST_F(WindowKeys, F5_opens_the_project_once_more_as_the_disk_has_it_now) {
  open_studio();
  disk.write("Mix\\b.wav", "x");
  project("Mix\\tema.vip", {"Mix\\a.wav", "Mix\\b.wav"});
  project("Mix\\otro.vip", {"Mix\\b.wav"});
  EXPECT_TRUE(press(form, {.code = kF5}));
  EXPECT_THAT(vip().rows(), SizeIs(2));
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(2));
  EXPECT_THAT(dialogs.requests, SizeIs(1)) << "nothing is picked again";
}

TEST_F(WindowKeys, F5_sweeps_once_more_what_was_dropped) {
  disk.write("Mix\\a.wav", "x");
  project("Mix\\tema.vip", {"Mix\\a.wav"});
  project("Mix\\fuera.vip", {"Mix\\a.wav"});
  start();
  press(form, {.code = kF5});
  EXPECT_TRUE(form.lists.empty()) << "nothing was opened yet";
  drop({"Mix\\tema.vip"});
  ASSERT_THAT(form.lists.ListProyectos.rows(), SizeIs(1));
  project("Mix\\tema.vip", {"Mix\\a.wav", "Mix\\b.wav"});
  press(form, {.code = kF5});
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(1));
  EXPECT_THAT(vip().rows(), SizeIs(2));
  open("Mix\\tema.vip");
  press(form, {.code = kF5});
  EXPECT_THAT(form.lists.ListProyectos.rows(), SizeIs(2)) << "the project was picked since";
}

TEST_F(WindowKeys, F5_keeps_to_the_guards_of_opening) {
  open_studio();
  project("Mix\\tema.vip", {"Mix\\a.wav", "Mix\\b.wav"});
  for (bool* const flag : {&work.Borrando, &work.Descodificando, &work.Actualizando}) {
    *flag = true;
    press(form, {.code = kF5});
    *flag = false;
    EXPECT_THAT(vip().rows(), SizeIs(1));
  }
  EXPECT_FALSE(press(form, {.code = kF5, .control = true}));
  EXPECT_THAT(vip().rows(), SizeIs(1));
}

TEST_F(WindowKeys, Ctrl_and_O_open_the_file_dialog) {
  open_studio();
  EXPECT_TRUE(press(form, {.code = 'O', .control = true}));
  EXPECT_THAT(dialogs.requests, SizeIs(2));
  EXPECT_FALSE(press(form, {.code = 'O'}));
  EXPECT_THAT(dialogs.requests, SizeIs(2));
}

TEST_F(WindowKeys, Enter_on_a_row_is_its_click_and_on_a_project_its_double_click) {
  open_studio();
  project("Mix\\voces.vip", {"Mix\\b.wav"});
  press(form, {.code = kF5});
  media.files[disk.path("Mix\\a.wav")] = {.duration = 60};
  vip().chosen(0);
  vip().on_enter();
  EXPECT_EQ(media.URL(), disk.path("Mix\\a.wav"));
  form.lists.ListProyectos.chosen(1);
  form.lists.ListProyectos.on_enter();
  EXPECT_THAT(vip().rows(), ElementsAre(disk.path("Mix\\b.wav")));
}

TEST_F(WindowKeys, arrows_move_and_play_nothing) {
  open_studio();
  for (ui::ListBox* const list :
       {&form.lists.ListProyectos, &vip(), &form.lists.ListUtilizados, &form.lists.ListBorrar,
        &windows.touch<audio::Zoom>()->ListFilesZoom,
        &windows.touch<audio::ListasZoom>()->ListZoom}) {
    EXPECT_TRUE(list->keys_move()) << list->name();
    EXPECT_TRUE(list->markable()) << list->name();
    EXPECT_FALSE(list->right_click_moves()) << list->name();
  }
  EXPECT_FALSE(windows.touch<removal::ParaBorrar>()->ListBorrar.markable());
  media.orders.clear();
  vip().key_down(40, 0, 10);
  EXPECT_EQ(vip().current(), 0);
  EXPECT_EQ(media.URL(), "");
}

TEST_F(WindowKeys, the_menu_key_shows_the_commands_of_the_list_that_has_the_focus) {
  open_studio();
  EXPECT_FALSE(press(form, {.code = kApps, .focus = &form.AbrirFichero}));
  EXPECT_THAT(dialogs.menus, SizeIs(0));
  EXPECT_TRUE(press(form, {.code = kApps, .focus = &vip()}));
  EXPECT_TRUE(press(form, {.code = kF10, .shift = true, .focus = &form.lists.ListProyectos}));
  EXPECT_FALSE(press(form, {.code = kF10, .focus = &vip()}));
  auto& zoom = *windows.touch<audio::Zoom>();
  EXPECT_TRUE(press(zoom, {.code = kApps, .focus = &zoom.ListFilesZoom}));
  auto& enlarged = *windows.touch<audio::ListasZoom>();
  EXPECT_TRUE(press(enlarged, {.code = kApps, .focus = &enlarged.ListZoom}));
  EXPECT_THAT(dialogs.menus, SizeIs(4));
}

TEST_F(WindowKeys, Ctrl_and_C_copy_the_path_of_the_list_that_has_the_focus) {
  open_studio();
  vip().chosen(0);
  EXPECT_FALSE(press(form, {.code = 'C', .control = true, .focus = &form.CheckBAK}));
  EXPECT_EQ(shell.clipboard, std::nullopt);
  EXPECT_TRUE(press(form, {.code = 'C', .control = true, .focus = &vip()}));
  EXPECT_EQ(shell.clipboard, disk.path("Mix\\a.wav"));
}

TEST_F(WindowKeys, End_stops_the_sound_and_stays_with_a_list_but_not_with_a_slider) {
  open_studio();
  auto& zoom = *windows.touch<audio::Zoom>();
  EXPECT_FALSE(press(form, {.code = kEnd, .focus = &vip()}));
  EXPECT_FALSE(press(zoom, {.code = kEnd, .focus = &zoom.ListFilesZoom}));
  EXPECT_TRUE(press(zoom, {.code = kEnd, .focus = &zoom.SliderVol}));
  auto& player = *windows.touch<audio::Player>();
  EXPECT_TRUE(press(player, {.code = kEnd, .focus = &player.SliderVol}));
}

}  // namespace
}  // namespace ordelan::test
