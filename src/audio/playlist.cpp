// What the player opens, and where it and the spectrum stand.
#include <algorithm>

#include "audio/player.h"
#include "audio/sa.h"
#include "audio/transport_texts.h"
#include "audio/zoom.h"
#include "location/file_finder.h"

namespace ordelan::audio {

void Player::OpenFile_Click() {
  AvisoPL.hide();
  if (sound_.choosing_) return;  // the dialog is up already
  sound_.media().close();
  sound_.ListaPlay.assign(1, "");
  context().windows.hide<Zoom>();
  hide();
  Sound& sound = sound_;  // the window may be closed while the dialog is up
  sound.choosing_ = true;
  const auto files = context().platform.dialogs.open_files(
      {.filter = "Archivos (*.wav, *.aif, *.mp3, *.wma, *.m4a)|*.wav;*.aif;*.mp3;*.wma;*.m4a",
       .several = true});
  sound.choosing_ = false;
  // A cancel leaves the window hidden: it is opened again from the main window. While the dialog
  // was up, the window may have been closed.
  if (files.empty()) {
    if (Zoom* const zoom = context().windows.find<Zoom>()) zoom->fill({});
  }
  if (files.empty() || context().windows.find<Player>() != this) return;
  heard_path_.clear();
  sound_.ListaPlay = files;
  // Several files leave an entry at the end that is empty: the list in the detail window ends in
  // an empty row, which says that there is no more.
  if (files.size() > 1) sound_.ListaPlay.emplace_back();
  sound_.TextosZoom[1] = "Cargados: " + std::to_string(files.size()) + " archivos de audio";
  if (Zoom* const zoom = context().windows.touch<Zoom>()) {
    zoom->fill(files);
    zoom->Files.set_caption(sound_.TextosZoom[1]);
    zoom->LabelNvip.hide();
    zoom->Files.show();
  }
  mp3Baud.hide();
  show();
  sound_.set_URL(files.front());
  sound_.show_loaded();
  show_title();
  Control[kPause].hide();  // of a file that has played until now
  Control[kPlay].show();
  // Every file that is opened begins this softly, whatever the volume was; the engine follows with
  // the next change of the slider.
  constexpr std::int32_t kOpened = 40;
  SliderVol.set_value(kOpened);
  LabelVol.set_caption(volume_caption(kOpened));
  // Setting a path plays it: a file that is opened here waits for Play.
  sound_.media().stop();
  dock_SA();
  TimerDisplay.start();
}

void Player::dock_SA() {
  SA* const spectrum = context().windows.find<SA>();
  if (spectrum == nullptr || !spectrum->visible()) return;
  spectrum->set_position(place_of_SA());
  spectrum->bring_to_front();
}

void Player::SAtoggle1_Click() {
  AvisoPL.hide();
  SA* const spectrum = context().windows.touch<SA>();
  if (spectrum == nullptr) return;
  const bool shows = spectrum->minimized() || !spectrum->visible();
  if (spectrum->minimized()) {
    spectrum->set_minimized(false);
  } else if (shows) {
    spectrum->set_position(place_of_SA());  // never seen at the place where it stood before
  }
  spectrum->set_visible(shows);
  if (!shows) return;
  Vol(SliderVol.value());
  dock_SA();
  bring_to_front();
}

void Player::PL_Click() {
  Zoom* const zoom = context().windows.touch<Zoom>();
  if (zoom == nullptr) return;
  if (zoom->minimized()) {
    zoom->set_minimized(false);
    zoom->show();
  } else {
    AvisoPL.hide();
    const std::vector<std::string>& playlist = sound_.ListaPlay;
    if (playlist.front().empty()) {
      AvisoPL.set_text("PlayList vacio\r\nClic ocultar");
      AvisoPL.show();
      return;
    }
    // A single file is no list: its window stays empty.
    zoom->fill(playlist.size() > 1 ? playlist : std::vector<std::string>());
    zoom->LabelNvip.set_caption(sound_.TextosZoom[0]);
    zoom->LabelNvip.show();
    zoom->Files.set_caption(sound_.TextosZoom[1]);
    zoom->Files.show();
    zoom->set_visible(!zoom->visible());
  }
  if (!zoom->visible()) return;
  Vol(SliderVol.value());
  bring_to_front();
}

// Others stop the engine too, a dialog and a click on a project among them: a file has only ended
// if it was playing near its end.
bool Player::has_ended_by_itself() const {
  constexpr double kNearEnd = 1;  // a busy machine has long ticks
  const system::Media& engine = sound_.media();
  return heard_path_ == engine.URL() && engine.duration() - heard_to_ <= kNearEnd;
}

// The one after what is loaded, if that is in the playlist and not its last. Whether there is one.
bool Player::play_next() {
  const std::vector<std::string>& playlist = sound_.ListaPlay;
  const auto loaded = std::find(playlist.begin(), playlist.end(), sound_.media().URL());
  if (loaded == playlist.end() || loaded + 1 == playlist.end() || (loaded + 1)->empty()) {
    return false;
  }
  heard_path_ = *(loaded + 1);
  heard_to_ = 0;  // a short one may have ended before the next tick
  mp3Baud.hide();
  sound_.set_URL(heard_path_);
  show_title();
  Control_Click(kPlay);
  return true;
}

bool Player::BuscarAudio(const std::string& Path, const ui::ListBox& Lista, int Indice, bool Avisar,
                         bool Completo, std::string& Resultado) {
  const location::cFindFiles finder(context().platform);
  const std::string rest = Path.size() > 3 ? Path.substr(3) : "";
  bool found = false;
  for (const std::string& drive : finder.pvGetDrives()) {
    if (rest.empty() || !finder.FileExist(drive + rest)) continue;
    found = true;
    Resultado = drive + rest;
    context().work.ArchivoActual = Resultado;
    if (!Completo) return true;
    break;
  }
  Resultado.clear();
  std::string project;
  for (int row = std::min(Indice, static_cast<int>(Lista.count()) - 1); row >= 0; --row) {
    const std::string& text = Lista.row(static_cast<std::size_t>(row));
    if (last_three(text) != "vip") continue;
    project = text.substr(2);  // after its arrow
    break;
  }
  if (!Avisar) return found;
  const std::string what = "El archivo de audio: " + Path + "\r\n del proyecto " + project + "\r\n";
  if (found) {
    context().strip.Alerta(work::kResult,
                           what + "Se encuentra en: \r\n" + context().work.ArchivoActual, true);
  } else {
    context().strip.Alerta(work::kWarning, what + "No existe", true);
  }
  return found;
}

void Player::Form_DblClick() {
  AvisoPL.hide();
  sound_.restore_main_window();
  if (visible()) {
    read_place();
    SliderVol.set_value(sound_.stored_volume(SliderVol.value()));
  }
  dock_SA();
}

void Player::drag_ended() {
  AvisoPL.hide();
  dock_SA();
  if (Zoom* const zoom = context().windows.find<Zoom>(); zoom != nullptr && zoom->visible()) {
    zoom->bring_to_front();
  }
  store_place();
}

void Player::CheckToolTip_Click() {
  AvisoPL.hide();
  MostrarToolTips(!CheckToolTip.checked());
}

void Player::MostrarToolTips(bool Activo) {
  const auto tip = [Activo](ui::Control& control, const char* text) {
    control.set_tip(Activo ? text : "");
  };
  tip(mp3Baud, "Velocidad en Kilobaudios");
  tip(LabelVol, "Nivel volumen");
  tip(LabelDisplay, "Titulo y duración");
  tip(LabelTime, "Tiempo trancurrido");
  tip(PictureLD, "Tiempo trancurrido");
  tip(ImageOnda, "Clic para ir a ese punto del audio");
  tip(SliderTime, "Arrastrar para cambiar posición de audio.");
  tip(SliderVol,
      "Clic en posición X , o arrastrar fader. Play/Pausa con espacio, Volumen teclas + -");
  tip(PL, "Abre/cierra PlayList");
  tip(OpenFile, "Abrir archivo de audio");
  tip(SAtoggle1, "Abre/cierra Spectrómetro");
  tip(cmdMinimizar, "Minimizar a barra de tareas");
  tip(CloseW, "Cerrar Player");
  tip(Control[kPlay], "Play/Pausa");
  tip(Control[kPause], "Pausa/Play");
  tip(Control[kStop], "Stop");
}

}  // namespace ordelan::audio
