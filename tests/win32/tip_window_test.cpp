#include "win32/peers/tip_window.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "ui/balloon.h"
#include "ui/label.h"
#include "win32/backend_fixture.h"
#include "win32/paint/drawing_tools.h"
#include "win32/tip_messages.h"

namespace ordelan::test {
namespace {

class RealTips : public BackendTest {
 protected:
  ~RealTips() override { win32::use_palette(ui::Palette()); }

  COLORREF color(UINT message) const {
    return static_cast<COLORREF>(SendMessageW(tip_window(), message, 0, 0));
  }

  // How high the letters are, in pixels.
  static LONG letters() {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(tip_window(), WM_GETFONT, 0, 0));
    LOGFONTW look{};
    GetObjectW(font, sizeof look, &look);
    return std::abs(look.lfHeight);
  }

  ui::Label label{window, "lblEstado"};
};

TEST_F(RealTips, tooltips_are_the_systems_as_long_as_the_colours_are) {
  label.set_tip("la ayuda");
  const TipMessages messages;
  show();
  ASSERT_TRUE(tip_window());
  EXPECT_EQ(messages.themes, 0);
  EXPECT_EQ(color(TTM_GETTIPBKCOLOR), GetSysColor(COLOR_INFOBK));
  EXPECT_EQ(color(TTM_GETTIPTEXTCOLOR), GetSysColor(COLOR_INFOTEXT));
}

TEST_F(RealTips, tooltips_have_the_colours_of_a_palette) {
  ui::Palette palette;
  palette.raised = ui::rgb(10, 20, 30);
  palette.text = ui::rgb(200, 210, 220);
  win32::use_palette(palette);
  label.set_tip("la ayuda");
  const TipMessages messages;
  show();
  ASSERT_TRUE(tip_window());
  EXPECT_EQ(messages.themes, 1) << "a theme would show its own colours";
  EXPECT_EQ(color(TTM_GETTIPBKCOLOR), RGB(10, 20, 30));
  EXPECT_EQ(color(TTM_GETTIPTEXTCOLOR), RGB(200, 210, 220));
}

TEST_F(RealTips, tooltips_are_as_large_as_their_window_is_shown) {
  label.set_tip("la ayuda");
  show();
  const LONG before = letters();
  EXPECT_EQ(before, 12);
  come_to_screen_of(192);
  EXPECT_EQ(letters(), 2 * before);
  EXPECT_EQ(SendMessageW(tip_window(), TTM_GETMAXTIPWIDTH, 0, 0), 800);
  window.set_size({5000, 400});  // which no screen holds: back to 100 percent
  EXPECT_EQ(letters(), before);
}

TEST_F(RealTips, balloons_are_as_large_as_their_window_is_shown) {
  show();
  come_to_screen_of(192);
  ui::Class1 balloon;
  balloon.Create(window);
  EXPECT_EQ(letters(), 24);
}

}  // namespace
}  // namespace ordelan::test
