#include "audio/zoom.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <string_view>
#include <utility>

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

constexpr auto kBlink = std::chrono::milliseconds(330);

std::size_t count_rows(const ui::ListBox& list, bool (*counts)(std::string_view)) {
  return static_cast<std::size_t>(std::count_if(list.rows().begin(), list.rows().end(), counts));
}

// Whether the window shows a row of a list of the main window. "flac" is shown and does not play:
// it is more than what a click plays.
bool is_shown(std::string_view row) {
  constexpr std::size_t kLongest = 4;
  const auto dot = row.find_last_of(".\\ ");
  if (dot == row.npos || row[dot] != '.' || row.size() - dot - 1 > kLongest) return false;
  const std::string extension = text::lower(std::string(row.substr(dot + 1)));
  return is_played(extension) || extension == "vip" || extension == "flac";
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
      CheckToolTips(*this, "CheckToolTips"),
      TextInfo(*this, "TextInfo"),
      ZoomLabelIndice(*this, "ZoomLabelIndice"),
      ImageIcono(*this, "ImageIcono"),
      ShapeVip(*this, "ShapeVip"),
      LabelVip(*this, "LabelVip"),
      TimerVip(*this, "TimerVip", kBlink),
      cmdFilas(*this, "cmdFilas"),
      List1(*this, "List1"),
      sound_(sound),
      commands_(context.platform, ListFilesZoom, cmdFilas) {
  name_controls();
  set_up();
  on_close = [this] { Close_Click(); };
  Close.on_click = on_close;
  on_unload = [this] {
    if (sound_.searched_list() == &ListFilesZoom) sound_.begin_click();  // it is not waited for
    store_place();
    work::write_box(this->context().settings, CheckAutoPlay);
    work::write_box(this->context().settings, CheckToolTips);
    sound_.store_volume();
  };
  on_key_down = [this](ui::Key& key) { sound_.list_window_KeyDown(key, &commands_); };
  Play.on_click = [this] { Play_Click(); };
  Pause.on_click = [this] { Pause_Click(); };
  PlayerMaster.on_click = [this] { PlayerMaster_Click(); };
  ListFilesZoom.on_click = [this] { ListFilesZoom_Click(); };
  ListFilesZoom.on_enter = [this] { ListFilesZoom_Click(); };
  ListFilesZoom.on_scroll = [this] { sound_.hide_balloons(); };
  ListFilesZoom.on_mouse_move = [this](const ui::Mouse& mouse) {
    sound_.rows.ViewItem(ListFilesZoom, mouse.at, ZoomLabelIndice);
  };
  CheckToolTips.on_click = [this] { CheckToolTips_Click(); };
  TimerVip.on_tick = [this] { TimerVip_Tick(); };
  CheckAutoPlay.on_click = [this] { CheckAutoPlay_Click(); };
  SliderVol.on_change = [this](std::int32_t value) { SliderVol_Change(value); };
  SliderTime.on_change = [this](std::int32_t value) { sound_.SliderTime_Change(value); };
  SliderTime.on_mouse_up = [this](const ui::Mouse& mouse) { sound_.SliderTime_MouseUp(mouse); };
  on_mouse_down = [this] { sound_.hide_balloons(); };
  on_visible = [this] { sound_.hide_balloons(); };
}

void Zoom::name_controls() {
  ListFilesZoom.set_description("Archivos");
  make_list_keys(ListFilesZoom);
  List1.hide();
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
  // The same key as in the enlarged list: the two boxes are one setting.
  CheckToolTips.set_caption("ToolTip lista.");
  CheckToolTips.set_checked(true);
  ZoomLabelIndice.hide();
  LabelVip.set_caption("Proyecto Vip");
  ImageIcono.set_description("Proyecto");
  show_project(false);
  TextInfo.set_multiline(true);
  TextInfo.set_description("Información");
  make_minimize_button(cmdMinimizar);
  make_close_button(Close);
}

void Zoom::Form_Load() {
  work::read_box(context().settings, CheckAutoPlay);
  work::read_box(context().settings, CheckToolTips);
  CheckToolTips_Click();
  SliderVol.set_value(Sound::kFirstVolume);
  SliderVol.set_value(sound_.stored_volume());
  LabelVol.set_caption(volume_caption(SliderVol.value()));
}

void Zoom::fill(const std::vector<std::string>& rows) {
  list_mode_ = false;
  ListFilesZoom.clear();
  ListFilesZoom.add(rows);
  ui::ListaAncho(ListFilesZoom);
}

void Zoom::fill_from(ui::ListBox& list) {
  const auto kept = [](const std::string& row) { return is_shown(row); };
  if (std::all_of(list.rows().begin(), list.rows().end(), kept)) {
    ui::share_rows(ListFilesZoom, list);  // long lists are not copied
  } else {
    std::vector<std::string> rows;
    std::copy_if(list.rows().begin(), list.rows().end(), std::back_inserter(rows), kept);
    ListFilesZoom.clear();
    ListFilesZoom.add(std::move(rows));
    ui::ListaAncho(ListFilesZoom);
  }
  List1.share(ListFilesZoom);
  list_mode_ = true;
  context().work.ZoomConHallados = false;
  context().work.ListaActual = &list;
}

void Zoom::fill_with_hits(const std::vector<std::string>& hits) {
  fill(hits);
  LabelNvip.set_caption("");
  Files.set_caption("Hay " + std::to_string(hits.size()) + " archivos con el mismo nombre");
  Files.show();
  context().work.ZoomConHallados = true;
  show();
}

void Zoom::follow_click(int index, const std::string& row) {
  const ui::ListBox* const list = context().work.ListaActual;
  if (list_mode_ && list != nullptr && list->current_row() != row) return;
  follow_lost(index, row);
}

void Zoom::follow_lost(int index, const std::string& row) {
  if (!list_mode_) return fill({row});
  if (index >= 0 && static_cast<std::size_t>(index) < ListFilesZoom.count()) {
    ListFilesZoom.set_current(index);
  }
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

void Zoom::CheckToolTips_Click() {
  ListFilesZoom.set_tip(CheckToolTips.checked()
                            ? "Clic botón izq. en item reproduce audio si esta activo AutoPl"
                            : "");
}

// The marker blinks.
void Zoom::TimerVip_Tick() {
  show_project(!LabelVip.visible());
}

void Zoom::show_project(bool shown) {
  ImageIcono.set_visible(shown);
  ShapeVip.set_visible(shown);
  LabelVip.set_visible(shown);
}

// The rows of the list that was clicked in the main window follow this one, so that a click here is
// a choice there too; hits of a search are no rows of it.
void Zoom::ListFilesZoom_Click() {
  work::WorkInHand& work = context().work;
  if (work.Borrando || ListFilesZoom.current() < 0) return;
  context().strip.TextDecode.hide();
  TimerVip.stop();
  show_project(false);
  Player* player = sound_.player();
  if (player == nullptr) return;
  player->TimerDisplay.stop();
  player->LabelDisplay.set_caption("");
  sound_.Control_Click(kStop);
  const int current = ListFilesZoom.current();
  // A row that the list does not have leaves its choice as it is.
  if (!work.ZoomConHallados && work.ListaActual != nullptr &&
      static_cast<std::size_t>(current) < work.ListaActual->count()) {
    work.ListaActual->set_current(current);
  }
  const std::string row = ListFilesZoom.current_row();
  const std::string extension = text::lower(text::Obtener_Extension(row));
  // Events run in what follows: something newer may be in hand by then, or no window.
  Sound::Click click = sound_.begin_click();
  const auto still = [&click, &sound = sound_, &windows = context().windows, this] {
    return windows.find<Zoom>() == this && sound.is_newest(click);
  };
  const auto inform = [&](const std::string& path) {
    sound_.info.InfoAudio(extension, path);
    if (!still()) return false;
    sound_.rows.ShowToolTip("ListFilesZoom", ListFilesZoom, path);
    TextInfo.set_text(sound_.info.TextoToolTip);
    return true;
  };
  bool found = false;
  if (is_played(extension)) {
    work.ArchivoActual = row;
    found = context().platform.files.look_up(row).has_value();
    if (found) {
      if (!inform(row)) return;
      sound_.set_URL(row);
      // A click on a list of the main window has just chosen it: it waits, unless the box says
      // that it plays.
      if (work.ClickEnLista) {
        sound_.Control_Click(kStop);
        sound_.show_loaded();
      } else {
        sound_.show_started();
        Play_Click();
      }
    }
  } else if (extension == "vip") {
    show_project(true);
    TimerVip.start();
  } else if (!work.ZoomConHallados) {
    context().strip.Alerta(work::kWarning, std::string(kNotPlayable), true);
  }
  if (extension == "vip") {
    const std::string folder = text::Obtener_Nombre_Path(row, true);
    sound_.rows.show_text(ListFilesZoom, text::Obtener_Nombre_Archivo(row), folder);
    TextInfo.set_text(text::Obtener_Nombre_Archivo(row) + "\r\n" + folder);
  }
  if (extension == "vip" || extension.empty() || extension.find("---") != extension.npos) return;
  if (!found) {
    // Also a kind that does not play goes on, after its warning: the engine may know better.
    std::string path = text::Obtener_VipPath(row);
    const bool lost = !context().platform.files.look_up(path) && !find_lost(row, path, click);
    if (!still()) return;
    if (lost) {
      sound_.set_URL("");
      if (Player* const shown = sound_.player()) {
        shown->LabelDisplay.set_caption(std::string(kNoTitle));
      }
      bring_to_front();
      sound_.HacerVisibles();
      return;
    }
    work.ArchivoActual = path;
    if ((extension == "wav" || extension == "mp3") && !inform(path)) return;
    load(path);
  }
  if (CheckAutoPlay.checked()) {
    if (Player* const shown = sound_.player()) shown->show_title();
    sound_.Control_Click(kPlay);
    Play_Click();
  }
  bring_to_front();
  sound_.HacerVisibles();
}

// Searches the ticked drives for the file of a row. Whether it was found: `path` is then where.
bool Zoom::find_lost(const std::string& row, std::string& path, Sound::Click& click) {
  const work::WorkInHand& work = context().work;
  if (work.Descodificando || work.Actualizando) return false;  // theirs is the search
  const auto again = [&windows = context().windows, this, row] {
    if (windows.find<Zoom>() == this && ListFilesZoom.current_row() == row) ListFilesZoom_Click();
  };
  if (!sound_.find_lost(row, ListFilesZoom, click, again)) return false;
  path = work.ArchivoActual;
  return true;
}

// Writing a path plays it: it waits, unless the box says that it plays.
void Zoom::load(const std::string& path) {
  sound_.set_URL("");
  sound_.set_URL(path);
  sound_.Control_Click(kStop);
  if (CheckAutoPlay.checked()) sound_.set_URL(path);
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
