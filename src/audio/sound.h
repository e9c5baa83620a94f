// The sound of the program as its windows use it: one engine, one transport, and the windows that
// show how both stand.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "audio/file_info.h"
#include "audio/row_view.h"
#include "system/media.h"
#include "ui/window.h"
#include "work/context.h"
#include "work/row_commands.h"

namespace ordelan::audio {

class Player;

// The numbers by which every window orders the transport.
inline constexpr int kPlay = 0;
inline constexpr int kPause = 1;
inline constexpr int kStop = 2;

class Sound;

// A window that shows how the transport stands, for as long as it lives. It is called in the steps
// that change something, and never because of what the engine does by itself.
class Mirror {
 public:
  // `sound` must outlive the mirror.
  explicit Mirror(Sound& sound);
  virtual ~Mirror();
  Mirror(const Mirror&) = delete;
  Mirror& operator=(const Mirror&) = delete;

  // One of the three orders was carried out.
  virtual void show_action(int Index) = 0;
  // The volume, 0 to 100 unless a caller says otherwise, and its caption.
  virtual void show_volume(std::int32_t Level, const std::string& caption) = 0;
  // A file was opened, and waits.
  virtual void show_loaded() {}
  // What was loaded was let go by a click.
  virtual void show_emptied() {}
  // The position in seconds, and the end of the slider that shows it.
  virtual void show_position(std::int32_t /*seconds*/) {}
  virtual void show_duration(std::int32_t /*seconds*/) {}

 private:
  Sound& sound_;
};

class Sound {
 public:
  // Adds Player and SA to the directory. What the context names must outlive the sound.
  explicit Sound(const work::Context& context);
  Sound(const Sound&) = delete;
  Sound& operator=(const Sound&) = delete;

  // The text on the audio file that was looked at last.
  FileInfo info;

  // Makes both windows, hidden, so that the transport is at hand.
  void begin();
  // The engine. SA is its home: it is made, hidden, where it does not exist.
  system::Media& engine();
  // The engine as it is, for questions and for letting a file go.
  system::Media& media() const { return media_; }
  // The window of the transport, made hidden where it does not exist; null only at the program's
  // end.
  Player* player() const;

  // The transport and the volume, on Player.
  void Control_Click(int Index);
  void Vol(std::int32_t Level);
  // Goes to the place of a click on a position slider, so many units from its left end, and gives
  // that place in seconds; nothing for a file that is stopped: it cannot be clicked to a place.
  std::optional<double> seek_to_unit(int x);
  // Goes on or back by so many seconds in what plays or is paused, and gives the place: at the
  // least the beginning, at the most the last half second, so that a step never ends a file.
  // Nothing, and no change, for what is stopped or has no duration.
  std::optional<double> seek_by(double seconds);
  // A position slider was brought to that second.
  void SliderTime_Change(std::int32_t Value);
  // Loads a file, which starts to play; empty ends the sound and lets the file go.
  void set_URL(const std::string& path);
  // Stops, and lets the file go, so that it can be moved or removed.
  void stop_and_empty();
  // The keys that every window of the sound has: Space plays and pauses, End stops, the plus and
  // minus of the keypad set the volume. True for one of them that meant something.
  bool Form_KeyDown(const ui::Key& key);
  // The same in a window of lists: of these keys only Space, which would press a button that has
  // the focus too, is kept from the control. Where the list of `commands` has the focus, Ctrl and C
  // copy its paths, with Shift that which a search has found, and the menu key shows its commands;
  // null for none. Puts the balloons away.
  void list_window_KeyDown(ui::Key& key, const work::RowCommands* commands);
  // A click on a position slider has ended; only one by the left button seeks.
  void SliderTime_MouseUp(const ui::Mouse& mouse);
  // Puts the notice of the player away, if there is one; every balloon of a file.
  void hide_AvisoPL() const;
  void hide_balloons();
  // A file was opened, and waits: the windows that show how the transport stands say so.
  void show_loaded();
  // A file was written to the engine, which plays it by itself: they say so, and the time runs.
  void show_started();
  // What was loaded was let go, as by stop.
  void show_emptied();
  // Shows the player at its stored place, or hides it. Where it was hidden, or is to be, and
  // nothing is loaded, the first row of the detail window is, and waits.
  void SituarPlayer(bool Mostrar);
  // Brings those of the windows of the sound that are shown before the main window.
  void HacerVisibles();

  // A first start that is silent would seem broken.
  static constexpr std::int32_t kFirstVolume = 80;
  // The volume as the settings have it, which is where the slider of a new Player stands; `now`
  // where none is stored.
  std::int32_t stored_volume(std::int32_t now = kFirstVolume) const;
  // Stores the volume of the slider, as it is or as it was stored last.
  void store_volume();
  void store_volume(std::int32_t Level);

  // What is shown of the rows of lists: their number and their balloons.
  RowView rows;

  // The playlist: full paths in their order. After a choice of several files one more entry, which
  // is empty.
  std::vector<std::string> ListaPlay{""};
  // The captions of the playlist: above it, and on the number of files.
  std::array<std::string, 2> TextosZoom;

  // Set by the main window: brings it back if it is minimised.
  std::function<void()> restore_main_window = [] {};

  // A click on a row. Events run while it reads a file or searches one: it gives up where something
  // newer has come.
  struct Click {
    std::uint64_t number = 0;
    work::JobNumber job = 0;
  };
  // A click begins: the search of an older one ends, and the older one gives up.
  Click begin_click();
  // Whether no other click has come since, nor a reset, an opening or any other job.
  bool is_newest(const Click& click) const;

  // Searches the ticked drives for a lost file whose row is the current one of a list, and lets the
  // user end the search. Whether it was found: ArchivoActual is then its path. The click goes on as
  // part of the search's job. False at once while another search comes to its end: `again`
  // runs after that, if no other click has come.
  bool find_lost(const std::string& file, ui::ListBox& list, Click& click,
                 const std::function<void()>& again);
  // The row that is searched, of that list; -1 and null while no click searches.
  int searched_row() const { return searched_row_; }
  const ui::ListBox* searched_list() const { return searched_list_; }
  // Set by the main window: a search of a click begins, or ends.
  std::function<void(bool begins)> on_search = [](bool) {};

  // Has all sound come out of that device, empty for the system's default, and stores it. The
  // volume stays.
  void set_device(const std::string& id);
  // The device that is stored. The engine takes the default one while that one is missing.
  std::string stored_device() const;

  // The volume that was set last, for an engine that comes to life.
  std::int32_t level = 0;

 private:
  friend class Mirror;
  friend class Player;

  template <class Call>
  void each_mirror(Call&& call) const {
    for (Mirror* const mirror : mirrors_) call(*mirror);
  }

  void go_to(double seconds);

  work::Context context_;
  system::Media& media_;
  std::vector<Mirror*> mirrors_;
  bool choosing_ = false;  // files are being picked for the player
  std::uint64_t clicks_ = 0;
  int searched_row_ = -1;
  const ui::ListBox* searched_list_ = nullptr;  // compared, and never followed
  // A lost row that was clicked while another was searched.
  struct Waiting {
    std::uint64_t click = 0;
    std::function<void()> again;
  };
  std::optional<Waiting> waiting_;
};

}  // namespace ordelan::audio
