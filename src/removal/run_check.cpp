#include "removal/run_check.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "project/used_guard.h"
#include "removal/backup_folder.h"
#include "removal/protected_folders.h"
#include "removal/reasons.h"
#include "removal/second_reading.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "text/rows.h"

namespace ordelan::removal {

bool RunCheck::is_project(std::string_view path) {
  return text::lower(text::Obtener_Extension(path)) == "vip";
}

bool RunCheck::is_side_file(std::string_view path) {
  constexpr std::array<std::string_view, 13> kKinds = {
      "h2", "hdp", "hm2", "hmp", "hg2", "hgp", "ha2", "hap", "hf2", "hfp", "cue", "hz", "hs"};
  const std::string kind = text::lower(text::Obtener_Extension(path));
  return std::find(kKinds.begin(), kKinds.end(), kind) != kKinds.end();
}

std::optional<std::string> RunCheck::why_never(const work::WorkInHand& work) {
  if (work.Descodificando) return "Hay una descodificación en marcha";
  if (work.Actualizando) return "Hay una actualización en marcha";
  if (!work.ListaBorrarCompleta) return "La última descodificación no llegó al final";
  return std::nullopt;
}

std::optional<std::string> RunCheck::why_not_now(work::Job& job) const {
  for (const work::ProyectoLeido& read : context_.work.ProyectosLeidos) {
    const auto now = context_.platform.files.info(read.ruta);
    if (!now) return "Ya no existe el proyecto " + read.ruta;
    if (now->size != read.size || now->modified != read.modified) {
      return "Ha cambiado desde que se leyó el proyecto " + read.ruta;
    }
    job.turn();
    if (job.superseded()) return std::nullopt;
  }
  return std::nullopt;
}

void RunCheck::keep(const std::string& row, std::string motivo, std::string proyecto) {
  kept_.try_emplace(row, Kept{row, std::move(motivo), std::move(proyecto)});
}

const Kept* RunCheck::kept(const std::string& row) const {
  const auto found = kept_.find(row);
  return found == kept_.end() ? nullptr : &found->second;
}

// Whether one of the folders between a project's folder and the file, or the file itself, only
// stands for another place.
bool RunCheck::is_behind_link(const std::string& path, const std::string& project_folder,
                              const work::FolderTree& tree,
                              std::unordered_map<std::string, bool>& links) const {
  const auto is_link = [&](const std::string& part) {
    const auto info = context_.platform.files.info(part);
    return info && info->link;
  };
  const work::FolderTree::Entry* const listed = tree.known_file(path);
  if (listed != nullptr ? listed->link : is_link(path)) return true;
  for (std::size_t end = path.find('\\', project_folder.size()); end != std::string::npos;
       end = path.find('\\', end + 1)) {
    const auto [at, added] = links.try_emplace(path.substr(0, end));
    if (added) at->second = is_link(at->first);
    if (at->second) return true;
  }
  return false;
}

void RunCheck::take_seen() {
  rows_ = context_.work.FilasVistas;
  seen_.clear();
  if (!rows_) return;
  const auto& seen = context_.work.VistosBorrar;
  for (std::size_t i = 0; i < std::min(rows_->size(), seen.size()); ++i) {
    seen_.try_emplace((*rows_)[i], seen[i]);
  }
}

bool RunCheck::has_changed(const std::string& row, const system::FileInfo& now) const {
  const auto found = seen_.find(row);
  return found == seen_.end() || now.size != found->second.size ||
         now.modified != found->second.modified;
}

void RunCheck::look_at_side_files(const std::vector<std::string>& rows, work::Job& job) {
  const auto used = context_.lists.ListUtilizados.kept_rows();
  const auto shown = context_.lists.ListVip.kept_rows();
  const auto same = project::same_as_used(rows, {used.get(), shown.get()}, context_.platform.files,
                                          job.folders(), [&job] {
                                            job.turn();
                                            return !job.superseded();
                                          });
  if (job.superseded()) return;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (same[i]) keep(rows[i], reason::kUsed);
  }
}

// The first project in whose rows the path stands, in whatever spelling; empty where it is used
// under another path.
std::string RunCheck::project_using(const std::string& path) const {
  const std::string key = text::same_file_key(path);
  const std::string_view name = text::file_name(path);
  std::string project;
  for (const std::string& row : context_.lists.ListUtilizados.rows()) {
    if (row.find('>') != std::string::npos) {
      project = text::Obtener_VipPath(row);
    } else if (text::equal_ignoring_case(text::file_name(row), name) &&
               text::same_file_key(row) == key) {
      return project;
    }
  }
  return {};
}

bool is_in_bin(std::string_view path) {
  std::string_view before;  // the folder around
  for (std::size_t begin = 0; begin < path.size();) {
    const std::size_t end = path.find('\\', begin);
    if (end == std::string_view::npos) return false;
    const std::string folder = text::lower(path.substr(begin, end - begin));
    if (folder == "$recycle.bin" || folder == "recycler" || folder == "recycled" ||
        folder == ".trash" || folder.starts_with(".trash-")) {
      return true;
    }
    if (folder == "files" && text::lower(before) == "trash") return true;
    before = path.substr(begin, end - begin);
    begin = end + 1;
  }
  return false;
}

void RunCheck::read_again(const std::vector<std::string>& rows,
                          const std::function<bool()>& go_on) {
  const auto named = second_reading_.look(rows, go_on);
  if (named) {
    for (const Kept& each : *named) keep(each.ruta, each.motivo, each.proyecto);
    return;
  }
  // What is not known may be that every file is used.
  for (const std::string& row : rows) keep(row, reason::kNotRead);
}

void RunCheck::look_at(const std::vector<std::string>& rows,
                       const std::vector<std::string>& unticked,
                       const std::vector<std::string>& folders, work::Job& job) {
  take_seen();
  const work::WorkLists& lists = context_.lists;
  const auto used = lists.ListUtilizados.kept_rows();
  const auto shown = lists.ListVip.kept_rows();
  const auto go_on = [&job] {
    job.turn();
    return !job.superseded();
  };
  const auto same = project::same_as_used(rows, {used.get(), shown.get()}, context_.platform.files,
                                          job.folders(), go_on);
  if (job.superseded()) return;
  const auto same_as_unticked =
      project::same_as_used(rows, {&unticked}, context_.platform.files, job.folders(), go_on);
  if (job.superseded()) return;
  const auto around = project_folders(lists);
  std::unordered_map<std::string, bool> links;
  std::unordered_map<std::string, bool> backups;
  // A protected folder has other names where links lead to it.
  std::unordered_map<std::string, std::string> protecting_places;
  std::vector<std::pair<system::FileIdentity, std::string>> places;
  for (const std::string& folder : folders) {
    if (const auto place = context_.platform.files.identity(system::with_backslash(folder))) {
      places.emplace_back(*place, folder);
    }
  }
  const auto protecting_place = [&](const std::string& folder) -> const std::string& {
    const auto [at, added] = protecting_places.try_emplace(folder);
    if (!added || places.empty()) return at->second;
    const auto identity = context_.platform.files.identity(folder);
    const auto found = std::find_if(places.begin(), places.end(),
                                    [&](const auto& each) { return each.first == identity; });
    if (found != places.end()) at->second = found->second;
    return at->second;
  };
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string& row = rows[i];
    if (is_in_bin(row)) keep(row, reason::kInBin);
    if (same[i]) keep(row, reason::kUsed, project_using(row));
    if (same_as_unticked[i]) keep(row, reason::kUntickedElsewhere);
    const std::string protecting = folder_around(row, folders);
    if (!protecting.empty()) keep(row, reason::kProtected + protecting);
    const auto project_folder = std::find_if(
        around.begin(), around.end(), [&](const auto& each) { return row.starts_with(each); });
    if (project_folder == around.end()) {
      keep(row, reason::kOutside);
    } else if (is_behind_link(row, *project_folder, job.folders(), links)) {
      keep(row, reason::kLink);
    }
    const std::size_t root = text::root(row).size();
    for (std::size_t end = row.rfind('\\'); end != std::string::npos && end + 1 >= root && root > 0;
         end = end > 0 ? row.rfind('\\', end - 1) : std::string::npos) {
      const auto [at, added] = backups.try_emplace(row.substr(0, end + 1));
      if (added) at->second = is_backup_folder(context_.platform.files, at->first);
      if (at->second) keep(row, reason::kBackup);
      const std::string& place = protecting_place(at->first);
      if (!place.empty()) keep(row, reason::kProtected + place);
    }
    if (!go_on()) return;
  }
}

}  // namespace ordelan::removal
