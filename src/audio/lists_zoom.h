// The enlarged list: the rows of one of the lists of the main window, with room to be read.
#pragma once

#include <functional>
#include <string>

#include "audio/sound.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "work/program_window.h"
#include "work/row_commands.h"

namespace ordelan::audio {

class ListasZoom final : public work::ProgramWindow {
 public:
  static constexpr const char* kName = "ListasZoom";

  // `sound` must outlive the window. `decode_row` decodes that row of ListProyectos.
  ListasZoom(const work::Context& context, Sound& sound, std::function<void(int)> decode_row);

  ui::ListBox ListZoom;
  ui::Label LabelTitulo;  // what list this is
  ui::Label LabelUp;      // the headings of that list
  ui::Label LabelDwn;
  ui::Label LZLabelIndice;  // the number of the row under the pointer
  ui::Image ImageIcono;     // beside the row of a project
  ui::CheckBox CheckToolTips;
  ui::Button cmdMinimizar;
  ui::Button Close;
  ui::Button cmdFilas;  // the commands on its rows

  // Takes the rows of that list in place of its own, and stands for it by `tag` from now on.
  void show_list(const ui::ListBox& list, const std::string& title, const std::string& tag);

 private:
  void Form_Load() override;
  void name_controls();
  void store();
  void ListZoom_Click();
  void ListZoom_DblClick();
  void ListZoom_RightClick();
  void CheckToolTips_Click();

  Sound& sound_;
  std::function<void(int)> decode_row_;
  work::RowCommands commands_;
};

}  // namespace ordelan::audio
