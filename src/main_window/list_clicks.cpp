#include "main_window/list_clicks.h"

#include "audio/lists_zoom.h"
#include "audio/transport_texts.h"
#include "audio/zoom.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::main_window {

using audio::ListasZoom;
using audio::Zoom;

ListClicks::ListClicks(ui::Window& window, const work::Context& context, audio::Sound& sound,
                       const Controls& controls)
    : LabelIndice(window, "LabelIndice"),
      cmdPararBusqueda(window, "cmdPararBusqueda"),
      cmdFilas(window, "cmdFilas", 4),
      context_(context),
      sound_(sound),
      controls_(controls),
      proyectos_{context.lists.ListProyectos,
                 "ListProyectos",
                 "3",
                 "Proyectos Vip's en carpeta: ",
                 context.lists.LabelCheck,
                 {context.platform, context.lists.ListProyectos, cmdFilas[0]}},
      vip_{context.lists.ListVip,
           "ListVip",
           "1",
           "Archivos utilizados en Vip: ",
           context.lists.LabelCount,
           {context.platform, context.lists.ListVip, cmdFilas[1]}},
      utilizados_{context.lists.ListUtilizados,
                  "ListUtilizados",
                  "2",
                  "Archivos totales utilizados",
                  context.lists.LabelAdd,
                  {context.platform, context.lists.ListUtilizados, cmdFilas[2]}},
      borrar_{context.lists.ListBorrar,
              "ListBorrar",
              "4",
              "Archivos totales que no se utilizan",
              context.lists.LabelErase,
              {context.platform, context.lists.ListBorrar, cmdFilas[3]}} {
  LabelIndice.hide();
  cmdPararBusqueda.set_caption("Parar búsqueda");
  cmdPararBusqueda.set_tip("Dejar de buscar este archivo (Esc)");
  cmdPararBusqueda.hide();
  cmdPararBusqueda.on_click = [this] { cmdPararBusqueda_Click(); };
  sound.on_search = [this](bool begins) { cmdPararBusqueda.set_visible(begins); };
  for (List* const each : {&proyectos_, &vip_, &utilizados_, &borrar_}) wire(*each);
  for (List* const each : {&vip_, &utilizados_, &borrar_}) {
    each->list.on_click = [this, each] { click(*each); };
    each->list.on_enter = [this, each] { click(*each); };
    each->list.on_right_click = [this, each] { right_click(*each); };
  }
}

// The keys of these lists go to the key handler of the window before they come here: there is
// nothing to hand on.
void ListClicks::wire(List& list) {
  list.list.on_scroll = [this] { sound_.hide_balloons(); };
  list.list.on_mouse_move = [this, &list](const ui::Mouse& mouse) { point(list, mouse.at); };
}

// The label stands above the list under the pointer.
void ListClicks::point(const List& pointed, ui::Point at) {
  const ui::Rect area = pointed.list.bounds();
  ui::Rect place = LabelIndice.bounds();
  constexpr int kRight = 30;  // the button of the list
  constexpr int kAir = 6;
  place.left = area.left + area.width - kRight - place.width;
  place.top = area.top - kAir - place.height;
  LabelIndice.set_bounds(place);
  sound_.rows.ViewItem(pointed.list, at, LabelIndice);
}

void ListClicks::click(List& clicked) {
  if (context_.work.Borrando) return;
  if (clicked.list.current() >= 0) click_row(clicked, clicked.list.current_row());
}

// The row as it was when it was clicked: the list may change while the click is at work.
void ListClicks::click_row(List& clicked, std::string row) {
  sound_.hide_AvisoPL();
  sound_.hide_balloons();
  IndiceActual = -1;
  if (enlarge(clicked)) return;
  if (!context_.work.Descodificando && !context_.work.Actualizando) play(clicked, row);
  sound_.HacerVisibles();
}

// While the box is ticked the first click on a list shows it enlarged; one on the list that is
// shown so already is a click as any other. Whether it was enlarged.
bool ListClicks::enlarge(const List& clicked) {
  if (!controls_.ZoomListas.checked()) return false;
  auto* const window = context_.windows.touch<ListasZoom>();
  if (window == nullptr || (window->visible() && window->ListZoom.tag() == clicked.tag)) {
    return false;
  }
  std::string title = clicked.title;
  if (&clicked == &vip_) title += clicked.heading[1].caption();
  show_enlarged(*window, clicked, clicked.list, title);
  window->LabelUp.set_visible(&clicked != &borrar_);  // its heading is one line
  return true;
}

void ListClicks::enlarge_projects() {
  if (auto* const window = context_.windows.touch<ListasZoom>()) {
    show_enlarged(*window, proyectos_, vip_.list, proyectos_.title);
    window->LabelUp.show();
  }
}

void ListClicks::show_enlarged(ListasZoom& window, const List& standing, const ui::ListBox& rows,
                               const std::string& title) {
  window.LabelUp.set_caption(standing.heading[0].caption());
  window.LabelDwn.set_caption(standing.heading[1].caption());
  window.show_list(rows, title, standing.tag);
}

// Whether the click is the newest, and the window is still free for it.
bool ListClicks::may_go_on(const audio::Sound::Click& click) const {
  const work::WorkInHand& work = context_.work;
  return sound_.is_newest(click) && !work.Borrando && !work.Descodificando && !work.Actualizando;
}

void ListClicks::play(List& clicked, const std::string& row) {
  audio::Sound::Click click = sound_.begin_click();
  context_.strip.TextDecode.hide();
  controls_.path_strip.MostrarPath(row);
  sound_.set_URL("");  // what was playing
  const std::string extension = text::lower(text::Obtener_Extension(row));
  const bool with_player = controls_.CheckPlayer.checked();
  if (!audio::is_played(extension)) {
    if (with_player) sound_.SituarPlayer(false);
    if (&clicked == &utilizados_ && extension == "vip") {
      sound_.rows.ShowToolTip(clicked.name, clicked.list, row);
    } else {
      context_.strip.Alerta(work::kWarning, std::string(audio::kNotPlayable), true);
    }
    return;
  }
  const std::string path = audio::RowView::path_of(row);
  context_.work.ArchivoActual = path;
  auto* const zoom = context_.windows.touch<Zoom>();
  if (context_.platform.files.look_up(path)) {
    if (with_player) sound_.SituarPlayer(true);
    if (zoom != nullptr) zoom->follow_click(clicked.list.current(), row);
    start(clicked, extension, click, false);
    return;
  }
  if (zoom != nullptr) zoom->follow_lost(clicked.list.current(), row);
  const auto again = [this, &clicked, row] {
    if (clicked.list.current_row() == row) this->click(clicked);
  };
  const std::string name = text::Obtener_Nombre_Archivo(path);
  if (!sound_.find_lost(name, clicked.list, click, again) || !may_go_on(click)) return;
  clicked.commands.note_found(row, context_.work.ArchivoActual);
  start(clicked, extension, click, true);
  // Where the player was hidden this stops what has just begun: the file waits in it.
  if (may_go_on(click) && with_player) sound_.SituarPlayer(true);
}

// Plays ArchivoActual and shows what is known of it.
void ListClicks::start(List& clicked, const std::string& extension,
                       const audio::Sound::Click& click, bool searched) {
  const std::string path = context_.work.ArchivoActual;
  sound_.info.InfoAudio(extension, path);
  if (!may_go_on(click)) return;  // events have run
  if (searched && &clicked == &utilizados_) {
    // The rows that were there are side files for a removal. Without them fewer files go, until the
    // next opening lists them again; the one that comes in is audio, which a removal leaves there.
    context_.lists.List1.clear();
    context_.lists.List1.add(path);
    sound_.rows.ShowToolTip(clicked.name, clicked.list, path);
  } else {
    sound_.rows.ToolTipShow(clicked.name, clicked.list, path);
  }
  sound_.set_URL(path);  // which plays it
  IndiceActual = clicked.list.current();
  sound_.show_started();
  auto* const zoom = context_.windows.find<Zoom>();
  if (zoom != nullptr && zoom->visible()) zoom->Play_Click();
}

bool ListClicks::take_hit(const std::string& hit) {
  auto* const zoom = context_.windows.find<Zoom>();
  const int row = sound_.searched_row();  // a key may have moved the choice since
  if (zoom == nullptr) return false;
  if (row >= 0 && static_cast<std::size_t>(row) < zoom->ListFilesZoom.count()) {
    zoom->ListFilesZoom.replace(static_cast<std::size_t>(row), hit);
  }
  return zoom->visible();
}

void ListClicks::offer_hits(const std::vector<std::string>& hits) {
  if (auto* const zoom = context_.windows.touch<Zoom>()) zoom->fill_with_hits(hits);
}

void ListClicks::cmdPararBusqueda_Click() {
  sound_.begin_click();
}

// Neither the current row nor a menu: the whole list goes to the detail window.
void ListClicks::right_click(List& clicked) {
  if (clicked.list.empty() || context_.work.Borrando || context_.work.Descodificando) return;
  context_.strip.TextDecode.hide();
  context_.work.ListaActual = &clicked.list;
  auto* const zoom = context_.windows.touch<Zoom>();
  if (zoom == nullptr) return;
  zoom->fill_from(clicked.list);
  const ui::Label& first = clicked.heading[0];
  // The last list shows one of its two lines.
  const bool with_first = &clicked != &borrar_ || first.visible();
  zoom->LabelNvip.set_caption(with_first ? first.caption() : clicked.title);
  zoom->LabelNvip.show();
  zoom->Files.set_caption(clicked.heading[1].caption());
  zoom->Files.show();
  IndiceActual = clicked.list.current();
  if (!sound_.media().URL().empty()) zoom->ListFilesZoom.set_current(IndiceActual);
  zoom->show();
  sound_.HacerVisibles();
}

void ListClicks::forget_found() {
  for (List* const each : {&proyectos_, &vip_, &utilizados_, &borrar_}) {
    each->commands.forget_found();
  }
}

work::RowCommands* ListClicks::commands_of(const ui::Control* focus) {
  for (List* const each : {&proyectos_, &vip_, &utilizados_, &borrar_}) {
    if (focus == &each->list) return &each->commands;
  }
  return nullptr;
}

}  // namespace ordelan::main_window
