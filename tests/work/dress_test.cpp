// The skin's data against the windows that it is for.
#include "work/dress.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

#include "skin/look.h"
#include "skin/look_sound.h"
#include "support/program_bench.h"
#include "ui/button.h"
#include "ui/property_bag.h"

namespace ordelan::test {
namespace {

using ::testing::IsEmpty;

std::string section_of(const ui::Control& control) {
  const std::string place = control.index() < 0 ? "" : "(" + std::to_string(control.index()) + ")";
  return control.window().name() + "." + control.name() + place;
}

// The names between brackets, in the order of the text.
std::vector<std::string> sections() {
  std::vector<std::string> names;
  for (const std::string_view look : {skin::kLook, skin::kSoundLook}) {
    for (auto at = look.find("\n["); at != std::string_view::npos; at = look.find("\n[", at + 1)) {
      names.emplace_back(look.substr(at + 2, look.find(']', at) - at - 2));
    }
  }
  return names;
}

struct Dress : ::testing::Test {
  Dress() {
    bench.start();
    for (const char* name :
         {"UnidadesBuscar", "ElegirRuta", "Perdidos", "Acerca", "Fuera", "BacUp", "ParaBorrar",
          "CarpetaBack", "Recuperar", "FormNoBorrar", "Player", "SA", "Zoom", "ListasZoom"}) {
      windows.push_back(bench.windows.touch(name));
    }
    windows.push_back(&bench.form);
  }

  ProgramBench bench;
  std::vector<const ui::Window*> windows;
};

TEST_F(Dress, every_section_of_the_skin_is_that_of_a_window_or_a_control) {
  std::set<std::string> known;
  for (const ui::Window* const window : windows) {
    known.insert(window->name() + "." + window->name());
    for (const ui::Control* const control : window->controls()) known.insert(section_of(*control));
  }
  const std::vector<std::string> named = sections();
  EXPECT_GT(named.size(), 30u);
  for (const std::string& section : named) EXPECT_TRUE(known.contains(section)) << section;
}

TEST_F(Dress, no_control_is_described_twice) {
  const std::vector<std::string> named = sections();
  EXPECT_EQ(std::set<std::string>(named.begin(), named.end()).size(), named.size());
}

TEST_F(Dress, every_button_has_its_pictures_for_all_states) {
  int buttons = 0;
  for (const ui::Window* const window : windows) {
    for (const ui::Control* const control : window->controls()) {
      const auto* const button = dynamic_cast<const ui::Button*>(control);
      if (button == nullptr) continue;
      ++buttons;
      const ui::ButtonProperties& look = button->properties();
      EXPECT_EQ(look.style, 1) << section_of(*control);
      EXPECT_EQ(look.picture_over, look.picture_normal + "_over") << section_of(*control);
      EXPECT_EQ(look.picture_down, look.picture_normal + "_down") << section_of(*control);
      EXPECT_EQ(look.picture_disabled, look.picture_normal + "_off") << section_of(*control);
      EXPECT_FALSE(look.picture_normal.empty()) << section_of(*control);
      // A control without words has a description for screen readers.
      EXPECT_FALSE(button->caption().empty() && button->description().empty())
          << section_of(*control);
    }
  }
  EXPECT_EQ(buttons, 63);
}

TEST_F(Dress, a_window_has_its_background_and_its_shape) {
  EXPECT_EQ(bench.form.background(), "fondo_principal");
  EXPECT_EQ(bench.form.shape().picture, "fondo_principal");
  EXPECT_EQ(bench.form.shape().mask, ui::Color{0xFF00FF});
  EXPECT_EQ(bench.windows.find("UnidadesBuscar")->background(), "");
  EXPECT_EQ(bench.windows.find("FormNoBorrar")->shape().mask, ui::Color{255});
  EXPECT_EQ(bench.windows.find("Player")->shape().mask, ui::Color{0xFF0000});
  EXPECT_EQ(bench.windows.find("SA")->shape().mask, ui::Color{0xFFFFFF});
}

TEST_F(Dress, controls_of_one_window_do_not_cover_each_other_unless_they_take_turns) {
  // What stands in the same place is never shown together with the other.
  const std::set<std::string> turns = {
      "LabelAviso", "ShowIco", "ListPath", "ImageIcon", "TextDecode", "TextNum1", "LabelCheck",
      "LabelCount", "LabelAdd", "LabelErase", "List1", "cmdCancelar", "CommandBorrado", "List2",
      "Text1", "CheckLogo", "CheckDragDrop", "ListProyectosInfo", "XP_ProgressBar1",
      // Texts that a click puts away, what a run says in place of the words before it, the boxes in
      // their list, what a recovery shows at its end, and the list for which another makes room.
      "AvisoAsociados", "TextAviso", "AvisoSound", "AvisoBack", "AvisoNoBorrados", "LabelEspera",
      "ListStatus", "ListNoRecuperados", "LabelCerrar", "ListConservados",
      // What the player says over its other controls, play and pause, the pictures of what it does,
      // a title, a chart and the word for a project in their frames.
      "AvisoPL", "Control", "ImagePlayPauSt", "LabelDisplay", "WindowsMediaPlayer", "Play",
      "LabelVip", "cmdPararBusqueda", "LabelIndice"};
  for (const ui::Window* const window : windows) {
    const auto& all = window->controls();
    for (std::size_t i = 0; i < all.size(); ++i) {
      for (std::size_t j = i + 1; j < all.size(); ++j) {
        if (turns.contains(all[i]->name()) || turns.contains(all[j]->name())) continue;
        const ui::Rect& a = all[i]->bounds();
        const ui::Rect& b = all[j]->bounds();
        const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                           a.top + a.height <= b.top || b.top + b.height <= a.top;
        EXPECT_TRUE(apart) << section_of(*all[i]) << " and " << section_of(*all[j]);
      }
    }
  }
}

TEST_F(Dress, every_control_stands_inside_its_window) {
  for (const ui::Window* const window : windows) {
    for (const ui::Control* const control : window->controls()) {
      const ui::Rect& at = control->bounds();
      EXPECT_GE(at.left, 0) << section_of(*control);
      // A drive's box is as wide as its caption says, and the window has its one wide size.
      if (control->name() == "Check1") continue;
      EXPECT_LE(at.left + at.width, window->size().width) << section_of(*control);
      EXPECT_LE(at.top + at.height, window->size().height) << section_of(*control);
    }
  }
}

}  // namespace
}  // namespace ordelan::test
