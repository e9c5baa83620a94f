// The media engine of the tests keeps to what every one keeps to, and to the time of the test.
#include "support/fake_media.h"

#include "system/media_contract.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using Media = system::Media;

class FakeMediaPlace {
 public:
  static bool sounds() { return true; }
  system::Media& media() { return media_; }
  std::string tone(double seconds) {
    const std::string path = "D:\\tono" + std::to_string(media_.files.size()) + ".wav";
    media_.files[path] = {.duration = seconds, .opening = 0.03, .kilobits = 1411};
    return path;
  }
  std::string no_audio() {
    media_.files["D:\\nada.txt"] = {.opening = 0.05};
    return "D:\\nada.txt";
  }
  std::string missing() { return "D:\\falta.wav"; }
  void pass(double seconds) { media_.advance(seconds); }
  double slack() { return 0.011; }

 private:
  FakeMedia media_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, MediaContract, FakeMediaPlace);

TEST(FakeMedia, time_passes_by_hand) {
  FakeMedia media;
  media.files["a"] = {.duration = 1, .opening = 0.04, .kilobits = 192, .title = "Tema"};
  media.set_URL("a");
  media.advance(0.039);
  EXPECT_EQ(media.playState(), Media::kOpening);
  EXPECT_EQ(media.status(), "Abriendo");
  media.advance(0.001);
  EXPECT_EQ(media.status(), "Reproduciendo: 192 K bits/s");
  EXPECT_EQ(media.name(), "Tema");
  media.advance(0.999);
  EXPECT_DOUBLE_EQ(media.currentPosition(), 0.999);
  media.advance(0.001);
  EXPECT_EQ(media.status(), "Detenido");
  EXPECT_EQ(media.currentPosition(), 0);
}

TEST(FakeMedia, orders_are_recorded_as_they_were_given) {
  FakeMedia media;
  media.set_volume(101);
  media.set_balance(-3);
  media.set_URL("D:\\a.wav");
  media.play();
  media.set_currentPosition(2.5);
  media.set_currentPosition(30);
  media.pause();
  media.stop();
  media.close();
  media.end();
  EXPECT_THAT(media.orders,
              ElementsAre("volume 101", "balance -3", "URL D:\\a.wav", "play", "position 2.5",
                          "position 30", "pause", "stop", "close", "end"));
}

TEST(FakeMedia, a_test_may_have_it_say_other_texts) {
  FakeMedia media;
  media.said_status = "Stopped";
  EXPECT_EQ(media.status(), "Stopped");
}

TEST(FakeMedia, what_is_heard_is_the_newest_of_what_the_test_has_put_in) {
  FakeMedia media;
  media.files["a"] = {.duration = 1};
  media.sound = {.rate = 8000, .samples = {1, 2, 3}};
  EXPECT_TRUE(media.heard(2).samples.empty());
  media.set_URL("a");
  EXPECT_THAT(media.heard(2).samples, ElementsAre(2, 3));
  EXPECT_THAT(media.heard(9).samples, ElementsAre(1, 2, 3));
}

}  // namespace
}  // namespace ordelan::test
