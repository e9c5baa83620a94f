// Updates of random studios: what each path becomes is worked out here from the words of the manual
// alone, and undoing gives back every byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "support/hostile_bytes.h"
#include "support/small_project.h"
#include "test_disk.h"
#include "worlds/flow_worlds.h"
#include "worlds/update_session.h"

namespace ordelan::test::relink_worlds {
namespace {

namespace fs = std::filesystem;
using Tree = std::map<std::string, std::string>;  // the program's path to bytes
using Paths = std::vector<std::string>;

std::string small(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return text;
}
std::string folder_of(const std::string& path) {
  return path.substr(0, path.rfind('\\') + 1);
}
std::string name_of(const std::string& path) {
  return path.substr(path.rfind('\\') + 1);
}

// What may stand at the place of a path after an update: one path, or one of the hits from which
// the user takes one.
using Wanted = std::set<std::string>;

class World {
 public:
  World(std::uint64_t seed, bool careful) : dice_(seed), careful_(careful) { build(); }

  std::string run();  // what has gone wrong, empty if nothing has
  std::map<std::string, int> seen;

 private:
  static constexpr std::size_t kField = 260;
  static constexpr std::size_t kFirstField = 105;

  bool one_in(std::uint64_t count) { return dice_.below(count) == 0; }
  const std::string& any(const Paths& from) { return from[dice_.below(from.size())]; }

  void build();
  std::string new_name();
  void add_project(const std::string& path);
  void add_audio(const std::string& path);
  void move_audio();
  Wanted wanted(const std::string& project, const std::string& old) const;
  bool there(const std::string& path) const { return files_.contains(small(path)); }
  Paths hits(const std::string& name) const;
  static Paths fields(const std::string& bytes, std::size_t count);
  std::string wrong_projects(const Tree& before, bool cancelled);
  std::string unlike(const Tree& wanted);
  Tree tree();
  void look();

  Dice dice_;
  const bool careful_;
  DiskInMemory in_memory_;
  TestDisk disk_;
  Paths folders_;
  Paths names_;                            // of audio, with more or less of it on the disk
  std::map<std::string, Paths> projects_;  // path to the paths stored in it
  std::map<std::string, Paths> files_;     // by path in small letters; folders too
  int serial_ = 0;
};

std::string World::new_name() {
  static const Paths kExtensions = {".wav", ".wav", ".wav", ".mp3", ".aif",   ".flac", ".wma",
                                    ".m4a", ".WAV", ".ogg", ".Mp3", ".a.wav", ".",     ""};
  static const Paths kStems = {"toma", "voz 1", "bajo.2", "Coro", "x"};
  return any(kStems) + " " + std::to_string(++serial_) + any(kExtensions);
}

void World::add_audio(const std::string& path) {
  if (name_of(path).empty() || disk_.files().info(path)) return;
  disk_.write(path.substr(3), "audio " + path);
}

void World::build() {
  disk_.write("Config.ini", kTickedDrive);
  folders_ = {"D:\\Mix\\", "D:\\Nuevo\\", "D:\\Banco de sonidos\\Una carpeta muy larga\\",
              "D:\\Nuevo\\B\\", "D:\\Mix\\Tomas\\"};
  if (one_in(2)) folders_.push_back("D:\\Mix\\FreezeData\\");
  if (careful_) folders_.push_back("D:\\Mix\\Sub\\");
  for (auto count = 3 + dice_.below(12); count > 0; --count) {
    names_.push_back(new_name());
    if (!one_in(6)) add_audio(any(folders_) + names_.back());
    while (careful_ && one_in(3)) add_audio(any(folders_) + names_.back());
    if (careful_ && one_in(5)) {
      std::string other = names_.back();
      other[0] = other[0] == 'C' ? 'c' : static_cast<char>(other[0] - 32);
      add_audio(any(folders_) + other);
    }
  }
  add_project("D:\\Mix\\tema.vip");
  for (auto count = dice_.below(4); count > 0; --count) {
    const std::string name = "p" + std::to_string(++serial_) + (one_in(4) ? ".VIP" : ".vip");
    add_project((careful_ && one_in(2) ? "D:\\Mix\\Sub\\" : "D:\\Mix\\") + name);
  }
  if (careful_ && one_in(2)) add_project("D:\\Mix\\Sub\\tema.vip");
  disk_.write("Mix\\notas.txt", "somebody's words");
}

void World::add_project(const std::string& path) {
  static const Paths kOld = {"D:\\Viejo\\", "E:\\Otro disco\\Sesiones de 2009\\", "D:\\Nuevo\\",
                             "D:\\Mix\\", "D:\\Una ruta antigua\\con varias\\carpetas dentro\\"};
  Paths stored = {"D:\\Viejo\\siempre.wav"};
  for (auto count = dice_.below(6); count > 0; --count) {
    std::string name = any(names_);
    if (careful_ && one_in(4)) name = small(name);
    if (one_in(12)) name = one_in(2) ? "FreezeData" : "";
    if (one_in(12)) name = "disco D";
    stored.push_back(any(kOld) + name);
  }
  projects_[path] = stored;
  disk_.write(path.substr(3), project_of(stored));
}

// The audio of before an update goes to other places, or away.
void World::move_audio() {
  for (const auto& [path, bytes] : tree()) {
    if (!bytes.starts_with("audio ") || one_in(3)) continue;
    disk_.remove(path.substr(3));
    if (!one_in(5)) add_audio(any(folders_) + name_of(path));
  }
}

Tree World::tree() {
  Tree tree;
  const fs::path root = disk_.native_path("");
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    std::string path = "D:\\" + entry.path().lexically_relative(root).string();
    std::replace(path.begin(), path.end(), '/', '\\');
    if (!entry.is_regular_file() || path == "D:\\Config.ini") continue;
    std::ifstream file(entry.path(), std::ios::binary);
    tree[path] = {std::istreambuf_iterator<char>(file), {}};
  }
  return tree;
}

// Notes what is on the disk.
void World::look() {
  files_.clear();
  for (const auto& [path, bytes] : tree()) {
    files_[small(path)].push_back(path);
    for (std::string folder = folder_of(path); folder.size() > 3;) {
      folder.pop_back();
      files_[small(folder)] = {};
      folder = folder_of(folder);
    }
  }
}

Paths World::hits(const std::string& name) const {
  Paths found;
  for (const auto& [key, paths] : files_) {
    if (name_of(key) == small(name)) found.insert(found.end(), paths.begin(), paths.end());
  }
  return found;
}

Wanted World::wanted(const std::string& project, const std::string& old) const {
  if (!careful_ && old.back() == 'D') return {old};
  std::string whole = old;
  if (whole.back() == '\\') whole.pop_back();
  if (careful_ && there(whole)) return {old};
  const std::string folder = folder_of(project);
  const std::string name = name_of(old);
  const auto dot = name.find_last_of(". ");
  const std::string extension =
      dot == std::string::npos || name[dot] == ' ' ? "" : name.substr(dot + 1);
  static const std::set<std::string> kAudio = {"mp3", "wav", "aif", "flac", "wma", "m4a"};
  Wanted all;
  if (!kAudio.contains(extension)) {
    all = {folder + name};
  } else if (const auto frozen = files_.find(small(folder + "FreezeData\\" + name));
             frozen != files_.end() && !frozen->second.empty()) {
    all = {folder + "FreezeData\\" + name};
  } else if (const Paths found = hits(name); !found.empty()) {
    all = {found.begin(), found.end()};
  } else {
    all = {folder + name};
  }
  if (!careful_) return all;
  Wanted fitting;
  for (const std::string& path : all) fitting.insert(path.size() > old.size() ? old : path);
  return fitting;
}

Paths World::fields(const std::string& bytes, std::size_t count) {
  Paths paths;
  for (std::size_t at = kFirstField; count > 0; --count, at += kField) {
    paths.emplace_back(bytes.c_str() + at);
  }
  return paths;
}

// Compares each project with what the reference wants of the paths that it had.
std::string World::wrong_projects(const Tree& before, bool cancelled) {
  const Tree now = tree();
  std::string text;
  for (const auto& [path, stored] : projects_) {
    const std::string& old_bytes = before.at(path);
    const std::string& bytes = now.at(path);
    if (cancelled && bytes == old_bytes) continue;
    const Paths old = fields(old_bytes, stored.size());
    const Paths found = fields(bytes, stored.size());
    // Nothing but the paths: a project with just these, and the same length.
    if (bytes != project_of(found)) text += path + ": more than its paths has changed\n";
    for (std::size_t i = 0; i < old.size(); ++i) {
      const Wanted right = wanted(path, old[i]);
      if (right.contains(found[i])) {
        ++seen[found[i] == old[i] ? "paths that stay" : right.size() > 1 ? "chosen" : "new paths"];
        continue;
      }
      text += path + ": " + old[i] + " is now " + found[i] + ", not";
      for (const std::string& one : right) text += " " + one;
      text += "\n";
    }
  }
  return text;
}

// What is not as in a tree, outside of the originals.
std::string World::unlike(const Tree& wanted) {
  const auto is_original = [](const std::string& path) {
    return path.starts_with("D:\\Mix\\Originales\\");
  };
  const Tree now = tree();
  std::string text;
  for (const auto& [path, bytes] : wanted) {
    const auto there = now.find(path);
    if (is_original(path) || (there != now.end() && there->second == bytes)) continue;
    text += path + (there == now.end() ? " is gone\n" : " is another\n");
  }
  for (const auto& [path, bytes] : now) {
    if (!is_original(path) && !wanted.contains(path)) text += path + " is there still\n";
  }
  return text;
}

std::string World::run() {
  UpdateSession session(disk_.files());
  main_window::Form1& form = session.program.form;
  form.CheckSubPath.set_checked(careful_);
  form.relink().options.careful = careful_;
  const auto update = [&](std::uint64_t cancel_at) {
    session.open("D:\\Mix\\tema.vip");
    const auto on_pump = session.backend.on_pump;
    bool cancelled = false;
    session.backend.on_pump = [&, cancel_at]() mutable {
      on_pump();
      if (!session.program.work.Actualizando || cancel_at == 0 || --cancel_at > 0) return;
      cancelled = true;
      form.cmdCancelar.on_click();
    };
    look();
    session.update();
    session.backend.on_pump = on_pump;
    session.program.work.Cancelar = false;
    return cancelled;
  };
  const auto updated = [&] { return form.relink().outcome().begun; };
  const auto undo = [&](const Tree& wanted, const char* what) {
    session.open("D:\\Mix\\tema.vip");
    const std::string different = unlike(wanted);
    if (different.empty()) return std::string();
    if (!session.can_undo()) return std::string(what) + ": nothing to be undone\n";
    session.undo();
    const std::string text = unlike(wanted);
    return text.empty() ? text : what + (":\n" + text);
  };

  const Tree first = tree();
  ++seen[careful_ ? "careful" : "flat"];
  std::string text;
  if (one_in(3)) {
    if (update(1 + dice_.below(60))) ++seen["cancelled"];
    text = wrong_projects(first, true);
    if (!text.empty()) return "cancelled:\n" + text;
    if (!unlike(first).empty()) ++seen["cancelled after a project"];
    return undo(first, "undone after a cancel");
  }
  update(0);
  if (!updated()) return "the update did not begin\n";
  text = wrong_projects(first, false);
  if (!text.empty()) return text + session.report();
  if (one_in(2)) return undo(first, "undone");
  const Tree second_projects = tree();
  move_audio();
  const Tree second = tree();
  update(0);
  ++seen["second updates"];
  text = wrong_projects(second, false);
  if (!text.empty()) return "second:\n" + text + session.report();
  text = undo(second, "the second undone");
  if (!text.empty()) return text;
  // The audio stays where it is now.
  Tree wanted = second;
  for (const auto& [path, stored] : projects_) wanted[path] = first.at(path);
  return undo(wanted, "both undone");
}

std::uint64_t worlds() {
  const char* const asked = std::getenv("ORDELAN_RELINK_WORLDS");
  return asked == nullptr ? 300 : std::strtoull(asked, nullptr, 10);
}

void run_worlds(bool careful) {
  std::map<std::string, int> seen;
  const std::uint64_t count = worlds() / 2;
  for (std::uint64_t seed = 1; seed <= count; ++seed) {
    World world(seed * 2 + (careful ? 1 : 0), careful);
    const std::string wrong = world.run();
    ASSERT_TRUE(wrong.empty()) << "seed " << seed << ":\n" << wrong;
    for (const auto& [what, times] : world.seen) seen[what] += times;
  }
  for (const auto& [what, times] : seen) std::cout << "  " << what << ": " << times << "\n";
  if (count < 100) return;
  const auto share = [&](const char* what) {
    return static_cast<double>(seen[what]) / static_cast<double>(count);
  };
  EXPECT_GT(share("new paths"), 1.0);
  EXPECT_GT(share("paths that stay"), 0.05);
  EXPECT_GT(share("second updates"), 0.2);
  EXPECT_GT(share("cancelled"), 0.1);
  EXPECT_GT(share("cancelled after a project"), 0.01);
  if (careful) {
    EXPECT_GT(share("chosen"), 0.1);
  }
}

TEST(RelinkWorlds, a_flat_studio_leads_to_where_its_audio_is_and_comes_back) {
  run_worlds(false);
}

TEST(RelinkWorlds, the_careful_way_serves_any_studio_and_all_comes_back) {
  run_worlds(true);
}

}  // namespace
}  // namespace ordelan::test::relink_worlds
