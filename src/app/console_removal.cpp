// Removal and recovery without a screen: the windows of removal, driven as a user drives them.
#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

#include "app/console_json.h"
#include "app/console_report.h"
#include "app/console_session.h"
#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders.h"
#include "removal/recovery.h"
#include "removal/recovery_window.h"
#include "removal/removal_review_window.h"
#include "removal/removal_run.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "text/rows.h"
#include "work/folder_tree.h"

namespace ordelan::app {
namespace {

// A colour word as the program's documents write it: 0xBBGGRR.
std::string color_word(ui::Color color) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "0x%06X", static_cast<unsigned>(color));
  return text.data();
}

// What the user wants to keep: files, and folders with all that lies in them, under whatever path.
class ToKeep {
 public:
  // `kept` must outlive this.
  ToKeep(system::FileSystem& files, const std::vector<std::string>& kept)
      : files_(files), kept_(kept) {
    for (const std::string& each : kept) {
      if (const auto identity = files.identity(each)) identities_.push_back(*identity);
    }
  }

  bool holds(const std::string& row) const {
    const std::string key = text::same_file_key(row);
    for (const std::string& each : kept_) {
      if (key == text::same_file_key(each)) return true;
    }
    if (!removal::folder_around(row, kept_).empty()) return true;
    if (identities_.empty()) return false;
    if (is_kept(row)) return true;
    for (const std::string& folder : work::folders_around(text::getPath(row, "\\"))) {
      if (is_kept(folder)) return true;
    }
    return is_kept(text::getPath(row, "\\"));
  }

 private:
  bool is_kept(const std::string& path) const {
    const auto identity = files_.identity(path);
    return identity &&
           std::find(identities_.begin(), identities_.end(), *identity) != identities_.end();
  }

  system::FileSystem& files_;
  const std::vector<std::string>& kept_;
  std::vector<system::FileIdentity> identities_;
};

// Unticks what is to stay, and takes it out of the list of side files.
void keep(Session& session, removal::ParaBorrar& review, const ToKeep& to_keep) {
  const auto& list = review.ListBorrar.rows();
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (to_keep.holds(list[i])) review.ListStatus.set_ticked(i, false);
  }
  ui::ListBox& side_files = session.program.form.lists.List1;
  side_files.remove_if([&](std::size_t i) { return to_keep.holds(side_files.row(i)); });
}

// Whether what is to be kept is neither there nor a row: a slip of the pen, by which a file would
// go that was to stay.
bool is_nowhere(Session& session, const ConsoleHost& host, const std::string& kept) {
  if (host.files.info(kept)) return false;
  const std::vector<std::string> only = {kept};
  const ToKeep to_keep(host.files, only);
  const auto is_row = [&](const std::string& row) { return to_keep.holds(row); };
  const work::WorkLists& lists = session.program.form.lists;
  return std::ranges::none_of(lists.ListBorrar.rows(), is_row) &&
         std::ranges::none_of(lists.List1.rows(), is_row);
}

const char* deed(const Options& options) {
  return options.to_bin.value_or(false) ? "papelera" : "definitivo";
}

void print_plan(const removal::RemovalRun::Plan& plan, const Options& options,
                std::ostream& output) {
  if (options.json) {
    Json object;
    object["negativa"] = text::to_utf8(plan.negativa);
    object["conservados"] = json_kept(plan.conservados);
    object["plan"] = Json::array();
    for (const auto& each : plan.archivos) {
      object["plan"].push_back({{"ruta", text::to_utf8(each.ruta)},
                                {"accion", each.motivo.empty() ? deed(options) : "conservar"},
                                {"motivo", text::to_utf8(each.motivo)},
                                {"copia", each.copia},
                                {"asociado", each.asociado}});
    }
    output << object.dump(2) << "\n";
    return;
  }
  for (const auto& each : plan.archivos) {
    output << (each.motivo.empty() ? deed(options) : "conservar") << (each.copia ? " + copia" : "")
           << "  " << text::to_utf8(each.ruta);
    if (!each.motivo.empty()) output << text::to_utf8("   (" + each.motivo + ")");
    output << "\n";
  }
}

void print_kept(const std::vector<removal::Kept>& kept, std::ostream& output) {
  for (const removal::Kept& each : kept) {
    output << "  " << text::to_utf8(text::row_with_reason(each.ruta, each.motivo)) << "\n";
  }
}

// What the windows show after a run. The windows are asked for by name: a run may have closed them.
void print_run(Session& session, const Options& options, std::ostream& output) {
  work::WindowDirectory& windows = session.program.windows;
  const auto& run = *windows.touch<removal::BacUp>();
  const auto& review = *windows.touch<removal::ParaBorrar>();
  const removal::RemovalState& state = session.program.form.removal_state();
  if (!options.json) {
    for (const std::string& row : review.ListBorrar.rows()) {
      output << "  " << text::to_utf8(row) << "\n";
    }
    if (run.LabelInfo.visible()) output << text::to_utf8(run.LabelInfo.caption()) << "\n";
    output << text::to_utf8(run.LabelResultado.caption()) << "\n";
    print_kept(state.kept, output);
    return;
  }
  Json object;
  object["ListBorrar"] = json_rows(review.ListBorrar.rows());
  object["ListStatus"] = Json::array();
  for (std::size_t i = 0; i < review.ListStatus.count(); ++i) {
    object["ListStatus"].push_back(review.ListStatus.ticked(i));
  }
  object["LabelErase"] = text::to_utf8(review.LabelErase.caption());
  object["LabelInfo"] = {
      {"texto", run.LabelInfo.visible() ? text::to_utf8(run.LabelInfo.caption()) : ""},
      {"color", color_word(run.LabelInfo.fore_color())}};
  object["LabelResultado"] = text::to_utf8(run.LabelResultado.caption());
  object["noBorrados"] = json_kept(state.kept);
  object["borrados"] = state.gone;
  object["asociados"] = state.side_files_gone;
  output << object.dump(2) << "\n";
}

// Fills the lists of the main window. Gives the exit code of a failure, nothing when all went well.
std::optional<int> fill_lists(Session& session, const Options& options, const ConsoleHost& host,
                              std::ostream& error) {
  if (options.items.empty()) return open_named_project(session, options, host, error);
  main_window::Form1& form = session.program.form;
  set_boxes(form, options);
  const std::vector<std::string> items = existing(options.items, host, error);
  // An item that is missing may be one whose projects use what would be removed.
  if (items.size() != options.items.size()) return kMisused;
  form.ListProyectos_Drop(items);
  if (form.decoded_projects() > 0) return std::nullopt;
  return no_project(session, error);
}

}  // namespace

int remove_unused(const Options& options, const ConsoleHost& host, std::ostream& output,
                  std::ostream& error) {
  if (options.project.empty() && options.items.empty()) {
    error << "ordelan: falta PROYECTO o --soltar\n";
    return kMisused;
  }
  if (!options.to_bin && !options.simulate) {
    error << "ordelan: falta --papelera o --definitivo\n";
    return kMisused;
  }
  std::string folder;
  if (options.copy_to) {
    const ArgumentPath named = host.windows_path(*options.copy_to);
    const auto there = named.path ? host.files.info(*named.path) : std::nullopt;
    if (!there || !there->folder) {
      complain(error, "--copia " + *options.copy_to,
               named.path ? "no existe la carpeta" : named.motivo);
      return kMisused;
    }
    folder = *named.path;
  }
  std::vector<std::string> kept;
  for (const std::string& each : options.keep) {
    const ArgumentPath named = host.windows_path(each);
    if (!named.path) {
      complain(error, "--conservar " + each, named.motivo);
      return kMisused;
    }
    if (named.path->find_first_of("*?") != std::string::npos) {
      complain(error, "--conservar " + each, "no puede llevar comodines");
      return kMisused;
    }
    kept.push_back(*named.path);
  }

  Session session(host, options, error);
  work::WindowDirectory& windows = session.program.windows;
  if (const auto failed = fill_lists(session, options, host, error)) return *failed;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    if (!is_nowhere(session, host, kept[i])) continue;
    complain(error, "--conservar " + options.keep[i], "no existe");
    return kMisused;
  }
  auto& run = *windows.touch<removal::BacUp>();
  auto& review = *windows.touch<removal::ParaBorrar>();
  run.CheckBorrar.set_checked(true);
  run.CheckBackup.set_checked(options.copy_to.has_value());
  run.CheckBorraAsociados.set_checked(options.side_files);
  run.CheckComprobar.set_checked(!options.unchecked);
  review.CheckConfirmar.set_checked(false);
  review.CheckVaciarPapelera.set_checked(false);
  review.CheckBorrarPapelera.set_checked(options.to_bin.value_or(false));
  if (!kept.empty()) keep(session, review, ToKeep(host.files, kept));
  // What they use may be among what is removed.
  print_left_out(error, session.program.work);

  if (options.simulate) {
    const auto plan = run.plan();
    print_plan(plan, options, output);
    if (!plan.negativa.empty()) {
      error << "ordelan: " << text::to_utf8(plan.negativa) << "\n";
      return kRefused;
    }
    return kDone;
  }
  if (options.copy_to) session.dialogs.folders.push_back(folder);
  review.cmdHecho_Click();
  if (options.copy_to) windows.touch<removal::CarpetaBack>()->cmdCarpetaBorrar_Click();
  print_run(session, options, output);
  const removal::RemovalState& state = session.program.form.removal_state();
  return state.begun && state.kept.empty() ? kDone : kRefused;
}

int recover(const Options& options, const ConsoleHost& host, std::ostream& output,
            std::ostream& error) {
  const ArgumentPath log = host.windows_path(options.log);
  if (const auto complaint = unreadable(log, host)) {
    complain(error, options.log, *complaint);
    return kMisused;
  }
  Session session(host, options, error);
  work::WindowDirectory& windows = session.program.windows;
  session.dialogs.files.push_back({*log.path});
  windows.touch<removal::Recuperar>()->cmdOpen_Click();
  auto* const window = windows.find<removal::Recuperar>();
  if (window == nullptr || window->log().empty()) {
    complain(error, options.log,
             window == nullptr ? "no tiene archivos para recuperar" : window->Label1.caption());
    return kMisused;
  }

  std::vector<removal::Kept> kept;
  std::size_t recovered = 0;
  Json planned = Json::array();
  if (options.simulate) {
    const removal::Recovery recovery(host.files, host.shell, window->log(), [] { return true; });
    for (const std::string& row : window->ListRecuperar.rows()) {
      const auto step = recovery.plan(row);
      if (!step.motivo.empty()) kept.push_back({row, step.motivo, {}});
      planned.push_back({{"ruta", text::to_utf8(row)},
                         {"copia", text::to_utf8(step.copy)},
                         {"motivo", text::to_utf8(step.motivo)}});
    }
  } else {
    window->RecuperarArchivos();
    kept = window->not_recovered();
    recovered = window->recovered();
  }
  if (options.json) {
    Json object;
    object["ListRecuperar"] = json_rows(window->ListRecuperar.rows());
    object["Label1"] = text::to_utf8(window->Label1.caption());
    object["recuperados"] = recovered;
    object["noRecuperados"] = json_kept(kept);
    if (options.simulate) object["plan"] = planned;
    output << object.dump(2) << "\n";
  } else {
    for (const auto& step : planned) {
      if (!step["copia"].get<std::string>().empty()) {
        output << step["copia"].get<std::string>() << " -> " << step["ruta"].get<std::string>()
               << "\n";
      }
    }
    output << text::to_utf8(window->Label1.caption()) << "\n";
    if (!options.simulate) output << recovered << " recuperados\n";
    print_kept(kept, output);
  }
  return kept.empty() ? kDone : kRefused;
}

}  // namespace ordelan::app
