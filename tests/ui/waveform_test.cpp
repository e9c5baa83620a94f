#include "ui/waveform.h"

#include <gmock/gmock.h>

#include <limits>

#include "ui/recording_backend.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Change = RecordingBackend::Change;

struct WaveformControl : ::testing::Test {
  RecordingBackend backend;
  ui::Window window{backend, "window"};
  ui::Waveform wave{window, "wave"};
  const double none = std::numeric_limits<double>::quiet_NaN();
};

TEST_F(WaveformControl, columns_and_cursor_are_reported_when_they_change) {
  window.load();
  EXPECT_THAT(wave.columns(), IsEmpty());
  EXPECT_EQ(wave.cursor(), -1);
  wave.set_columns({{-0.5, 0.75}, {0, 0}});
  wave.set_columns({{-0.5, 0.75}, {0, 0}});
  EXPECT_THAT(backend.take(), ElementsAre(Change{"wave", ui::Aspect::value}));
  wave.set_cursor(0.5);
  wave.set_cursor(0.5);
  EXPECT_THAT(backend.take(), ElementsAre(Change{"wave", ui::Aspect::value}));
}

TEST_F(WaveformControl, values_stay_in_their_range) {
  const double endless = std::numeric_limits<double>::infinity();
  wave.set_columns({{-1.1, 1.1}, {none, none}, {-endless, endless}});
  EXPECT_THAT(wave.columns(),
              ElementsAre(ui::WaveColumn{-1, 1}, ui::WaveColumn{0, 0}, ui::WaveColumn{-1, 1}));
  wave.set_cursor(1.5);
  EXPECT_EQ(wave.cursor(), 1);
  wave.set_cursor(-0.1);
  EXPECT_EQ(wave.cursor(), -1);
  wave.set_cursor(0.5);
  wave.set_cursor(none);
  EXPECT_EQ(wave.cursor(), -1);
}

}  // namespace
}  // namespace ordelan::test
