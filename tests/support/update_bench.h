// A studio whose audio has moved, and the update of its projects.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "location/path_choice_window.h"
#include "relink/run_index.h"
#include "support/program_bench.h"

namespace ordelan::test {

class UpdateBench : public ProgramBench {
 public:
  UpdateBench() { shell.files = &disk.files(); }

  // A project that uses files at paths where they need not be.
  void project_at(const std::string& below, const std::vector<std::string>& paths) {
    disk.write(below, project_of(paths));
  }
  // Answers the question with yes and runs the job.
  void update() {
    dialogs.answers.push_back(system::Answer::yes);
    form.ActualizarVip.on_click();
  }
  void undo() {
    dialogs.answers.push_back(system::Answer::yes);
    form.DeshacerActualizacion.on_click();
  }
  // The bytes of a file; "<none>" if it is missing.
  std::string bytes(const std::string& below) {
    const auto file = disk.files().open(disk.path(below));
    if (!file) return "<none>";
    std::string all(static_cast<std::size_t>(file->size()), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(all.data()), all.size()});
    return all;
  }
  // What the reader finds in a project.
  std::vector<std::string> paths_in(const std::string& below) {
    std::vector<std::string> rows;
    form.reader.ExtraerNombres_Archivos(
        disk.path(below),
        [&](std::vector<std::string> more) { rows.insert(rows.end(), more.begin(), more.end()); },
        "", true);
    return rows;
  }
  // The names in a folder, with those of its subfolders below them.
  std::vector<std::string> names_in(const std::string& below) {
    std::vector<std::string> names;
    const auto entries = disk.files().list(disk.path(below));
    for (const auto& entry : *entries) {
      names.push_back(entry.name);
      if (!entry.folder) continue;
      for (const std::string& inside : names_in(below + "\\" + entry.name)) {
        names.push_back(entry.name + "\\" + inside);
      }
    }
    return names;
  }
  const std::vector<relink::ProjectUpdate>& updated() { return form.relink().outcome().proyectos; }
  const system::Message& last_box() const { return dialogs.messages.back(); }
  // A file with no trace of the projects' paths, to be found by searches.
  void audio(const std::string& below) { disk.write(below, "audio " + below); }

  location::ElegirRuta* choice() { return windows.find<location::ElegirRuta>(); }
};

}  // namespace ordelan::test
