// The window of the spectrum, and the home of the engine: the sound lives as long as it does.
#pragma once

#include <cstdint>

#include "audio/sound.h"
#include "audio/spectrum.h"
#include "ui/bar_chart.h"
#include "ui/button.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/timer.h"
#include "work/program_window.h"

namespace ordelan::audio {

class SA final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "SA";

  // `sound` must outlive the window.
  SA(const work::Context& context, Sound& sound);

  // The engine's own picture, or the bars of what is heard.
  ui::BarChart WindowsMediaPlayer;
  ui::Label LabelTime;  // elapsed
  ui::Image ShapeVol;   // the volume, as a bar that grows upwards
  ui::Label Label1;
  ui::Image Picture1;  // the frame of the spectrum
  ui::Button Close;
  ui::Button cmdMinimizar;
  ui::Label LabelAviso;     // why nothing sounds
  ui::Timer TimerEspectro;  // runs while the window is shown

  // Sets the volume bar to a level from 0 to 100.
  void VuSA(std::int32_t Level);
  // Stands beside the player if that is shown, and centres the balance.
  void Form_DblClick();
  void Close_Click();

  std::int16_t BalanceInicial = 0;  // the engine's when the window was loaded; read by nothing

 private:
  void Form_Load() override;
  void name_controls();
  void Form_KeyDown(ui::Key& key);
  void TimerEspectro_Tick();

  Sound& sound_;
  Spectrum spectrum_;
};

}  // namespace ordelan::audio
