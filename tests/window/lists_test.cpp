// The lists of the real program, by clicks and by keys, as a recorder hears them.
#include <windows.h>

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "support/small_project.h"
#include "window/answers.h"
#include "window/drive_settings.h"
#include "window/heard_fixture.h"
#include "window/user_input.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

class ListsOfProgram : public HeardTest {
 protected:
  void SetUp() override {
    HeardTest::SetUp();
    if (IsSkipped()) return;
    copy("tono440.wav", "Mix\\a.wav");
    copy("tono1000.mp3", "Mix\\b.mp3");
    copy("tono1000.wav", "Mix\\resto.wav");
    write("Mix\\aa.wav", "x");  // what follows a used file is struck out with it
    move_to("Otra", "tono1000.wav");
    write("Mix\\tema.vip",
          project_of({path("Mix\\a.wav"), path("Mix\\b.mp3"), path("Mix\\movido.wav")}));
    write("Mix\\voces.vip", project_of({path("Mix\\b.mp3")}));
  }

  void copy(const char* name, const std::string& below) {
    const auto file = folder() / below;
    std::filesystem::create_directories(file.parent_path());
    std::filesystem::copy_file(sound(name), file);
  }
  ~ListsOfProgram() override {
    program.reset();  // it has one of the files open
    std::error_code ignored;
    std::filesystem::remove_all(kElsewhere, ignored);
  }
  // The file that the project has lost stands in that folder of another drive, which is searched.
  static void move_to(const char* where, const char* name) {
    std::filesystem::create_directories(std::filesystem::path(kElsewhere) / where);
    std::filesystem::copy_file(sound(name), found_in(where));
  }
  static std::string found_in(const char* where) {
    return std::string(kElsewhere) + "\\" + where + "\\movido.wav";
  }
  // Without the player, which would stand on the lists.
  void start_with(const std::string& settings) {
    write_settings("E", "Player autom\xE1tico=0\r\nVer tooltips de listas=0\r\n" + settings);
    start();
    open(path("Mix\\tema.vip"));
    wait_decoded();
  }
  int row_of(const std::string& list, const std::string& end) const {
    const auto rows = program->rows(list);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows[i].ends_with(end)) return static_cast<int>(i);
    }
    ADD_FAILURE() << list << " has no row " << end;
    return 0;
  }
  void click(const std::string& list, const std::string& end) {
    program->click_row(list, row_of(list, end));
  }
  static std::string clipboard() {
    std::wstring text;
    if (!OpenClipboard(nullptr)) return "";
    if (const HANDLE held = GetClipboardData(CF_UNICODETEXT)) {
      text = static_cast<const wchar_t*>(GlobalLock(held));
      GlobalUnlock(held);
    }
    CloseClipboard();
    return std::filesystem::path(text).string();
  }
  static constexpr const char* kElsewhere = "E:\\ordelan_movido";

  void tab_to(const std::string& name) {
    for (int i = 0; i < 60 && !program->focused(name); ++i) {
      const std::string before = program->focus();
      program->key(VK_TAB);
      wait_for([&] { return program->focus() != before; });
    }
    ASSERT_TRUE(program->focused(name)) << program->focus();
  }
};

TEST_F(ListsOfProgram, each_list_is_clicked_and_heard) {
  start_with("");
  click("ListVip", "a.wav");
  EXPECT_TRUE(sounds_at(440));
  program->picture_now("lists-playing");
  click("ListUtilizados", "b.mp3");
  EXPECT_TRUE(sounds_at(1000));
  click("ListVip", "a.wav");
  EXPECT_TRUE(sounds_at(440));
  click("ListBorrar", "resto.wav");
  EXPECT_TRUE(sounds_at(1000));
  click("ListProyectos", "voces.vip");
  EXPECT_TRUE(falls_silent());
}

TEST_F(ListsOfProgram, a_right_click_opens_the_list_and_a_row_there_plays) {
  start_with("Zoom_Left=500\r\nZoom_Top=560\r\nAuto Play=1\r\n");
  program->click_row("ListVip", 0);
  program->right_click_row("ListVip", 1);
  EXPECT_EQ(program->selected("ListVip"), 0) << "the choice stays";
  program->use_window("Zoom");
  EXPECT_EQ(program->row_count("ListFilesZoom"), 3u);
  click("ListFilesZoom", "b.mp3");
  EXPECT_TRUE(sounds_at(1000));
  program->hover_row("ListFilesZoom", 0);
  program->wait_until("the number of the row",
                      [&] { return program->text("ZoomLabelIndice") == "Item: 1"; });
  program->picture_now("lists-zoom");
  click("ListFilesZoom", "a.wav");
  EXPECT_TRUE(sounds_at(440));
  program->click("Pause");
  EXPECT_TRUE(falls_silent());
}

TEST_F(ListsOfProgram, an_enlarged_list_plays_and_stops) {
  start_with("ListasZoom_Left=500\r\nListasZoom_Top=560\r\n");
  program->click("ZoomListas");
  click("ListVip", "a.wav");
  program->use_window("ListasZoom");
  EXPECT_THAT(program->text("LabelTitulo"), HasSubstr("Archivos utilizados en Vip: "));
  click("ListZoom", "b.mp3");
  EXPECT_TRUE(sounds_at(1000));
  program->picture_now("lists-enlarged");
  program->right_click_row("ListZoom", 0);
  EXPECT_TRUE(falls_silent());
}

TEST_F(ListsOfProgram, a_lost_row_is_searched_and_heard) {
  start_with("");
  click("ListVip", "movido.wav");
  EXPECT_TRUE(sounds_at(1000));
  EXPECT_THAT(program->text("TextDecode"), HasSubstr("Ha sido encontrado en"));
  program->picture_now("lists-found");
}

TEST_F(ListsOfProgram, several_hits_are_offered_and_one_is_heard) {
  move_to("Mas", "tono440.wav");
  start_with("Zoom_Left=500\r\nZoom_Top=560\r\nAuto Play=1\r\n");
  click("ListVip", "movido.wav");
  program->use_window("Zoom");
  EXPECT_EQ(program->text("Files"), "Hay 2 archivos con el mismo nombre");
  click("ListFilesZoom", "Mas\\movido.wav");
  EXPECT_TRUE(sounds_at(440));
  program->picture_now("lists-hits");
}

TEST_F(ListsOfProgram, keys_alone_lead_from_a_project_to_the_new_path_of_a_lost_file) {
  write_settings("E", "Player autom\xE1tico=0\r\nVer tooltips de listas=0\r\n");
  start();
  program->key('O', true);
  program->pick_files({path("Mix\\tema.vip")});
  wait_decoded();
  tab_to("ListVip");
  program->key(VK_DOWN);
  program->key(VK_END);
  program->wait_until("the last row", [&] { return program->selected("ListVip") == 2; });
  EXPECT_TRUE(falls_silent()) << "keys that move play nothing";
  program->key(VK_RETURN);
  EXPECT_TRUE(sounds_at(1000));
  program->key('C', true, true);
  program->wait_until("the path", [&] { return clipboard() == found_in("Otra"); });
  program->key('C', true);
  program->wait_until("the row", [&] { return clipboard() == path("Mix\\movido.wav"); });
  program->key(VK_SPACE);
  EXPECT_TRUE(falls_silent());
  program->type("a");
  program->wait_until("the row of that letter", [&] { return program->selected("ListVip") == 0; });
  program->key(VK_RETURN);
  EXPECT_TRUE(sounds_at(440));
  program->key(VK_F5);
  program->wait_until("the silence of an opening", [&] { return falls_silent(); });
  wait_decoded();
  EXPECT_EQ(program->row_count("ListVip"), 3u);
}

TEST_F(ListsOfProgram, the_commands_of_a_row_come_by_the_button_and_by_the_key) {
  start_with("");
  program->click_row("ListVip", 0);
  const auto menu = [] {
    const HWND up = FindWindowW(L"#32768", nullptr);
    return up != nullptr && IsWindowVisible(up);
  };
  program->click("cmdFilas(1)");
  program->wait_until("the menu", menu);
  recorder->record(0.3);  // time to be painted
  program->picture_now("lists-menu");
  press_key(VK_DOWN);
  press_key(VK_DOWN);
  press_key(VK_RETURN);
  program->wait_until("all paths", [&] {
    return clipboard() ==
           path("Mix\\a.wav") + "\r\n" + path("Mix\\b.mp3") + "\r\n" + path("Mix\\movido.wav");
  });
  program->click_row("ListUtilizados", 1);
  program->key(VK_APPS);
  program->wait_until("the menu", menu);
  press_key(VK_DOWN);
  press_key(VK_RETURN);
  program->wait_until("the path", [&] { return clipboard() == path("Mix\\a.wav"); });
}

// More rows than any studio has. What is done with all of them at once must not hold up the window:
// the longest wait for an answer is printed. ORDELAN_LONG_LISTS asks for it, as it takes a while.
TEST_F(ListsOfProgram, two_hundred_thousand_rows_are_moved_marked_copied_and_shown) {
  if (std::getenv("ORDELAN_LONG_LISTS") == nullptr) GTEST_SKIP() << "long lists were not asked for";
  constexpr int kRows = 200'000;
  std::filesystem::create_directories(folder() / "Largo");
  {
    std::ofstream file(folder() / "Largo" / "largo.vip", std::ios::binary);
    file << std::string(96, 'x') << "cabecera" << '\0';
    for (int i = 0; i < kRows; ++i) {
      std::string field = path("Largo\\Toma " + std::to_string(1'000'000 + i) + ".wav");
      field.resize(260);
      file << field;
    }
    file << std::string("    LIST\0\0\0\0mdrl tail", 21);
  }
  write_settings("E",
                 "Player autom\xE1tico=0\r\nZoom_Left=500\r\nZoom_Top=560\r\n"
                 "ListasZoom_Left=500\r\nListasZoom_Top=560\r\n");
  start();
  open(path("Largo\\largo.vip"));
  watch_answers(*program, "opened in", [&] { return program->visible("ZoomListas"); });
  ASSERT_EQ(program->row_count("ListVip"), static_cast<std::size_t>(kRows));
  const auto answers_after = [&](const std::string& what, const std::function<void()>& act) {
    act();
    const auto begun = std::chrono::steady_clock::now();
    watch_answers(*program, what, [&] {
      return std::chrono::steady_clock::now() - begun > std::chrono::seconds(1);
    });
  };
  tab_to("ListVip");
  program->key(VK_HOME);
  answers_after("End", [&] { program->key(VK_END); });
  program->key(VK_HOME);
  answers_after("End once more", [&] { program->key(VK_END); });
  EXPECT_EQ(program->selected("ListVip"), kRows - 1);
  answers_after("Shift and Home", [&] { program->key(VK_HOME, false, true); });
  answers_after("Ctrl and A", [&] { program->key('A', true); });
  answers_after("Ctrl and C of all", [&] { program->key('C', true); });
  EXPECT_GT(clipboard().size(), 40u * kRows);
  answers_after("letters", [&] { program->type("toma 1199"); });
  program->key(VK_HOME);
  // The first time the window is made as well.
  answers_after("a right click, with a new window",
                [&] { program->right_click_row("ListVip", 0); });
  answers_after("a right click", [&] { program->right_click_row("ListVip", 0); });
  program->use_window("Zoom");
  EXPECT_EQ(program->row_count("ListFilesZoom"), static_cast<std::size_t>(kRows));
  program->close_window();
  program->use_window("Form1");
  program->click("ZoomListas");
  answers_after("an enlarged list, in a new window", [&] { program->click_row("ListVip", 0); });
  EXPECT_TRUE(program->window_shown("ListasZoom"));
  program->click_row("ListUtilizados", 0);
  answers_after("an enlarged list", [&] { program->click_row("ListVip", 0); });
}

}  // namespace
}  // namespace ordelan::test
