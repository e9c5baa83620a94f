// The drawings that the windows' pictures are made from keep to the skin: its colours, one line.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "skin/about_layout.h"
#include "skin/backup_folder_layout.h"
#include "skin/backup_options_layout.h"
#include "skin/look.h"
#include "skin/lost_file_layout.h"
#include "skin/main_window_layout.h"
#include "skin/player_layout.h"
#include "skin/projects_left_out_layout.h"
#include "skin/protected_folders_layout.h"
#include "skin/recovery_layout.h"
#include "skin/removal_review_layout.h"
#include "skin/sa_layout.h"
#include "skin/zoom_layout.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::filesystem::path kSkin = std::filesystem::path(ORDELAN_SOURCE_DIR) / "src" / "skin";

std::string content_of(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// What the pattern's first group matches, everywhere in the text.
std::vector<std::string> all(const std::string& text, const char* pattern) {
  const std::regex wanted(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator each(text.begin(), text.end(), wanted), end; each != end; ++each) {
    found.push_back((*each)[1]);
  }
  return found;
}

struct Pictures : ::testing::Test {
  Pictures() {
    for (const auto& entry : std::filesystem::directory_iterator(kSkin / "pictures")) {
      drawings[entry.path().filename().string()] = content_of(entry.path());
    }
  }

  std::map<std::string, std::string> drawings;  // by file name
};

TEST_F(Pictures, exist) {
  EXPECT_GT(drawings.size(), 25u);
  EXPECT_EQ(drawings.count("fondo_principal.svg"), 1u);
}

TEST_F(Pictures, are_drawn_in_the_colours_of_the_palette_alone) {
  const auto words = all(content_of(kSkin / "palette.h"), "word\\(0x([0-9A-F]{6})\\)");
  const std::set<std::string> palette(words.begin(), words.end());
  ASSERT_GT(palette.size(), 10u);
  for (const auto& [name, drawing] : drawings) {
    for (const std::string& color : all(drawing, "(?:fill|stroke)=\"([^\"]*)\"")) {
      if (color == "none" || color == "currentColor") continue;
      ASSERT_EQ(color.size(), 7u) << name << ": " << color;
      EXPECT_THAT(palette, Contains(color.substr(1))) << name;
    }
  }
}

TEST_F(Pictures, say_their_size_in_layout_units) {
  for (const auto& [name, drawing] : drawings) {
    EXPECT_EQ(all(drawing, " (width=\"[0-9]+\" height=\"[0-9]+\" viewBox=)").size(), 1u) << name;
  }
}

// A window has the shape of its ground: what lies beyond it cannot be seen or clicked.
TEST_F(Pictures, of_grounds_are_as_large_as_their_windows) {
  const std::map<std::string, skin::Layout> windows = {
      {"fondo_acerca.svg", skin::kAbout},
      {"fondo_borrar.svg", skin::kRemovalReview},
      {"fondo_carpeta.svg", skin::kBackupFolder},
      {"fondo_fuera.svg", skin::kProjectsLeftOut},
      {"fondo_perdidos.svg", skin::kLostFile},
      {"fondo_principal.svg", skin::kMainWindow},
      {"fondo_player.svg", skin::kPlayer},
      {"fondo_sa.svg", skin::kSA},
      {"fondo_zoom.svg", skin::kZoom},
      {"fondo_recuperar.svg", skin::kRecovery},
      {"fondo_protegidas.svg", skin::kProtectedFolders},
      {"fondo_respaldo.svg", skin::kBackupOptions}};
  for (const auto& [name, drawing] : drawings) {
    if (!name.starts_with("fondo_")) continue;
    const auto window = windows.find(name);
    ASSERT_NE(window, windows.end()) << name;
    EXPECT_THAT(drawing, HasSubstr("width=\"" + std::to_string(window->second.width) +
                                   "\" height=\"" + std::to_string(window->second.height) + "\""))
        << name;
  }
}

TEST_F(Pictures, are_lines_and_areas_and_nothing_that_comes_from_elsewhere) {
  for (const auto& [name, drawing] : drawings) {
    EXPECT_THAT(all(drawing, "<(text|image|use|style|script|linearGradient|radialGradient|filter)"),
                IsEmpty())
        << name;
    EXPECT_THAT(drawing, Not(HasSubstr("href"))) << name;
  }
}

TEST_F(Pictures, icons_share_one_kind_of_line) {
  int icons = 0;
  for (const auto& [name, drawing] : drawings) {
    if (drawing.find("currentColor") == drawing.npos) continue;
    ++icons;
    EXPECT_THAT(drawing, HasSubstr("stroke=\"currentColor\" stroke-width=\"1.75\" "
                                   "stroke-linecap=\"round\" stroke-linejoin=\"round\""))
        << name;
    EXPECT_THAT(all(drawing, "(#[0-9A-Fa-f]{3,6})"), IsEmpty()) << name << " has a tint of its own";
  }
  EXPECT_GE(icons, 15);
}

TEST_F(Pictures, that_the_look_of_a_control_names_are_all_drawn) {
  // A tint has no drawing of its own.
  const std::regex tint("_(over|down|off)$");
  const auto named = all(skin::all_looks(), "\\n(?:Picture(?!Align)|Bar)[A-Za-z]*=([a-z_0-9]+)");
  EXPECT_GT(named.size(), 40u);
  for (const std::string& name : named) {
    EXPECT_EQ(drawings.count(std::regex_replace(name, tint, "") + ".svg"), 1u) << name;
  }
}

}  // namespace
}  // namespace ordelan::test
