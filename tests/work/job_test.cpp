#include "work/job.h"

#include <gmock/gmock.h>

#include <optional>
#include <stdexcept>

#include "support/computer.h"

namespace ordelan::test {
namespace {

struct JobTest : ::testing::Test, Computer {
  JobTest() { clock.step = std::chrono::milliseconds(20); }  // each turn is due

  work::Job begin() { return work::Job::begin(in_hand, platform); }
  work::Job join() { return work::Job::join(in_hand, platform); }

  work::WorkInHand in_hand;
};

TEST_F(JobTest, a_new_job_takes_the_place_of_those_under_way) {
  const auto first = begin();
  const auto part = join();
  EXPECT_FALSE(first.superseded());
  EXPECT_EQ(part.number(), first.number());
  const auto second = begin();
  EXPECT_TRUE(first.superseded());
  EXPECT_TRUE(part.superseded());
  EXPECT_TRUE(first.must_stop());
  EXPECT_FALSE(second.superseded());
}

TEST_F(JobTest, a_cancel_in_a_turn_stops_it) {
  auto job = begin();
  EXPECT_TRUE(job.turn());
  backend.on_pump = [&] { in_hand.Cancelar = true; };
  EXPECT_FALSE(job.turn());
  EXPECT_TRUE(job.cancelled());
  EXPECT_TRUE(job.must_stop());
  EXPECT_FALSE(job.superseded());
}

TEST_F(JobTest, shows_how_far_it_is_after_turns_that_were_due_and_no_others) {
  auto job = begin();
  int pumps = 0;
  int shown = 0;
  backend.on_pump = [&] { ++pumps; };
  for (int i = 0; i < 5; ++i) EXPECT_TRUE(job.turn([&] { ++shown; }));
  EXPECT_EQ(shown, pumps);
  EXPECT_EQ(shown, 5);
  clock.step = {};
  job.turn([&] { ++shown; });
  EXPECT_EQ(shown, 5);
}

// What it would show is the window of the newer job by then.
TEST_F(JobTest, shows_nothing_once_a_newer_job_has_taken_its_place_in_the_turn) {
  auto job = begin();
  int shown = 0;
  backend.on_pump = [&] { in_hand.begin_job(); };
  EXPECT_FALSE(job.turn([&] { ++shown; }));
  EXPECT_EQ(shown, 0);
}

TEST_F(JobTest, shows_how_far_it_has_got_when_a_turn_has_cancelled_it) {
  auto job = begin();
  int shown = 0;
  backend.on_pump = [&] { in_hand.Cancelar = true; };
  EXPECT_FALSE(job.turn([&] { ++shown; }));
  EXPECT_EQ(shown, 1);
}

TEST_F(JobTest, shows_what_it_does_ten_times_a_second_from_the_first_moment_on) {
  clock.step = std::chrono::milliseconds(10);
  auto job = begin();
  EXPECT_TRUE(job.display_due());
  int shown = 0;
  for (int i = 0; i < 100; ++i) shown += job.display_due() ? 1 : 0;
  EXPECT_EQ(shown, 10);
}

TEST_F(JobTest, puts_the_busy_flag_back_however_it_ends) {
  {
    auto job = begin();
    EXPECT_FALSE(in_hand.Descodificando);
    job.set_busy();
    EXPECT_TRUE(in_hand.Descodificando);
  }
  EXPECT_FALSE(in_hand.Descodificando);
  try {
    auto job = begin();
    job.set_busy();
    throw std::runtime_error("the disk is gone");
  } catch (const std::runtime_error&) {
    EXPECT_FALSE(in_hand.Descodificando);
  }
}

TEST_F(JobTest, leaves_the_flag_to_the_job_that_took_its_place) {
  std::optional<work::JobNumber> newer;
  {
    auto outer = begin();
    outer.set_busy();
    newer = in_hand.begin_job();
    in_hand.Descodificando = true;  // set by that newer job
  }
  EXPECT_TRUE(in_hand.Descodificando);
  EXPECT_FALSE(in_hand.superseded(*newer));
}

TEST_F(JobTest, leaves_a_flag_alone_that_it_did_not_set) {
  in_hand.Descodificando = true;
  { const auto job = join(); }
  EXPECT_TRUE(in_hand.Descodificando);
}

TEST_F(JobTest, its_listings_are_its_own_and_go_with_it) {
  disk.write("Mix\\a.wav", "a");
  const std::string folder = disk.path("Mix\\");
  {
    auto job = begin();
    EXPECT_EQ(job.folders().listing(folder).files.size(), 1u);
    disk.write("Mix\\b.wav", "b");
    EXPECT_EQ(job.folders().listing(folder).files.size(), 1u) << "listed once";
  }
  auto next = begin();
  EXPECT_EQ(next.folders().listing(folder).files.size(), 2u);
  EXPECT_TRUE(next.forget_folders());
  EXPECT_FALSE(next.folders().knows(folder));
}

TEST_F(JobTest, gives_turns_while_it_frees_its_listings_and_says_when_it_was_superseded) {
  for (const char* folder : {"a\\", "b\\", "c\\"}) disk.make_folder(folder);
  auto job = begin();
  for (const char* folder : {"a\\", "b\\", "c\\"}) job.folders().listing(disk.path(folder));
  int turns = 0;
  backend.on_pump = [&] {
    if (++turns == 2) in_hand.begin_job();
  };
  EXPECT_FALSE(job.forget_folders());
  EXPECT_EQ(turns, 3);
}

}  // namespace
}  // namespace ordelan::test
