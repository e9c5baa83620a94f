#include "worlds/reference_removal.h"

#include <fstream>
#include <iterator>
#include <system_error>

namespace ordelan::test::reference {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kPaleGreen = 0x80FF80;
constexpr std::uint32_t kPaleRed = 0x8080FF;

bool goes_as_audio(const std::string& row) {
  const std::string last = folded(row.size() < 4 ? row : row.substr(row.size() - 4));
  for (const char* const kind : {".wav", ".aif", ".mp3", ".ogg", "flac", ".wma", ".m4a"}) {
    if (last == kind) return true;
  }
  return false;
}

std::string with_name(const std::string& folder, const std::string& name) {
  return folder + (ends_with(folder, "\\") ? "" : "\\") + name;
}

}  // namespace

bool Removal::writable(const fs::path& file) const {
  std::error_code failed;
  return (fs::status(file, failed).permissions() & fs::perms::owner_write) != fs::perms::none;
}

void Removal::say(const std::string& text, std::uint32_t word) {
  LabelInfo = text;
  color = word;
  shown = true;
}

void Removal::events() {
  if (pressed && pressed()) CancelarBorrado = true;
}

void Removal::VaciarPapelera() {
  calls.push_back("empty ? ");
}

void Removal::EnviarPapelera(const std::string& path) {
  calls.push_back((CheckConfirmar ? "recycle? " : "recycle ") + path);
  const auto file = disk.native(path);
  if (!file) return;
  if (CheckConfirmar && !answer(path)) return;
  const fs::path bin = root_ / "Papelera de pruebas";
  fs::create_directories(bin);
  for (int number = 1;; ++number) {
    const fs::path there = bin / std::to_string(number);
    if (fs::exists(fs::symlink_status(there))) continue;
    fs::rename(*file, there);
    return;
  }
}

void Removal::CopiarArchivo(const std::string& path) {
  if (disk.look_up(path).empty()) return;  // the desktop finds nothing to copy
  const std::string name = name_of(path);
  if (kept_names.contains(folded(name))) return;
  const auto folder = disk.native(with_name(RutaBackup, ""));
  auto to = disk.native(with_name(RutaBackup, name));
  std::error_code failed;
  if (to && (fs::is_symlink(*to, failed) || fs::is_directory(*to, failed))) return;
  calls.push_back("copy " + path + " > " + RutaBackup);
  if (to && !answer(with_name(RutaBackup, name))) return;
  const std::string bytes = disk.bytes(path);
  if (to && !writable(*to)) return;
  if (!to) to = *folder / utf8_of(name);
  std::ofstream(*to, std::ios::binary) << bytes;
}

void Removal::remove(const std::string& path) {
  const auto file = disk.native(path);
  std::error_code failed;
  if (file && (writable(*file) || fs::is_symlink(*file, failed))) fs::remove(*file, failed);
}

void Removal::print(const std::string& line) {
  if (log_) std::ofstream(*log_, std::ios::binary | std::ios::app) << line << "\r\n";
}

void Removal::BorrarSeleccionados() {
  shown = false;                               // 1
  if (CheckVaciarPapelera) VaciarPapelera();   // 2
  if (CheckBorraAsociados) BorrarAsociados();  // 3
  if (CheckBackup) {                           // 4
    const auto folder = disk.native(with_name(RutaBackup, ""));
    if (folder) {
      log_ = *folder / "Archivos_Borrados.log";
      std::ofstream(*log_, std::ios::binary | std::ios::trunc).flush();
    }
  }
  ArchivosBorrados = 0;  // 5
  bool whole = true;
  if (CheckBorrar && !CheckBackup) {  // 7
    if (CheckVaciarPapelera) VaciarPapelera();
    NoBorrar = saved;
    for (std::size_t i = 0; i < ListBorrar.size() && whole; ++i) whole = row(i, false);
  } else if (CheckBorrar && CheckBackup) {  // 8
    print("Archivos borrados  " + short_date + " a las " + long_time);
    print(std::string(61, '-'));
    for (std::size_t i = 0; i < ListBorrar.size() && whole; ++i) {
      CopiarArchivo(ListBorrar[i]);
      whole = row(i, true);
    }
  } else {  // 9
    if (AsociadosEncontrados == 0 && ArchivosBorrados == 0) {
      say(" >> No hay archivos para borrar << ", kGreen);
    }
    whole = false;  // no closing messages
  }
  if (whole) {  // 10
    std::string text = " >> No se ha efectuado ninguna operacion << ";
    if (ArchivosBorrados > 0) {
      text = " >> Se han efectuado todas las operaciones << ";
    } else if (AsociadosEncontrados > 0) {
      text = " >> Se han borrado todos los asociados << ";
    }
    say(text, kGreen);
  }
  CancelarBorrado = false;  // 11
}

// False when the loop is left.
bool Removal::row(std::size_t i, bool backup) {
  const std::string path = ListBorrar[i];
  if (ListStatus[i]) {
    int counter = 0;
    for (const std::string& folder : NoBorrar) {
      const std::string piece = folder.size() > 3 ? folder.substr(2, folder.size() - 3) : "";
      if (contains(path, piece)) ++counter;
    }
    if (counter > 0) return true;
    if (!disk.look_up(path).empty()) {
      if (backup) print(path);
      if (CheckBorrarPapelera) {
        EnviarPapelera(path);
      } else {
        remove(path);
      }
      ListBorrar[i] += "  --> Borrado";
      ++ArchivosBorrados;
    }
  }
  events();
  if (!CancelarBorrado) return true;
  say(" >> Se han Cancelado todas las operaciones << ", kPaleRed);
  return false;
}

void Removal::BorrarAsociados() {
  shown = false;
  int removed = 0;
  AsociadosEncontrados = 0;
  for (const std::string& side : List1) {
    if (!goes_as_audio(side) && !disk.look_up(side).empty()) ++AsociadosEncontrados;
  }
  for (const std::string& side : List1) {
    if (goes_as_audio(side)) continue;
    if (const auto file = disk.native(side)) {
      std::error_code failed;
      fs::permissions(*file, fs::perms::owner_write, fs::perm_options::add, failed);
    }
    if (!disk.look_up(side).empty()) {
      if (CheckBorrarPapelera) {
        EnviarPapelera(side);
      } else {
        remove(side);
      }
      ++removed;
    }
    events();
    if (CancelarBorrado) {
      say(" >> Se han Cancelado todas las operaciones << ", kPaleRed);
      break;
    }
  }
  if (removed == 0) return;
  const std::string count = std::to_string(removed);
  LabelErase =
      "Se han borrado: " + count + " archivos asociados de " + std::to_string(AsociadosEncontrados);
  say(" > Se han borrado: " + count + " archivos asociados < ", kPaleGreen);
}

}  // namespace ordelan::test::reference
