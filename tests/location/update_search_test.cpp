// The searches of an update of the projects, in the whole program without a screen.
#include "location/update_search.h"

#include <gmock/gmock.h>

#include "location/path_choice_window.h"
#include "support/hostile_bytes.h"
#include "support/program_bench.h"
#include "text/paths.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct UpdateSearchBench {
  explicit UpdateSearchBench(bool shared) {
    bench.drives.drives.clear();
    d = bench.add_drive("d");
    e = bench.add_drive("e");
    f = bench.add_drive("f", system::DriveType::removable);
    if (shared) update = std::make_unique<location::UpdateSearch>(bench.platform);
  }
  void start() {
    bench.start();
    bench.work.ModoPosiciones = true;
    bench.buscar().set_update(update.get());
  }

  bool search(const std::string& file) {
    return bench.buscar().BuscarEnTodasUnidades(file, bench.form.lists.ListVip);
  }
  std::string strip() const { return bench.form.strip.TextDecode.text(); }
  const std::vector<std::string>& hits() { return bench.buscar().List2.rows(); }
  location::ElegirRuta* window() { return bench.windows.find<location::ElegirRuta>(); }
  bool up() { return bench.windows.visible("ElegirRuta"); }

  ProgramBench bench;
  std::unique_ptr<location::UpdateSearch> update;
  std::string d, e, f;
};

// --- with and without

constexpr const char* kPlaces[] = {"d\\",    "d\\a\\",   "d\\a\\RECICLER\\", "d\\b\\", "e\\",
                                   "e\\a\\", "e\\[c]\\", "f\\RECICLER 2\\",  "f\\b\\", "f\\"};
constexpr const char* kFiles[] = {"toma.wav", "otra.wav", "a;b.wav",
                                  "axb.wav",  "[1].wav",  "\xF1.mp3"};
constexpr const char* kSearched[] = {
    "toma.wav",     "otra.wav",    "OTRA.wav",        "a;b.wav",  "[1].wav",     "\xD1.mp3",
    "nada.wav",     "to?a.wav",    "*.wav",           "",         "toma.wav.",   "X:\\a\\toma.wav",
    "X:\\toma.wav", "X:\\a;b.wav", "X:\\a\\nada.wav", "X:\\a\\*", "a\\toma.wav", "X:\\"};

TEST(UpdateSearchWorlds, finds_and_says_what_the_searches_without_it_do) {
  int found_some = 0;
  int several = 0;
  for (std::uint64_t seed = 0; seed < 40; ++seed) {
    Dice dice(seed);
    UpdateSearchBench alone(false);
    UpdateSearchBench shared(true);
    for (UpdateSearchBench* const each : {&alone, &shared}) each->bench.disk.make_folder("d\\a");
    for (std::size_t i = 5 + dice.below(15); i > 0; --i) {
      const std::string file = std::string(kPlaces[dice.below(std::size(kPlaces))]) +
                               kFiles[dice.below(std::size(kFiles))];
      for (UpdateSearchBench* const each : {&alone, &shared}) each->bench.disk.write(file, "");
    }
    const auto step = std::chrono::milliseconds(dice.below(2) == 0 ? 20 : 0);
    for (UpdateSearchBench* const each : {&alone, &shared}) {
      each->bench.clock.step = step;
      each->start();
      // The user takes the last row.
      each->bench.backend.on_pump = [each] {
        if (!each->up()) return;
        ui::ListBox& list = each->window()->ListElegirRuta;
        list.chosen(static_cast<int>(list.count()) - 1);
        list.on_click();
      };
    }
    // The folders of the two disks differ.
    const auto below = [](UpdateSearchBench& one, std::string text) {
      const std::string root = one.bench.disk.folder();
      for (auto at = text.find(root); at != std::string::npos; at = text.find(root)) {
        text.replace(at, root.size(), "@");
      }
      return text;
    };
    for (int i = 0; i < 20; ++i) {
      const auto box = static_cast<int>(dice.below(3));
      const bool ticked = dice.below(3) != 0;
      const std::string file = kSearched[dice.below(std::size(kSearched))];
      if (dice.below(4) == 0) {
        for (UpdateSearchBench* const each : {&alone, &shared}) {
          each->bench.boxes().Check1[box].set_checked(ticked);
        }
      }
      SCOPED_TRACE("seed " + std::to_string(seed) + ", " + file);
      if (dice.below(4) == 0) {
        ASSERT_EQ(alone.bench.buscar().BuscarOtraLetra(file),
                  shared.bench.buscar().BuscarOtraLetra(file));
        ASSERT_EQ(below(alone, alone.strip()), below(shared, shared.strip()));
      }
      const bool found = alone.search(file);
      ASSERT_EQ(shared.search(file), found);
      ASSERT_EQ(below(alone, alone.bench.work.ArchivoActual),
                below(shared, shared.bench.work.ArchivoActual));
      ASSERT_EQ(below(alone, alone.strip()), below(shared, shared.strip()));
      ASSERT_EQ(alone.bench.form.strip.TextDecode.back_color(),
                shared.bench.form.strip.TextDecode.back_color());
      ASSERT_EQ(alone.bench.form.clocks.TimerLap.running(),
                shared.bench.form.clocks.TimerLap.running());
      ASSERT_EQ(alone.hits().size(), shared.hits().size());
      for (std::size_t row = 0; row < alone.hits().size(); ++row) {
        ASSERT_EQ(below(alone, alone.hits()[row]), below(shared, shared.hits()[row]));
      }
      found_some += found ? 1 : 0;
      several += alone.hits().size() > 1 ? 1 : 0;
    }
  }
  EXPECT_GT(found_some, 200);
  EXPECT_GT(several, 50);
}

// --- texts, stops

struct UpdateOfProjects : ::testing::Test, UpdateSearchBench {
  UpdateOfProjects() : UpdateSearchBench(true) {}
};

TEST_F(UpdateOfProjects, walks_each_drive_once) {
  for (int i = 0; i < 20; ++i) bench.disk.write("d\\" + std::to_string(i) + ".wav", "");
  start();
  for (int i = 0; i < 20; ++i) update->index.expect(std::to_string(i) + ".wav");
  EXPECT_TRUE(search("3.wav"));
  bench.disk.write("d\\new.wav", "");
  EXPECT_TRUE(search("17.wav"));
  bench.disk.write("d\\5.WAV", "");
  EXPECT_TRUE(search("5.wav"));
  EXPECT_THAT(hits(), ElementsAre(d + "5.wav")) << "the other came after the walk";
  bench.buscar().set_update(nullptr);
  EXPECT_TRUE(search("new.wav"));
}

TEST_F(UpdateOfProjects, a_text_that_is_replaced_at_once_is_not_shown) {
  bench.disk.write("e\\toma.wav", "");
  start();
  bench.clock.step = std::chrono::milliseconds(0);
  ASSERT_TRUE(search("toma.wav"));
  std::vector<std::string> shown;
  bench.form.strip.TextDecode.set_text("before");
  const auto look = [&] { shown.push_back(strip()); };
  bench.backend.on_pump = look;
  ASSERT_TRUE(search("toma.wav"));
  ASSERT_FALSE(bench.buscar().BuscarOtraLetra("X:\\nada.wav"));
  look();
  EXPECT_EQ(shown.back(), "Buscando: X:\\nada.wav\r\nEn la Unidad: " + f + "\r\nESPERAR");
  for (const std::string& text : shown) {
    EXPECT_EQ(text.find("Buscando: toma.wav\r\nEn la Unidad: " + d), std::string::npos);
  }
  bench.clock.time += std::chrono::milliseconds(100);
  EXPECT_FALSE(search("nada.wav"));
  EXPECT_THAT(shown, Contains("Buscando: nada.wav\r\nEn la Unidad: " + d + "\r\nESPERAR"));
  EXPECT_EQ(strip(), "El archivo: \r\nnada.wav\r\nNo existe\r\nEn ninguna unidad");
}

TEST_F(UpdateOfProjects, a_text_that_was_not_due_is_shown_when_the_walk_takes_longer) {
  for (int i = 0; i < 30; ++i) bench.disk.make_folder("e\\" + std::to_string(i));
  start();
  bench.clock.step = std::chrono::milliseconds(20);
  std::vector<std::string> shown;
  bench.backend.on_pump = [&] { shown.push_back(strip()); };
  EXPECT_FALSE(search("nada.wav"));
  EXPECT_THAT(shown, Contains("Buscando: nada.wav\r\nEn la Unidad: " + e + "\r\nESPERAR"));
}

TEST_F(UpdateOfProjects, a_cancel_in_the_walk_ends_the_search_and_puts_the_strip_away) {
  for (int i = 0; i < 30; ++i) bench.disk.make_folder("d\\" + std::to_string(i));
  bench.disk.write("e\\toma.wav", "");
  start();
  int pumps = 0;
  bench.backend.on_pump = [&] {
    if (++pumps == 5) bench.work.Cancelar = true;
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_LT(pumps, 8);
  EXPECT_FALSE(bench.form.strip.TextDecode.visible());
  EXPECT_THAT(hits(), IsEmpty());
  EXPECT_FALSE(search("toma.wav")) << "the stop is that of the whole update";
  bench.work.Cancelar = false;
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, e + "toma.wav");
}

TEST_F(UpdateOfProjects, a_newer_job_ends_the_walk_and_keeps_its_strip) {
  for (int i = 0; i < 30; ++i) bench.disk.make_folder("d\\" + std::to_string(i));
  bench.disk.write("d\\toma.wav", "");
  start();
  int pumps = 0;
  bench.backend.on_pump = [&] {
    if (++pumps != 5) return;
    bench.work.begin_job();
    bench.form.strip.TextDecode.set_text("of the newer job");
  };
  EXPECT_FALSE(search("toma.wav"));
  EXPECT_LT(pumps, 8);
  EXPECT_EQ(strip(), "of the newer job");
}

TEST_F(UpdateOfProjects, a_hit_that_has_gone_meanwhile_is_looked_for_again) {
  bench.disk.write("d\\a\\toma.wav", "");
  start();
  ASSERT_TRUE(search("toma.wav"));
  bench.disk.remove("d\\a\\toma.wav");
  bench.disk.write("d\\b\\toma.wav", "");
  EXPECT_TRUE(search("toma.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "b\\toma.wav");
  EXPECT_THAT(hits(), ElementsAre(d + "b\\toma.wav"));
}

// --- the choice for a whole folder

struct ChoiceForFolder : UpdateOfProjects {
  ChoiceForFolder() {
    for (const char* name : {"1.wav", "2.wav", "3.wav"}) {
      bench.disk.write(std::string("d\\Mix\\") + name, "");
      bench.disk.write(std::string("f\\Copia\\") + name, "");
    }
    start();
    update->old_folder = "X:\\Old\\";
    bench.backend.on_pump = [this] {
      if (!up()) return;
      ++asked;
      if (answer) answer(*window());
      if (!row.empty()) {
        const auto& rows = window()->ListElegirRuta.rows();
        const auto at = std::find(rows.begin(), rows.end(), row);
        ASSERT_NE(at, rows.end()) << row;
        window()->ListElegirRuta.chosen(static_cast<int>(at - rows.begin()));
        window()->ListElegirRuta.on_click();
      }
    };
  }
  static void tick(location::ElegirRuta& window) {
    EXPECT_TRUE(window.CheckCarpeta.visible());
    EXPECT_FALSE(window.CheckCarpeta.checked());
    window.CheckCarpeta.toggle();
    EXPECT_FALSE(window.Elegido);
  }
  // Has row 1.wav of `f` chosen for the whole folder.
  void choose_f() {
    answer = tick;
    row = f + "Copia\\1.wav";
    EXPECT_TRUE(search("1.wav"));
    answer = nullptr;
    row.clear();
    ASSERT_EQ(std::exchange(asked, 0), 1);
  }

  int asked = 0;
  std::function<void(location::ElegirRuta&)> answer;  // what is done before the row is chosen
  std::string row;                                    // what is chosen; nothing where it is empty
};

TEST_F(ChoiceForFolder, stands_for_the_other_files_of_the_old_folder) {
  choose_f();
  EXPECT_EQ(bench.work.ArchivoActual, f + "Copia\\1.wav");
  update->old_folder = "x:\\OLD\\";
  for (const char* name : {"2.wav", "3.wav", "1.wav"}) {
    EXPECT_TRUE(search(name));
    EXPECT_EQ(bench.work.ArchivoActual, f + "Copia\\" + name);
    EXPECT_EQ(hits().size(), 2u);
  }
  EXPECT_EQ(asked, 0);
}

TEST_F(ChoiceForFolder, another_old_folder_is_asked_for_and_its_box_is_not_ticked) {
  choose_f();
  update->old_folder = "X:\\Old\\B\\";
  answer = [](auto& window) { EXPECT_FALSE(window.CheckCarpeta.checked()); };
  row = d + "Mix\\2.wav";
  EXPECT_TRUE(search("2.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "Mix\\2.wav");
  EXPECT_EQ(asked, 1);
}

TEST_F(ChoiceForFolder, a_choice_without_the_tick_is_for_its_file_alone) {
  row = f + "Copia\\1.wav";
  EXPECT_TRUE(search("1.wav"));
  EXPECT_TRUE(update->chosen.empty());
  EXPECT_TRUE(search("1.wav"));
  EXPECT_EQ(asked, 2);
}

TEST_F(ChoiceForFolder, a_name_without_a_hit_in_the_folder_is_asked_for) {
  bench.disk.write("d\\otra.wav", "");
  bench.disk.write("f\\Copia\\B\\otra.wav", "");
  choose_f();
  row = d + "otra.wav";
  EXPECT_TRUE(search("otra.wav"));
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(bench.work.ArchivoActual, d + "otra.wav");
}

TEST_F(ChoiceForFolder, a_single_hit_elsewhere_is_taken_all_the_same) {
  choose_f();
  bench.disk.write("d\\sola.wav", "");
  EXPECT_TRUE(search("sola.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "sola.wav");
  EXPECT_EQ(asked, 0);
}

TEST_F(ChoiceForFolder, several_hits_in_the_folder_are_asked_for) {
  choose_f();
  // Where case counts a folder may have two of one name.
  bench.disk.write("f\\Copia\\2.WAV", "");
  bench.buscar().set_update(update.get());
  row = d + "Mix\\2.wav";
  EXPECT_TRUE(search("2.wav"));
  const bool two_names = hits().size() == 3;
  EXPECT_EQ(asked, two_names ? 1 : 0);
}

TEST_F(ChoiceForFolder, an_empty_choice_is_not_kept) {
  answer = [](auto& window) {
    tick(window);
    window.ListElegirRuta.on_click_below();
  };
  EXPECT_TRUE(search("1.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, "");
  EXPECT_TRUE(update->chosen.empty());
}

TEST_F(ChoiceForFolder, a_newer_choice_takes_the_place_of_the_older) {
  bench.disk.write("d\\otra.wav", "");
  bench.disk.write("d\\B\\otra.wav", "");
  choose_f();
  answer = tick;
  row = d + "otra.wav";
  EXPECT_TRUE(search("otra.wav"));
  EXPECT_THAT(update->chosen, ElementsAre(std::pair(text::same_file_key("X:\\Old"), d)));
}

TEST_F(ChoiceForFolder, the_box_is_hidden_outside_of_an_update_and_where_there_is_no_old_folder) {
  row = f + "Copia\\1.wav";
  answer = [](auto& window) { EXPECT_FALSE(window.CheckCarpeta.visible()); };
  update->old_folder.clear();
  EXPECT_TRUE(search("1.wav"));
  bench.buscar().set_update(nullptr);
  EXPECT_TRUE(search("1.wav"));
  EXPECT_EQ(asked, 2);
  EXPECT_TRUE(update->chosen.empty());
}

TEST_F(ChoiceForFolder, a_box_that_was_ticked_in_a_window_left_open_is_off_again) {
  bench.windows.touch<location::ElegirRuta>()->CheckCarpeta.set_checked(true);
  bench.windows.hide<location::ElegirRuta>();
  bool seen = false;
  bench.backend.on_pump = [&] {
    if (window() == nullptr || window()->ListElegirRuta.empty()) return;
    seen = true;
    EXPECT_FALSE(window()->CheckCarpeta.checked());
    window()->ListElegirRuta.chosen(0);
    window()->ListElegirRuta.on_click();
  };
  EXPECT_TRUE(search("1.wav"));
  EXPECT_TRUE(seen);
}

TEST_F(ChoiceForFolder, the_last_text_is_on_the_strip_while_the_user_is_asked) {
  ASSERT_FALSE(search("ninguna.wav"));
  bench.clock.step = std::chrono::milliseconds(0);
  row = d + "Mix\\1.wav";
  std::string text;
  answer = [&](auto&) { text = strip(); };
  EXPECT_TRUE(search("1.wav"));
  EXPECT_EQ(text, "Buscando: 1.wav\r\nEn la Unidad: " + f + "\r\nESPERAR");
}

TEST_F(ChoiceForFolder, an_answer_in_place_of_the_window_is_taken) {
  std::vector<std::string> offered;
  std::optional<std::string> given = d + "Mix\\1.wav";
  update->on_several = [&](const auto& rows) {
    offered = rows;
    return given;
  };
  EXPECT_TRUE(search("1.wav"));
  EXPECT_EQ(bench.work.ArchivoActual, d + "Mix\\1.wav");
  EXPECT_THAT(offered, ElementsAre(d + "Mix\\1.wav", f + "Copia\\1.wav"));
  given.reset();
  EXPECT_FALSE(search("2.wav"));
  EXPECT_EQ(asked, 0);
  offered.clear();
  update->chosen[text::same_file_key("X:\\Old\\")] = f + "Copia\\";
  EXPECT_TRUE(search("2.wav"));
  EXPECT_THAT(offered, IsEmpty()) << "the folder answers before it";
  EXPECT_EQ(bench.work.ArchivoActual, f + "Copia\\2.wav");
}

}  // namespace
}  // namespace ordelan::test
