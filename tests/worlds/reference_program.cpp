#include "worlds/reference_program.h"

#include <algorithm>

namespace ordelan::test::reference {
namespace {

std::string project_row(std::size_t number, const std::string& path) {
  return std::to_string(number) + " --> " + path;
}

std::string with_backslash(const std::string& folder) {
  return ends_with(folder, "\\") ? folder : folder + "\\";
}

std::string vip_path(const std::string& row) {
  return folder_of(row, true) + name_of(row);
}

// What a project row holds after its arrow.
std::string after_arrow(const std::string& row) {
  std::string path = row.substr(row.find('>') + 1);
  while (!path.empty() && path.front() == ' ') path.erase(0, 1);
  return path;
}

bool is_header(const std::string& row) {
  return contains(row, ">");
}

// A list takes no notice of rows that it does not have.
void remove_row(Rows& rows, std::size_t index) {
  if (index < rows.size()) rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(index));
}

// Takes out the rows that stand further up already, and gives their number.
std::size_t remove_repeats(Rows& rows, bool headers_stay) {
  std::size_t removed = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (headers_stay && (is_header(rows[i]) || contains(rows[i], "----------"))) continue;
    for (std::size_t j = rows.size(); --j > i;) {
      if (rows[i] != rows[j]) continue;
      remove_row(rows, j);
      ++removed;
    }
  }
  return removed;
}

constexpr const char* kBackup = "copia _BAK, no incluida";
constexpr const char* kNoAudio = "no se ha encontrado audio en él";

bool is_project(const std::string& name) {
  return ends_with(folded(name), ".vip");
}

bool is_audio(const std::string& path) {
  const std::string small = folded(path);
  for (const char* end : {".wav", ".aif", ".mp3", ".ogg", "flac", ".wma", ".m4a"}) {
    if (ends_with(small, end)) return true;
  }
  return false;
}

}  // namespace

namespace {

// Rows are cut at backslashes: paths from outside have no others.
std::string backslashed(std::string path) {
  for (char& c : path) c = c == '/' ? '\\' : c;
  return path;
}

}  // namespace

void Program::open(const std::string& picked) {
  const std::string path = backslashed(picked);
  offers_reports = false;
  if (path.empty()) return;
  reset();
  if (!Valido(path)) return;
  RutaProyectos_ = path.substr(0, path.rfind('\\') + 1);
  if (CheckSubPath) {
    list_with_subfolders();
  } else {
    list_flat();
  }
  LabelCheck = {"Encontrados " + std::to_string(ListProyectos.size()) + " proyectos en:",
                RutaProyectos_};
  decode_into_ListVip(path, vip_path(path));
  DescodificarProyectos();
  search_unused();
  PrimerProyecto_ = "";
  LlenarPerdidos();
  offers_reports = true;
}

void Program::drop(const Rows& dropped) {
  Rows items;
  for (const std::string& item : dropped) items.push_back(backslashed(item));
  offers_reports = false;
  decoded.clear();
  refused.clear();
  PrimerProyecto_ = "";
  RutaProyectos_ = "";
  if (items.empty()) {
    reset();
    return;
  }
  bool first = true;  // no valid project has been found yet
  std::size_t number = 1;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const std::string& item = items[i];
    const std::string name = disk.look_up(item);
    if (is_project(name)) {
      if (!Valido(item)) continue;
      if (first) {
        ListProyectos.clear();
        List1_.clear();
        PrimerProyecto_ = item;
        first = false;
      }
      ListProyectos.push_back(project_row(number, item));
      List1_.push_back(item);
      ++number;
    } else if (BuscarVips(item, first)) {
      refuse_undropped(item, Rows(items.begin() + static_cast<std::ptrdiff_t>(i), items.end()));
      BarrerProyectos();
      offers_reports = true;
      return;
    }
  }
  if (PrimerProyecto_.empty()) {
    const auto why = refused;  // stays to be seen
    reset();
    refused = why;
  } else {
    RutaProyectos_ = PrimerProyecto_;
    BarrerProyectos();
  }
  offers_reports = true;
}

// The projects that were dropped with a folder that ended the drop before their turn.
void Program::refuse_undropped(const std::string& folder, const Rows& items) {
  for (const std::string& item : items) {
    const std::string path = normalised(item);
    const bool swept = path.starts_with(normalised(folder) + "\\");
    const bool listed = std::any_of(List1_.begin(), List1_.end(), [&](const std::string& each) {
      return normalised(each) == path;
    });
    if (swept || listed || disk.look_up(item).empty()) continue;
    refuse(item, "soltado con una carpeta que ya tenía proyectos");
  }
}

bool Program::Valido(const std::string& path) {
  if (contains(path, "FreezeData")) {
    refuse(path, "en una carpeta FreezeData");
    return false;
  }
  if (!contains(disk.look_up(path), ".")) return false;
  Rows scratch;
  if (reader_.ExtraerNombres_Archivos(path, scratch, "", false)) return true;
  refuse(path, kNoAudio);
  return false;
}

// The first reason stays.
void Program::refuse(const std::string& path, const std::string& reason) {
  if (is_project(path)) refused.try_emplace(normalised(path), reason);
}

void Program::reset() {
  for (Rows* list : {&ListVip, &ListUtilizados, &ListProyectos, &ListBorrar}) list->clear();
  offers_reports = false;
  decoded.clear();
  refused.clear();
}

void Program::list_flat() {
  List1_.clear();
  for (const std::string& name : disk.files(RutaProyectos_)) {
    if (fits_extension(name, "vip")) List1_.push_back(RutaProyectos_ + name);
  }
  std::size_t number = 1;
  for (const std::string& path : List1_) {
    if (!CheckBAK && contains(path, "_BAK")) refuse(path, kBackup);
    if (!Valido(path) || (!CheckBAK && contains(path, "_BAK"))) continue;
    ListProyectos.push_back(project_row(number, path));
    ++number;
  }
}

void Program::list_folder(const std::string& folder, Rows& found) const {
  found.push_back(folder);
  for (const std::string& name : disk.folders(with_backslash(folder))) {
    list_folder(with_backslash(folder) + name, found);
  }
}

void Program::list_with_subfolders() {
  List1_.clear();
  list_folder(RutaProyectos_, List1_);
  ListProyectos.clear();
  std::size_t number = 0;
  for (const std::string& row : List1_) {
    const std::string folder = with_backslash(row);
    for (const std::string& name : disk.files(folder)) {
      if (!ends_with(folded(name), "vip")) continue;
      if (!CheckBAK && contains(name, "_BAK")) refuse(folder + name, kBackup);
      if (!Valido(folder + name) || (!CheckBAK && contains(name, "_BAK"))) continue;
      ++number;
      ListProyectos.push_back(project_row(number, folder + name));
    }
  }
}

void Program::find_projects(const std::string& folder, Rows& found) const {
  for (const std::string& name : disk.files(folder)) {
    if (fits_extension(name, "vip")) found.push_back(folder + name);
  }
  for (const std::string& name : disk.folders(folder)) find_projects(folder + name + "\\", found);
}

bool Program::BuscarVips(const std::string& folder, bool& first) {
  Rows hits;
  find_projects(with_backslash(folder), hits);
  bool found = false;
  for (const std::string& path : hits) {
    if (!Valido(path)) continue;
    if (first) {
      ListProyectos.clear();
      List1_.clear();
      first = false;
    }
    ListProyectos.push_back(path);
    List1_.push_back(path);
    found = true;
  }
  return found;
}

void Program::BarrerProyectos() {
  if (contains(RutaProyectos_, "FreezeData")) return;
  ListProyectos.clear();
  for (const std::string& path : List1_) {
    ListProyectos.push_back(project_row(ListProyectos.size() + 1, path));
  }
  if (RutaProyectos_.empty()) RutaProyectos_ = folder_of(ListProyectos[0], false);
  if (PrimerProyecto_.empty()) PrimerProyecto_ = vip_path(ListProyectos[0]);
  LabelCheck = {"Encontrados " + std::to_string(ListProyectos.size()) + " proyectos en:",
                RutaProyectos_};
  decode_into_ListVip(PrimerProyecto_, PrimerProyecto_);
  DescodificarProyectos();
  search_unused();
  LlenarPerdidos();
}

void Program::decode_into_ListVip(const std::string& path, const std::string& shown) {
  ListVip.clear();
  if (reader_.ExtraerNombres_Archivos(path, ListVip, "", true)) {
    LabelCount = {std::to_string(ListVip.size()) + " Archivos utilizados en: " + shown,
                  RutaProyectos_};
  } else {
    LabelCount[0] = "No hay archivos, es un Vip MIDI.";
  }
}

void Program::DescodificarProyectos() {
  ListUtilizados.clear();
  reader_.TotalArchivosVip = 0;
  int count = 0;
  for (const std::string& row : ListProyectos) {
    const std::string prefix = row.substr(0, row.find('>') + 1) + " ";
    std::string path;
    if (CheckBAK) {
      path = vip_path(row);
    } else {
      if (contains(row, "_BAK")) {
        refuse(vip_path(row), kBackup);
        continue;
      }
      path = after_arrow(row);
      if (!PrimerProyecto_.empty() && disk.look_up(PrimerProyecto_).empty()) {
        path = RutaProyectos_ + path;
        PrimerProyecto_ = path;
      }
    }
    if (reader_.ExtraerNombres_Archivos(path, ListUtilizados, prefix + path, true)) {
      ++count;
      decoded.insert(normalised(path));
    } else if (!disk.look_up(path).empty()) {
      refuse(path, kNoAudio);
    }
  }
  const int total = reader_.TotalArchivosVip;
  const int duplicates = static_cast<int>(remove_repeats(ListUtilizados, true));
  LabelAdd = {std::to_string(total) + "  archivos en: " + std::to_string(count) + " proyectos, " +
                  std::to_string(duplicates) +
                  " duplicados; Total: " + std::to_string(total - duplicates),
              RutaProyectos_};
}

void Program::search_unused() {
  tally = {};
  ListBorrar.clear();
  ListarArchivosCarpetas();
  if (ListUtilizados.empty()) return;
  tally.candidates = List1_.size();
  strike();
  tally.struck = tally.candidates - List1_.size();
  const UsedFiles used = used_files();
  for (const std::string& row : List1_) {
    if (!is_audio(row) || contains(row, "FreezeData")) continue;
    if (is_used(row, used)) {
      ++tally.guarded;
    } else {
      ListBorrar.push_back(row);
    }
  }
  const std::size_t found = ListBorrar.size();
  tally.repeats = remove_repeats(ListBorrar, false);
  const std::string count = "Archivos no utilizados: " + std::to_string(found);
  if (found > 0) {
    LabelErase = {"", count + "     Duplicados: " + std::to_string(tally.repeats) +
                          "    Total: " + std::to_string(found - tally.repeats)};
  } else {
    LabelErase = {"No se han encontrado archivos no utilizados", count};
  }
}

Rows Program::project_folders() const {
  Rows folders;
  for (const std::string& row : ListProyectos) {
    const std::string path = row.substr(row.find(':') - 1);
    folders.push_back(path.substr(0, path.size() - disk.look_up(path).size()));
  }
  remove_repeats(folders, false);
  return folders;
}

Rows Program::projects_in_reach() const {
  Rows found;
  for (const std::string& folder : project_folders()) {
    Rows folders;
    list_folder(folder, folders);
    for (const std::string& each : folders) {
      for (const std::string& name : disk.files(each)) {
        if (is_project(name)) found.push_back(with_backslash(each) + name);
      }
    }
  }
  return found;
}

std::size_t Program::unnamed_in_reach() const {
  std::set<std::filesystem::path> found;
  for (const std::string& folder : project_folders()) {
    Rows folders;
    list_folder(folder, folders);
    for (const std::string& each : folders) {
      for (const std::filesystem::path& place : disk.unnamed(each)) {
        const bool counts = std::filesystem::is_directory(place) || place.extension() == ".vip";
        if (counts) found.insert(place);
      }
    }
  }
  return found.size();
}

Rows Program::listed_references() const {
  Rows references;
  for (const std::string& row : ListProyectos) {
    if (!CheckBAK && contains(row, "_BAK")) continue;
    Reader(disk).ExtraerNombres_Archivos(after_arrow(row), references, "", true);
  }
  return references;
}

void Program::ListarArchivosCarpetas() {
  List1_.clear();
  for (const std::string& folder : project_folders()) {
    for (const char* extension :
         {"wav", "h2",  "hdp", "mp3", "hm2", "hmp", "aif", "ha2", "hap", "ogg",
          "hg2", "hgp", "fla", "hf2", "hfp", "cue", "hz",  "wma", "m4a", "hs"}) {
      BuscarArchivosAPI(folder, extension);
    }
  }
}

void Program::BuscarArchivosAPI(const std::string& folder, const std::string& extension) {
  const std::string place = with_backslash(folder);
  for (const std::string& name : disk.files(place)) {
    if (fits_extension(name, extension)) List1_.push_back(place + name);
  }
  for (const std::string& name : disk.folders(place)) {
    BuscarArchivosAPI(place + name + "\\", extension);
  }
}

void Program::strike() {
  for (const std::string& used : ListUtilizados) {
    if (is_header(used) || contains(used, "FreezeData")) continue;
    const std::string used_name = name_of(used);
    const std::size_t count = List1_.size();
    for (std::size_t j = 0; j < count && j < List1_.size(); ++j) {
      const std::string candidate = List1_[j];
      if (name_of(candidate) == used_name) {
        const bool both = !disk.look_up(used).empty() && !disk.look_up(candidate).empty();
        if (!both || disk.equal(used, candidate)) remove_row(List1_, j);
      }
      if (candidate == used) remove_row(List1_, j);
    }
  }
}

void Program::LlenarPerdidos() {
  ListPerdidos.clear();
  for (std::size_t i = 0; i < ListUtilizados.size(); ++i) {
    const std::string& row = ListUtilizados[i];
    if (is_header(row)) {
      if (i > 0) ListPerdidos.push_back(std::string(100, '-'));
      ListPerdidos.push_back(row);
    } else if (disk.look_up(row).empty()) {
      ListPerdidos.push_back(row);
    }
  }
  remove_repeats(ListPerdidos, true);
}

Program::UsedFiles Program::used_files() const {
  UsedFiles used;
  for (const Rows* list : {&ListUtilizados, &ListVip}) {
    for (const std::string& row : *list) {
      if (is_header(row)) continue;
      used.paths.push_back(normalised(row));
      const auto identity = disk.identity(row);
      if (identity) used.identities.push_back(*identity);
    }
  }
  return used;
}

// Whether a candidate is one of the used files, however a project spells it.
bool Program::is_used(const std::string& row, const UsedFiles& used) const {
  const std::string path = normalised(row);
  for (const std::string& each : used.paths) {
    if (each == path) return true;
  }
  const auto identity = disk.identity(row);
  for (const Disk::Identity& each : used.identities) {
    if (identity == each) return true;
  }
  return false;
}

}  // namespace ordelan::test::reference
