// The texts of the transport.
#include "audio/transport_texts.h"

#include <gtest/gtest.h>

#include <limits>

namespace ordelan::test {
namespace {

using namespace audio;

TEST(TransportTexts, seconds_of_a_label_round_halves_up) {
  EXPECT_EQ(label_seconds(0), 0);
  EXPECT_EQ(label_seconds(0.49), 0);
  EXPECT_EQ(label_seconds(0.5), 1);
  EXPECT_EQ(label_seconds(2.5), 3);
  EXPECT_EQ(label_seconds(59.6), 60);
  EXPECT_EQ(label_seconds(32767.4), 32767);
}

TEST(TransportTexts, seconds_that_16_bits_do_not_hold_are_none) {
  EXPECT_EQ(label_seconds(32767.5), std::nullopt);
  EXPECT_EQ(label_seconds(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
  EXPECT_EQ(label_seconds(std::numeric_limits<double>::infinity()), std::nullopt);
  EXPECT_EQ(slider_seconds(40000), std::nullopt);
  EXPECT_EQ(slider_seconds(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
}

TEST(TransportTexts, the_end_of_the_sliders_rounds_halves_to_the_even_number) {
  EXPECT_EQ(slider_seconds(0.5), 0);
  EXPECT_EQ(slider_seconds(1.5), 2);
  EXPECT_EQ(slider_seconds(2.5), 2);
  EXPECT_EQ(slider_seconds(2.51), 3);
  EXPECT_EQ(slider_seconds(180), 180);
}

TEST(TransportTexts, elapsed_time_has_two_digits_of_each_and_no_hours) {
  EXPECT_EQ(elapsed_text(0), "00:00");
  EXPECT_EQ(elapsed_text(7), "00:07");
  EXPECT_EQ(elapsed_text(59), "00:59");
  EXPECT_EQ(elapsed_text(60), "01:00");
  EXPECT_EQ(elapsed_text(3599), "59:59");
  EXPECT_EQ(elapsed_text(7200), "120:00");
  EXPECT_EQ(elapsed_text(32767), "546:07");
  EXPECT_EQ(elapsed_text(-1), "");
}

TEST(TransportTexts, a_position_of_59_seconds_and_six_tenths_is_a_minute) {
  EXPECT_EQ(elapsed_text(*label_seconds(59.6)), "01:00");
}

TEST(TransportTexts, only_a_file_of_more_than_59_seconds_has_a_duration) {
  EXPECT_EQ(duration_caption(59), "");
  EXPECT_EQ(duration_caption(60), "Duración; 01:00");
  EXPECT_EQ(duration_caption(605), "Duración; 10:05");
}

TEST(TransportTexts, the_bit_rate_is_read_from_the_status_of_spanish_and_english_engines) {
  EXPECT_EQ(bit_rate_caption("Reproduciendo: 192 K bits/s"), " 192 Kbaud ");
  EXPECT_EQ(bit_rate_caption("Playing: 320 K bits/second"), " 320 Kbaud ");
  EXPECT_EQ(bit_rate_caption("Playing 'tema': 128 K bits/second"), " 128 Kbaud ");
}

TEST(TransportTexts, an_engine_that_does_not_play_has_no_bit_rate) {
  EXPECT_EQ(bit_rate_caption("En pausa"), std::nullopt);
  EXPECT_EQ(bit_rate_caption("Detenido"), std::nullopt);
  EXPECT_EQ(bit_rate_caption(""), std::nullopt);
  EXPECT_EQ(bit_rate_caption("reproduciendo: 192"), std::nullopt);
}

TEST(TransportTexts, a_status_that_is_cut_gives_what_there_is) {
  EXPECT_EQ(bit_rate_caption("Playing: 64"), " 64 Kbaud ");
  EXPECT_EQ(bit_rate_caption("Playing:"), "  Kbaud ");
  EXPECT_EQ(bit_rate_caption("Playing"), " lay Kbaud ");
}

TEST(TransportTexts, the_volume_is_shown_less_90) {
  EXPECT_EQ(volume_caption(0), "-90 dB");
  EXPECT_EQ(volume_caption(40), "-50 dB");
  EXPECT_EQ(volume_caption(90), "0 dB");
  EXPECT_EQ(volume_caption(100), "10 dB");
  EXPECT_EQ(volume_caption(std::numeric_limits<std::int32_t>::min()), "-2147483738 dB");
}

TEST(TransportTexts, the_last_three_characters_of_a_path_are_lowered) {
  EXPECT_EQ(last_three("D:\\Mix\\TOMA.MP3"), "mp3");
  EXPECT_EQ(last_three("av"), "av");
  EXPECT_EQ(last_three(""), "");
}

}  // namespace
}  // namespace ordelan::test
