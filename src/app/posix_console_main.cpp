// The console program on Linux.
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/console.h"
#include "posix/mapped_drives.h"
#include "posix/posix_drives.h"
#include "posix/posix_file_system.h"
#include "posix/posix_services.h"
#include "posix/posix_shell.h"
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
  posix::PosixShell shell(files);
  const app::ConsoleHost host{
      files,
      clock,
      regional,
      drives,
      shell,
      [&](char letter, const std::string& folder) { return mapped.map(letter, folder); },
      [&](const std::string& file) {
        // The file may lie anywhere: its folder is a drive of its own.
        const auto slash = file.rfind('/');
        const std::string folder = slash == std::string::npos ? "." : file.substr(0, slash + 1);
        const auto name =
            text::from_utf8(slash == std::string::npos ? file : file.substr(slash + 1));
        if (!file.empty() && name && config_drive.map('C', folder)) {
          return std::make_unique<settings::Settings>(config_files, regional, "C:\\" + *name);
        }
        return std::make_unique<settings::Settings>(files, regional);
      },
      [&](const std::string& argument) {
        const bool windows = argument.size() > 1 && argument[1] == ':';
        return windows ? text::from_utf8(argument) : mapped.windows(argument);
      }};
  return app::run_console(std::vector<std::string>(arguments + 1, arguments + count), host,
                          std::cout, std::cerr);
}
