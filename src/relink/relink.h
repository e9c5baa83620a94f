// Relinking as the main window uses it: the update of all listed projects, and the way back.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "location/lost_files.h"
#include "project/vip_reader.h"
#include "relink/update_run.h"
#include "removal/removal_state.h"
#include "work/context.h"

namespace ordelan::relink {

// What the job needs of the main window.
struct Listener {
  std::function<void()> cmdReset_Click;
  std::function<void()> show_updating;       // the user can cancel
  std::function<void()> show_updated;        // the job has ended
  std::function<void()> hide_ActualizarVip;  // there is nothing to be updated any more
  std::function<void(bool)> offer_undo;      // whether there is something to be undone
  PointerListener pointers;
};

class Undo;

class Relink {
 public:
  // The arguments must outlive this.
  Relink(const work::Context& context, project::VipReader& reader,
         const location::LostFiles& lost_files, Listener listener);
  Relink(const Relink&) = delete;
  Relink& operator=(const Relink&) = delete;

  // Asks, and updates all projects of ListProyectos.
  void ActualizarVip_Click();
  // Asks, and restores the projects as they were before the latest update of their folder.
  void DeshacerActualizacion_Click();
  // Offers the way back if the folder of these projects has an update that can be undone.
  // `RutaProyectos` as the work in hand has it; another folder is no longer offered.
  void look_for_undo(const std::string& RutaProyectos);

  // Writes the pointer files of all rows of ListProyectos to a folder, given with its backslash.
  // Gives the names of those that were written whole.
  std::vector<std::string> GrabarPunteros(const std::string& Carpeta);

  // For the console program; the window's own job has none of them set.
  UpdateOptions options;

  // How the last job went: the words of its box, and each project that it came to.
  struct Outcome {
    std::string Informe;
    std::string titulo;
    system::Icon icono = system::Icon::none;
    bool begun = false;  // it was not refused, and there was something to be done
    std::vector<ProjectUpdate> proyectos;
    std::set<std::string> carpetas_sin_ver;  // the searches could not list them
    bool informe_guardado = true;            // false if the report could not be written
  };
  const Outcome& outcome() const { return outcome_; }
  // What the last way back could not restore; nothing if none was begun.
  const std::optional<std::vector<removal::Kept>>& not_undone() const { return not_undone_; }

 private:
  bool is_busy() const;
  int ticked_drives();
  void begin_clocks();
  void update(int& counter);
  UpdateRun::End run(work::Job& job, int& counter);
  // Each is false when something else was begun while its box was up.
  bool end_without_pointers();
  bool close_job(int counter);
  void message(const std::string& title, const std::string& text, system::Icon icon);
  void show_left_alone();
  void offer_to_give_up(Undo& undo, work::Job& job);

  work::Context context_;
  project::VipReader& reader_;
  const location::LostFiles& lost_files_;
  Listener listener_;
  Outcome outcome_;
  std::string undo_folder_;  // of originals; empty where there is nothing to be undone
  std::optional<std::vector<removal::Kept>> not_undone_;
};

}  // namespace ordelan::relink
