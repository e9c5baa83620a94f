// The about window: which version this is, and where its web page is.
#pragma once

#include <string>

#include "location/context.h"
#include "ui/button.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/window.h"

namespace ordelan::location {

// The program's page in the web.
inline constexpr const char* kWebPage = "https://ordelan.example/";

class Acerca final : public ui::Window {
 public:
  Acerca(const Context& context, const std::string& version);

  ui::Label LabelNombre;
  ui::Image ImageLogo;
  ui::Label LabelVersion;
  ui::Label LabelTexto;
  ui::Label LabelWeb;  // opens the page
  ui::Button cmdSalir;

 private:
  Context context_;
};

}  // namespace ordelan::location
