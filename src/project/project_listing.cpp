#include "project/project_listing.h"

#include <utility>

#include "text/code_page.h"
#include "text/rows.h"
#include "text/wildcard.h"

namespace ordelan::project {
namespace {

bool is_backup(const std::string& path) {
  return path.find("_BAK") != std::string::npos;
}

bool ends_in_vip(const std::string& name) {
  return name.size() >= 3 && text::lower(std::string_view(name).substr(name.size() - 3)) == "vip";
}

}  // namespace

void ProjectListing::list_flat(bool with_backups) {
  std::vector<std::string> candidates;
  for (const auto& entry : tree_.listing(work_.RutaProyectos).files) {
    if (entry.plain && text::matches("*.vip", entry.name)) {
      candidates.push_back(work_.RutaProyectos + entry.name);
    }
  }
  lists_.List1.clear();
  lists_.List1.add(candidates);

  lists_.ListProyectos.hide();
  system::Pacer pacer(platform_.pump, platform_.clock);
  const auto job = work_.current_job();
  std::size_t number = 1;
  for (const std::string& path : candidates) {
    if (!with_backups && is_backup(path)) continue;
    const bool valid = validator_.Valido(path);
    if (work_.superseded(job)) return;
    if (valid) lists_.ListProyectos.add(text::project_row(number++, path));
    pacer.turn();
    if (work_.superseded(job)) return;
  }
}

void ProjectListing::ListarCarpetas() {
  ui::Window& window = lists_.ListProyectos.window();
  window.set_waiting(true);
  platform_.pump.pump();
  const auto job = work_.current_job();
  system::Pacer pacer(platform_.pump, platform_.clock);
  const std::string root = system::with_backslash(text::trim(work_.RutaProyectos));
  std::vector<std::string> folders = {std::string(text::trim(work_.RutaProyectos))};
  tree_.walk(root, [&](const std::string& folder, const FolderTree::Listing& listing) {
    if (folder != root) folders.push_back(folder.substr(0, folder.size() - 1));
    if (folder == root && !listing.readable && !platform_.files.info(root)) {
      platform_.dialogs.message({.title = "", .text = "No se ha encontrado la ruta de acceso"});
    }
    return !(pacer.turn() && work_.must_stop(job));
  });
  if (work_.superseded(job)) return;
  lists_.List1.clear();
  lists_.List1.add(std::move(folders));
  window.set_waiting(false);
}

void ProjectListing::ListarProyectosCarpetas(bool with_backups) {
  lists_.ListProyectos.clear();
  const auto job = work_.current_job();
  system::Pacer pacer(platform_.pump, platform_.clock);
  std::size_t number = 0;
  const auto folders = lists_.List1.kept_rows();
  for (const std::string& row : *folders) {
    const std::string folder = system::with_backslash(row);
    for (const auto& entry : tree_.listing(folder).files) {
      if (!ends_in_vip(entry.name) || (!with_backups && is_backup(entry.name))) continue;
      const bool valid = validator_.Valido(folder + entry.name);
      if (work_.superseded(job)) return;
      if (valid) lists_.ListProyectos.add(text::project_row(++number, folder + entry.name));
      pacer.turn();
      if (work_.superseded(job)) return;
    }
    pacer.turn();
    if (work_.superseded(job)) return;
  }
}

}  // namespace ordelan::project
