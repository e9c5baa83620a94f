#include "removal/removal_review_window.h"

#include <algorithm>
#include <chrono>
#include <string_view>

#include "audio/player.h"
#include "audio/transport_texts.h"
#include "audio/volume_bar.h"
#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders_window.h"
#include "skin/removal_review_layout.h"
#include "text/code_page.h"
#include "ui/list_width.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::removal {

ParaBorrar::ParaBorrar(const RemovalContext& removal)
    : ProgramWindow(removal.work,
                    {.name = kName,
                     .title = "Archivos que se borraran",
                     .layout = skin::kRemovalReview,
                     .place = {90, 70},
                     .place_key = work::place_key::kParaBorrar,
                     .stores_after_drag = true,
                     .topmost = true,
                     .minimizable = true,
                     .resizable = true,
                     .smallest = {skin::kRemovalReview.width, skin::kRemovalReview.height}}),
      audio::Mirror(removal.sound),
      ListBorrar(*this, "ListBorrar"),
      ListStatus(*this, "ListStatus"),
      CheckConfirmar(*this, "CheckConfirmar"),
      CheckBorrarPapelera(*this, "CheckBorrarPapelera"),
      CheckVaciarPapelera(*this, "CheckVaciarPapelera"),
      CheckAudio(*this, "CheckAudio"),
      ParaBorrarCheckToolTip(*this, "ParaBorrarCheckToolTip"),
      cmdHecho(*this, "cmdHecho"),
      Cancela(*this, "Cancela"),
      CommandProtegidas(*this, "CommandProtegidas"),
      Salir(*this, "Salir"),
      cmdSalir(*this, "cmdSalir"),
      cmdMinimizar(*this, "cmdMinimizar"),
      TextAviso(*this, "TextAviso"),
      AvisoSound(*this, "AvisoSound"),
      ImageInfoSound(*this, "ImageInfoSound"),
      TextSound(*this, "TextSound"),
      ImagePlayPauSt(*this, "ImagePlayPauSt", 3),
      LabelVol(*this, "LabelVol"),
      ImageVol(*this, "ImageVol"),
      LabelErase(*this, "LabelErase"),
      Label1(*this, "Label1"),
      LabelConservados(*this, "LabelConservados"),
      ListConservados(*this, "ListConservados"),
      LabelEspacio(*this, "LabelEspacio"),
      LabelPapelera(*this, "LabelPapelera"),
      TimerComprobar(*this, "TimerComprobar", std::chrono::milliseconds(50)),
      removal_(removal) {
  name_controls();
  show_tips();
  set_up();
  on_resize = [this, arrange = on_resize] {
    arrange();
    show_kept_list();
    if (const audio::Player* const player = removal_.sound.player())
      VuMe(player->SliderVol.value());
  };
  ListStatus.stand_beside(ListBorrar);
  on_close = [this] { cmdSalir_Click(); };
  on_escape = [this] {
    if (!this->context().work.Borrando) cmdSalir_Click();
  };
  on_key_down = [this](ui::Key& key) { Form_KeyDown(key); };
  cmdHecho.on_click = [this] { cmdHecho_Click(); };
  Cancela.on_click = [this] { Cancela_Click(); };
  CommandProtegidas.on_click = [this] { show_protected_folders(context()); };
  cmdSalir.on_click = [this] { cmdSalir_Click(); };
  Salir.on_click = [this] { cmdSalir_Click(); };
  ListBorrar.on_click = [this] {
    if (!ListBorrar.chosen_by_key()) ListBorrar_MouseDown(ui::kLeftButton);
  };
  ListBorrar.on_right_click = [this] { ListBorrar_MouseDown(ui::kRightButton); };
  // One way: the boxes follow the list.
  ListBorrar.on_scroll = [this] { ListStatus.set_top(ListBorrar.top()); };
  ListBorrar.on_key = [this](int code) { ListBorrar_KeyDown(code); };
  ListStatus.on_tick = [this](std::size_t) { show_totals(); };
  CheckBorrarPapelera.on_click = [this] { show_totals(); };
  TimerComprobar.on_tick = [this] { look_at_projects(); };
  CheckAudio.on_click = [this] { CheckAudio_Click(); };
  ParaBorrarCheckToolTip.on_click = [this] { show_tips(); };
  TextAviso.on_click = [this] { TextAviso.hide(); };
  AvisoSound.on_click = [this] { AvisoSound.hide(); };
  ImageInfoSound.on_click = [this] {
    AvisoSound.show();
    AvisoSound.bring_to_front();
  };
  LabelErase.on_click = [this] { LabelErase.set_caption(std::to_string(ListBorrar.count())); };
}

void ParaBorrar::name_controls() {
  // These captions are also the keys under which the boxes are remembered.
  CheckConfirmar.set_caption("Confirmar antes de borrar");
  CheckBorrarPapelera.set_caption("Borrar enviando a Papelera Reciclaje");
  CheckVaciarPapelera.set_caption("Borrar antes la papelera reciclaje");
  CheckAudio.set_caption("Reporducir audio de cada item ->");
  CheckBorrarPapelera.set_checked(true);
  ParaBorrarCheckToolTip.set_caption("No ToolTips");
  cmdHecho.set_caption("Borrar");
  cmdHecho.set_tip("Borrar según opciones elegidas.");
  Cancela.set_caption("Cancelar");
  Cancela.set_tip("Salir sin borrar archivos");
  CommandProtegidas.set_caption("Carpetas protegidas...");
  CommandProtegidas.set_tip("Elegir carpetas cuyos archivos no se borran");
  Salir.set_description("Cerrar");
  Salir.set_tip("Cerrar ventana");
  cmdSalir.set_caption("Cerrar");
  cmdSalir.set_tip("Cerrar la aplicación");
  make_minimize_button(cmdMinimizar);
  TextAviso.set_multiline(true);
  TextAviso.set_text(
      "Al no tener niguna opción activada\r\nExcepto:\r\nBorrar todos los asociados\r\n\r\n"
      "Los archivos que figuran en esta lista no se borrarán.");
  TextAviso.set_tip("Clic para ocultar");
  TextAviso.hide();
  AvisoSound.set_multiline(true);
  AvisoSound.set_text(
      "Si se activa, el item de la lista\r\nque se clique, se reproducirá \r\n"
      "y aparece la barra de volumen\r\n\r\nLos controles de volumen son los mismos\r\n"
      "que las demás ventanas.");
  AvisoSound.set_tip("Clic para ocultar");
  AvisoSound.hide();
  ImageInfoSound.set_description("Explicaciones");
  ImageInfoSound.set_tip("Clic para explicaciones.");
  TextSound.hide();
  ImagePlayPauSt.set_visible(false);
  LabelVol.set_caption("Vol");
  LabelVol.hide();
  ImageVol.hide();
  ListBorrar.set_description("Archivos que se borrarán");
  ListStatus.set_description("Archivos marcados para borrar");
  Label1.set_caption(
      " Los items que estén desactivados, no se borrarán     También se pueden eliminar pulsando "
      "tecla <Supr>");
  LabelConservados.hide();
  ListConservados.set_description("Archivos que se conservan");
  ListConservados.hide();
}

void ParaBorrar::show_tips() {
  const bool tips = !ParaBorrarCheckToolTip.checked();
  const auto tip = [tips](ui::Control& control, const char* text) {
    control.set_tip(tips ? text : "");
  };
  tip(CheckConfirmar, "Pide confirmación antes de borrar cada archivo");
  tip(CheckBorrarPapelera, "Los archivos a borrar, se envían a la papelera");
  tip(CheckVaciarPapelera, "Se borraran los archivos que haya en la papelera, pide confirmación");
  tip(CheckAudio, "Si se activa, reproduce el item clicado");
  tip(ListBorrar,
      "Desactivar, los items de los archivos que se quieran conservar, o eliminarlos con tecla "
      "<Supr>");
}

void ParaBorrar::Form_Load() {
  if (ListBorrar.count() != context().lists.ListBorrar.count()) CopiarListBorrados();
  Cancela.show();
  for (ui::CheckBox* box :
       {&CheckAudio, &CheckBorrarPapelera, &CheckVaciarPapelera, &CheckConfirmar}) {
    work::read_box(context().settings, *box);
  }
  // The one box with a key of its own: "No ToolTips" is that of the player.
  const double no_tips =
      context().settings.number("ParaBorrar_No ToolTips", ParaBorrarCheckToolTip.checked());
  ParaBorrarCheckToolTip.set_checked(no_tips == 1);
  show_tips();
  show_volume_mark(CheckAudio.checked());
}

void ParaBorrar::CopiarListBorrados() {
  ListBorrar.share(context().lists.ListBorrar);
  ListStatus.fill(ListBorrar);
  ListStatus.tick_all();
  ui::ListaAncho(ListBorrar);
  ListStatus.set_horizontal_extent(ListBorrar.horizontal_extent());  // the same rows
  LabelErase.set_caption("Archivos no utilizados: " + std::to_string(ListBorrar.count()));
  show_kept({});
  if (visible()) comprobar();
}

void ParaBorrar::cmdHecho_Click() {
  // A second run during one would take the marks of the first for its own.
  if (removal_.state.running) return;
  close_other_windows(context());
  TextAviso.hide();
  removal_.sound.stop_and_empty();
  Cancela.show();
  auto* const options = context().windows.touch<BacUp>();
  if (options == nullptr) return;
  options->Borrando = true;
  if (options->CheckBackup.checked()) {
    if (auto* const folder = context().windows.touch<CarpetaBack>()) {
      folder->show();
      folder->CrearCarpeta();
    }
  } else {
    options->BorrarSeleccionados();
  }
  Cancela.hide();
  context().work.Borrando = false;
  show_totals();
}

// The flag is looked at by the run that is under way, or by the next one.
void ParaBorrar::Cancela_Click() {
  removal_.state.CancelarBorrado = true;
  context().work.Borrando = false;
}

void ParaBorrar::cmdSalir_Click() {
  context().work.Borrando = false;
  removal_.sound.stop_and_empty();
  store_place();
  settings::Settings& settings = context().settings;
  for (const ui::CheckBox* box : {&CheckAudio, &CheckBorrarPapelera, &CheckVaciarPapelera}) {
    work::write_box(settings, *box);
  }
  settings.set_number("ParaBorrar_No ToolTips", ParaBorrarCheckToolTip.checked() ? 1 : 0);
  work::write_box(settings, CheckConfirmar);
  context().windows.close<CarpetaBack>();  // its run would be of rows that the user has not seen
  context().windows.close<BacUp>();
  context().windows.close<ParaBorrar>();
}

void ParaBorrar::Form_KeyDown(ui::Key& key) {
  constexpr int kSpace = 32;
  constexpr int kDelete = 46;
  // Space would tick the row or press the button that has the focus too.
  if (removal_.sound.Form_KeyDown(key)) key.swallowed = key.code == kSpace;
  if (key.code == kDelete && !ListBorrar.empty()) {
    remove_current_row();
    key.swallowed = true;
  }
}

// Space is the key that plays and pauses, as long as rows are played at all.
void ParaBorrar::ListBorrar_KeyDown(int code) {
  constexpr int kSpace = 32;
  if (code != kSpace || CheckAudio.checked() || ListBorrar.current() < 0) return;
  ListStatus.toggle(static_cast<std::size_t>(ListBorrar.current()));
}

void ParaBorrar::remove_current_row() {
  TextAviso.hide();
  removal_.sound.set_URL("");
  const int current = ListBorrar.current();
  if (current < 0) return;
  if (const auto kept = std::find(kept_paths_.begin(), kept_paths_.end(), ListBorrar.current_row());
      kept != kept_paths_.end()) {
    ListConservados.remove(static_cast<std::size_t>(kept - kept_paths_.begin()));
    kept_paths_.erase(kept);
    show_kept_list();
  }
  // The same row goes from both: they are paired by their numbers.
  ListBorrar.remove(static_cast<std::size_t>(current));
  ListStatus.remove(static_cast<std::size_t>(current));
  // As in a list of the system, the next row is then the current one.
  ListBorrar.set_current(std::min(current, static_cast<int>(ListBorrar.count()) - 1));
  LabelErase.set_caption("Archivos a borrar: " + std::to_string(ListBorrar.count()));
  ui::ListaAncho(ListBorrar);
  show_totals();
}

void ParaBorrar::ListBorrar_MouseDown(int Button) {
  audio::Sound& sound = removal_.sound;
  sound.set_URL("");
  sound.Control_Click(audio::kPlay);
  TextSound.hide();
  if (Button != ui::kLeftButton || !CheckAudio.checked()) return;
  const std::string row = ListBorrar.current_row();
  const auto say = [this](const char* text) {
    TextSound.set_caption(text);
    TextSound.show();
  };
  if (!context().platform.files.look_up(row)) {
    if (row.find("Borrado") != std::string::npos) say("Este archivo ha sido borrado");
    return;
  }
  const std::string last = audio::last_three(row);
  if (!audio::is_played(last)) {
    say("Este archivo no se puede reproducir");
  } else {
    sound.set_URL(row);
    TextSound.hide();
    // The search of an update hands its file over in the same place.
    if (!context().work.Actualizando) context().work.ArchivoActual = row;
    sound.info.InfoAudio(last, row);
  }
  sound.Control_Click(audio::kPlay);
}

void ParaBorrar::CheckAudio_Click() {
  audio::Sound& sound = removal_.sound;
  if (!CheckAudio.checked()) {
    sound.stop_and_empty();
    ImagePlayPauSt.set_visible(false);
    show_volume_mark(false);
    return;
  }
  sound.set_URL(ListBorrar.current() < 0 ? "" : ListBorrar.current_row());
  sound.Control_Click(audio::kPlay);
  show_volume_mark(true);
}

// The mark stands as high as the slider of the player, which may be another volume than the last
// one.
void ParaBorrar::show_volume_mark(bool shown) {
  ImageVol.set_visible(shown);
  LabelVol.set_visible(shown);
  if (!shown) return;
  if (const audio::Player* const player = removal_.sound.player()) VuMe(player->SliderVol.value());
}

void ParaBorrar::VuMe(std::int32_t Level) {
  audio::raise_bar(ImageVol, 460, 3, Level);
}

// In another order than on the main window: each picture stands for what goes on.
void ParaBorrar::show_action(int Index) {
  if (!visible()) return;
  for (int i = 0; i < ImagePlayPauSt.size(); ++i) ImagePlayPauSt[i].set_visible(i == Index);
}

void ParaBorrar::show_volume(std::int32_t Level, const std::string&) {
  VuMe(Level);
}

}  // namespace ordelan::removal
