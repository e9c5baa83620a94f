#include "headless/headless_backend.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <utility>

#include "support/fake_services.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "ui/window.h"

namespace ordelan::test {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct HeadlessBackendTest : ::testing::Test {
  HeadlessBackendTest() { window.load(); }

  std::unique_ptr<ui::Timer> make_timer(const std::string& name, ui::Timer::Interval interval) {
    auto timer = std::make_unique<ui::Timer>(window, name, interval);
    timer->on_tick = [this, name] { events.push_back(name); };
    timer->attach(backend);
    return timer;
  }
  void pump_after(std::chrono::milliseconds time) {
    clock.time += time;
    backend.pump();
  }

  HandClock clock;
  headless::HeadlessBackend backend{clock};
  ui::Window window{backend, "window"};
  std::vector<std::string> events;
};

TEST_F(HeadlessBackendTest, a_timer_ticks_when_its_interval_has_gone_by) {
  auto timer = make_timer("t", 100ms);
  pump_after(500ms);
  EXPECT_THAT(events, IsEmpty()) << "it is off at first";
  timer->start();
  pump_after(99ms);
  EXPECT_THAT(events, IsEmpty());
  pump_after(1ms);
  EXPECT_THAT(events, ElementsAre("t"));
  pump_after(99ms);
  EXPECT_THAT(events, ElementsAre("t"));
  pump_after(1ms);
  EXPECT_THAT(events, ElementsAre("t", "t"));
}

TEST_F(HeadlessBackendTest, missed_ticks_are_not_made_up) {
  auto timer = make_timer("t", 100ms);
  timer->start();
  pump_after(1000ms);
  backend.pump();
  EXPECT_THAT(events, ElementsAre("t"));
}

TEST_F(HeadlessBackendTest, a_stopped_timer_does_not_tick) {
  auto timer = make_timer("t", 100ms);
  timer->start();
  timer->stop();
  pump_after(200ms);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(HeadlessBackendTest, starting_again_begins_the_interval_anew) {
  auto timer = make_timer("t", 100ms);
  timer->start();
  pump_after(60ms);
  timer->start();
  pump_after(60ms);
  EXPECT_THAT(events, IsEmpty());
  pump_after(40ms);
  EXPECT_THAT(events, ElementsAre("t"));
}

TEST_F(HeadlessBackendTest, a_timer_started_before_its_window_is_up_ticks_once_it_is) {
  ui::Window later(backend, "later");
  ui::Timer timer(later, "t", 100ms);
  timer.on_tick = [this] { events.emplace_back("t"); };
  timer.start();
  pump_after(200ms);
  EXPECT_THAT(events, IsEmpty());
  later.load();
  pump_after(100ms);
  EXPECT_THAT(events, ElementsAre("t"));
  later.unload();
  pump_after(100ms);
  EXPECT_THAT(events, ElementsAre("t")) << "nor does it after its window";
}

TEST_F(HeadlessBackendTest, a_timer_that_is_gone_does_not_tick) {
  auto timer = make_timer("t", 100ms);
  timer->start();
  timer.reset();
  pump_after(200ms);
  EXPECT_THAT(events, IsEmpty());
}

TEST_F(HeadlessBackendTest, the_pump_ticks_first_and_then_runs_what_the_test_does) {
  auto timer = make_timer("t", 100ms);
  timer->start();
  backend.on_pump = [this] { events.emplace_back("pump"); };
  pump_after(100ms);
  EXPECT_THAT(events, ElementsAre("t", "pump"));
}

// Two timers that are due at once. Which one goes first is not promised, so that each does to the
// other what the case is about.
struct TwoDueTimersTest : HeadlessBackendTest {
  void run(const std::function<void(std::unique_ptr<ui::Timer>& other)>& act) {
    for (int i = 0; i < 2; ++i) {
      timers[i] = make_timer("", 100ms);
      timers[i]->on_tick = [this, i, act] {
        ++ticks;
        if (timers[1 - i]) act(timers[1 - i]);
      };
      timers[i]->start();
    }
    pump_after(100ms);
  }
  std::unique_ptr<ui::Timer> timers[2];
  int ticks = 0;
};

TEST_F(TwoDueTimersTest, both_tick_in_one_pump) {
  run([](auto&) {});
  EXPECT_EQ(ticks, 2);
}

TEST_F(TwoDueTimersTest, one_stopped_by_an_earlier_tick_does_not_tick) {
  run([](auto& other) { other->stop(); });
  EXPECT_EQ(ticks, 1);
}

TEST_F(TwoDueTimersTest, one_destroyed_by_an_earlier_tick_does_not_tick) {
  run([](auto& other) { other.reset(); });
  EXPECT_EQ(ticks, 1);
}

TEST_F(TwoDueTimersTest, one_started_anew_by_an_earlier_tick_waits_its_interval) {
  bool done = false;
  run([&](auto& other) {
    if (!std::exchange(done, true)) other->start();
  });
  EXPECT_EQ(ticks, 1);
  pump_after(100ms);
  EXPECT_EQ(ticks, 3);
}

TEST_F(TwoDueTimersTest, a_tick_that_pumps_itself_makes_no_timer_tick_twice) {
  run([this](auto&) { backend.pump(); });
  EXPECT_EQ(ticks, 2);
}

TEST_F(HeadlessBackendTest, a_timer_may_be_destroyed_inside_its_own_tick) {
  auto timer = make_timer("t", 100ms);
  timer->on_tick = [&] {
    events.emplace_back("last");
    timer.reset();
  };
  timer->start();
  pump_after(100ms);
  pump_after(100ms);
  EXPECT_THAT(events, ElementsAre("last"));
}

TEST_F(HeadlessBackendTest, lines_are_what_the_text_breaks_into) {
  ui::TextBox box(window, "box");
  EXPECT_EQ(box.line_count(), 1);
  box.set_text("one");
  EXPECT_EQ(box.line_count(), 1);
  box.set_text("one\r\ntwo\r\n");
  EXPECT_EQ(box.line_count(), 3);
}

TEST_F(HeadlessBackendTest, waiting_is_pumping) {
  auto timer = make_timer("t", 100ms);
  timer->start();
  clock.time += 100ms;
  backend.wait();
  EXPECT_THAT(events, ElementsAre("t"));
}

TEST_F(HeadlessBackendTest, the_end_is_remembered) {
  EXPECT_FALSE(backend.ended());
  backend.end();
  EXPECT_TRUE(backend.ended());
}

}  // namespace
}  // namespace ordelan::test
