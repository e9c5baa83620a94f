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
#include "ui/timer.h"
#include "work/program_window.h"
#include "work/row_commands.h"

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
  ui::CheckBox CheckToolTips;
  ui::TextBox TextInfo;       // on the row that was clicked
  ui::Label ZoomLabelIndice;  // the number of the row under the pointer
  ui::Image ImageIcono;       // these three blink at the row of a project
  ui::Image ShapeVip;
  ui::Label LabelVip;
  ui::Timer TimerVip;
  ui::Button cmdFilas;  // the commands on its rows

  // Never shown: the paths as the list had them, while hits of a search replace rows of the other.
  ui::ListBox List1;

  // Takes these rows in place of its own; they are no list of the main window.
  void fill(const std::vector<std::string>& rows);
  // Takes the rows of a list of the main window, row by row the ones that it can show; the list is
  // ListaActual then.
  void fill_from(ui::ListBox& list);
  // Takes the hits of a search, of which the user is to choose one.
  void fill_with_hits(const std::vector<std::string>& hits);
  // One row stands for the row that was clicked, unless a list is shown: there the row of that
  // number becomes the current one, if the current row of the list is `row`.
  void follow_click(int index, const std::string& row);
  // The same for a file that is lost, without a look at what the list holds.
  void follow_lost(int index, const std::string& row);
  // Whether the rows are those of a list of the main window.
  bool list_mode() const { return list_mode_; }
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
  void CheckToolTips_Click();
  void TimerVip_Tick();
  void show_project(bool shown);
  bool find_lost(const std::string& row, std::string& path, Sound::Click& click);
  void load(const std::string& path);
  void SliderVol_Change(std::int32_t Value);
  void PlayerMaster_Click();
  bool is_loaded();

  void show_action(int Index) override;
  void show_volume(std::int32_t Level, const std::string& caption) override;
  void show_position(std::int32_t seconds) override { SliderTime.set_value(seconds); }
  void show_duration(std::int32_t seconds) override { SliderTime.set_max(seconds); }

  Sound& sound_;
  bool list_mode_ = false;
  work::RowCommands commands_;
};

}  // namespace ordelan::audio
