#include "app/console.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <optional>
#include <ostream>

#include "app/console_report.h"
#include "app/console_session.h"
#include "location/drive_window.h"
#include "location/search_window.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::app {
namespace {

// A pair of flags of which the last one given counts; none leaves the window's own choice.
void add_choice(CLI::App& command, const std::string& name, std::optional<bool>& choice,
                const std::string& help) {
  CLI::Option* const yes = command.add_flag_callback(
      "--" + name, [&choice] { choice = true; }, help);
  command
      .add_flag_callback(
          "--sin-" + name, [&choice] { choice = false; }, "No " + help)
      ->excludes(yes);
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

// Prints what the window holds.
void report(Session& session, const Options& options, std::ostream& output) {
  ConsoleReport report(session.program, session.dialogs.messages);
  if (options.named) {
    // Nothing ends the look here.
    report.add_named(session.program.form.named_files([] { return true; })
                         .value_or(std::vector<removal::Kept>()));
  }
  report.print(output, options.json);
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
  form.may_remove = false;
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
  const std::vector<std::string> items = existing(options.items, host, error);
  if (items.empty()) return kMisused;
  Session session(host, options, error);
  main_window::Form1& form = session.program.form;
  set_boxes(form, options);
  form.may_remove = false;
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
  open->add_flag("--nombrados", options.named,
                 text::to_utf8("Busca los archivos no utilizados en todos los proyectos, y lista "
                               "los que alguno nombra"));
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

  CLI::App* removed = add_command("borrar", "Borra los archivos que no utiliza ningún proyecto");
  removed->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip");
  removed
      ->add_option("--soltar", options.items,
                   "Suelta estos proyectos o carpetas en lugar de abrir un proyecto")
      ->excludes("PROYECTO");
  removed->add_flag("--asociados", options.side_files,
                    text::to_utf8("Borra también los archivos asociados"));
  removed->add_option("--copia", options.copy_to,
                      "Hace antes una copia de seguridad en esta carpeta, que tiene que existir");
  CLI::Option* const to_bin = removed->add_flag_callback(
      "--papelera", [&] { options.to_bin = true; }, "Los archivos van a la papelera");
  removed
      ->add_flag_callback(
          "--definitivo", [&] { options.to_bin = false; }, "Los archivos se borran para siempre")
      ->excludes(to_bin);
  removed
      ->add_option("--conservar", options.keep,
                   text::to_utf8("Conserva este archivo, o todo lo que hay en esta carpeta (se "
                                 "puede repetir)"))
      ->take_all()
      ->allow_extra_args(false);
  removed->add_flag("--sin-comprobar", options.unchecked,
                    "No comprueba antes los proyectos, los cambios ni los enlaces");
  removed->add_flag("--simular", options.simulate, text::to_utf8("Solo dice qué haría y por qué"));
  removed->footer(text::to_utf8(
      "Termina con 0 si todo se ha borrado, con 1 si algo ha quedado en su sitio o no "
      "se ha\nempezado, con 2 si se ha usado mal."));
  CLI::App* recovered =
      app.add_subcommand("recuperar", "Devuelve a su sitio los archivos de una copia de seguridad");
  recovered->add_option("LOG", options.log, "E:\\Copias\\Archivos_Borrados.log")->required();
  recovered->footer(
      text::to_utf8("Termina con 0 si todo ha vuelto a su sitio, con 1 si algo no, con 2 si se ha "
                    "usado mal."));
  recovered->add_flag("--simular", options.simulate,
                      text::to_utf8("Solo dice qué haría y por qué"));

  CLI::App* pointed =
      add_command("punteros", "Graba los archivos de punteros de los proyectos en una carpeta");
  pointed->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip")->required();
  pointed->add_option("CARPETA", options.folder, "Carpeta que tiene que existir")->required();
  CLI::App* updated =
      add_command("actualizar", "Lleva los proyectos a donde están ahora sus archivos de audio");
  updated->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip")->required();
  updated->add_option("--en", options.where, "Busca en esta unidad (se puede repetir)")
      ->take_all()
      ->allow_extra_args(false);
  updated->add_option("--elegir", options.choice,
                      text::to_utf8("De varios archivos del mismo nombre: primera, ninguna o su "
                                    "número; sin ella el proyecto se deja como está"));
  updated->add_flag("--simular", options.simulate, text::to_utf8("Solo dice qué haría"));
  updated->add_flag("--en-su-carpeta", options.careful,
                    text::to_utf8("Cada proyecto en su carpeta; lo que existe o no cabe se deja"));
  CLI::App* undone = app.add_subcommand(
      "deshacer", text::to_utf8("Deshace la última actualización de la carpeta de un proyecto"));
  undone->add_option("PROYECTO", options.project, "D:\\Mix\\tema.vip")->required();
  undone->add_flag("--omitir", options.give_up,
                   text::to_utf8("Da por deshecha una actualización de la que nada se puede "
                                 "restaurar, para poder deshacer la anterior"));
  CLI::App* informed = app.add_subcommand(
      "info", text::to_utf8("Dice qué es un archivo de audio: formato, duración y etiquetas"));
  informed->add_option("ARCHIVO", options.audio, "D:\\Mix\\toma.wav")->required();
  informed->footer(
      text::to_utf8("Termina con 0, también si nada se reconoce; con 2 si no hay tal archivo."));
  CLI::App* played = app.add_subcommand(
      "reproducir", text::to_utf8("Reproduce un archivo de audio; en Linux, sin sonido"));
  played->add_option("ARCHIVO", options.audio, "D:\\Mix\\toma.wav")->required();
  played->add_option("--segundos", options.seconds, "Hasta entonces, si no ha terminado antes")
      ->check(CLI::NonNegativeNumber);
  played->add_option("--volumen", options.volume, "De 0 a 100")->check(CLI::Range(0, 100));
  played->footer(text::to_utf8(
      "Termina con 0 si ha sonado, con 1 si no se puede reproducir, con 2 si no hay tal archivo."));
  for (CLI::App* const command : {pointed, updated, undone}) {
    command->footer(text::to_utf8(
        "Termina con 0 si se ha hecho todo, con 1 si algo ha quedado, con 2 si se ha usado mal."));
  }

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
  if (removed->parsed()) return remove_unused(options, host, output, error);
  if (recovered->parsed()) return recover(options, host, output, error);
  if (pointed->parsed()) return write_pointers(options, host, output, error);
  if (updated->parsed()) return update_projects(options, host, output, error);
  if (informed->parsed()) return show_info(options, host, output, error);
  if (played->parsed()) return play_file(options, host, output, error);
  if (undone->parsed()) return undo_update(options, host, output, error);
  if (searched->parsed()) return search(options, host, output, error);
  if (dropped->parsed()) return drop(options, host, output, error);
  return open_project(options, reports->parsed(), host, output, error);
}

}  // namespace ordelan::app
