// One start of the program, with the windows of removal, over a disk that outlives it.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/program.h"
#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders_window.h"
#include "removal/recovery_window.h"
#include "removal/removal_review_window.h"
#include "settings/settings.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "system/file_system.h"
#include "text/paths.h"

namespace ordelan::test {

// The bytes of a file; nothing if it cannot be opened.
inline std::optional<std::string> bytes_at(system::FileSystem& files, const std::string& path) {
  const auto file = files.open(path);
  if (!file) return std::nullopt;
  std::string bytes(static_cast<std::size_t>(file->size()), '\0');
  file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
  return bytes;
}

// A desktop that copies as simple ones do: it writes into the file that has the name, and waits for
// no disk. Each of its steps is a call to the file system. The bin is a folder of the disk.
class CopyingShell final : public system::Shell {
 public:
  explicit CopyingShell(system::FileSystem& files) : files_(files) {}

  bool answers_yes = true;                              // what the user answers to questions
  std::function<bool(const std::string& path)> answer;  // the same by path, where it is set
  std::vector<std::string> calls;                       // what it was asked to do, in order
  std::vector<std::string> asked;  // the questions, by the path that each is about

  system::Status recycle(const std::string& path, system::Confirm confirm) override {
    const bool ask = confirm == system::Confirm::ask;
    calls.push_back((ask ? "recycle? " : "recycle ") + path);
    if (!files_.info(path)) return system::Reason::not_found;
    if (ask && !answered(path)) return system::Reason::cancelled;
    files_.make_folder(kBin).ignore();
    for (int number = 1;; ++number) {
      const std::string there = std::string(kBin) + "\\" + std::to_string(number);
      files_.set_attributes(path, system::attribute::kArchive).ignore();
      const auto moved = files_.move(path, there);
      if (moved != system::Reason::exists) return moved;
    }
  }
  system::Status copy_into(const std::string& from, const std::string& folder) override {
    calls.push_back("copy " + from + " > " + folder);
    const std::string to = system::with_backslash(folder) + text::Obtener_Nombre_Archivo(from);
    if (files_.info(to) && !answered(to)) return system::Reason::cancelled;
    const auto bytes = bytes_at(files_, from);
    if (!bytes) return system::Reason::not_found;
    const auto file = files_.create(to);
    if (!file) return file.status();
    const auto written = file->write(*bytes);
    const auto closed = file->close();
    return written ? closed : written;
  }
  system::Status recycles(std::string_view) override { return {}; }
  system::Status empty_bin(const std::string& root, system::Confirm confirm) override {
    calls.push_back(std::string("empty ") + (confirm == system::Confirm::ask ? "? " : "") + root);
    return answers_yes ? system::Reason::ok : system::Reason::cancelled;
  }
  bool open(const std::string&) override { return false; }
  std::string file_type(const std::string&) override { return {}; }
  std::string executable(const std::string&) override { return {}; }
  std::optional<system::Pixels> icon(const std::string&) override { return std::nullopt; }

  static constexpr const char* kBin = "D:\\Papelera de pruebas";

 private:
  bool answered(const std::string& path) {
    asked.push_back(path);
    return answer ? answer(path) : answers_yes;
  }

  system::FileSystem& files_;
};

struct RemovalSession {
  // `files` must outlive it.
  explicit RemovalSession(system::FileSystem& files)
      : shell(files),
        platform{files, dialogs, backend, clock, regional, drives, shell, media},
        settings(files, regional, "D:\\Config.ini"),
        program(backend, platform, settings) {
    // Every look at the clock is a while: each turn of a loop pumps.
    clock.step = std::chrono::milliseconds(20);
    drives.add("D:\\");
    program.start();
  }

  removal::BacUp& options() { return *program.windows.touch<removal::BacUp>(); }
  removal::ParaBorrar& review() { return *program.windows.touch<removal::ParaBorrar>(); }
  removal::CarpetaBack& folder_window() { return *program.windows.touch<removal::CarpetaBack>(); }
  removal::Recuperar& recovery() { return *program.windows.touch<removal::Recuperar>(); }
  removal::FormNoBorrar& folders() { return *program.windows.touch<removal::FormNoBorrar>(); }

  void open(const std::string& project) {
    dialogs.files.push_back({project});
    program.form.AbrirFichero_Click();
  }
  // Shows the windows of removal with the boxes of a run with backup that removes for good.
  void prepare(bool backup) {
    program.form.CommandBorrado.on_click();
    options().cmdBorrar_Click();
    options().CheckBackup.set_checked(backup);
    options().CheckBorrar.set_checked(true);
    options().CheckBorraAsociados.set_checked(false);
    options().CheckComprobar.set_checked(true);
    review().CheckBorrarPapelera.set_checked(false);
  }
  void choose(const std::string& folder) {
    dialogs.folders.push_back(folder);
    review().cmdHecho_Click();
  }
  void remove_to(const std::string& folder) {
    choose(folder);
    folder_window().cmdCarpetaBorrar_Click();
  }
  // Brings back what a log lists. False where the log lists nothing.
  bool recover(const std::string& log) {
    dialogs.files.push_back({log});
    recovery().cmdOpen_Click();
    const bool listed = recovery().cmdRecuperar.visible();
    if (listed) recovery().RecuperarArchivos();
    program.windows.close<removal::Recuperar>();
    return listed;
  }

  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  CopyingShell shell;
  FakeMedia media;
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform;
  settings::Settings settings;
  app::Program program;
};

}  // namespace ordelan::test
