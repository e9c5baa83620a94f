#include "audio/transport_texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "text/code_page.h"

namespace ordelan::audio {
namespace {

// Nothing for what 16 bits do not hold.
std::optional<std::int16_t> short_number(double whole) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (!(whole >= Limits::min() && whole <= Limits::max())) return std::nullopt;
  return static_cast<std::int16_t>(whole);
}

std::string two_digits(int number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 2 ? "0" + digits : digits;
}

}  // namespace

std::optional<std::int16_t> label_seconds(double seconds) {
  return short_number(std::round(seconds));
}

std::optional<std::int16_t> slider_seconds(double seconds) {
  const double below = std::floor(seconds);
  const double rest = seconds - below;
  const bool odd = std::fmod(below, 2) != 0;
  return short_number(rest > 0.5 || (rest == 0.5 && odd) ? below + 1 : below);
}

std::string elapsed_text(std::int16_t seconds) {
  if (seconds < 0) return {};
  return two_digits(seconds / 60) + ":" + two_digits(seconds % 60);
}

std::string duration_caption(std::int16_t seconds) {
  return seconds > 59 ? "Duración; " + elapsed_text(seconds) : std::string();
}

std::optional<std::string> bit_rate_caption(std::string_view status) {
  if (!status.starts_with("Play") && !status.starts_with("Repr")) return std::nullopt;
  const std::size_t colon = status.find(':');
  // Without a colon its place is that before the first character.
  const std::size_t begin = colon == std::string_view::npos ? 1 : colon + 2;
  const std::string_view rate = begin < status.size() ? status.substr(begin, 3) : "";
  return " " + std::string(rate) + " Kbaud ";
}

std::string volume_caption(std::int32_t Level) {
  return std::to_string(static_cast<std::int64_t>(Level) - 90) + " dB";
}

std::string title_caption(std::string_view name, std::string_view duration) {
  std::string caption = "  >>>> ";
  caption.append(name).append(" -- ").append(duration).append(" <<<< ");
  return caption;
}

bool is_played(std::string_view extension) {
  constexpr std::array<std::string_view, 5> kPlayed = {"wav", "mp3", "aif", "wma", "m4a"};
  return std::find(kPlayed.begin(), kPlayed.end(), extension) != kPlayed.end();
}

std::string last_three(std::string_view path) {
  return text::lower(path.size() > 3 ? path.substr(path.size() - 3) : path);
}

}  // namespace ordelan::audio
