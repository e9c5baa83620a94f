#include "audio/lists_zoom.h"

#include <utility>

#include "audio/transport_texts.h"
#include "audio/zoom.h"
#include "skin/lists_zoom_layout.h"
#include "text/paths.h"
#include "ui/list_width.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::audio {

ListasZoom::ListasZoom(const work::Context& context, Sound& sound,
                       std::function<void(int)> decode_row)
    : ProgramWindow(context, {.name = kName,
                              .title = "Lista ampliada",
                              .layout = skin::kListasZoom,
                              .place_key = work::place_key::kListasZoom,
                              .stores_after_drag = true,
                              .topmost = true,
                              .minimizable = true,
                              .resizable = true,
                              .smallest = {520, 300}}),
      ListZoom(*this, "ListZoom"),
      LabelTitulo(*this, "LabelTitulo"),
      LabelUp(*this, "LabelUp"),
      LabelDwn(*this, "LabelDwn"),
      LZLabelIndice(*this, "LZLabelIndice"),
      ImageIcono(*this, "ImageIcono"),
      CheckToolTips(*this, "CheckToolTips"),
      cmdMinimizar(*this, "cmdMinimizar"),
      Close(*this, "Close"),
      cmdFilas(*this, "cmdFilas"),
      sound_(sound),
      decode_row_(std::move(decode_row)),
      commands_(context.platform, ListZoom, cmdFilas) {
  name_controls();
  set_up();
  on_close = [this] { this->context().windows.close<ListasZoom>(); };
  Close.on_click = on_close;
  on_unload = [this] { store(); };
  on_key_down = [this](ui::Key& key) { sound_.list_window_KeyDown(key, &commands_); };
  // Any press stores where the window stands, as it may never be closed by its button.
  on_mouse_down = [this] {
    sound_.hide_balloons();
    store();
  };
  on_visible = [this] { sound_.hide_balloons(); };
  ListZoom.on_click = [this] { ListZoom_Click(); };
  ListZoom.on_enter = [this] { ListZoom_Click(); };
  ListZoom.on_double_click = [this] { ListZoom_DblClick(); };
  ListZoom.on_right_click = [this] { ListZoom_RightClick(); };
  ListZoom.on_scroll = [this] { sound_.hide_balloons(); };
  ListZoom.on_mouse_move = [this](const ui::Mouse& mouse) {
    sound_.rows.ViewItem(ListZoom, mouse.at, LZLabelIndice);
  };
  CheckToolTips.on_click = [this] { CheckToolTips_Click(); };
}

void ListasZoom::name_controls() {
  make_list_keys(ListZoom);
  ListZoom.set_description("Lista ampliada");
  LabelTitulo.set_font({.points = 10, .bold = true});
  LZLabelIndice.hide();
  ImageIcono.set_picture("proyecto");
  ImageIcono.set_description("Proyecto");
  ImageIcono.hide();
  // The caption is also the key under which the box is remembered; the detail window has the same.
  CheckToolTips.set_caption("ToolTip lista.");
  CheckToolTips.set_checked(true);
  make_minimize_button(cmdMinimizar);
  make_close_button(Close);
}

void ListasZoom::Form_Load() {
  work::read_box(context().settings, CheckToolTips);
  CheckToolTips_Click();
}

void ListasZoom::store() {
  store_place();
  work::write_box(context().settings, CheckToolTips);
}

void ListasZoom::show_list(const ui::ListBox& list, const std::string& title,
                           const std::string& tag) {
  LabelTitulo.set_caption(title);
  set_title(title);
  ui::share_rows(ListZoom, list);
  ListZoom.set_tag(tag);
  ImageIcono.hide();
  LZLabelIndice.hide();
  show();
}

// The kind is taken from the row's last three characters, so that "m4a" and "aif" are as all others
// and a row without a dot is none.
void ListasZoom::ListZoom_Click() {
  if (context().work.Borrando) return;
  const Sound::Click click = sound_.begin_click();
  ImageIcono.hide();
  const std::string row = ListZoom.current_row();
  const std::string kind = last_three(row);
  if (kind == "vip") {
    ImageIcono.show();
    sound_.rows.ToolTipShow("ListZoom", ListZoom, row);
  } else if (is_played(kind)) {
    context().work.ArchivoActual = row;
    sound_.info.InfoAudio(kind, row);
    // It lets events run: something newer may be in hand by then, or no window.
    if (context().windows.find<ListasZoom>() != this || !sound_.is_newest(click)) return;
    sound_.rows.ToolTipShow("ListZoom", ListZoom, row);
    sound_.set_URL(row);
    if (Zoom* const zoom = context().windows.touch<Zoom>()) {
      zoom->Pause.show();
      zoom->Play.hide();
    }
    sound_.show_started();
  }
  sound_.HacerVisibles();
}

void ListasZoom::ListZoom_DblClick() {
  if (context().work.Descodificando || context().work.Borrando || context().work.Actualizando) {
    return;
  }
  sound_.set_URL("");
  decode_row_(ListZoom.current());
}

// Ends the sound. The detail window shows pause all the same, as after a click that plays: what is
// stopped here is begun again by a click here.
void ListasZoom::ListZoom_RightClick() {
  if (context().work.Borrando) return;
  sound_.begin_click();
  sound_.set_URL("");
  sound_.show_emptied();
  if (Zoom* const zoom = context().windows.touch<Zoom>()) {
    zoom->Pause.show();
    zoom->Play.hide();
  }
}

void ListasZoom::CheckToolTips_Click() {
  ListZoom.set_tip(CheckToolTips.checked() ? "Click botón izquierdo Play, botón derecho Stop" : "");
}

}  // namespace ordelan::audio
