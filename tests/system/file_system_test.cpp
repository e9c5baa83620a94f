// What every file system shares, and the pace of long loops.
#include "system/file_system.h"

#include <gtest/gtest.h>

#include "support/fake_services.h"
#include "support/forwarding_files.h"
#include "system/event_pump.h"

namespace ordelan::test {
namespace {

// A disk with one entry.
class OneEntry final : public NoFiles {
 public:
  system::FileInfo entry;

  std::optional<system::FileInfo> info(std::string_view) override { return entry; }
};

TEST(LookUp, a_plain_file_is_found_with_what_the_disk_has_of_it) {
  OneEntry files;
  files.entry = {.name = "Tema.vip", .size = 7};
  const auto found = files.look_up("D:\\tema.vip");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->name, "Tema.vip");
  EXPECT_EQ(found->size, 7u);
}

TEST(LookUp, a_link_to_a_file_counts) {
  OneEntry files;
  files.entry = {.name = "a", .link = true};
  EXPECT_TRUE(files.look_up("D:\\a"));
}

TEST(LookUp, folders_hidden_files_and_system_files_are_ignored) {
  OneEntry files;
  files.entry = {.name = "a", .folder = true};
  EXPECT_FALSE(files.look_up("D:\\a"));
  files.entry = {.name = "a", .hidden = true};
  EXPECT_FALSE(files.look_up("D:\\a"));
  files.entry = {.name = "a", .system = true};
  EXPECT_FALSE(files.look_up("D:\\a"));
}

TEST(WithBackslash, adds_one_where_there_is_none) {
  EXPECT_EQ(system::with_backslash("D:\\Mix"), "D:\\Mix\\");
  EXPECT_EQ(system::with_backslash("D:\\Mix\\"), "D:\\Mix\\");
  EXPECT_EQ(system::with_backslash("D:"), "D:\\");
  EXPECT_EQ(system::with_backslash(""), "\\");
}

struct CountingPump final : system::EventPump {
  explicit CountingPump(HandClock& used) : clock(used) {}
  void pump() override {
    ++pumps;
    clock.time += work;
  }
  void wait() override { pump(); }
  bool ended() const override { return false; }
  HandClock& clock;
  std::chrono::milliseconds work{0};  // how long the events take
  int pumps = 0;
};

TEST(Pacer, a_loop_that_looks_all_the_time_pumps_seldom_enough_and_often_enough) {
  HandClock clock;
  CountingPump pump(clock);
  system::Pacer pacer(pump, clock);
  int turns = 0;
  for (int i = 0; i < 1000; ++i) {  // a second in steps of a millisecond
    clock.time += std::chrono::milliseconds(1);
    turns += pacer.turn() ? 1 : 0;
  }
  EXPECT_EQ(turns, pump.pumps) << "it says when it pumped";
  EXPECT_GE(pump.pumps, 1000 / 30) << "the window answers within 30 ms";
  EXPECT_LE(pump.pumps, 1000 / 10) << "the loop has the machine for itself most of the time";
}

TEST(Pacer, the_first_look_does_not_pump) {
  HandClock clock;
  CountingPump pump(clock);
  system::Pacer pacer(pump, clock);
  EXPECT_FALSE(pacer.turn());
  EXPECT_EQ(pump.pumps, 0);
}

TEST(Pacer, the_time_that_events_take_is_not_the_time_of_the_loop) {
  HandClock clock;
  CountingPump pump(clock);
  pump.work = std::chrono::milliseconds(500);
  system::Pacer pacer(pump, clock);
  clock.time += std::chrono::milliseconds(100);
  EXPECT_TRUE(pacer.turn());
  EXPECT_FALSE(pacer.turn()) << "however long the handlers ran, the loop gets its turn";
}

}  // namespace
}  // namespace ordelan::test
