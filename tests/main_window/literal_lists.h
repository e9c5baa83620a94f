// The rules of the clicks on lists, of the two windows that show lists and of the search that a
// click begins, step by step and in the plainest form, beside those of the player. It shares
// nothing with the program: not its texts, not its helpers.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "audio/literal_player.h"

namespace ordelan::test {

struct LiteralLists : LiteralPlayer {
  struct List {
    std::string name;  // of its balloon
    std::string tag;
    std::vector<std::string> rows = {};
    int current = -1;
    Text heading[2] = {};

    const std::string& row() const {
      static const std::string none;
      return current < 0 ? none : rows[static_cast<std::size_t>(current)];
    }
    // A number that the list does not have changes nothing.
    void choose(int index) {
      if (index < static_cast<int>(rows.size())) current = index;
    }
  };
  struct Drive {
    std::string caption;
    std::string root;
    bool ticked = true;
  };

  // What the machine answers.
  std::function<bool(const std::string& path)> exists;
  std::function<std::string(const std::string& path)> bytes;
  std::function<std::string(const std::string& path)> date;
  std::function<std::vector<std::string>(const std::string& root, const std::string& name)> find;
  // The files that a project uses.
  std::function<std::vector<std::string>(const std::string& project)> decode;
  std::vector<Drive> drives;

  // The main window.
  List ListVip{"ListVip", "1"}, ListUtilizados{"ListUtilizados", "2"},
      ListBorrar{"ListBorrar", "4"}, ListProyectos{"ListProyectos", "3"};
  std::vector<std::string> List1;
  bool ZoomListas = false, CheckPlayer = true;
  std::string TextDecode;
  bool TextDecode_shown = false;
  std::string ListPath, UltimoPath;
  bool ListPath_shown = false, ImageIcon = false;
  Text LabelIndice{"", false};
  std::string RutaProyectos;

  std::string ArchivoActual;
  const List* ListaActual = nullptr;
  int IndiceActual = -1;
  bool ClickEnLista = true, ZoomConHallados = false;

  // The balloon that is shown, empty for none, and the text on the last file.
  std::string balloon, TextoToolTip;

  // The detail window; its rows are those of the player's playlist too.
  int zoom_current = -1;
  bool list_mode = false;
  bool CheckAutoPlay = false;
  bool project_marks = false;  // ImageIcono, ShapeVip, LabelVip
  bool TimerVip = false;
  std::string TextInfo;
  Text ZoomLabelIndice{"", false};

  // The enlarged list.
  View ListasZoom;
  std::vector<std::string> ListZoom;
  int ListZoom_current = -1;
  std::string ListZoom_tag, ListasZoom_title;
  Text LabelUp, LabelDwn, LZLabelIndice{"", false};
  bool ListasZoom_icon = false;

  bool SA_exists = true;  // the engine's home

  // How often each of the ways through the rules was gone, so that a test can see that it was.
  std::map<std::string, int> met;

  void left_click(List& list, int row);
  void right_click(List& list);
  void ListProyectos_Click(int row);
  void ListProyectos_DblClick();
  void mouse_move(const List& list, int y);
  void ListFilesZoom_Click(int row);
  void ListFilesZoom_move(int y);
  void ListZoom_Click(int row);
  void ListZoom_DblClick();
  void ListZoom_right();
  void ListZoom_move(int y);
  void Play_Click();
  void Pause_Click();
  void CheckAutoPlay_Click();
  void TimerVip_Tick();
  void PlayerMaster_Click();
  void key(int code);
  void playlist_button();
  void spectrum_button();
  void hide_Zoom();
  void close_Zoom();
  void hide_ListasZoom();
  void close_ListasZoom();
  void close_Player();
  void cmdReset_Click();
  // A press of the button anywhere in a window puts its balloon away.
  void press() { balloon.clear(); }

 private:
  void set_URL(const std::string& path);
  void Alerta(const std::string& text, bool shown);
  void MostrarPath(const std::string& text);
  void SituarPlayer(bool Mostrar);
  void InfoAudio(const std::string& extension);
  // Size and date, in the balloon of a list or in the general one.
  void tooltip(const std::string& list, const std::string& row);
  bool BuscarEnTodasUnidades(const std::string& Archivo, int current);
  void enlarge(const List& standing, const std::vector<std::string>& rows, const std::string& title,
               bool with_first_line);
  void show_Zoom(bool shown);
  void show_ListasZoom(bool shown);
  void play_marks();
  void play_row(List& list, const std::string& extension, bool searched);
  void decode_row(int row);
  void close_SA();
};

}  // namespace ordelan::test
