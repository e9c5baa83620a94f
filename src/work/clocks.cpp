#include "work/clocks.h"

#include <chrono>
#include <cmath>

#include "text/numbers.h"

namespace ordelan::work {
namespace {

constexpr std::chrono::milliseconds kTick{100};

// A tenth more. Rounded far below the tenths, so that a minute of ticks is exactly a minute.
double tenth_more(double seconds) {
  constexpr double kGrain = 1e6;
  return std::round((seconds + 0.1) * kGrain) / kGrain;
}

}  // namespace

Clocks::Clocks(ui::Window& window, system::Regional& regional)
    : TextLapsoTotal(window, "TextLapsoTotal"),
      TimeDeco(window, "TimeDeco"),
      LabelD(window, "LabelD"),
      TimerLap(window, "TimerLap", kTick),
      TimerActualizar(window, "TimerActualizar", kTick),
      regional_(regional) {
  TimerLap.on_tick = [this] { tick(TextLapsoTotal, LapsoDeco); };
  TimerActualizar.on_tick = [this] { tick(TimeDeco, TiempoActualizar); };
  TextLapsoTotal.hide();
  TimeDeco.hide();
  LabelD.hide();
}

void Clocks::iniciarCrono() {
  TextLapsoTotal.set_text(" 0");
  TextLapsoTotal.show();
  TimerLap.start();
  LapsoDeco = 0;
}

void Clocks::IniciarCronoActualizar() {
  TimerActualizar.start();
  TimeDeco.set_text("0");
  TimeDeco.show();
  TiempoActualizar = 0;
  LabelD.show();
}

void Clocks::ShowLapso() {
  TimerLap.stop();
  TextLapsoTotal.set_text(text::elapsed(LapsoDeco, regional_.decimal_mark()));
}

void Clocks::ShowLapsoDeco() {
  show_time(LapsoDeco);
}

void Clocks::ShowTimeActualizar() {
  show_time(TiempoActualizar);
}

void Clocks::reset() {
  TimerLap.stop();
  TimerActualizar.stop();
  for (ui::TextBox* box : {&TimeDeco, &TextLapsoTotal}) {
    box->set_text("");
    box->set_back_color(ui::Color::window_background);
  }
  LabelD.set_caption("Tiempo descodificación");
  LapsoDeco = 0;
}

// The shown number is read back and added to, so that a caller that writes another into the box
// sets the clock.
void Clocks::tick(ui::TextBox& box, double& seconds) {
  const char mark = regional_.decimal_mark();
  box.set_text(text::number(tenth_more(text::parse_number(box.text(), mark)), mark));
  seconds = tenth_more(seconds);
}

void Clocks::show_time(double seconds) {
  TimeDeco.set_text(text::elapsed(seconds, regional_.decimal_mark()));
  TimeDeco.show();
  LabelD.show();
}

}  // namespace ordelan::work
