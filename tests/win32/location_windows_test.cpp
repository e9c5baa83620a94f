// The search for a lost file, with everything that can come in between while it pumps.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <utility>

#include "location/drive_window.h"
#include "location/path_choice_window.h"
#include "location/search_window.h"
#include "screen_picture.h"
#include "ui/timer.h"
#include "win32/program_fixture.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using Clock = std::chrono::steady_clock;

// A tree that takes a while to walk. It is made once.
class LargeTree {
 public:
  static constexpr int kFolders = 100;
  static constexpr int kFiles = 200;  // in each of them
  static constexpr int kAll = kFolders * kFiles;

  LargeTree() {
    for (int i = 0; i < kFolders; ++i) {
      const std::string folder = "grande\\" + std::to_string(1000 + i);
      disk.make_folder(folder);
      for (int j = 0; j < kFiles; ++j) {
        const auto file = disk.native_path(folder + "\\toma " + std::to_string(j) + ".wav");
        CloseHandle(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
      }
    }
  }

  TestDisk disk;
};

LargeTree& large_tree() {
  static LargeTree tree;
  return tree;
}

class LocationWindows : public ProgramTest {
 protected:
  std::string folder_as_drive(const std::string& name) {
    disk.make_folder(name);
    return disk.path(name + "\\");
  }

  bool search(const std::string& file) {
    return program->windows.touch<location::Buscar>()->BuscarEnTodasUnidades(
        file, program->form.lists.ListVip);
  }

  // A press of the mouse as it comes from the queue.
  static void post_press(HWND target, int x, int y) {
    PostMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
    PostMessageW(target, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  }
};

// Does something at each tick of a real timer, until it says that it is done.
class AtEachTick {
 public:
  AtEachTick(ui::Window& window, ui::Backend& backend, std::function<bool()> act)
      : timer_(window, "Prueba", std::chrono::milliseconds(10)) {
    timer_.on_tick = [this, act = std::move(act)] {
      if (std::exchange(inside_, true)) return;  // what it does may pump
      if (act()) timer_.stop();
      inside_ = false;
    };
    timer_.attach(backend);
    timer_.start();
  }

 private:
  ui::Timer timer_;
  bool inside_ = false;
};

TEST_F(LocationWindows, a_press_on_a_row_of_the_choice_ends_the_search_with_its_path) {
  const std::string d = folder_as_drive("d");
  const std::string e = folder_as_drive("e");
  disk.write("d\\Canción del Año\\toma.wav", "");
  disk.write("e\\Copia de seguridad\\Estudio 2019\\toma.wav", "");
  start({d, e});
  program->work.ModoPosiciones = true;
  bool found = false;
  int waited = 0;
  int rows = 0;
  // The search itself runs in an event of the main loop, as a click begins it.
  AtEachTick begin(program->form, backend, [&] {
    AtEachTick press(program->form, backend, [&] {
      const HWND list = control(L"ElegirRuta", L"ListElegirRuta");
      if (!list || !IsWindowVisible(list) || ++waited < 5) return false;
      rows = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
      save_screen("location-choice");
      RECT row{};
      SendMessageW(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
      post_press(list, row.left + 10, (row.top + row.bottom) / 2);
      return true;
    });
    found = search("X:\\Mix\\toma.wav");
    backend.end();
    return true;
  });
  backend.run();
  EXPECT_TRUE(found);
  EXPECT_EQ(rows, 2);
  EXPECT_EQ(program->work.ArchivoActual, e + "Copia de seguridad\\Estudio 2019\\toma.wav");
  EXPECT_FALSE(top_level(L"ElegirRuta"));
}

TEST_F(LocationWindows, a_cancel_in_the_middle_of_a_walk_ends_it) {
  start({large_tree().disk.folder()});
  const HWND button = control(L"Form1", L"cmdCancelar");
  ASSERT_TRUE(button);
  std::optional<Clock::time_point> pressed;
  files.slow = true;
  files.on_entry = [&] {
    if (pressed || files.seen < LargeTree::kAll / 10) return;
    program->form.cmdCancelar.show();
    post_press(button, 3, 3);
    pressed = Clock::now();
  };
  const bool found = search("no está.wav");
  const auto ended = Clock::now();
  ASSERT_TRUE(pressed);
  const auto took = std::chrono::duration_cast<std::chrono::microseconds>(ended - *pressed).count();
  std::cout << "from the press on Cancelar to the end of the search: " << took << " us, "
            << files.seen << " of " << LargeTree::kAll << " files seen\n";
  RecordProperty("cancel_microseconds", static_cast<int>(took));
  EXPECT_FALSE(found);
  EXPECT_TRUE(program->work.Cancelar);
  EXPECT_LT(files.seen, LargeTree::kAll / 2);

  files.on_entry = nullptr;
  files.slow = false;
  files.seen = 0;
  program->work.Cancelar = false;
  const auto begun = Clock::now();
  EXPECT_FALSE(search("no está.wav"));
  std::cout << "the whole walk takes "
            << std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begun).count()
            << " ms\n";
  EXPECT_GE(files.seen, LargeTree::kAll);
}

LRESULT CALLBACK count_paints(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR,
                              DWORD_PTR counter) {
  if (message == WM_PAINT) ++*reinterpret_cast<int*>(counter);
  return DefSubclassProc(window, message, w, l);
}

TEST_F(LocationWindows, what_has_to_be_painted_is_painted_during_the_walk) {
  start({large_tree().disk.folder()});
  const HWND list = control(L"Form1", L"ListProyectos");
  ASSERT_TRUE(list);
  files.slow = true;
  int paints = 0;
  SetWindowSubclass(list, count_paints, 1, reinterpret_cast<DWORD_PTR>(&paints));
  int seen_at_paint = 0;
  files.on_entry = [&] {
    if (files.seen == LargeTree::kAll / 10) {
      paints = 0;
      InvalidateRect(list, nullptr, TRUE);
    }
    if (files.seen > LargeTree::kAll / 10 && seen_at_paint == 0 && paints > 0) {
      seen_at_paint = files.seen;
    }
  };
  EXPECT_FALSE(search("no está.wav"));
  EXPECT_GE(files.seen, LargeTree::kAll);
  EXPECT_GT(seen_at_paint, 0);
  EXPECT_LT(seen_at_paint, LargeTree::kAll);
  std::cout << "painted when " << seen_at_paint - LargeTree::kAll / 10
            << " further files had been seen\n";
  RemoveWindowSubclass(list, count_paints, 1);
}

TEST_F(LocationWindows, a_second_search_asked_for_during_the_first_harms_nothing) {
  const std::string e = folder_as_drive("e");
  disk.write("e\\primera.wav", "");
  disk.write("e\\segunda.wav", "");
  start({large_tree().disk.folder(), e});
  files.slow = true;
  std::optional<bool> second;
  int seen_then = 0;
  AtEachTick ask(program->form, backend, [&] {
    if (files.seen == 0) return false;
    second = search("segunda.wav");
    seen_then = files.seen;
    return true;
  });
  EXPECT_TRUE(search("primera.wav"));
  EXPECT_THAT(second, testing::Optional(false));
  EXPECT_LT(seen_then, LargeTree::kAll) << "it was asked for during the walk";
  EXPECT_EQ(program->work.ArchivoActual, e + "primera.wav");
  EXPECT_THAT(program->windows.touch<location::Buscar>()->List2.rows(),
              ElementsAre(e + "primera.wav"));
}

// A window of the directory that reports when it is freed.
class Mortal final : public ui::Window {
 public:
  static constexpr const char* kName = "Mortal";
  Mortal(ui::Backend& backend, bool& freed) : ui::Window(backend, kName), freed_(freed) {}
  ~Mortal() override { freed_ = true; }

 private:
  bool& freed_;
};

TEST_F(LocationWindows, a_closed_window_is_freed_between_events_and_not_before) {
  start({folder_as_drive("d")});
  backend.between_events = [&] { program->windows.free_closed(); };
  bool freed = false;
  program->windows.add<Mortal>([&] { return std::make_unique<Mortal>(backend, freed); });
  bool freed_inside = true;
  bool closed = false;
  AtEachTick act(program->form, backend, [&] {
    if (closed) {
      backend.end();
      return true;
    }
    program->windows.touch<Mortal>();
    program->windows.close<Mortal>();
    backend.pump();
    freed_inside = freed;
    closed = true;
    return false;
  });
  backend.run();
  EXPECT_TRUE(closed);
  EXPECT_FALSE(freed_inside);
  EXPECT_TRUE(freed);
}

}  // namespace
}  // namespace ordelan::test
