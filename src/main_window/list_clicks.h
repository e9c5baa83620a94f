// What the three file lists of the main window do under the mouse: a left click plays the row, a
// right click takes the whole list to the detail window, the pointer is answered with the row's
// number.
#pragma once

#include <string>
#include <vector>

#include "audio/lists_zoom.h"
#include "audio/sound.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/control_array.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "work/context.h"
#include "work/path_strip.h"
#include "work/row_commands.h"

namespace ordelan::main_window {

class ListClicks {
 public:
  // The controls of the main window that a click reads or changes besides the lists.
  struct Controls {
    work::PathStrip& path_strip;
    const ui::CheckBox& ZoomListas;
    const ui::CheckBox& CheckPlayer;
  };

  // Makes its controls in `window`. What it is given must outlive it.
  ListClicks(ui::Window& window, const work::Context& context, audio::Sound& sound,
             const Controls& controls);
  ListClicks(const ListClicks&) = delete;
  ListClicks& operator=(const ListClicks&) = delete;

  ui::Label LabelIndice;                  // the number of the row under the pointer
  ui::Button cmdPararBusqueda;            // ends a search that a click began
  ui::ControlArray<ui::Button> cmdFilas;  // the commands on the rows of each list

  // The row of the list played last, -1 for none.
  int IndiceActual = -1;

  // A left click on a row, and the same by the Enter key.
  void ListVip_Click() { click(vip_); }
  void ListUtilizados_Click() { click(utilizados_); }
  void ListBorrar_Click() { click(borrar_); }
  // The rows of ListVip in the enlarged list, which stands for ListProyectos: a double click there
  // decodes the project of the same number, as users of the list are used to.
  void enlarge_projects();
  // The one hit of a search takes the place of the row of the searched one's number in the detail
  // window. Whether that is shown.
  bool take_hit(const std::string& hit);
  // Several hits: the detail window shows them, so that the user can listen to each.
  void offer_hits(const std::vector<std::string>& hits);
  // Ends the search that runs. What is on screen stays.
  void cmdPararBusqueda_Click();
  // What was found for rows that go now.
  void forget_found();
  // The commands of the list that has the focus, null where none of the lists has it.
  work::RowCommands* commands_of(const ui::Control* focus);

 private:
  struct List {
    ui::ListBox& list;
    const char* name;   // of its balloon
    const char* tag;    // by which the enlarged list stands for it
    const char* title;  // of the enlarged list
    ui::ControlArray<ui::Label>& heading;
    work::RowCommands commands;
  };

  void wire(List& list);
  void click(List& clicked);
  void click_row(List& clicked, std::string row);
  bool enlarge(const List& clicked);
  void show_enlarged(audio::ListasZoom& window, const List& standing, const ui::ListBox& rows,
                     const std::string& title);
  void play(List& clicked, const std::string& row);
  void start(List& clicked, const std::string& extension, const audio::Sound::Click& click,
             bool searched);
  void right_click(List& clicked);
  void point(const List& pointed, ui::Point at);
  bool may_go_on(const audio::Sound::Click& click) const;

  work::Context context_;
  audio::Sound& sound_;
  Controls controls_;
  List proyectos_;
  List vip_;
  List utilizados_;
  List borrar_;
};

}  // namespace ordelan::main_window
