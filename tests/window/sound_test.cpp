// The sound of the real program, by clicks, as a recorder hears it.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "window/heard_fixture.h"
#include "window/user_input.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

class SoundOfProgram : public HeardTest {
 protected:
  void SetUp() override {
    HeardTest::SetUp();
    if (IsSkipped()) return;
    start();
    program->click("cmdPlayer");
    program->use_window("Player");
  }

  void open(const std::string& name) { open_path(sound(name)); }
  void open_path(const std::string& file) {
    program->click("OpenFile");
    program->pick_files({file});
    program->wait_until("the player", [&] { return program->window_shown("Player"); });
  }
  void play() {
    program->click("Control(0)");
    wait_for([&] { return level(recorder->record(0.03)) > kHeard; });
  }
  // The level, once it stays as it is.
  double steady_level() {
    double last = 0;
    double now = level(recorder->record(0.2));
    wait_for([&] {
      last = now;
      now = level(recorder->record(0.2));
      return std::abs(now - last) < 0.01 * now;
    });
    return now;
  }
  static void click_on_screen(const RECT& place) {
    move_mouse({(place.left + place.right) / 2, (place.top + place.bottom) / 2});
    click_mouse();
  }
  // The head of a wav of 16 bits, as long as such a head can say.
  static std::string wav_head() {
    std::string head(
        "RIFF\xFF\xFF\xFF\xFFWAVEfmt \x10\0\0\0\x01\0\x02\0\x44\xAC\0\0\x10\xB1\x02\0\x04\0\x10\0",
        36);
    return head + "data\xDB\xFF\xFF\xFF";
  }

  // Whether the program answers each message within five seconds, for that long.
  bool answers_for(std::chrono::milliseconds time) const {
    const auto until = std::chrono::steady_clock::now() + time;
    DWORD_PTR answer = 0;
    while (std::chrono::steady_clock::now() < until) {
      if (!SendMessageTimeoutW(program->window(), WM_NULL, 0, 0, SMTO_NORMAL, 5000, &answer)) {
        return false;
      }
      Sleep(20);
    }
    return true;
  }
  // The buttons change their pictures, whatever the engine makes of the file.
  void expect_transport() {
    EXPECT_TRUE(answers_for(std::chrono::seconds(2)));
    program->click("Control(2)");
    program->wait_until("the button for play", [&] { return program->visible("Control(0)"); });
    program->click("Control(0)");
    program->wait_until("the button for a pause", [&] { return program->visible("Control(1)"); });
    EXPECT_TRUE(answers_for(std::chrono::seconds(1)));
    const std::string time = program->text("LabelTime");
    EXPECT_EQ(time.size(), 5u) << time;
    program->click("Control(2)");
    program->wait_until("the button for play", [&] { return program->visible("Control(0)"); });
  }

  // Programs of the system below Wine, which knows neither open files nor drives of Windows.
  using NativeName = char*(CDECL*)(const wchar_t*);
  static NativeName native_name() {
    return reinterpret_cast<NativeName>(reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
  }
  static bool can_run_native() { return native_name() != nullptr; }
  static std::wstring widen(const std::string& text) {
    return std::filesystem::path(text).wstring();
  }
  // A file's name there.
  static std::wstring native(const std::filesystem::path& file) {
    char* const name = native_name()(file.c_str());
    std::wstring wide = name != nullptr ? widen(name) : L"";
    if (name != nullptr) HeapFree(GetProcessHeap(), 0, name);
    return L'"' + wide + L'"';
  }
  // Nothing says when such a program has ended: what it does is waited for.
  static void run_native(const std::wstring& tool, const std::wstring& words) {
    std::wstring command = L"Z:\\usr\\bin\\" + tool + L" " + words;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                               nullptr, &start, &process));
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }

  static constexpr int kBars = 30;
  // The frequency in the middle of a bar: thirds of an octave from 25 Hz on.
  static double bar_frequency(int bar) { return 1000 * std::pow(10, (bar - 16) / 10.0); }
  // The bar of SA, the window in use, that reaches highest on the screen; -1 where there is none.
  int highest_bar() const {
    const RECT place = program->place_of("WindowsMediaPlayer");
    const int width = place.right - place.left;
    const int height = place.bottom - place.top;
    int best = -1;
    for (int y = 0; y < height && best < 0; y += 2) {
      for (int bar = 0; bar < kBars; ++bar) {
        const int x = width * (2 * bar + 1) / (2 * kBars);
        const COLORREF seen = program->pixel("WindowsMediaPlayer", {x, y});
        // Bars are green; the ground, its lines and the marks are grey.
        if (GetGValue(seen) > GetRValue(seen) + 40) best = bar;
      }
    }
    return best;
  }
};

TEST_F(SoundOfProgram, every_kind_of_file_is_heard_with_its_pitch) {
  for (const char* const kind : {"wav", "mp3", "flac", "ogg", "m4a", "wma", "aif"}) {
    for (const int pitch : {440, 1000}) {
      open("tono" + std::to_string(pitch) + "." + kind);
      EXPECT_LT(level(recorder->record(0.1)), kSilent) << kind << ": it waits for play";
      play();
      EXPECT_TRUE(sounds_at(pitch)) << kind << " " << pitch;
    }
  }
}

TEST_F(SoundOfProgram, pause_and_stop_are_silent_and_the_end_stops_by_itself) {
  open("tono1000.wav");
  play();
  program->click("Control(1)");
  EXPECT_TRUE(falls_silent());
  EXPECT_TRUE(program->visible("Control(0)"));
  play();
  program->click("Control(2)");
  EXPECT_TRUE(falls_silent());
  play();
  // Three seconds later.
  program->wait_until("the end", [&] { return program->visible("Control(0)"); });
  EXPECT_TRUE(falls_silent());
}

TEST_F(SoundOfProgram, the_level_follows_the_volume) {
  open("tono_largo.wav");
  play();
  const auto set_volume = [this](WORD key, int times, const char* shown) {
    for (int i = 0; i < times; ++i) program->key(key);
    program->wait_until("the volume", [&] { return program->text("LabelVol") == shown; });
    return steady_level();
  };
  const double half = set_volume(VK_ADD, 10, "-40 dB");  // 50, from the 40 of every opened file
  EXPECT_GT(half, kHeard);
  const double quarter = set_volume(VK_SUBTRACT, 25, "-65 dB");
  EXPECT_NEAR(decibels(quarter / half), 40 * std::log10(25.0 / 50), 0.5);
}

// The pitch of the sound that is heard first after a seek shows where the engine has gone.
TEST_F(SoundOfProgram, a_click_on_the_slider_seeks_to_its_place) {
  struct Kind {
    const char* name;
    double slack;  // seconds
  };
  for (const Kind& kind : {Kind{"subida.wav", 0.05}, Kind{"subida.mp3", 0.2}}) {
    open(kind.name);
    play();
    for (const int at : {150, 40, 100}) {
      program->click("Control(1)");
      ASSERT_TRUE(falls_silent());
      program->click_at("SliderTime", {at, 9});
      const Samples silence = recorder->record(0.05);
      EXPECT_LT(level(silence), kSilent);
      program->click("Control(0)");
      wait_for([&] { return level(recorder->record(0.01)) > kHeard; });
      const Samples heard = recorder->record(0.04);
      // The pitch at the middle of what was measured; its beginning was up to a turn before it.
      const double seconds = (frequency(heard) - 400) / 100;
      EXPECT_NEAR(seconds, 30.0 / 200 * at + 0.03, kind.slack) << kind.name << " at " << at;
    }
  }
}

TEST_F(SoundOfProgram, the_highest_bar_of_the_spectrum_is_that_of_the_tone) {
  program->click("SAtoggle1");
  for (const int pitch : {440, 1000}) {
    program->use_window("Player");
    open("tono" + std::to_string(pitch) + ".wav");
    play();
    program->use_window("SA");
    EXPECT_TRUE(wait_for([&] {
      const int bar = highest_bar();
      return bar >= 0 && std::abs(std::log2(bar_frequency(bar) / pitch)) < 1.0 / 6;
    })) << pitch;
  }
  program->picture_now("sound-spectrum");
  program->use_window("Player");
  program->picture_now("sound-player");
  if (program->visible("Control(1)")) program->click("Control(2)");
  ASSERT_TRUE(falls_silent());
  program->use_window("SA");
  EXPECT_TRUE(wait_for([&] { return highest_bar() < 0; })) << "it falls to nothing";
}

TEST_F(SoundOfProgram, the_playlist_shows_the_files_and_a_click_on_one_plays_it) {
  program->click("PL");
  program->wait_until("the notice", [&] { return program->visible("AvisoPL"); });
  EXPECT_EQ(program->text("AvisoPL"), "PlayList vacio\r\nClic ocultar");
  program->click("OpenFile");
  program->pick_files({sound("tono1000.mp3"), sound("tono440.wav"), sound("tono440.flac")});
  program->wait_until("the player", [&] { return program->window_shown("Player"); });
  EXPECT_FALSE(program->visible("AvisoPL"));
  program->click("PL");
  program->use_window("Zoom");
  EXPECT_THAT(program->rows("ListFilesZoom").size(), 4u) << "the last one is empty";
  EXPECT_EQ(program->text("Files"), "Cargados: 3 archivos de audio");
  program->click("CheckAutoPlay");
  program->click_row("ListFilesZoom", 1);
  EXPECT_TRUE(sounds_at(440));
  program->click_row("ListFilesZoom", 0);
  EXPECT_TRUE(sounds_at(1000));
  program->picture_now("sound-playlist");
  program->click("Pause");
  EXPECT_TRUE(falls_silent());
  program->click("Play");
  EXPECT_TRUE(sounds_at(1000));
}

// A file that is no audio, and one that is missing, among files that play.
TEST_F(SoundOfProgram, what_cannot_be_played_says_why_and_the_next_file_sounds) {
  write("nada.wav", "nada de nada");
  open_path(path("nada.wav"));
  program->click("Control(0)");
  program->wait_until("the reason", [&] { return !program->text("LabelAviso").empty(); });
  EXPECT_EQ(program->text("LabelTime"), "00:00");
  program->picture_now("sound-notice");
  open("tono1000.wav");
  play();
  EXPECT_TRUE(sounds_at(1000));
}

TEST_F(SoundOfProgram, its_menu_shows_what_is_known_of_the_file) {
  open("tono1000.mp3");
  program->wait_until("the volume", [&] { return program->text("LabelVol") == "-50 dB"; });
  const auto shown = [](const wchar_t* kind, int height) {
    for (HWND one = FindWindowExW(nullptr, nullptr, kind, nullptr); one != nullptr;
         one = FindWindowExW(nullptr, one, kind, nullptr)) {
      RECT area{};
      GetWindowRect(one, &area);
      if (IsWindowVisible(one) && area.bottom - area.top >= height) return true;
    }
    return false;
  };
  const auto menu = [&] { return shown(L"#32768", 1); };
  // The tooltip of the button under the pointer is one line.
  const auto balloon = [&] { return shown(TOOLTIPS_CLASSW, 60); };
  // The screen's news of the file dialog's end come late here, and cancel a menu that is open by
  // then: only one that stays is used.
  program->wait_until("a menu that stays", [&] {
    program->key(VK_APPS);
    if (!wait_for(menu)) return false;
    recorder->record(0.5);
    return menu();
  });
  program->key(VK_DOWN);
  recorder->record(0.2);  // time to be painted
  program->picture_now("sound-menu");
  ASSERT_TRUE(menu());
  ASSERT_FALSE(balloon());
  program->key(VK_RETURN);
  program->wait_until("the balloon", balloon);
  recorder->record(0.2);
  program->picture_now("sound-info");
  program->key(VK_HOME);
  program->wait_until("its end", [&] { return !balloon(); });
}

// What the labels show of such a file is what the engine says of it, and nothing waits for it.
TEST_F(SoundOfProgram, a_huge_file_and_an_empty_one_hold_up_nothing) {
  write("largo.wav", wav_head());
  lengthen(folder() / L"largo.wav", std::uint64_t{5} << 30);
  write("vacio.wav", "");
  for (const char* const name : {"largo", "vacio"}) {
    SCOPED_TRACE(name);
    open_path(path(name + std::string(".wav")));
    program->click("Control(0)");
    program->wait_until("the button for a pause", [&] { return program->visible("Control(1)"); });
    EXPECT_TRUE(answers_for(std::chrono::seconds(2)));
    program->wait_until(
        "the title", [&] { return program->text("LabelDisplay").find(name) != std::string::npos; });
    if (name == std::string("vacio")) {
      EXPECT_EQ(program->text("LabelTime"), "00:00");
      program->wait_until("the reason", [&] { return !program->text("LabelAviso").empty(); });
    }
    program->click("Control(2)");
    program->wait_until("the button for play", [&] { return program->visible("Control(0)"); });
  }
  open("tono1000.wav");
  play();
  EXPECT_TRUE(sounds_at(1000));
}

// A file that is open cannot be removed, but a shared folder or a drive can lose it.
TEST_F(SoundOfProgram, a_file_or_drive_that_goes_while_it_plays_holds_up_nothing) {
  if (!can_run_native()) GTEST_SKIP() << "only Wine can take an open file away";
  const auto copy = [&](const char* name) {
    std::filesystem::copy_file(sound("tono_largo.wav"), folder() / name);
    return path(name);
  };
  const std::vector<std::pair<const char*, std::function<void(const std::string&)>>> ways = {
      {"removed.wav", [](const std::string& file) { run_native(L"rm", native(file)); }},
      {"cut.wav",
       [](const std::string& file) { run_native(L"truncate", L"-s 5000 " + native(file)); }}};
  for (const auto& [name, take_away] : ways) {
    SCOPED_TRACE(name);
    const std::string file = copy(name);
    open_path(file);
    play();
    take_away(file);
    ASSERT_TRUE(wait_for([&] {
      std::error_code error;
      const auto size = std::filesystem::file_size(file, error);
      return error || size == 5000;
    }));
    expect_transport();
  }
  // A drive of Wine is a link to a folder.
  const char* const prefix = std::getenv("WINEPREFIX");
  ASSERT_NE(prefix, nullptr);
  const std::wstring drive = widen(prefix) + L"/dosdevices/t:";
  run_native(L"ln", L"-sfn " + native(folder()) + L" " + drive);
  copy("drive.wav");
  ASSERT_TRUE(wait_for([] { return std::filesystem::exists("T:\\drive.wav"); }));
  open_path("T:\\drive.wav");
  play();
  run_native(L"rm", drive);
  ASSERT_TRUE(wait_for([] { return !std::filesystem::exists("T:\\drive.wav"); }));
  expect_transport();
  open("tono1000.wav");
  play();
  EXPECT_TRUE(sounds_at(1000));
}

// As many as ORDELAN_SOUND_ACTIONS says. How much the program holds meanwhile is to be seen from
// outside: the counters of Wine stand still.
TEST_F(SoundOfProgram, outlives_random_actions) {
  const char* const count = std::getenv("ORDELAN_SOUND_ACTIONS");
  if (count == nullptr) GTEST_SKIP() << "no number of actions was given";
  write("nada.wav", "nada de nada");
  write("largo.wav", wav_head());
  lengthen(folder() / L"largo.wav", std::uint64_t{5} << 30);
  const std::vector<std::string> files = {
      sound("tono.wav"), sound("tono.mp3"),   sound("tono.flac"),  sound("tono.ogg"),
      sound("tono.m4a"), sound("tono.wma"),   sound("tono.aif"),   path("nada.wav"),
      path("largo.wav"), sound("subida.wav"), sound("subida.mp3"), sound("tono440.wav")};
  std::mt19937 random(20261122);
  const auto below = [&](int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
  };
  const auto show_player = [&] {
    program->use_window("Form1");
    if (!program->window_shown("Player")) program->click("cmdPlayer");
    program->use_window("Player");
  };
  for (int i = 0; i < std::stoi(count); ++i) {
    show_player();
    switch (below(9)) {
      case 0:
        open_path(files[static_cast<std::size_t>(below(static_cast<int>(files.size())))]);
        break;
      case 1:
      case 2:
        // Either of the two buttons: one may become the other as a file ends.
        click_on_screen(program->place_of("Control(0)"));
        break;
      case 3:
        program->click("Control(2)");
        break;
      case 4:
      case 5:
        program->click_at("SliderTime", {below(200), 9});
        break;
      case 6:
        program->key(below(2) == 0 ? VK_ADD : VK_SUBTRACT);
        break;
      case 7: {
        const bool shown = program->window_shown("SA");
        program->click("SAtoggle1");
        program->wait_until("the spectrum", [&] { return program->window_shown("SA") != shown; });
        if (shown || below(3) != 0) break;
        program->use_window("SA");
        program->click("Close");
        program->use_window("Player");
        program->wait_until("its end", [&] { return !program->window_shown("SA"); });
        break;
      }
      default:
        if (below(4) == 0) {
          program->click("CloseW");
          program->use_window("Form1");
          program->wait_until("its end", [&] { return !program->window_shown("Player"); });
        } else {
          program->key(VK_END);
        }
    }
    if (i % 100 == 99) std::cout << i + 1 << " actions" << std::endl;
  }
  show_player();
  open("tono1000.wav");
  play();
  EXPECT_TRUE(sounds_at(1000));
}

// Plays for as many seconds as ORDELAN_SOUND_SECONDS says with the spectrum hidden, and as many
// with it shown, and prints how busy the program was.
TEST_F(SoundOfProgram, reports_its_times) {
  const char* const seconds = std::getenv("ORDELAN_SOUND_SECONDS");
  if (seconds == nullptr) GTEST_SKIP() << "no number of seconds was given";
  open("tono_largo.wav");
  play();
  const auto busy = [&](const char* what) {
    const double before = program->processor_seconds();
    const auto begun = std::chrono::steady_clock::now();
    recorder->record(std::stod(seconds));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - begun;
    std::cout << what << ": " << 100 * (program->processor_seconds() - before) / passed.count()
              << " % of a core" << std::endl;
  };
  busy("hidden");
  program->click("SAtoggle1");
  busy("shown");
}

}  // namespace
}  // namespace ordelan::test
