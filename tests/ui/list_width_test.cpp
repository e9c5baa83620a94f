#include "ui/list_width.h"

#include <gtest/gtest.h>

#include "headless/headless_backend.h"
#include "support/fake_services.h"
#include "ui/label.h"
#include "ui/recording_backend.h"
#include "ui/window.h"

namespace ordelan::test {
namespace {

// Six pixels a character at 9 points, 12 at 18.
struct ListWidthTest : ::testing::Test {
  int width_of(const std::vector<std::size_t>& lengths) {
    list.clear();
    for (const std::size_t length : lengths) list.add(std::string(length, 'x'));
    const int width = ui::ListaAncho(list);
    EXPECT_EQ(list.horizontal_extent(), width);
    return width;
  }

  HandClock clock;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  ui::ListBox list{window, "list"};
};

TEST_F(ListWidthTest, an_empty_list_needs_no_width) {
  list.set_horizontal_extent(500);
  EXPECT_EQ(width_of({}), 0);
}

TEST_F(ListWidthTest, the_first_row_gets_its_own_width) {
  EXPECT_EQ(width_of({10}), 60);
  EXPECT_EQ(width_of({10, 4, 10, 0}), 60);
}

TEST_F(ListWidthTest, a_wider_row_gets_ten_pixels_of_air) {
  EXPECT_EQ(width_of({10, 11}), 76);
  EXPECT_EQ(width_of({0, 1}), 16);
}

TEST_F(ListWidthTest, a_row_that_fits_into_the_air_changes_nothing) {
  EXPECT_EQ(width_of({10, 11, 12}), 76) << "72 pixels stand inside the 76";
  EXPECT_EQ(width_of({10, 11, 12, 13}), 88) << "78 do not";
}

TEST_F(ListWidthTest, measuring_again_gives_the_same) {
  EXPECT_EQ(width_of({10, 20}), 130);
  EXPECT_EQ(ui::ListaAncho(list), 130);
}

TEST_F(ListWidthTest, the_width_of_the_list_measured_last_is_kept_for_all) {
  EXPECT_EQ(width_of({10, 11}), 76);
  EXPECT_EQ(ui::AnchoLista, 76);
  EXPECT_EQ(width_of({}), 0);
  EXPECT_EQ(ui::AnchoLista, 0);
}

TEST_F(ListWidthTest, what_cannot_be_measured_has_no_width) {
  RecordingBackend measures_nothing;
  ui::Window other(measures_nothing, "other");
  ui::ListBox rows(other, "rows");
  rows.add("a");
  rows.add("longer");
  EXPECT_EQ(ui::MedirTexto(rows, "longer"), 0);
  EXPECT_EQ(ui::ListaAncho(rows), 0);
}

TEST_F(ListWidthTest, every_character_counts_with_its_own_width) {
  RecordingBackend measures;
  for (std::size_t byte = 0; byte < measures.widths.size(); ++byte) {
    measures.widths[byte] = static_cast<int>(byte) + 1;
  }
  ui::Window other(measures, "other");
  ui::ListBox rows(other, "rows");
  EXPECT_EQ(ui::MedirTexto(rows, "a\t\xF3\xFF"), 'a' + 1 + 10 + 0xF4 + 0x100);
  rows.add("a\t\xF3\xFF");
  rows.add("\xF3\xF3\xF3");
  EXPECT_EQ(ui::ListaAncho(rows), 3 * 0xF4 + 10);
}

TEST_F(ListWidthTest, an_extent_shrinks_with_its_rows) {
  EXPECT_EQ(width_of({100}), 600);
  EXPECT_EQ(width_of({3}), 18);
}

TEST_F(ListWidthTest, a_larger_font_makes_a_wider_list) {
  list.set_font({.points = 18, .bold = false});
  EXPECT_EQ(width_of({10}), 120);
}

TEST_F(ListWidthTest, letters_beyond_the_plain_ones_have_their_width) {
  ui::Label label(window, "label");
  EXPECT_EQ(ui::MedirTexto(label, "Canci\xF3n"), 42);
  EXPECT_EQ(ui::MedirTexto(label, ""), 0);
}

}  // namespace
}  // namespace ordelan::test
