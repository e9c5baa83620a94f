// The detail window: the rows of a list or the playlist, with a small transport of its own.
#pragma once

#include <cstdint>
#include <string>

#include "audio/sound.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/slider.h"
#include "ui/text_box.h"
#include "work/program_window.h"

namespace ordelan::audio {

class Zoom final : public work::ProgramWindow, private Mirror {
 public:
  static constexpr const char* kName = "Zoom";

  // `sound` must outlive the window.
  Zoom(const work::Context& context, Sound& sound);

  ui::ListBox ListFilesZoom;
  ui::Label Files;      // how many audio files there are
  ui::Label LabelNvip;  // how many projects, or what list this is
  ui::Image Play;       // what a click does: one of the two is shown
  ui::Image Pause;
  ui::Slider SliderTime;
  ui::Slider SliderVol;
  ui::Label LabelVol;
  ui::Button PlayerMaster;  // shows the player
  ui::Button cmdMinimizar;
  ui::Button Close;
  ui::CheckBox CheckAutoPlay;
  ui::TextBox TextInfo;  // on the row that was clicked

  // Takes these rows in place of its own.
  void fill(const std::vector<std::string>& rows);
  // Shows how many of the rows are audio files and how many are projects; a count of none changes
  // nothing.
  void ContarFiles();
  // What is loaded plays, or pauses; without a file the strip of the main window says so.
  void Play_Click();
  void Pause_Click();
  // Stores the place, the box and the volume, and closes.
  void Close_Click();

 private:
  void Form_Load() override;
  void name_controls();
  void ListFilesZoom_Click();
  void CheckAutoPlay_Click();
  void SliderVol_Change(std::int32_t Value);
  void PlayerMaster_Click();
  bool is_loaded();

  void show_action(int Index) override;
  void show_volume(std::int32_t Level, const std::string& caption) override;
  void show_position(std::int32_t seconds) override { SliderTime.set_value(seconds); }
  void show_duration(std::int32_t seconds) override { SliderTime.set_max(seconds); }

  Sound& sound_;
};

}  // namespace ordelan::audio
