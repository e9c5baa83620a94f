#include "project/literal_analysis.h"

#include <algorithm>
#include <cctype>
#include <cstdint>

#include "text/code_page.h"
#include "text/paths.h"
#include "text/wildcard.h"

namespace ordelan::test {
namespace {

constexpr const char* kLiteralPatterns[] = {
    "*.wav", "*.h2",  "*.hdp", "*.mp3", "*.hm2", "*.hmp", "*.aif", "*.ha2", "*.hap", "*.ogg",
    "*.hg2", "*.hgp", "*.fla", "*.hf2", "*.hfp", "*.cue", "*.hz",  "*.wma", "*.m4a", "*.hs"};

bool holds(const std::string& row, const char* text) {
  return row.find(text) != std::string::npos;
}

// Takes out a row; past the end there is nothing to take out.
template <class Row>
void remove_row(std::vector<Row>& rows, std::size_t index) {
  if (index < rows.size()) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
}

template <class Exempt>
std::size_t remove_repeats(std::vector<std::string>& rows, Exempt exempt) {
  std::size_t removed = 0;
  const std::size_t count = rows.size();
  for (std::size_t i = 0; i + 1 < count; ++i) {
    for (std::size_t j = rows.size(); j-- > i + 1;) {
      if (rows[i] != rows[j] || exempt(rows[i])) continue;
      remove_row(rows, j);
      ++removed;
    }
  }
  return removed;
}

bool is_audio(const std::string& path) {
  const std::string end = text::lower(path.size() < 4 ? path : path.substr(path.size() - 4));
  return end == ".wav" || end == ".aif" || end == ".mp3" || end == ".ogg" || end == "flac" ||
         end == ".wma" || end == ".m4a";
}

std::vector<std::uint8_t> bytes_at(system::InputFile& file, std::uint64_t at, std::size_t count) {
  std::vector<std::uint8_t> bytes(count);
  bytes.resize(file.read(at, bytes).value_or(0));
  return bytes;
}

}  // namespace

std::vector<Candidate> numbered(const std::vector<std::string>& rows) {
  std::vector<Candidate> candidates;
  for (const std::string& row : rows) candidates.push_back({row, candidates.size()});
  return candidates;
}

void literal_strike(const std::vector<std::string>& ListUtilizados, std::vector<Candidate>& List1,
                    const project::DiskQuestions& disk) {
  for (const std::string& Usado : ListUtilizados) {
    if (holds(Usado, ">") || holds(Usado, "FreezeData")) continue;
    const std::string NombreUsado = text::Obtener_Nombre_Archivo(Usado);
    const std::size_t count = List1.size();
    for (std::size_t j = 0; j < count; ++j) {
      const std::string Candidato = j < List1.size() ? List1[j].row : "";
      const std::string NombreCandidato = text::Obtener_Nombre_Archivo(Candidato);
      if (NombreCandidato == NombreUsado) {
        if (disk.exists(Usado) && disk.exists(Candidato)) {
          if (Usado == Candidato || disk.equal(Usado, Candidato)) remove_row(List1, j);
        } else {
          remove_row(List1, j);
        }
      }
      if (Candidato == Usado) remove_row(List1, j);
    }
  }
}

std::size_t literal_repeats(std::vector<std::string>& rows) {
  return remove_repeats(rows, [](const std::string&) { return false; });
}

std::size_t literal_file_repeats(std::vector<std::string>& rows) {
  return remove_repeats(
      rows, [](const std::string& row) { return holds(row, "----------") || holds(row, ">"); });
}

void LiteralAnalysis::ListarArchivosCarpetas() {
  List1.clear();
  for (const std::string& row : ListProyectos) {
    const std::string path = row.substr(row.find(':') - 1);
    const auto found = files_.look_up(path);
    const std::size_t name = found ? found->name.size() : 0;
    List1.push_back(path.substr(0, path.size() - name));
  }
  literal_repeats(List1);
  const std::vector<std::string> folders = List1;
  List1.clear();
  for (const std::string& folder : folders) {
    for (const char* pattern : kLiteralPatterns) BuscarArchivosAPI(folder, pattern, List1);
  }
}

void LiteralAnalysis::BuscarArchivosAPI(std::string Ruta, const std::string& Patron,
                                        std::vector<std::string>& Lista) {
  if (!Ruta.ends_with('\\')) Ruta += '\\';
  const auto entries = files_.list(Ruta);
  if (!entries) return;
  for (const system::FileInfo& entry : *entries) {
    if (!entry.folder && text::matches(Patron, entry.name)) Lista.push_back(Ruta + entry.name);
  }
  for (const system::FileInfo& entry : *entries) {
    if (entry.folder && !entry.link) BuscarArchivosAPI(Ruta + entry.name + "\\", Patron, Lista);
  }
}

bool LiteralAnalysis::ComparaFiles(const std::string& Archivo1, const std::string& Archivo2) {
  if (Archivo1.empty() || Archivo2.empty()) return false;
  const auto first = files_.open(Archivo1);
  const auto second = files_.open(Archivo2);
  if (!first || !second || first->size() != second->size()) return false;
  constexpr std::size_t kBlock = 10'000;
  const std::uint64_t blocks = first->size() / kBlock;
  for (std::uint64_t i = 0; i < blocks; ++i) {
    if (bytes_at(*first, i * kBlock, kBlock) != bytes_at(*second, i * kBlock, kBlock)) return false;
  }
  const auto rest = static_cast<std::size_t>(first->size() % kBlock);
  return bytes_at(*first, blocks * kBlock, rest) == bytes_at(*second, blocks * kBlock, rest);
}

void LiteralAnalysis::BuscarNoUtilizados() {
  if (ListUtilizados.empty()) return;
  const project::DiskQuestions disk = {
      [this](const std::string& path) { return files_.look_up(path).has_value(); },
      [this](const std::string& a, const std::string& b) { return ComparaFiles(a, b); }};
  std::vector<Candidate> candidates = numbered(List1);
  literal_strike(ListUtilizados, candidates, disk);
  List1.clear();
  for (const Candidate& candidate : candidates) List1.push_back(candidate.row);

  std::size_t TotalNoUtilizados = 0;
  for (const std::string& row : List1) {
    if (!is_audio(row) || holds(row, "FreezeData")) continue;
    const auto same = [&](const std::string& used) {
      return !holds(used, ">") && !holds(used, "----------") &&
             std::equal(used.begin(), used.end(), row.begin(), row.end(),
                        [](unsigned char a, unsigned char b) {
                          return std::tolower(a) == std::tolower(b);
                        });
    };
    if (std::any_of(ListUtilizados.begin(), ListUtilizados.end(), same)) continue;
    ListBorrar.push_back(row);
    ++TotalNoUtilizados;
  }
  const std::size_t duplicates = literal_repeats(ListBorrar);
  const std::string n = std::to_string(TotalNoUtilizados);
  LabelErase_visible = {TotalNoUtilizados == 0, TotalNoUtilizados > 0};
  if (TotalNoUtilizados > 0) {
    LabelErase[0] = "";
    LabelErase[1] =
        "Archivos no utilizados: " + n + "     Duplicados: " + std::to_string(duplicates) +
        "    Total: " + std::to_string(static_cast<std::size_t>(TotalNoUtilizados - duplicates));
  } else {
    LabelErase[0] = "No se han encontrado archivos no utilizados";
    LabelErase[1] = "Archivos no utilizados: " + n;
  }
}

}  // namespace ordelan::test
