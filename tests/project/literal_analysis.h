// The search for unused files as plain and slow as it can be: every used row against every
// candidate, rows taken out of the list one by one. The fast code of the program is compared with
// it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "project/used_strike.h"
#include "system/file_system.h"

namespace ordelan::test {

// A candidate with the place that it had at first, so that equal rows can be distinguished.
struct Candidate {
  std::string row;
  std::size_t place;
};

std::vector<Candidate> numbered(const std::vector<std::string>& rows);

// Takes out of `List1` what the rows of `ListUtilizados` strike.
void literal_strike(const std::vector<std::string>& ListUtilizados, std::vector<Candidate>& List1,
                    const project::DiskQuestions& disk);

// Takes out every row that stands in the list already; gives how many went.
std::size_t literal_repeats(std::vector<std::string>& rows);

// The same for a list with titles and separators, which stay.
std::size_t literal_file_repeats(std::vector<std::string>& rows);

// Files are the only candidates, links to folders are not walked into, a used path is equal to
// itself without being read, and a path that is a row of ListUtilizados, but for its case, is never
// offered. A result empties the heading of an empty one.
class LiteralAnalysis {
 public:
  explicit LiteralAnalysis(system::FileSystem& files) : files_(files) {}

  std::vector<std::string> ListProyectos;
  std::vector<std::string> ListUtilizados;
  std::vector<std::string> List1;
  std::vector<std::string> ListBorrar;
  std::array<std::string, 2> LabelErase;
  std::array<bool, 2> LabelErase_visible{};

  void ListarArchivosCarpetas();
  void BuscarNoUtilizados();
  bool ComparaFiles(const std::string& Archivo1, const std::string& Archivo2);

 private:
  void BuscarArchivosAPI(std::string Ruta, const std::string& Patron,
                         std::vector<std::string>& Lista);

  system::FileSystem& files_;
};

}  // namespace ordelan::test
