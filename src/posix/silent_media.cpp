#include "posix/silent_media.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace ordelan::posix {

SilentMedia::SilentMedia(system::Clock& clock, system::MediaFacts facts)
    : clock_(clock), facts_(std::move(facts)) {}

void SilentMedia::set_URL(const std::string& path) {
  close();
  if (path.empty()) return;
  url_ = path;
  name_ = facts_.title_of ? facts_.title_of(path) : "";
  if (name_.empty()) name_ = system::title_of_path(path);
  const double seconds = facts_.duration_of ? facts_.duration_of(path) : 0;
  if (!std::isfinite(seconds) || seconds <= 0) {
    rest(kReady, 0);
    return;
  }
  duration_ = seconds;
  kilobits_ = facts_.kilobits_of ? facts_.kilobits_of(path, seconds) : 0;
  rest(kPlaying, 0);
}

void SilentMedia::close() {
  url_.clear();
  name_.clear();
  duration_ = 0;
  kilobits_ = 0;
  rest(kUndefined, 0);
}

void SilentMedia::play() {
  settle();
  if (state_ == kPaused || state_ == kStopped) {
    rest(kPlaying, position_);
  } else if (state_ == kReady) {
    set_URL(std::string(url_));  // by now it may be playable
  }
}

void SilentMedia::pause() {
  settle();
  if (state_ == kPlaying) rest(kPaused, reached());
}

void SilentMedia::stop() {
  if (state_ == kPlaying || state_ == kPaused) rest(kStopped, 0);
}

double SilentMedia::currentPosition() const {
  if (has_ended()) return 0;
  return state_ == kPlaying ? reached() : position_;
}

void SilentMedia::set_currentPosition(double seconds) {
  settle();
  if (!std::isfinite(seconds) || (state_ != kPlaying && state_ != kPaused)) return;
  if (seconds >= duration_) {
    rest(kStopped, 0);
  } else {
    rest(state_, std::max(seconds, 0.0));
  }
}

std::string SilentMedia::durationString() const {
  return system::duration_text(duration_);
}

std::string SilentMedia::status() const {
  return system::status_text(playState(), kilobits_);
}

int SilentMedia::playState() const {
  return has_ended() ? kStopped : state_;
}

std::string SilentMedia::notice() const {
  return state_ == kReady ? "No suena: el archivo no existe o no tiene una duración conocida." : "";
}

void SilentMedia::end() {
  close();
  volume_ = 50;
  balance_ = 0;
}

double SilentMedia::reached() const {
  return position_ + std::chrono::duration<double>(clock_.now() - since_).count();
}

bool SilentMedia::has_ended() const {
  return state_ == kPlaying && reached() >= duration_;
}

void SilentMedia::settle() {
  if (has_ended()) rest(kStopped, 0);
}

void SilentMedia::rest(int state, double position) {
  state_ = state;
  position_ = position;
  since_ = clock_.now();
}

}  // namespace ordelan::posix
