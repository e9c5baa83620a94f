// A studio with unused files and the windows of removal over it.
#pragma once

#include <string>
#include <vector>

#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders_window.h"
#include "removal/recovery_window.h"
#include "removal/removal_review_window.h"
#include "support/program_bench.h"

namespace ordelan::test {

class RemovalBench : public ProgramBench {
 public:
  RemovalBench() { shell.files = &disk.files(); }

  // A project that uses one file, the unused files beside it, and the project opened. `said` is
  // what stands besides in the project.
  void open_studio(const std::vector<std::string>& unused,
                   const std::vector<std::string>& said = {}) {
    disk.write("Mix\\usado.wav", "used");
    disk.write("Mix\\usado2.wav", "the neighbour of a used file, which is never offered");
    std::vector<std::string> fields = {disk.path("Mix\\usado.wav")};
    fields.insert(fields.end(), said.begin(), said.end());
    disk.write("Mix\\tema.vip", project_of(fields));
    for (const std::string& file : unused) disk.write(file, "bytes of " + file);
    start();
    open("Mix\\tema.vip");
    form.CommandBorrado.on_click();
    options().cmdBorrar_Click();
    set(/*backup=*/false, /*list=*/true, /*side_files=*/false);
    options().CheckComprobar.set_checked(true);
    review().CheckBorrarPapelera.set_checked(false);
  }

  removal::BacUp& options() { return *windows.touch<removal::BacUp>(); }
  removal::ParaBorrar& review() { return *windows.touch<removal::ParaBorrar>(); }
  removal::CarpetaBack& folder_window() { return *windows.touch<removal::CarpetaBack>(); }
  removal::Recuperar& recovery() { return *windows.touch<removal::Recuperar>(); }
  removal::FormNoBorrar& folders() { return *windows.touch<removal::FormNoBorrar>(); }
  const removal::RemovalState& outcome() const { return form.removal_state(); }

  void set(bool backup, bool list, bool side_files) {
    options().CheckBackup.set_checked(backup);
    options().CheckBorrar.set_checked(list);
    options().CheckBorraAsociados.set_checked(side_files);
  }
  void unchecked() { options().CheckComprobar.set_checked(false); }
  void untick(const std::string& below) {
    const auto& rows = review().ListBorrar.rows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows[i] == disk.path(below)) review().ListStatus.set_ticked(i, false);
    }
  }

  // Presses cmdHecho; with backup also picks the folder and presses cmdCarpetaBorrar.
  void remove() { review().cmdHecho_Click(); }
  void remove_with_backup(const std::string& below) {
    set(true, options().CheckBorrar.checked(), options().CheckBorraAsociados.checked());
    disk.make_folder(below);
    dialogs.folders.push_back(disk.path(below));
    review().cmdHecho_Click();
    folder_window().cmdCarpetaBorrar_Click();
  }
  // Brings back what the log in a folder lists.
  void recover(const std::string& below) {
    dialogs.files.push_back({disk.path(below + "\\Archivos_Borrados.log")});
    recovery().cmdOpen_Click();
    recovery().RecuperarArchivos();
  }

  // The bytes of a file; "<none>" if it is missing.
  std::string bytes(const std::string& below) {
    const auto file = disk.files().open(disk.path(below));
    if (!file) return "<none>";
    std::string all(static_cast<std::size_t>(file->size()), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(all.data()), all.size()});
    return all;
  }
  // The reason that a run has given for a row that is still there; empty if it has given none.
  std::string reason(const std::string& below) const {
    for (const removal::Kept& kept : outcome().kept) {
      if (kept.ruta == disk.path(below)) return kept.motivo;
    }
    return {};
  }
};

}  // namespace ordelan::test
