// What the windows of removal share. It outlives them: a window that is closed and opened again
// goes on with it.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "audio/sound.h"
#include "work/context.h"

namespace ordelan::removal {

// A row that is still there after a run, or whose file a recovery has not brought back.
struct Kept {
  std::string ruta;
  std::string motivo;    // for the user
  std::string proyecto;  // the project that uses it, where that is the reason
  bool operator==(const Kept&) const = default;
};

struct RemovalState {
  std::string RutaBackup;        // folder of the backup and the log, as the folder dialog gave it
  bool CancelarBorrado = false;  // stop request; it waits for the next run if none is under way
  // Rows of List1 that are not audio and exist, in the last run that removed side files.
  std::size_t AsociadosEncontrados = 0;
  std::size_t ArchivosBorrados = 0;  // rows counted as removed in the last run

  int TotalRutas = 0;  // highest number of a protected folder in the settings

  std::size_t looks = 0;  // the number of the last look that the review has begun
  bool running = false;
  bool begun = false;  // the last run was not refused
  // What the last run was asked to remove and what is gone; and why the rest is still there.
  std::size_t asked = 0;
  std::size_t gone = 0;
  std::size_t side_files_gone = 0;
  std::vector<Kept> kept;
};

// What the windows of removal need of the main window.
struct Listener {
  std::function<void()> hide_ListPath;
  // Shows these rows on the strip for long paths.
  std::function<void(const std::vector<std::string>&)> show_ListPath;
};

class SecondReading;

// What every window of removal works with.
struct RemovalContext {
  work::Context work;
  RemovalState& state;  // outlives the windows, as what follows
  SecondReading& second_reading;
  audio::Sound& sound;
  Listener listener;
};

// Closes the windows that could hold a file open or show what is about to change, as far as they
// are shown.
void close_other_windows(const work::Context& context);

}  // namespace ordelan::removal
