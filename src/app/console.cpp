#include "app/console.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "app/console_report.h"
#include "app/program.h"
#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "location/drive_boxes.h"
#include "location/search_window.h"
#include "text/code_page.h"

namespace ordelan::app {
namespace {

struct Options {
  std::vector<std::string> drives;
  std::string config;
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

// The program on a backend that shows nothing, with every answer recorded.
struct Session {
  Session(const ConsoleHost& host, const std::string& config)
      : backend(host.clock),
        platform{host.files, dialogs, backend, host.clock, host.regional, host.drives, host.shell},
        settings(host.settings(config)),
        program(backend, platform, *settings) {
    program.start();
    // That no drive is ticked yet is for who sits before the window.
    dialogs.messages.clear();
  }

  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend;
  system::Platform platform;
  std::unique_ptr<settings::Settings> settings;
  Program program;
};

// A complaint about a project that cannot be read; nothing when it can.
std::optional<std::string> unreadable(const std::string& path, const ConsoleHost& host) {
  if (!host.files.look_up(path)) return "no existe el archivo";
  if (!host.files.open(path)) return "no se puede leer el archivo";
  return std::nullopt;
}

void set_boxes(project::Form1& form, const Options& options) {
  if (options.subfolders) form.CheckSubPath.set_checked(*options.subfolders);
  if (options.backups) form.CheckBAK.set_checked(*options.backups);
}

// Prints what the window holds, and the warning where it refused.
int finish(const Session& session, const Options& options, std::ostream& output,
           std::ostream& error) {
  const project::Form1& form = session.program.form;
  ConsoleReport(session.program, session.dialogs.messages).print(output, options.json);
  if (!form.strip.TextDecode.visible()) return kDone;
  error << text::to_utf8(form.strip.TextDecode.text()) << "\n";
  return kRefused;
}

// Presses AbrirFichero, and the label that saves the reports where that is asked for.
int open_project(const Options& options, bool save_reports, const ConsoleHost& host,
                 std::ostream& output, std::ostream& error) {
  const auto path = host.windows_path(options.project);
  const auto complaint =
      path ? unreadable(*path, host) : std::optional<std::string>("no está en ninguna unidad");
  if (complaint) {
    error << "ordelan: " << options.project << ": " << text::to_utf8(*complaint) << "\n";
    return kMisused;
  }

  Session session(host, options.config);
  project::Form1& form = session.program.form;
  set_boxes(form, options);
  session.dialogs.files.push_back({*path});
  form.AbrirFichero_Click();
  if (save_reports && form.SalvaListados.visible()) form.SalvaListados_Click();
  return finish(session, options, output, error);
}

// Drops the items on the list of projects.
int drop(const Options& options, const ConsoleHost& host, std::ostream& output,
         std::ostream& error) {
  std::vector<std::string> items;
  for (const std::string& item : options.items) {
    const auto path = host.windows_path(item);
    if (!path || !host.files.info(*path)) {
      error << "ordelan: " << item << ": " << text::to_utf8("no existe o no está en ninguna unidad")
            << "\n";
      return kMisused;
    }
    items.push_back(*path);
  }
  Session session(host, options.config);
  project::Form1& form = session.program.form;
  set_boxes(form, options);
  form.ListProyectos_Drop(items);
  const int code = finish(session, options, output, error);
  if (code == kDone && form.lists.ListProyectos.empty()) {
    error << "ordelan: no hay proyectos con audio en lo que se ha soltado\n";
    return kRefused;
  }
  return code;
}

// Ticks the boxes of the drives that the options name, and those alone. Gives a complaint about one
// that has no box.
std::optional<std::string> tick(location::DriveBoxes& boxes, const Options& options) {
  if (options.where.empty()) return std::nullopt;
  for (auto& box : boxes.Check1) box->set_checked(false);
  for (const std::string& drive : options.where) {
    const bool shaped = drive.size() == 1 || (drive.size() <= 3 && drive[1] == ':');
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
  const auto name = text::from_utf8(options.name);
  if (!name) {
    error << "ordelan: " << options.name
          << text::to_utf8(": este nombre no cabe en la página de códigos") << "\n";
    return kMisused;
  }
  Session session(host, options.config);
  work::WindowDirectory& windows = session.program.windows;
  auto& boxes = *windows.touch_as<location::DriveBoxes>("UnidadesBuscar");
  if (const auto complaint = tick(boxes, options)) {
    error << "ordelan: " << text::to_utf8(*complaint) << "\n";
    return kMisused;
  }
  project::Form1& form = session.program.form;
  auto& buscar = *windows.touch_as<location::Buscar>("Buscar");
  const bool found = buscar.BuscarEnTodasUnidades(*name, form.lists.ListUtilizados);
  print_search(output, {found, session.program.work.ArchivoActual, form.strip.TextDecode.text()},
               buscar.List2, options.json);
  if (!found) error << text::to_utf8(form.strip.TextDecode.text()) << "\n";
  return found ? kDone : kRefused;
}

}  // namespace

int run_console(const std::vector<std::string>& arguments, const ConsoleHost& host,
                std::ostream& output, std::ostream& error) {
  Options options;
  CLI::App app{text::to_utf8("Ordelan sin ventana: qué audio utilizan los proyectos .vip"),
               "ordelan"};
  app.require_subcommand(1);
  app.fallthrough();
  app.add_option("--unidad", options.drives, "X=CARPETA: la unidad X: es esa carpeta")
      ->take_all()
      ->allow_extra_args(false);
  app.add_option("--config", options.config, "Lee las opciones de este archivo INI");
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
  dropped->add_option("ITEM", options.items, "Proyectos o carpetas")->required();

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
