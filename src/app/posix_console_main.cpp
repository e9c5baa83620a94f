// The console program on Linux.
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "app/console.h"
#include "audio/media_facts.h"
#include "posix/mapped_drives.h"
#include "posix/posix_drives.h"
#include "posix/posix_file_system.h"
#include "posix/posix_services.h"
#include "posix/posix_shell.h"
#include "posix/silent_media.h"
#include "text/code_page.h"

int main(int count, char** arguments) {
  using namespace ordelan;
  posix::MappedDrives mapped;
  posix::PosixFileSystem files(mapped);
  posix::MappedDrives config_drive;
  posix::PosixFileSystem config_files(config_drive);
  posix::SteadyClock clock;
  posix::EnvironmentRegional regional;
  posix::PosixDrives drives(mapped);
  posix::PosixShell shell(files, mapped, posix::users_trash());
  posix::SilentMedia media(clock, audio::media_facts(files));
  const app::ConsoleHost host{
      files,
      clock,
      regional,
      drives,
      shell,
      media,
      [&](char letter, const std::string& folder) { return mapped.map(letter, folder); },
      [&](const std::string& file) {
        if (app::has_drive(file)) return app::ConfigFile{files, app::drive_path(file)};
        // The file may lie anywhere: its folder is a drive of its own.
        const auto slash = file.rfind('/');
        const std::string folder = slash == std::string::npos ? "." : file.substr(0, slash + 1);
        auto place = app::drive_path("C:\\" + file.substr(slash + 1));
        if (!config_drive.map('C', folder)) place = app::ArgumentPath::none("no existe la carpeta");
        return app::ConfigFile{config_files, std::move(place)};
      },
      [&](const std::string& argument) {
        if (app::has_drive(argument)) return app::drive_path(argument);
        if (auto path = mapped.windows(argument)) return app::ArgumentPath::of(std::move(*path));
        const auto below = mapped.below_drive(argument);
        if (!below) return app::ArgumentPath::none("no está en ninguna unidad");
        return app::ArgumentPath::none(text::from_utf8(*below) ? "Windows no admite este nombre"
                                                               : app::kNotInCodePage);
      },
      [] { std::this_thread::sleep_for(std::chrono::milliseconds(5)); },
      [](int code) {
        std::cout.flush();
        std::cerr.flush();
        std::_Exit(code);
      }};
  return app::run_console(std::vector<std::string>(arguments + 1, arguments + count), host,
                          std::cout, std::cerr);
}
