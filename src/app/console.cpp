#include "app/console.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>

#include "app/console_report.h"
#include "app/program.h"
#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "location/drive_window.h"
#include "location/search_window.h"
#include "settings/settings.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::app {
namespace {

struct Options {
  std::vector<std::string> drives;
  std::optional<std::string> config;
  bool json = false;
  std::string project;
  std::vector<std::string> items;
  std::string name;
  std::vector<std::string> where;
  std::optional<bool> subfolders;
  std::optional<bool> backups;
};

// A pair of flags of which the last one given counts; none leaves the window's own choice.
void add_choice(CLI::App& command, const std::string& name, std::optional<bool>& choice,
                const std::string& help) {
  command.add_flag_callback(
      "--" + name, [&choice] { choice = true; }, help);
  command.add_flag_callback(
      "--sin-" + name, [&choice] { choice = false; }, "No " + help);
}

// "D=/folder" to a mapped drive. Gives a complaint, or nothing when it went well.
std::optional<std::string> map_drive(const std::string& drive, const ConsoleHost& host) {
  const bool shaped = drive.size() > 2 && drive[1] == '=';
  if (!shaped) return "--unidad " + drive + ": se espera X=CARPETA";
  if (!host.map_drive) return "--unidad " + drive + ": aquí las unidades son las del sistema";
  if (!host.map_drive(drive[0], drive.substr(2))) {
    return "--unidad " + drive + ": no existe la carpeta o no es una letra de unidad";
  }
  return std::nullopt;
}

// Says what is wrong with an argument, in a line of its own. `complaint` is code-page text.
void complain(std::ostream& error, const std::string& argument, const std::string& complaint) {
  error << "ordelan: " << argument << ": " << text::to_utf8(complaint) << "\n";
}

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

// The program on a backend that shows nothing, with every answer recorded.
struct Session {
  Session(const ConsoleHost& host, const Options& options, std::ostream& error)
      : backend(host.clock),
        platform{host.files, dialogs, backend, host.clock, host.regional, host.drives, host.shell},
        settings(settings_of(options, host, error)),
        program(backend, platform, *settings) {
    program.start();
    // The notice that no drive is ticked yet is for the user of the window.
    dialogs.messages.clear();
  }

  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend;
  system::Platform platform;
  std::unique_ptr<settings::Settings> settings;
  Program program;
};

// Why a project cannot be read; nothing when it can.
std::optional<std::string> unreadable(const ArgumentPath& project, const ConsoleHost& host) {
  if (!project.path) return project.motivo;
  if (!host.files.look_up(*project.path)) return "no existe el archivo";
  if (!host.files.open(*project.path)) return "no se puede leer el archivo";
  return std::nullopt;
}

void set_boxes(main_window::Form1& form, const Options& options) {
  if (options.subfolders) form.CheckSubPath.set_checked(*options.subfolders);
  if (options.backups) form.CheckBAK.set_checked(*options.backups);
}

// Prints the text of the strip, with the line ends of a console. False if the strip is hidden.
bool print_strip(const Session& session, std::ostream& error) {
  const ui::TextBox& strip = session.program.form.strip.TextDecode;
  if (!strip.visible()) return false;
  std::string said = text::to_utf8(strip.text());
  said.erase(std::remove(said.begin(), said.end(), '\r'), said.end());
  error << said << "\n";
  return true;
}

// Prints what the window holds.
void report(const Session& session, const Options& options, std::ostream& output) {
  ConsoleReport(session.program, session.dialogs.messages).print(output, options.json);
}

// The exit code of a command that has printed all that it has to.
int leave(const ConsoleHost& host, int code) {
  if (host.leave) host.leave(code);
  return code;
}

// Presses AbrirFichero, and the label that saves the reports where that is asked for.
int open_project(const Options& options, bool save_reports, const ConsoleHost& host,
                 std::ostream& output, std::ostream& error) {
  const ArgumentPath project = host.windows_path(options.project);
  if (const auto complaint = unreadable(project, host)) {
    complain(error, options.project, *complaint);
    return kMisused;
  }

  Session session(host, options, error);
  main_window::Form1& form = session.program.form;
  set_boxes(form, options);
  session.dialogs.files.push_back({*project.path});
  form.AbrirFichero_Click();
  // A backup opened by hand is decoded although it is none of the listed projects.
  const bool decoded = !form.lists.ListVip.empty() || form.decoded_projects() > 0;
  bool saved = true;
  if (save_reports && form.SalvaListados.visible()) {
    form.SalvaListados_Click();
    saved = !form.strip.TextDecode.visible();  // it names the reports that could not be saved
  }
  report(session, options, output);
  const bool reported = print_strip(session, error);
  if (!decoded && !reported) {
    complain(error, options.project, "no se ha descodificado ningún proyecto");
  }
  return leave(host, decoded && saved ? kDone : kRefused);
}

// Drops the items on the list of projects. Those that are missing are named and left out.
int drop(const Options& options, const ConsoleHost& host, std::ostream& output,
         std::ostream& error) {
  std::vector<std::string> items;
  for (const std::string& item : options.items) {
    const ArgumentPath named = host.windows_path(item);
    if (!named.path) {
      complain(error, item, named.motivo);
    } else if (!host.files.info(*named.path)) {
      complain(error, item, "no existe");
    } else {
      items.push_back(*named.path);
    }
  }
  if (items.empty()) return kMisused;
  Session session(host, options, error);
  main_window::Form1& form = session.program.form;
  set_boxes(form, options);
  form.ListProyectos_Drop(items);
  report(session, options, output);
  // What the strip holds after a drop may be a notice about files that were kept: it says nothing
  // of how the drop went.
  print_strip(session, error);
  if (form.decoded_projects() > 0) return leave(host, kDone);
  error << "ordelan: "
        << text::to_utf8(form.lists.ListProyectos.empty()
                             ? "no hay proyectos con audio en lo que se ha soltado"
                             : "no se ha descodificado ningún proyecto")
        << "\n";
  return kRefused;
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

// Searches a file on the drives, as a click on a lost row does.
int search(const Options& options, const ConsoleHost& host, std::ostream& output,
           std::ostream& error) {
  const ArgumentPath name = drive_path(options.name);
  if (!name.path) {
    complain(error, options.name, name.motivo);
    return kMisused;
  }
  if (text::file_name(*name.path).empty()) {
    complain(error, options.name, "no es el nombre de un archivo");
    return kMisused;
  }
  Session session(host, options, error);
  work::WindowDirectory& windows = session.program.windows;
  auto& boxes = *windows.touch<location::UnidadesBuscar>();
  if (const auto complaint = tick(boxes, options)) {
    error << "ordelan: " << text::to_utf8(*complaint) << "\n";
    return kMisused;
  }
  main_window::Form1& form = session.program.form;
  auto& buscar = *windows.touch<location::Buscar>();
  const bool found = buscar.BuscarEnTodasUnidades(*name.path, form.lists.ListUtilizados);
  print_search(output, {found, session.program.work.ArchivoActual, form.strip.TextDecode.text()},
               buscar.List2, options.json);
  if (!found) print_strip(session, error);
  return found ? kDone : kRefused;
}

}  // namespace

int run_console(const std::vector<std::string>& arguments, const ConsoleHost& host,
                std::ostream& output, std::ostream& error) {
  Options options;
  CLI::App app{text::to_utf8("Ordelan sin ventana: qué audio utilizan los proyectos .vip"),
               "ordelan"};
  app.footer(text::to_utf8(
      "Termina con 0 si se ha descodificado o encontrado algo, con 1 si no se ha descodificado,\n"
      "encontrado o salvado, con 2 si se ha usado mal o no hay nada que leer."));
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option("--unidad", options.drives, "X=CARPETA: la unidad X: es esa carpeta")
      ->take_all()
      ->allow_extra_args(false);
  app.add_option("--config", options.config,
                 text::to_utf8("Lee las opciones de este archivo INI; si no se puede, valen las de "
                               "fábrica. Nunca se escribe"));
  app.add_flag("--json", options.json, "Imprime un objeto JSON");
  const auto add_command = [&](const std::string& name, const std::string& help) {
    CLI::App* command = app.add_subcommand(name, text::to_utf8(help));
    add_choice(*command, "subcarpetas", options.subfolders, "incluir las subcarpetas");
    add_choice(*command, "bak", options.backups, "incluir los proyectos Vip_BAK");
    return command;
  };
  CLI::App* open = add_command("abrir", "Abre un proyecto, como el botón de la ventana");
  open->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip")->required();
  CLI::App* reports =
      add_command("listados", "Abre un proyecto y salva los listados de su carpeta");
  reports->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip")->required();
  CLI::App* searched = app.add_subcommand(
      "buscar", text::to_utf8("Busca un archivo en las unidades marcadas en la configuración"));
  searched->add_option("NOMBRE", options.name, "toma.wav, o D:\\Mix\\toma.wav")->required();
  searched->add_option("--en", options.where, "Busca en esta unidad (se puede repetir)")
      ->take_all()
      ->allow_extra_args(false);
  CLI::App* dropped = add_command("soltar", "Suelta proyectos o carpetas en la lista de proyectos");
  dropped->add_option("ITEM", options.items, "Proyectos o carpetas; los que faltan se nombran")
      ->required();

  try {
    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend());
    app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    output << app.help();
    return kDone;
  } catch (const CLI::ParseError& wrong) {
    error << "ordelan: " << wrong.what() << "\n";
    return kMisused;
  }
  for (const std::string& drive : options.drives) {
    if (const auto complaint = map_drive(drive, host)) {
      error << "ordelan: " << text::to_utf8(*complaint) << "\n";
      return kMisused;
    }
  }
  if (searched->parsed()) return search(options, host, output, error);
  if (dropped->parsed()) return drop(options, host, output, error);
  return open_project(options, reports->parsed(), host, output, error);
}

}  // namespace ordelan::app
