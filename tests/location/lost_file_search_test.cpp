// The search for one lost file, in the whole program without a screen.
#include <gmock/gmock.h>

#include "location/path_choice.h"
#include "location/path_choice_window.h"
#include "support/desk.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct LostFileSearch : ::testing::Test {
  LostFileSearch() {
    desk.drives.drives.clear();
    d = desk.add_drive("d");
    e = desk.add_drive("e");
    f = desk.add_drive("f", system::DriveType::removable);
  }

  bool search(const std::string& file) {
    return desk.buscar().BuscarEnTodasUnidades(file, desk.form.lists.ListVip);
  }
  std::string strip() const { return desk.form.strip.TextDecode.text(); }
  const std::vector<std::string>& hits() { return desk.buscar().List2.rows(); }

  Desk desk;
  std::string d, e, f;
};

TEST_F(LostFileSearch, a_file_at_the_same_path_on_another_drive_is_taken_without_a_walk) {
  desk.disk.write("e\\Mix\\toma.wav", "");
  desk.disk.write("f\\Otra\\toma.wav", "");
  desk.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, e + "Mix\\toma.wav");
  EXPECT_THAT(hits(), IsEmpty());
  EXPECT_EQ(strip(),
            "El archivo: X:\\Mix\\toma.wav\r\nHa sido encontrado en \r\n" + e + "Mix\\toma.wav");
  EXPECT_EQ(desk.form.strip.TextDecode.back_color(), ui::Color{0xFFFFC0});
  EXPECT_TRUE(desk.form.strip.TextDecode.visible());
}

TEST_F(LostFileSearch, of_several_drives_with_the_same_path_the_last_one_counts) {
  for (const char* drive : {"d", "e", "f"}) {
    desk.disk.write(std::string(drive) + "\\Mix\\toma.wav", "");
  }
  desk.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, f + "Mix\\toma.wav");
}

TEST_F(LostFileSearch, a_folder_at_the_same_path_is_not_the_file) {
  desk.disk.make_folder("e\\Mix\\toma.wav");
  desk.start();
  EXPECT_FALSE(search("X:\\Mix\\toma.wav"));
}

TEST_F(LostFileSearch, a_bare_name_has_no_same_path_to_be_tried) {
  desk.disk.write("e\\toma.wav", "");
  desk.start();
  EXPECT_FALSE(desk.buscar().BuscarOtraLetra("toma.wav"));
  EXPECT_FALSE(desk.buscar().BuscarOtraLetra("to"));
  EXPECT_EQ(desk.work.ArchivoActual, "");
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, e + "toma.wav");
}

TEST_F(LostFileSearch, one_hit_of_the_walk_is_the_file) {
  desk.disk.write("f\\Otra\\Toma.wav", "");
  desk.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, f + "Otra\\Toma.wav");
  EXPECT_THAT(hits(), ElementsAre(f + "Otra\\Toma.wav"));
  EXPECT_EQ(strip(),
            "El archivo: X:\\Mix\\toma.wav\r\nHa sido encontrado en: \r\n" + f + "Otra\\Toma.wav");
}

TEST_F(LostFileSearch, of_several_hits_the_first_is_taken_and_all_are_told) {
  desk.disk.write("d\\a\\toma.wav", "");
  desk.disk.write("f\\b\\toma.wav", "");
  desk.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, d + "a\\toma.wav");
  EXPECT_EQ(strip(), "El archivo: X:\\Mix\\toma.wav\r\nHa sido encontrado en 2 unidades\r\n" + d +
                         "a\\toma.wav\r\n" + f + "b\\toma.wav");
}

TEST_F(LostFileSearch, a_file_that_is_nowhere_is_told) {
  desk.start();
  EXPECT_FALSE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(strip(), "El archivo: \r\nX:\\Mix\\toma.wav\r\nNo existe\r\nEn ninguna unidad");
  EXPECT_EQ(desk.form.strip.TextDecode.back_color(), ui::Color{0x8080EE});
  EXPECT_FALSE(desk.form.clocks.TimerLap.running());
  EXPECT_EQ(desk.form.clocks.TextLapsoTotal.back_color(), ui::Color::window_background);
}

TEST_F(LostFileSearch, a_name_that_is_none_ends_the_search) {
  desk.start();
  desk.form.strip.TextDecode.set_text("antes");
  EXPECT_FALSE(search(""));
  EXPECT_FALSE(search("D:\\Mix\\"));
  EXPECT_EQ(strip(), "antes");
}

TEST_F(LostFileSearch, only_ticked_drives_are_searched) {
  desk.disk.write("d\\toma.wav", "");
  desk.start();
  desk.boxes().Check1[0].set_checked(false);
  EXPECT_FALSE(search("toma.wav"));
  desk.boxes().Check1[0].set_checked(true);
  EXPECT_TRUE(search("toma.wav"));
}

TEST_F(LostFileSearch, without_a_ticked_drive_nothing_is_searched) {
  desk.disk.write("d\\toma.wav", "");
  desk.start();
  for (auto& box : desk.boxes().Check1) box->set_checked(false);
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_EQ(strip(),
            "AVISO \r\nNO HAY NIGUNA UNIDAD DE DISCO\r\nSeleccionada para buscar este archivo");
  EXPECT_FALSE(desk.form.clocks.TimerLap.running());
}

// The word has always been spelt so: files in a folder of this name are no hits, those in the
// system's own bins are.
TEST_F(LostFileSearch, a_hit_in_a_folder_named_RECICLER_counts_for_nothing) {
  desk.disk.write("d\\RECICLER\\toma.wav", "");
  desk.start();
  EXPECT_FALSE(search("toma.wav"));
  desk.disk.write("d\\RECYCLER\\toma.wav", "");
  desk.disk.write("d\\recicler 2\\toma.wav", "");
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(hits().size(), 2u);
}

TEST_F(LostFileSearch, a_longer_extension_that_begins_alike_is_another_file) {
  desk.disk.write("d\\toma.flac", "");
  desk.start();
  EXPECT_FALSE(search("X:\\toma.fla"));
}

// In the finder's list ";" parts extensions.
TEST_F(LostFileSearch, a_name_with_a_semicolon_is_found_and_nothing_else) {
  desk.disk.write("d\\b\\a;b.wav", "");
  desk.disk.write("d\\b\\axb.wav", "");
  desk.disk.write("d\\b\\otra.a", "");
  desk.start();
  EXPECT_TRUE(search("X:\\a;b.wav"));
  EXPECT_THAT(hits(), ElementsAre(d + "b\\a;b.wav"));
}

TEST_F(LostFileSearch, the_strip_names_each_drive_while_it_is_searched) {
  desk.start();
  std::vector<std::string> texts;
  desk.backend.on_pump = [&] {
    if (texts.empty() || texts.back() != strip()) texts.push_back(strip());
  };
  search("toma.wav");
  EXPECT_THAT(texts, ElementsAre("Buscando: toma.wav\r\nEn la Unidad: " + d + "\r\nESPERAR",
                                 "Buscando: toma.wav\r\nEn la Unidad: " + e + "\r\nESPERAR",
                                 "Buscando: toma.wav\r\nEn la Unidad: " + f + "\r\nESPERAR"));
}

TEST_F(LostFileSearch, the_clock_runs_during_the_search) {
  desk.start();
  bool ran = false;
  ui::Color color{};
  desk.backend.on_pump = [&] {
    ran = desk.form.clocks.TimerLap.running();
    color = desk.form.clocks.TextLapsoTotal.back_color();
  };
  search("toma.wav");
  EXPECT_TRUE(ran);
  EXPECT_EQ(color, ui::Color{0x8080FF});
  EXPECT_TRUE(desk.form.clocks.TextLapsoTotal.visible());
}

TEST_F(LostFileSearch, a_cancel_ends_the_search_and_puts_the_strip_away) {
  for (int i = 0; i < 20; ++i) desk.disk.write("d\\" + std::to_string(i) + "\\x.wav", "");
  desk.disk.write("e\\toma.wav", "");
  desk.start();
  int pumps = 0;
  desk.backend.on_pump = [&] {
    if (++pumps == 5) desk.form.cmdCancelar_Click();
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_LT(pumps, 10);
  EXPECT_FALSE(desk.form.strip.TextDecode.visible());
  EXPECT_FALSE(desk.form.clocks.TimerLap.running());
  EXPECT_THAT(hits(), IsEmpty());
}

TEST_F(LostFileSearch, a_cancel_with_hits_in_hand_empties_the_window) {
  desk.disk.write("d\\toma.wav", "");
  for (int i = 0; i < 20; ++i) desk.disk.write("d\\" + std::to_string(i) + "\\x.wav", "");
  desk.disk.write("Mix\\tema.vip", project_of({desk.disk.path("Mix\\a.wav")}));
  desk.start();
  desk.open("Mix\\tema.vip");
  ASSERT_FALSE(desk.form.lists.ListProyectos.empty());
  int pumps = 0;
  desk.backend.on_pump = [&] {
    if (++pumps == 8) desk.form.cmdCancelar_Click();
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_TRUE(desk.form.lists.empty());
}

TEST_F(LostFileSearch, a_reset_ends_the_search_and_nothing_is_shown_on_the_emptied_window) {
  for (int i = 0; i < 20; ++i) desk.disk.write("d\\" + std::to_string(i) + "\\toma.wav", "");
  desk.start();
  int pumps = 0;
  desk.backend.on_pump = [&] {
    if (++pumps == 5) desk.form.cmdReset_Click();
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_LT(pumps, 10);
  EXPECT_FALSE(desk.form.strip.TextDecode.visible());
  EXPECT_EQ(desk.form.clocks.TextLapsoTotal.text(), "");
}

TEST_F(LostFileSearch, a_second_search_during_a_search_does_no_harm) {
  desk.disk.write("d\\uno.wav", "");
  desk.disk.write("e\\dos.wav", "");
  desk.start();
  bool second = true;
  desk.in_the_middle([] { return true; }, [&] { second = search("dos.wav"); });
  EXPECT_TRUE(search("uno.wav"));
  EXPECT_FALSE(second);
  EXPECT_EQ(desk.work.ArchivoActual, d + "uno.wav");
  EXPECT_THAT(hits(), ElementsAre(d + "uno.wav"));
}

TEST_F(LostFileSearch, a_folder_dropped_during_a_search_takes_its_place) {
  for (int i = 0; i < 20; ++i) desk.disk.write("d\\" + std::to_string(i) + "\\toma.wav", "");
  desk.disk.write("Mix\\tema.vip", project_of({desk.disk.path("Mix\\a.wav")}));
  desk.start();
  desk.in_the_middle([] { return true; },
                     [&] { desk.form.ListProyectos_Drop({desk.disk.path("Mix")}); });
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_EQ(desk.form.lists.ListProyectos.count(), 1u);
  EXPECT_EQ(desk.form.lists.ListVip.count(), 1u);
}

// --- while projects are updated

struct LostFileChoice : LostFileSearch {
  LostFileChoice() {
    desk.disk.write("d\\a\\toma.wav", "");
    desk.disk.write("f\\b\\toma.wav", "");
    desk.start();
    desk.work.ModoPosiciones = true;
  }
  location::ElegirRuta* window() {
    return desk.windows.find_as<location::ElegirRuta>("ElegirRuta");
  }
  bool up() { return desk.windows.visible("ElegirRuta"); }
};

TEST_F(LostFileChoice, several_hits_wait_for_the_users_choice) {
  int waited = 0;
  desk.backend.on_pump = [&] {
    if (!up() || ++waited < 3) return;
    EXPECT_THAT(window()->ListElegirRuta.rows(), ElementsAre(d + "a\\toma.wav", f + "b\\toma.wav"));
    EXPECT_TRUE(window()->topmost());
    window()->ListElegirRuta.chosen(1);
    window()->ListElegirRuta.on_click();
  };
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, f + "b\\toma.wav");
  EXPECT_EQ(waited, 3);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(LostFileChoice, the_windows_place_is_remembered_when_it_goes) {
  desk.in_the_middle([&] { return up(); },
                     [&] {
                       window()->set_position({77, 88});
                       window()->ListElegirRuta.chosen(0);
                       window()->ListElegirRuta.on_click();
                     });
  search("toma.wav");
  EXPECT_EQ(desk.settings.number("ElegirRuta_Left", 0), 77);
  EXPECT_EQ(desk.settings.number("ElegirRuta_Top", 0), 88);
}

// It has always been a choice: the reference is emptied.
TEST_F(LostFileChoice, a_click_below_the_rows_chooses_no_path) {
  desk.in_the_middle([&] { return up(); }, [&] { window()->ListElegirRuta.on_click_below(); });
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, "");
}

TEST_F(LostFileChoice, the_keys_go_from_row_to_row_and_Enter_chooses) {
  int waited = 0;
  desk.backend.on_pump = [&] {
    if (!up()) return;
    ui::ListBox& list = window()->ListElegirRuta;
    if (++waited < 5) {
      list.on_key(40);
      list.chosen(waited % 2, true);
      list.on_click();
      EXPECT_FALSE(window()->Elegido);
    } else {
      list.on_key(13);
    }
  };
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(waited, 5);
  EXPECT_EQ(desk.work.ArchivoActual, d + "a\\toma.wav");
}

TEST_F(LostFileChoice, closing_the_window_is_no_choice_and_the_wait_goes_on) {
  int waited = 0;
  desk.backend.on_pump = [&] {
    if (!up()) return;
    if (++waited == 1 && window()->on_close) window()->on_close();
    if (waited == 4) {
      window()->ListElegirRuta.chosen(1);
      window()->ListElegirRuta.on_click();
    }
  };
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(waited, 4);
}

TEST_F(LostFileChoice, the_end_of_the_program_ends_the_wait) {
  desk.in_the_middle([&] { return up(); }, [&] { desk.form.Salir_Click(); });
  EXPECT_FALSE(search("toma.wav"));
}

TEST_F(LostFileChoice, a_reset_ends_the_wait) {
  desk.in_the_middle([&] { return up(); }, [&] { desk.form.cmdReset_Click(); });
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_FALSE(up());
}

TEST_F(LostFileChoice, one_hit_is_taken_in_silence) {
  desk.disk.remove("f\\b");
  desk.form.clocks.TextLapsoTotal.set_back_color(ui::Color::window_background);
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(desk.work.ArchivoActual, d + "a\\toma.wav");
  EXPECT_EQ(strip(), "Buscando: toma.wav\r\nEn la Unidad: " + f + "\r\nESPERAR");
}

}  // namespace
}  // namespace ordelan::test
