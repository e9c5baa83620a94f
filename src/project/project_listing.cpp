#include "project/project_listing.h"

#include "text/rows.h"
#include "text/wildcard.h"

namespace ordelan::project {

void ProjectListing::list_flat(bool with_backups) {
  lists_.List1.clear();
  const auto entries = platform_.files.list(work_.RutaProyectos);
  for (const auto& entry : entries.value_or(std::vector<system::FileInfo>{})) {
    const bool plain = !entry.folder && !entry.hidden && !entry.system;
    if (plain && text::matches("*.vip", entry.name)) {
      lists_.List1.add(work_.RutaProyectos + entry.name);
    }
  }

  lists_.ListProyectos.hide();
  system::Pacer pacer(platform_.pump, platform_.clock);
  const auto job = work_.current_job();
  const std::vector<std::string> candidates = lists_.List1.rows();
  std::size_t number = 1;
  for (const std::string& path : candidates) {
    if (!with_backups && path.find("_BAK") != std::string::npos) continue;
    const bool valid = validator_.Valido(path);
    if (work_.superseded(job)) return;
    if (valid) lists_.ListProyectos.add(text::project_row(number++, path));
    pacer.turn();
    if (work_.superseded(job)) return;
  }
}

}  // namespace ordelan::project
