// The media engine of the tests keeps to what every one keeps to, and to the clock of the test.
#include "support/fake_media.h"

#include "system/media_contract.h"

namespace ordelan::test {
namespace {

using Time = system::Media::Time;
using State = system::Media::State;

class FakeMediaPlace {
 public:
  system::Media& media() { return media_; }
  std::string tone(Time duration) {
    const std::string path = "D:\\" + std::to_string(media_.files.size()) + ".wav";
    media_.files[path] = {.duration = duration, .opening = Time(30)};
    return path;
  }
  std::string no_audio() {
    media_.files["D:\\nada.txt"] = {.status = system::Reason::not_supported};
    return "D:\\nada.txt";
  }
  std::string missing() { return "D:\\falta.wav"; }
  void pass(Time time) { media_.advance(time); }
  Time slack() { return Time(0); }

 private:
  FakeMedia media_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, MediaContract, FakeMediaPlace);

TEST(FakeMedia, time_passes_by_hand_to_the_millisecond) {
  FakeMedia media;
  media.files["a"] = {.duration = Time(1000), .opening = Time(40)};
  int ends = 0;
  media.on_end = [&] { ++ends; };
  ASSERT_TRUE(media.open("a"));
  ASSERT_TRUE(media.run());
  media.advance(Time(39));
  EXPECT_EQ(media.state(), State::opening);
  media.advance(Time(1));
  EXPECT_EQ(media.state(), State::playing);
  media.advance(Time(999));
  EXPECT_EQ(media.position(), Time(999));
  EXPECT_EQ(ends, 0);
  media.advance(Time(1));
  EXPECT_EQ(ends, 1);
}

TEST(FakeMedia, what_a_test_forbids_fails) {
  FakeMedia media;
  media.files["a"] = {.duration = Time(1000), .seekable = false};
  ASSERT_TRUE(media.open("a"));
  EXPECT_EQ(media.seek(Time(1)), system::Reason::not_ready);
  media.advance(Time(0));
  EXPECT_EQ(media.seek(Time(1)), system::Reason::not_supported);
  media.device = false;
  EXPECT_EQ(media.run(), system::Reason::not_ready);
  EXPECT_EQ(media.state(), State::stopped);
}

TEST(NoMedia, opens_nothing_and_keeps_the_volume) {
  system::NoMedia media;
  EXPECT_EQ(media.open("D:\\a.wav"), system::Reason::not_supported);
  EXPECT_EQ(media.state(), State::empty);
  EXPECT_EQ(media.run(), system::Reason::not_found);
  media.set_volume(120);
  media.set_balance(-7);
  EXPECT_EQ(media.volume(), 100);
  EXPECT_EQ(media.balance(), -7);
}

}  // namespace
}  // namespace ordelan::test
