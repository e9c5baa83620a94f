#include "audio/zoom.h"

#include <algorithm>
#include <string_view>

#include "audio/player.h"
#include "audio/sa.h"
#include "audio/transport_texts.h"
#include "skin/zoom_layout.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "ui/list_width.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::audio {
namespace {

std::size_t count_rows(const ui::ListBox& list, bool (*counts)(std::string_view)) {
  return static_cast<std::size_t>(std::count_if(list.rows().begin(), list.rows().end(), counts));
}

}  // namespace

Zoom::Zoom(const work::Context& context, Sound& sound)
    : ProgramWindow(context, {.name = kName,
                              .title = "PlayList",
                              .layout = skin::kZoom,
                              .place = {240, 200},
                              .place_key = work::place_key::kZoom,
                              .stores_after_drag = true,
                              .topmost = true,
                              .minimizable = true,
                              .resizable = true,
                              .smallest = {520, 300}}),
      Mirror(sound),
      ListFilesZoom(*this, "ListFilesZoom"),
      Files(*this, "Files"),
      LabelNvip(*this, "LabelNvip"),
      Play(*this, "Play"),
      Pause(*this, "Pause"),
      SliderTime(*this, "SliderTime"),
      SliderVol(*this, "SliderVol"),
      LabelVol(*this, "LabelVol"),
      PlayerMaster(*this, "PlayerMaster"),
      cmdMinimizar(*this, "cmdMinimizar"),
      Close(*this, "Close"),
      CheckAutoPlay(*this, "CheckAutoPlay"),
      TextInfo(*this, "TextInfo"),
      sound_(sound) {
  name_controls();
  set_up();
  on_close = [this] { Close_Click(); };
  Close.on_click = on_close;
  on_unload = [this] {
    store_place();
    work::write_box(this->context().settings, CheckAutoPlay);
    sound_.store_volume();
  };
  on_key_down = [this](ui::Key& key) {
    sound_.hide_Bal();
    sound_.list_window_KeyDown(key);
  };
  Play.on_click = [this] { Play_Click(); };
  Pause.on_click = [this] { Pause_Click(); };
  PlayerMaster.on_click = [this] { PlayerMaster_Click(); };
  ListFilesZoom.on_click = [this] { ListFilesZoom_Click(); };
  CheckAutoPlay.on_click = [this] { CheckAutoPlay_Click(); };
  SliderVol.on_change = [this](std::int32_t value) { SliderVol_Change(value); };
  SliderTime.on_change = [this](std::int32_t value) { sound_.SliderTime_Change(value); };
  SliderTime.on_mouse_up = [this](const ui::Mouse& mouse) { sound_.SliderTime_MouseUp(mouse); };
  on_mouse_down = [this] { sound_.hide_Bal(); };
  on_visible = [this] { sound_.hide_Bal(); };
}

void Zoom::name_controls() {
  ListFilesZoom.set_description("Archivos");
  ListFilesZoom.set_tip("Clic botón izq. en item reproduce audio si esta activo AutoPl");
  LabelNvip.set_font({.points = 10, .bold = true});
  Play.set_description("Play");
  Play.set_tip("Play/Pausa");
  Pause.set_description("Pausa");
  Pause.set_tip("Pausa/Play");
  Pause.hide();
  SliderTime.set_description("Posición");
  SliderVol.set_description("Volumen");
  PlayerMaster.set_description("Player");
  PlayerMaster.set_tip("Abrir Player");
  // The caption is also the key under which the box is remembered.
  CheckAutoPlay.set_caption("Auto Play");
  TextInfo.set_multiline(true);
  TextInfo.set_description("Información");
  make_minimize_button(cmdMinimizar);
  make_close_button(Close);
}

void Zoom::Form_Load() {
  work::read_box(context().settings, CheckAutoPlay);
  SliderVol.set_value(Sound::kFirstVolume);
  SliderVol.set_value(sound_.stored_volume());
  LabelVol.set_caption(volume_caption(SliderVol.value()));
}

void Zoom::fill(const std::vector<std::string>& rows) {
  ListFilesZoom.clear();
  ListFilesZoom.add(rows);
  ui::ListaAncho(ListFilesZoom);
}

void Zoom::ContarFiles() {
  const auto audio = count_rows(ListFilesZoom, [](std::string_view row) {
    return row.find('>') == row.npos && row.find("----------") == row.npos;
  });
  if (audio > 0) {
    Files.set_caption(std::to_string(audio) + " archivos de audio");
    Files.show();
  }
  const auto projects =
      count_rows(ListFilesZoom, [](std::string_view row) { return row.find("->") != row.npos; });
  if (projects > 0) {
    LabelNvip.set_caption(std::to_string(projects) + " Proyectos Vips");
    LabelNvip.show();
  }
}

void Zoom::Play_Click() {
  sound_.Control_Click(kPlay);
  if (!is_loaded()) return;
  Play.hide();
  Pause.show();
}

void Zoom::Pause_Click() {
  sound_.Control_Click(kPause);
  if (!is_loaded()) return;
  Pause.hide();
  Play.show();
}

bool Zoom::is_loaded() {
  if (!sound_.media().URL().empty()) return true;
  context().strip.Alerta(work::kWarning, "\r\n >>> AVISO <<<   Este archivo no existe en esta ruta",
                         true);
  return false;
}

// The player has the volume that all others go by.
void Zoom::SliderVol_Change(std::int32_t Value) {
  sound_.hide_AvisoPL();
  if (Player* const player = sound_.player()) player->SliderVol.set_value(Value);
  sound_.Vol(Value);
}

void Zoom::PlayerMaster_Click() {
  Player* const player = sound_.player();
  if (player == nullptr) return;
  if (!player->visible()) {
    player->show();
    player->Form_DblClick();
  }
  // Until the title moves again: what is loaded may not be what the list shows.
  player->LabelDisplay.set_caption(std::string(kNoTitle));
  if (SA* const spectrum = context().windows.touch<SA>()) spectrum->Form_DblClick();
}

void Zoom::CheckAutoPlay_Click() {
  if (!CheckAutoPlay.checked()) {
    sound_.Control_Click(kStop);
  } else if (ListFilesZoom.current() >= 0) {
    sound_.Control_Click(kPlay);
  }
}

// A row that can be played is loaded; it plays at once if the box says so.
void Zoom::ListFilesZoom_Click() {
  context().strip.TextDecode.hide();
  Player* player = sound_.player();
  if (player == nullptr) return;
  player->TimerDisplay.stop();
  player->LabelDisplay.set_caption("");
  sound_.Control_Click(kStop);
  const std::string row = ListFilesZoom.current_row();
  const std::string extension = text::lower(text::Obtener_Extension(row));
  if (!is_played(extension) || !context().platform.files.look_up(row)) return;
  context().work.ArchivoActual = row;
  // It lets events run: another row may be in hand by then, or no window.
  sound_.info.InfoAudio(extension, row);
  if (context().windows.find<Zoom>() != this || ListFilesZoom.current_row() != row) return;
  player = sound_.player();
  if (player != nullptr) {
    player->show_info(ListFilesZoom, row, text::Obtener_Nombre_Archivo(row));
  }
  TextInfo.set_text(sound_.info.TextoToolTip);
  sound_.set_URL(row);
  sound_.Control_Click(kStop);
  sound_.show_loaded();
  if (player != nullptr && CheckAutoPlay.checked()) {
    player->show_title();
    Play_Click();
  }
  bring_to_front();
  sound_.HacerVisibles();
}

// The pictures of a hidden window stay as they are: they are set when it is filled.
void Zoom::show_action(int Index) {
  if (!visible()) return;
  Play.set_visible(Index != kPlay);
  Pause.set_visible(Index == kPlay);
}

void Zoom::show_volume(std::int32_t Level, const std::string& caption) {
  SliderVol.set_value(Level);
  LabelVol.set_caption(caption);
}

void Zoom::Close_Click() {
  context().windows.close<Zoom>();
}

}  // namespace ordelan::audio
