// The small window of the transport. It exists from the start, hidden: its buttons, sliders and
// timers are what every other window drives the sound by.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "audio/sound.h"
#include "audio/waveform.h"
#include "ui/balloon.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/control_array.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/slider.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "ui/waveform.h"
#include "work/program_window.h"

namespace ordelan::audio {

class Player final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "Player";

  // `sound` must outlive the window.
  Player(const work::Context& context, Sound& sound);

  ui::Slider SliderTime;                 // seconds
  ui::Slider SliderVol;                  // 0 to 100
  ui::ControlArray<ui::Button> Control;  // play, pause, stop; the first two in one place
  ui::Button OpenFile;
  ui::Button PL;         // shows the playlist, or hides it
  ui::Button SAtoggle1;  // shows the spectrum, or hides it
  ui::Button cmdMinimizar;
  ui::Button CloseW;
  ui::Image PictureLD;     // the frame of the title
  ui::Label LabelDisplay;  // the title, which moves
  ui::Label LabelTime;     // elapsed
  ui::Label LabelVol;
  ui::Label mp3Baud;          // the bit rate of an mp3
  ui::Label LabelAviso;       // why nothing sounds
  ui::TextBox AvisoPL;        // a notice over the window; any click puts it away
  ui::CheckBox CheckToolTip;  // puts the tooltips of this window away
  ui::CheckBox CheckSeguir;   // the next file of the playlist plays when one has ended
  ui::Timer TimerTime;        // runs while playing
  ui::Timer TimerDisplay;     // moves the title
  ui::Waveform ImageOnda;     // the waveform of what is loaded; a click on it seeks
  ui::Timer TimerOnda;        // runs while there is more of the waveform to be read
  ui::Class1 Bal;             // what is known of a file, beside what names it

  // Plays, pauses or stops what is loaded; without a file nothing happens, to the images neither.
  void Control_Click(int Index);
  // Sets the volume of the engine and shows it everywhere. The caller sets SliderVol.
  void Vol(std::int32_t Level);
  // Shows the duration and the bit rate of what plays.
  void SongTime();
  // Lets the user pick files, and loads the first, which waits for Play. Hides the window until one
  // is picked.
  void OpenFile_Click();
  void SAtoggle1_Click();
  // Shows the window of the playlist with it, or hides it; says so where the playlist is empty.
  void PL_Click();
  // Looks for the same path on every drive, whatever drive it names. Whether one has it: that path
  // is then ArchivoActual and `Resultado`, which `Completo` empties again. With `Avisar` and
  // `Completo`, or where none has it, the strip says how it went and which project, the last one
  // before row `Indice` of `Lista`, names the file.
  bool BuscarAudio(const std::string& Path, const ui::ListBox& Lista, int Indice, bool Avisar,
                   bool Completo, std::string& Resultado);
  // Reads what is known of the file at `Path`, which becomes ArchivoActual, and shows it in the
  // balloon at the lower right corner of a control, which may be on another window. TextoToolTip
  // has the text afterwards. Of a missing file nothing is shown.
  void MostrarInfoArchivo(ui::Control& control, const std::string& Path, const std::string& Titulo);
  // The second half of it: the balloon with TextoToolTip as it is, below the file's size and date.
  void show_info(ui::Control& control, const std::string& Path, const std::string& Titulo);
  // Puts the window where it was stored, and the main window back on the screen.
  void Form_DblClick();
  // The window has been asked to close: its place and the volume are stored.
  void CloseW_Click();
  // Puts SA beside this window, if it is shown.
  void dock_SA();
  // Where SA stands then.
  ui::Point place_of_SA() const;

  // Another path was written to the engine, or the same once more: its waveform is read while the
  // window is shown.
  void file_changed();

  // What was written to the engine plays by itself: the pair shows pause, and the time runs.
  void show_started();
  // What was loaded was let go: the pair shows play.
  void show_emptied();

  // Moves the cursor of the waveform to that time.
  void show_cursor(double seconds);

  // Where a title begins to move, in twips.
  static constexpr int kTitleStart = 100;
  // Shows the title and the duration of what is loaded.
  void show_title();
  // Puts the title there in its frame, in twips.
  void place_title(int left);

  // True (-1) after play, false (0) after pause and stop. Read by nothing.
  std::int16_t EnReproduccion = 0;

 private:
  void Form_Load() override;
  void name_controls();
  void wire();
  void Form_KeyDown(ui::Key& key);
  void TimerTime_Tick();
  void TimerDisplay_Tick();
  void ImageOnda_Press(ui::Point at);
  void TimerOnda_Tick();
  void show_place(std::optional<double> seconds);
  void show_menu(bool by_key);
  void follow_file();
  void SliderVol_Change(std::int32_t Value);
  void CheckToolTip_Click();
  void MostrarToolTips(bool Activo);
  void drag_ended();
  bool has_ended_by_itself() const;
  bool play_next();
  void show_pair(bool playing);
  void show_action(int Index);

  Sound& sound_;
  // What was playing at the last tick that saw something play, and how far it had come.
  std::string heard_path_;
  double heard_to_ = 0;
  std::string wave_path_;                 // whose waveform is shown or read; empty for none
  std::unique_ptr<WaveformReader> wave_;  // while there is more to be read
};

}  // namespace ordelan::audio
