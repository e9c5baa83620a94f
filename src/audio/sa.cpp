#include "audio/sa.h"

#include <chrono>
#include <string>
#include <vector>

#include "audio/player.h"
#include "audio/volume_bar.h"
#include "skin/sa_layout.h"

namespace ordelan::audio {
namespace {

constexpr auto kFrame = std::chrono::milliseconds(33);  // 30 pictures a second

}  // namespace

SA::SA(const work::Context& context, Sound& sound)
    : ProgramWindow(context, {.name = kName,
                              .title = "Spectral VU",
                              .layout = skin::kSA,
                              .topmost = true,
                              .minimizable = true}),
      WindowsMediaPlayer(*this, "WindowsMediaPlayer"),
      LabelTime(*this, "LabelTime"),
      ShapeVol(*this, "ShapeVol"),
      Label1(*this, "Label1"),
      Picture1(*this, "Picture1"),
      Close(*this, "Close"),
      cmdMinimizar(*this, "cmdMinimizar"),
      LabelAviso(*this, "LabelAviso"),
      TimerEspectro(*this, "TimerEspectro", kFrame),
      sound_(sound) {
  name_controls();
  set_up();
  on_close = [this] { Close_Click(); };
  on_key_down = [this](ui::Key& key) { Form_KeyDown(key); };
  on_double_click = [this] { Form_DblClick(); };
  on_visible = [this] {
    if (visible()) {
      TimerEspectro.start();
    } else {
      TimerEspectro.stop();
    }
  };
  // The engine goes with its home.
  on_unload = [this] {
    sound_.store_volume();
    sound_.media().end();
    if (Player* const player = this->context().windows.find<Player>()) player->file_changed();
  };
  Close.on_click = [this] { Close_Click(); };
  TimerEspectro.on_tick = [this] { TimerEspectro_Tick(); };
}

void SA::name_controls() {
  constexpr const char* kTip = "Tecla <Espacio> Play/Pausa,teclas <+> <-> Volumen";
  Label1.set_caption("Spectral VU");
  WindowsMediaPlayer.set_description("Espectro de lo que suena");
  for (ui::Control* const control :
       {static_cast<ui::Control*>(&WindowsMediaPlayer), static_cast<ui::Control*>(&Label1),
        static_cast<ui::Control*>(&LabelTime)}) {
    control->set_tip(kTip);
  }
  LabelTime.set_caption("00:00");
  make_minimize_button(cmdMinimizar);
  make_close_button(Close);
}

void SA::Form_Load() {
  BalanceInicial = static_cast<std::int16_t>(sound_.media().balance());
  VuSA(0);
  // A new engine has those of its own.
  sound_.media().set_volume(sound_.level);
  sound_.media().set_device(sound_.stored_device());
}

void SA::VuSA(std::int32_t Level) {
  raise_bar(ShapeVol, 320, 3, Level);
}

void SA::Form_DblClick() {
  const Player* const player = context().windows.find<Player>();
  if (player != nullptr && player->visible()) set_position(player->place_of_SA());
  sound_.media().set_balance(0);
}

void SA::Form_KeyDown(ui::Key& key) {
  if (!sound_.Form_KeyDown(key)) return;
  key.swallowed = true;
  // What the key has done is shown at once, also while it is held down.
  context().platform.pump.pump();
}

// The volume is stored as the window goes.
void SA::Close_Click() {
  context().windows.close<SA>();
}

void SA::TimerEspectro_Tick() {
  system::Media& engine = sound_.media();
  LabelAviso.set_caption(engine.notice());
  if (engine.shows_itself()) return;
  spectrum_.feed(engine.heard(Spectrum::kSamples), context().platform.clock.now());
  std::vector<ui::Bar> bars;
  bars.reserve(Spectrum::kBars);
  for (const Spectrum::Bar& bar : spectrum_.bars()) bars.push_back({bar.level, bar.peak});
  WindowsMediaPlayer.set_bars(std::move(bars));
}

}  // namespace ordelan::audio
