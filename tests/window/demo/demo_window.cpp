// A window with one control of each kind, built as the program's own windows are. The tests of the
// driver use it; no other code does.

#include <windows.h>

#include <chrono>
#include <string>

#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/list_width.h"
#include "ui/progress_bar.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "ui/window.h"
#include "win32/peers/win32_backend.h"
#include "win32/ports/win32_dialogs.h"

namespace {

using namespace ordelan;

class DemoWindow : public ui::Window {
 public:
  DemoWindow(win32::Win32Backend& backend, system::Dialogs& dialogs)
      : Window(backend, "Form1"), backend_(backend), dialogs_(dialogs) {
    set_title("Demostración");
    set_size({600, 400});
    set_position({80, 60});
    place();
    connect();
  }

 private:
  void place() {
    list_.set_bounds({10, 10, 380, 200});
    list_.set_back_color(ui::Color::window_background);
    list_.set_description("Filas");
    status_.set_bounds({10, 220, 380, 18});
    status_.set_caption("nada");
    status_.set_tip("Lo último que pasó");
    note_.set_bounds({10, 245, 380, 60});
    note_.set_caption(
        "Un texto largo que no cabe en una sola línea y que por eso se parte en varias, hasta "
        "donde llega el sitio que tiene.");
    note_.set_fore_color(ui::rgb(0, 0, 160));
    open_.set_bounds({400, 10, 180, 28});
    open_.set_caption("Abrir...");
    ask_.set_bounds({400, 44, 180, 28});
    ask_.set_caption("Preguntar");
    fill_.set_bounds({400, 78, 180, 28});
    fill_.set_caption("Llenar");
    hidden_.set_bounds({400, 112, 180, 28});
    hidden_.set_caption("Escondido");
    hidden_.hide();
    box_.set_bounds({400, 150, 180, 22});
    box_.set_caption("Borde");
    second_.set_bounds({400, 176, 180, 22});
    second_.set_caption("Otro");
    text_.set_multiline(true);
    text_.set_bounds({10, 315, 380, 70});
    text_.set_back_color(ui::Color::window_background);
    text_.set_text("Uno\r\nDos");
    edit_.set_read_only(false);
    edit_.set_back_color(ui::Color::window_background);
    edit_.set_bounds({400, 210, 180, 22});
    bar_.set_bounds({400, 245, 180, 16});
    bar_.set_value(40);
    picture_.set_bounds({400, 280, 32, 32});
    picture_.set_picture("CUADRO");
  }

  void connect() {
    on_load = [this] { show(); };
    set_drag_by_background(true);
    on_drag_end = [this] { status_.set_caption("arrastrado"); };
    on_close = [this] { backend_.end(); };
    on_key_down = [this](ui::Key& key) {
      if (key.code != VK_F2) return;
      key.swallowed = true;
      status_.set_caption("F2");
    };
    list_.on_click = [this] { status_.set_caption("fila " + list_.current_row()); };
    list_.on_double_click = [this] { status_.set_caption("doble " + list_.current_row()); };
    list_.on_right_click = [this] { status_.set_caption("derecho " + list_.current_row()); };
    list_.on_drop = [this](std::vector<std::string> paths) {
      list_.add(std::move(paths));
      ui::ListaAncho(list_);
    };
    open_.on_click = [this] {
      list_.add(dialogs_.open_files({"Proyectos (*.vip)|*.vip|Todo (*.*)|*.*", true}));
      ui::ListaAncho(list_);
    };
    ask_.on_click = [this] {
      const auto answer = dialogs_.message(
          {"Demostración", "¿Seguir?", system::Icon::question, system::Buttons::yes_no});
      status_.set_caption(answer == system::Answer::yes ? "sí" : "no");
    };
    fill_.on_click = [this] {
      for (int i = 0; i < 200000; ++i) list_.add("fila " + std::to_string(i));
      status_.set_caption("llena");
    };
    box_.on_click = [this] { hidden_.set_visible(box_.checked()); };
    status_.on_click = [this] { status_.set_caption("pulsado"); };
    status_.on_mouse_move = [this](ui::Point) { second_.set_checked(true); };
    timer_.on_tick = [this] { bar_.set_value(bar_.value() % 100 + 1); };
    timer_.start();
  }

  win32::Win32Backend& backend_;
  system::Dialogs& dialogs_;
  ui::ListBox list_{*this, "ListVip"};
  ui::Label status_{*this, "lblEstado"};
  ui::Label note_{*this, "lblNota"};
  ui::Button open_{*this, "cmdAbrir"};
  ui::Button ask_{*this, "cmdPreguntar"};
  ui::Button fill_{*this, "cmdLlenar"};
  ui::Button hidden_{*this, "cmdEscondido"};
  ui::CheckBox box_{*this, "Check1", 0};
  ui::CheckBox second_{*this, "Check1", 1};
  ui::TextBox text_{*this, "Text1"};
  ui::TextBox edit_{*this, "Text2"};
  ui::Image picture_{*this, "Image1"};
  ui::ProgressBar bar_{*this, "ProgressBar1"};
  ui::Timer timer_{*this, "Timer1", std::chrono::milliseconds(100)};
};

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, LPWSTR, int) {
  win32::Win32Backend backend(instance);
  win32::Win32Dialogs dialogs([&] { return backend.owner(); });
  DemoWindow window(backend, dialogs);
  window.load();
  return backend.run();
}
