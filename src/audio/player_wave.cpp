// The waveform in the player.
#include <chrono>
#include <utility>
#include <vector>

#include "audio/player.h"

namespace ordelan::audio {
namespace {

// How long a tick reads: the window answers in between, and a slow file does not hold it up.
constexpr auto kBudget = std::chrono::milliseconds(8);

}  // namespace

void Player::file_changed() {
  LabelAviso.set_caption(sound_.media().notice());
  wave_path_ = sound_.media().URL();
  wave_.reset();
  if (!wave_path_.empty()) {
    wave_ = std::make_unique<WaveformReader>(context().platform.files, wave_path_);
  }
  ImageOnda.hide();
  ImageOnda.set_columns({});
  show_cursor(0);
  follow_file();
}

// Forgets a file that the engine has let go in another way, and reads only while it can be seen.
void Player::follow_file() {
  if (sound_.media().URL() != wave_path_) {
    file_changed();
  } else if (!wave_ || !visible()) {
    TimerOnda.stop();
  } else if (!TimerOnda.running()) {
    TimerOnda.start();
  }
}

void Player::TimerOnda_Tick() {
  follow_file();
  if (!TimerOnda.running()) return;
  system::Clock& clock = context().platform.clock;
  const auto until = clock.now() + kBudget;
  bool more = true;
  do more = wave_->step();
  while (more && clock.now() < until);
  std::vector<ui::WaveColumn> columns;
  for (const Peaks& peaks : wave_->columns()) columns.push_back({peaks.low, peaks.high});
  if (!columns.empty()) {
    ImageOnda.set_columns(std::move(columns));
    ImageOnda.show();
  }
  if (more) return;
  wave_.reset();
  TimerOnda.stop();
}

void Player::show_cursor(double seconds) {
  const double duration = sound_.media().duration();
  if (wave_path_.empty()) {
    ImageOnda.set_cursor(-1);
  } else {
    ImageOnda.set_cursor(duration > 0 ? seconds / duration : 0);
  }
}

}  // namespace ordelan::audio
