// The rules of the player's buttons, sliders, keys and timers, step by step and in the plainest
// form, over an engine of its own. It shares nothing with the program: not its texts, not its
// numbers.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "support/fake_media.h"

namespace ordelan::test {

struct LiteralPlayer {
  // What Player, SA and Zoom show, and what the main window shows of the sound.
  struct Slider {
    int value = 0;
    int max = 100;
    void set(int wanted) {
      if (wanted >= 0 && wanted <= max) value = wanted;
    }
    void end_at(int wanted) {
      max = wanted;
      if (value > max) value = max;
    }
  };
  struct Text {
    std::string caption;
    bool shown = true;
  };
  struct View {
    bool shown = false;
    bool minimized = false;
    int left = 0;
    int top = 0;
  };

  FakeMedia engine;
  std::function<int(const std::string&)> width_of;  // a title in the font of the player, in twips

  View Player, SA, Zoom;
  bool AvisoPL = false;
  bool Control[3] = {true, false, true};
  Text LabelTime{"00:00"}, LabelVol{""}, mp3Baud{"", false}, LabelDisplay{""};
  std::optional<int> title_left;
  Slider SliderTime, SliderVol;
  bool TimerTime = false, TimerDisplay = false;
  int EnReproduccion = 0;

  bool ImagePlayPauSt[3] = {};  // of the main window
  std::string main_LabelVol;
  std::string spectrum_time = "00:00";

  std::vector<std::string> ListFilesZoom;
  Text Files, LabelNvip;
  bool Zoom_Play = true, Zoom_Pause = false;
  Slider Zoom_Time, Zoom_Vol;
  std::string Zoom_LabelVol;

  std::vector<std::string> ListaPlay{""};
  std::string TextosZoom[2];
  std::optional<int> Volumen;  // as stored
  int Player_Left = 0, Player_Top = 0;

  void Control_Click(int Index);
  void Vol(int Level);
  void Form_KeyDown(int code);
  void SliderVol_Change(int Value);
  void SliderTime_Change(int Value);
  void SliderTime_MouseUp(int X);
  void TimerTime_Tick();
  void TimerDisplay_Tick();
  void OpenFile_Click(const std::string& FileName);  // as the dialog leaves it; empty for a cancel
  void PL_Click();
  void SAtoggle1_Click();
  void Form_DblClick();
  void drag_to(int left, int top);
  void cmdPlayer_Click();
  void CloseW_Click();
  void Player_Load();

 protected:
  void images(int Index);
  void dock();
  void SongTime();
  std::string title();
};

}  // namespace ordelan::test
