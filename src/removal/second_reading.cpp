#include "removal/second_reading.h"

#include <unordered_set>
#include <utility>

#include "project/left_out.h"
#include "removal/reasons.h"
#include "text/paths.h"
#include "text/rows.h"

namespace ordelan::removal {

std::vector<std::string> project_folders(const work::WorkLists& lists) {
  std::vector<std::string> folders;
  std::unordered_set<std::string> known;
  for (const std::string& row : lists.ListProyectos.rows()) {
    std::string folder = text::getPath(text::after_arrow(row), "\\");
    if (known.insert(folder).second) folders.push_back(std::move(folder));
  }
  return folders;
}

SecondReading::SecondReading(const work::Context& context)
    : context_(context), mentions_(context.platform.files) {}

// The listed projects, and those that were left out, wherever they are.
std::vector<std::string> SecondReading::projects() const {
  std::vector<std::string> all;
  for (const std::string& row : context_.lists.ListProyectos.rows()) {
    all.emplace_back(text::after_arrow(row));
  }
  for (const work::ProyectoFuera& out : context_.work.ProyectosFuera) {
    if (!project::is_project_name(text::file_name(out.ruta))) continue;
    // One that is gone says nothing; one whose name cannot be written may say anything.
    const bool gone = out.ruta.find('?') == std::string::npos &&
                      context_.platform.files.open(out.ruta).status() == system::Reason::not_found;
    if (!gone) all.push_back(out.ruta);
  }
  return all;
}

std::optional<std::vector<Kept>> SecondReading::look(const std::vector<std::string>& rows,
                                                     std::function<bool()> go_on) {
  if (rows.empty()) return std::vector<Kept>();
  const auto found =
      mentions_.look(rows, project_folders(context_.lists), projects(), std::move(go_on));
  if (!found) return std::nullopt;
  std::vector<Kept> kept;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const project::RowMention& row = (*found)[i];
    if (row.kept()) kept.push_back({rows[i], reason::of(row), row.project});
  }
  return kept;
}

}  // namespace ordelan::removal
