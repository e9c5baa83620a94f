#include "app/console_session.h"

#include <algorithm>
#include <ostream>

#include "text/code_page.h"
#include "text/paths.h"

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
      platform{host.files,    dialogs,     backend,    host.clock,
               host.regional, host.drives, host.shell, host.media},
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

// Ticks the boxes of the drives that the options name, and those alone. Gives a complaint about one
// that has no box.
std::optional<std::string> tick(location::UnidadesBuscar& boxes, const Options& options) {
  if (options.where.empty()) return std::nullopt;
  for (auto& box : boxes.Check1) box->set_checked(false);
  for (const std::string& drive : options.where) {
    const std::string path = full_path(drive);
    const bool shaped = drive.size() == 1 || (path.size() == 3 && path.ends_with(":\\"));
    const auto box = std::find_if(boxes.Check1.begin(), boxes.Check1.end(), [&](const auto& each) {
      return shaped && !each->tag().empty() && text::lower(each->tag()[0]) == text::lower(drive[0]);
    });
    if (box == boxes.Check1.end()) return "--en " + drive + ": no hay tal unidad";
    (*box)->set_checked(true);
  }
  return std::nullopt;
}

std::optional<int> open_named_project(Session& session, const Options& options,
                                      const ConsoleHost& host, std::ostream& error) {
  const ArgumentPath project = host.windows_path(options.project);
  if (const auto complaint = unreadable(project, host)) {
    complain(error, options.project, *complaint);
    return kMisused;
  }
  main_window::Form1& form = session.program.form;
  set_boxes(form, options);
  session.dialogs.files.push_back({*project.path});
  form.AbrirFichero_Click();
  if (form.decoded_projects() > 0) return std::nullopt;
  return no_project(session, error);
}

int no_project(const Session& session, std::ostream& error) {
  print_strip(session, error);
  error << "ordelan: " << text::to_utf8("no se ha descodificado ningún proyecto") << "\n";
  return kRefused;
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
