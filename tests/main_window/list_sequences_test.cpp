// Random sequences of what a user does to the lists, beside the literal model of their rules.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "audio/lists_zoom.h"
#include "audio/player.h"
#include "audio/sa.h"
#include "audio/zoom.h"
#include "main_window/literal_lists.h"
#include "support/sound_program.h"
#include "support/update_bench.h"

namespace ordelan::test {
namespace {

std::string wav_bytes(int bits, std::size_t length) {
  std::string bytes = "RIFF1234WAVE" + std::string("fmt ") + std::string("\x10\0\0\0\x01\0", 6);
  bytes += std::string("\x02\0\x44\xAC\0\0", 6) + std::string("\0\0\0\0\4\0", 6);
  bytes += static_cast<char>(bits);
  bytes += '\0';
  bytes.resize(std::max(bytes.size(), length), '.');
  return bytes;
}

struct ListSequences : ::testing::Test, UpdateBench {
  using List = LiteralLists::List;

  audio::Sound& sound() { return form.sound(); }
  audio::Player& player() { return *windows.touch<audio::Player>(); }
  audio::Zoom& zoom() { return *windows.touch<audio::Zoom>(); }
  audio::ListasZoom& enlarged() { return *windows.touch<audio::ListasZoom>(); }

  const std::vector<std::string> names = {
      "a.wav",       "b.mp3",     "c.flac",   "e.MP3",     "f.aif",     "k.m4a",      "h.ogg",
      "perdido.wav", "doble.wav", "nada.mp3", "igual.wav", "resto.wav", "resto2.wma", "resto3.mp3"};
  // The projects' folder, two others, and that which has its path on the second drive.
  const std::string same_path = "E\\" + disk.folder().substr(3) + "C\\Mix\\";
  const std::vector<std::string> folders = {"C\\Mix\\", "C\\Otra\\", "E\\Mas\\", same_path};

  std::string some_bytes(const std::string& name) {
    const std::size_t length = roll(8) == 0 ? 1300000 : static_cast<std::size_t>(300 + roll(5000));
    if (name.ends_with("wav")) return wav_bytes(roll(3) == 0 ? 32 : 16, length);
    std::string bytes(length, '.');
    if (roll(2) == 0) bytes.replace(bytes.size() - 128, 8, "TAGtema " + std::string(1, ' '), 0, 8);
    return bytes;
  }
  std::vector<std::string> paths(const std::vector<std::string>& below) {
    std::vector<std::string> all;
    for (const std::string& name : below) all.push_back("C\\Mix\\" + name);
    return all;
  }

  void begin(unsigned seed) {
    random.seed(seed);
    drives.drives.clear();
    add_drive("C");
    add_drive("E");
    for (const std::string& name : names) disk.write("C\\Mix\\" + name, some_bytes(name));
    for (const char* const lost : {"perdido.wav", "doble.wav", "nada.mp3", "igual.wav"}) {
      disk.remove(std::string("C\\Mix\\") + lost);
    }
    for (const std::string& moved :
         {std::string("C\\Otra\\perdido.wav"), std::string("C\\Otra\\doble.wav"),
          std::string("E\\Mas\\doble.wav"), same_path + "igual.wav"}) {
      disk.write(moved, some_bytes("x.wav"));
    }
    used["tema.vip"] = {names.begin(), names.begin() + 11};
    used["voces.vip"] = {"b.mp3", "e.MP3", "doble.wav"};
    for (const auto& [name, files] : used) project("C\\Mix\\" + name, paths(files));
    start();
    clock.step = std::chrono::microseconds(0);  // no timer ticks by itself
    for (const std::string& folder : folders) {
      for (const std::string& name : names) {
        media.files[disk.path(folder + name)] = {.duration = name == "f.aif" ? 0.0 : 60.0};
      }
    }
    model.engine.files = media.files;
    model.width_of = [](const std::string&) { return 0; };
    model.Volumen = 80;
    model.Player_Load();
    model.exists = [this](const std::string& path) { return is_file(path); };
    model.bytes = [this](const std::string& path) {
      const auto file = native(path);
      std::string all(std::filesystem::file_size(file), '\0');
      std::ifstream(file, std::ios::binary)
          .read(all.data(), static_cast<std::streamsize>(all.size()));
      return all;
    };
    model.date = [this](const std::string& path) {
      return regional.date_and_time(disk.files().info(path)->modified);
    };
    model.find = [this](const std::string& root, const std::string& name) {
      std::vector<std::string> hits;
      find_below(root, name, hits);
      return hits;
    };
    model.decode = [this](const std::string& path) {
      std::vector<std::string> rows;
      for (const std::string& file : used[path.substr(path.rfind('\\') + 1)]) {
        if (file == "k.m4a") continue;  // no kind that a project is read for
        rows.push_back(disk.path("C\\Mix\\" + file));
      }
      return rows;
    };
    for (int i = 0; i < boxes().Check1.size(); ++i) {
      model.drives.push_back({boxes().Check1[i].caption(), boxes().Check1[i].tag(), true});
    }
    sound().ListaPlay =
        model.ListaPlay = {disk.path("C\\Mix\\c.flac"), disk.path("C\\Mix\\a.---"),
                           disk.path("C\\Mix\\b.mp3"), disk.path("C\\Mix\\tema.vip"), ""};
    sound().TextosZoom[1] = model.TextosZoom[1] = "Cargados: 4 archivos de audio";
    form.ZoomListas.set_checked(false);
    // The first opening is the program's alone.
    open("C\\Mix\\tema.vip");
    model.cmdReset_Click();
    after_opening();
  }

  std::filesystem::path native(const std::string& path) {
    return disk.native_path(path.substr(disk.folder().size()));
  }
  bool is_file(const std::string& path) {
    return path.starts_with(disk.folder()) && std::filesystem::is_regular_file(native(path));
  }
  void find_below(const std::string& folder, const std::string& name,
                  std::vector<std::string>& hits) {
    const auto entries = disk.files().list(folder);
    for (const auto& entry : *entries) {
      if (!entry.folder && entry.name == name) hits.push_back(folder + name);
    }
    for (const auto& entry : *entries) {
      if (entry.folder) find_below(folder + entry.name + "\\", name, hits);
    }
  }

  // What an opening lists is no matter of these tests: the model takes it over, and some rows that
  // no decode gives are added.
  void after_opening() {
    for (ui::ListBox* const list :
         {&form.lists.ListVip, &form.lists.ListUtilizados, &form.lists.ListBorrar}) {
      std::vector<std::string> rows = list->take();
      rows.insert(rows.begin(), "----------");
      rows.insert(rows.begin() + 1, disk.path("C\\Mix\\sin"));
      rows.push_back(disk.path("C\\Mix\\solo.vip"));
      rows.push_back(disk.path("C\\Mix\\k.m4a"));
      list->clear();
      list->add(rows);
      list->set_current(-1);
    }
    model.RutaProyectos = work.RutaProyectos;
    for (List* const list : lists()) {
      list->rows = real(*list).rows();
      list->current = real(*list).current();
      for (int i = 0; i < 2; ++i) {
        list->heading[i] = {heading(*list)[i].caption(), heading(*list)[i].visible()};
      }
    }
    for (int i = 0; i < 3; ++i) {
      model.ImagePlayPauSt[i] = form.play.ImagePlayPauSt[i].visible();
    }
    model.List1 = form.lists.List1.rows();
    model.TextDecode = form.strip.TextDecode.text();
    media.orders.clear();
    model.engine.orders.clear();
    is_open = true;
  }

  std::vector<List*> lists() {
    return {&model.ListVip, &model.ListUtilizados, &model.ListBorrar, &model.ListProyectos};
  }
  ui::ListBox& real(const List& list) {
    if (&list == &model.ListVip) return form.lists.ListVip;
    if (&list == &model.ListUtilizados) return form.lists.ListUtilizados;
    if (&list == &model.ListBorrar) return form.lists.ListBorrar;
    return form.lists.ListProyectos;
  }
  ui::ControlArray<ui::Label>& heading(const List& list) {
    if (&list == &model.ListVip) return form.lists.LabelCount;
    if (&list == &model.ListUtilizados) return form.lists.LabelAdd;
    if (&list == &model.ListBorrar) return form.lists.LabelErase;
    return form.lists.LabelCheck;
  }

  int roll(int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); }
  int some_row(std::size_t count) { return roll(static_cast<int>(count)); }

  template <class Program, class Model>
  void both(const std::string& what, Program program_does, Model model_does) {
    done += what + "; ";
    program_does();
    model_does();
    windows.free_closed();
  }

  void act() {
    if (!is_open) return open_again();
    switch (roll(30)) {
      case 0:
      case 1:
      case 2:
      case 3:
      case 4:
      case 5:
        return left_click();
      case 6:
      case 7:
        return right_click();
      case 8:
        return click_project();
      case 9:
        return double_click_project();
      case 10:
      case 11:
      case 12:
      case 13:
        return click_Zoom();
      case 14:
      case 15:
      case 16:
        return click_ListasZoom();
      case 17:
      case 18:
        return toggle();
      case 19:
      case 20:
        return change_files();
      case 21:
        return point();
      case 22:
      case 23:
        return transport();
      case 24:
        return put_away();
      case 25:
        return roll(5) == 0 ? (roll(2) == 0 ? open_again() : reset()) : blink();
      case 26:
        return playlist();
      case 27:
        return keys();
      case 28:
        return scroll();
      default:
        return other_windows();
    }
  }

  void left_click() {
    List& list = *lists()[static_cast<std::size_t>(roll(3))];
    if (list.rows.empty()) return;
    const int row = some_row(list.rows.size());
    const bool by_key = roll(5) == 0;
    both(
        "click " + list.name + " " + std::to_string(row),
        [&] {
          real(list).chosen(row, by_key);
          by_key ? real(list).on_enter() : real(list).on_click();
        },
        [&] { model.left_click(list, row); });
  }

  void right_click() {
    List& list = *lists()[static_cast<std::size_t>(roll(3))];
    both(
        "right click " + list.name, [&] { real(list).on_right_click(); },
        [&] { model.right_click(list); });
  }

  void click_project() {
    const int row = some_row(model.ListProyectos.rows.size());
    both(
        "click ListProyectos " + std::to_string(row),
        [&] {
          form.lists.ListProyectos.chosen(row);
          form.lists.ListProyectos.on_click();
        },
        [&] { model.ListProyectos_Click(row); });
  }

  void double_click_project() {
    if (roll(2) == 0) click_project();
    if (model.ListProyectos.current < 0) return;
    const bool by_key = roll(2) == 0;
    both(
        "double click ListProyectos",
        [&] {
          by_key ? form.lists.ListProyectos.on_enter() : form.lists.ListProyectos.on_double_click();
        },
        [&] { model.ListProyectos_DblClick(); });
  }

  void click_Zoom() {
    if (!model.Zoom.shown || model.ListFilesZoom.empty()) return right_click();
    const int row = some_row(model.ListFilesZoom.size());
    both(
        "click Zoom " + std::to_string(row),
        [&] {
          zoom().on_mouse_down();
          zoom().ListFilesZoom.chosen(row);
          zoom().ListFilesZoom.on_click();
        },
        [&] {
          model.press();
          model.ListFilesZoom_Click(row);
        });
  }

  void click_ListasZoom() {
    if (!model.ListasZoom.shown || model.ListZoom.empty()) return;
    const int row = some_row(model.ListZoom.size());
    const int kind = roll(6);
    if (kind == 0) {
      return both(
          "right click ListZoom",
          [&] {
            enlarged().on_mouse_down();
            enlarged().ListZoom.on_right_click();
          },
          [&] {
            model.press();
            model.ListZoom_right();
          });
    }
    both(
        "click ListZoom " + std::to_string(row),
        [&] {
          enlarged().on_mouse_down();
          enlarged().ListZoom.chosen(row);
          enlarged().ListZoom.on_click();
        },
        [&] {
          model.press();
          model.ListZoom_Click(row);
        });
    if (kind == 1) {
      both(
          "double click ListZoom", [&] { enlarged().ListZoom.on_double_click(); },
          [&] { model.ListZoom_DblClick(); });
    }
  }

  void toggle() {
    switch (roll(5)) {
      case 0:
      case 1:
        return both(
            "ZoomListas", [&] { form.ZoomListas.toggle(); },
            [&] { model.ZoomListas = !model.ZoomListas; });
      case 2:
        return both(
            "CheckPlayer", [&] { form.CheckPlayer.toggle(); },
            [&] { model.CheckPlayer = !model.CheckPlayer; });
      case 3:
        if (!model.Zoom.shown) return;
        return both(
            "CheckAutoPlay", [&] { zoom().CheckAutoPlay.toggle(); },
            [&] { model.CheckAutoPlay_Click(); });
      default:
        return both(
            "CheckToolTips", [&] { form.CheckToolTips.toggle(); }, [&] { tips = !tips; });
    }
  }

  void change_files() {
    const std::string& name = names[static_cast<std::size_t>(roll(static_cast<int>(names.size())))];
    const std::string from = folders[static_cast<std::size_t>(roll(4))] + name;
    if (roll(3) == 0) {
      done += "write " + from + "; ";
      disk.write(from, some_bytes(name));
    } else {
      const std::string to = folders[static_cast<std::size_t>(roll(4))] + name;
      if (from == to || !is_file(disk.path(from))) return;
      done += "move " + from + " " + to + "; ";
      if (roll(2) == 0) disk.write(to, some_bytes(name));
      disk.remove(from);
    }
  }

  void point() {
    const int y = roll(16 * 20);
    const ui::Mouse mouse{.at = {5, y}};
    switch (roll(3)) {
      case 0:
        if (!model.Zoom.shown) break;
        return both(
            "point Zoom", [&] { zoom().ListFilesZoom.on_mouse_move(mouse); },
            [&] { model.ListFilesZoom_move(y); });
      case 1:
        if (!model.ListasZoom.shown) break;
        return both(
            "point ListZoom", [&] { enlarged().ListZoom.on_mouse_move(mouse); },
            [&] { model.ListZoom_move(y); });
      default:
        break;
    }
    const List& list = *lists()[static_cast<std::size_t>(roll(4))];
    both(
        "point " + list.name, [&] { real(list).on_mouse_move(mouse); },
        [&] { model.mouse_move(list, y); });
  }

  void transport() {
    const int which = roll(4);
    if (which == 0 && model.Player.shown) {
      const int i = roll(3);
      return both(
          "Control " + std::to_string(i), [&] { player().Control[i].on_click(); },
          [&] { model.Control_Click(i); });
    }
    if (which == 1 && model.Zoom.shown) {
      return both(
          "Zoom.Play",
          [&] {
            zoom().on_mouse_down();
            zoom().Play.on_click();
          },
          [&] {
            model.press();
            model.Play_Click();
          });
    }
    if (which == 2 && model.Zoom.shown) {
      return both(
          "Zoom.Pause",
          [&] {
            zoom().on_mouse_down();
            zoom().Pause.on_click();
          },
          [&] {
            model.press();
            model.Pause_Click();
          });
    }
    constexpr int kKeys[] = {32, 35, 107, 109, 65};
    const int code = kKeys[roll(5)];
    const int window = roll(3);
    both(
        "key " + std::to_string(code),
        [&] {
          ui::Key key{.code = code};
          if (window == 1 && model.Zoom.shown) return zoom().on_key_down(key);
          if (window == 2 && model.ListasZoom.shown) return enlarged().on_key_down(key);
          form.on_key_down(key);
        },
        [&] { model.key(code); });
  }

  void put_away() {
    const bool close = roll(2) == 0;
    switch (roll(3)) {
      case 0:
        if (!model.Zoom.shown) return;
        return close ? both(
                           "close Zoom", [&] { zoom().Close.on_click(); },
                           [&] { model.close_Zoom(); })
                     : both(
                           "hide Zoom", [&] { zoom().hide(); }, [&] { model.hide_Zoom(); });
      case 1:
        if (!model.ListasZoom.shown) return;
        return close ? both(
                           "close ListasZoom", [&] { enlarged().Close.on_click(); },
                           [&] { model.close_ListasZoom(); })
                     : both(
                           "hide ListasZoom", [&] { enlarged().hide(); },
                           [&] { model.hide_ListasZoom(); });
      default:
        if (!close || !model.Player.shown) {
          return both(
              "cmdPlayer", [&] { form.cmdPlayer.on_click(); }, [&] { model.cmdPlayer_Click(); });
        }
        return both(
            "close Player", [&] { player().CloseW.on_click(); }, [&] { model.close_Player(); });
    }
  }

  void reset() {
    both(
        "reset", [&] { form.cmdReset.on_click(); }, [&] { model.cmdReset_Click(); });
    is_open = false;
  }

  void open_again() {
    both(
        "open again",
        [&] {
          ui::Key key{.code = 116};
          form.on_key_down(key);
        },
        [&] { model.cmdReset_Click(); });
    after_opening();
  }

  void blink() {
    if (!model.TimerVip) return;
    both(
        "blink", [&] { zoom().TimerVip.on_tick(); }, [&] { model.TimerVip_Tick(); });
  }

  void playlist() {
    if (!model.Player.shown) return;
    if (roll(6) == 0) {
      const bool empty = sound().ListaPlay.front().empty();
      sound().ListaPlay.front() = model.ListaPlay.front() =
          empty ? disk.path("C\\Mix\\c.flac") : std::string();
    }
    both(
        "PL", [&] { player().PL.on_click(); }, [&] { model.playlist_button(); });
  }

  // Keys move a row and do nothing else, but for the balloon.
  void keys() {
    List& list = *lists()[static_cast<std::size_t>(roll(4))];
    if (list.rows.empty()) return;
    both(
        "down " + list.name,
        [&] {
          ui::Key key{.code = 40, .focus = &real(list)};
          form.on_key_down(key);
          real(list).key_down(40, 0, 5);
        },
        [&] {
          model.key(40);
          list.current = std::min(list.current + 1, static_cast<int>(list.rows.size()) - 1);
        });
  }

  void scroll() {
    switch (roll(3)) {
      case 0:
        return both(
            "scroll", [&] { form.lists.ListVip.on_scroll(); }, [&] { model.press(); });
      case 1:
        return both(
            "deactivate", [&] { form.on_deactivate(); }, [&] { model.press(); });
      default:
        done += "ClickEnLista; ";
        work.ClickEnLista = model.ClickEnLista = !model.ClickEnLista;
    }
  }

  void other_windows() {
    switch (roll(3)) {
      case 0:
        if (!model.Player.shown) return;
        return both(
            "SA", [&] { player().SAtoggle1.on_click(); }, [&] { model.spectrum_button(); });
      case 1:
        if (!model.Zoom.shown) return;
        return both(
            "PlayerMaster",
            [&] {
              zoom().on_mouse_down();
              zoom().PlayerMaster.on_click();
            },
            [&] {
              model.press();
              model.PlayerMaster_Click();
            });
      default: {
        const int i = roll(2);
        ui::CheckBox& box = boxes().Check1[i];
        box.set_checked(!box.checked());
        model.drives[static_cast<std::size_t>(i)].ticked = box.checked();
        done += "drive; ";
      }
    }
  }

  // Orders of the volume are no matter of these tests, and an order that is repeated at once is
  // one.
  static std::vector<std::string> transport_of(const std::vector<std::string>& orders) {
    std::vector<std::string> kept;
    for (const std::string& order : orders) {
      if (order.starts_with("volume") || order.starts_with("device") ||
          order.starts_with("balance") || (!kept.empty() && kept.back() == order)) {
        continue;
      }
      kept.push_back(order);
    }
    return kept;
  }

  static void expect_text(const ui::Label& label, const LiteralPlayer::Text& text) {
    SCOPED_TRACE(label.name());
    EXPECT_EQ(label.visible(), text.shown);
    if (text.shown) {
      EXPECT_EQ(label.caption(), text.caption);
    }
  }

  void compare() {
    EXPECT_EQ(transport_of(media.orders), transport_of(model.engine.orders));
    media.orders.clear();
    model.engine.orders.clear();
    EXPECT_EQ(media.URL(), model.engine.URL());
    EXPECT_EQ(media.playState(), model.engine.playState());
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(form.play.ImagePlayPauSt[i].visible(), model.ImagePlayPauSt[i]) << "image " << i;
    }
    EXPECT_EQ(windows.visible("Player"), model.Player.shown);
    EXPECT_EQ(windows.visible("Zoom"), model.Zoom.shown);
    EXPECT_EQ(windows.visible("ListasZoom"), model.ListasZoom.shown);
    EXPECT_EQ(windows.visible("SA"), model.SA.shown);
    for (List* const list : lists()) {
      SCOPED_TRACE(list->name);
      EXPECT_EQ(real(*list).rows(), list->rows);
      EXPECT_EQ(real(*list).current(), list->current);
      for (int i = 0; i < 2; ++i) expect_text(heading(*list)[i], list->heading[i]);
    }
    EXPECT_EQ(form.lists.List1.rows(), model.List1);
    EXPECT_EQ(form.strip.TextDecode.visible(), model.TextDecode_shown);
    if (model.TextDecode_shown) {
      EXPECT_EQ(form.strip.TextDecode.text(), model.TextDecode);
    }
    EXPECT_EQ(form.path_strip.ListPath.visible(), model.ListPath_shown);
    EXPECT_EQ(form.path_strip.ListPath.row(0), model.ListPath);
    EXPECT_EQ(form.path_strip.ImageIcon.visible(), model.ImageIcon);
    expect_text(form.clicks.LabelIndice, model.LabelIndice);
    EXPECT_EQ(form.lists.ListVip.tip().empty(), !tips);
    EXPECT_EQ(form.lists.ListProyectos.tip().empty(), !tips);
    EXPECT_EQ(sound().rows.shown_text(), model.balloon);
    EXPECT_EQ(work.ArchivoActual, model.ArchivoActual);
    EXPECT_EQ(work.ListaActual, model.ListaActual ? &real(*model.ListaActual) : nullptr);
    EXPECT_EQ(form.clicks.IndiceActual, model.IndiceActual);
    EXPECT_EQ(work.ZoomConHallados, model.ZoomConHallados);
    compare_player();
    compare_Zoom();
    compare_ListasZoom();
  }

  // Of a window that does not exist the model must have what one shows that has just come to life.
  void compare_player() {
    const audio::Player* const there = windows.find<audio::Player>();
    EXPECT_EQ(there && there->AvisoPL.visible(), model.AvisoPL);
    EXPECT_EQ(!there || there->Control[0].visible(), model.Control[0]) << "Control 0";
    EXPECT_EQ(there && there->Control[1].visible(), model.Control[1]) << "Control 1";
    EXPECT_EQ(there && there->TimerTime.running(), model.TimerTime);
    EXPECT_EQ(there && there->TimerDisplay.running(), model.TimerDisplay);
    EXPECT_EQ(there ? there->LabelDisplay.caption() : "", model.LabelDisplay.caption);
  }

  void compare_Zoom() {
    const audio::Zoom* const there = windows.find<audio::Zoom>();
    EXPECT_EQ(!there || there->Play.visible(), model.Zoom_Play);
    EXPECT_EQ(there && there->Pause.visible(), model.Zoom_Pause);
    EXPECT_EQ(there && there->list_mode(), model.list_mode);
    EXPECT_EQ(there && there->TimerVip.running(), model.TimerVip);
    if (there == nullptr) {
      EXPECT_TRUE(model.ListFilesZoom.empty());
      return;
    }
    EXPECT_EQ(there->ListFilesZoom.rows(), model.ListFilesZoom);
    EXPECT_EQ(there->ListFilesZoom.current(), model.zoom_current);
    EXPECT_EQ(there->CheckAutoPlay.checked(), model.CheckAutoPlay);
    for (const ui::Control* const mark : std::initializer_list<const ui::Control*>{
             &there->ImageIcono, &there->ShapeVip, &there->LabelVip}) {
      EXPECT_EQ(mark->visible(), model.project_marks) << mark->name();
    }
    EXPECT_EQ(there->TextInfo.text(), model.TextInfo);
    expect_text(there->ZoomLabelIndice, model.ZoomLabelIndice);
    expect_text(there->Files, model.Files);
    expect_text(there->LabelNvip, model.LabelNvip);
  }

  void compare_ListasZoom() {
    const audio::ListasZoom* const there = windows.find<audio::ListasZoom>();
    if (there == nullptr) {
      EXPECT_TRUE(model.ListZoom.empty());
      return;
    }
    EXPECT_EQ(there->ListZoom.rows(), model.ListZoom);
    EXPECT_EQ(there->ListZoom.current(), model.ListZoom_current);
    EXPECT_EQ(there->ListZoom.tag(), model.ListZoom_tag);
    EXPECT_EQ(there->LabelTitulo.caption(), model.ListasZoom_title);
    expect_text(there->LabelUp, model.LabelUp);
    expect_text(there->LabelDwn, model.LabelDwn);
    expect_text(there->LZLabelIndice, model.LZLabelIndice);
    EXPECT_EQ(there->ImageIcono.visible(), model.ListasZoom_icon);
  }

  std::mt19937 random;
  LiteralLists model;
  std::map<std::string, std::vector<std::string>> used;  // by the name of a project
  bool is_open = false;
  bool tips = true;
  std::string done;
};

class ListSequence : public ListSequences, public ::testing::WithParamInterface<int> {};

TEST_P(ListSequence, is_what_the_literal_rules_come_to) {
  // Fifty sequences in each.
  begin(static_cast<unsigned>(GetParam()));
  for (int step = 0; step < 50 * 40; ++step) {
    if (step % 40 == 0) {
      done.clear();
      reset();
    }
    act();
    compare();
    if (HasFailure()) FAIL() << step << ": " << done;
  }
  for (const char* const way : {"played 1",
                                "played 2",
                                "played 4",
                                "found and played 1",
                                "found and played 2",
                                "not playable 1",
                                "project among the used",
                                "not playable 4",
                                "same path",
                                "one hit",
                                "several hits",
                                "no hit",
                                "no drive",
                                "enlarged 1",
                                "enlarged 2",
                                "enlarged 3",
                                "enlarged 4",
                                "ListZoom plays",
                                "ListZoom does not play",
                                "Zoom waits",
                                "Zoom plays",
                                "Zoom loads",
                                "decoded",
                                "balloon of ListZoom",
                                "balloon of ListProyectos"}) {
    EXPECT_GT(model.met[way], 0) << way << " was never tried";
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ListSequence, ::testing::Range(1, 11));

}  // namespace
}  // namespace ordelan::test
