// One start of the program that updates projects, over a disk that outlives it.
#pragma once

#include <string>

#include "location/path_choice_window.h"
#include "worlds/removal_session.h"

namespace ordelan::test {

// What a disk needs for its drive D: to be searched.
inline constexpr const char* kTickedDrive = "[Settings]\r\nUnidad: D:\\=1\r\n";

struct UpdateSession : RemovalSession {
  // `files` must outlive it.
  explicit UpdateSession(system::FileSystem& files) : RemovalSession(files) {
    backend.on_pump = [this] { choose_hit(); };
  }

  int choices = 0;  // how often a name had several hits

  // Answers the question with yes and runs the job; of several hits the last is taken.
  void update() {
    dialogs.answers.push_back(system::Answer::yes);
    program.form.ActualizarVip.on_click();
  }
  bool can_undo() const { return program.form.DeshacerActualizacion.visible(); }
  void undo() {
    dialogs.answers.push_back(system::Answer::yes);
    program.form.DeshacerActualizacion.on_click();
  }
  // How the projects of the last update have fared.
  std::string report() {
    std::string text;
    for (const auto& project : program.form.relink().outcome().proyectos) {
      text += "  " + project.ruta + ": " + project.motivo + "\n";
      for (const auto& path : project.rutas)
        text += "    " + path.vieja + " > " + path.nueva + "\n";
    }
    return text;
  }

 private:
  void choose_hit() {
    auto* const window = program.windows.find<location::ElegirRuta>();
    if (window == nullptr || window->Elegido) return;
    ++choices;
    window->ListElegirRuta.chosen(static_cast<int>(window->ListElegirRuta.rows().size()) - 1);
    window->ListElegirRuta.on_click();
  }
};

}  // namespace ordelan::test
