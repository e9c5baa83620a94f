// The searches of the whole program, and its helpers for paths. A window that is never shown: its
// lists keep what was found.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "location/drive_window.h"
#include "location/file_finder.h"
#include "location/update_search.h"
#include "project/project_gate.h"
#include "ui/list_box.h"
#include "ui/text_box.h"
#include "ui/window.h"
#include "work/context.h"
#include "work/job.h"

namespace ordelan::location {

// Where the hits of a search of the user's own go besides the strip. Not called while projects are
// updated.
struct HitListener {
  // The one hit. Whether a list that the user sees has taken it in place of the lost row.
  std::function<bool(const std::string& hit)> one = [](const std::string&) { return false; };
  // Several hits: the user is to choose.
  std::function<void(const std::vector<std::string>& hits)> several =
      [](const std::vector<std::string>&) {};
};

class Buscar final : public ui::Window {
 public:
  static constexpr const char* kName = "Buscar";

  // The arguments must outlive the window. `cmdReset_Click` empties the main window: a cancelled
  // search asks for it.
  Buscar(const work::Context& context, project::VipReader& reader, project::LeftOut& left_out,
         std::function<void()> cmdReset_Click, HitListener hits = {});

  ui::ListBox List1;  // scratch
  ui::ListBox List2;  // the hits of a search, a full path a row
  ui::TextBox Text1;  // the folder in which BuscarVips looks

  // The bare name of a file; its folder, with or without the closing backslash; a clean path from
  // a list row; its extension without the dot.
  std::string Obtener_Nombre_Archivo(const std::string& Ruta) const;
  std::string Obtener_Nombre_Path(const std::string& Ruta, bool ConBarra) const;
  std::string Obtener_VipPath(const std::string& Ruta) const;
  std::string Obtener_Extension(const std::string& Ruta) const;
  // The folder that the user picks, empty when the dialog was cancelled.
  std::string ElegirCarpeta(const std::string& Titulo);
  // Whether a project is to be listed.
  bool Valido(const std::string& Ruta);

  // Adds the valid projects in the folder of Text1 and below to ListProyectos, and their bare paths
  // to List1; the first project of a drop empties both lists before. Whether there is any. The
  // others are left out with their reason.
  bool BuscarVips(work::Job& job);

  // Finds where a file is now: at the same path on a ticked drive, or anywhere on the ticked
  // drives. Whether it was found; ArchivoActual is then its path, and the strip says how it went.
  // Of several hits, List2 has all and ArchivoActual the first, or while projects are updated the
  // one that the user chooses. `Lista` is the list that the name was clicked in. Gives false at
  // once while another search runs.
  bool BuscarEnTodasUnidades(const std::string& Archivo, ui::ListBox& Lista);
  // Ends the search that runs as one that has found nothing. What is on screen stays, other than
  // with `Cancelar`, which empties the window.
  void stop_search() { stopped_ = searching_; }

  // Looks for the same path on every ticked drive. Whether one has it: ArchivoActual is then the
  // path on the last of them. Finds nothing for a path that does not begin with a drive.
  bool BuscarOtraLetra(const std::string& Ruta);

  // What the searches of an update of the projects share, from its first search to its last; null
  // ends it. Each drive is then walked once for all names, and texts that the next one replaces at
  // once are shown ten times a second at most. `update` must outlive the searches.
  void set_update(UpdateSearch* update) { update_ = update; }

  // Gives every fixed and removable drive its box in UnidadesBuscar.
  void UnidadesDisponibles();

 private:
  std::shared_ptr<cFindFiles> new_finder();
  UnidadesBuscar* boxes();
  bool search(const std::string& file, work::Job& job);
  bool must_stop(const work::Job& job) const { return stopped_ || job.must_stop(); }
  bool try_other_letters(const std::string& path);
  bool find_everywhere(const std::string& file, work::Job& job);
  bool tell(const std::string& file);
  bool choose(work::Job& job);
  bool choose_by_folder();
  void announce(std::string text);
  void show_announced();
  void stop_clock();
  void run(const std::string& folder, const std::string& what, work::Job& job);
  void find_in_index(const std::string& folder, const std::string& what, work::Job& job);
  void cFind_InitSearch();
  void cFind_EndSearch(const std::vector<std::string>& found);

  work::Context context_;
  project::LeftOut& left_out_;
  std::function<void()> cmdReset_Click_;
  HitListener hits_;
  project::ProjectGate gate_;
  std::shared_ptr<cFindFiles> cFind_;
  std::string asked_;  // the name that hits must have; empty for any
  bool searching_ = false;
  bool stopped_ = false;
  UpdateSearch* update_ = nullptr;
  std::optional<std::string> announced_;  // a text of the strip that was not due yet
};

}  // namespace ordelan::location
