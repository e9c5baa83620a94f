// The two clocks of the window: how long the decode takes, and how long an update of the projects.
#pragma once

#include "system/regional.h"
#include "ui/label.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "ui/window.h"

namespace ordelan::work {

class Clocks {
 public:
  Clocks(ui::Window& window, system::Regional& regional);

  ui::TextBox TextLapsoTotal;
  ui::TextBox TimeDeco;
  ui::Label LabelD;  // the caption of TimeDeco
  ui::Timer TimerLap;
  ui::Timer TimerActualizar;

  double LapsoDeco = 0;         // seconds of the decode
  double TiempoActualizar = 0;  // seconds of the update

  // Starts the decode clock from zero; starts the update clock from zero.
  void iniciarCrono();
  void IniciarCronoActualizar();

  // Stops the decode clock and writes what it came to.
  void ShowLapso();
  // Writes the same time to TimeDeco and stops nothing.
  void ShowLapsoDeco();
  // Writes the time of the update to TimeDeco.
  void ShowTimeActualizar();

  // Stops both and empties what they show.
  void reset();

 private:
  void tick(ui::TextBox& box, double& seconds);
  void show_time(double seconds);

  system::Regional& regional_;
};

}  // namespace ordelan::work
