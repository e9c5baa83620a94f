#include "ui/label.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

// A label with black words on a white ground.
class RealLabel : public BackendTest {
 protected:
  RealLabel() {
    label.set_bounds({20, 30, 300, 24});
    label.set_back_color(ui::rgb(255, 255, 255));
    label.set_fore_color(ui::rgb(0, 0, 0));
    label.set_caption("HHH");
  }

  HWND real_label() const { return real(L"Ordelan.LabelDisplay"); }
  // The columns that words stand in: the first and the one after the last, in pixels.
  struct Words {
    int first = 0;
    int end = 0;
  };
  std::optional<Words> words() {
    backend.pump();
    UpdateWindow(real_label());
    const HDC context = GetDC(real_label());
    std::optional<Words> found;
    for (int x = 0; x < px(300); ++x) {
      for (int y = 0; y < px(24); ++y) {
        if (GetRValue(GetPixel(context, x, y)) > 128) continue;
        if (!found) found = Words{x, x};
        found->end = x + 1;
        break;
      }
    }
    ReleaseDC(real_label(), context);
    return found;
  }

  ui::Label label{window, "LabelDisplay"};
};

TEST_F(RealLabel, its_text_stands_where_it_was_moved_to) {
  show();
  const auto before = words();
  ASSERT_TRUE(before);
  label.set_text_left(100 * 15);
  const auto after = words();
  ASSERT_TRUE(after);
  EXPECT_EQ(after->first, before->first + px(100));
  EXPECT_EQ(after->end, before->end + px(100));
  label.set_text_left(std::nullopt);
  EXPECT_EQ(words()->first, before->first);
}

TEST_F(RealLabel, what_lies_beyond_its_edges_is_cut_off) {
  show();
  const auto all = words();
  ASSERT_TRUE(all);
  label.set_text_left(-10 * 15);
  const auto left = words();
  ASSERT_TRUE(left);
  EXPECT_EQ(left->end, all->end - px(10));
  label.set_text_left(290 * 15);
  const auto right = words();
  ASSERT_TRUE(right);
  EXPECT_GE(right->first, px(290));
  label.set_text_left(-label.text_width() - 2 * 15);
  EXPECT_FALSE(words());
  label.set_text_left(301 * 15);
  EXPECT_FALSE(words());
}

// The width by which the program sees that a text has left the label.
TEST_F(RealLabel, the_width_of_its_text_is_that_which_is_shown) {
  label.set_caption("  >>>> Canción del Año.wav -- 03:25 <<<< HHH");
  label.set_bounds({20, 30, 450, 24});
  show();
  const HDC context = GetDC(real_label());
  const HGDIOBJ old =
      SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(real_label(), WM_GETFONT, 0, 0)));
  SIZE shown{};
  const std::wstring text = text_of(real_label());
  GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &shown);
  SelectObject(context, old);
  ReleaseDC(real_label(), context);
  EXPECT_NEAR(label.text_width() / 15.0, win32::to_units(shown.cx, win32::system_dpi()), 1.5);
}

TEST_F(RealLabel, a_moved_text_is_one_line_without_an_ellipsis) {
  label.set_bounds({20, 30, 60, 60});
  label.set_caption("HHHHHH HHHHHH HHHHHH");
  show();
  const auto rows = [&] {
    backend.pump();
    UpdateWindow(real_label());
    const HDC context = GetDC(real_label());
    int written = 0;
    for (int y = 0; y < px(60); ++y) {
      for (int x = 0; x < px(60); ++x) {
        if (GetRValue(GetPixel(context, x, y)) > 128) continue;
        ++written;
        break;
      }
    }
    ReleaseDC(real_label(), context);
    return written;
  };
  const int broken = rows();
  label.set_text_left(0);
  const int one = rows();
  EXPECT_GT(one, 0);
  EXPECT_GE(broken, 2 * one);
}

TEST_F(RealLabel, is_painted_when_its_text_moves_by_a_pixel_and_not_before) {
  label.set_text_left(0);
  show();
  words();
  const auto waits = [&] {
    SendMessageW(real_label(), WM_NULL, 0, 0);  // flushes what has changed
    return GetUpdateRect(real_label(), nullptr, FALSE) != FALSE;
  };
  EXPECT_FALSE(waits());
  label.set_text_left(-1);
  EXPECT_FALSE(waits());
  label.set_text_left(-30);
  EXPECT_TRUE(waits());
  words();
  label.set_caption("another");
  EXPECT_TRUE(waits()) << "in the same place";
}

TEST_F(RealLabel, keeps_its_whole_caption_for_screen_readers) {
  label.set_text_left(-5000);
  show();
  EXPECT_EQ(text_of(real_label()), L"HHH");
}

}  // namespace
}  // namespace ordelan::test
