// Random sequences of what a user does to the player, beside the literal model of its rules.
#include <gmock/gmock.h>

#include <random>

#include "audio/literal_player.h"
#include "audio/zoom.h"
#include "support/sound_program.h"

namespace ordelan::test {
namespace {

struct PlayerSequences : testing::Test, SoundProgram {
  audio::Zoom& zoom() { return *program.windows.touch<audio::Zoom>(); }
  main_window::PlayMarks& marks() { return program.form.play; }

  void begin(unsigned seed) {
    random.seed(seed);
    start("Player_Left=300\r\nPlayer_Top=500\r\nVolumen=70\r\n");
    for (const auto& [name, seconds] :
         {std::pair{"a.wav", 12.4}, {"b.mp3", 75.5}, {"c.MP3", 3725.0}, {"d.wav", 0.0}}) {
      paths.push_back(song(name, seconds));
      files.push_back(name);
    }
    paths.push_back(disk.path("falta.wav"));  // the engine cannot play it
    files.push_back("falta.wav");
    model.engine.files = media.files;
    scratch.set_font(player().LabelDisplay.font());
    model.width_of = [this](const std::string& caption) {
      scratch.set_caption(caption);
      return scratch.text_width();
    };
    model.Volumen = 70;
    model.Player_Left = 300;
    model.Player_Top = 500;
    model.Player_Load();
    model.LabelDisplay.caption = player().LabelDisplay.caption();
    model.SA = {.left = spectrum().position().x, .top = spectrum().position().y};
    model.Zoom_Vol.set(70);
    model.Zoom_LabelVol = "-20 dB";
    for (int i = 0; i < 3; ++i) model.ImagePlayPauSt[i] = marks().ImagePlayPauSt[i].visible();
    zoom();
    media.orders.clear();
    model.engine.orders.clear();
  }

  int roll(int sides) { return static_cast<int>(random() % static_cast<unsigned>(sides)); }

  void both(const std::string& what, const std::function<void()>& program_does,
            const std::function<void()>& model_does) {
    done += what + "; ";
    program_does();
    model_does();
  }

  void act() {
    switch (roll(17)) {
      case 0:
      case 1: {
        const int i = roll(3);
        both(
            "control " + std::to_string(i), [&] { player().Control[i].on_click(); },
            [&] { model.Control_Click(i); });
        break;
      }
      case 2:
        open();
        break;
      case 3:
        both(
            "PL", [&] { player().PL.on_click(); }, [&] { model.PL_Click(); });
        break;
      case 4:
        both(
            "SA", [&] { player().SAtoggle1.on_click(); }, [&] { model.SAtoggle1_Click(); });
        break;
      case 5:
        both(
            "cmdPlayer", [&] { program.form.cmdPlayer.on_click(); },
            [&] { model.cmdPlayer_Click(); });
        break;
      case 6: {
        constexpr int kKeys[] = {32, 35, 107, 109, 187};
        const int key = kKeys[roll(5)];
        both(
            "key " + std::to_string(key), [&] { press(player(), key); },
            [&] { model.Form_KeyDown(key); });
        break;
      }
      case 7: {
        const int value = roll(101);
        both(
            "volume " + std::to_string(value),
            [&] {
              player().SliderVol.set_value(value);
              player().SliderVol.on_change(value);
            },
            [&] { model.SliderVol_Change(value); });
        break;
      }
      case 8: {
        const int value = roll(player().SliderTime.max() + 1);
        both(
            "place " + std::to_string(value),
            [&] {
              player().SliderTime.set_value(value);
              player().SliderTime.on_change(value);
            },
            [&] { model.SliderTime_Change(value); });
        break;
      }
      case 9: {
        const int x = roll(201);
        both(
            "click at " + std::to_string(x),
            [&] {
              player().SliderTime.on_mouse_up({.at = {x, 3}, .button = ui::kLeftButton});
            },
            [&] { model.SliderTime_MouseUp(x); });
        break;
      }
      case 10:
        both(
            "double click", [&] { player().Form_DblClick(); }, [&] { model.Form_DblClick(); });
        break;
      case 11: {
        const ui::Point place{roll(800), 400 + roll(400)};
        both(
            "drag",
            [&] {
              player().moved_to(place);
              player().on_drag_end();
            },
            [&] { model.drag_to(place.x, place.y); });
        break;
      }
      case 12:
        minimize();
        break;
      case 13:
        if (roll(4) == 0) {
          both(
              "close",
              [&] {
                player().CloseW.on_click();
                program.windows.free_closed();
                player();
              },
              [&] {
                model.CloseW_Click();
                model.Player_Load();
              });
          // A title of its own stands in a new one until a file is shown.
          model.LabelDisplay.caption = player().LabelDisplay.caption();
        }
        break;
      default:
        pass_time(roll(2) == 0 ? 0.05 * (1 + roll(20)) : 4.0 * (1 + roll(10)));
        break;
    }
  }

  void open() {
    std::vector<std::string> picked;
    std::string name;
    const int count = roll(4);
    for (int i = 0; i < count; ++i) {
      const auto which = static_cast<std::size_t>(roll(static_cast<int>(paths.size())));
      picked.push_back(paths[which]);
      name += (i == 0 ? "" : std::string(1, '\0')) + files[which];
    }
    // One file is picked by its whole path, several by their folder and their names.
    if (count == 1) name = picked[0];
    if (count > 1) name = disk.path("") + std::string(1, '\0') + name;
    both(
        "open " + std::to_string(count),
        [&] {
          dialogs.files.clear();
          dialogs.files.push_back(picked);
          player().OpenFile.on_click();
        },
        [&] { model.OpenFile_Click(name); });
  }

  void minimize() {
    switch (roll(3)) {
      case 0:
        if (!model.Player.shown) return;
        both(
            "minimise Player", [&] { player().cmdMinimizar.on_click(); },
            [&] { model.Player.minimized = true; });
        break;
      case 1:
        if (!model.SA.shown) return;
        both(
            "minimise SA", [&] { spectrum().cmdMinimizar.on_click(); },
            [&] { model.SA.minimized = true; });
        break;
      default:
        if (!model.Zoom.shown) return;
        both(
            "minimise Zoom", [&] { zoom().cmdMinimizar.on_click(); },
            [&] { model.Zoom.minimized = true; });
    }
  }

  // Time for the engine, and then a tick of each timer that runs.
  void pass_time(double seconds) {
    both(
        "pass " + std::to_string(seconds),
        [&] {
          media.advance(seconds);
          if (player().TimerTime.running()) player().TimerTime.on_tick();
          if (player().TimerDisplay.running()) player().TimerDisplay.on_tick();
        },
        [&] {
          model.engine.advance(seconds);
          if (model.TimerTime) model.TimerTime_Tick();
          if (model.TimerDisplay) model.TimerDisplay_Tick();
        });
  }

  static std::vector<std::string> transport(const std::vector<std::string>& orders) {
    std::vector<std::string> kept;
    for (const std::string& order : orders) {
      if (!order.starts_with("volume") && !order.starts_with("device")) kept.push_back(order);
    }
    return kept;
  }

  static void expect_view(const ui::Window& window, const LiteralPlayer::View& view) {
    SCOPED_TRACE(window.name());
    EXPECT_EQ(window.visible(), view.shown);
    EXPECT_EQ(window.minimized(), view.minimized);
    EXPECT_EQ(window.position(), (ui::Point{view.left, view.top}));
  }
  static void expect_text(const ui::Label& label, const LiteralPlayer::Text& text) {
    SCOPED_TRACE(label.name());
    EXPECT_EQ(label.caption(), text.caption);
    EXPECT_EQ(label.visible(), text.shown);
  }
  static void expect_slider(const ui::Slider& slider, const LiteralPlayer::Slider& expected) {
    SCOPED_TRACE(slider.window().name() + "." + slider.name());
    EXPECT_EQ(slider.value(), expected.value);
    EXPECT_EQ(slider.max(), expected.max);
  }

  void compare() {
    model.Zoom.left = zoom().position().x;  // no rule moves it
    model.Zoom.top = zoom().position().y;
    expect_view(player(), model.Player);
    expect_view(spectrum(), model.SA);
    expect_view(zoom(), model.Zoom);
    EXPECT_EQ(player().AvisoPL.visible(), model.AvisoPL);
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(player().Control[i].visible(), model.Control[i]) << "Control " << i;
      EXPECT_EQ(marks().ImagePlayPauSt[i].visible(), model.ImagePlayPauSt[i]) << "image " << i;
    }
    expect_text(player().LabelTime, model.LabelTime);
    expect_text(player().LabelVol, model.LabelVol);
    expect_text(player().mp3Baud, model.mp3Baud);
    expect_text(player().LabelDisplay, model.LabelDisplay);
    EXPECT_EQ(player().LabelDisplay.text_left(), model.title_left);
    expect_slider(player().SliderTime, model.SliderTime);
    expect_slider(player().SliderVol, model.SliderVol);
    EXPECT_EQ(player().TimerTime.running(), model.TimerTime);
    EXPECT_EQ(player().TimerDisplay.running(), model.TimerDisplay);
    EXPECT_EQ(player().EnReproduccion, model.EnReproduccion);
    EXPECT_EQ(marks().LabelVol.caption(), model.main_LabelVol);
    EXPECT_EQ(spectrum().LabelTime.caption(), model.spectrum_time);
    EXPECT_EQ(zoom().ListFilesZoom.rows(), model.ListFilesZoom);
    expect_text(zoom().Files, model.Files);
    expect_text(zoom().LabelNvip, model.LabelNvip);
    EXPECT_EQ(zoom().Play.visible(), model.Zoom_Play);
    EXPECT_EQ(zoom().Pause.visible(), model.Zoom_Pause);
    expect_slider(zoom().SliderTime, model.Zoom_Time);
    expect_slider(zoom().SliderVol, model.Zoom_Vol);
    EXPECT_EQ(zoom().LabelVol.caption(), model.Zoom_LabelVol);
    EXPECT_EQ(sound().ListaPlay, model.ListaPlay);
    EXPECT_EQ(transport(media.orders), transport(model.engine.orders));
    EXPECT_EQ(media.volume(), model.engine.volume());
  }

  std::mt19937 random;
  LiteralPlayer model;
  ui::Window scratch_window{backend, "scratch"};
  ui::Label scratch{scratch_window, "scratch"};
  std::vector<std::string> paths;
  std::vector<std::string> files;
  std::string done;
};

class PlayerSequence : public PlayerSequences, public testing::WithParamInterface<int> {};

TEST_P(PlayerSequence, is_what_the_literal_rules_come_to) {
  // Fifty sequences in each.
  const int block = GetParam();
  begin(static_cast<unsigned>(block));
  for (int step = 0; step < 50 * 40; ++step) {
    if (step % 40 == 0) done.clear();
    act();
    compare();
    if (HasFailure()) {
      FAIL() << done;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlayerSequence, testing::Range(1, 11));

}  // namespace
}  // namespace ordelan::test
