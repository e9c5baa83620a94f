// The strip with more lines than its window has room for.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "win32/peers/scroll_bar.h"
#include "win32/program_fixture.h"

namespace ordelan::test {
namespace {

class TallStrip : public ProgramTest {
 protected:
  static constexpr int kLines = 200;

  TallStrip() { start({disk.folder()}); }

  void write_lines(int lines) {
    std::string text = "El archivo: toma.wav";
    for (int i = 2; i <= lines; ++i) text += "\r\nD:\\Mix\\" + std::to_string(i) + "\\toma.wav";
    program->form.strip.Alerta(work::kResult, text, true);
    backend.pump();
    strip = control(L"Form1", L"TextDecode");
    ASSERT_TRUE(strip);
  }
  int first_line() const {
    return static_cast<int>(SendMessageW(strip, EM_GETFIRSTVISIBLELINE, 0, 0));
  }
  int line_count() const { return static_cast<int>(SendMessageW(strip, EM_GETLINECOUNT, 0, 0)); }
  // Whether the place at which a line begins is within what is seen of the strip.
  bool in_sight(int line) const {
    const LRESULT start = SendMessageW(strip, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
    const LRESULT place = SendMessageW(strip, EM_POSFROMCHAR, static_cast<WPARAM>(start), 0);
    const auto top = static_cast<short>(HIWORD(place));
    RECT room{};
    GetClientRect(strip, &room);
    const int height = line_height();
    return top >= 0 && top + height <= room.bottom;
  }
  int line_height() const {
    const auto top_of = [this](int line) {
      const LRESULT start = SendMessageW(strip, EM_LINEINDEX, static_cast<WPARAM>(line), 0);
      const LRESULT place = SendMessageW(strip, EM_POSFROMCHAR, static_cast<WPARAM>(start), 0);
      return static_cast<short>(HIWORD(place));
    };
    return top_of(first_line() + 1) - top_of(first_line());
  }
  // The bar beside the strip; null where none is shown.
  HWND bar() const {
    RECT own{};
    GetWindowRect(strip, &own);
    return own_window_below(top_level(L"Form1"), [&](HWND each) {
      RECT place{};
      GetWindowRect(each, &place);
      return has_class(each, win32::kScrollBarClass) && IsWindowVisible(each) &&
             place.left == own.right && place.top == own.top && place.bottom == own.bottom;
    });
  }
  template <class Wanted>
  static HWND own_window_below(HWND parent, const Wanted& wanted) {
    HWND child = GetWindow(parent, GW_CHILD);
    while (child && !wanted(child)) child = GetWindow(child, GW_HWNDNEXT);
    return child;
  }
  void turn_wheel(HWND target, int notches) {
    for (int i = 0; i < std::abs(notches); ++i) {
      const int delta = notches < 0 ? -WHEEL_DELTA : WHEEL_DELTA;
      SendMessageW(target, WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
    }
    backend.pump();
  }
  void expect_inside() const {
    RECT room{};
    GetClientRect(top_level(L"Form1"), &room);
    MapWindowPoints(top_level(L"Form1"), nullptr, reinterpret_cast<POINT*>(&room), 2);
    RECT place{};
    GetWindowRect(strip, &place);
    EXPECT_GE(place.top, room.top);
    EXPECT_LT(place.bottom, room.bottom) << "it ends within the window";
    EXPECT_LE(place.right, room.right);
  }

  HWND strip = nullptr;
};

TEST_F(TallStrip, ends_within_the_window_and_keeps_its_text_and_height_in_the_program) {
  write_lines(kLines);
  EXPECT_EQ(line_count(), kLines);
  EXPECT_EQ(program->form.strip.TextDecode.bounds().height, 16 * kLines);
  expect_inside();
  EXPECT_TRUE(in_sight(0));
  EXPECT_FALSE(in_sight(kLines - 1));
}

TEST_F(TallStrip, is_scrolled_to_its_last_line_and_back_by_the_wheel) {
  write_lines(kLines);
  turn_wheel(strip, -1);
  EXPECT_GT(first_line(), 0);
  EXPECT_LT(first_line(), 10);
  turn_wheel(strip, -kLines);
  EXPECT_TRUE(in_sight(kLines - 1));
  EXPECT_TRUE(in_sight(kLines - 20)) << "it ends with a full page";
  turn_wheel(strip, kLines);
  EXPECT_EQ(first_line(), 0);
}

TEST_F(TallStrip, is_scrolled_by_keys) {
  write_lines(kLines);
  SetFocus(strip);
  PostMessageW(strip, WM_KEYDOWN, VK_NEXT, 1);
  backend.pump();
  EXPECT_GT(first_line(), 0);
  for (int i = 0; i < kLines; ++i) {
    PostMessageW(strip, WM_KEYDOWN, VK_DOWN, 1);
    backend.pump();
  }
  EXPECT_TRUE(in_sight(kLines - 1));
}

TEST_F(TallStrip, is_scrolled_by_the_bar_beside_it) {
  write_lines(kLines);
  ASSERT_TRUE(bar());
  RECT room{};
  GetClientRect(bar(), &room);
  for (int i = 0; i < kLines && !in_sight(kLines - 1); ++i) {
    SendMessageW(bar(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(room.right / 2, room.bottom - 2));
    SendMessageW(bar(), WM_LBUTTONUP, 0, MAKELPARAM(room.right / 2, room.bottom - 2));
  }
  EXPECT_TRUE(in_sight(kLines - 1));
  const int at_end = first_line();
  turn_wheel(bar(), 1);
  EXPECT_LT(first_line(), at_end) << "the wheel over the bar is the strip's";
}

TEST_F(TallStrip, has_no_bar_while_all_its_lines_are_seen) {
  write_lines(2);
  EXPECT_FALSE(bar());
  write_lines(kLines);
  EXPECT_TRUE(bar());
  write_lines(2);
  EXPECT_FALSE(bar());
  EXPECT_EQ(program->form.strip.TextDecode.bounds(), (ui::Rect{12, 120, 1076, 32}));
  write_lines(kLines);
  program->form.strip.Alerta(work::kProgress, ": ", false);
  backend.pump();
  EXPECT_FALSE(own_window_below(top_level(L"Form1"), [&](HWND each) {
    return has_class(each, win32::kScrollBarClass) && IsWindowVisible(each);
  })) << "a bar stays without its strip";
}

// How many lines there are decides whether there is a bar: it must not change how many there are.
TEST_F(TallStrip, breaks_long_lines_at_the_same_width_with_the_bar_and_without) {
  // Lines that are full to the last word: in less width there would be one more.
  const auto lines_of = [this](const std::string& text) {
    program->form.strip.Alerta(work::kResult, text, true);
    return program->form.strip.TextDecode.line_count();
  };
  constexpr int kFull = 10;
  std::string full = "ab";
  for (int words : {64, 8, 1}) {
    std::string next;
    while (words-- > 0) next += " ab";
    while (full.size() < 10000 && lines_of(full + next) <= kFull) full += next;
  }
  ASSERT_EQ(lines_of(full), kFull);
  std::string more = full;
  for (int i = 0; i < 60; ++i) more += "\r\n";
  lines_of(more);
  backend.pump();
  strip = control(L"Form1", L"TextDecode");
  EXPECT_TRUE(bar());
  EXPECT_EQ(program->form.strip.TextDecode.line_count(), kFull + 60);
  EXPECT_EQ(lines_of(full), kFull);
}

}  // namespace
}  // namespace ordelan::test
