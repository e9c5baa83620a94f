// Ordelan's window on Windows.
#include <windows.h>

#include "app/look.h"
#include "app/program.h"
#include "audio/media_facts.h"
#include "win32/ole_session.h"
#include "win32/paint/drawing_tools.h"
#include "win32/peers/win32_backend.h"
#include "win32/ports/graph_worker.h"
#include "win32/ports/win32_clock.h"
#include "win32/ports/win32_dialogs.h"
#include "win32/ports/win32_drives.h"
#include "win32/ports/win32_file_system.h"
#include "win32/ports/win32_media.h"
#include "win32/ports/win32_regional.h"
#include "win32/ports/win32_shell.h"

namespace {

using namespace ordelan;

int run(HINSTANCE instance, system::FileSystem& files) {
  const win32::OleSession ole;  // for the player of the system
  win32::Win32Clock clock;
  win32::Win32Regional regional;
  win32::Win32Drives drives;
  win32::Win32Shell shell;
  settings::Settings settings(files, regional);
  win32::Win32Media media(clock, audio::media_facts(files),
                          win32::motor_named(settings.LeerIni(settings.RutaConfig, "Motor", "")));
  win32::use_palette(app::skin_palette());
  win32::Win32Backend backend(instance);
  backend.on_chart_window = [&media](HWND chart) {
    media.set_host(chart);
    media.fit();
  };
  win32::Win32Dialogs dialogs([&] { return backend.owner(); });
  const system::Platform platform{files, dialogs, backend, clock, regional, drives, shell, media};
  app::Program program(backend, platform, settings);
  backend.between_events = [&program] { program.windows.free_closed(); };
  program.start();
  return backend.run();
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  win32::Win32FileSystem files;  // an engine may still be reading when all windows are gone
  const int code = run(instance, files);
  win32::end_process_despite_workers(code);
  return code;
}
