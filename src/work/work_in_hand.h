// The work in hand: what all windows read and write. There is one at a time, and nothing of it is
// stored between runs.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "ui/list_box.h"

namespace ordelan::work {

// Marks one run of a long job, so that the run notices when something newer has taken its place.
using JobNumber = std::uint64_t;

// A project that is left out of the work in hand: what it uses may pass for unused.
struct ProyectoFuera {
  std::string ruta;    // its path, or that of a folder whose projects cannot be seen
  std::string motivo;  // the reason, for the user
};

// A file as it stood on the disk when it was read or listed, to notice that it has changed since.
struct Visto {
  static constexpr std::uint64_t kMissing = std::numeric_limits<std::uint64_t>::max();
  std::uint64_t size = 0;
  double modified = 0;
};
struct ProyectoLeido {
  std::string ruta;
  std::uint64_t size = 0;
  double modified = 0;
};

struct WorkInHand {
  std::string RutaProyectos;  // folder of the projects, with its backslash when picked in a dialog
  std::string RutaVip;        // full path of the project picked in the file dialog
  std::string
      CabeceraVip;  // header text of that project; kept beside the project; no code reads it
  std::string PrimerProyecto;    // the project that a sweep by drop decodes first
  std::string NombreProyecto;    // full path of the decoded project
  std::string ArchivoActual;     // audio file of the moment
  bool Cancelar = false;         // stop request, looked at by every long loop
  bool Descodificando = false;   // a decode runs
  bool ModoPosiciones = false;   // relinking runs: the reader writes positions, adds no rows
  bool ClickEnLista = false;     // a click on a list is being handled
  bool Borrando = false;         // a removal runs: no decode, no reset, no cancel
  bool Actualizando = false;     // projects are updated, or an update is undone
  bool ZoomConHallados = false;  // the detail window lists the hits of a search
  bool Buscando = false;         // a search of the user's own runs
  // The list that fills the detail window: always one of the main window, which outlives the work.
  ui::ListBox* ListaActual = nullptr;
  std::vector<ProyectoFuera> ProyectosFuera;  // in the order in which they were met

  // Whether ListBorrar is what a whole sweep has found: nothing may be removed by a list that a
  // cancel has cut short.
  bool ListaBorrarCompleta = false;
  std::vector<ProyectoLeido> ProyectosLeidos;  // for ListUtilizados
  // The rows of ListBorrar, and how each file stood; sizes beyond any file stand for missing ones.
  std::shared_ptr<const std::vector<std::string>> FilasVistas;
  std::vector<Visto> VistosBorrar;

  // Begins a job: runs that began earlier are superseded by it. A reset begins one too, so that
  // what it emptied is not filled again by a loop that was still running.
  JobNumber begin_job() { return ++job_; }
  JobNumber current_job() const { return job_; }

  // Whether a run that began as `job` has to end: the user asked for it, or a newer job has taken
  // its place.
  bool must_stop(JobNumber job) const { return Cancelar || superseded(job); }
  bool superseded(JobNumber job) const { return job != job_; }

 private:
  JobNumber job_ = 0;
};

}  // namespace ordelan::work
