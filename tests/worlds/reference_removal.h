// One run of removal, step by step as it is described and no faster: what it does to a disk, to the
// log, to the rows and to the labels, and what it asks the desktop to do. It shares no code with
// the program.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "worlds/reference_disk.h"

namespace ordelan::test::reference {

class Removal {
 public:
  explicit Removal(std::filesystem::path root) : disk(root), root_(std::move(root)) {}

  // The boxes.
  bool CheckBackup = false;
  bool CheckBorrar = false;
  bool CheckBorraAsociados = false;
  bool CheckVaciarPapelera = false;
  bool CheckBorrarPapelera = false;
  bool CheckConfirmar = false;

  std::string RutaBackup;
  std::vector<std::string> ListBorrar;  // of the review
  std::vector<bool> ListStatus;
  std::vector<std::string> List1;     // the side files
  std::vector<std::string> NoBorrar;  // the protected folders as their window holds them
  std::vector<std::string> saved;     // the same as they are stored
  std::string short_date;
  std::string long_time;

  // Names in the folder of copies that no copy is made over: those of used files and of rows. That
  // the desktop is not asked to is the one thing that differs from the description.
  std::set<std::string> kept_names;  // folded

  // What the user answers about a path.
  std::function<bool(const std::string& path)> answer;
  // Looked at in each event turn: whether the user presses Cancela there.
  std::function<bool()> pressed;
  bool CancelarBorrado = false;

  void BorrarSeleccionados();

  int AsociadosEncontrados = 0;
  int ArchivosBorrados = 0;
  std::string LabelInfo;
  std::uint32_t color = 0;
  bool shown = false;              // LabelInfo
  std::string LabelErase;          // of the review; empty if the run has not set it
  std::vector<std::string> calls;  // of the desktop, in order

  const Disk disk;

 private:
  void BorrarAsociados();
  bool row(std::size_t i, bool backup);
  void events();
  void say(const std::string& text, std::uint32_t word);
  void VaciarPapelera();
  void EnviarPapelera(const std::string& path);
  void CopiarArchivo(const std::string& path);
  void remove(const std::string& path);
  void print(const std::string& line);
  bool writable(const std::filesystem::path& file) const;

  std::filesystem::path root_;
  std::optional<std::filesystem::path> log_;
};

}  // namespace ordelan::test::reference
