#include "project/unused_analysis.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "project/candidate_kinds.h"
#include "project/repeated_rows.h"
#include "project/used_guard.h"
#include "project/used_strike.h"
#include "text/paths.h"
#include "text/row_table.h"
#include "text/rows.h"

namespace ordelan::project {
namespace {

// In loops that only make rows: so few take much less than a turn's time.
constexpr std::size_t kFilesBetweenTurns = 256;

// The paths of candidates, with turns in between. It breaks off where the job must stop.
std::vector<std::string> paths_of(const Candidates& candidates,
                                  const std::vector<Candidates::File>& files, work::Job& job) {
  std::vector<std::string> paths;
  paths.reserve(files.size());
  for (const Candidates::File file : files) {
    paths.push_back(candidates.path(file));
    if (job.must_stop()) break;
    if (paths.size() % kFilesBetweenTurns == 0) job.turn();
  }
  return paths;
}

}  // namespace

Candidates UnusedAnalysis::ListarArchivosCarpetas(work::Job& job) {
  const auto projects = lists_.ListProyectos.kept_rows();
  std::vector<std::string> folders;
  for (const std::string& row : *projects) {
    const auto colon = row.find(':');
    std::string folder = row.substr(colon == std::string::npos || colon == 0 ? 0 : colon - 1);
    // A project that has gone has no name on the disk: its whole path then stands for a folder,
    // which is not there.
    if (platform_.files.look_up(folder)) folder = text::getPath(folder, "\\");
    folders.push_back(std::move(folder));
    if (!job.turn()) break;
  }
  const auto repeated = repeated_rows(folders);

  Candidates candidates;
  searched_.clear();
  for (std::size_t i = 0; i < folders.size() && !job.must_stop(); ++i) {
    if (!repeated[i] && !BuscarArchivosAPI(folders[i], candidates, job)) break;
  }
  if (!job.must_stop()) note_projects_left_out(*projects, job);
  if (!job.superseded()) lists_.List1.clear();
  return candidates;
}

// Whether a project is one of the rows under another path: through a link or a substituted drive.
bool UnusedAnalysis::is_listed_elsewhere(const std::string& path,
                                         const std::vector<std::string>& projects, work::Job& job) {
  if (listed_.empty()) {
    for (const std::string& row : projects) {
      if (!job.turn()) return true;  // nothing of this will be used
      const auto identity = platform_.files.identity(text::after_arrow(row));
      if (identity) listed_.push_back(*identity);
    }
  }
  const auto identity = platform_.files.identity(path);
  return identity && std::find(listed_.begin(), listed_.end(), *identity) != listed_.end();
}

// Projects among the searched files that have no row: in subfolders that are not included, beside a
// dropped one, hidden, or with names outside the code page.
void UnusedAnalysis::note_projects_left_out(const std::vector<std::string>& projects,
                                            work::Job& job) {
  listed_.clear();
  // A handler that runs in a turn may begin another search.
  const std::set<std::string> searched = std::exchange(searched_, {});
  std::unordered_set<std::string> listed;
  for (const std::string& row : projects) {
    listed.insert(text::same_file_key(text::after_arrow(row)));
    if (!job.turn()) return;
  }
  const auto note_files = [&](const std::string& folder, WhyOut why) {
    for (const work::FolderTree::Entry& file : job.folders().listing(folder).files) {
      if (!is_project_name(file.name)) continue;
      // The question below gives the window its turns: what is noted may belong to a newer job.
      if (job.must_stop()) return;
      const std::string path = text::path_of(folder, file.name);
      if (listed.contains(text::same_file_key(path)) || left_out_.holds(path) ||
          is_listed_elsewhere(path, projects, job)) {
        continue;
      }
      const bool frozen = path.find("FreezeData") != std::string::npos;
      left_out_.add(path, frozen ? WhyOut::frozen : !file.plain ? WhyOut::hidden : why);
    }
    if (job.must_stop()) return;
    for (const system::UnnamedEntry& entry : job.folders().listing(folder).unnamed) {
      if (!entry.folder && is_project_name(entry.shown)) {
        left_out_.add(folder + entry.shown, WhyOut::unnamed);
      }
    }
  };
  for (const std::string& folder : searched) {
    const work::FolderTree::Listing& found = job.folders().listing(folder);
    if (!found.readable && platform_.files.info(folder)) left_out_.add(folder, WhyOut::unreadable);
    for (const std::string& link : found.links) left_out_.add(folder + link + "\\", WhyOut::linked);
    for (const system::UnnamedEntry& entry : found.unnamed) {
      if (entry.folder) left_out_.add(folder + entry.shown + "\\", WhyOut::unnamed);
    }
    note_files(folder, WhyOut::not_listed);
    if (!job.turn()) return;
  }
  std::set<std::string> above;
  for (const std::string& row : projects) {
    const std::string path(text::after_arrow(row));
    for (std::string& around : work::folders_around(text::getPath(path, "\\"))) {
      if (!searched.contains(around)) above.insert(std::move(around));
    }
    if (!job.turn()) return;
  }
  for (const std::string& folder : above) {
    note_files(folder, WhyOut::above);
    if (!job.turn()) return;
  }
}

bool UnusedAnalysis::BuscarArchivosAPI(const std::string& Ruta, Candidates& Lista, work::Job& job) {
  std::array<std::vector<Candidates::File>, kPatterns.size()> found;
  const bool whole =
      job.folders().walk(system::with_backslash(Ruta),
                         [&](const std::string& folder, const work::FolderTree::Listing& listing) {
                           // Folders come nearly in the order of the set.
                           searched_.insert(searched_.end(), folder);
                           const auto [first, end] = Lista.files_of(folder, listing);
                           for (Candidates::File file = first; file < end; ++file) {
                             found[Lista.kind(file)].push_back(file);
                           }
                           return job.turn();
                         });
  for (const auto& files : found) Lista.list(files);
  return whole && !job.must_stop();
}

bool UnusedAnalysis::exists(const std::string& path, const work::FolderTree& folders) const {
  const work::FolderTree::Entry* const known = folders.known_file(path);
  return known != nullptr ? known->plain : platform_.files.look_up(path).has_value();
}

// Whether a candidate goes because its content is that of a used file of the same name. Also where
// one of the two has gone since the folders were listed: a file that was moved is not offered.
bool UnusedAnalysis::equal(const std::string& used, const std::string& candidate, work::Job& job) {
  const Likeness likeness = compare(used, candidate, job);
  if (likeness != Likeness::unread) return likeness == Likeness::equal;
  return !platform_.files.look_up(used) || !platform_.files.look_up(candidate);
}

void UnusedAnalysis::BuscarNoUtilizados(work::Job& job, const Candidates& candidates,
                                        const std::vector<std::string>& also_used) {
  // Handlers that run in between may empty the lists.
  const auto used = lists_.ListUtilizados.kept_rows();
  const auto shown = lists_.ListVip.kept_rows();
  std::vector<bool> struck(candidates.size(), false);
  if (!used->empty()) {
    lists_.ListBorrar.hide();
    strip_.Alerta(work::kResult, "Buscando archivos no utilizados ", true);
    strip_.XP_ProgressBar1.set_range(0, static_cast<std::int64_t>(used->size()));
    const DiskQuestions disk = {
        [&](const std::string& path) { return exists(path, job.folders()); },
        [&](const std::string& a, const std::string& b) { return equal(a, b, job); }};
    struck = strike_used(*used, candidates, disk, [&](std::size_t i) {
      return job.turn([&] { strip_.XP_ProgressBar1.set_value(static_cast<std::int64_t>(i)); });
    });
    if (job.superseded()) return;
  }
  std::vector<Candidates::File> left;
  for (std::size_t i = 0; i < candidates.size(); ++i) {
    if (!struck[i]) left.push_back(candidates[i]);
  }
  auto rows = paths_of(candidates, left, job);
  if (job.superseded()) return;
  if (!used->empty()) {
    if (!job.cancelled()) {
      offer_unused({used.get(), shown.get(), &also_used}, candidates, left, job);
    }
    if (job.superseded()) return;
    if (job.cancelled()) offer_nothing();
  }
  lists_.List1.clear();
  lists_.List1.add(std::move(rows));
}

// Fills ListBorrar, unless the job has to end first.
void UnusedAnalysis::offer_unused(const std::vector<const std::vector<std::string>*>& used,
                                  const Candidates& candidates,
                                  const std::vector<Candidates::File>& left, work::Job& job) {
  strip_.XP_ProgressBar1.set_range(0, static_cast<std::int64_t>(left.size()));
  // A file may be listed with several folders: it is looked at once.
  constexpr auto kUnseen = text::RowTable::kNone;
  std::vector<Candidates::File> audio;
  std::vector<std::uint32_t> row_of;  // of each listing of a file: its row in `audio`
  std::vector<std::uint32_t> seen(candidates.files(), kUnseen);  // the row of each file
  for (std::size_t i = 0; i < left.size(); ++i) {
    const Candidates::File file = left[i];
    if (seen[file] != kUnseen || candidates.may_be_offered(file)) {
      if (seen[file] == kUnseen) {
        seen[file] = static_cast<std::uint32_t>(audio.size());
        audio.push_back(file);
      }
      row_of.push_back(seen[file]);
    }
    if (!job.turn([&] { strip_.XP_ProgressBar1.set_value(static_cast<std::int64_t>(i)); })) return;
  }
  // The strike compares names and paths letter for letter, and may pass over a row that was listed
  // twice. A file that a project names is not offered for all that.
  const auto same = same_as_used(candidates, audio, used, platform_.files, job.folders(),
                                 [&] { return job.turn(); });
  if (job.must_stop()) return;
  std::size_t total = 0;
  std::size_t rows = 0;
  std::optional<Candidates::File> last_repeated;
  for (const std::uint32_t row : row_of) {
    const bool repeated = row < rows;
    if (!repeated) ++rows;
    if (same[row]) continue;
    ++total;
    if (repeated) last_repeated = audio[row];
  }
  std::vector<Candidates::File> kept;
  for (std::size_t i = 0; i < audio.size(); ++i) {
    if (!same[i]) kept.push_back(audio[i]);
  }
  auto paths = paths_of(candidates, kept, job);
  if (job.must_stop()) return;
  const std::size_t duplicates = total - kept.size();
  if (last_repeated) {
    strip_.Alerta(work::kProgress, "Eliminando duplicado: " + candidates.path(*last_repeated),
                  true);
  }
  lists_.ListBorrar.add(std::move(paths));
  lists_.ListBorrar.show();
  head_unused(total, duplicates);
}

// What a cancelled search shows: what it would have found is not known.
void UnusedAnalysis::offer_nothing() {
  lists_.ListBorrar.show();
  lists_.LabelErase.set_visible(false);
  for (auto& heading : lists_.LabelErase) heading->set_caption("");
}

void UnusedAnalysis::head_unused(std::size_t found, std::size_t duplicates) {
  auto& headings = lists_.LabelErase;
  const std::string count = "Archivos no utilizados: " + std::to_string(found);
  if (found > 0) {
    // It is hidden, but heads the report of this list: an earlier result must not stand there.
    headings[0].set_caption("");
    headings[1].set_caption(count + "     Duplicados: " + std::to_string(duplicates) +
                            "    Total: " + std::to_string(found - duplicates));
  } else {
    headings[0].set_caption("No se han encontrado archivos no utilizados");
    headings[1].set_caption(count);
  }
  headings[0].set_visible(found == 0);
  headings[1].set_visible(found > 0);
}

bool UnusedAnalysis::ComparaFiles(const std::string& Archivo1, const std::string& Archivo2,
                                  work::Job& job) {
  if (Archivo1.empty() || Archivo2.empty()) return false;
  return compare(Archivo1, Archivo2, job) == Likeness::equal;
}

UnusedAnalysis::Likeness UnusedAnalysis::compare(const std::string& path, const std::string& other,
                                                 work::Job& job) {
  const auto first = platform_.files.open(path);
  if (!first) return Likeness::unread;
  const auto second = platform_.files.open(other);
  if (!second) return Likeness::unread;
  if (first->size() != second->size()) return Likeness::different;

  constexpr std::size_t kBlock = std::size_t{1} << 18;
  const auto size = static_cast<std::size_t>(std::min<std::uint64_t>(kBlock, first->size()));
  // Nothing is filled in: all of it will be read over.
  const auto memory = std::make_unique_for_overwrite<std::uint8_t[]>(2 * size);
  const std::span a(memory.get(), size);
  const std::span b(memory.get() + size, size);
  for (std::uint64_t at = 0; at < first->size(); at += size) {
    const auto left = static_cast<std::size_t>(std::min<std::uint64_t>(size, first->size() - at));
    const auto from_a = first->read(at, a.first(left));
    const auto from_b = second->read(at, b.first(left));
    if (from_a != left || from_b != left) return Likeness::unread;
    if (!std::equal(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(left), b.begin())) {
      return Likeness::different;
    }
    if (!job.turn()) return Likeness::unread;
  }
  return Likeness::equal;
}

}  // namespace ordelan::project
