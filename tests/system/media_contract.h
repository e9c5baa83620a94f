// What every Media keeps to, as tests. Each implementation runs them over a place of its own:
//
//   INSTANTIATE_TYPED_TEST_SUITE_P(Fake, MediaContract, FakeMediaPlace);
//
// A place is made anew for each test. It has
//
//   system::Media& media();             what is tried
//   std::string tone(double seconds);   the path of an audio file of that length, without a title
//   std::string no_audio();             the path of a file that exists and holds no audio
//   std::string missing();              the path of a file that does not exist
//   void pass(double seconds);          lets that time pass
//   double slack();                     how far times may be off; next to nothing for an exact
//   clock static bool sounds();               false where this machine cannot play: the tests are
//   skipped
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <string_view>

#include "system/media.h"

namespace ordelan::test {

template <class Place>
class MediaContract : public testing::Test {
 protected:
  using Media = system::Media;

  void SetUp() override {
    if (!Place::sounds()) GTEST_SKIP() << "this machine has no sound device";
  }

  Place& place() { return place_; }
  system::Media& media() { return place_.media(); }

  // Waits for it, for ten seconds at most.
  bool comes(const std::function<bool()>& awaited) {
    for (int turn = 0; turn < 1000 && !awaited(); ++turn) place_.pass(0.01);
    return awaited();
  }
  bool state_comes(int state) {
    return comes([&] { return media().playState() == state; });
  }
  // Gives the engine a path and waits until it is open.
  void open(const std::string& path) {
    media().set_URL(path);
    ASSERT_TRUE(comes([&] { return media().playState() != Media::kOpening; }));
  }
  // The same for a file that can be played.
  void open_tone(double seconds) {
    open(place_.tone(seconds));
    ASSERT_EQ(media().playState(), Media::kPlaying) << media().notice();
  }
  bool is_at(double expected) {
    return std::abs(media().currentPosition() - expected) <= place_.slack();
  }
  static bool is_playing_text(const std::string& text) {
    return text.starts_with("Reproduciendo: ") && text.ends_with(" K bits/s");
  }

 private:
  Place place_;
};

TYPED_TEST_SUITE_P(MediaContract);

TYPED_TEST_P(MediaContract, without_a_file_there_is_nothing_to_play) {
  auto& media = this->media();
  const auto check = [&media] {
    EXPECT_EQ(media.URL(), "");
    EXPECT_EQ(media.playState(), system::Media::kUndefined);
    EXPECT_EQ(media.status(), "");
    EXPECT_EQ(media.currentPosition(), 0);
    EXPECT_EQ(media.duration(), 0);
    EXPECT_EQ(media.durationString(), "");
    EXPECT_EQ(media.name(), "");
    EXPECT_EQ(media.notice(), "");
    EXPECT_TRUE(media.heard(100).samples.empty());
  };
  check();
  media.play();
  media.pause();
  media.stop();
  media.set_currentPosition(1);
  media.close();
  media.set_URL("");
  this->place().pass(0.05);
  check();
}

TYPED_TEST_P(MediaContract, a_path_is_played_from_its_beginning_without_a_further_order) {
  const std::string path = this->place().tone(2);
  auto& media = this->media();
  media.set_URL(path);
  EXPECT_EQ(media.URL(), path);
  this->open(path);
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  EXPECT_TRUE(this->is_at(0)) << media.currentPosition();
  EXPECT_NEAR(media.duration(), 2, this->place().slack());
  EXPECT_EQ(media.durationString(), "00:02");
  EXPECT_TRUE(this->is_playing_text(media.status())) << media.status();
  EXPECT_NE(media.name(), "");
  EXPECT_NE(path.find(media.name() + "."), std::string::npos) << media.name();
  EXPECT_EQ(media.notice(), "");
  const double begin = media.currentPosition();
  this->place().pass(0.5);
  EXPECT_TRUE(this->is_at(begin + 0.5)) << media.currentPosition();
}

TYPED_TEST_P(MediaContract, a_file_that_cannot_be_played_stays_loaded_and_says_why) {
  auto& media = this->media();
  for (const std::string& path : {this->place().missing(), this->place().no_audio()}) {
    this->open(path);
    for (const bool ordered : {false, true}) {
      if (ordered) {
        media.play();
        media.pause();
        media.stop();
        media.set_currentPosition(1);
        ASSERT_TRUE(this->state_comes(system::Media::kReady));
      }
      EXPECT_EQ(media.URL(), path);
      EXPECT_EQ(media.playState(), system::Media::kReady);
      EXPECT_EQ(media.status(), "Listo");
      EXPECT_EQ(media.currentPosition(), 0);
      EXPECT_EQ(media.duration(), 0);
      EXPECT_EQ(media.durationString(), "");
      EXPECT_NE(media.notice(), "");
      EXPECT_TRUE(media.heard(100).samples.empty());
    }
  }
  this->open_tone(1);
  EXPECT_EQ(media.notice(), "");
}

TYPED_TEST_P(MediaContract, play_after_a_pause_goes_on_where_it_was) {
  auto& media = this->media();
  this->open_tone(5);
  this->place().pass(0.5);
  media.pause();
  EXPECT_EQ(media.playState(), system::Media::kPaused);
  EXPECT_EQ(media.status(), "En pausa");
  this->place().pass(0.1);
  const double rests = media.currentPosition();
  EXPECT_NEAR(rests, 0.5, 2 * this->place().slack());
  EXPECT_TRUE(media.heard(100).samples.empty());
  media.pause();
  this->place().pass(0.3);
  EXPECT_EQ(media.currentPosition(), rests);
  EXPECT_EQ(media.playState(), system::Media::kPaused);
  media.play();
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  this->place().pass(0.2);
  EXPECT_TRUE(this->is_at(rests + 0.2)) << media.currentPosition();
  media.play();
  this->place().pass(0.2);
  EXPECT_TRUE(this->is_at(rests + 0.4)) << "playing already: " << media.currentPosition();
}

TYPED_TEST_P(MediaContract, stop_goes_back_to_the_beginning) {
  auto& media = this->media();
  for (const bool paused : {false, true}) {
    this->open_tone(5);
    this->place().pass(0.3);
    if (paused) media.pause();
    media.stop();
    EXPECT_EQ(media.playState(), system::Media::kStopped);
    EXPECT_EQ(media.status(), "Detenido");
    EXPECT_EQ(media.currentPosition(), 0);
    this->place().pass(0.1);
    EXPECT_EQ(media.currentPosition(), 0);
    EXPECT_NEAR(media.duration(), 5, this->place().slack());
    EXPECT_TRUE(media.heard(100).samples.empty());
    media.pause();
    this->place().pass(0.05);
    EXPECT_EQ(media.playState(), system::Media::kStopped) << "only what plays is paused";
    media.play();
    EXPECT_TRUE(this->is_playing_text(media.status())) << "at once: " << media.status();
    this->place().pass(0.3);
    EXPECT_TRUE(this->is_at(0.3)) << media.currentPosition();
  }
}

TYPED_TEST_P(MediaContract, a_file_that_comes_to_its_end_stops_by_itself) {
  auto& media = this->media();
  this->open_tone(0.5);
  for (int turn = 0; turn < 2; ++turn) {
    if (turn > 0) media.play();
    EXPECT_EQ(media.playState(), system::Media::kPlaying);
    this->place().pass(0.2);
    EXPECT_EQ(media.playState(), system::Media::kPlaying);
    ASSERT_TRUE(this->state_comes(system::Media::kStopped));
    EXPECT_EQ(media.status(), "Detenido");
    EXPECT_EQ(media.currentPosition(), 0);
    EXPECT_NE(media.URL(), "");
    this->place().pass(0.2);
    EXPECT_EQ(media.playState(), system::Media::kStopped);
  }
}

TYPED_TEST_P(MediaContract, a_position_moves_what_plays_and_what_is_paused) {
  auto& media = this->media();
  this->open_tone(5);
  media.set_currentPosition(3);
  EXPECT_TRUE(this->is_at(3)) << "at once: " << media.currentPosition();
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  this->place().pass(0.2);
  EXPECT_TRUE(this->is_at(3.2)) << media.currentPosition();
  media.pause();
  media.set_currentPosition(1.5);
  this->place().pass(0.1);
  EXPECT_EQ(media.playState(), system::Media::kPaused);
  EXPECT_TRUE(this->is_at(1.5)) << media.currentPosition();
  media.set_currentPosition(-5);
  this->place().pass(0.1);
  EXPECT_TRUE(this->is_at(0)) << media.currentPosition();
  media.set_currentPosition(NAN);
  media.play();
  this->place().pass(0.3);
  EXPECT_TRUE(this->is_at(0.3)) << media.currentPosition();
}

TYPED_TEST_P(MediaContract, a_position_written_while_stopped_is_dropped) {
  auto& media = this->media();
  this->open_tone(5);
  media.stop();
  media.set_currentPosition(3);
  EXPECT_EQ(media.currentPosition(), 0);
  this->place().pass(0.1);
  EXPECT_EQ(media.currentPosition(), 0);
  EXPECT_EQ(media.playState(), system::Media::kStopped);
  media.play();
  this->place().pass(0.3);
  EXPECT_TRUE(this->is_at(0.3)) << media.currentPosition();
}

TYPED_TEST_P(MediaContract, a_position_beyond_the_end_ends_the_file) {
  auto& media = this->media();
  for (const bool paused : {false, true}) {
    this->open_tone(5);
    if (paused) media.pause();
    media.set_currentPosition(99);
    ASSERT_TRUE(this->state_comes(system::Media::kStopped));
    this->place().pass(0.1);
    EXPECT_EQ(media.playState(), system::Media::kStopped);
    EXPECT_EQ(media.currentPosition(), 0);
  }
}

TYPED_TEST_P(MediaContract, orders_for_a_file_that_is_not_open_yet_keep_their_sequence) {
  auto& media = this->media();
  const std::string path = this->place().tone(5);
  media.set_URL(path);
  media.play();
  media.set_currentPosition(2);
  ASSERT_TRUE(this->comes([&] { return media.currentPosition() >= 2; }));
  EXPECT_EQ(media.playState(), system::Media::kPlaying);
  media.set_URL(path);
  media.play();
  media.pause();
  ASSERT_TRUE(this->state_comes(system::Media::kPaused));
  this->place().pass(0.1);
  EXPECT_EQ(media.playState(), system::Media::kPaused);
  EXPECT_TRUE(this->is_at(0)) << media.currentPosition();
  media.set_URL(path);
  media.pause();
  media.stop();
  ASSERT_TRUE(this->state_comes(system::Media::kStopped));
  this->place().pass(0.1);
  EXPECT_EQ(media.playState(), system::Media::kStopped);
}

TYPED_TEST_P(MediaContract, another_path_takes_the_place_of_the_first) {
  auto& media = this->media();
  const std::string first = this->place().tone(1);
  const std::string second = this->place().tone(4);
  this->open(first);
  this->open(second);
  EXPECT_EQ(media.URL(), second);
  EXPECT_NEAR(media.duration(), 4, this->place().slack());
  this->place().pass(1.5);
  EXPECT_EQ(media.playState(), system::Media::kPlaying) << "the end of the first is no matter";
  this->open(second);
  EXPECT_TRUE(this->is_at(0)) << "the same path begins anew: " << media.currentPosition();
  for (int turn = 0; turn < 5; ++turn) {
    media.set_URL(turn % 2 == 0 ? first : second);
  }
  EXPECT_EQ(media.URL(), first);
  ASSERT_TRUE(this->state_comes(system::Media::kPlaying));
  EXPECT_NEAR(media.duration(), 1, this->place().slack());
}

TYPED_TEST_P(MediaContract, close_and_an_empty_path_let_the_file_go) {
  auto& media = this->media();
  const std::string path = this->place().tone(5);
  for (const int way : {0, 1, 2, 3}) {
    if (way < 2) {
      this->open(path);
    } else {
      media.set_URL(path);
    }
    EXPECT_TRUE(media.holds(path));
    EXPECT_TRUE(media.holds(text::upper(path))) << "as the disk compares names";
    EXPECT_FALSE(media.holds(path + "x"));
    if (way % 2 == 0) {
      media.close();
    } else {
      media.set_URL("");
    }
    for (const double time : {0.0, 0.2}) {
      this->place().pass(time);
      EXPECT_EQ(media.URL(), "");
      EXPECT_EQ(media.playState(), system::Media::kUndefined);
      EXPECT_EQ(media.status(), "");
      EXPECT_EQ(media.duration(), 0);
      EXPECT_EQ(media.currentPosition(), 0);
      EXPECT_EQ(media.name(), "");
    }
    EXPECT_TRUE(this->comes([&] { return !media.holds(path); }));
  }
  EXPECT_FALSE(media.holds(""));
  this->open_tone(1);
}

TYPED_TEST_P(MediaContract, volume_and_balance_are_kept_within_their_ranges) {
  auto& media = this->media();
  EXPECT_EQ(media.balance(), 0);
  media.set_volume(30);
  media.set_balance(-40);
  EXPECT_EQ(media.balance(), -40) << "before there is an engine";
  this->open_tone(1);
  EXPECT_EQ(media.balance(), -40);
  media.set_volume(101);
  media.set_balance(-101);
  EXPECT_EQ(media.balance(), -100);
  media.close();
  media.set_volume(-1);
  media.set_balance(1000);
  EXPECT_EQ(media.balance(), 100);
}

TYPED_TEST_P(MediaContract, an_ended_engine_is_as_at_first) {
  auto& media = this->media();
  this->open_tone(5);
  media.set_balance(20);
  media.end();
  EXPECT_EQ(media.URL(), "");
  EXPECT_EQ(media.playState(), system::Media::kUndefined);
  EXPECT_EQ(media.balance(), 0);
  media.play();
  media.end();
  EXPECT_EQ(media.playState(), system::Media::kUndefined);
  this->open_tone(5);
  this->place().pass(0.3);
  EXPECT_TRUE(this->is_at(0.3)) << media.currentPosition();
}

REGISTER_TYPED_TEST_SUITE_P(
    MediaContract, without_a_file_there_is_nothing_to_play,
    a_path_is_played_from_its_beginning_without_a_further_order,
    a_file_that_cannot_be_played_stays_loaded_and_says_why, play_after_a_pause_goes_on_where_it_was,
    stop_goes_back_to_the_beginning, a_file_that_comes_to_its_end_stops_by_itself,
    a_position_moves_what_plays_and_what_is_paused, a_position_written_while_stopped_is_dropped,
    a_position_beyond_the_end_ends_the_file,
    orders_for_a_file_that_is_not_open_yet_keep_their_sequence,
    another_path_takes_the_place_of_the_first, close_and_an_empty_path_let_the_file_go,
    volume_and_balance_are_kept_within_their_ranges, an_ended_engine_is_as_at_first);

}  // namespace ordelan::test
