// The search for one lost file, in the whole program without a screen.
#include <gmock/gmock.h>

#include "location/path_choice_window.h"
#include "support/program_bench.h"
#include "text/numbers.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct LostFileSearch : ::testing::Test {
  LostFileSearch() {
    bench.drives.drives.clear();
    d = bench.add_drive("d");
    e = bench.add_drive("e");
    f = bench.add_drive("f", system::DriveType::removable);
  }

  bool search(const std::string& file) {
    return bench.buscar().BuscarEnTodasUnidades(file, bench.form.lists.ListVip);
  }
  std::string strip() const { return bench.form.strip.TextDecode.text(); }
  const std::vector<std::string>& hits() { return bench.buscar().List2.rows(); }

  ProgramBench bench;
  std::string d, e, f;
};

TEST_F(LostFileSearch, a_file_at_the_same_path_on_another_drive_is_taken_without_a_walk) {
  bench.disk.write("e\\Mix\\toma.wav", "");
  bench.disk.write("f\\Otra\\toma.wav", "");
  bench.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, e + "Mix\\toma.wav");
  EXPECT_THAT(hits(), IsEmpty());
  EXPECT_EQ(strip(),
            "El archivo: X:\\Mix\\toma.wav\r\nHa sido encontrado en \r\n" + e + "Mix\\toma.wav");
  EXPECT_EQ(bench.form.strip.TextDecode.back_color(), ui::Color{0xFFFFC0});
  EXPECT_TRUE(bench.form.strip.TextDecode.visible());
}

TEST_F(LostFileSearch, of_several_drives_with_the_same_path_the_last_one_counts) {
  for (const char* drive : {"d", "e", "f"}) {
    bench.disk.write(std::string(drive) + "\\Mix\\toma.wav", "");
  }
  bench.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, f + "Mix\\toma.wav");
}

TEST_F(LostFileSearch, a_folder_at_the_same_path_is_not_the_file) {
  bench.disk.make_folder("e\\Mix\\toma.wav");
  bench.start();
  EXPECT_FALSE(search("X:\\Mix\\toma.wav"));
}

TEST_F(LostFileSearch, a_bare_name_has_no_same_path_to_be_tried) {
  bench.disk.write("e\\toma.wav", "");
  bench.start();
  EXPECT_FALSE(bench.buscar().BuscarOtraLetra("toma.wav"));
  EXPECT_FALSE(bench.buscar().BuscarOtraLetra("to"));
  EXPECT_EQ(bench.work.ArchivoActual, "");
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, e + "toma.wav");
}

TEST_F(LostFileSearch, a_bare_name_is_not_taken_for_a_path_that_begins_like_it) {
  bench.disk.write("d\\a.wav", "");  // what is left of the name after three letters
  bench.start();
  EXPECT_FALSE(bench.buscar().BuscarOtraLetra("toma.wav"));
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, "");
}

TEST_F(LostFileSearch, the_same_path_is_tried_on_ticked_drives_alone_and_each_is_named) {
  for (const char* drive : {"d", "e", "f"}) bench.disk.write(std::string(drive) + "\\toma.wav", "");
  bench.start();
  bench.boxes().Check1[2].set_checked(false);
  EXPECT_TRUE(bench.buscar().BuscarOtraLetra("X:\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, e + "toma.wav");
  EXPECT_EQ(strip(), "Buscando: X:\\toma.wav\r\nEn la Unidad: " + e + "\r\nESPERAR");
  EXPECT_TRUE(bench.form.strip.TextDecode.visible());
  bench.boxes().Check1[1].set_checked(false);
  EXPECT_TRUE(bench.buscar().BuscarOtraLetra("X:\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "toma.wav");
  bench.boxes().Check1[0].set_checked(false);
  EXPECT_FALSE(bench.buscar().BuscarOtraLetra("X:\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "toma.wav") << "as it was";
}

TEST_F(LostFileSearch, a_bare_name_may_be_a_pattern) {
  bench.disk.write("d\\a\\toma.wav", "");
  bench.start();
  EXPECT_TRUE(search("to?a.w*"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "a\\toma.wav");
}

TEST_F(LostFileSearch, begins_with_its_lists_emptied_and_no_notice_of_a_decode) {
  bench.start();
  for (ui::ListBox* list : {&bench.buscar().List1, &bench.buscar().List2}) list->add("before");
  bench.form.strip.LabelAviso.show();
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_TRUE(bench.buscar().List1.empty());
  EXPECT_THAT(hits(), IsEmpty());
  EXPECT_FALSE(bench.form.strip.LabelAviso.visible());
}

TEST_F(LostFileSearch, one_hit_of_the_walk_is_the_file) {
  bench.disk.write("f\\Otra\\Toma.wav", "");
  bench.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, f + "Otra\\Toma.wav");
  EXPECT_THAT(hits(), ElementsAre(f + "Otra\\Toma.wav"));
  EXPECT_EQ(strip(),
            "El archivo: X:\\Mix\\toma.wav\r\nHa sido encontrado en: \r\n" + f + "Otra\\Toma.wav");
}

TEST_F(LostFileSearch, of_several_hits_the_first_is_taken_and_all_are_reported) {
  bench.disk.write("d\\a\\toma.wav", "");
  bench.disk.write("f\\b\\toma.wav", "");
  bench.start();
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "a\\toma.wav");
  EXPECT_EQ(strip(), "El archivo: X:\\Mix\\toma.wav\r\nHa sido encontrado en 2 unidades\r\n" + d +
                         "a\\toma.wav\r\n" + f + "b\\toma.wav");
}

TEST_F(LostFileSearch, a_file_that_is_nowhere_is_reported) {
  bench.start();
  EXPECT_FALSE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(strip(), "El archivo: \r\nX:\\Mix\\toma.wav\r\nNo existe\r\nEn ninguna unidad");
  EXPECT_EQ(bench.form.strip.TextDecode.back_color(), ui::Color{0x8080EE});
  EXPECT_FALSE(bench.form.clocks.TimerLap.running());
  EXPECT_EQ(bench.form.clocks.TextLapsoTotal.back_color(), ui::Color::window_background);
}

TEST_F(LostFileSearch, a_name_that_is_none_ends_the_search) {
  bench.start();
  bench.form.strip.TextDecode.set_text("antes");
  EXPECT_FALSE(search(""));
  EXPECT_FALSE(search("D:\\Mix\\"));
  EXPECT_EQ(strip(), "antes");
}

TEST_F(LostFileSearch, only_ticked_drives_are_searched) {
  bench.disk.write("d\\toma.wav", "");
  bench.start();
  bench.boxes().Check1[0].set_checked(false);
  EXPECT_FALSE(search("toma.wav"));
  bench.boxes().Check1[0].set_checked(true);
  EXPECT_TRUE(search("toma.wav"));
}

TEST_F(LostFileSearch, without_a_ticked_drive_nothing_is_searched) {
  bench.disk.write("d\\toma.wav", "");
  bench.start();
  for (auto& box : bench.boxes().Check1) box->set_checked(false);
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_EQ(strip(),
            "AVISO \r\nNO HAY NIGUNA UNIDAD DE DISCO\r\nSeleccionada para buscar este archivo");
  EXPECT_FALSE(bench.form.clocks.TimerLap.running());
}

// The word is spelt so: files in a folder of this name are no hits, those in the
// system's own bins are.
TEST_F(LostFileSearch, a_hit_in_a_folder_named_RECICLER_is_ignored) {
  bench.disk.write("d\\RECICLER\\toma.wav", "");
  bench.start();
  EXPECT_FALSE(search("toma.wav"));
  bench.disk.write("d\\RECYCLER\\toma.wav", "");
  bench.disk.write("d\\recicler 2\\toma.wav", "");
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(hits().size(), 2u);
}

TEST_F(LostFileSearch, a_longer_extension_that_begins_alike_is_another_file) {
  bench.disk.write("d\\toma.flac", "");
  bench.start();
  EXPECT_FALSE(search("X:\\toma.fla"));
}

// In the finder's list ";" parts extensions.
TEST_F(LostFileSearch, a_name_with_a_semicolon_is_found_and_nothing_else) {
  bench.disk.write("d\\b\\a;b.wav", "");
  bench.disk.write("d\\b\\axb.wav", "");
  bench.disk.write("d\\b\\otra.a", "");
  bench.start();
  EXPECT_TRUE(search("X:\\a;b.wav"));
  EXPECT_THAT(hits(), ElementsAre(d + "b\\a;b.wav"));
}

TEST_F(LostFileSearch, the_strip_names_each_drive_while_it_is_searched) {
  bench.start();
  std::vector<std::string> texts;
  bench.backend.on_pump = [&] {
    if (texts.empty() || texts.back() != strip()) texts.push_back(strip());
    EXPECT_TRUE(bench.form.strip.TextDecode.visible());
  };
  bench.form.strip.TextDecode.hide();
  search("toma.wav");
  EXPECT_THAT(texts, ElementsAre("Buscando: toma.wav\r\nEn la Unidad: " + d + "\r\nESPERAR",
                                 "Buscando: toma.wav\r\nEn la Unidad: " + e + "\r\nESPERAR",
                                 "Buscando: toma.wav\r\nEn la Unidad: " + f + "\r\nESPERAR"));
}

TEST_F(LostFileSearch, the_clock_runs_during_the_search) {
  bench.start();
  bool ran = false;
  ui::Color color{};
  bench.backend.on_pump = [&] {
    ran = bench.form.clocks.TimerLap.running();
    color = bench.form.clocks.TextLapsoTotal.back_color();
  };
  search("toma.wav");
  EXPECT_TRUE(ran);
  EXPECT_EQ(color, ui::Color{0x8080FF});
  EXPECT_TRUE(bench.form.clocks.TextLapsoTotal.visible());
}

TEST_F(LostFileSearch, ends_with_the_time_that_it_took_and_the_usual_pointer) {
  work::Clocks& clocks = bench.form.clocks;
  bench.disk.write("d\\toma.wav", "");
  bench.start();
  clocks.LapsoDeco = 9;
  bench.form.set_waiting(true);
  bench.backend.on_pump = [&] { clocks.LapsoDeco = 3.5; };
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(clocks.TextLapsoTotal.text(), text::elapsed(3.5, ','));
  EXPECT_FALSE(bench.form.waiting());
  // A hit at the same path needs no turn of the window.
  clocks.LapsoDeco = 9;
  EXPECT_TRUE(search("X:\\toma.wav"));
  EXPECT_EQ(clocks.TextLapsoTotal.text(), text::elapsed(0, ','));
  EXPECT_FALSE(clocks.TimerLap.running());
}

TEST_F(LostFileSearch, the_clock_begins_anew_at_each_drive_also_at_one_that_is_not_ticked) {
  bench.start();
  for (const int box : {1, 2}) bench.boxes().Check1[box].set_checked(false);
  work::Clocks& clocks = bench.form.clocks;
  bench.backend.on_pump = [&] { clocks.LapsoDeco = 3.5; };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_EQ(clocks.TextLapsoTotal.text(), text::elapsed(0, ','));
}

TEST_F(LostFileSearch, a_cancel_ends_the_search_and_puts_the_strip_away) {
  for (int i = 0; i < 20; ++i) bench.disk.write("d\\" + std::to_string(i) + "\\x.wav", "");
  bench.disk.write("e\\toma.wav", "");
  bench.start();
  int pumps = 0;
  bench.backend.on_pump = [&] {
    if (++pumps == 5) bench.form.cmdCancelar_Click();
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_LT(pumps, 10);
  EXPECT_FALSE(bench.form.strip.TextDecode.visible());
  EXPECT_FALSE(bench.form.clocks.TimerLap.running());
  EXPECT_THAT(hits(), IsEmpty());
}

TEST_F(LostFileSearch, a_cancel_with_hits_in_hand_empties_the_window) {
  bench.disk.write("d\\toma.wav", "");
  for (int i = 0; i < 20; ++i) bench.disk.write("d\\" + std::to_string(i) + "\\x.wav", "");
  bench.disk.write("Mix\\tema.vip", project_of({bench.disk.path("Mix\\a.wav")}));
  bench.start();
  bench.open("Mix\\tema.vip");
  ASSERT_FALSE(bench.form.lists.ListProyectos.empty());
  int pumps = 0;
  bench.backend.on_pump = [&] {
    if (++pumps == 8) bench.form.cmdCancelar_Click();
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_TRUE(bench.form.lists.empty());
}

TEST_F(LostFileSearch, a_search_after_a_cancelled_one_begins_afresh) {
  bench.disk.write("d\\a\\toma.wav", "");
  for (int i = 0; i < 20; ++i) bench.disk.write("d\\" + std::to_string(i) + "\\x.wav", "");
  bench.disk.write("f\\otra.wav", "");
  bench.start();
  int pumps = 0;
  bench.backend.on_pump = [&] {
    if (++pumps == 5) bench.form.cmdCancelar_Click();
  };
  ASSERT_FALSE(search("toma.wav"));
  ASSERT_GE(pumps, 5);
  bench.backend.on_pump = nullptr;
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "a\\toma.wav");
  EXPECT_THAT(hits(), ElementsAre(d + "a\\toma.wav"));
  EXPECT_FALSE(bench.work.Cancelar);
  EXPECT_TRUE(search("otra.wav")) << "on the last of the drives";
  EXPECT_THAT(hits(), ElementsAre(f + "otra.wav")) << "hits of the search before are gone";
  EXPECT_FALSE(search("ninguna.wav"));
  EXPECT_THAT(hits(), IsEmpty());
  EXPECT_FALSE(bench.form.clocks.TimerLap.running());
}

TEST_F(LostFileSearch, a_reset_ends_the_search_and_nothing_is_shown_on_the_emptied_window) {
  for (int i = 0; i < 20; ++i) bench.disk.write("d\\" + std::to_string(i) + "\\toma.wav", "");
  bench.start();
  int pumps = 0;
  bench.backend.on_pump = [&] {
    if (++pumps == 5) bench.form.cmdReset_Click();
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_LT(pumps, 10);
  EXPECT_FALSE(bench.form.strip.TextDecode.visible());
  EXPECT_EQ(bench.form.clocks.TextLapsoTotal.text(), "");
}

TEST_F(LostFileSearch, a_second_search_during_a_search_does_no_harm) {
  bench.disk.write("d\\uno.wav", "");
  bench.disk.write("e\\dos.wav", "");
  bench.start();
  bool second = true;
  bench.in_the_middle([] { return true; }, [&] { second = search("dos.wav"); });
  EXPECT_TRUE(search("uno.wav"));
  EXPECT_FALSE(second);
  EXPECT_EQ(bench.work.ArchivoActual, d + "uno.wav");
  EXPECT_THAT(hits(), ElementsAre(d + "uno.wav"));
}

TEST_F(LostFileSearch, a_folder_dropped_during_a_search_takes_its_place) {
  for (int i = 0; i < 20; ++i) bench.disk.write("d\\" + std::to_string(i) + "\\toma.wav", "");
  bench.disk.write("Mix\\tema.vip", project_of({bench.disk.path("Mix\\a.wav")}));
  bench.start();
  bench.in_the_middle([] { return true; },
                      [&] { bench.form.ListProyectos_Drop({bench.disk.path("Mix")}); });
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_EQ(bench.form.lists.ListProyectos.count(), 1u);
  EXPECT_EQ(bench.form.lists.ListVip.count(), 1u);
}

// A job that has been cancelled looks for that at its next turn, and the search has turns of its
// own.
TEST_F(LostFileSearch, ends_a_job_that_was_cancelled_and_has_not_looked_yet) {
  bench.disk.write("d\\toma.wav", "");
  bench.start();
  const work::Job cancelled = work::Job::begin(bench.work, bench.platform);
  bench.work.Cancelar = true;
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_FALSE(bench.work.Cancelar);
  EXPECT_TRUE(cancelled.must_stop());
}

TEST_F(LostFileSearch, a_cancel_that_a_decode_or_an_update_waits_for_stays_and_ends_it) {
  bench.disk.write("d\\a\\toma.wav", "");
  bench.start();
  for (bool* const busy : {&bench.work.Descodificando, &bench.work.ModoPosiciones}) {
    *busy = true;
    bench.work.Cancelar = true;
    bench.form.strip.LabelAviso.show();
    const auto job = bench.work.current_job();
    EXPECT_FALSE(search("toma.wav"));
    EXPECT_TRUE(bench.work.Cancelar);
    EXPECT_FALSE(bench.work.superseded(job)) << "it is a part of that job";
    EXPECT_TRUE(bench.form.strip.LabelAviso.visible());
    bench.work.Cancelar = false;
    EXPECT_TRUE(search("toma.wav"));
    EXPECT_FALSE(bench.work.superseded(job));
    *busy = false;
  }
}

// No disk has such a name: another file must not pass for it.
TEST_F(LostFileSearch, the_path_of_a_lost_file_is_no_pattern) {
  for (const char* name : {"toma.wav", "a;b.wav", "tom\xE1.wav"}) {
    bench.disk.write(std::string("d\\a\\") + name, "");
  }
  bench.start();
  for (const char* path : {"X:\\to?a.wav", "X:\\*.wav", "X:\\tom*.wav", "X:\\a?b.wav"}) {
    EXPECT_FALSE(search(path)) << path;
    EXPECT_THAT(hits(), IsEmpty()) << path;
  }
  EXPECT_TRUE(search("to?a.wav")) << "a bare name is one";
}

TEST_F(LostFileSearch, every_semicolon_of_a_name_is_a_letter_of_it) {
  bench.disk.write("d\\b\\a;b;c.wav", "");
  bench.disk.write("d\\b\\a;bxc.wav", "");
  bench.disk.write("d\\b\\otra.a", "");
  bench.start();
  for (const char* file : {"X:\\a;b;c.wav", "a;b;c.wav", "X:\\A;B;C.WAV"}) {
    EXPECT_TRUE(search(file)) << file;
    EXPECT_THAT(hits(), ElementsAre(d + "b\\a;b;c.wav")) << file;
  }
  EXPECT_TRUE(search("otra.a")) << "the search after it has no such name in mind";
}

TEST_F(LostFileSearch, reports_each_outcome_in_its_own_colour) {
  bench.disk.write("e\\Mix\\igual.wav", "");
  bench.disk.write("d\\a\\una.wav", "");
  bench.disk.write("d\\a\\dos.wav", "");
  bench.disk.write("d\\b\\dos.wav", "");
  bench.start();
  const ui::TextBox& shown = bench.form.strip.TextDecode;
  const auto color_of = [&](const char* file) {
    bench.form.strip.TextDecode.hide();
    search(file);
    EXPECT_TRUE(shown.visible()) << file;
    return shown.back_color();
  };
  for (const char* found : {"X:\\Mix\\igual.wav", "X:\\una.wav", "X:\\dos.wav"}) {
    EXPECT_EQ(color_of(found), ui::Color{0xFFFFC0}) << found;
  }
  EXPECT_EQ(color_of("X:\\nada.wav"), ui::Color{0x8080EE});
  for (auto& box : bench.boxes().Check1) box->set_checked(false);
  EXPECT_EQ(color_of("X:\\nada.wav"), ui::Color{0x8080EE});
}

// --- while projects are updated

struct LostFileChoice : LostFileSearch {
  LostFileChoice() {
    bench.disk.write("d\\a\\toma.wav", "");
    bench.disk.write("f\\b\\toma.wav", "");
    bench.start();
    bench.work.ModoPosiciones = true;
  }
  location::ElegirRuta* window() { return bench.windows.find<location::ElegirRuta>(); }
  bool up() { return bench.windows.visible("ElegirRuta"); }
};

TEST_F(LostFileChoice, several_hits_wait_for_the_users_choice) {
  int waited = 0;
  bench.backend.on_pump = [&] {
    if (!up() || ++waited < 3) return;
    EXPECT_THAT(window()->ListElegirRuta.rows(), ElementsAre(d + "a\\toma.wav", f + "b\\toma.wav"));
    EXPECT_TRUE(window()->topmost());
    window()->ListElegirRuta.chosen(1);
    window()->ListElegirRuta.on_click();
  };
  EXPECT_TRUE(search("X:\\Mix\\toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, f + "b\\toma.wav");
  EXPECT_EQ(waited, 3);
  EXPECT_EQ(window(), nullptr);
}

TEST_F(LostFileChoice, leaves_the_clock_of_the_update_running_in_its_colour) {
  bench.disk.remove("f\\b\\toma.wav");
  work::Clocks& clocks = bench.form.clocks;
  const ui::Color color{0x123456};
  clocks.TextLapsoTotal.set_back_color(color);
  bool changed = false;
  bench.backend.on_pump = [&] { changed = changed || clocks.TextLapsoTotal.back_color() != color; };
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_FALSE(changed);
  EXPECT_EQ(clocks.TextLapsoTotal.back_color(), color);
  EXPECT_TRUE(clocks.TimerLap.running());
}

TEST_F(LostFileChoice, the_windows_place_is_remembered_when_it_goes) {
  bench.in_the_middle([&] { return up(); },
                      [&] {
                        window()->set_position({77, 88});
                        window()->ListElegirRuta.chosen(0);
                        window()->ListElegirRuta.on_click();
                      });
  search("toma.wav");
  EXPECT_EQ(bench.settings.number("ElegirRuta_Left", 0), 77);
  EXPECT_EQ(bench.settings.number("ElegirRuta_Top", 0), 88);
}

// It is a choice too: the reference is emptied.
TEST_F(LostFileChoice, a_click_below_the_rows_chooses_no_path) {
  bench.in_the_middle([&] { return up(); }, [&] { window()->ListElegirRuta.on_click_below(); });
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, "");
}

TEST_F(LostFileChoice, the_keys_go_from_row_to_row_and_Enter_chooses) {
  int waited = 0;
  bench.backend.on_pump = [&] {
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
  EXPECT_EQ(bench.work.ArchivoActual, d + "a\\toma.wav");
}

TEST_F(LostFileChoice, closing_the_window_is_no_choice_and_the_wait_goes_on) {
  int waited = 0;
  bench.backend.on_pump = [&] {
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
  bench.in_the_middle([&] { return up(); }, [&] { bench.form.Salir_Click(); });
  EXPECT_FALSE(search("toma.wav"));
}

TEST_F(LostFileChoice, a_reset_ends_the_wait) {
  bench.in_the_middle([&] { return up(); }, [&] { bench.form.cmdReset_Click(); });
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_FALSE(up());
}

TEST_F(LostFileChoice, one_hit_is_taken_in_silence) {
  bench.disk.remove("f\\b");
  bench.form.clocks.TextLapsoTotal.set_back_color(ui::Color::window_background);
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "a\\toma.wav");
  EXPECT_EQ(strip(), "Buscando: toma.wav\r\nEn la Unidad: " + f + "\r\nESPERAR");
}

TEST_F(LostFileChoice, an_open_window_of_an_earlier_choice_is_filled_anew_and_asks_again) {
  auto& left_open = *bench.windows.touch<location::ElegirRuta>();
  left_open.ListElegirRuta.add("before");
  left_open.Elegido = true;
  bool asked = false;
  bench.in_the_middle([&] { return up() && window()->ListElegirRuta.count() > 1; },
                      [&] {
                        asked = true;
                        EXPECT_THAT(window()->ListElegirRuta.rows(),
                                    ElementsAre(d + "a\\toma.wav", f + "b\\toma.wav"));
                        EXPECT_GT(window()->ListElegirRuta.horizontal_extent(), 0);
                        window()->ListElegirRuta.chosen(1);
                        window()->ListElegirRuta.on_click();
                      });
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_TRUE(asked);
  EXPECT_EQ(bench.work.ArchivoActual, f + "b\\toma.wav");
}

TEST_F(LostFileChoice, a_window_that_is_taken_away_ends_the_wait_without_a_choice) {
  bench.in_the_middle([&] { return up(); }, [&] { bench.windows.close<location::ElegirRuta>(); });
  EXPECT_FALSE(search("toma.wav"));
}

TEST_F(LostFileChoice, a_newer_job_ends_the_wait_without_a_choice) {
  bench.in_the_middle([&] { return up(); }, [&] { bench.work.begin_job(); });
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_FALSE(up());
}

TEST_F(LostFileChoice, none_is_asked_for_where_there_is_no_hit) {
  bool asked = false;
  bench.backend.on_pump = [&] { asked = asked || up(); };
  EXPECT_FALSE(search("ninguna.wav"));
  EXPECT_FALSE(asked);
}

}  // namespace
}  // namespace ordelan::test
