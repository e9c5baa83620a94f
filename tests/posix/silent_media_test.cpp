#include "posix/silent_media.h"

#include <cmath>
#include <map>

#include "system/media_contract.h"

namespace ordelan::test {
namespace {

using Media = system::Media;

class MovedClock final : public system::Clock {
 public:
  Time now() override { return now_; }
  void pass(double seconds) {
    now_ += std::chrono::duration_cast<Time::duration>(std::chrono::duration<double>(seconds));
  }

 private:
  Time now_{};
};

class SilentMediaPlace {
 public:
  static bool sounds() { return true; }
  system::Media& media() { return media_; }
  std::string tone(double seconds) {
    const std::string path = "D:\\tono" + std::to_string(durations_.size()) + ".wav";
    durations_[path] = seconds;
    return path;
  }
  std::string no_audio() { return "D:\\nada.txt"; }
  std::string missing() { return "D:\\falta.wav"; }
  void pass(double seconds) { clock_.pass(seconds); }
  double slack() { return 1e-6; }

 private:
  std::map<std::string, double> durations_;
  MovedClock clock_;
  posix::SilentMedia media_{clock_,
                            {.duration_of =
                                 [this](const std::string& path) {
                                   const auto found = durations_.find(path);
                                   return found == durations_.end() ? 0 : found->second;
                                 },
                             .title_of = {},
                             .kilobits_of = {}}};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Silent, MediaContract, SilentMediaPlace);

TEST(SilentMedia, says_what_the_facts_say) {
  MovedClock clock;
  posix::SilentMedia media(
      clock, {.duration_of = [](const std::string&) { return 3725.9; },
              .title_of = [](const std::string&) { return "Canci\xF3n"; },
              .kilobits_of = [](const std::string&,
                                double seconds) { return static_cast<int>(seconds) / 10; }});
  media.set_URL("D:\\a.mp3");
  EXPECT_EQ(media.status(), "Reproduciendo: 372 K bits/s");
  EXPECT_EQ(media.durationString(), "1:02:05");
  EXPECT_EQ(media.name(), "Canci\xF3n");
}

TEST(SilentMedia, a_duration_that_is_no_number_cannot_be_played) {
  MovedClock clock;
  for (const double duration :
       {0.0, -1.0, static_cast<double>(NAN), static_cast<double>(INFINITY)}) {
    posix::SilentMedia media(clock, {.duration_of = [=](const std::string&) { return duration; },
                                     .title_of = {},
                                     .kilobits_of = {}});
    media.set_URL("D:\\a.mp3");
    EXPECT_EQ(media.status(), "Listo") << duration;
    EXPECT_EQ(media.duration(), 0);
  }
}

TEST(SilentMedia, without_facts_nothing_can_be_played) {
  MovedClock clock;
  posix::SilentMedia media(clock, {});
  media.set_URL("D:\\a.mp3");
  EXPECT_EQ(media.playState(), Media::kReady);
  EXPECT_EQ(media.name(), "a");
}

}  // namespace
}  // namespace ordelan::test
