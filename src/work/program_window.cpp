#include "work/program_window.h"

#include <string>

#include "ui/raise_event.h"
#include "work/arrange.h"
#include "work/dress.h"
#include "work/stored_state.h"

namespace ordelan::work {

ProgramWindow::ProgramWindow(const Context& context, const WindowKind& kind)
    : ui::Window(context.backend, kind.name), context_(context), kind_(kind) {
  set_title(kind.title);
  set_size({kind.layout.width, kind.layout.height});
  set_position(kind.place);
  set_borderless(true);
  set_minimizable(kind.minimizable);
  set_drag_by_background(true);
  if (kind.resizable) set_resizable(kind.smallest);
  on_escape = [this] { ui::raise_event(on_close); };
}

void ProgramWindow::set_up() {
  order(*this, kind_.layout);
  dress(*this);
  arrange(*this, kind_.layout);
  if (kind_.resizable) on_resize = [this] { arrange(*this, kind_.layout); };
  on_load = [this] { load_place_and_content(); };
  if (kind_.stores_after_drag) on_drag_end = [this] { store_place(); };
  if (kind_.stores_at_unload) on_unload = [this] { store_place(); };
}

void ProgramWindow::load_place_and_content() {
  set_position(kind_.place);
  read_place();
  set_topmost(kind_.topmost);
  Form_Load();
  if (kind_.shown) show();
}

void ProgramWindow::read_place() {
  if (kind_.place_key == nullptr) return;
  work::read_place(context_.settings, *this, kind_.place_key, position());
  if (kind_.resizable) read_size(context_.settings, *this, kind_.place_key);
}

void ProgramWindow::store_place() {
  if (kind_.place_key == nullptr) return;
  write_place(context_.settings, *this, kind_.place_key);
  if (kind_.resizable) write_size(context_.settings, *this, kind_.place_key);
}

void ProgramWindow::make_minimize_button(ui::Button& button) {
  button.set_description("Minimizar");
  button.set_tip("Minimizar a barra de tareas");
  button.on_click = [this] { set_minimized(true); };
}

void ProgramWindow::make_list_keys(ui::ListBox& list) {
  list.set_keys_move(true);
  list.set_markable(true);
  list.set_right_click_moves(false);
}

void ProgramWindow::make_close_button(ui::Button& button) {
  button.set_description("Cerrar");
  button.set_tip("Cerrar esta ventana");
}

}  // namespace ordelan::work
