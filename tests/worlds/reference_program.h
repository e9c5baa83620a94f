// The program's flows, from a pick or a drop to filled lists, as plain and slow as
// possible: every loop over rows is a loop, and rows are taken out one by one.
#pragma once

#include <array>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "worlds/reference_disk.h"
#include "worlds/reference_reader.h"

namespace ordelan::test::reference {

using Rows = std::vector<std::string>;

class Program {
 public:
  // `root` is the folder of the machine that is drive D:.
  explicit Program(const std::filesystem::path& root) : disk(root) {}

  // The options.
  bool CheckSubPath = false;
  bool CheckBAK = false;

  // A project picked in the file dialog; files and folders dropped on ListProyectos.
  void open(const std::string& path);
  void drop(const Rows& items);

  Rows ListProyectos;
  Rows ListVip;
  Rows ListUtilizados;
  Rows ListBorrar;
  Rows ListPerdidos;
  std::array<std::string, 2> LabelCheck;
  std::array<std::string, 2> LabelCount;
  std::array<std::string, 2> LabelAdd;
  std::array<std::string, 2> LabelErase;
  // SalvaListados, ActualizarVip and ZoomListas, which come and go together.
  bool offers_reports = false;

  // What happened in the last search for unused files.
  struct Tally {
    std::size_t candidates = 0;
    std::size_t struck = 0;
    std::size_t guarded = 0;  // candidates that only the last guard kept from being offered
    std::size_t repeats = 0;
  } tally;

  const Disk disk;

  // What the last work made of single projects, by normalised path: whose references were found for
  // ListUtilizados; and why others are left out, where there is no doubt about it.
  std::set<std::string> decoded;
  std::map<std::string, std::string> refused;

  // The folders that are searched for unused files. Of a project that has gone it is the project's
  // own path, where nothing is.
  Rows project_folders() const;
  // Every project file in the folders that are searched for unused files.
  Rows projects_in_reach() const;
  // How many projects and folders there have names that the code page cannot hold.
  std::size_t unnamed_in_reach() const;

  // The references of every project that is to be decoded, read from the files themselves.
  Rows listed_references() const;

 private:
  bool Valido(const std::string& path);
  void refuse_undropped(const std::string& folder, const Rows& items);
  void refuse(const std::string& path, const std::string& reason);
  void reset();
  void list_flat();
  void list_with_subfolders();
  void list_folder(const std::string& folder, Rows& found) const;
  bool BuscarVips(const std::string& folder, bool& first);
  void find_projects(const std::string& folder, Rows& found) const;
  void BarrerProyectos();
  void decode_into_ListVip(const std::string& path, const std::string& shown);
  void DescodificarProyectos();
  void search_unused();
  void ListarArchivosCarpetas();
  void BuscarArchivosAPI(const std::string& folder, const std::string& extension);
  void strike();
  void LlenarPerdidos();

  // Every file that a shown project uses: in one spelling, and by its place on the volume.
  struct UsedFiles {
    Rows paths;
    std::vector<Disk::Identity> identities;
  };
  UsedFiles used_files() const;
  bool is_used(const std::string& row, const UsedFiles& used) const;

  Reader reader_{disk};
  std::string RutaProyectos_;
  std::string PrimerProyecto_;
  Rows List1_;
};

}  // namespace ordelan::test::reference
