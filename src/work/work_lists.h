// The lists of the main window with their headings: the program's data, and the only model of a
// project that there is.
#pragma once

#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/window.h"

namespace ordelan::work {

class WorkLists {
 public:
  explicit WorkLists(ui::Window& window);

  ui::ListBox ListProyectos;   // the projects
  ui::ListBox ListVip;         // what the decoded project uses
  ui::ListBox ListUtilizados;  // what all projects use
  ui::ListBox ListBorrar;      // what no project uses
  ui::ListBox List1;           // never shown: folders, projects and candidates of the moment

  ui::ControlArray<ui::Label> LabelCheck;
  ui::ControlArray<ui::Label> LabelCount;
  ui::ControlArray<ui::Label> LabelAdd;
  ui::ControlArray<ui::Label> LabelErase;

  // Whether nothing is listed at all.
  bool empty() const;

  // Heads ListProyectos with its count and the projects' folder.
  void head_projects(const std::string& folder);
  // Heads ListVip with its count, the project and the folder.
  void head_project(const std::string& project, const std::string& folder);
  // Heads ListVip when the project uses no audio.
  void head_midi_project();
};

}  // namespace ordelan::work
