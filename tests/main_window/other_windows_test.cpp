// Which of the other windows go where the work in hand changes.
#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "main_window/main_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

// Stand in for the windows of sound.
// Stands in for the window of the enlarged list.
struct ListasZoom final : ui::Window {
  static constexpr const char* kName = main_window::kListasZoom;
  explicit ListasZoom(ui::Backend& used) : ui::Window(used, kName) {}
};

constexpr const char* kSoundWindows[] = {main_window::kPlayer, main_window::kSA, main_window::kZoom,
                                         main_window::kListasZoom};

struct OtherWindows : ::testing::Test, ProgramBench {
  OtherWindows() {
    start();
    project("Mix\\a.vip", {"Mix\\a.wav"});
    project("Mix\\b.vip", {"Mix\\b.wav"});
    windows.add<ListasZoom>([this] { return std::make_unique<ListasZoom>(backend); });
  }

  // Opens them all, runs the action, and looks which are closed and which are hidden.
  void run(const std::function<void()>& action) {
    for (const char* name : kSoundWindows) windows.touch(name)->show();
    buscar().show();
    action();
    look();
  }
  void look() {
    closed.clear();
    hidden.clear();
    for (const char* name : kSoundWindows) {
      if (windows.find(name) == nullptr) {
        closed.emplace_back(name);
      } else if (!windows.visible(name)) {
        hidden.emplace_back(name);
      }
    }
  }

  std::vector<std::string> closed;
  std::vector<std::string> hidden;
};

TEST_F(OtherWindows, a_reset_closes_all_that_show_a_sound) {
  run([&] { form.cmdReset_Click(); });
  EXPECT_THAT(closed, UnorderedElementsAre("Player", "SA", "Zoom", "ListasZoom"));
  EXPECT_TRUE(buscar().visible());
}

TEST_F(OtherWindows, the_choice_of_a_project_closes_three_and_hides_the_search) {
  run([&] { form.AbrirFichero_Click(); });
  EXPECT_THAT(closed, UnorderedElementsAre("Player", "SA", "Zoom"));
  EXPECT_THAT(hidden, IsEmpty());
  EXPECT_FALSE(buscar().visible());
}

TEST_F(OtherWindows, a_cancel_closes_three) {
  run([&] { form.cmdCancelar_Click(); });
  EXPECT_THAT(closed, UnorderedElementsAre("Player", "SA", "Zoom"));
  EXPECT_THAT(hidden, IsEmpty());
  EXPECT_TRUE(buscar().visible());
}

TEST_F(OtherWindows, the_end_of_the_program_closes_two) {
  run([&] { form.Salir_Click(); });
  EXPECT_THAT(closed, UnorderedElementsAre("Player", "Zoom"));
}

TEST_F(OtherWindows, a_drop_closes_two_and_hides_the_search_at_once) {
  bool seen = false;
  backend.on_pump = [&] {
    if (seen) return;
    seen = true;
    look();
    EXPECT_FALSE(buscar().visible());
  };
  run([&] { drop({"Mix\\a.vip"}); });
  EXPECT_TRUE(seen);
  EXPECT_THAT(closed, UnorderedElementsAre("Player", "SA"));
  EXPECT_THAT(hidden, IsEmpty());
}

TEST_F(OtherWindows, a_sweep_closes_two_that_were_opened_since_the_drop) {
  bool decoding = false;
  backend.on_pump = [&] {
    if (decoding) return;
    decoding = form.strip.TextDecode.text().starts_with("Descodificando: ");
    if (decoding) {
      look();
      EXPECT_THAT(closed, UnorderedElementsAre("Player", "SA"));
    } else {
      for (const char* name : kSoundWindows) windows.touch(name)->show();
    }
  };
  disk.write("Mix\\a.vip", project_of({disk.path("Mix\\a.wav")}, 1'000'000));
  drop({"Mix\\a.vip"});
  EXPECT_TRUE(decoding);
}

TEST_F(OtherWindows, a_double_click_closes_the_player_and_hides_two) {
  open("Mix\\a.vip");
  run([&] { double_click(1); });
  EXPECT_THAT(closed, ElementsAre("Player"));
  EXPECT_THAT(hidden, UnorderedElementsAre("Zoom", "ListasZoom"));
  EXPECT_TRUE(buscar().visible());
}

}  // namespace
}  // namespace ordelan::test
