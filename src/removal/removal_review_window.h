// The last look at the list before files go.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "removal/removal_state.h"
#include "removal/run_totals.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/check_list_box.h"
#include "ui/control_array.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "work/program_window.h"

namespace ordelan::removal {

class ParaBorrar final : public work::ProgramWindow, private audio::Mirror {
 public:
  static constexpr const char* kName = "ParaBorrar";

  explicit ParaBorrar(const RemovalContext& removal);

  // The two lists have the same rows, paired by their numbers: a ticked row of ListStatus is a row
  // of ListBorrar to be removed.
  ui::ListBox ListBorrar;
  ui::CheckListBox ListStatus;
  ui::CheckBox CheckConfirmar;
  ui::CheckBox CheckBorrarPapelera;
  ui::CheckBox CheckVaciarPapelera;
  ui::CheckBox CheckAudio;
  ui::CheckBox ParaBorrarCheckToolTip;  // puts the tooltips of this window away
  ui::Button cmdHecho;                  // begins the run
  ui::Button Cancela;
  ui::Button CommandProtegidas;
  ui::Button Salir;
  ui::Button cmdSalir;
  ui::Button cmdMinimizar;
  ui::TextBox TextAviso;
  ui::TextBox AvisoSound;
  ui::Image ImageInfoSound;
  ui::Label TextSound;
  ui::ControlArray<ui::Image> ImagePlayPauSt;
  ui::Label LabelVol;
  ui::Image ImageVol;  // the volume mark
  ui::Label LabelErase;
  ui::Label Label1;
  ui::Label LabelConservados;   // heads the next
  ui::ListBox ListConservados;  // rows that projects name, which a run keeps
  ui::Label LabelEspacio;       // how much is ticked and copied, and how much room there is
  ui::Label LabelPapelera;      // drives of ticked rows that have no bin
  ui::Timer TimerComprobar;     // begins the look at the projects once the window stands

  // Makes both lists those of the main window's list of unused files, all rows ticked.
  void CopiarListBorrados();
  void cmdHecho_Click();
  void Cancela_Click();
  void cmdSalir_Click();
  // A button of the mouse went down on the list: what plays ends. The left one plays the row, if
  // CheckAudio is ticked.
  void ListBorrar_MouseDown(int Button);
  // Looks, as soon as events are handled and no decode runs, which rows projects name; the list of
  // those is empty until that is known. Any new job ends the look.
  void comprobar();
  // What a run would take, as the boxes are now; and the same shown. After a run nothing is.
  RunTotals totals();
  void show_totals();
  // Sets the volume mark to a level from 0 to 100.
  void VuMe(std::int32_t Level);

 private:
  void Form_Load() override;
  void name_controls();
  void show_tips();
  void Form_KeyDown(ui::Key& key);
  void ListBorrar_KeyDown(int code);
  void remove_current_row();
  void look_at_projects();
  void show_kept(const std::vector<Kept>& kept);
  void show_kept_list();
  void CheckAudio_Click();
  void show_volume_mark(bool shown);
  // How the transport stands.
  void show_action(int Index) override;
  void show_volume(std::int32_t Level, const std::string& caption) override;

  RemovalContext removal_;
  std::optional<RunSizes> sizes_;        // of the last list
  std::vector<std::string> kept_paths_;  // of the rows of ListConservados
};

}  // namespace ordelan::removal
