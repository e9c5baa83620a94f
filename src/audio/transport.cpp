// The transport of the player. Pictures, labels, bars and timers change in these steps only, and
// not because the engine has changed its state.
#include <array>
#include <cmath>
#include <limits>

#include "audio/player.h"
#include "audio/sa.h"
#include "audio/transport_texts.h"
#include "skin/player_layout.h"
#include "system/media_texts.h"

namespace ordelan::audio {
namespace {

// A number of seconds as a slider takes it, halves rounded to the even one; nothing for one that is
// none.
std::optional<std::int32_t> whole(double seconds) {
  if (!(std::abs(seconds) < std::numeric_limits<std::int32_t>::max())) return std::nullopt;
  return static_cast<std::int32_t>(std::nearbyint(seconds));
}

}  // namespace

void Player::Control_Click(int Index) {
  AvisoPL.hide();
  system::Media& engine = sound_.media();
  if (engine.URL().empty()) return;
  switch (Index) {
    case kPlay:
      TimerTime.start();
      TimerDisplay.start();
      place_title(kTitleStart);
      engine.play();
      EnReproduccion = -1;
      break;
    case kPause:
      engine.pause();
      TimerTime.stop();  // the title moves on
      EnReproduccion = 0;
      break;
    case kStop:
      engine.stop();
      TimerTime.stop();
      TimerDisplay.stop();
      place_title(kTitleStart);
      EnReproduccion = 0;
      break;
    default:
      return;
  }
  show_action(Index);
}

void Player::show_started() {
  show_pair(true);
  TimerTime.start();
  TimerDisplay.start();
}

void Player::show_emptied() {
  show_pair(false);
}

void Player::show_pair(bool playing) {
  Control[kPlay].set_visible(!playing);
  Control[kPause].set_visible(playing);
}

void Player::show_action(int Index) {
  show_pair(Index == kPlay);
  sound_.each_mirror([Index](Mirror& mirror) { mirror.show_action(Index); });
}

void Player::Vol(std::int32_t Level) {
  sound_.media().set_volume(Level);
  sound_.level = Level;
  const std::string caption = volume_caption(Level);
  LabelVol.set_caption(caption);
  if (SA* const spectrum = context().windows.find<SA>()) spectrum->VuSA(Level);
  sound_.each_mirror([&](Mirror& mirror) { mirror.show_volume(Level, caption); });
}

void Player::SliderVol_Change(std::int32_t Value) {
  AvisoPL.hide();
  Vol(Value);
}

void Player::ImageOnda_Press(ui::Point at) {
  AvisoPL.hide();
  show_place(sound_.seek_to_unit(at.x));
}

// A place that was gone to by other means than the slider, which follows.
void Player::show_place(std::optional<double> seconds) {
  if (!seconds) return;
  const auto position = whole(*seconds);
  if (!position) return;
  SliderTime.set_value(*position);
  sound_.each_mirror([&](Mirror& mirror) { mirror.show_position(*position); });
  if (const auto elapsed = label_seconds(*seconds)) LabelTime.set_caption(elapsed_text(*elapsed));
}

// Whatever the engine cannot answer ends a tick; the next one runs.
void Player::TimerTime_Tick() {
  system::Media& engine = sound_.engine();
  follow_file();
  show_cursor(engine.currentPosition());
  if (engine.playState() == system::Media::kPlaying) {
    heard_path_ = engine.URL();
    heard_to_ = engine.currentPosition();
  }
  if (const auto position = whole(engine.currentPosition())) SliderTime.set_value(*position);
  const auto position = whole(engine.currentPosition());
  if (!position) return;
  sound_.each_mirror([&](Mirror& mirror) { mirror.show_position(*position); });
  LabelAviso.set_caption(engine.notice());
  // What cannot be played has no end at which the next one could follow.
  const bool silent = engine.playState() == system::Media::kReady && !engine.notice().empty();
  if (silent && CheckSeguir.checked() && play_next()) return;
  if (engine.URL().empty()) return;  // nothing is loaded any more that could have a duration
  const auto length = slider_seconds(engine.duration());
  if (!length) return;
  SongTime();
  if (*length != 0) {
    SliderTime.set_max(*length);
    sound_.each_mirror([&](Mirror& mirror) { mirror.show_duration(*length); });
  }
  const auto elapsed = label_seconds(engine.currentPosition());
  if (!elapsed) return;
  const std::string text = elapsed_text(*elapsed);
  SA* const spectrum = context().windows.find<SA>();
  if (spectrum != nullptr && spectrum->visible()) spectrum->LabelTime.set_caption(text);
  LabelTime.set_caption(text);
  // The whole of what happens at the end of a file. An engine of another language never says this
  // word, and its timers go on until the user stops them.
  if (engine.status() != system::kStoppedText) return;
  const bool ended = has_ended_by_itself();
  Control_Click(kStop);
  if (ended && CheckSeguir.checked()) play_next();
}

void Player::SongTime() {
  if (!TimerTime.running()) return;
  const system::Media& engine = sound_.media();
  const auto seconds = label_seconds(engine.duration());
  if (!seconds) return;
  // Never seen: the elapsed time takes its place in the same tick.
  const std::string duration = duration_caption(*seconds);
  if (!duration.empty()) LabelTime.set_caption(duration);
  const bool mp3 = last_three(engine.URL()) == "mp3";
  if (!mp3Baud.visible() && mp3) {
    if (const auto rate = bit_rate_caption(engine.status())) {
      mp3Baud.set_caption(*rate);
      mp3Baud.show();
    }
  }
  if (mp3Baud.visible() && !mp3) mp3Baud.hide();
}

}  // namespace ordelan::audio
