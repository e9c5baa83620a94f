#include "worlds/studio.h"

#include <algorithm>
#include <fstream>
#include <utility>

#include "worlds/reference_disk.h"

namespace ordelan::test {
namespace {

namespace fs = std::filesystem;
using reference::folded;
using reference::utf8_of;

// Names are code-page text.
constexpr const char* kFolders[] = {
    "Mix",        "Mix",       "Copia", "Tomas",  "FreezeData", "freezedata", "Mix_BAK", "Otro",
    "[Demo]",     "Tomas [2]", "temaA", "tema_B", "temaB",      "Canción",    "p.vip",   "v1.wave",
    "tomaza.wav", "Š um",      "Dos",   "µ",      "ƒ",          "ÿ",          "þ"};

constexpr const char* kNames[] = {"toma.wav",       "toma.wav",
                                  "Toma.wav",       "toma2.wav",
                                  "toma_2.wav",     "tomaA.wav",
                                  "bajo.mp3",       "bajo.mp3",
                                  "BAJO.mp3",       "voz.flac",
                                  "voz.flac",       "Coro.aif",
                                  "coro.aif",       "piano.ogg",
                                  "cuerda.aiff",    "corte.fla",
                                  "corte.flac",     "sordo.wma",
                                  "lista.m4a",      "a.wav",
                                  "a.wav",          "ab.wav",
                                  "[a].wav",        "toma [1].wav",
                                  "Canción.wav",    "Ñu.mp3",
                                  "a.b.wav",        "toma.h2",
                                  "toma.hdp",       "bajo.hm2",
                                  "toma.hs",        "disco.cue",
                                  "pico.hz",        "nota.txt",
                                  "toma.wavx",      "voz_BAK.wav",
                                  "FreezeData.wav", "uno ----------.wav",
                                  "€uro.wav",       "œuf.wav",
                                  "šum.wav",        "zum.wav",
                                  "toma.wav.wav",   "ÿz.ogg",
                                  "µ.wav",          "ƒ.wav",
                                  "×.wav",          "Ÿ.mp3",
                                  "ßa.ogg"};

constexpr const char* kProjects[] = {
    "tema.vip",   "tema.vip",     "Tema.VIP",     "temaA.vip",   "tema_B.vip",   "temaC.vip",
    "mezcla.vip", "tema_BAK.vip", "otro_bak.vip", "[tema].vip",  "tema [2].vip", "canción.vip",
    "raro.vipx",  "raro.xvip",    "p.q.vip",      "sinpuntovip", "tema.vip.vip", "ÿ.vip",
    "µ.vip",      "ƒ.vip",        "Š.vip"};

// In bytes, on the disks of the machine.
constexpr std::size_t kLongestName = 255;

template <std::size_t N>
std::string one_of(Dice& dice, const char* const (&table)[N]) {
  return table[dice.below(N)];
}

// Whether a project may refer to such a file.
bool is_read(const std::string& path) {
  const std::string end = path.size() < 4 ? "" : path.substr(path.size() - 4);
  return end == ".wav" || end == ".mp3" || end == ".aif" || end == ".ogg" || end == "flac";
}

std::string listed(const std::vector<std::string>& rows) {
  std::string text;
  for (const std::string& row : rows) text += (text.empty() ? "" : " | ") + utf8_of(row);
  return text;
}

}  // namespace

Studio::Studio(std::uint64_t seed, Plan plan, fs::path root)
    : dice_(seed * kPlans + static_cast<std::uint64_t>(plan)),
      root_(std::move(root)),
      odd_(plan == Plan::odd_paths) {
  for (auto count = 2 + dice_.below(4); count > 0; --count) {
    pool_.push_back(one_of(dice_, kNames));
  }
  if (one_in(20)) pool_.push_back(long_name(".wav", kLongestName));
  add_folders();
  add_files();
  add_twins();
  add_links();
  add_projects();
  choose_actions(plan);
}

void Studio::add_folders() {
  constexpr const char* kBases[] = {"D:\\", "D:\\Estudio\\", "D:\\Estudio\\", "D:\\Caja [1]\\"};
  folders_.push_back(one_of(dice_, kBases));
  for (auto count = dice_.below(6); count > 0; --count) {
    const std::string path = folder() + one_of(dice_, kFolders);
    if (take(path)) folders_.push_back(path + "\\");
  }
  for (const std::string& path : folders_) {
    fs::create_directories(native(path));
    describe(utf8_of(path));
  }
}

std::string Studio::some_name() {
  return one_in(5) ? one_of(dice_, kNames) : pool_[dice_.below(pool_.size())];
}

std::string Studio::content() {
  if (one_in(40)) return std::string(10'000 + dice_.below(2), 'x') + (one_in(2) ? "1" : "2");
  constexpr const char* kContents[] = {"", "1", "1", "2", "11", "12"};
  return one_of(dice_, kContents);
}

void Studio::add_files() {
  for (auto count = 1 + dice_.below(12); count > 0; --count) {
    const std::string path = folder() + some_name();
    if (!take(path)) continue;
    write(path, content());
    files_.push_back(path);
  }
  // Audio in a place that no project stands in.
  if (one_in(3)) {
    const std::string path = "D:\\Fuera\\" + some_name();
    if (take(path)) {
      write(path, content());
      files_.push_back(path);
    }
  }
  if (one_in(12)) {
    constexpr const char* kUnnamed[] = {".wav", "/toma.wav", ".vip"};
    const fs::path snow =
        native(folder()) / (std::string("nieve\xE2\x98\x83") + one_of(dice_, kUnnamed));
    fs::create_directories(snow.parent_path());
    std::ofstream(snow) << "1";
    describe(snow.lexically_relative(root_).string() + " (not in the code page)");
  }
}

// One of the files, mostly one of those that the program finds in projects.
std::string Studio::some_file() {
  std::string file = files_[dice_.below(files_.size())];
  for (int i = 0; i < 3 && !is_read(file); ++i) file = files_[dice_.below(files_.size())];
  return file;
}

// Files whose names differ by case alone: Windows has them on disks that Linux wrote.
void Studio::add_twins() {
  if (!one_in(12)) return;
  const std::string file = files_[dice_.below(files_.size())];
  const std::size_t name = file.rfind('\\') + 1;
  std::string twin = file.substr(0, name) + recased(file.substr(name));
  if (twin == file) return;
  twins_ = true;
  write(twin, content());
  files_.push_back(twin);
}

void Studio::add_links() {
  if (one_in(5) && !files_.empty()) {
    const std::string path = folder() + "enlace.wav";
    const std::string target = some_file();
    if (take(path)) {
      const bool hard = one_in(2);
      if (hard) {
        fs::create_hard_link(native(target), native(path));
      } else {
        fs::create_symlink(native(target), native(path));
      }
      files_.push_back(path);
      describe(utf8_of(path) + (hard ? " = " : " -> ") + utf8_of(target));
    }
  }
  // Where a folder has two names, it is open which of the twins in it a path means.
  if (!twins_ && one_in(7)) {
    const std::string path = folder() + "Puente";
    const std::string target = folder();
    if (take(path)) {
      fs::create_directory_symlink(native(target), native(path));
      links_.push_back(path + "\\");
      describe(utf8_of(path) + " -> " + utf8_of(target));
    }
  }
  if (one_in(15)) {
    const std::string path = folder() + (one_in(2) ? "roto.wav" : "roto.vip");
    if (take(path)) {
      fs::create_symlink("/nowhere/at/all", native(path));
      describe(utf8_of(path) + " -> nothing");
    }
  }
}

// The path with some letters in the other case.
std::string Studio::recased(std::string path) {
  const bool all = one_in(2);
  for (char& c : path) {
    if (!all && !one_in(3)) continue;
    if (c >= 'a' && c <= 'z') {
      c = static_cast<char>(c - 32);
    } else if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c + 32);
    } else if (static_cast<unsigned char>(c) == 0xF3) {
      c = static_cast<char>(0xD3);
    }
  }
  return path;
}

// The path with one backslash or all of them as slashes.
std::string Studio::slashed(std::string path) {
  const bool all = one_in(3);
  for (std::size_t i = path.size(); i-- > 0;) {
    if (path[i] != '\\') continue;
    path[i] = '/';
    if (!all) break;
  }
  return path;
}

// A name of at most that many bytes, and of a few less at least.
std::string Studio::long_name(const std::string& extension, std::size_t longest) {
  return std::string(longest - dice_.below(16) - extension.size(), 'n') + extension;
}

// Another spelling of the same path.
std::string Studio::respelt(std::string path) {
  std::vector<std::size_t> breaks;
  for (std::size_t i = 3; i < path.size(); ++i) {
    if (path[i] == '\\') breaks.push_back(i);
  }
  const std::size_t at = breaks.empty() ? 2 : breaks[dice_.below(breaks.size())];
  switch (dice_.below(8)) {
    case 0:
      if (at > 2) path[at] = '/';
      return path;
    case 1:
      return path.insert(at, "\\");
    case 2:
      return path.insert(at, "\\.");
    case 3:
      return path.insert(at, "\\Nada\\..");
    case 4:
      path[0] = 'd';
      return path;
    default:
      return recased(path);
  }
}

// What a project calls a file that it uses.
std::string Studio::reference() {
  if (files_.empty() || one_in(8)) return folder() + some_name();  // lost, or by chance there
  const std::string file = some_file();
  if (one_in(20)) return "E:\\Disco\\" + reference::name_of(file);
  if (one_in(40)) return folder() + "to?a*.wav";
  if (!links_.empty() && one_in(3)) {
    return links_[dice_.below(links_.size())] + reference::name_of(file);
  }
  return one_in(4) ? respelt(file) : file;
}

std::string Studio::project_bytes(const std::vector<std::string>& references) {
  std::string bytes(96, 'x');
  const bool headless = one_in(30);
  bytes += headless ? "cabecera " : std::string("cabecera") + '\0';
  for (const std::string& path : references) {
    if (one_in(12)) bytes += one_in(2) ? "L::" : std::string("x.y\0:", 5);
    bytes += path + std::string(headless ? 3 : 1 + dice_.below(4), headless ? ' ' : '\0');
  }
  bytes += std::string(4 + dice_.below(30), ' ');
  if (one_in(25)) return bytes;  // no marker
  bytes += headless ? "LIST1234mdrl " : std::string("LIST\0\1\2\3mdrl", 12);
  // What comes after the marker is no longer the list of files.
  if (one_in(4) && !files_.empty()) bytes += files_[dice_.below(files_.size())] + '\0';
  return bytes;
}

void Studio::write_project(const std::string& path, const std::vector<std::string>& references) {
  std::string bytes = project_bytes(references);
  if (one_in(50)) bytes = bytes.substr(0, dice_.below(100));
  write(path, bytes);
  projects.push_back(path);
  const bool frozen = reference::contains(path, "FreezeData");
  if (!references.empty() && !frozen && folded(path).ends_with(".vip")) promising_.push_back(path);
  describe("   uses: " + listed(references));
  std::string shown;
  for (const char c : bytes.substr(std::min<std::size_t>(bytes.size(), 96))) {
    shown += c >= 0 && c < ' ' ? "\\" + std::to_string(c) : utf8_of(std::string(1, c));
  }
  describe("   bytes after 96: " + shown);
}

void Studio::add_projects() {
  // The last letter of the longest names gets lost where a path is put together from its parts.
  const std::size_t longest = odd_ ? kLongestName : kLongestName - 1;
  for (auto count = 1 + dice_.below(4); count > 0; --count) {
    const std::string path =
        folder() + (one_in(odd_ ? 8 : 40) ? long_name(".vip", longest) : one_of(dice_, kProjects));
    if (!take(path)) continue;
    std::vector<std::string> references;
    if (!one_in(10)) references.resize(1 + dice_.below(5));
    for (std::string& each : references) each = reference();
    write_project(path, references);
  }
  if (one_in(20) && !projects.empty()) {
    const std::string path = folder() + "enlazado.vip";
    const std::string target = projects[dice_.below(projects.size())];
    if (take(path)) {
      fs::create_symlink(native(target), native(path));
      projects.push_back(path);
      describe(utf8_of(path) + " -> " + utf8_of(target));
    }
  }
}

void Studio::add_project() {
  const std::string path = folder() + "nuevo.vip";
  if (!take(path)) return;
  std::string bytes = std::string(96, 'x') + "cabecera" + '\0';
  for (const std::string& file : files_) bytes += file + '\0';
  write(path, bytes + std::string("    LIST\0\1\2\3mdrl", 16));
  describe("   uses: " + listed(files_));
}

void Studio::remove_project() {
  if (projects.empty()) return;
  const std::string path = projects[dice_.below(projects.size())];
  fs::remove(native(path));
  describe(utf8_of(path) + " is removed");
}

Action Studio::some_open() {
  std::string path = folder() + "falta.vip";
  if (!projects.empty() && !one_in(25)) path = projects[dice_.below(projects.size())];
  if (!promising_.empty() && !one_in(4)) path = promising_[dice_.below(promising_.size())];
  if (one_in(40) && !files_.empty()) path = files_[dice_.below(files_.size())];
  if (one_in(40)) path.clear();  // the dialog is cancelled
  if (one_in(30)) path = slashed(path);
  return {Action::Kind::open, {one_in(12) ? recased(path) : path}};
}

Action Studio::some_drop() {
  Action action{Action::Kind::drop, {}};
  if (one_in(40)) return action;  // something that is no file list
  for (auto count = 1 + dice_.below(5); count > 0; --count) {
    std::string item = folder() + "falta.vip";
    switch (dice_.below(12)) {
      case 0:
        item = folder();
        break;
      case 1:
        item = folder();
        item.pop_back();
        break;
      case 2:
      case 3:
        if (!files_.empty()) item = files_[dice_.below(files_.size())];
        break;
      case 4:
        if (!links_.empty()) item = links_[dice_.below(links_.size())];
        break;
      case 5:
        break;
      default:
        if (!projects.empty()) item = projects[dice_.below(projects.size())];
    }
    if (odd_ && one_in(3)) item = slashed(item);
    action.items.push_back(one_in(15) ? recased(item) : item);
  }
  return action;
}

void Studio::choose_actions(Plan plan) {
  with_backups = one_in(2);
  with_subfolders = plan == Plan::open_tree || (plan != Plan::open_folder && one_in(2));
  if (plan == Plan::drop) {
    actions = {some_drop()};
  } else if (plan == Plan::two_actions || plan == Plan::interrupted) {
    for (int i = plan == Plan::two_actions ? 0 : 1; i < 2; ++i) {
      actions.push_back(one_in(2) ? some_open() : some_drop());
    }
  } else if (plan == Plan::odd_paths) {
    actions = {one_in(4) ? some_open() : some_drop()};
  } else {
    actions = {some_open()};
  }
}

std::string Studio::described_actions() const {
  std::string text = std::string("subfolders ") + (with_subfolders ? "on" : "off") + ", backups " +
                     (with_backups ? "on" : "off") + "\n";
  for (const Action& action : actions) {
    text += (action.kind == Action::Kind::open ? "open: " : "drop: ") + listed(action.items) + "\n";
  }
  return text;
}

bool Studio::take(const std::string& path) {
  return taken_.insert(folded(path)).second;
}

fs::path Studio::native(const std::string& path) const {
  std::string below = utf8_of(path.substr(3));
  for (char& c : below) {
    if (c == '\\') c = '/';
  }
  return root_ / below;
}

void Studio::write(const std::string& path, const std::string& bytes) {
  const fs::path place = native(path);
  fs::create_directories(place.parent_path());
  std::ofstream(place, std::ios::binary) << bytes;
  describe(utf8_of(path) + (bytes.size() < 10 ? " \"" + bytes + "\"" : ""));
}

}  // namespace ordelan::test
