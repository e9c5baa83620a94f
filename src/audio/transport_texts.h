// The texts of the transport: elapsed time, duration, bit rate, volume.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ordelan::audio {

// Seconds as the whole number that the labels are made of, halves rounded up: 59.6 is 60. Nothing
// for a number that is none or that 16 bits do not hold: such a tick changes nothing.
std::optional<std::int16_t> label_seconds(double seconds);

// The whole seconds of a duration for the end of the sliders, halves rounded to the even number.
// Nothing as above.
std::optional<std::int16_t> slider_seconds(double seconds);

// "minutes:seconds" of the elapsed seconds, with two digits each. Minutes do not stop at 59: there
// is no hour, and a mix of two hours shows "120:00". Empty for less than 0.
std::string elapsed_text(std::int16_t seconds);

// The caption "Duración; mm:ss" of a file of more than 59 seconds; empty for others. The semicolon
// is what users have always seen; the elapsed time takes its place in the same tick.
std::string duration_caption(std::int16_t seconds);

// The bit rate from the status text of the engine, " 192 Kbaud " from "Reproduciendo: 192 K
// bits/s"; nothing while it is not playing, which Spanish and English engines begin with "Repr" and
// "Play". Without a colon, or with fewer characters after it, there is less between the blanks.
std::optional<std::string> bit_rate_caption(std::string_view status);

// "N dB" for a volume: the number less 90 and no logarithm, so that 90 shows "0 dB".
std::string volume_caption(std::int32_t Level);

// The title as the player shows it: the name of what is loaded, and its duration.
std::string title_caption(std::string_view name, std::string_view duration);
// The same with nothing loaded.
inline constexpr std::string_view kNoTitle = "  >>>> --------------- <<<< ";

// What the strip says of a row that is listed and does not play. "ogg" and "flac" are such.
inline constexpr std::string_view kNotPlayable = " >>> AVISO <<<   Este archivo no es reproducible";

// Whether that extension, in lower case and without the dot, is one of the five that play. "ogg"
// and "flac" are not, whatever the engine could do.
bool is_played(std::string_view extension);

// The last three characters of a path in lower case, which decide what its labels show.
std::string last_three(std::string_view path);

}  // namespace ordelan::audio
