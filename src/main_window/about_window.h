// The about window: which version this is, and where its web page is.
#pragma once

#include <string>

#include "ui/button.h"
#include "ui/image.h"
#include "ui/label.h"
#include "work/program_window.h"

namespace ordelan::main_window {

// The program's page in the web.
inline constexpr const char* kWebPage = "https://ordelan.example/";

class Acerca final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "Acerca";

  explicit Acerca(const work::Context& context);

  ui::Label LabelNombre;
  ui::Image ImageLogo;
  ui::Label LabelVersion;
  ui::Label LabelTexto;
  ui::Label LabelWeb;  // opens the page
  ui::Button cmdSalir;
};

}  // namespace ordelan::main_window
