// Ordelan's window on Windows.
#include <windows.h>

#include "app/look.h"
#include "app/program.h"
#include "win32/paint/drawing_tools.h"
#include "win32/peers/win32_backend.h"
#include "win32/ports/win32_clock.h"
#include "win32/ports/win32_dialogs.h"
#include "win32/ports/win32_drives.h"
#include "win32/ports/win32_file_system.h"
#include "win32/ports/win32_regional.h"
#include "win32/ports/win32_shell.h"

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
  using namespace ordelan;
  win32::Win32FileSystem files;
  win32::Win32Clock clock;
  win32::Win32Regional regional;
  win32::Win32Drives drives;
  win32::Win32Shell shell;
  win32::use_palette(app::skin_palette());
  win32::Win32Backend backend(instance);
  win32::Win32Dialogs dialogs([&] { return backend.owner(); });
  const system::Platform platform{files, dialogs, backend, clock, regional, drives, shell};
  settings::Settings settings(files, regional);
  app::Program program(backend, platform, settings);
  backend.between_events = [&program] { program.windows.free_closed(); };
  program.start();
  return backend.run();
}
