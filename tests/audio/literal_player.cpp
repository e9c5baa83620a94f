#include "audio/literal_player.h"

#include <cctype>
#include <cmath>
#include <cstdio>

namespace ordelan::test {
namespace {

int half_up(double value) {
  return static_cast<int>(std::floor(value + 0.5));
}

int half_to_even(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  const int whole = static_cast<int>(below);
  if (rest > 0.5) return whole + 1;
  if (rest < 0.5) return whole;
  return whole % 2 == 0 ? whole : whole + 1;
}

std::string two(int number) {
  char text[16] = {};
  std::snprintf(text, sizeof text, "%02d", number);
  return text;
}

std::string decibels(int Level) {
  return std::to_string(Level - 90) + " dB";
}

std::string three_last(const std::string& URL) {
  std::string last = URL.substr(URL.size() < 3 ? 0 : URL.size() - 3);
  for (char& letter : last) {
    letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  }
  return last;
}

}  // namespace

void LiteralPlayer::Control_Click(int Index) {
  AvisoPL = false;
  if (engine.URL().empty()) return;
  if (Index == 0) {
    TimerTime = true;
    TimerDisplay = true;
    title_left = 100;
    engine.play();
    EnReproduccion = -1;
    images(0);
  } else if (Index == 1) {
    engine.pause();
    TimerTime = false;
    EnReproduccion = 0;
    images(1);
  } else if (Index == 2) {
    engine.stop();
    TimerTime = false;
    TimerDisplay = false;
    title_left = 100;
    EnReproduccion = 0;
    images(2);
  }
}

void LiteralPlayer::images(int Index) {
  const bool table[3][2 + 3 + 2] = {
      // Control 0, 1; ImagePlayPauSt 0, 1, 2; Play, Pause of Zoom
      {false, true, false, true, false, false, true},  // play
      {true, false, true, false, false, true, false},  // pause
      {true, false, false, false, true, true, false},  // stop
  };
  const bool* const row = table[Index];
  Control[0] = row[0];
  Control[1] = row[1];
  for (int i = 0; i < 3; ++i) ImagePlayPauSt[i] = row[2 + i];
  if (Zoom.shown) {
    Zoom_Play = row[5];
    Zoom_Pause = row[6];
  }
}

void LiteralPlayer::Vol(int Level) {
  engine.set_volume(Level);
  LabelVol.caption = decibels(Level);
  Zoom_Vol.set(Level);
  main_LabelVol = decibels(Level);
  Zoom_LabelVol = decibels(Level);
}

void LiteralPlayer::Form_KeyDown(int code) {
  const int playState = engine.playState();
  if (code == 32) {
    if (playState == 10 || playState == 1 || playState == 2) Control_Click(0);
    if (playState == 3) Control_Click(1);
  }
  if (code == 35) Control_Click(2);
  if (code == 107) {
    SliderVol.set(SliderVol.value + 1);
    Vol(SliderVol.value);
  }
  if (code == 109) {
    SliderVol.set(SliderVol.value - 1);
    Vol(SliderVol.value);
  }
}

void LiteralPlayer::SliderVol_Change(int Value) {
  SliderVol.value = Value;  // the user has brought it there
  AvisoPL = false;
  Vol(Value);
}

void LiteralPlayer::SliderTime_Change(int Value) {
  SliderTime.value = Value;
  AvisoPL = false;
  engine.set_currentPosition(Value);
}

void LiteralPlayer::SliderTime_MouseUp(int X) {
  if (!(engine.currentPosition() > 0)) return;
  if (engine.URL().empty()) return;
  engine.set_currentPosition(engine.duration() / 200 * X);
}

void LiteralPlayer::TimerTime_Tick() {
  SliderTime.set(half_to_even(engine.currentPosition()));
  Zoom_Time.set(half_to_even(engine.currentPosition()));
  if (engine.URL().empty()) return;  // no media: the rest of the tick fails
  const int duration = half_to_even(engine.duration());
  SongTime();
  if (duration != 0) {
    SliderTime.end_at(duration);
    Zoom_Time.end_at(duration);
  }
  const int t = half_up(engine.currentPosition());
  const std::string text = t > 59 ? two(t / 60) + ":" + two(t % 60) : "00:" + two(t);
  if (SA.shown) spectrum_time = text;
  LabelTime.caption = text;
  if (engine.status() == "Detenido") Control_Click(2);
}

void LiteralPlayer::SongTime() {
  if (!TimerTime) return;
  const std::string e = three_last(engine.URL());
  const std::string status = engine.status();
  const std::string start = status.substr(0, 4);
  if (!mp3Baud.shown && e == "mp3" && (start == "Play" || start == "Repr")) {
    const std::size_t colon = status.find(':');
    mp3Baud.caption = " " + status.substr(colon + 2, 3) + " Kbaud ";
    mp3Baud.shown = true;
  }
  if (mp3Baud.shown && e != "mp3") mp3Baud.shown = false;
}

void LiteralPlayer::TimerDisplay_Tick() {
  if (engine.URL().empty()) return;
  LabelDisplay.caption = "  >>>> " + engine.name() + "." + three_last(engine.URL()) + " -- " +
                         engine.durationString() + " <<<< ";
  title_left = title_left.value_or(100) - 10;
  if (*title_left + width_of(LabelDisplay.caption) + 20 < 0) title_left = 100;
}

std::string LiteralPlayer::title() {
  return "  >>>> " + engine.name() + " -- " + engine.durationString() + " <<<< ";
}

void LiteralPlayer::OpenFile_Click(const std::string& FileName) {
  AvisoPL = false;
  engine.close();
  ListaPlay = {""};
  Zoom.shown = false;
  Player.shown = false;
  std::vector<std::string> split;
  for (std::size_t at = 0; at <= FileName.size();) {
    const std::size_t zero = std::min(FileName.find('\0', at), FileName.size());
    split.push_back(FileName.substr(at, zero - at));
    at = zero + 1;
  }
  ListFilesZoom.clear();
  if (FileName.empty()) return;
  std::string first;
  ListaPlay.assign(split.size(), "");
  int count = 0;
  if (split.size() == 1) {
    first = FileName;
    ListFilesZoom.push_back(FileName);
    ListaPlay[0] = FileName;
    count = 1;
  } else {
    std::string folder = split[0] + "\\";
    while (folder.find("\\\\") != std::string::npos) folder.replace(folder.find("\\\\"), 2, "\\");
    for (std::size_t i = 1; i < split.size(); ++i) {
      ListFilesZoom.push_back(folder + split[i]);
      ListaPlay[i - 1] = folder + split[i];
      ++count;
    }
    first = folder + split[1];
  }
  Files.caption = TextosZoom[1] = "Cargados: " + std::to_string(count) + " archivos de audio";
  LabelNvip.shown = false;
  Files.shown = true;
  mp3Baud.shown = false;
  Player.shown = true;
  engine.set_URL(first);
  ImagePlayPauSt[0] = true;
  LabelDisplay.caption = title();
  Control[0] = true;
  Control[1] = false;  // the two have one place
  SliderVol.set(40);
  LabelVol.caption = decibels(40);
  engine.stop();
  dock();
  TimerDisplay = true;
}

void LiteralPlayer::dock() {
  if (!SA.shown) return;
  SA.left = Player.left + 10;
  SA.top = Player.top - 340;  // the height of the spectrum and what is between the two
}

void LiteralPlayer::PL_Click() {
  if (Zoom.minimized) {
    Zoom.minimized = false;
    Zoom.shown = true;
  } else {
    AvisoPL = false;
    if (ListaPlay[0].empty()) {
      AvisoPL = true;
      return;
    }
    ListFilesZoom.clear();
    if (ListaPlay.size() > 1) ListFilesZoom = ListaPlay;
    LabelNvip = {TextosZoom[0], true};
    Files = {TextosZoom[1], true};
    Zoom.shown = !Zoom.shown;
  }
  if (Zoom.shown) Vol(SliderVol.value);
}

void LiteralPlayer::SAtoggle1_Click() {
  AvisoPL = false;
  if (SA.minimized) {
    SA.minimized = false;
    SA.shown = true;
  } else {
    SA.shown = !SA.shown;
  }
  if (!SA.shown) return;
  Vol(SliderVol.value);
  dock();
}

void LiteralPlayer::Form_DblClick() {
  AvisoPL = false;
  if (Player.shown) {
    Player.left = Player_Left;
    Player.top = Player_Top;
    if (Volumen) SliderVol.set(*Volumen);
  }
  dock();
}

void LiteralPlayer::drag_to(int left, int top) {
  Player.left = Player_Left = left;
  Player.top = Player_Top = top;
  AvisoPL = false;
  dock();
}

void LiteralPlayer::cmdPlayer_Click() {
  AvisoPL = false;
  if (Player.minimized) {
    Player.minimized = false;
    return;
  }
  Player.shown = !Player.shown;
  if (!Player.shown) {
    Volumen = SliderVol.value;
    return;
  }
  Form_DblClick();
  if (engine.URL().empty()) return;
  title_left = 100;
  LabelDisplay.caption = title();
}

void LiteralPlayer::CloseW_Click() {
  Player_Left = Player.left;
  Player_Top = Player.top;
  Volumen = SliderVol.value;
  Player = {};
}

void LiteralPlayer::Player_Load() {
  AvisoPL = false;
  Control[0] = Control[2] = true;
  Control[1] = false;
  LabelTime = {"00:00"};
  mp3Baud = {"", false};
  LabelDisplay = {""};
  title_left.reset();
  SliderTime = {};
  SliderVol = {};
  TimerTime = TimerDisplay = false;
  EnReproduccion = 0;
  Player = {.left = Player_Left, .top = Player_Top};
  SliderVol.set(*Volumen);
  Vol(*Volumen);
}

}  // namespace ordelan::test
