#include "audio/player.h"

#include <chrono>

#include "audio/sa.h"
#include "skin/player_layout.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::audio {

Player::Player(const work::Context& context, Sound& sound)
    : ProgramWindow(context, {.name = kName,
                              .title = "Player",
                              .layout = skin::kPlayer,
                              .place_key = work::place_key::kPlayer,
                              .topmost = true,
                              .minimizable = true}),
      SliderTime(*this, "SliderTime"),
      SliderVol(*this, "SliderVol"),
      Control(*this, "Control", 3),
      OpenFile(*this, "OpenFile"),
      PL(*this, "PL"),
      SAtoggle1(*this, "SAtoggle1"),
      cmdMinimizar(*this, "cmdMinimizar"),
      CloseW(*this, "CloseW"),
      PictureLD(*this, "PictureLD"),
      LabelDisplay(*this, "LabelDisplay"),
      LabelTime(*this, "LabelTime"),
      LabelVol(*this, "LabelVol"),
      mp3Baud(*this, "mp3Baud"),
      LabelAviso(*this, "LabelAviso"),
      AvisoPL(*this, "AvisoPL"),
      CheckToolTip(*this, "CheckToolTip"),
      CheckSeguir(*this, "CheckSeguir"),
      TimerTime(*this, "TimerTime", std::chrono::milliseconds(25)),
      TimerDisplay(*this, "TimerDisplay", std::chrono::milliseconds(1)),
      ImageOnda(*this, "ImageOnda"),
      TimerOnda(*this, "TimerOnda", std::chrono::milliseconds(15)),
      sound_(sound) {
  name_controls();
  set_up();
  wire();
}

void Player::name_controls() {
  Control[kPlay].set_description("Play");
  Control[kPause].set_description("Pausa");
  Control[kStop].set_description("Stop");
  OpenFile.set_description("Abrir archivo de audio");
  PL.set_description("PlayList");
  SAtoggle1.set_description("Espectro");
  // The caption is also the key under which the box is remembered.
  CheckToolTip.set_caption("No ToolTips");
  CheckSeguir.set_caption("Seguir con el siguiente");
  SliderTime.set_description("Posición");
  SliderVol.set_description("Volumen");
  LabelTime.set_caption("00:00");
  LabelVol.set_caption("-90 dB");
  mp3Baud.hide();
  LabelAviso.set_announced(true);
  AvisoPL.set_announced(true);
  AvisoPL.set_multiline(true);
  AvisoPL.hide();
  ImageOnda.set_description("Forma de onda");
  ImageOnda.hide();
  Bal.set_back_color(ui::rgb(0xFF, 0xE0, 0xC0));
  Bal.set_style(0);
  Bal.set_icon(1);
  Bal.set_delay_time(10);
  make_minimize_button(cmdMinimizar);
  CloseW.set_description("Cerrar");
}

void Player::wire() {
  on_close = [this] { CloseW_Click(); };
  on_unload = [this] {
    // The end of the program has a place of its own for a volume that was never changed.
    if (SliderVol.value() != sound_.stored_volume()) sound_.store_volume(SliderVol.value());
  };
  on_double_click = [this] { Form_DblClick(); };
  on_drag_end = [this] { drag_ended(); };
  OpenFile.on_click = [this] { OpenFile_Click(); };
  PL.on_click = [this] { PL_Click(); };
  SAtoggle1.on_click = [this] { SAtoggle1_Click(); };
  CheckToolTip.on_click = [this] { CheckToolTip_Click(); };
  // Kept at once: most ways out of the program do not pass by the button that stores the rest.
  CheckSeguir.on_click = [this] {
    AvisoPL.hide();
    work::write_box(context().settings, CheckSeguir);
  };
  on_key_down = [this](ui::Key& key) { Form_KeyDown(key); };
  on_mouse_down = [this] {
    AvisoPL.hide();
    Bal.Destroy();
  };
  on_context_menu = [this](bool by_key) { show_menu(by_key); };
  for (int i = 0; i < Control.size(); ++i) {
    Control[i].on_click = [this, i] { Control_Click(i); };
  }
  CloseW.on_click = [this] { CloseW_Click(); };
  AvisoPL.on_click = [this] { AvisoPL.hide(); };
  TimerTime.on_tick = [this] { TimerTime_Tick(); };
  TimerDisplay.on_tick = [this] { TimerDisplay_Tick(); };
  TimerOnda.on_tick = [this] { TimerOnda_Tick(); };
  ImageOnda.on_press = [this](ui::Point at) { ImageOnda_Press(at); };
  on_visible = [this] { follow_file(); };
  SliderTime.on_change = [this](std::int32_t value) { sound_.SliderTime_Change(value); };
  SliderTime.on_mouse_up = [this](const ui::Mouse& mouse) { sound_.SliderTime_MouseUp(mouse); };
  SliderVol.on_change = [this](std::int32_t value) { SliderVol_Change(value); };
}

void Player::Form_Load() {
  TimerTime.stop();
  work::read_box(context().settings, CheckToolTip);
  work::read_box(context().settings, CheckSeguir);
  MostrarToolTips(!CheckToolTip.checked());
  Control[kPause].hide();
  Control[kPlay].show();
  SliderVol.set_value(Sound::kFirstVolume);  // it stays where the stored one is none
  SliderVol.set_value(sound_.stored_volume());
  Vol(SliderVol.value());
}

void Player::CloseW_Click() {
  store_place();
  sound_.store_volume(SliderVol.value());
  work::write_box(context().settings, CheckToolTip);
  context().windows.close<Player>();
}

// Beside the window that it belongs to: above it, or below it where there is no room above.
ui::Point Player::place_of_SA() const {
  const int above = position().y - skin::kSpectrumAbove;
  return {position().x + skin::kSpectrumRight, above < 0 ? position().y + size().height : above};
}

void Player::Form_KeyDown(ui::Key& key) {
  constexpr int kHome = 36;
  constexpr int kLeft = 37;
  constexpr int kRight = 39;
  constexpr double kStep = 5;  // seconds
  Bal.Destroy();
  if (sound_.Form_KeyDown(key)) {
    key.swallowed = true;  // sliders and buttons have no use for these that would be worth more
    return;
  }
  // The volume has a use of its own for them.
  if (key.shift || key.control || key.alt || key.focus == &SliderVol) return;
  switch (key.code) {
    case kHome:
      show_place(sound_.seek_by(-sound_.media().currentPosition()));
      break;
    case kLeft:
      show_place(sound_.seek_by(-kStep));
      break;
    case kRight:
      show_place(sound_.seek_by(kStep));
      break;
    default:
      return;
  }
  key.swallowed = true;
}

}  // namespace ordelan::audio
