// The states of the main window: one function for each, which shows and hides its controls. A state
// leaves alone what it does not name: it stays as the state before left it. Only what appears in
// the middle of a job, such as a list once it is filled, is shown by the step that fills it.
#include <initializer_list>

#include "main_window/main_window.h"

namespace ordelan::main_window {
namespace {

void show_these(std::initializer_list<ui::Control*> controls) {
  for (ui::Control* const control : controls) control->show();
}

void hide_these(std::initializer_list<ui::Control*> controls) {
  for (ui::Control* const control : controls) control->hide();
}

}  // namespace

void Form1::hide_headings() {
  for (auto* headings :
       {&lists.LabelCount, &lists.LabelAdd, &lists.LabelCheck, &lists.LabelErase}) {
    headings->set_visible(false);
  }
  clicks.cmdFilas.set_visible(false);
}

// Nothing is open: the lists are empty, and their places say what they are for.
void Form1::show_empty() {
  hide_these({&strip.XP_ProgressBar1, &strip.TextDecode, &strip.LabelAviso, &lists.ListVip,
              &lists.ListUtilizados, &lists.ListBorrar, &cmdCancelar, &cmdPerdidos, &CommandBorrado,
              &SalvaListados, &ActualizarVip, &DeshacerActualizacion, &ZoomListas,
              &clicks.LabelIndice});
  hide_headings();
  path_strip.hide();
  play.hide();
  // The list of projects stays, as the place where projects are dropped.
  show_these({&CheckDragDrop, &CheckLogo, &lists.ListProyectos});
  TextNum1.set_visible(true);
  ListProyectosInfo.set_visible(CheckDragDrop.checked());
  ShowIco.set_visible(CheckLogo.checked());
}

// A project is being picked in the file dialog.
void Form1::show_choosing() {
  hide_these({&ZoomListas, &clocks.LabelD, &strip.TextDecode, &SalvaListados, &ActualizarVip,
              &DeshacerActualizacion, &clicks.LabelIndice});
}

// The picked project is being opened.
void Form1::show_opening() {
  hide_these({&cmdPerdidos, &CommandBorrado, &ShowIco});
  ListProyectosInfo.hide();  // it would stand on the rows
  TextNum1.set_visible(false);
  show_these({&cmdCancelar});
  strip.notice_decoding();
}

// Projects and folders have been dropped, and are being looked at. Follows `show_sweeping`.
void Form1::show_dropping() {
  hide_these({&ListProyectosInfo, &strip.TextDecode, &ZoomListas, &ShowIco, &SalvaListados,
              &ActualizarVip, &DeshacerActualizacion, &clicks.LabelIndice});
  strip.notice_decoding();
}

// A sweep begins: what the one before has found is put away.
void Form1::show_sweeping() {
  hide_headings();
  hide_these(
      {&lists.ListVip, &lists.ListBorrar, &lists.ListUtilizados, &cmdPerdidos, &CommandBorrado});
  show_these({&cmdCancelar});
  TextNum1.set_visible(false);
}

// The projects are listed.
void Form1::show_projects() {
  hide_these({&ListProyectosInfo});
  show_these({&lists.ListProyectos});
  lists.head_projects(work_.RutaProyectos);
  lists.LabelCheck.set_visible(true);
}

// A file is being read: the bar stands where two of the boxes are.
void Form1::show_progress() {
  hide_these({&CheckDragDrop, &CheckLogo});
  show_these({&strip.XP_ProgressBar1});
}

void Form1::hide_progress() {
  hide_these({&strip.XP_ProgressBar1});
  show_these({&CheckDragDrop, &CheckLogo});
}

// The picked project and its folder are decoded.
void Form1::show_opened() {
  hide_progress();
  hide_these({&strip.TextDecode, &strip.LabelAviso, &cmdCancelar});
  show_these({&SalvaListados, &ActualizarVip});
  clicks.cmdFilas.set_visible(true);
  play.show();
  relink_.look_for_undo(work_.RutaProyectos);
  if (removes_side_files() || lists.ListBorrar.count() > 1) show_these({&CommandBorrado});
}

// The swept projects are decoded.
void Form1::show_swept() {
  hide_progress();
  hide_these({&cmdCancelar, &strip.LabelAviso});
  show_these({&lists.ListBorrar, &cmdPerdidos});
  clicks.cmdFilas.set_visible(true);
  play.show();
}

// What can be done with decoded projects. It is also shown after a drop of nothing.
void Form1::show_commands() {
  show_these({&SalvaListados, &ActualizarVip, &ZoomListas});
  relink_.look_for_undo(work_.RutaProyectos);
}

// One row of the list of projects is being decoded; the other lists stay.
void Form1::show_decoding_row() {
  hide_these({&cmdPerdidos, &CommandBorrado, &lists.ListVip});
  show_these({&cmdCancelar});
  show_projects();
  show_progress();
}

// That row is decoded. The bar is put away by the caller, after the last row.
void Form1::show_decoded_row() {
  hide_these({&CheckLogo, &cmdCancelar});
  show_these({&lists.ListVip, &strip.XP_ProgressBar1, &CheckDragDrop, &ZoomListas});
  if (location_.has_report()) show_these({&cmdPerdidos});
  show_CommandBorrado();
}

// The projects are being updated. The way back is offered again after it.
void Form1::show_updating() {
  DeshacerActualizacion.hide();
  show_these({&cmdCancelar});
}

void Form1::show_updated() {
  hide_progress();
  hide_these({&ActualizarVip, &cmdCancelar});
}

// The reports are being saved, project by project.
void Form1::show_saving_reports() {
  hide_these({&CheckDragDrop, &CheckLogo, &lists.ListProyectos});
}

void Form1::show_reports_saved() {
  hide_progress();
  show_these({&lists.ListProyectos});
}

// Shown when there is something to remove.
void Form1::show_CommandBorrado() {
  CommandBorrado.set_visible(!lists.ListBorrar.empty() || removes_side_files());
}

}  // namespace ordelan::main_window
