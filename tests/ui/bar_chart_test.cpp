#include "ui/bar_chart.h"

#include <gmock/gmock.h>

#include <limits>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingBackend::Change;

struct BarChartTest : ::testing::Test {
  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::BarChart chart{window, "chart"};
};

TEST_F(BarChartTest, bars_are_reported_when_they_change) {
  window.load();
  EXPECT_THAT(chart.bars(), IsEmpty());
  chart.set_bars({{0.5, 0.75}, {0.25, 0.25}});
  chart.set_bars({{0.5, 0.75}, {0.25, 0.25}});
  EXPECT_THAT(backend.take(), ElementsAre(Change{"chart", ui::Aspect::value}));
  chart.set_bars({{0.5, 0.75}});
  EXPECT_THAT(backend.take(), ElementsAre(Change{"chart", ui::Aspect::value}));
  chart.set_bars({{0.5, 0.5}});
  EXPECT_THAT(backend.take(), ElementsAre(Change{"chart", ui::Aspect::value}));
}

TEST_F(BarChartTest, heights_stay_between_nothing_and_all) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  constexpr double kEndless = std::numeric_limits<double>::infinity();
  chart.set_bars({{-0.1, 1.1}, {kNone, -kEndless}, {kEndless, kNone}, {1, 0}});
  EXPECT_THAT(chart.bars(),
              ElementsAre(ui::Bar{0, 1}, ui::Bar{0, 0}, ui::Bar{1, 0}, ui::Bar{1, 0}));
}

// What is no number would differ from itself, and be painted for ever.
TEST_F(BarChartTest, what_is_no_number_changes_nothing_twice) {
  window.load();
  const double none = std::numeric_limits<double>::quiet_NaN();
  chart.set_bars({{none, none}});
  backend.take();
  chart.set_bars({{none, none}});
  EXPECT_THAT(backend.take(), IsEmpty());
}

}  // namespace
}  // namespace ordelan::test
