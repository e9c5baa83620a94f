// The whole program on a real disk and no screen, for tests of whole flows.
#pragma once

#include <string>
#include <vector>

#include "app/program.h"
#include "location/drive_window.h"
#include "location/search_window.h"
#include "settings/settings.h"
#include "support/computer.h"
#include "support/small_project.h"

namespace ordelan::test {

class ProgramBench : public Computer {
 public:
  ProgramBench() {
    // Every look at the clock is a while: each turn of a loop pumps.
    clock.step = std::chrono::milliseconds(20);
    add_drive("");
  }

  // Starts the program. Its drives are ticked, unless the test has written a configuration.
  void start() {
    if (!disk.files().info(settings.RutaConfig)) {
      std::string ticked = "[Settings]\r\n";
      for (const std::string& root : drives.roots()) {
        ticked += "Unidad: " + root + drives.volume(root)->label + "=1\r\n";
      }
      disk.write("Config.ini", ticked);
    }
    program.start();
  }

  // A folder of the disk that passes for a drive of its own; the whole disk where it is empty.
  // Gives its root.
  std::string add_drive(const std::string& folder,
                        system::DriveType type = system::DriveType::fixed) {
    const std::string root = folder.empty() ? disk.folder() : disk.path(folder + "\\");
    if (!folder.empty()) disk.make_folder(folder);
    drives.add(root, type);
    return root;
  }

  location::Buscar& buscar() { return *windows.touch<location::Buscar>(); }
  location::UnidadesBuscar& boxes() { return *windows.touch<location::UnidadesBuscar>(); }

  // Picks the project below the disk's folder in the file dialog.
  void open(const std::string& below) {
    dialogs.files.push_back({disk.path(below)});
    form.AbrirFichero_Click();
  }

  // Drops projects and folders below the disk's folder on the list of projects.
  void drop(const std::vector<std::string>& below) {
    std::vector<std::string> items;
    for (const std::string& item : below) items.push_back(disk.path(item));
    form.lists.ListProyectos.on_drop(items);
  }
  // Double-clicks a row of the list of projects.
  void double_click(int index) {
    form.lists.ListProyectos.chosen(index);
    form.lists.ListProyectos.on_double_click();
  }
  // A project that uses files below the disk's folder.
  void project(const std::string& below, const std::vector<std::string>& used) {
    std::vector<std::string> paths;
    for (const std::string& file : used) paths.push_back(disk.path(file));
    disk.write(below, project_of(paths));
  }
  // A project's row; whether there is such a file or folder; what list 4 offers.
  std::string row(int number, const std::string& below) const {
    return std::to_string(number) + " --> " + disk.path(below);
  }
  bool there(const std::string& below) { return disk.files().info(disk.path(below)).has_value(); }
  const std::vector<std::string>& offered() const { return form.lists.ListBorrar.rows(); }

  // Runs `action` in the pump at which `when` first holds.
  template <class Condition, class Action>
  void in_the_middle(Condition when, Action action) {
    backend.on_pump = [when, action, done = false]() mutable {
      if (done || !when()) return;
      done = true;
      action();
    };
  }

  settings::Settings settings{disk.files(), regional, disk.path("Config.ini")};
  app::Program program{backend, platform, settings};
  work::WorkInHand& work = program.work;
  work::WindowDirectory& windows = program.windows;
  main_window::Form1& form = program.form;
};

}  // namespace ordelan::test
