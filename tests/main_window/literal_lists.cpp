#include "main_window/literal_lists.h"

#include <cctype>
#include <cmath>
#include <cstdio>

#include "audio/literal_info.h"

namespace ordelan::test {
namespace {

bool holds(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string small(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

std::string after_last(const std::string& text, char mark) {
  std::string rest;
  for (const char c : text) {
    if (c == mark) {
      rest.clear();
    } else {
      rest += c;
    }
  }
  return rest;
}

std::string name_of(const std::string& path) {
  return after_last(after_last(path, '\\'), ':');
}

// What follows the last dot of the name; a blank there ends the idea that it is an extension.
std::string extension_of(const std::string& path) {
  const std::string name = after_last(path, '\\');
  if (!holds(name, ".")) return "";
  const std::string last = after_last(name, '.');
  return holds(last, " ") ? "" : small(last);
}

std::string last_three(const std::string& path) {
  return small(path.size() > 3 ? path.substr(path.size() - 3) : path);
}

// From one character before the first ":" on.
std::string clean_path(const std::string& row) {
  const std::size_t colon = row.find(':');
  return colon == std::string::npos || colon == 0 ? row : row.substr(colon - 1);
}

std::string folder_of(const std::string& path) {
  return path.substr(0, path.rfind('\\') + 1);
}

bool plays(const std::string& extension) {
  return extension == "wav" || extension == "mp3" || extension == "aif" || extension == "wma" ||
         extension == "m4a";
}

std::string decimals(double value, double scale) {
  char text[64] = {};
  std::snprintf(text, sizeof text, "%.15g", std::nearbyint(value * scale) / scale);
  std::string number = text;
  for (char& c : number) {
    if (c == '.') c = ',';
  }
  return number;
}

}  // namespace

void LiteralLists::set_URL(const std::string& path) {
  if (!path.empty()) SA_exists = true;
  engine.set_URL(path);
}

void LiteralLists::Alerta(const std::string& text, bool shown) {
  TextDecode = text;
  TextDecode_shown = shown;
}

void LiteralLists::MostrarPath(const std::string& text) {
  ListPath = text;
  const bool project = holds(text, "vip") || holds(text, "VIP");
  if (text == UltimoPath) {
    ListPath_shown = !ListPath_shown;
    if (project) ImageIcon = ListPath_shown;
  } else {
    ListPath_shown = true;
    ImageIcon = project;
  }
  UltimoPath = text;
}

void LiteralLists::SituarPlayer(bool Mostrar) {
  if (!Mostrar || !Player.shown) {
    if (!ListFilesZoom.empty() && engine.URL().empty()) set_URL(ListFilesZoom[0]);
    LabelDisplay.caption = title();
    Control_Click(2);
  }
  Player.shown = Mostrar;
  if (Mostrar) SA.shown = false;
}

void LiteralLists::InfoAudio(const std::string& extension) {
  TextoToolTip = "No tiene información";
  const bool there = exists(ArchivoActual);
  if (extension == "wav" && there) {
    TextoToolTip = literal_wav(bytes(ArchivoActual));
    if (holds(TextoToolTip, " Bits: 32\r\n")) SA.shown = false;
  }
  if (extension == "mp3") TextoToolTip = literal_mp3(there ? bytes(ArchivoActual) : "");
}

void LiteralLists::tooltip(const std::string& list, const std::string& row) {
  balloon.clear();
  const bool marked = holds(row, ">");
  std::string path = row;
  if (marked && (list == "ListVip" || list == "ListBorrar")) path = ArchivoActual;
  if (marked && list != "ListVip" && list != "ListBorrar") path = clean_path(row);
  if (!exists(path)) return;
  const double length = static_cast<double>(bytes(path).size());
  const double megabytes = length * 9.53674316e-7;
  if (marked) {
    TextoToolTip = " Tamaño: " + decimals(megabytes, 10) + " Mb\r\n Fecha: " + date(path);
  } else {
    std::string text = " Tamaño: ";
    if (megabytes < 1) {
      text += decimals(length / 1024, 100) + " Kb";
    } else {
      text += decimals(megabytes, 100) + " Mb";
    }
    text += "\r\n Fecha: " + date(path) + "\r\n";
    for (int i = 0; i < 40; ++i) text += "-";
    TextoToolTip = text + "\r\n" + TextoToolTip;
  }
  balloon = TextoToolTip;
  ++met["balloon of " + list];
}

bool LiteralLists::BuscarEnTodasUnidades(const std::string& Archivo, int current) {
  const std::string name = holds(Archivo, ":") ? name_of(Archivo) : Archivo;
  if (name.empty()) return false;
  bool same_path = false;
  for (const Drive& drive : drives) {
    const std::string raiz = Archivo.substr(0, 3);
    if (!drive.ticked || !holds(raiz, ":\\")) continue;
    const std::string candidato = drive.root + Archivo.substr(3);
    if (!exists(candidato)) continue;
    same_path = true;
    ArchivoActual = candidato;
  }
  if (same_path) {
    ++met["same path"];
    Alerta("El archivo: " + Archivo + "\r\nHa sido encontrado en \r\n" + ArchivoActual, true);
    return true;
  }
  int ticked = 0;
  for (const Drive& drive : drives) ticked += drive.ticked ? 1 : 0;
  if (ticked == 0) {
    ++met["no drive"];
    Alerta("AVISO \r\nNO HAY NIGUNA UNIDAD DE DISCO\r\nSeleccionada para buscar este archivo",
           true);
    return false;
  }
  std::vector<std::string> List2;
  for (const Drive& drive : drives) {
    if (!drive.ticked) continue;
    for (const std::string& path : find(drive.root, name)) {
      if (!holds(path, "RECICLER")) List2.push_back(path);
    }
  }
  if (List2.empty()) {
    ++met["no hit"];
    Alerta("El archivo: \r\n" + Archivo + "\r\nNo existe\r\nEn ninguna unidad", true);
    return false;
  }
  ArchivoActual = List2[0];
  if (List2.size() == 1) {
    ++met["one hit"];
    const std::string text =
        "El archivo: " + Archivo + "\r\nHa sido encontrado en: \r\n" + List2[0];
    Alerta(text, true);
    if (current >= 0 && current < static_cast<int>(ListFilesZoom.size())) {
      ListFilesZoom[static_cast<std::size_t>(current)] = List2[0];
    }
    if (Zoom.shown) Alerta(text + "\r\nLa ruta del PlayList ha sido actualizada", true);
    return true;
  }
  ++met["several hits"];
  const std::string count = std::to_string(List2.size());
  std::string text = "El archivo: " + Archivo + "\r\nHa sido encontrado en " + count + " unidades";
  for (const std::string& hit : List2) text += "\r\n" + hit;
  Alerta(text, true);
  ListFilesZoom = List2;
  zoom_current = -1;
  list_mode = false;
  LabelNvip.caption = "";
  Files = {"Hay " + count + " archivos con el mismo nombre", true};
  show_Zoom(true);
  ZoomConHallados = true;
  return true;
}

void LiteralLists::enlarge(const List& standing, const std::vector<std::string>& rows,
                           const std::string& title, bool with_first_line) {
  ++met["enlarged " + standing.tag];
  ListasZoom_title = title;
  LabelUp = {standing.heading[0].caption, with_first_line};
  LabelDwn.caption = standing.heading[1].caption;
  ListZoom = rows;
  ListZoom_current = -1;
  ListZoom_tag = standing.tag;
  ListasZoom_icon = false;
  LZLabelIndice.shown = false;
  show_ListasZoom(true);
}

void LiteralLists::left_click(List& list, int row_number) {
  list.current = row_number;
  const std::string row = list.row();
  AvisoPL = false;
  balloon.clear();
  IndiceActual = -1;
  if (ZoomListas && (!ListasZoom.shown || ListZoom_tag != list.tag)) {
    std::string title = "Archivos totales utilizados";
    if (list.tag == "1") title = "Archivos utilizados en Vip: " + list.heading[1].caption;
    if (list.tag == "4") title = "Archivos totales que no se utilizan";
    enlarge(list, list.rows, title, list.tag != "4");
    return;
  }
  TextDecode_shown = false;
  MostrarPath(row);
  set_URL("");
  const std::string extension = extension_of(row);
  if (!plays(extension)) {
    if (CheckPlayer) SituarPlayer(false);
    ++met["not playable " + list.tag];
    if (list.tag == "2" && extension == "vip") {
      ++met["project among the used"];
      tooltip("", row);
    } else {
      Alerta(" >>> AVISO <<<   Este archivo no es reproducible", true);
    }
    return;
  }
  ArchivoActual = row;
  if (exists(row)) {
    if (CheckPlayer) SituarPlayer(true);
    if (list_mode && ListaActual->row() == row) {
      if (list.current < static_cast<int>(ListFilesZoom.size())) zoom_current = list.current;
    }
    if (!list_mode) {
      ListFilesZoom = {row};
      zoom_current = -1;
    }
    play_row(list, extension, false);
    return;
  }
  if (!list_mode) {
    ListFilesZoom = {row};
    zoom_current = -1;
  } else if (list.current < static_cast<int>(ListFilesZoom.size())) {
    zoom_current = list.current;
  }
  if (!BuscarEnTodasUnidades(name_of(row), list.current)) return;
  play_row(list, extension, true);
  if (CheckPlayer) SituarPlayer(true);
}

void LiteralLists::play_row(List& list, const std::string& extension, bool searched) {
  ++met[(searched ? "found and played " : "played ") + list.tag];
  InfoAudio(extension);
  if (searched && list.tag == "2") {
    List1 = {ArchivoActual};
    tooltip("", ArchivoActual);
  } else {
    tooltip(list.name, ArchivoActual);
  }
  set_URL(ArchivoActual);
  IndiceActual = list.current;
  play_marks();
  if (Zoom.shown) Play_Click();
}

// What plays by itself, on the main window and on the player, whose clock runs.
void LiteralLists::play_marks() {
  ImagePlayPauSt[0] = false;
  ImagePlayPauSt[1] = true;
  ImagePlayPauSt[2] = false;
  Control[0] = false;
  Control[1] = true;
  TimerTime = true;
  TimerDisplay = true;
}

void LiteralLists::right_click(List& list) {
  if (list.rows.empty()) return;
  TextDecode_shown = false;
  ListaActual = &list;
  ListFilesZoom.clear();
  zoom_current = -1;
  for (const std::string& row : list.rows) {
    const std::string extension = extension_of(row);
    if (plays(extension) || extension == "vip" || extension == "flac") ListFilesZoom.push_back(row);
  }
  list_mode = true;
  ZoomConHallados = false;
  LabelNvip = {list.heading[0].caption, true};
  if (list.tag == "4" && !list.heading[0].shown) {
    LabelNvip.caption = "Archivos totales que no se utilizan";  // this heading has one line
  }
  Files = {list.heading[1].caption, true};
  IndiceActual = list.current;
  if (!engine.URL().empty() && IndiceActual < static_cast<int>(ListFilesZoom.size())) {
    zoom_current = IndiceActual;
  }
  show_Zoom(true);
}

void LiteralLists::ListProyectos_Click(int row) {
  ListProyectos.current = row;
  AvisoPL = false;
  ClickEnLista = true;
  MostrarPath(ListProyectos.row());
  engine.stop();
  if (ZoomListas) {
    enlarge(ListProyectos, ListVip.rows, "Proyectos Vip's en carpeta: ", true);
  } else {
    tooltip("ListProyectos", ListProyectos.row());
  }
}

void LiteralLists::ListProyectos_DblClick() {
  decode_row(ListProyectos.current);
  tooltip("ListProyectos", ListProyectos.row());
}

void LiteralLists::decode_row(int row) {
  ++met["decoded"];
  set_URL("");
  balloon.clear();
  ImageIcon = false;
  close_Player();
  TextDecode_shown = false;
  ListPath_shown = false;
  hide_ListasZoom();
  hide_Zoom();
  const std::string path = clean_path(ListProyectos.rows[static_cast<std::size_t>(row)]);
  ListVip.rows = decode(path);
  ListVip.current = -1;
  ListVip.heading[0] = {std::to_string(ListVip.rows.size()) + " Archivos utilizados en: " + path,
                        true};
  ListVip.heading[1] = {RutaProyectos, true};
  Alerta(": ", false);
}

void LiteralLists::mouse_move(const List& list, int y) {
  if (list.rows.empty()) return;
  const int row = y / 16;
  LabelIndice.shown = row < static_cast<int>(list.rows.size());
  if (LabelIndice.shown) LabelIndice.caption = "Item: " + std::to_string(row + 1);
}

void LiteralLists::ListFilesZoom_move(int y) {
  if (ListFilesZoom.empty()) return;
  const int row = y / 16;
  ZoomLabelIndice.shown = row < static_cast<int>(ListFilesZoom.size());
  if (ZoomLabelIndice.shown) ZoomLabelIndice.caption = "Item: " + std::to_string(row + 1);
}

void LiteralLists::ListZoom_move(int y) {
  if (ListZoom.empty()) return;
  const int row = y / 16;
  LZLabelIndice.shown = row < static_cast<int>(ListZoom.size());
  if (LZLabelIndice.shown) LZLabelIndice.caption = "Item: " + std::to_string(row + 1);
}

void LiteralLists::ListFilesZoom_Click(int row_number) {
  zoom_current = row_number;
  const std::string row = ListFilesZoom[static_cast<std::size_t>(row_number)];
  TextDecode_shown = false;  // 1
  TimerVip = false;
  project_marks = false;
  TimerDisplay = false;  // 2
  LabelDisplay.caption = "";
  Control_Click(2);
  if (!ZoomConHallados && ListaActual != nullptr) {  // 3
    const_cast<List*>(ListaActual)->choose(zoom_current);
  }
  const std::string extension = extension_of(row);  // 4
  bool go_to_12 = false;
  if (plays(extension)) {  // 5
    ArchivoActual = row;
    if (exists(row)) {
      InfoAudio(extension);
      tooltip("", row);
      TextInfo = TextoToolTip;
      set_URL(row);
      if (ClickEnLista) {
        Control_Click(2);
        ImagePlayPauSt[0] = true;
        ImagePlayPauSt[1] = false;
      } else {
        Control_Click(0);
        ImagePlayPauSt[0] = false;
        ImagePlayPauSt[1] = true;
        Play_Click();
      }
      go_to_12 = true;
      ++met[ClickEnLista ? "Zoom waits" : "Zoom plays"];
    }
  } else {  // 6
    if (extension == "vip") {
      project_marks = true;
      TimerVip = true;
    } else if (!ZoomConHallados) {
      Alerta(" >>> AVISO <<<   Este archivo no es reproducible", true);
    }
  }
  if (!go_to_12) {
    if (extension == "vip") {  // 7
      const std::string path = clean_path(row);
      balloon = folder_of(path);
      TextInfo = name_of(path) + "\r\n" + folder_of(path);
    }
    if (extension == "vip" || extension.empty() || holds(extension, "---")) return;
    std::string path = clean_path(row);  // 8
    if (!exists(path)) {
      if (!BuscarEnTodasUnidades(row, zoom_current)) {
        set_URL("");
        LabelDisplay.caption = "  >>>> --------------- <<<< ";
        return;  // 13
      }
      path = ArchivoActual;
    }
    ArchivoActual = path;  // 9
    if (extension == "wav" || extension == "mp3") {
      InfoAudio(extension);
      tooltip("", path);
      TextInfo = TextoToolTip;
    }
    set_URL("");  // 10
    set_URL(path);
    Control_Click(2);
    ++met["Zoom loads"];
    if (CheckAutoPlay) set_URL(path);
  }
  if (CheckAutoPlay) {  // 12
    LabelDisplay.caption = title();
    Control_Click(0);
    Play_Click();
  }
}

void LiteralLists::ListZoom_Click(int row_number) {
  ListZoom_current = row_number;
  const std::string row = ListZoom[static_cast<std::size_t>(row_number)];
  ListasZoom_icon = false;
  const std::string kind = last_three(row);
  ++met[plays(kind) ? "ListZoom plays" : "ListZoom does not play"];
  if (kind == "vip") {
    ListasZoom_icon = true;
    tooltip("ListZoom", row);
  }
  if (plays(kind)) {
    ArchivoActual = row;
    InfoAudio(kind);
    tooltip("ListZoom", row);
    set_URL(row);
    Zoom_Pause = true;
    Zoom_Play = false;
    play_marks();
  }
}

void LiteralLists::ListZoom_DblClick() {
  set_URL("");
  // The enlarged list may have more rows than there are projects.
  if (ListZoom_current < static_cast<int>(ListProyectos.rows.size())) decode_row(ListZoom_current);
}

void LiteralLists::ListZoom_right() {
  set_URL("");
  Zoom_Pause = true;
  Zoom_Play = false;
  ImagePlayPauSt[0] = true;
  ImagePlayPauSt[1] = false;
  ImagePlayPauSt[2] = false;
  Control[0] = true;
  Control[1] = false;
}

void LiteralLists::Play_Click() {
  Control_Click(0);
  if (engine.URL().empty()) {
    Alerta("\r\n >>> AVISO <<<   Este archivo no existe en esta ruta", true);
    return;
  }
  Zoom_Play = false;
  Zoom_Pause = true;
}

void LiteralLists::Pause_Click() {
  Control_Click(1);
  if (engine.URL().empty()) {
    Alerta("\r\n >>> AVISO <<<   Este archivo no existe en esta ruta", true);
    return;
  }
  Zoom_Pause = false;
  Zoom_Play = true;
}

void LiteralLists::CheckAutoPlay_Click() {
  CheckAutoPlay = !CheckAutoPlay;
  if (!CheckAutoPlay) {
    Control_Click(2);
  } else if (zoom_current >= 0) {
    Control_Click(0);
  }
}

void LiteralLists::TimerVip_Tick() {
  project_marks = !project_marks;
}

void LiteralLists::PlayerMaster_Click() {
  if (!Player.shown) {
    Player.shown = true;
    Form_DblClick();
  }
  LabelDisplay.caption = "  >>>> --------------- <<<< ";
  SA_exists = true;
}

void LiteralLists::key(int code) {
  balloon.clear();
  Form_KeyDown(code);
}

void LiteralLists::playlist_button() {
  const bool shown = Zoom.shown;
  PL_Click();
  if (AvisoPL) return;  // an empty playlist
  zoom_current = -1;
  list_mode = false;
  if (Zoom.shown != shown) balloon.clear();
}

void LiteralLists::spectrum_button() {
  SA_exists = true;
  SAtoggle1_Click();
}

void LiteralLists::show_Zoom(bool shown) {
  if (Zoom.shown != shown) balloon.clear();
  Zoom.shown = shown;
}

void LiteralLists::show_ListasZoom(bool shown) {
  if (ListasZoom.shown != shown) balloon.clear();
  ListasZoom.shown = shown;
}

void LiteralLists::hide_Zoom() {
  show_Zoom(false);
}

void LiteralLists::hide_ListasZoom() {
  show_ListasZoom(false);
}

void LiteralLists::close_Zoom() {
  Zoom.shown = false;
  ListFilesZoom.clear();
  zoom_current = -1;
  list_mode = false;
  project_marks = TimerVip = false;
  TextInfo.clear();
  ZoomLabelIndice = {"", false};
  Files = LabelNvip = {"", true};
  Zoom_Play = true;
  Zoom_Pause = false;
}

void LiteralLists::close_ListasZoom() {
  ListasZoom.shown = false;
  ListZoom.clear();
  ListZoom_current = -1;
  ListZoom_tag.clear();
  ListasZoom_title.clear();
  LabelUp = LabelDwn = {"", true};
  LZLabelIndice = {"", false};
  ListasZoom_icon = false;
}

void LiteralLists::close_Player() {
  CloseW_Click();
  Player_Load();
}

void LiteralLists::close_SA() {
  SA = {};
  if (SA_exists) engine.end();
  SA_exists = false;
}

void LiteralLists::cmdReset_Click() {
  close_Zoom();
  close_SA();
  close_Player();
  close_ListasZoom();
  TextDecode.clear();
  TextDecode_shown = false;
  for (List* const list : {&ListVip, &ListUtilizados, &ListBorrar, &ListProyectos}) {
    list->rows.clear();
    list->current = -1;
    list->heading[0].shown = list->heading[1].shown = false;
  }
  ListPath_shown = ImageIcon = false;
  for (bool& image : ImagePlayPauSt) image = false;
  ZoomConHallados = false;
  AvisoPL = false;
  LabelIndice.shown = false;
  balloon.clear();
}

}  // namespace ordelan::test
