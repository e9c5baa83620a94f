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
        platform{host.files, dialogs, backend, host.clock, host.regional},
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

int open_project(const Options& options, const ConsoleHost& host, std::ostream& output,
                 std::ostream& error) {
  const auto path = host.windows_path(options.project);
  const auto complaint =
      path ? unreadable(*path, host) : std::optional<std::string>("no está en ninguna unidad");
  if (complaint) {
    error << "ordelan: " << options.project << ": " << text::to_utf8(*complaint) << "\n";
    return kMisused;
  }

  Session session(host, options.config);
  project::Form1& form = session.program.form;
  if (options.subfolders) form.CheckSubPath.set_checked(*options.subfolders);
  if (options.backups) form.CheckBAK.set_checked(*options.backups);
  session.dialogs.files.push_back({*path});
  form.AbrirFichero_Click();

  const ConsoleReport report(form, session.dialogs.messages);
  report.print(output, options.json);
  if (!form.strip.TextDecode.visible()) return kDone;
  error << text::to_utf8(form.strip.TextDecode.text()) << "\n";
  return kRefused;
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
  CLI::App* open =
      app.add_subcommand("abrir", "Abre un proyecto, como el bot\xC3\xB3n de la ventana");
  open->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip")->required();
  add_choice(*open, "subcarpetas", options.subfolders, "incluir las subcarpetas");
  add_choice(*open, "bak", options.backups, "incluir los proyectos Vip_BAK");

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
  return open_project(options, host, output, error);
}

}  // namespace ordelan::app
