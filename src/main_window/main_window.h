// The main window: it owns the work in hand, and its life is the life of the program.
#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

#include "audio/sound.h"
#include "location/location.h"
#include "main_window/list_clicks.h"
#include "main_window/play_marks.h"
#include "project/project_decoding.h"
#include "project/project_gate.h"
#include "project/project_listing.h"
#include "project/unused_analysis.h"
#include "project/vip_reader.h"
#include "relink/relink.h"
#include "removal/removal.h"
#include "settings/settings.h"
#include "system/platform.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/control_array.h"
#include "ui/image.h"
#include "ui/label.h"
#include "work/clocks.h"
#include "work/context.h"
#include "work/job.h"
#include "work/path_strip.h"
#include "work/program_window.h"
#include "work/status_strip.h"
#include "work/window_directory.h"
#include "work/window_names.h"
#include "work/work_in_hand.h"
#include "work/work_lists.h"

namespace ordelan::main_window {

using work::window_name::kListasZoom;
using work::window_name::kPlayer;
using work::window_name::kSA;
using work::window_name::kZoom;

class Form1 final : public work::ProgramWindow {
 public:
  // Everything given must outlive the window. `load` starts it.
  Form1(ui::Backend& backend, const system::Platform& platform, work::WorkInHand& work,
        work::WindowDirectory& windows, settings::Settings& settings);

  // Picks a project in the file dialog and opens it: its folder's projects are listed and it is
  // decoded into ListVip.
  void AbrirFichero_Click();
  // Projects and folders dropped on ListProyectos: the projects, or all those of the first folder
  // that holds some, are listed and decoded.
  void ListProyectos_Drop(const std::vector<std::string>& dropped);
  // Decodes one row of ListProyectos into ListVip, as a part of `job`; the other lists stay.
  void ListProyectos_Decode(work::Job& job, std::size_t Indice);
  void ListProyectos_DblClick();
  void ListProyectos_Click();
  // Sweeps the projects that List1 holds: lists them, decodes the first into ListVip and all into
  // ListUtilizados, and works out what none of them uses. Does nothing, and leaves Descodificando
  // as it is, while RutaProyectos is in a folder of frozen tracks. False if a newer job took the
  // place of `job` on the way.
  bool BarrerProyectos(work::Job& job);
  // How many of the listed projects the last opening or sweep has decoded; a reset leaves it.
  std::size_t decoded_projects() const { return decoding_.decoded(); }
  // Saves the lists as reports, one for each project and two for all.
  void SalvaListados_Click();
  // Back to the empty window. A job that runs ends at its next look.
  void cmdReset_Click();
  void Inicio() { cmdReset_Click(); }
  // Asks the running job to stop. What is on screen stays.
  void cmdCancelar_Click();
  // Shows the window in which the drives are ticked.
  void Configurar_Click();
  // Ends the program, without a question.
  void Salir_Click();
  // Shows the player where it was stored, or hides it. The sound goes on.
  void cmdPlayer_Click();
  // Shows how many projects are left out, as the work in hand has them now. The window that
  // lists them follows where it is open, and is closed when there are none.
  void show_ProyectosFuera();
  // Opens the window that lists those projects, or closes it.
  void LabelFuera_Click();
  // Opens or sweeps once more what was opened or dropped last.
  void open_again();
  // Copies list 4 to the review of what will be removed.
  void CopiarListBorrados() { removal_.CopiarListBorrados(); }

  work::WorkLists lists;
  work::StatusStrip strip;
  work::Clocks clocks;
  work::PathStrip path_strip;

 private:
  audio::Sound sound_;  // before what shows how it stands

 public:
  PlayMarks play;

  ui::Button AbrirFichero;
  ui::Button cmdReset;
  ui::Button cmdCancelar;
  ui::Button CommandBorrado;
  ui::Button cmdPerdidos;
  ui::Button cmdMinimizar;
  ui::Button Salir;
  ui::Label SalvaListados;
  ui::Label ActualizarVip;
  ui::Label DeshacerActualizacion;  // shown while an update can be undone
  ui::Label RecuperaBorrados;       // brings removed files back
  ui::Label Configurar;
  ui::Label AcercaDe;
  ui::Label cmdSalir;    // ends the program too: in words, among the labels
  ui::Label LabelFuera;  // how many projects are left out
  ui::CheckBox CheckSubPath;
  ui::CheckBox CheckBAK;
  ui::CheckBox CheckToolTips;
  ui::CheckBox CheckPlayer;
  ui::CheckBox CheckDragDrop;
  ui::CheckBox CheckLogo;
  ui::CheckBox ZoomListas;
  ui::ControlArray<ui::Label> TextNum1;
  ui::ControlArray<ui::Image> ImagePaso;  // the numbers of the four steps, one a list
  ui::Label ListProyectosInfo;
  ui::Image ShowIco;
  ui::Button cmdPlayer;  // shows the player, or hides it
  ListClicks clicks;     // what the lists do under the mouse

  // Whether files may be removed by what a sweep finds: then it notes how each stands on the disk.
  // A program that only prints lists saves the time; no run begins there.
  bool may_remove = true;

  project::VipReader reader;
  // The report of lost files.
  location::LostFiles& lost_files() { return location_.lost_files; }
  const location::LostFiles& lost_files() const { return location_.lost_files; }
  // Those of ListBorrar that some project names or may name; see `Removal`.
  std::optional<std::vector<removal::Kept>> named_files(const std::function<bool()>& go_on) {
    return removal_.named_files(go_on);
  }
  // The sound of the program.
  audio::Sound& sound() { return sound_; }
  // The update of the projects.
  relink::Relink& relink() { return relink_; }
  // How the last removal went.
  const removal::RemovalState& removal_state() const { return removal_.state; }

 private:
  void Form_Load() override;
  void CheckLogo_Click();
  void warn_of_no_drive();
  void wire();
  void name_controls();
  void Form_KeyDown(ui::Key& key);
  void Form_Escape();
  void CheckToolTips_Click();
  bool decode_row(int row);

  // The states of the window, each in one place: view_states.cpp.
  void hide_headings();
  void show_empty();
  void show_choosing();
  void show_opening();
  void show_dropping();
  void show_sweeping();
  void show_projects();
  void show_progress();
  void hide_progress();
  void show_opened();
  void show_swept();
  void show_commands();
  void show_decoding_row();
  void show_decoded_row();
  void show_updating();
  void show_updated();
  void show_saving_reports();
  void show_reports_saved();
  void show_CommandBorrado();

  // The steps of AbrirFichero after the choice of a project.
  void open_project(const std::string& path);
  void decode_folder(work::Job& job, const std::string& path);
  void list_projects(work::Job& job);
  void decode_picked_project(work::Job& job, const std::string& display_path);

  // What opening, sweeping and decoding one project have in common.
  // Reads a project into ListVip and heads the list; `shown` is the path that the headings show.
  void decode_into_ListVip(work::Job& job, const std::string& path, const std::string& shown);
  void LlenarListUtilizados(work::Job& job);
  void LlenarListBorrar(work::Job& job);
  // Works out the report of lost files, and shows cmdPerdidos if it has two rows or more.
  void LlenarPerdidos(work::Job& job);
  bool removes_side_files() const { return removal_.removes_side_files(); }
  void note_listed(work::Job& job);
  void close_windows(std::initializer_list<const char*> names);

  // What the window shows of the decoded project.
  struct ShownProject {
    struct Heading {
      std::string caption;
      bool visible;
    };
    std::vector<std::string> rows;
    bool visible;
    int current;
    std::string NombreProyecto;
    std::vector<Heading> headings;
  };
  ShownProject shown_project() const;
  void show_again(const ShownProject& shown);
  void tell_unsaved(const std::vector<std::string>& failed);

  // A sweep: from a filled List1 to decoded projects.
  void PrepararBarrido();
  // How a dropped item ended.
  enum class Dropped { taken, nothing, swept, ended };
  // The first of the items; the others are those dropped after it.
  Dropped drop_item(work::Job& job, const std::vector<std::string>& items);
  Dropped drop_folder(work::Job& job, const std::vector<std::string>& items);
  void leave_out_undropped(const std::vector<std::string>& items);
  void end_empty_drop();
  void ask_to_remove_side_files(work::Job& job, const std::string& folder);
  void tell_kept_side_files();

  const system::Platform& platform_;
  work::WorkInHand& work_;
  work::WindowDirectory& windows_;
  settings::Settings& settings_;
  project::LeftOut left_out_;
  project::ProjectGate gate_;
  project::ProjectListing listing_;
  project::ProjectDecoding decoding_;
  project::UnusedAnalysis analysis_;
  location::Location location_;
  removal::Removal removal_;
  relink::Relink relink_;
  std::optional<ShownProject> shown_before_reports_;  // while reports are saved
  std::vector<std::string> dropped_;          // last; empty where a project was picked since
  std::vector<std::string> kept_side_files_;  // of this drop, to be named at its end
};

}  // namespace ordelan::main_window
