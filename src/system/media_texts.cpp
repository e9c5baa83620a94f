#include "system/media_texts.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "system/media.h"
#include "text/paths.h"

namespace ordelan::system {
namespace {

constexpr long kSilence = -10'000;

std::string two_digits(std::uint64_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string playing_text(int kilobits) {
  return "Reproduciendo: " + std::to_string(kilobits) + " K bits/s";
}

std::string status_text(int state, int kilobits) {
  switch (state) {
    case Media::kStopped:
      return std::string(kStoppedText);
    case Media::kPaused:
      return std::string(kPausedText);
    case Media::kPlaying:
      return playing_text(kilobits);
    case Media::kOpening:
      return std::string(kOpeningText);
    case Media::kReady:
      return std::string(kReadyText);
    default:
      return "";
  }
}

std::string duration_text(double seconds) {
  constexpr double kLongest = 1e9;
  if (!(seconds > 0)) return "";
  const auto whole = static_cast<std::uint64_t>(std::min(seconds, kLongest));
  const std::string rest = two_digits(whole / 60 % 60) + ":" + two_digits(whole % 60);
  return whole < 3600 ? rest : std::to_string(whole / 3600) + ":" + rest;
}

std::string title_of_path(std::string_view path) {
  const std::string_view name = text::file_name(path);
  const auto dot = name.rfind('.');
  return std::string(dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot));
}

long gain_of(int volume) {
  volume = volume_in_range(volume);
  if (volume == 0) return kSilence;
  return std::max(kSilence, std::lround(4000 * std::log10(volume / 100.0)));
}

long balance_gain_of(int balance) {
  balance = balance_in_range(balance);
  const long quieter = gain_of(100 - std::abs(balance));
  return balance > 0 ? -quieter : quieter;
}

int volume_in_range(int volume) {
  return std::clamp(volume, 0, 100);
}

int balance_in_range(int balance) {
  return std::clamp(balance, -100, 100);
}

}  // namespace ordelan::system
