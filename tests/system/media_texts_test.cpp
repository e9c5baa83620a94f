#include "system/media_texts.h"

#include <gtest/gtest.h>

#include <cmath>

#include "system/media.h"

namespace ordelan::system {
namespace {

TEST(MediaTexts, states_have_the_texts_that_the_program_looks_for) {
  EXPECT_EQ(status_text(Media::kPlaying, 192), "Reproduciendo: 192 K bits/s");
  EXPECT_EQ(status_text(Media::kPaused, 192), "En pausa");
  EXPECT_EQ(status_text(Media::kStopped, 192), "Detenido");
  EXPECT_EQ(status_text(Media::kOpening, 192), "Abriendo");
  EXPECT_EQ(status_text(Media::kReady, 192), "Listo");
  EXPECT_EQ(status_text(Media::kUndefined, 192), "");
  EXPECT_EQ(status_text(7, 192), "");
}

TEST(MediaTexts, a_duration_has_hours_only_from_one_on) {
  EXPECT_EQ(duration_text(0.4), "00:00");
  EXPECT_EQ(duration_text(59.99), "00:59");
  EXPECT_EQ(duration_text(61), "01:01");
  EXPECT_EQ(duration_text(3599.9), "59:59");
  EXPECT_EQ(duration_text(3600), "1:00:00");
  EXPECT_EQ(duration_text(36'061), "10:01:01");
}

TEST(MediaTexts, what_is_no_duration_has_no_text) {
  EXPECT_EQ(duration_text(0), "");
  EXPECT_EQ(duration_text(-3), "");
  EXPECT_EQ(duration_text(NAN), "");
  EXPECT_EQ(duration_text(1e300), "277777:46:40");
}

TEST(MediaTexts, a_title_of_a_path_is_its_name_alone) {
  EXPECT_EQ(title_of_path("D:\\Mix\\voz 1.final.wav"), "voz 1.final");
  EXPECT_EQ(title_of_path("voz"), "voz");
  EXPECT_EQ(title_of_path("D:\\Mix.d\\voz"), "voz");
  EXPECT_EQ(title_of_path("D:\\.wav"), ".wav");
  EXPECT_EQ(title_of_path(""), "");
}

TEST(MediaTexts, gain_is_forty_decibels_a_decade) {
  EXPECT_EQ(gain_of(100), 0);
  EXPECT_EQ(gain_of(50), -1204);
  EXPECT_EQ(gain_of(10), -4000);
  EXPECT_EQ(gain_of(1), -8000);
  EXPECT_EQ(gain_of(0), -10'000);
  EXPECT_EQ(gain_of(-7), -10'000);
  EXPECT_EQ(gain_of(300), 0);
}

TEST(MediaTexts, balance_makes_the_other_side_quieter) {
  EXPECT_EQ(balance_gain_of(0), 0);
  EXPECT_EQ(balance_gain_of(50), 1204);
  EXPECT_EQ(balance_gain_of(-50), -1204);
  EXPECT_EQ(balance_gain_of(100), 10'000);
  EXPECT_EQ(balance_gain_of(-250), -10'000);
}

}  // namespace
}  // namespace ordelan::system
