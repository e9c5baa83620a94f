// The status strip with its progress bar and the large notice: what tells the user how a job
// stands.
#pragma once

#include <optional>
#include <string>

#include "ui/label.h"
#include "ui/progress_bar.h"
#include "ui/text_box.h"
#include "ui/window.h"

namespace ordelan::work {

// What a message of the strip is about; each has its colour.
inline constexpr int kProgress = 1;
inline constexpr int kResult = 2;
inline constexpr int kWarning = 3;
inline constexpr int kWaiting = 4;

class StatusStrip {
 public:
  explicit StatusStrip(ui::Window& window);

  ui::TextBox TextDecode;
  ui::Label LabelAviso;
  ui::ProgressBar XP_ProgressBar1;

  // Shows `Texto` on the strip, as high as its lines. A code other than 1 to 4 leaves the colour
  // as it is. `Alerta(1, ": ", false)` is the way of putting the strip away.
  void Alerta(int Color, const std::string& Texto, bool Visible);

  // Shows the large notice of a running decode.
  void notice_decoding();

 private:
  std::optional<int> bottom_;  // of the strip, as the layout has it
};

}  // namespace ordelan::work
