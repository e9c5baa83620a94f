// The program's own pictures, as they are in its resources.
#include "win32/paint/picture_store.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <set>
#include <string>

#include "skin/about_layout.h"
#include "skin/lost_file_layout.h"
#include "skin/main_window_layout.h"
#include "skin/palette.h"
#include "win32/paint/canvas.h"
#include "win32/paint/drawing_tools.h"

namespace ordelan::test {
namespace {

using skin::kMask;

constexpr int kUsualScreens[] = {96, 120, 144, 168, 192};
constexpr std::uint32_t kRgb = 0x00FFFFFF;

std::uint32_t rgb_of(std::uint32_t word) {
  return skin::word(word);  // the same turn leads back
}

std::uint32_t pixel(const ui::Pixels& pixels, int x, int y) {
  return pixels.argb.at(static_cast<std::size_t>(y * pixels.width + x));
}

// The strongest of the opaque pixels, without opacity: what an icon is drawn in.
std::uint32_t ink_of(const ui::Pixels& pixels) {
  const auto strongest = std::max_element(pixels.argb.begin(), pixels.argb.end(),
                                          [](auto a, auto b) { return a >> 24 < b >> 24; });
  return strongest == pixels.argb.end() ? 0 : *strongest & kRgb;
}

// How far a colour is from another, in steps of its most distant part.
int distance(std::uint32_t a, std::uint32_t b) {
  int most = 0;
  for (const int shift : {0, 8, 16}) {
    const auto part = [&](std::uint32_t color) { return static_cast<int>(color >> shift & 0xFF); };
    most = std::max(most, std::abs(part(a) - part(b)));
  }
  return most;
}

struct Pictures : testing::Test {
  // Paints a picture over an area of that size, and gives the colours that come out.
  std::set<COLORREF> painted(const std::string& name, int width, int height, int dpi) {
    const HDC screen = GetDC(nullptr);
    const RECT area{0, 0, width, height};
    std::set<COLORREF> colors;
    {
      const win32::Canvas canvas(screen, area);
      FillRect(canvas.context(), &area, tools.brush(ui::rgb(0, 0, 200)));
      EXPECT_TRUE(store.paint(canvas.context(), area, name, dpi));
      for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) colors.insert(GetPixel(canvas.context(), x, y));
      }
    }
    ReleaseDC(nullptr, screen);
    return colors;
  }

  win32::DrawingTools tools;
  win32::PictureStore store{GetModuleHandleW(nullptr)};
};

TEST_F(Pictures, the_skin_and_the_windows_room_mean_the_same_mask) {
  EXPECT_EQ(rgb_of(kMask), win32::kMaskPixel & kRgb);
}

TEST_F(Pictures, each_scale_of_the_screen_has_a_rendering_of_its_own) {
  const int sides[] = {20, 25, 30, 35, 40};
  for (std::size_t i = 0; i < std::size(kUsualScreens); ++i) {
    const ui::Pixels icon = store.pixels("abrir", kUsualScreens[i]);
    EXPECT_EQ(icon.width, sides[i]);
    EXPECT_EQ(icon.height, sides[i]);
    EXPECT_EQ(ink_of(icon), rgb_of(skin::kText));
  }
  EXPECT_EQ(store.decodes(), 5);
}

TEST_F(Pictures, icons_come_in_four_tints) {
  EXPECT_EQ(ink_of(store.pixels("borrar", 96)), rgb_of(skin::kText));
  EXPECT_EQ(ink_of(store.pixels("borrar_over", 96)), rgb_of(skin::kTextOver));
  EXPECT_EQ(ink_of(store.pixels("borrar_down", 96)), rgb_of(skin::kAccent));
  EXPECT_EQ(ink_of(store.pixels("borrar_off", 96)), rgb_of(skin::kTextOff));
}

TEST_F(Pictures, all_that_the_windows_name_exist_at_every_scale) {
  for (const char* const icon :
       {"abrir", "vaciar", "cancelar", "borrar", "perdidos", "minimizar", "cerrar", "salir",
        "salvar", "actualizar", "configurar", "acerca", "elegir", "disco", "soltar"}) {
    for (const char* const tint : {"", "_over", "_down", "_off"}) {
      for (const int dpi : kUsualScreens) {
        EXPECT_FALSE(store.pixels(std::string(icon) + tint, dpi).argb.empty()) << icon << tint;
      }
    }
  }
  for (const char* const name : {"proyecto", "logo", "logo_acerca", "paso_1", "paso_2", "paso_3",
                                 "paso_4", "fondo_principal", "fondo_perdidos", "fondo_acerca"}) {
    for (const int dpi : kUsualScreens) {
      EXPECT_FALSE(store.pixels(name, dpi).argb.empty()) << name;
    }
  }
}

TEST_F(Pictures, sizes_are_those_of_the_layout) {
  EXPECT_EQ(store.size("abrir_off"), (ui::Size{20, 20}));
  EXPECT_EQ(store.size("proyecto"), (ui::Size{30, 30}));
  EXPECT_EQ(store.size("logo"), (ui::Size{640, 66}));
  EXPECT_EQ(store.size("fondo_principal"),
            (ui::Size{skin::kMainWindow.width, skin::kMainWindow.height}));
  EXPECT_EQ(store.size("fondo_perdidos"),
            (ui::Size{skin::kLostFile.width, skin::kLostFile.height}));
  EXPECT_EQ(store.size("fondo_acerca"), (ui::Size{skin::kAbout.width, skin::kAbout.height}));
  EXPECT_EQ(store.decodes(), 0) << "a size can be asked for without a picture";
}

TEST_F(Pictures, painting_twice_decodes_once) {
  EXPECT_EQ(painted("abrir", 20, 20, 96), painted("abrir", 20, 20, 96));
  EXPECT_EQ(store.decodes(), 1);
  painted("abrir", 40, 40, 96);
  EXPECT_EQ(store.decodes(), 1) << "stretched, but the same";
  painted("abrir", 40, 40, 192);
  EXPECT_EQ(store.decodes(), 2);
}

TEST_F(Pictures, a_rendering_that_fits_is_painted_as_it_is) {
  const std::set<COLORREF> colors = painted("fondo_acerca", 400, 216, 96);
  EXPECT_EQ(colors.count(skin::kGround), 1u);
  EXPECT_EQ(colors.count(skin::kHeader), 1u);
  EXPECT_EQ(colors.count(kMask), 1u);
  std::set<COLORREF> drawn;
  for (const std::uint32_t each : store.pixels("fondo_acerca", 96).argb) {
    drawn.insert(skin::word(each & kRgb));
  }
  EXPECT_EQ(colors, drawn);
}

TEST_F(Pictures, between_two_scales_the_larger_one_is_made_smaller) {
  const ui::Pixels icon = store.pixels("soltar", 110);
  EXPECT_EQ(icon.width, 55);
  EXPECT_EQ(icon.height, 55);
  EXPECT_LE(distance(ink_of(icon), rgb_of(skin::kText)), 2);
  EXPECT_EQ(store.decodes(), 1);
  store.pixels("soltar", 120);
  EXPECT_EQ(store.decodes(), 1) << "it was that of 120";
}

TEST_F(Pictures, beyond_all_scales_the_largest_is_made_larger) {
  const ui::Pixels icon = store.pixels("soltar", 288);
  EXPECT_EQ(icon.width, 144);
  EXPECT_EQ(store.decodes(), 1);
  store.pixels("soltar", 192);
  EXPECT_EQ(store.decodes(), 1);
}

TEST_F(Pictures, what_is_missing_is_nothing) {
  EXPECT_EQ(store.size("no existe"), std::nullopt);
  EXPECT_EQ(store.size(""), std::nullopt);
  EXPECT_TRUE(store.pixels("no existe", 96).argb.empty());
  const HDC screen = GetDC(nullptr);
  EXPECT_FALSE(store.paint(screen, {0, 0, 9, 9}, "no existe", 96));
  EXPECT_FALSE(store.paint(screen, {0, 0, 9, 9}, "", 96));
  ReleaseDC(nullptr, screen);
  EXPECT_EQ(store.decodes(), 0);
}

// The ground of a window, at usual densities and at some that it has to be scaled for.
struct Masked {
  const char* name;
  std::uint32_t mask;  // as a colour word
  friend void PrintTo(const Masked& each, std::ostream* out) { *out << each.name; }
};

class Ground : public Pictures, public testing::WithParamInterface<Masked> {};

TEST_P(Ground, is_the_mask_outside_and_takes_nothing_of_it_inside) {
  const std::uint32_t mask = ~kRgb | rgb_of(GetParam().mask);
  for (const int dpi : {96, 110, 120, 144, 168, 192, 240}) {
    const ui::Pixels ground = store.pixels(GetParam().name, dpi, mask);
    ASSERT_GT(ground.width, 0);
    const int right = ground.width - 1;
    const int bottom = ground.height - 1;
    for (const auto& [x, y] : {std::pair(0, 0), {right, 0}, {0, bottom}, {right, bottom}}) {
      EXPECT_EQ(pixel(ground, x, y), mask) << dpi;
    }
    EXPECT_NE(pixel(ground, right / 2, 0), mask) << dpi;
    // All that is not the mask lies between the ground and the line round it.
    const auto mixed = std::count_if(ground.argb.begin(), ground.argb.end(), [&](auto each) {
      return each != mask &&
             (each >> 24 != 0xFF || distance(each & kRgb, rgb_of(skin::kGround)) > 70);
    });
    EXPECT_EQ(mixed, 0) << dpi;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Pictures, Ground,
    testing::Values(Masked{"fondo_principal", kMask}, Masked{"fondo_perdidos", kMask},
                    Masked{"fondo_acerca", kMask}, Masked{"fondo_protegidas", skin::kRedMask},
                    Masked{"fondo_player", skin::kBlueMask}, Masked{"fondo_sa", skin::kWhiteMask}),
    [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace ordelan::test
