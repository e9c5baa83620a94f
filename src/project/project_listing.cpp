#include "project/project_listing.h"

#include <utility>

#include "text/code_page.h"
#include "text/paths.h"
#include "text/rows.h"
#include "text/wildcard.h"

namespace ordelan::project {
namespace {

bool is_backup(std::string_view path) {
  return path.find("_BAK") != std::string_view::npos;
}

bool ends_in_vip(std::string_view name) {
  return name.size() >= 3 && text::equal_ignoring_case(name.substr(name.size() - 3), "vip");
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

void ProjectListing::list_flat(work::Job& job, bool with_backups) {
  std::vector<std::string> candidates;
  for (const auto& entry : job.folders().listing(work_.RutaProyectos).files) {
    if (entry.plain && text::matches("*.vip", entry.name)) {
      candidates.push_back(text::path_of(work_.RutaProyectos, entry.name));
    }
  }
  lists_.List1.clear();
  lists_.List1.add(candidates);

  lists_.ListProyectos.hide();
  std::size_t number = 1;
  for (const std::string& path : candidates) {
    if (!with_backups && is_backup(path)) {
      left_out_.add(path, WhyOut::backup);
      continue;
    }
    const bool valid = accepts(path);
    if (job.superseded()) return;
    if (valid) lists_.ListProyectos.add(text::project_row(number++, path));
    job.turn();
    if (job.superseded()) return;
  }
}

void ProjectListing::ListarCarpetas(work::Job& job) {
  const WaitCursor waiting(lists_.ListProyectos.window());
  platform_.pump.pump();
  if (job.superseded()) return;
  const std::string root = system::with_backslash(text::trim(work_.RutaProyectos));
  std::vector<std::string> folders = {std::string(text::trim(work_.RutaProyectos))};
  job.folders().walk(
      root, [&](const std::string& folder, const work::FolderTree::Listing& listing) {
        if (folder != root) folders.push_back(folder.substr(0, folder.size() - 1));
        if (folder == root && !listing.readable && !platform_.files.info(root)) {
          platform_.dialogs.message({.title = "", .text = "No se ha encontrado la ruta de acceso"});
        }
        return job.turn();
      });
  if (job.superseded()) return;
  lists_.List1.clear();
  lists_.List1.add(std::move(folders));
}

void ProjectListing::ListarProyectosCarpetas(work::Job& job, bool with_backups) {
  lists_.ListProyectos.clear();
  std::size_t number = 0;
  const auto folders = lists_.List1.kept_rows();
  for (const std::string& row : *folders) {
    const std::string folder = system::with_backslash(row);
    for (const auto& entry : job.folders().listing(folder).files) {
      if (!ends_in_vip(entry.name)) continue;
      if (!with_backups && is_backup(entry.name)) {
        if (is_project_name(entry.name))
          left_out_.add(text::path_of(folder, entry.name), WhyOut::backup);
        continue;
      }
      const std::string path = text::path_of(folder, entry.name);
      const bool valid = accepts(path);
      if (job.superseded()) return;
      if (valid) lists_.ListProyectos.add(text::project_row(++number, path));
      job.turn();
      if (job.superseded()) return;
    }
    job.turn();
    if (job.superseded()) return;
  }
}

}  // namespace ordelan::project
