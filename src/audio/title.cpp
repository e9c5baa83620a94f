// The title that moves through the player's frame.
#include "audio/player.h"
#include "audio/transport_texts.h"

namespace ordelan::audio {

void Player::place_title(int left) {
  LabelDisplay.set_text_left(left);
}

void Player::show_title() {
  const system::Media& engine = sound_.media();
  LabelDisplay.set_caption(title_caption(engine.name(), engine.durationString()));
}

// At 1 ms this is as fast as the system lets it be.
void Player::TimerDisplay_Tick() {
  constexpr int kStep = 10;
  constexpr int kBeyond = 20;
  const system::Media& engine = sound_.media();
  if (engine.URL().empty()) return;
  LabelDisplay.set_caption(
      title_caption(engine.name() + "." + last_three(engine.URL()), engine.durationString()));
  const int left = LabelDisplay.text_left().value_or(kTitleStart) - kStep;
  place_title(left + LabelDisplay.text_width() + kBeyond < 0 ? kTitleStart : left);
}

}  // namespace ordelan::audio
