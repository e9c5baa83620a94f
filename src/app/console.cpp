#include "app/console.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <ostream>

#include "app/console_report.h"
#include "app/program.h"
#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "text/code_page.h"

namespace ordelan::app {
namespace {

struct Options {
  std::vector<std::string> drives;
  std::string config;
  bool json = false;
  std::string project;
  std::vector<std::string> items;
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
  ConsoleReport(form, session.dialogs.messages).print(output, options.json);
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
  if (dropped->parsed()) return drop(options, host, output, error);
  return open_project(options, reports->parsed(), host, output, error);
}

}  // namespace ordelan::app
