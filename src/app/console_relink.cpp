// Relinking without a screen: the labels of the main window, pressed as a user presses them.
#include <charconv>
#include <ostream>

#include "app/console_json.h"
#include "app/console_report.h"
#include "app/console_session.h"
#include "location/drive_window.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::app {
namespace {

using relink::PathChange;
using relink::ProjectUpdate;

// What `--elegir` says.
struct Choice {
  bool none = false;
  std::optional<std::size_t> number = std::nullopt;  // from 1
};

// Nothing for a text that is no choice.
std::optional<Choice> choice_of(const std::string& text) {
  if (text == "primera") return Choice{.number = 1};
  if (text == "ninguna") return Choice{.none = true};
  std::size_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number == 0) {
    return std::nullopt;
  }
  return Choice{.number = number};
}

// Answers for the user where a name has several hits. A project without an answer is left alone.
void answer_for(relink::UpdateOptions& options, const std::optional<Choice>& choice) {
  const auto left = std::make_shared<bool>(false);
  options.on_several = [choice,
                        left](const std::vector<std::string>& hits) -> std::optional<std::string> {
    if (choice && choice->none) return std::nullopt;
    if (choice && *choice->number <= hits.size()) return hits[*choice->number - 1];
    *left = true;
    return std::nullopt;
  };
  options.leaves_project = [left] { return std::exchange(*left, false); };
}

const char* icon_name(system::Icon icon) {
  switch (icon) {
    case system::Icon::critical:
      return "critical";
    case system::Icon::exclamation:
      return "exclamation";
    case system::Icon::information:
      return "information";
    default:
      return "";
  }
}

// Code-page bytes as JSON: NULs, which stand in what foreign pointers lead to, are kept.
std::string shown(const std::string& path) {
  return text::to_utf8(path);
}

Json json_of(const PathChange& change) {
  return {{"old", shown(change.vieja)},
          {"new", shown(change.nueva)},
          {"found", change.hallada},
          {"overlong", change.sobrescritos},
          {"left", change.untouched != relink::Untouched::no}};
}

std::string result_of(const ProjectUpdate& project) {
  if (!project.motivo.empty()) return "no: " + project.motivo;
  if (project.creado) return "creado: " + project.destino;
  return project.cambiado ? "actualizado" : "ya estaba así";
}

void print_update(const relink::Relink::Outcome& outcome, const Options& options,
                  std::ostream& output) {
  if (options.json) {
    Json object;
    object["Informe"] = text::to_utf8(outcome.Informe);
    object["titulo"] = text::to_utf8(outcome.titulo);
    object["icono"] = icon_name(outcome.icono);
    object["proyectos"] = Json::array();
    for (const ProjectUpdate& project : outcome.proyectos) {
      Json pairs = Json::array();
      for (const PathChange& change : project.rutas) pairs.push_back(json_of(change));
      object["proyectos"].push_back({{"path", text::to_utf8(project.ruta)},
                                     {"target", text::to_utf8(project.destino)},
                                     {"result", text::to_utf8(result_of(project))},
                                     {"pairs", pairs}});
    }
    output << object.dump(2) << "\n";
    return;
  }
  output << text::to_utf8(outcome.titulo) << "\n";
  for (const ProjectUpdate& project : outcome.proyectos) {
    output << text::to_utf8(project.ruta + "   (" + result_of(project) + ")") << "\n";
    for (const PathChange& change : project.rutas) {
      output << "  " << shown(change.vieja);
      if (change.untouched == relink::Untouched::no ||
          change.untouched == relink::Untouched::too_long) {
        output << " -> " << shown(change.nueva) << (change.hallada ? "" : "   (no encontrado)");
      }
      if (change.untouched != relink::Untouched::no) output << "   (se deja)";
      if (change.sobrescritos > 0) {
        output << "   (sobrescribe " << change.sobrescritos << " bytes)";
      }
      output << "\n";
    }
  }
}

bool all_done(const relink::Relink::Outcome& outcome) {
  for (const ProjectUpdate& project : outcome.proyectos) {
    // What lies in a folder of originals is never updated.
    if (!project.motivo.empty() && !relink::is_original(project.ruta)) return false;
    for (const PathChange& change : project.rutas) {
      if (change.untouched == relink::Untouched::too_long) return false;
    }
  }
  return outcome.informe_guardado;
}

}  // namespace

int write_pointers(const Options& options, const ConsoleHost& host, std::ostream& output,
                   std::ostream& error) {
  const ArgumentPath folder = host.windows_path(options.folder);
  const auto there = folder.path ? host.files.info(*folder.path) : std::nullopt;
  if (!there || !there->folder) {
    complain(error, options.folder, folder.path ? "no existe la carpeta" : folder.motivo);
    return kMisused;
  }
  Session session(host, options, error);
  if (const auto failed = open_named_project(session, options, host, error)) return *failed;
  main_window::Form1& form = session.program.form;
  const std::string place = system::with_backslash(*folder.path);
  const auto names = form.relink().GrabarPunteros(place);
  // Rows of one name have one file.
  const bool all = names.size() == form.lists.ListProyectos.count();
  Json written = Json::array();
  for (const std::string& name : names) written.push_back(text::to_utf8(place + name));
  if (options.json) {
    output << Json{{"punteros", written}}.dump(2) << "\n";
  } else {
    for (const auto& file : written) output << file.get<std::string>() << "\n";
  }
  return all ? kDone : kRefused;
}

int update_projects(const Options& options, const ConsoleHost& host, std::ostream& output,
                    std::ostream& error) {
  const auto choice = options.choice.empty() ? std::nullopt : choice_of(options.choice);
  if (!options.choice.empty() && !choice) {
    complain(error, "--elegir " + options.choice, "se espera primera, ninguna o un número");
    return kMisused;
  }
  Session session(host, options, error);
  auto& boxes = *session.program.windows.touch<location::UnidadesBuscar>();
  if (const auto complaint = tick(boxes, options)) {
    error << "ordelan: " << text::to_utf8(*complaint) << "\n";
    return kMisused;
  }
  if (const auto failed = open_named_project(session, options, host, error)) return *failed;
  relink::Relink& relink = session.program.form.relink();
  relink.options.simulate = options.simulate;
  relink.options.careful = options.careful;
  answer_for(relink.options, choice);
  session.dialogs.messages.clear();
  session.dialogs.answers.push_back(system::Answer::yes);
  relink.ActualizarVip_Click();
  const auto& outcome = relink.outcome();
  if (!outcome.begun && outcome.titulo.empty()) {
    const auto& messages = session.dialogs.messages;
    if (!messages.empty()) error << text::to_utf8(messages.back().text) << "\n";
    return kRefused;
  }
  print_update(outcome, options, output);
  print_strip(session, error);
  return all_done(outcome) ? kDone : kRefused;
}

int undo_update(const Options& options, const ConsoleHost& host, std::ostream& output,
                std::ostream& error) {
  // The project itself may be missing or of no use by now: that of its folder will do.
  const ArgumentPath project = host.windows_path(options.project);
  if (!project.path) {
    complain(error, options.project, project.motivo);
    return kMisused;
  }
  Session session(host, options, error);
  relink::Relink& relink = session.program.form.relink();
  relink.look_for_undo(text::getPath(*project.path, "\\"));
  session.dialogs.answers.push_back(system::Answer::yes);
  if (options.give_up) session.dialogs.answers.push_back(system::Answer::yes);
  relink.DeshacerActualizacion_Click();
  const auto& left = relink.not_undone();
  if (!left) {
    complain(error, options.project, "no hay ninguna actualización que deshacer");
    return kMisused;
  }
  if (options.json) {
    output << Json{{"noRestaurados", json_kept(*left)}}.dump(2) << "\n";
  } else {
    print_strip(session, output);
  }
  return left->empty() ? kDone : kRefused;
}

}  // namespace ordelan::app
