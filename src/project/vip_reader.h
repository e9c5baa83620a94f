// Reads the audio paths out of project files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "project/file_window.h"
#include "project/row_sink.h"
#include "project/vip_scan.h"
#include "system/platform.h"
#include "ui/progress_bar.h"
#include "work/work_in_hand.h"

namespace ordelan::project {

// How far the last reading of a project got.
enum class Reading {
  whole,
  no_project,  // the name is no project's, or there is no such plain file
  locked,      // the file is there and could not be opened
  broken,      // a read failed on the way: references may be missing
  stopped,     // by the user or by a newer job
};

class VipReader {
 public:
  // Everything given must outlive the reader. `block` is how many bytes it reads at once.
  VipReader(const system::Platform& platform, work::WorkInHand& work, ui::ProgressBar& progress,
            std::size_t block = FileWindow::kBlock)
      : platform_(platform), work_(work), progress_(progress), block_(block) {}

  // Reads the project that `Ruta` names: a path, or a project row with its number and arrow.
  //
  // With `Agregar`, gives `Lista` the row `Titulo` (unless empty) and a row for each reference,
  // and counts them in TotalArchivosVip. Without, asks only whether there is any reference, and
  // gives just the title. True if there was at least one.
  //
  // Nothing is added, and the answer is false, for a name without ".vip", a file that is not there
  // and an empty file. The window stays alive meanwhile; when the user cancels, the rows found so
  // far count. Every failure is quiet.
  //
  // While ModoPosiciones is on, rows and title are left alone, the answer is false, and the
  // positions of all paths go to a ".log" file beside the project.
  bool ExtraerNombres_Archivos(const std::string& Ruta, const RowSink& Lista,
                               const std::string& Titulo, bool Agregar);

  // The header text of a project. Sets PosInicioVip, or leaves it as it was when there is no such
  // file or the text does not end.
  std::string LeerCabeceraVip(const std::string& Ruta);

  // The scan limit that the marker sets, searched from `Desde` on; 0 when there is no marker.
  Position BuscarMarcaListas(const std::string& Ruta, Position Desde);

  // How the last call of ExtraerNombres_Archivos ended.
  Reading last_reading() const { return last_reading_; }

  Position PosInicioVip = 0;         // just after the header text; kept from one call to the next
  Position PosFinalVip = 0;          // scan limit of the last call
  std::size_t TotalArchivosVip = 0;  // file rows added so far

 private:
  struct Run;

  bool read_references(Run& run, const RowSink& list, const std::string& title, bool add);
  void find_references(Run& run, bool only_first);
  void collect(Run& run, Position limit, bool only_first);
  std::string row_text(Run& run, const Reference& found);
  void find_header_end(Run& run, std::string* text);
  void write_positions(Run& run, const std::string& log_name);
  bool turn(Run& run);

  const system::Platform& platform_;
  work::WorkInHand& work_;
  ui::ProgressBar& progress_;
  std::size_t block_;
  ReadBuffer spare_;  // left by the last reading
  Reading last_reading_ = Reading::whole;
};

}  // namespace ordelan::project
