// How the real program looks: a picture of each window, to be looked at, and what can be checked
// without eyes: that nothing sticks out or lies over another.
#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "screen_picture.h"
#include "skin/palette.h"
#include "support/small_project.h"
#include "window/ordelan_fixture.h"
#include "window/wait.h"

namespace ordelan::test {
namespace {

std::vector<HWND> shown_controls(HWND window) {
  std::vector<HWND> controls;
  EnumChildWindows(
      window,
      [](HWND each, LPARAM l) -> BOOL {
        // The scroll bars of lists lie on their lists.
        wchar_t kind[32] = {};
        GetClassNameW(each, kind, 32);
        const bool bar = std::wstring_view(kind) == L"Ordelan.ScrollBar";
        if (IsWindowVisible(each) && !bar) {
          reinterpret_cast<std::vector<HWND>*>(l)->push_back(each);
        }
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&controls));
  return controls;
}

RECT place_of(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  return area;
}

std::string described(const RECT& area) {
  return std::to_string(area.left) + "," + std::to_string(area.top) + " to " +
         std::to_string(area.right) + "," + std::to_string(area.bottom);
}

// The size of the screen's writing, of which the usual is 100.
int percent() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return MulDiv(dpi, 100, 96);
}

class Look : public OrdelanTest {
 protected:
  static std::string name_of(const std::string& what) {
    return "look-" + what + "-" + std::to_string(percent());
  }

  // Saves the window in use, with its ground dark and everything in its place.
  void take(const std::string& what, const std::string& over = "ListProyectosInfo") const {
    program->picture_of_window(name_of(what));
    expect_order(over);
  }

  std::string toma(int number) const {
    return path("Canciones\\Toma " + std::to_string(number) +
                " de la sección de cuerdas, micrófono de sala izquierdo.wav");
  }

  // A studio of one project, with files that it does not use under long names.
  void open_unused(int count) {
    write("Canciones\\usado.wav", "used");
    write("Canciones\\tema.vip", project_of({path("Canciones\\usado.wav")}));
    for (int i = 0; i < count; ++i) {
      write("Canciones\\Toma " + std::to_string(1000 + i) +
                " de la sección de cuerdas, micrófono de sala izquierdo.wav",
            std::to_string(i));
    }
    start();
    open(path("Canciones\\tema.vip"));
    wait_decoded();
    program->click("CommandBorrado");
    program->use_window("BacUp");
  }

  // `over` may lie on another: an invitation on the list that it invites to, boxes in their list.
  void expect_order(const std::string& over) const {
    const HWND window = program->window();
    RECT room{};
    GetClientRect(window, &room);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&room), 2);
    const HWND invitation = program->has(over) ? program->control(over) : nullptr;
    const std::vector<HWND> controls = shown_controls(window);
    ASSERT_FALSE(controls.empty());
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const RECT place = place_of(controls[i]);
      RECT inside{};
      IntersectRect(&inside, &place, &room);
      EXPECT_TRUE(EqualRect(&inside, &place))
          << described(place) << " reaches out of " << described(room);
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        if (controls[i] == invitation || controls[j] == invitation) continue;
        const RECT other = place_of(controls[j]);
        RECT both{};
        EXPECT_FALSE(IntersectRect(&both, &place, &other))
            << described(place) << " lies over " << described(other);
      }
    }
  }

  // References of one long folder, none of which exists.
  static std::vector<std::string> long_references(int count) {
    const std::string folder =
        "D:\\Grabaciones del estudio grande\\Temporada de otoño con la orquesta entera\\"
        "Arreglos definitivos para la mezcla\\";
    std::vector<std::string> paths;
    for (int i = 0; i < count; ++i) {
      paths.push_back(folder + "Toma " + std::to_string(10000 + i) +
                      " de la sección de cuerdas, micrófono de sala izquierdo.wav");
    }
    return paths;
  }
};

TEST_F(Look, of_the_empty_window_is_dark) {
  start();
  take("empty");
  std::size_t dark = 0;
  const RECT place = program->place();
  const HDC screen = GetDC(nullptr);
  // Down the gap between the two columns, beside the bar of the volume.
  constexpr int kBeside = 5;
  const int middle = (place.left + place.right) / 2 - kBeside;
  const int height = place.bottom - place.top;
  for (int i = 3; i < 9; ++i) {
    dark += GetPixel(screen, middle, place.top + height * i / 10) == skin::kGround ? 1 : 0;
  }
  ReleaseDC(nullptr, screen);
  EXPECT_EQ(dark, 6u);
}

TEST_F(Look, of_a_running_decode_shows_strip_and_bar) {
  start();
  open(long_project());
  // It is read twice before it is decoded.
  const auto begun = [&] {
    return program->visible("XP_ProgressBar1") && program->progress("XP_ProgressBar1") > 3000;
  };
  wait_for(begun, std::chrono::seconds(90));
  program->wait_until("some progress", begun);
  EXPECT_TRUE(program->visible("TextDecode"));
  EXPECT_TRUE(program->visible("LabelAviso"));
  ASSERT_NE(save_screen(name_of("decoding"), program->place()), L"");
  EXPECT_TRUE(program->visible("XP_ProgressBar1")) << "it was over before the picture was taken";
  program->click("cmdCancelar");
  program->wait_until("the end of the job", [&] { return !program->visible("cmdCancelar"); });
  take("cancelled");
}

TEST_F(Look, of_ten_thousand_long_rows_keeps_everything_in_its_place) {
  write("Proyectos de la temporada de verano\\Concierto con la orquesta entera.vip",
        project_of(long_references(10000)));
  start();
  open(path("Proyectos de la temporada de verano\\Concierto con la orquesta entera.vip"));
  wait_decoded();
  EXPECT_EQ(program->row_count("ListVip"), 10000u);
  wait_shown("ZoomListas");
  wait_shown("cmdPerdidos");
  take("decoded");

  program->click("LabelCount(0)");
  wait_shown("ListPath");
  take("path");

  program->click("cmdPerdidos");
  program->use_window("Perdidos");
  take("lost");
}

TEST_F(Look, of_a_studio_shows_all_four_steps) {
  start();
  open("D:\\Mix\\tema.vip");
  wait_decoded();
  wait_shown("ZoomListas");
  take("studio");
  program->hover("cmdReset");
  take("hover");
}

TEST_F(Look, of_a_refused_project_shows_the_warning) {
  start();
  open("D:\\Mix\\solo_midi.vip");
  wait_shown("TextDecode");
  take("refused");
}

TEST_F(Look, of_the_drives_shows_a_box_for_each) {
  start();
  program->click("Configurar");
  program->use_window("UnidadesBuscar");
  take("drives");
}

TEST_F(Look, of_a_review_with_kept_rows_of_a_drive_without_a_bin) {
  const std::string folder = "F:\\Mezcla";
  const auto put = [&](const std::string& name, const std::string& bytes) {
    std::ofstream(folder + "\\" + name, std::ios::binary) << bytes;
  };
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder + "\\Antiguos");
  put("usado.wav", "used");
  for (int i = 0; i < 24; ++i) put("toma " + std::to_string(1000 + i) + ".wav", "a take");
  put("tema.vip", project_of({folder + "\\usado.wav"}));
  put("Antiguos\\ensayo_BAK.vip", folder + "\\toma 1004.wav");
  put("Antiguos\\gira.vip", "E:\\Gira\\toma 1009.wav");
  start();
  open(folder + "\\tema.vip");
  wait_decoded();
  program->click("CommandBorrado");
  program->use_window("BacUp");
  program->click("cmdBorrar");
  program->use_window("ParaBorrar");
  program->wait_until("what is kept", [&] { return program->visible("ListConservados"); });
  EXPECT_TRUE(program->visible("LabelPapelera"));
  take("review-bin", "ListStatus");
  program.reset();
  std::filesystem::remove_all(folder);
}

TEST_F(Look, of_a_run_with_backup_and_its_recovery) {
  // Two of them are named by a project that is not listed.
  write("Canciones\\Sesiones antiguas\\Ensayo de la sección de cuerdas_BAK.vip",
        toma(1007) + " " +
            path("Antes\\Toma 1009 de la sección de cuerdas, micrófono de sala "
                 "izquierdo.wav"));
  open_unused(40);
  std::filesystem::create_directories(folder() / L"Copias");
  take("options");
  program->click("ImageInfoVip");
  program->wait_until("the words", [&] { return program->visible("AvisoAsociados"); });
  take("options-words", "AvisoAsociados");
  program->click("AvisoAsociados");
  program->wait_until("their end", [&] { return !program->visible("AvisoAsociados"); });

  program->click("cmdBorrar");
  program->use_window("ParaBorrar");
  program->wait_until("what is kept", [&] { return program->visible("ListConservados"); });
  program->click_row("ListStatus", 1);
  program->wait_until("the box", [&] { return !program->ticked("ListStatus", 1); });
  take("review", "ListStatus");
  program->click("ImageInfoSound");
  program->wait_until("the words", [&] { return program->visible("AvisoSound"); });
  program->picture_of_window(name_of("review-words"));
  program->click("AvisoSound");
  program->wait_until("their end", [&] { return !program->visible("AvisoSound"); });
  program->click("CheckAudio");
  program->wait_until("the volume", [&] { return program->visible("ImageVol"); });
  take("review-volume", "ListStatus");
  program->click("CheckAudio");
  program->wait_until("the end of the volume", [&] { return !program->visible("ImageVol"); });

  program->click("cmdHecho");
  program->use_window("CarpetaBack");
  take("folder");
  program->cancel_folder_dialog();
  program->wait_until("the hint", [&] { return program->visible("LabelAviso"); });
  take("folder-none");
  program->click("CarpetaNew");
  program->pick_folder(path("Copias"));
  program->wait_until("the button of the run",
                      [&] { return program->visible("cmdCarpetaBorrar"); });
  take("folder-chosen");
  write("Canciones\\Toma 1003 de la sección de cuerdas, micrófono de sala izquierdo.wav",
        "recorded anew meanwhile");
  program->click("cmdCarpetaBorrar");
  program->use_window("BacUp");
  program->wait_until("the report of the run", [&] {
    return program->visible("LabelResultado") && program->visible("ListNoBorrados");
  });
  take("options-run");
  program->use_window("ParaBorrar");
  take("review-run", "ListStatus");
  program->click("cmdSalir");
  program->wait_until("the end of the review",
                      [&] { return !program->window_shown("ParaBorrar"); });

  program->use_window("Form1");
  program->click("RecuperaBorrados");
  program->use_window("Recuperar");
  take("recovery");
  program->click("cmdOpen");
  program->pick_files({path("Copias\\Archivos_Borrados.log")});
  program->wait_until("the log", [&] { return program->visible("cmdRecuperar"); });
  take("recovery-log");
  std::filesystem::remove(folder() / L"Copias" /
                          L"Toma 1005 de la secci\u00F3n de cuerdas, micr\u00F3fono de sala "
                          L"izquierdo.wav");
  program->click("cmdRecuperar");
  program->wait_until("the end", [&] { return program->visible("LabelCerrar"); });
  take("recovery-done", "ListNoRecuperados");
}

// Projects whose audio has moved to a drive that holds nothing else.
class LookUpdate : public Look {
 protected:
  LookUpdate() {
    clear();
    write_settings("F");
    for (const char* const room : {"Sala grande", "Sala pequeña"}) {
      for (const char* const name : {"Voz principal.wav", "Coro.wav"}) put(room, name);
    }
    for (const char* const name : {"Bajo.wav", "Bombo.wav", "Caja.wav", "Guitarra española.wav"}) {
      put("Sesión de marzo", name);
    }
    for (const char* const name : {"Ensayo general", "Maqueta", "Mezcla final"}) {
      project(name, {"Bajo.wav", "Bombo.wav", "Caja.wav", "Guitarra española.wav"});
    }
  }
  ~LookUpdate() override {
    program.reset();
    clear();
  }

  static std::filesystem::path studio() { return "F:\\Estudio"; }
  static void put(const std::filesystem::path& folder, const std::string& name) {
    std::filesystem::create_directories(studio() / folder);
    std::ofstream(studio() / folder / name, std::ios::binary) << name;
  }
  static void project(const std::string& name, const std::vector<std::string>& audio) {
    std::vector<std::string> paths;
    for (const std::string& each : audio) paths.push_back("D:\\Discos viejos\\" + each);
    std::filesystem::create_directories(studio() / "Mezclas");
    std::ofstream(studio() / "Mezclas" / (name + ".vip"), std::ios::binary) << project_of(paths);
  }
  void decode(const std::string& name) {
    open((studio() / "Mezclas" / (name + ".vip")).string());
    wait_decoded();
    wait_shown("ActualizarVip");
  }
  // Saves the box that is up, and answers it.
  void take_box(const std::string& what, int button) const {
    const MessageShown box = program->wait_for_message();
    wait_for_still_screen();
    ASSERT_NE(save_screen(name_of(what), test::place_of(box.handle)), L"");
    program->answer_message(button);
  }
  void wait_updated() const {
    program->wait_until("the end of the job", [&] {
      return !program->visible("ActualizarVip") && !program->visible("cmdCancelar");
    });
  }

 private:
  static void clear() {
    std::error_code ignored;
    std::filesystem::remove_all(studio(), ignored);
  }
};

TEST_F(LookUpdate, of_an_update_with_a_choice_and_of_its_way_back) {
  project("Concierto", {"Voz principal.wav", "Coro.wav"});
  start();
  decode("Concierto");
  program->click("ActualizarVip");
  take_box("update-question", IDYES);
  program->use_window("ElegirRuta");
  take("choice");
  program->click("CheckCarpeta");
  program->wait_until("the tick", [&] { return program->checked("CheckCarpeta"); });
  program->click_row("ListElegirRuta", 1);
  program->use_window("Form1");
  take_box("update-result", IDOK);
  wait_updated();
  take("updated");

  decode("Mezcla final");
  take("update-undo");
  program->click("DeshacerActualizacion");
  take_box("undo-question", IDYES);
  wait_shown("TextDecode");
  take("undone");
  EXPECT_FALSE(program->visible("DeshacerActualizacion"));
}

TEST_F(LookUpdate, of_an_update_that_runs_and_of_projects_that_it_leaves) {
  constexpr int kProjects = 300;
  for (int i = 0; i < kProjects; ++i) {
    project("Tema " + std::to_string(1000 + i),
            {"Bajo.wav", "Bombo.wav", "Caja.wav", "Guitarra española.wav"});
  }
  start();
  decode("Tema 1000");
  std::vector<HANDLE> held;
  for (const char* const name : {"Tema 1003", "Tema 1004", "Tema 1005", "Tema 1290"}) {
    const auto file = studio() / "Mezclas" / (std::string(name) + ".vip");
    held.push_back(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               0, nullptr));
    ASSERT_NE(held.back(), INVALID_HANDLE_VALUE);
  }
  program->click("ActualizarVip");
  program->answer_message(IDYES);
  program->wait_until("the pointers", [&] { return program->visible("LabelAviso"); });
  ASSERT_NE(save_screen(name_of("update-pointers"), program->place()), L"");
  program->wait_until("a search", [&] { return program->visible("TextDecode"); });
  ASSERT_NE(save_screen(name_of("updating"), program->place()), L"");
  take_box("update-result-many", IDOK);
  wait_updated();
  wait_shown("TextDecode");
  take("update-left");
  for (const HANDLE each : held) CloseHandle(each);
}

TEST_F(Look, of_the_protected_folders) {
  open_unused(2);
  program->click("CommandProtegidas");
  program->use_window("FormNoBorrar");
  take("protected-words", "AvisoNoBorrados");
  program->click("AvisoNoBorrados");
  program->wait_until("their end", [&] { return !program->visible("AvisoNoBorrados"); });
  program->click("CommandAgregar");
  program->wait_until("the row", [&] { return program->row_count("List1") == 1; });
  take("protected");
}

TEST_F(Look, of_the_about_window_shows_name_and_version) {
  start();
  program->click("AcercaDe");
  program->use_window("Acerca");
  take("about");
}

}  // namespace
}  // namespace ordelan::test
