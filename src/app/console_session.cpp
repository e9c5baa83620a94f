#include "app/console_session.h"

#include <algorithm>
#include <ostream>

#include "text/code_page.h"

namespace ordelan::app {
namespace {

// Why a configuration cannot be read; nothing when it can. A hidden one is one too.
std::optional<std::string> unreadable(const ConfigFile& config) {
  if (!config.place.path) return config.place.motivo;
  const auto there = config.files.info(*config.place.path);
  if (!there || there->folder) return "no existe el archivo";
  if (!config.files.open(*config.place.path)) return "no se puede leer el archivo";
  return std::nullopt;
}

// The settings of the named configuration, or of the usual one where none is named. They are never
// written: a script that looks at a project must not change how the window stands.
std::unique_ptr<settings::Settings> settings_of(const Options& options, const ConsoleHost& host,
                                                std::ostream& error) {
  std::unique_ptr<settings::Settings> settings;
  if (!options.config) {
    settings = std::make_unique<settings::Settings>(host.files, host.regional);
  } else {
    const ConfigFile config = host.config(*options.config);
    const auto complaint = unreadable(config);
    if (complaint) {
      complain(error, "--config " + *options.config,
               *complaint + "; valen las opciones de fábrica");
    }
    // Without a file every option has its default.
    settings = std::make_unique<settings::Settings>(config.files, host.regional,
                                                    complaint ? "" : *config.place.path);
  }
  settings->set_read_only();
  return settings;
}

}  // namespace

void complain(std::ostream& error, const std::string& argument, const std::string& complaint) {
  error << "ordelan: " << argument << ": " << text::to_utf8(complaint) << "\n";
}

std::optional<std::string> unreadable(const ArgumentPath& file, const ConsoleHost& host) {
  if (!file.path) return file.motivo;
  if (!host.files.look_up(*file.path)) return "no existe el archivo";
  if (!host.files.open(*file.path)) return "no se puede leer el archivo";
  return std::nullopt;
}

std::vector<std::string> existing(const std::vector<std::string>& items, const ConsoleHost& host,
                                  std::ostream& error) {
  std::vector<std::string> paths;
  for (const std::string& item : items) {
    const ArgumentPath named = host.windows_path(item);
    if (!named.path) {
      complain(error, item, named.motivo);
    } else if (!host.files.info(*named.path)) {
      complain(error, item, "no existe");
    } else {
      paths.push_back(*named.path);
    }
  }
  return paths;
}

Session::Session(const ConsoleHost& host, const Options& options, std::ostream& error)
    : backend(host.clock),
      platform{host.files, dialogs, backend, host.clock, host.regional, host.drives, host.shell},
      settings(settings_of(options, host, error)),
      program(backend, platform, *settings) {
  program.start();
  // The notice that no drive is ticked yet is for the user of the window.
  dialogs.messages.clear();
}

void set_boxes(main_window::Form1& form, const Options& options) {
  if (options.subfolders) form.CheckSubPath.set_checked(*options.subfolders);
  if (options.backups) form.CheckBAK.set_checked(*options.backups);
}

bool print_strip(const Session& session, std::ostream& error) {
  const ui::TextBox& strip = session.program.form.strip.TextDecode;
  if (!strip.visible()) return false;
  std::string said = text::to_utf8(strip.text());
  said.erase(std::remove(said.begin(), said.end(), '\r'), said.end());
  error << said << "\n";
  return true;
}

}  // namespace ordelan::app
