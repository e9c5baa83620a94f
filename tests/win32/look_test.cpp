// How the whole program looks where a user could bring it only with patience: the strip in each of
// its colours, the choice of a path, and captions in their room. Pictures are saved to be looked
// at.
#include "app/look.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <string>
#include <vector>

#include "audio/lists_zoom.h"
#include "audio/player.h"
#include "audio/sa.h"
#include "audio/zoom.h"
#include "location/path_choice_window.h"
#include "screen_picture.h"
#include "skin/palette.h"
#include "ui/list_width.h"
#include "win32/paint/drawing_tools.h"
#include "win32/paint/screen_scale.h"
#include "win32/program_fixture.h"

namespace ordelan::test {
namespace {

// The program's colours and its places in pixels, from before its first window on.
class Skinned {
 protected:
  Skinned() : before_(win32::palette()) {
    SetProcessDPIAware();
    win32::use_palette(app::skin_palette());
  }
  ~Skinned() { win32::use_palette(before_); }

 private:
  ui::Palette before_;
};

class LookInside : public Skinned, public ProgramTest {
 protected:
  LookInside() { start({disk.folder()}); }

  // Of these windows and what is between them.
  void take(const std::vector<std::wstring>& windows, const std::string& what) {
    for (int i = 0; i < 10; ++i) {
      backend.pump();
      Sleep(10);
    }
    RECT place{};
    for (const std::wstring& window : windows) {
      const HWND handle = top_level(window);
      ASSERT_TRUE(handle);
      RECT one{};
      GetWindowRect(handle, &one);
      UnionRect(&place, &place, &one);
    }
    const HDC screen = GetDC(nullptr);
    const int percent = MulDiv(GetDeviceCaps(screen, LOGPIXELSX), 100, 96);
    ReleaseDC(nullptr, screen);
    EXPECT_NE(save_screen("look-" + what + "-" + std::to_string(percent), place), L"");
  }

  // What the screen shows at a control's place, in pixels from its corner.
  static COLORREF pixel(HWND control, int x, int y) {
    POINT place{x, y};
    ClientToScreen(control, &place);
    const HDC screen = GetDC(nullptr);
    const COLORREF color = GetPixel(screen, place.x, place.y);
    ReleaseDC(nullptr, screen);
    return color;
  }
};

struct StripColor {
  std::string name;
  int code;
  COLORREF color;
  std::string text;
};

class LookOfStrip : public LookInside, public testing::WithParamInterface<StripColor> {};

TEST_P(LookOfStrip, shows_two_lines_in_its_colour_above_the_headings) {
  main_window::Form1& form = program->form;
  form.ShowIco.hide();
  form.strip.Alerta(GetParam().code, GetParam().text, true);
  take({L"Form1"}, "strip-" + GetParam().name);
  const HWND strip = control(L"Form1", L"TextDecode");
  ASSERT_TRUE(strip);
  EXPECT_EQ(form.strip.TextDecode.line_count(), 2);
  RECT room{};
  GetClientRect(strip, &room);
  EXPECT_EQ(pixel(strip, room.right - 2, 1), GetParam().color);
  EXPECT_EQ(pixel(strip, room.right - 2, room.bottom - 2), GetParam().color);
  // The second line is readable: some of its pixels are not the ground.
  int written = 0;
  for (int x = 0; x < room.right; ++x) {
    for (int y = room.bottom / 2 + 1; y < room.bottom - 1; ++y) {
      written += pixel(strip, x, y) == GetParam().color ? 0 : 1;
    }
    if (written > 0) break;
  }
  EXPECT_GT(written, 0);
  RECT place{};
  RECT heading{};
  GetWindowRect(strip, &place);
  GetWindowRect(control(L"Form1", L"TextNum1(0)"), &heading);
  EXPECT_LE(place.bottom, heading.top) << "it covers the headings";
}

INSTANTIATE_TEST_SUITE_P(
    Look, LookOfStrip,
    testing::Values(StripColor{"progress", work::kProgress, 0xC0E0FF,
                               "Descodificando: D:\\Mix\\Canción del Año\\canción del año.vip\r\n"
                               "Proyecto 3 de 41"},
                    StripColor{"result", work::kResult, 0xFFFFC0,
                               "Archivo encontrado en otra carpeta:\r\n"
                               "E:\\Copia de seguridad\\Estudio 2019\\toma de guitarra.wav"},
                    StripColor{"warning", work::kWarning, 0x8080EE,
                               " >>> AVISO <<<   No se ha encontrado en ninguna unidad:\r\n"
                               "D:\\No está\\Guitarra española.wav"},
                    StripColor{"waiting", work::kWaiting, 0xC0C0FF,
                               "Hay varios archivos con el mismo nombre.\r\n"
                               "Elige uno en la lista para seguir."}),
    [](const auto& each) { return each.param.name; });

TEST_F(LookInside, the_choice_of_a_path_shows_its_rows) {
  auto* const choice = program->windows.touch<location::ElegirRuta>();
  ASSERT_TRUE(choice);
  for (const char* row : {"D:\\Mix\\Canción del Año\\toma.wav",
                          "E:\\Copia de seguridad\\Estudio 2019\\Grabaciones del verano con la "
                          "orquesta entera y sus solistas\\toma.wav",
                          "F:\\toma.wav"}) {
    choice->ListElegirRuta.add(row);
  }
  ui::ListaAncho(choice->ListElegirRuta);
  take({L"ElegirRuta"}, "choice-alone");
  choice->offer_folder("D:\\Mix\\");
  take({L"ElegirRuta"}, "choice");
  const HWND box = control(L"ElegirRuta", L"CheckCarpeta");
  ASSERT_TRUE(box);
  EXPECT_TRUE(IsWindowVisible(box));
  const HWND list = control(L"ElegirRuta", L"ListElegirRuta");
  ASSERT_TRUE(list);
  EXPECT_EQ(SendMessageW(list, LB_GETCOUNT, 0, 0), 3);
}

TEST_F(LookInside, a_strip_of_many_lines_ends_within_the_window) {
  std::string hits = "El archivo: toma de guitarra.wav\r\nHa sido encontrado en 198 unidades";
  for (int i = 1; i <= 198; ++i) {
    hits += "\r\nE:\\Copia de seguridad\\Estudio " + std::to_string(1800 + i) +
            "\\toma de guitarra.wav";
  }
  program->form.ShowIco.hide();  // as in any state in which files are searched
  program->form.strip.Alerta(work::kResult, hits, true);
  take({L"Form1"}, "strip-many");
  const HWND strip = control(L"Form1", L"TextDecode");
  ASSERT_TRUE(strip);
  EXPECT_EQ(SendMessageW(strip, EM_GETLINECOUNT, 0, 0), 200);
  SendMessageW(strip, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-100 * WHEEL_DELTA)), 0);
  take({L"Form1"}, "strip-many-end");
}

TEST_F(LookInside, the_strip_of_a_search_leaves_the_clocks_to_be_read) {
  program->form.ShowIco.hide();
  program->form.clocks.iniciarCrono();
  program->form.strip.Alerta(work::kResult,
                             "El archivo: toma.wav\r\nHa sido encontrado en 4 unidades\r\n"
                             "D:\\toma.wav\r\nE:\\toma.wav\r\nF:\\toma.wav\r\nG:\\toma.wav",
                             true);
  take({L"Form1"}, "strip-search");
  RECT strip{};
  RECT elapsed{};
  GetWindowRect(control(L"Form1", L"TextDecode"), &strip);
  GetWindowRect(control(L"Form1", L"TextLapsoTotal"), &elapsed);
  EXPECT_GE(strip.top, elapsed.bottom);
}

TEST_F(LookInside, projects_that_are_left_out_are_reported_and_listed) {
  const std::string folder =
      "D:\\Grabaciones del estudio grande\\Temporada de otoño con la orquesta entera\\"
      "Arreglos definitivos para la mezcla\\";
  for (int i = 1; i <= 14; ++i) {
    program->work.ProyectosFuera.push_back(
        {(i % 3 == 0 ? folder : "D:\\Mix\\") + "tema " + std::to_string(i) + ".vip",
         i % 2 == 0 ? "no se puede leer" : "demasiadas referencias"});
  }
  program->form.show_ProyectosFuera();
  take({L"Form1"}, "left-out-empty");
  main_window::Form1& form = program->form;
  form.TextNum1.set_visible(false);
  form.ListProyectosInfo.hide();
  form.ShowIco.hide();
  form.lists.head_projects(folder);
  form.lists.LabelCheck.set_visible(true);
  take({L"Form1"}, "left-out-label");
  SetFocus(control(L"Form1", L"LabelFuera"));
  take({L"Form1"}, "left-out-focus");
  form.LabelFuera_Click();
  take({L"Fuera"}, "left-out");
  EXPECT_EQ(SendMessageW(control(L"Fuera", L"ListFuera"), LB_GETCOUNT, 0, 0), 14);
}

// The windows that play, in the middle of a file.
class LookOfSound : public LookInside {
 protected:
  LookOfSound()
      : player(*program->windows.touch<audio::Player>()),
        spectrum(*program->windows.touch<audio::SA>()) {
    player.set_position({60, 420});
    spectrum.set_position(player.place_of_SA());
    player.SliderTime.set_max(205);
    player.SliderTime.set_value(77);
    player.SliderVol.set_value(40);
    player.Vol(40);
    player.LabelDisplay.set_caption(
        "  >>>> Toma 1003 de la sección de cuerdas, micrófono de sala izquierdo.wav -- 03:25 "
        "<<<< ");
    player.LabelTime.set_caption("01:17");
    player.mp3Baud.set_caption(" 192 Kbaud ");
    player.mp3Baud.show();
    player.Control[audio::kPlay].hide();
    player.Control[audio::kPause].show();
    spectrum.LabelTime.set_caption("01:17");
    player.ImageOnda.set_columns(wave());
    player.ImageOnda.show();
  }

  void show() {
    player.show();
    spectrum.show();
    backend.pump();
    spectrum.TimerEspectro.stop();  // it would let the bars fall
    spectrum.WindowsMediaPlayer.set_bars(bars());
    player.ImageOnda.set_cursor(77 / 205.0);
  }
  static std::vector<ui::WaveColumn> wave() {
    std::vector<ui::WaveColumn> all;
    for (int i = 0; i < 200; ++i) {
      const double loud = std::abs(std::sin(i * 0.031)) * (0.6 + 0.4 * std::sin(i * 1.7));
      all.push_back({-loud, 0.9 * loud});
    }
    return all;
  }
  static std::vector<ui::Bar> bars() {
    std::vector<ui::Bar> all;
    for (int i = 0; i < 30; ++i) {
      const double level = 0.55 + 0.4 * std::sin(i * 0.5) * std::cos(i * 0.21);
      all.push_back({level, level + 0.05});
    }
    return all;
  }

  audio::Player& player;
  audio::SA& spectrum;
};

TEST_F(LookOfSound, while_it_plays) {
  show();
  take({L"Player"}, "player");
  take({L"SA"}, "spectrum");
  // The thumb stands where the time is, on a track that is filled as far.
  const HWND slider = control(L"Player", L"SliderTime");
  const auto at = [&](int x, int y) {
    const int dpi = win32::dpi_of(slider);
    return pixel(slider, win32::to_pixels(x, dpi), win32::to_pixels(y, dpi));
  };
  const int thumb = player.SliderTime.bar_pos() + 7;
  EXPECT_EQ(at(thumb, 9), skin::kText);
  EXPECT_EQ(at(thumb - 30, 9), skin::kAccent);
  EXPECT_EQ(at(thumb + 30, 9), skin::kLine);
  EXPECT_EQ(at(thumb + 30, 2), skin::kGround);
  // The waveform is played as far as the slider's thumb stands, and its silence is seen.
  const HWND wave = control(L"Player", L"ImageOnda");
  const auto middle = [&](int x) {
    const int dpi = win32::dpi_of(wave);
    return pixel(wave, win32::to_pixels(x, dpi), win32::to_pixels(18, dpi));
  };
  EXPECT_EQ(middle(50), skin::kAccent);
  EXPECT_EQ(middle(150), skin::kTextOff);
  EXPECT_EQ(pixel(wave, 1, 1), COLORREF{skin::kGround});
  // The highest bar reaches higher than those beside the lowest.
  const HWND chart = control(L"SA", L"WindowsMediaPlayer");
  RECT room{};
  GetClientRect(chart, &room);
  EXPECT_NE(pixel(chart, room.right - 4, room.bottom / 5), COLORREF{skin::kSurface});
  EXPECT_EQ(pixel(chart, room.right / 2, room.bottom / 5 + 5), COLORREF{skin::kSurface});
}

TEST_F(LookOfSound, with_its_notices) {
  for (const char* const notice :
       {"No suena: el reproductor del sistema no puede abrir este archivo.",
        "No suena: este Windows no tiene con qué reproducir audio."}) {
    player.LabelAviso.set_caption(notice);
    spectrum.LabelAviso.set_caption(notice);
    const int words =
        win32::to_units(ui::MedirTexto(player.LabelAviso, notice), win32::system_dpi());
    EXPECT_LE(words, player.LabelAviso.bounds().width) << notice;
  }
  player.AvisoPL.set_text("PlayList vacio\r\nClic ocultar");
  player.AvisoPL.show();
  player.LabelDisplay.set_text_left(-3000);
  player.LabelTime.set_caption("120:00");
  show();
  player.LabelAviso.set_caption(
      "No suena: el reproductor del sistema no puede abrir este archivo.");
  spectrum.LabelAviso.set_caption(player.LabelAviso.caption());
  spectrum.WindowsMediaPlayer.set_bars(std::vector<ui::Bar>(30));
  player.Vol(100);
  SetFocus(control(L"Player", L"SliderTime"));
  take({L"Player"}, "player-notices");
  take({L"SA"}, "spectrum-notices");
}

// What lies outside of a window's shape shows what is behind it.
TEST_F(LookOfSound, has_round_corners) {
  for (const wchar_t* const name : {L"Player", L"SA"}) {
    const HWND ground = CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 20,
                                        20, 2400, 1500, nullptr, nullptr, nullptr, nullptr);
    UpdateWindow(ground);
    show();
    const HWND window = top_level(name);
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    for (int i = 0; i < 10; ++i) {
      backend.pump();
      Sleep(10);
    }
    const COLORREF behind = pixel(ground, 2, 2);
    RECT room{};
    GetClientRect(window, &room);
    EXPECT_EQ(pixel(window, 0, 0), behind);
    EXPECT_EQ(pixel(window, room.right - 1, 0), behind);
    EXPECT_EQ(pixel(window, 0, room.bottom - 1), behind);
    EXPECT_EQ(pixel(window, room.right - 1, room.bottom - 1), behind);
    EXPECT_EQ(pixel(window, room.right / 2, room.bottom - 4), COLORREF{skin::kGround});
    DestroyWindow(ground);
  }
}

TEST_F(LookOfSound, with_the_playlist) {
  audio::Zoom& zoom = *program->windows.touch<audio::Zoom>();
  zoom.set_position({40, 40});
  zoom.fill(
      {"D:\\Sesiones\\Cuartetos\\Toma 01 violines.wav", "D:\\Sesiones\\Cuartetos\\Toma 02.wav",
       "D:\\Sesiones\\Cuartetos\\Toma 03 con el micrófono de sala izquierdo, sin filtro.mp3", ""});
  zoom.ListFilesZoom.set_current(2);
  zoom.LabelNvip.set_caption("PlayList");
  zoom.Files.set_caption("Cargados: 3 archivos de audio");
  zoom.TextInfo.set_text(
      " Titulo : Toma 03\r\n Artista : Cuarteto\r\n Album : Sesiones\r\n Año : 2024");
  zoom.SliderTime.set_max(205);
  zoom.SliderTime.set_value(77);
  zoom.show();
  player.Control_Click(audio::kPlay);
  backend.pump();
  take({L"Zoom"}, "zoom");
}

TEST_F(LookOfSound, docked_with_a_notice_while_it_is_paused) {
  audio::Zoom& zoom = *program->windows.touch<audio::Zoom>();
  program->form.hide();
  player.Vol(40);
  player.set_position({600, 420});
  spectrum.set_position(player.place_of_SA());
  zoom.set_position({20, 200});
  zoom.fill({"D:\\Sesiones\\Toma 01.wav", "D:\\Sesiones\\Toma 02.wav", ""});
  zoom.ListFilesZoom.set_current(1);
  zoom.Files.set_caption("Cargados: 2 archivos de audio");
  show();
  zoom.show();
  player.Control[audio::kPause].hide();
  player.Control[audio::kPlay].show();
  player.LabelAviso.set_caption("El sistema tarda en abrir este archivo.");
  take({L"Player", L"SA", L"Zoom"}, "player-docked");
  RECT above{};
  RECT below{};
  GetWindowRect(top_level(L"SA"), &above);
  GetWindowRect(top_level(L"Player"), &below);
  EXPECT_LE(above.bottom, below.top) << "they do not overlap";
  // Neither belongs to another window, and their size is fixed.
  for (const wchar_t* const name : {L"Player", L"SA"}) {
    EXPECT_EQ(GetWindow(top_level(name), GW_OWNER), nullptr);
    EXPECT_EQ(GetWindowLongPtrW(top_level(name), GWL_STYLE) & WS_THICKFRAME, 0);
  }
}

// What is known of the file stands beside the frame of its title.
TEST_F(LookOfSound, with_what_is_known_of_the_file) {
  disk.write("Toma 01.wav", std::string(3'000'000, 'x'));
  show();
  player.MostrarInfoArchivo(player.PictureLD, disk.path("Toma 01.wav"), "Toma 01.wav");
  ASSERT_TRUE(player.Bal.exists());
  take({L"Player", L"Form1"}, "player-info");
}

TEST_F(LookOfSound, in_the_main_window) {
  main_window::Form1& form = program->form;
  form.ShowIco.hide();
  form.play.show();
  form.strip.notice_decoding();
  form.clocks.iniciarCrono();
  form.clocks.ShowLapsoDeco();
  take({L"Form1"}, "sound-in-main");
  for (const char* const caption : {"-90 dB", "10 dB"}) {
    EXPECT_LE(win32::to_units(ui::MedirTexto(form.play.LabelVol, caption), win32::system_dpi()),
              form.play.LabelVol.bounds().width);
  }
}

TEST_F(LookOfSound, has_room_for_its_words) {
  constexpr int kBesideWords = 25;  // a box
  int looked_at = 0;
  const auto look_at = [&](const ui::Control& each, const std::string& caption, int beside) {
    if (caption.empty()) return;
    ++looked_at;
    const int words = win32::to_units(ui::MedirTexto(each, caption), win32::system_dpi());
    EXPECT_LE(words + beside, each.bounds().width) << each.name() << ": " << caption;
  };
  for (const ui::Window* const window :
       {static_cast<ui::Window*>(&player), static_cast<ui::Window*>(&spectrum)}) {
    for (ui::Control* const each : window->controls()) {
      if (const auto* const box = dynamic_cast<ui::CheckBox*>(each)) {
        look_at(*box, box->caption(), kBesideWords);
      } else if (const auto* const label = dynamic_cast<ui::Label*>(each)) {
        if (label != &player.LabelDisplay) look_at(*label, label->caption(), 0);
      }
    }
  }
  for (const char* const caption : {"120:00", "00:00"}) {
    look_at(player.LabelTime, caption, 0);
    look_at(spectrum.LabelTime, caption, 0);
  }
  // The time does not jump from side to side as its figures change.
  for (const char figure : std::string("123456789")) {
    EXPECT_EQ(ui::MedirTexto(player.LabelTime, std::string(1, figure)),
              ui::MedirTexto(player.LabelTime, "0"));
  }
  look_at(player.LabelVol, "-90 dB", 0);
  look_at(player.mp3Baud, " 320 Kbaud ", 0);
  EXPECT_GE(looked_at, 12);
}

// Room for the words, and for what stands beside them.
TEST_F(LookInside, no_caption_of_a_button_or_box_is_wider_than_its_control) {
  constexpr int kBesideWords = 25;  // a box, or the picture of a button, with the gaps
  int looked_at = 0;
  program->work.ProyectosFuera.resize(9999);
  program->form.show_ProyectosFuera();
  for (ui::Control* const each : program->form.controls()) {
    const auto* const button = dynamic_cast<ui::Button*>(each);
    const auto* const box = dynamic_cast<ui::CheckBox*>(each);
    const auto* const label = dynamic_cast<ui::Label*>(each);
    const std::string caption = button                     ? button->caption()
                                : box                      ? box->caption()
                                : label && label->on_click ? label->caption()
                                                           : "";
    if (caption.empty()) continue;
    ++looked_at;
    const int beside = label ? 0 : kBesideWords;
    const int words = win32::to_units(ui::MedirTexto(*each, caption), win32::system_dpi());
    EXPECT_LE(words + beside, each->bounds().width) << caption;
  }
  EXPECT_GE(looked_at, 15);
}

// The lists of a decoded studio, with what a click, a right click and the pointer show of them.
class LookOfLists : public LookInside {
 protected:
  LookOfLists() : form(program->form) {
    form.ShowIco.hide();
    form.TextNum1.set_visible(false);
    form.ListProyectosInfo.hide();
    form.play.show();
    for (ui::Control* const each : std::initializer_list<ui::Control*>{
             &form.lists.ListVip, &form.lists.ListUtilizados, &form.lists.ListBorrar,
             &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas, &form.cmdPerdidos,
             &form.CommandBorrado}) {
      each->show();
    }
    form.lists.ListProyectos.add("1 --> D:\\Sesiones\\Cuarteto\\Cuarteto en vivo.vip");
    form.lists.ListProyectos.add("2 --> D:\\Sesiones\\Cuarteto\\Ensayo.vip");
    for (int i = 1; i <= 24; ++i) {
      const std::string file = "D:\\Sesiones\\Cuarteto\\Tomas\\Toma " + std::to_string(100 + i) +
                               (i % 5 == 0 ? " violonchelo, micrófono lejano.mp3" : " violín.wav");
      form.lists.ListVip.add(file);
      form.lists.ListUtilizados.add(i == 1 ? form.lists.ListProyectos.row(0) : file);
      if (i % 4 == 0) form.lists.ListBorrar.add(file);
    }
    form.lists.head_projects("D:\\Sesiones\\Cuarteto\\");
    form.lists.head_project("D:\\Sesiones\\Cuarteto\\Cuarteto en vivo.vip",
                            "D:\\Sesiones\\Cuarteto\\");
    form.lists.LabelAdd[0].set_caption("212  archivos en: 2 proyectos, 31 duplicados; Total: 181");
    form.lists.LabelAdd[1].set_caption("D:\\Sesiones\\Cuarteto\\");
    form.lists.LabelErase[1].set_caption("Archivos no utilizados: 6     Duplicados: 0    Total: 6");
    form.lists.LabelCheck.set_visible(true);
    form.lists.LabelCount.set_visible(true);
    form.lists.LabelAdd.set_visible(true);
    form.lists.LabelErase[1].show();
    form.clicks.cmdFilas.set_visible(true);
    form.play.ImagePlayPauSt[0].hide();
    form.play.ImagePlayPauSt[1].show();
    list().set_current(2);
    list().on_mouse_move({.at = {230, 45}});
  }
  ui::ListBox& list() { return form.lists.ListVip; }

  main_window::Form1& form;
};

constexpr const char* kDetails =
    " Tamaño: 48,21 Mb\r\n Fecha: 14/03/2026 18:22:07\r\n"
    "----------------------------------------\r\n Tipo: Wav\r\n Canales: 2\r\n Frec: 48000\r\n"
    " Bits: 24";

TEST_F(LookOfLists, with_the_balloon_of_a_row_and_marked_ones) {
  SetFocus(control(L"Form1", L"ListVip"));
  form.path_strip.MostrarPath(list().row(2));
  list().mark_click(5, ui::kControlKey);
  list().mark_click(6, ui::kControlKey);
  form.sound().rows.show_text(list(), "Toma 103 violín.wav", kDetails);
  take({L"Form1"}, "lists");
}

TEST_F(LookOfLists, while_a_lost_file_is_searched) {
  form.clicks.cmdPararBusqueda.show();
  form.clocks.iniciarCrono();
  form.strip.Alerta(work::kWaiting,
                    "Buscando: Toma 103 violín.wav\r\nEn la Unidad: E:\\Archivo\r\nESPERAR", true);
  take({L"Form1"}, "lists-searching");
}

TEST_F(LookOfLists, in_the_detail_window_and_enlarged) {
  auto& zoom = *program->windows.touch<audio::Zoom>();
  zoom.set_position({640, 330});
  zoom.fill_from(list());
  zoom.LabelNvip.set_caption(form.lists.LabelCount[0].caption());
  zoom.Files.set_caption(form.lists.LabelCount[1].caption());
  zoom.ListFilesZoom.set_current(3);
  zoom.ListFilesZoom.on_mouse_move({.at = {100, 60}});
  zoom.TextInfo.set_text(kDetails);
  zoom.ImageIcono.show();
  zoom.ShapeVip.show();
  zoom.LabelVip.show();
  zoom.show();
  take({L"Zoom"}, "lists-zoom");
  zoom.hide();
  form.ZoomListas.set_checked(true);
  list().chosen(2);
  list().on_click();
  auto& enlarged = *program->windows.touch<audio::ListasZoom>();
  enlarged.set_position({40, 60});
  enlarged.ListZoom.set_current(4);
  enlarged.ListZoom.on_mouse_move({.at = {100, 80}});
  enlarged.ImageIcono.show();
  take({L"ListasZoom"}, "lists-enlarged");
  enlarged.resized_to(enlarged.smallest_size());
}

}  // namespace
}  // namespace ordelan::test
