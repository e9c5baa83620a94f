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

// The wait cursor of a window, for as long as this lives: also a walk that was broken off gives the
// pointer back.
class WaitCursor {
 public:
  explicit WaitCursor(ui::Window& window) : window_(window) { window_.set_waiting(true); }
  ~WaitCursor() { window_.set_waiting(false); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  ui::Window& window_;
};

}  // namespace

bool ProjectListing::accepts(const std::string& path) {
  if (gate_.Valido(path)) return true;
  const auto why = gate_.refusal();
  if (why && is_project_name(path)) left_out_.add(path, *why);
  return false;
}

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
    if (!with_backups && is_backup(path)) {
      left_out_.add(path, WhyOut::backup);
      continue;
    }
    const bool valid = accepts(path);
    if (work_.superseded(job)) return;
    if (valid) lists_.ListProyectos.add(text::project_row(number++, path));
    pacer.turn();
    if (work_.superseded(job)) return;
  }
}

void ProjectListing::ListarCarpetas() {
  const auto job = work_.current_job();
  const WaitCursor waiting(lists_.ListProyectos.window());
  platform_.pump.pump();
  if (work_.superseded(job)) return;
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
      if (!ends_in_vip(entry.name)) continue;
      if (!with_backups && is_backup(entry.name)) {
        if (is_project_name(entry.name)) left_out_.add(folder + entry.name, WhyOut::backup);
        continue;
      }
      const bool valid = accepts(folder + entry.name);
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
