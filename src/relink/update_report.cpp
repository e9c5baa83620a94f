#include "relink/update_report.h"

#include <algorithm>

#include "relink/originals.h"
#include "text/rows.h"

namespace ordelan::relink {
namespace {

constexpr std::string_view kFirstWords = "Actualización de proyectos";
// With a line before them they cover nothing of the window.
constexpr std::size_t kMostLines = 3;

std::string line_of(const PathChange& change) {
  // A path that another project's pointers lead to may be any bytes.
  std::string line = "  " + change.vieja;
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\0' || c == '\r' || c == '\n'; }, ' ');
  switch (change.untouched) {
    case Untouched::skipped:
      return line + "   (se deja: termina en la letra de la unidad)";
    case Untouched::stays:
      return line + "   (se deja: existe)";
    case Untouched::too_long:
      return line + " -> " + change.nueva + "   (se deja: no cabe)";
    case Untouched::no:
      break;
  }
  line += " -> " + change.nueva + (change.hallada ? "   (encontrado)" : "   (no encontrado)");
  if (change.sobrescritos > 0) {
    line += "   (sobrescribe " + std::to_string(change.sobrescritos) +
            " bytes de lo que seguía a la ruta)";
  }
  return line;
}

std::string state_of(const ProjectUpdate& project) {
  if (!project.motivo.empty()) return "no se ha actualizado: " + project.motivo;
  if (project.creado) return "creado: " + project.destino;
  if (!project.cambiado) return "ya estaba así";
  return project.ruta == project.destino ? "actualizado" : "actualizado: " + project.destino;
}

}  // namespace

std::string report_heading(system::Regional& regional) {
  return std::string(kFirstWords) + "  " + regional.short_date() + " a las " +
         regional.long_time() + "\r\n" + std::string(61, '-') + "\r\n";
}

std::string report_lines(const ProjectUpdate& project) {
  std::string text = "\r\n" + text::row_with_reason(project.ruta, state_of(project)) + "\r\n";
  for (const PathChange& change : project.rutas) text += line_of(change) + "\r\n";
  return text;
}

std::string report_end(const std::set<std::string>& unseen) {
  if (unseen.empty()) return {};
  std::string text =
      "\r\nCarpetas que no se han podido ver (sus archivos pasan por no encontrados):\r\n";
  for (const std::string& folder : unseen) text += "  " + folder + "\r\n";
  return text;
}

bool is_report(system::FileSystem& files, const std::string& path) {
  const auto file = files.open(path);
  std::string first(std::string_view(kFirstWords).size(), '\0');
  return file &&
         file->read(0, {reinterpret_cast<std::uint8_t*>(first.data()), first.size()}) ==
             first.size() &&
         first == kFirstWords;
}

std::string left_alone(const std::vector<ProjectUpdate>& projects) {
  std::vector<std::string> rows;
  for (const ProjectUpdate& project : projects) {
    if (project.motivo.empty() || is_original(project.ruta)) continue;
    rows.push_back(text::row_with_reason(project.ruta, project.motivo));
  }
  return strip_lines(rows);
}

std::string strip_lines(const std::vector<std::string>& rows) {
  const std::size_t named = rows.size() > kMostLines ? kMostLines - 1 : rows.size();
  std::string text;
  for (std::size_t i = 0; i < named; ++i) text += "\r\n" + rows[i];
  if (named < rows.size()) text += "\r\n... y " + std::to_string(rows.size() - named) + " más";
  return text;
}

}  // namespace ordelan::relink
