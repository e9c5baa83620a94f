#include "ui/label.h"

#include <gmock/gmock.h>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using Change = RecordingBackend::Change;

struct LabelTest : ::testing::Test {
  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::Label label{window, "label"};
};

TEST_F(LabelTest, a_move_of_the_text_is_reported_once) {
  window.load();
  EXPECT_FALSE(label.text_left());
  label.set_text_left(100);
  label.set_text_left(100);
  label.set_text_left(-20);
  EXPECT_EQ(label.text_left(), -20);
  label.set_text_left(std::nullopt);
  label.set_text_left(std::nullopt);
  EXPECT_THAT(backend.take(),
              ElementsAre(Change{"label", ui::Aspect::value}, Change{"label", ui::Aspect::value},
                          Change{"label", ui::Aspect::value}));
}

TEST_F(LabelTest, the_edge_itself_is_a_place_of_the_text) {
  window.load();
  label.set_text_left(0);
  EXPECT_EQ(label.text_left(), 0);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"label", ui::Aspect::value}));
}

TEST_F(LabelTest, the_width_of_its_text_is_in_fifteenths_of_a_pixel_at_any_scale) {
  backend.widths.fill(7);
  EXPECT_EQ(label.text_width(), 0);
  label.set_caption("four");
  EXPECT_EQ(label.text_width(), 4 * 7 * 15);
  backend.dpi = 192;
  EXPECT_EQ(label.text_width(), 4 * 7 * 15 / 2);
  backend.dpi = 144;
  EXPECT_EQ(label.text_width(), 4 * 7 * 10);
}

TEST_F(LabelTest, a_long_text_has_its_whole_width) {
  backend.widths.fill(20);
  label.set_caption(std::string(20'000, 'x'));
  EXPECT_EQ(label.text_width(), 20'000 * 20 * 15);
}

TEST_F(LabelTest, what_cannot_be_measured_has_no_width) {
  label.set_caption("four");
  EXPECT_EQ(label.text_width(), 0);
}

}  // namespace
}  // namespace ordelan::test
