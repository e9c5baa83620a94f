// The play controls of the main window: what the sound does, and how loud it is.
#pragma once

#include <cstdint>
#include <string>

#include "audio/sound.h"
#include "ui/control_array.h"
#include "ui/image.h"
#include "ui/label.h"

namespace ordelan::main_window {

class PlayMarks final : private audio::Mirror {
 public:
  // Makes the controls in `window`; `sound` must outlive them.
  PlayMarks(ui::Window& window, audio::Sound& sound);

  ui::ControlArray<ui::Image> ImagePlayPauSt;  // what a click would do: play, pause; and stopped
  ui::Image ShapeVol;                          // the volume, as a bar that grows upwards
  ui::Label LabelVol;

  // Sets the volume bar to a level from 0 to 100.
  void VuMe(std::int32_t Level);
  // Shows the controls, the picture of the last order among them.
  void show();
  void hide();

 private:
  void show_action(int Index) override;
  void show_loaded() override { ImagePlayPauSt[0].show(); }
  void show_emptied() override { show_action(audio::kPause); }
  void show_volume(std::int32_t Level, const std::string& caption) override;
};

}  // namespace ordelan::main_window
