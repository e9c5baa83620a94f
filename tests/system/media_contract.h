// What every Media keeps to, as tests. Each implementation runs them over a place of its own:
//
//   INSTANTIATE_TYPED_TEST_SUITE_P(Fake, MediaContract, FakeMediaPlace);
//
// A place is made anew for each test. It has
//
//   system::Media& media();              what is tried
//   std::string tone(Time duration);     the path of an audio file of that length
//   std::string no_audio();              the path of a file that exists and holds no audio
//   std::string missing();               the path of a file that does not exist
//   void pass(Time time);                lets that time pass and runs the events of it, in turns
//   Time slack();                        how far times may be off; 0 for an exact clock
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "system/media.h"

namespace ordelan::test {

using MediaTime = system::Media::Time;
using MediaState = system::Media::State;

template <class Place>
class MediaContract : public testing::Test {
 protected:
  MediaContract() {
    media().on_opened = [this](system::Status status) { opened.push_back(status.reason()); };
    media().on_end = [this] {
      ++ends;
      state_at_end = media().state();
      position_at_end = media().position();
    };
  }

  Place& place() { return place_; }
  system::Media& media() { return place_.media(); }

  // Opens a file and waits for it, for ten seconds at most.
  void open(const std::string& path) {
    const auto before = opened.size();
    ASSERT_EQ(media().open(path), system::Reason::ok);
    for (int turn = 0; turn < 1000 && opened.size() == before; ++turn) place_.pass(MediaTime(10));
    ASSERT_EQ(opened.size(), before + 1);
  }
  bool is_near(MediaTime position, MediaTime expected) {
    return std::abs((position - expected).count()) <= place_.slack().count();
  }

  std::vector<system::Reason> opened;
  int ends = 0;
  MediaState state_at_end = MediaState::empty;
  MediaTime position_at_end{-1};

 private:
  Place place_;
};

TYPED_TEST_SUITE_P(MediaContract);

TYPED_TEST_P(MediaContract, without_a_file_there_is_nothing_to_play) {
  auto& media = this->media();
  EXPECT_EQ(media.state(), MediaState::empty);
  EXPECT_EQ(media.path(), "");
  EXPECT_EQ(media.run(), system::Reason::not_found);
  EXPECT_EQ(media.pause(), system::Reason::not_found);
  EXPECT_EQ(media.stop(), system::Reason::not_found);
  EXPECT_EQ(media.seek(MediaTime(100)), system::Reason::not_found);
  EXPECT_EQ(media.position(), MediaTime(0));
  EXPECT_EQ(media.duration(), MediaTime(0));
  media.close();
  this->place().pass(MediaTime(50));
  EXPECT_TRUE(this->opened.empty());
  EXPECT_EQ(this->ends, 0);
}

TYPED_TEST_P(MediaContract, an_opened_file_waits_at_its_beginning) {
  const std::string path = this->place().tone(MediaTime(2000));
  ASSERT_TRUE(this->media().open(path));
  EXPECT_TRUE(this->opened.empty()) << "never inside the call";
  EXPECT_EQ(this->media().path(), path);
  this->media().close();
  this->open(path);
  EXPECT_EQ(this->opened.back(), system::Reason::ok);
  EXPECT_EQ(this->media().state(), MediaState::stopped);
  EXPECT_TRUE(this->is_near(this->media().duration(), MediaTime(2000)));
  this->place().pass(MediaTime(100));
  EXPECT_EQ(this->media().position(), MediaTime(0));
}

TYPED_TEST_P(MediaContract, a_file_that_cannot_be_played_leaves_nothing_open) {
  EXPECT_EQ(this->media().open(this->place().missing()), system::Reason::not_found);
  EXPECT_EQ(this->media().state(), MediaState::empty);
  this->open(this->place().no_audio());
  EXPECT_NE(this->opened.back(), system::Reason::ok);
  EXPECT_EQ(this->media().state(), MediaState::empty);
  EXPECT_EQ(this->media().path(), "");
}

TYPED_TEST_P(MediaContract, a_playing_file_goes_on_and_a_paused_one_rests) {
  this->open(this->place().tone(MediaTime(5000)));
  ASSERT_TRUE(this->media().run());
  EXPECT_EQ(this->media().state(), MediaState::playing);
  this->place().pass(MediaTime(500));
  EXPECT_TRUE(this->is_near(this->media().position(), MediaTime(500)));
  ASSERT_TRUE(this->media().pause());
  EXPECT_EQ(this->media().state(), MediaState::paused);
  const MediaTime rests = this->media().position();
  this->place().pass(MediaTime(300));
  EXPECT_EQ(this->media().position(), rests);
  EXPECT_TRUE(this->media().pause()) << "once more is as good as once";
  ASSERT_TRUE(this->media().run());
  this->place().pass(MediaTime(200));
  EXPECT_TRUE(this->is_near(this->media().position(), rests + MediaTime(200)));
  ASSERT_TRUE(this->media().stop());
  EXPECT_EQ(this->media().state(), MediaState::stopped);
  EXPECT_EQ(this->media().position(), MediaTime(0));
  EXPECT_TRUE(this->media().pause());
  EXPECT_EQ(this->media().state(), MediaState::stopped) << "only what plays is paused";
  EXPECT_EQ(this->ends, 0);
}

TYPED_TEST_P(MediaContract, a_file_that_ends_says_so_once_and_can_be_played_again) {
  this->open(this->place().tone(MediaTime(400)));
  for (int turn = 1; turn <= 2; ++turn) {
    ASSERT_TRUE(this->media().run());
    for (int waits = 0; waits < 1000 && this->ends < turn; ++waits)
      this->place().pass(MediaTime(10));
    EXPECT_EQ(this->ends, turn);
    EXPECT_EQ(this->state_at_end, MediaState::stopped);
    EXPECT_EQ(this->position_at_end, MediaTime(0));
    this->place().pass(MediaTime(200));
    EXPECT_EQ(this->ends, turn);
  }
}

TYPED_TEST_P(MediaContract, a_seek_changes_the_position_and_not_the_state) {
  this->open(this->place().tone(MediaTime(5000)));
  ASSERT_TRUE(this->media().seek(MediaTime(1000)));
  EXPECT_EQ(this->media().state(), MediaState::stopped);
  EXPECT_TRUE(this->is_near(this->media().position(), MediaTime(1000)));
  ASSERT_TRUE(this->media().run());
  ASSERT_TRUE(this->media().seek(MediaTime(3000)));
  EXPECT_EQ(this->media().state(), MediaState::playing);
  this->place().pass(MediaTime(200));
  EXPECT_TRUE(this->is_near(this->media().position(), MediaTime(3200)));
  ASSERT_TRUE(this->media().pause());
  ASSERT_TRUE(this->media().seek(MediaTime(-5)));
  EXPECT_EQ(this->media().state(), MediaState::paused);
  EXPECT_EQ(this->media().position(), MediaTime(0));
  ASSERT_TRUE(this->media().seek(MediaTime(99'000)));
  EXPECT_EQ(this->media().position(), this->media().duration());
}

TYPED_TEST_P(MediaContract, a_playing_file_that_is_sent_to_its_end_ends) {
  this->open(this->place().tone(MediaTime(3000)));
  ASSERT_TRUE(this->media().run());
  ASSERT_TRUE(this->media().seek(MediaTime(3000)));
  for (int waits = 0; waits < 1000 && this->ends == 0; ++waits) this->place().pass(MediaTime(10));
  EXPECT_EQ(this->ends, 1);
}

TYPED_TEST_P(MediaContract, another_file_takes_the_place_of_the_first) {
  const std::string first = this->place().tone(MediaTime(300));
  const std::string second = this->place().tone(MediaTime(4000));
  this->open(first);
  ASSERT_TRUE(this->media().run());
  this->open(second);
  EXPECT_EQ(this->media().path(), second);
  EXPECT_EQ(this->media().state(), MediaState::stopped) << "opening plays nothing";
  EXPECT_EQ(this->media().position(), MediaTime(0));
  this->place().pass(MediaTime(500));
  EXPECT_EQ(this->ends, 0) << "the first one has been closed before its end";
  // A file that is still being opened gives way without a word.
  const auto before = this->opened.size();
  ASSERT_TRUE(this->media().open(first));
  this->open(second);
  this->place().pass(MediaTime(200));
  EXPECT_EQ(this->opened.size(), before + 1);
  this->media().close();
  EXPECT_EQ(this->media().state(), MediaState::empty);
  EXPECT_EQ(this->media().path(), "");
}

TYPED_TEST_P(MediaContract, a_run_while_a_file_is_being_opened_plays_it_afterwards) {
  const std::string path = this->place().tone(MediaTime(5000));
  for (const bool taken_back : {false, true}) {
    ASSERT_TRUE(this->media().open(path));
    ASSERT_TRUE(this->media().run());
    if (taken_back) {
      ASSERT_TRUE(this->media().stop());
    }
    const auto before = this->opened.size();
    for (int turn = 0; turn < 1000 && this->opened.size() == before; ++turn) {
      this->place().pass(MediaTime(10));
    }
    EXPECT_EQ(this->media().state(), taken_back ? MediaState::stopped : MediaState::playing);
  }
}

TYPED_TEST_P(MediaContract, volume_and_balance_hold_for_every_file) {
  auto& media = this->media();
  EXPECT_EQ(media.volume(), 50);
  EXPECT_EQ(media.balance(), 0);
  media.set_volume(30);
  media.set_balance(-40);
  this->open(this->place().tone(MediaTime(1000)));
  EXPECT_EQ(media.volume(), 30);
  EXPECT_EQ(media.balance(), -40);
  media.set_volume(101);
  media.set_balance(-101);
  EXPECT_EQ(media.volume(), 100);
  EXPECT_EQ(media.balance(), -100);
  media.close();
  media.set_volume(-1);
  media.set_balance(1000);
  EXPECT_EQ(media.volume(), 0);
  EXPECT_EQ(media.balance(), 100);
}

TYPED_TEST_P(MediaContract, a_handler_may_open_the_next_file) {
  const std::string first = this->place().tone(MediaTime(300));
  const std::string second = this->place().tone(MediaTime(5000));
  this->open(first);
  auto& media = this->media();
  media.on_end = [&] {
    EXPECT_TRUE(media.open(second));
    EXPECT_TRUE(media.run());
  };
  ASSERT_TRUE(media.run());
  for (int turn = 0; turn < 1000 && this->opened.size() < 2; ++turn)
    this->place().pass(MediaTime(10));
  EXPECT_EQ(media.path(), second);
  EXPECT_EQ(media.state(), MediaState::playing);
}

REGISTER_TYPED_TEST_SUITE_P(
    MediaContract, without_a_file_there_is_nothing_to_play, an_opened_file_waits_at_its_beginning,
    a_file_that_cannot_be_played_leaves_nothing_open, a_playing_file_goes_on_and_a_paused_one_rests,
    a_file_that_ends_says_so_once_and_can_be_played_again,
    a_seek_changes_the_position_and_not_the_state, a_playing_file_that_is_sent_to_its_end_ends,
    another_file_takes_the_place_of_the_first,
    a_run_while_a_file_is_being_opened_plays_it_afterwards, volume_and_balance_hold_for_every_file,
    a_handler_may_open_the_next_file);

}  // namespace ordelan::test
