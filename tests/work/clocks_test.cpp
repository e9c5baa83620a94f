#include "work/clocks.h"

#include <gtest/gtest.h>

#include "headless/headless_backend.h"
#include "support/fake_services.h"

namespace ordelan::test {
namespace {

struct ClocksTest : ::testing::Test {
  ClocksTest() { window.load(); }

  void tick(int times = 1) {
    for (int i = 0; i < times; ++i) {
      clock.time += std::chrono::milliseconds(100);
      backend.pump();
    }
  }

  HandClock clock;
  FixedRegional regional;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  work::Clocks clocks{window, regional};
};

TEST_F(ClocksTest, both_are_off_and_hidden_at_first) {
  tick(5);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "");
  EXPECT_EQ(clocks.TimeDeco.text(), "");
  EXPECT_FALSE(clocks.TextLapsoTotal.visible());
  EXPECT_FALSE(clocks.TimeDeco.visible());
  EXPECT_FALSE(clocks.LabelD.visible());
}

TEST_F(ClocksTest, the_decode_clock_counts_tenths_from_zero) {
  clocks.LapsoDeco = 7;
  clocks.iniciarCrono();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), " 0");
  EXPECT_TRUE(clocks.TextLapsoTotal.visible());
  EXPECT_EQ(clocks.LapsoDeco, 0);
  tick();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "0,1");
  tick(9);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "1");
  tick(2);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "1,2");
  EXPECT_EQ(clocks.LapsoDeco, 1.2);
}

TEST_F(ClocksTest, numbers_have_the_mark_of_the_system) {
  regional.mark = '.';
  clocks.iniciarCrono();
  tick(12);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "1.2");
  clocks.ShowLapso();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "1.20 seg");
}

TEST_F(ClocksTest, a_number_written_into_the_box_is_added_to) {
  clocks.iniciarCrono();
  tick(3);
  clocks.TextLapsoTotal.set_text("20,5");
  tick();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "20,6");
  EXPECT_EQ(clocks.LapsoDeco, 0.4) << "the time itself goes on as it did";
  clocks.TextLapsoTotal.set_text("no number");
  tick();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "0,1");
}

TEST_F(ClocksTest, a_number_with_hundredths_keeps_them) {
  clocks.iniciarCrono();
  clocks.TextLapsoTotal.set_text("5,25");
  tick();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "5,35");
  tick(100);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "15,35");
}

TEST_F(ClocksTest, fifty_nine_seconds_of_ticks_are_still_shown_in_seconds) {
  clocks.iniciarCrono();
  tick(590);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "59");
  clocks.ShowLapsoDeco();
  EXPECT_EQ(clocks.TimeDeco.text(), "59,00 seg");
  tick();
  clocks.ShowLapsoDeco();
  EXPECT_EQ(clocks.TimeDeco.text(), "0 min 59 seg");
}

TEST_F(ClocksTest, an_hour_of_ticks_is_an_hour) {
  clocks.iniciarCrono();
  tick(36'000);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "3600");
  clocks.ShowLapso();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "60 min 0 seg");
}

TEST_F(ClocksTest, showing_the_lapse_stops_its_clock) {
  clocks.iniciarCrono();
  tick(5);
  clocks.ShowLapso();
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "0,50 seg");
  tick(5);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "0,50 seg");
  EXPECT_EQ(clocks.LapsoDeco, 0.5);
  EXPECT_FALSE(clocks.TimeDeco.visible()) << "the other box is not touched";
}

TEST_F(ClocksTest, showing_the_decode_time_stops_nothing) {
  clocks.iniciarCrono();
  tick(5);
  clocks.ShowLapsoDeco();
  EXPECT_EQ(clocks.TimeDeco.text(), "0,50 seg");
  EXPECT_TRUE(clocks.TimeDeco.visible());
  EXPECT_TRUE(clocks.LabelD.visible());
  tick(5);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "1");
  EXPECT_EQ(clocks.TimeDeco.text(), "0,50 seg");
}

TEST_F(ClocksTest, the_update_clock_has_its_own_box_and_time) {
  clocks.TiempoActualizar = 9;
  clocks.IniciarCronoActualizar();
  EXPECT_EQ(clocks.TimeDeco.text(), "0");
  EXPECT_TRUE(clocks.TimeDeco.visible());
  EXPECT_TRUE(clocks.LabelD.visible());
  tick(12);
  EXPECT_EQ(clocks.TimeDeco.text(), "1,2");
  EXPECT_EQ(clocks.TiempoActualizar, 1.2);
  EXPECT_EQ(clocks.LapsoDeco, 0);
  clocks.ShowTimeActualizar();
  EXPECT_EQ(clocks.TimeDeco.text(), "1,20 seg");
}

TEST_F(ClocksTest, both_clocks_run_side_by_side) {
  clocks.iniciarCrono();
  tick(3);
  clocks.IniciarCronoActualizar();
  tick(2);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "0,5");
  EXPECT_EQ(clocks.TimeDeco.text(), "0,2");
}

TEST_F(ClocksTest, a_reset_stops_and_empties_both) {
  clocks.iniciarCrono();
  clocks.IniciarCronoActualizar();
  clocks.TimeDeco.set_back_color(ui::rgb(1, 2, 3));
  tick(3);
  clocks.reset();
  tick(3);
  EXPECT_EQ(clocks.TextLapsoTotal.text(), "");
  EXPECT_EQ(clocks.TimeDeco.text(), "");
  EXPECT_EQ(clocks.TimeDeco.back_color(), ui::Color::window_background);
  EXPECT_EQ(clocks.LapsoDeco, 0);
  EXPECT_EQ(clocks.LabelD.caption(), "Tiempo descodificaci\xF3n");
}

}  // namespace
}  // namespace ordelan::test
