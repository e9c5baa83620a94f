#include "location/lost_files.h"

#include <string_view>
#include <unordered_map>
#include <utility>

#include "project/repeated_rows.h"
#include "text/rows.h"
#include "ui/list_width.h"

namespace ordelan::location {
namespace {

constexpr std::size_t kRule = 100;  // hyphens of a separator

// From so many used files on, a folder is listed once rather than asked for each of them.
constexpr int kWorthAListing = 16;

bool is_title(const std::string& row) {
  return row.find('>') != std::string::npos;
}

std::string_view folder_of(std::string_view path) {
  return path.substr(0, path.rfind('\\') + 1);
}

// How many used files each folder has.
using Crowd = std::unordered_map<std::string_view, int>;

Crowd crowd_of(const std::vector<std::string>& rows, work::Job& job) {
  Crowd crowd;
  for (const std::string& row : rows) {
    if (!is_title(row)) ++crowd[folder_of(row)];
    job.turn();
  }
  return crowd;
}

}  // namespace

// A path that no disk could hold is lost as well.
bool LostFiles::is_lost(const std::string& row) const {
  return !context_.platform.files.look_up(row);
}

void LostFiles::LlenarPerdidos(work::Job& job) {
  TextoPerdidos_.clear();
  if (auto* const list = context_.windows.find<Perdidos>()) list->ListPerdidos.clear();
  std::vector<std::string> rows = collect(job);
  if (job.superseded()) return;
  if (!job.cancelled()) strike_out_repeats(rows);
  TextoPerdidos_ = std::move(rows);
  if (auto* const list = context_.windows.find<Perdidos>()) {
    show_in(*list);
  } else {
    context_.windows.touch<Perdidos>();  // it fills itself when it is made
  }
}

// Projects that have lost nothing keep their titles, so that one sees that they were looked at.
std::vector<std::string> LostFiles::collect(work::Job& job) const {
  work::FolderTree& folders = job.folders();
  const auto used = context_.lists.ListUtilizados.kept_rows();
  const Crowd crowd = crowd_of(*used, job);
  std::vector<std::string> rows;
  for (const std::string& row : *used) {
    if (is_title(row)) {
      if (&row != &used->front()) rows.emplace_back(kRule, '-');
      rows.push_back(row);
    } else {
      const std::string_view folder = folder_of(row);
      const bool listed = folders.knows(folder) || crowd.at(folder) >= kWorthAListing;
      const auto held = listed ? folders.holds_plain_file(row) : std::nullopt;
      if (held ? !*held : is_lost(row)) rows.push_back(row);
    }
    if (!job.turn()) break;
  }
  return rows;
}

void LostFiles::strike_out_repeats(std::vector<std::string>& rows) {
  const auto repeated =
      project::repeated_rows(rows, [](const std::string& row) { return !text::is_file_row(row); });
  std::size_t kept = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (!repeated[i]) std::swap(rows[kept++], rows[i]);
  }
  rows.resize(kept);
}

void LostFiles::show_in(Perdidos& target) const {
  target.ListPerdidos.hide();
  target.ListPerdidos.clear();
  target.ListPerdidos.add(TextoPerdidos_);
  target.ListPerdidos.show();
  ui::ListaAncho(target.ListPerdidos);
  // All rows count, titles and separators too.
  target.TextEncontrados.set_caption("Encontrados: " + std::to_string(TextoPerdidos_.size()) +
                                     " archivos perdidos o desubicados");
}

bool LostFiles::HayPerdidos() const {
  const ui::ListBox& shown = context_.lists.ListVip;
  for (const std::string& row : shown.rows()) {
    if (is_lost(row)) return true;
  }
  // The place of a row comes from one list and its text from the other. So a sweep of more files
  // than the shown project has counts as having lost some, and an update of the projects looks
  // at every one of them rather than at none.
  const ui::ListBox& used = context_.lists.ListUtilizados;
  for (std::size_t i = 0; i < used.count(); ++i) {
    if (!is_title(used.row(i)) && is_lost(shown.row(i))) return true;
  }
  return false;
}

void LostFiles::cmdPerdidos_Click() {
  if (context_.work.Borrando) return;
  Perdidos* const window = context_.windows.touch<Perdidos>();
  if (window == nullptr) return;
  if (window->visible()) {
    window->hide();
    window->store_place();
    return;
  }
  show_in(*window);
  window->read_place();
  window->set_minimized(false);
  window->show();
}

}  // namespace ordelan::location
