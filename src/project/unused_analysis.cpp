#include "project/unused_analysis.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "project/candidate_kinds.h"
#include "project/repeated_rows.h"
#include "project/used_strike.h"
#include "text/paths.h"
#include "text/row_table.h"

namespace ordelan::project {

void UnusedAnalysis::ListarArchivosCarpetas() {
  std::vector<std::string> folders;
  for (const std::string& row : lists_.ListProyectos.rows()) {
    const auto colon = row.find(':');
    std::string folder = row.substr(colon == std::string::npos || colon == 0 ? 0 : colon - 1);
    // A project that has gone has no name on the disk: its whole path then stands for a folder,
    // which is not there.
    if (exists(folder)) folder = text::getPath(folder, "\\");
    folders.push_back(std::move(folder));
  }
  const auto repeated = repeated_rows(folders);

  const auto job = work_.current_job();
  std::vector<std::string> candidates;
  for (std::size_t i = 0; i < folders.size(); ++i) {
    if (!repeated[i] && !BuscarArchivosAPI(folders[i], candidates)) break;
  }
  if (work_.superseded(job)) return;
  lists_.List1.clear();
  lists_.List1.add(std::move(candidates));
}

bool UnusedAnalysis::BuscarArchivosAPI(const std::string& Ruta, std::vector<std::string>& Lista) {
  const auto job = work_.current_job();
  system::Pacer pacer(platform_.pump, platform_.clock);
  std::array<std::vector<std::string>, kPatterns.size()> found;
  const bool whole = tree_.walk(system::with_backslash(Ruta),
                                [&](const std::string& folder, const FolderTree::Listing& listing) {
                                  for (const FolderTree::Entry& file : listing.files) {
                                    if (const auto kind = kind_of(file.name))
                                      found[*kind].push_back(folder + file.name);
                                  }
                                  return !(pacer.turn() && work_.must_stop(job));
                                });
  for (auto& rows : found) {
    Lista.insert(Lista.end(), std::make_move_iterator(rows.begin()),
                 std::make_move_iterator(rows.end()));
  }
  return whole;
}

bool UnusedAnalysis::exists(const std::string& path) {
  const FolderTree::Entry* known = tree_.known_file(path);
  return known != nullptr ? known->plain : platform_.files.look_up(path).has_value();
}

void UnusedAnalysis::BuscarNoUtilizados() {
  if (lists_.ListUtilizados.empty()) return;
  lists_.ListBorrar.hide();
  strip_.Alerta(work::kResult, "Buscando archivos no utilizados ", true);
  // Handlers that run in between may empty the lists.
  const auto kept = lists_.ListUtilizados.kept_rows();
  const std::vector<std::string>& used = *kept;
  std::vector<std::string> candidates = lists_.List1.take();
  strip_.XP_ProgressBar1.set_range(0, static_cast<std::int64_t>(used.size()));

  const auto job = work_.current_job();
  system::Pacer pacer(platform_.pump, platform_.clock);
  const DiskQuestions disk = {
      [this](const std::string& path) { return exists(path); },
      [this](const std::string& a, const std::string& b) { return ComparaFiles(a, b); }};
  const auto struck = strike_used(used, candidates, disk, [&](std::size_t i) {
    if (pacer.turn()) strip_.XP_ProgressBar1.set_value(static_cast<std::int64_t>(i));
    return !work_.must_stop(job);
  });
  if (work_.superseded(job)) return;
  std::vector<std::string> left;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (!struck[i]) left.push_back(std::move(candidates[i]));
  }
  candidates = {};
  if (work_.Cancelar) {
    offer_nothing();
  } else {
    offer_unused(used, left, pacer, job);
    if (work_.superseded(job)) return;
  }
  lists_.List1.clear();
  lists_.List1.add(std::move(left));
}

void UnusedAnalysis::offer_unused(const std::vector<std::string>& used_rows,
                                  const std::vector<std::string>& left, system::Pacer& pacer,
                                  work::JobNumber job) {
  // Where a file was listed twice, with a folder and with the one around it, the strike may have
  // passed over the second row. A file that a project names is not offered for all that.
  text::RowTable used(used_rows.size());
  const auto used_row = [&](text::RowTable::Row row) { return std::string_view(used_rows[row]); };
  for (std::size_t i = 0; i < used_rows.size(); ++i) {
    used.put(static_cast<text::RowTable::Row>(i), used_row);
    pacer.turn();
  }
  std::vector<std::string> unused;
  for (const std::string& row : left) {
    pacer.turn();
    if (!is_offered(row) || row.find("FreezeData") != std::string::npos) continue;
    if (used.find(row, used_row) == text::RowTable::kNone) unused.push_back(row);
  }
  const auto none_exempt = [](const std::string&) { return false; };
  const auto repeated = repeated_rows(unused, none_exempt, [&] { pacer.turn(); });
  if (work_.superseded(job)) return;
  if (work_.Cancelar) {
    offer_nothing();
    return;
  }

  const std::size_t total = unused.size();
  std::vector<std::string> kept;
  std::string duplicate;
  for (std::size_t i = 0; i < total; ++i) {
    (repeated[i] ? duplicate : kept.emplace_back()) = std::move(unused[i]);
  }
  const std::size_t duplicates = total - kept.size();
  if (duplicates > 0) strip_.Alerta(work::kProgress, "Eliminando duplicado: " + duplicate, true);
  lists_.ListBorrar.add(std::move(kept));
  lists_.ListBorrar.show();
  head_unused(total, duplicates);
}

// What a cancelled search shows: nobody knows what it would have found.
void UnusedAnalysis::offer_nothing() {
  lists_.ListBorrar.show();
  lists_.LabelErase.set_visible(false);
}

void UnusedAnalysis::head_unused(std::size_t found, std::size_t duplicates) {
  auto& headings = lists_.LabelErase;
  const std::string count = "Archivos no utilizados: " + std::to_string(found);
  if (found > 0) {
    headings[1].set_caption(count + "     Duplicados: " + std::to_string(duplicates) +
                            "    Total: " + std::to_string(found - duplicates));
  } else {
    headings[0].set_caption("No se han encontrado archivos no utilizados");
    headings[1].set_caption(count);
  }
  headings[0].set_visible(found == 0);
  headings[1].set_visible(found > 0);
}

bool UnusedAnalysis::ComparaFiles(const std::string& Archivo1, const std::string& Archivo2) {
  if (Archivo1.empty() || Archivo2.empty()) return false;
  const auto first = platform_.files.open(Archivo1);
  const auto second = platform_.files.open(Archivo2);
  if (!first || !second || first->size() != second->size()) return false;

  constexpr std::size_t kBlock = std::size_t{1} << 18;
  const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, first->size()));
  std::vector<std::uint8_t> a(size);
  std::vector<std::uint8_t> b(size);
  const auto job = work_.current_job();
  system::Pacer pacer(platform_.pump, platform_.clock);
  for (std::uint64_t at = 0; at < first->size(); at += size) {
    const auto left = static_cast<std::size_t>(std::min<std::uint64_t>(size, first->size() - at));
    const auto from_a = first->read(at, std::span(a).first(left));
    const auto from_b = second->read(at, std::span(b).first(left));
    if (from_a != left || from_b != left) return false;
    if (!std::equal(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(left), b.begin())) {
      return false;
    }
    if (pacer.turn() && work_.must_stop(job)) return false;
  }
  return true;
}

}  // namespace ordelan::project
