// An update of ten projects that ends at every one of its steps, or in which every one of them
// fails: each project is the old one or the new one, no original is lost, and the way back gives
// back every byte.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "support/faulty_files.h"
#include "support/small_project.h"
#include "test_disk.h"
#include "worlds/flow_worlds.h"
#include "worlds/update_session.h"

namespace ordelan::test::relink_crash {
namespace {

namespace fs = std::filesystem;
// Path below the disk's folder to bytes. Of a link: what it leads to.
using Tree = std::map<std::string, std::string>;

constexpr const char* kLink = "link to ";
constexpr const char* kConfig = "Config.ini";  // written anew at the end of each session
const std::string kOriginals = "Mix\\Originales\\";

Tree read_tree(const fs::path& root) {
  Tree tree;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    std::string below = entry.path().lexically_relative(root).string();
    std::replace(below.begin(), below.end(), '/', '\\');
    if (below == kConfig) continue;
    if (entry.is_symlink()) {
      tree[below] = kLink + fs::read_symlink(entry.path()).string();
    } else if (entry.is_regular_file()) {
      std::ifstream file(entry.path(), std::ios::binary);
      tree[below] = {std::istreambuf_iterator<char>(file), {}};
    }
  }
  return tree;
}

// A file that is changed in place: it has another name, or is a link.
struct InPlace {
  std::string path;
  std::string other;  // the other name, or where the link leads to
  bool link;
};
const std::vector<InPlace> kInPlace = {{"Mix\\duro.vip", "Otro\\duro.dat", false},
                                       {"Mix\\enlace.vip", "Aparte\\enlace.dat", true}};

void write_tree(const Tree& tree, TestDisk& disk) {
  disk.write(kConfig, kTickedDrive);
  for (const auto& [path, bytes] : tree) {
    if (!bytes.starts_with(kLink)) disk.write(path, bytes);
  }
  for (const InPlace& file : kInPlace) {
    const fs::path there = disk.native_path(file.path);
    fs::remove(there);
    if (file.link) {
      fs::create_symlink(tree.at(file.path).substr(std::string(kLink).size()), there);
    } else {
      fs::create_hard_link(disk.native_path(file.other), there);
    }
  }
}

// Two paths with so many bytes in between.
std::string far_apart(const std::string& first, const std::string& second, std::size_t gap) {
  const std::string tail = project_of({second});
  return project_of({first}).substr(0, 365) + std::string(gap, ' ') + tail.substr(105);
}

// What the folder of the originals holds before: it is missing, or another update and a user have
// left their files there.
enum class Place { fresh, used_before };

// A studio before the update, of which each point gets a copy.
struct Origin {
  explicit Origin(Place place) {
    TestDisk disk;
    Tree tree = {
        {"Mix\\a.vip", project_of({"D:\\Viejo\\a.wav"})},
        {"Mix\\b.vip", project_of({"D:\\Viejo\\b.wav", "D:\\Viejo\\b2.wav"})},
        {"Mix\\gemelo1.vip", project_of({"D:\\Viejo\\g.wav"})},
        {"Mix\\gemelo2.vip", project_of({"D:\\Viejo\\g.wav"})},
        {"Mix\\duro.vip", far_apart("D:\\Viejo\\d.wav", "D:\\Viejo\\d2.wav", 70'000)},
        {"Otro\\duro.dat", far_apart("D:\\Viejo\\d.wav", "D:\\Viejo\\d2.wav", 70'000)},
        {"Aparte\\enlace.dat", far_apart("D:\\Viejo\\e.wav", "D:\\Viejo\\e2.wav", 9'000)},
        {"Mix\\enlace.vip", std::string(kLink) + "../Aparte/enlace.dat"},
        {"Mix\\Sub\\nuevo.vip", project_of({"D:\\Viejo\\n.wav"})},
        {"Mix\\Sub\\ocupa.vip", project_of({"D:\\Viejo\\o.wav", "D:\\Viejo\\o2.wav"})},
        {"Mix\\ocupa.vip", "no project, but somebody's own"},
        {"Mix\\varias.vip", project_of({"D:\\Viejo\\v.wav"})},
        {"Mix\\quieto.vip", project_of({"D:\\Viejo\\en ninguna parte.flac"})},
        {"Mix\\letra.txt", "somebody's words"},
        {"Otro\\ordelan-suyo.tmp", "somebody's own"},
    };
    if (place == Place::used_before) {
      add_audio(tree, "Antes\\");
      write_tree(tree, disk);
      first = tree;
      use(disk);
      tree = read_tree(disk.native_path(""));
      std::erase_if(tree, [](const auto& file) { return file.first.starts_with("Antes\\"); });
      disk.remove("Antes");
    }
    add_audio(tree, "Nuevo\\Una carpeta con nombre largo\\");
    tree["Otro\\v.wav"] = "another take of that name";
    before = tree;
    // Projects of the first update alone: what a user has changed since is not undone.
    if (place == Place::fresh) {
      first = before;
    } else {
      Tree wanted = before;
      std::erase_if(wanted, [&](const auto& file) {
        return file.first.starts_with("Mix\\") && !file.first.starts_with(kOriginals);
      });
      for (const auto& [path, bytes] : first) {
        if (path.starts_with("Mix\\") || path == "Otro\\duro.dat" || path == "Aparte\\enlace.dat") {
          wanted[path] = bytes;
        }
      }
      first = wanted;
    }
  }

  static void add_audio(Tree& tree, const std::string& folder) {
    for (const char* name : {"a", "b", "b2", "g", "d", "d2", "e", "e2", "n", "o", "o2", "v"}) {
      tree[folder + name + ".wav"] = std::string("audio ") + name;
    }
  }

  // An update of before, and what a user has put beside its copies.
  void use(TestDisk& disk) {
    {
      UpdateSession session(disk.files());
      session.open("D:\\Mix\\a.vip");
      session.update();
      EXPECT_TRUE(session.can_undo());
    }
    number = 2;
    disk.write(kOriginals + "gemelo1.vip", "somebody's, under the name of a copy");
    disk.write(kOriginals + "nota.txt", "somebody's words");
    disk.write(kOriginals + "0001\\a.vip.orig", "somebody's too");
    disk.write(kOriginals + "a_vip.ptr", "somebody's, under the name of pointers");
    // Of an update that was cancelled, when the project was another.
    disk.write(kOriginals + "b_vip.ptr", " 6 \r\n 40 \r\n");
    disk.write(kOriginals + "duro_vip.ptr", " 2 \r\n 90 \r\n");
  }

  Tree before;
  Tree first;      // as it is when everything has been undone
  Tree after;      // as an update leaves it in which nothing goes wrong
  int number = 1;  // of the update

  // The files that the update changes.
  std::set<std::string> targets() const {
    std::set<std::string> paths = {"Mix\\nuevo.vip", "Mix\\ocupa.vip"};
    for (const char* name : {"a", "b", "gemelo1", "gemelo2", "duro", "varias", "quieto"}) {
      paths.insert(std::string("Mix\\") + name + ".vip");
    }
    for (const InPlace& file : kInPlace) paths.insert(file.other);
    return paths;
  }
  static bool is_in_place(const std::string& path) {
    return std::any_of(kInPlace.begin(), kInPlace.end(), [&](const InPlace& file) {
      return path == file.path || path == file.other;
    });
  }
};

bool is_in_originals(const std::string& path) {
  return path.starts_with(kOriginals);
}
// A file of ours that a kill has left: of the update, or of the way back.
bool is_leftover(const std::string& path) {
  const std::string name = path.substr(path.rfind('\\') + 1);
  const bool here = path.starts_with("Mix\\") || path == name;
  return here && name.starts_with("ord") && name.ends_with(".tmp");
}
// Files of the folder of originals that are the program's own, each update writing them anew.
bool is_written_anew(const std::string& path, const std::string& bytes) {
  if (!is_in_originals(path)) return false;
  if (path.ends_with(".log")) return true;
  return path.ends_with(".ptr") && bytes.find_first_not_of(" \r\n0123456789") == std::string::npos;
}

// One point: a disk with the studio, the update with its fault, a new start of the program.
class Point {
 public:
  explicit Point(Origin& origin) : origin_(origin) { write_tree(origin.before, disk_); }

  FaultyFiles files{disk_.files()};
  int calls = 0;
  int choices = 0;
  std::string report;

  // Runs with the fault that `arm` plans. False if a kill was not reached.
  template <class Arm>
  bool run(Arm arm) {
    UpdateSession session(files);
    session.open("D:\\Mix\\a.vip");
    arm(files.faults);
    const int before = files.faults.count();
    try {
      session.update();
    } catch (const Killed&) {
    }
    calls = files.faults.count() - before;
    choices = session.choices;
    report = session.report();
    const bool reached = files.faults.killed();
    files.faults.on_call = nullptr;
    if (!reached) files.faults.heal();
    return reached;
  }

  // Another update, in which nothing goes wrong, over what the first has left.
  void run_again() {
    UpdateSession session(disk_.files());
    session.open("D:\\Mix\\a.vip");
    session.update();
    report += "again:\n" + session.report();
  }

  Tree now() { return read_tree(disk_.native_path("")); }

  // What is neither as it was nor as the update leaves it. `is_new` says whether the bytes of a
  // project may be there after the update.
  template <class IsNew>
  std::string wrong(IsNew is_new) {
    const Tree tree = now();
    std::set<std::string> kept;     // in the folder of the originals
    std::set<std::string> present;  // anywhere
    for (const auto& [path, bytes] : tree) {
      if (is_in_originals(path)) kept.insert(bytes);
      present.insert(bytes);
    }
    std::string text;
    const auto targets = origin_.targets();
    for (const auto& [path, bytes] : origin_.before) {
      const auto there = tree.find(path);
      const bool as_it_was = there != tree.end() && there->second == bytes;
      if (as_it_was || is_written_anew(path, bytes)) continue;
      const bool in_originals = is_in_originals(path);
      if (!in_originals && !targets.contains(path)) {
        text += path + (there == tree.end() ? " is gone\n" : " is another\n");
        continue;
      }
      if (!(in_originals ? present : kept).contains(bytes)) text += path + " has no copy\n";
      if (in_originals) continue;
      if (there == tree.end()) {
        text += path + " is gone\n";
      } else if (!is_new(path, there->second) && !Origin::is_in_place(path)) {
        text += path + " is neither the old nor the new one\n";
      }
    }
    for (const auto& [path, bytes] : tree) {
      if (origin_.before.contains(path) || is_in_originals(path) || is_leftover(path)) continue;
      if (!targets.contains(path) || !is_new(path, bytes)) text += path + " is there now\n";
    }
    for (const InPlace& file : kInPlace) {
      if (!fs::equivalent(disk_.native_path(file.path), disk_.native_path(file.other))) {
        text += file.path + " is no longer the other file\n";
      }
    }
    return text.empty() ? text : text + report + listing(tree);
  }

  // What is not as after an update without a fault.
  std::string unlike_undisturbed() {
    const Tree tree = now();
    std::string text;
    for (const std::string& path : origin_.targets()) {
      const auto there = tree.find(path);
      if (there != tree.end() && there->second == origin_.after.at(path)) continue;
      // The path in whose middle a change in place ended is another path since.
      if (Origin::is_in_place(path) && !whole_.contains(path)) continue;
      text += path + " is not as an update leaves it\n";
    }
    return text.empty() ? text : text + report + listing(tree);
  }
  // Notes which files are whole, old or new.
  void look_for_halves() {
    for (const auto& [path, bytes] : now()) {
      const auto is = [&](const Tree& tree) {
        const auto found = tree.find(path);
        return found != tree.end() && found->second == bytes;
      };
      if (is(origin_.before) || is(origin_.after)) whole_.insert(path);
    }
  }

  // Undoes the update, and then those before it. Gives what has not come back; empty if all has.
  std::string lost(bool was_run_again) {
    std::string text;
    UpdateSession session(disk_.files());
    session.open("D:\\Mix\\a.vip");
    std::string number = std::to_string(origin_.number);
    number = std::string(4 - number.size(), '0') + number;
    if (!was_run_again) {
      if (now().contains(kOriginals + "Actualizacion" + number + ".ind")) session.undo();
      text = unlike(origin_.before);
      if (!text.empty()) text = "after the way back:\n" + text;
    }
    for (int times = 0; session.can_undo() && times < 6; ++times) session.undo();
    if (session.can_undo()) text += "it can still be undone\n";
    const std::string more = unlike(origin_.first);
    if (!more.empty()) text += "after all ways back:\n" + more;
    if (text.empty()) return text;
    return text + session.program.form.strip.TextDecode.text() + "\n" + report + listing(now());
  }

  // A way back that is killed at its call `n`.
  bool undo_killed_at(int n) {
    UpdateSession session(files);
    session.open("D:\\Mix\\a.vip");
    files.faults.kill({.after = n});
    try {
      session.undo();
    } catch (const Killed&) {
    }
    const bool reached = files.faults.killed();
    if (!reached) files.faults.heal();
    return reached;
  }

 private:
  // What is not as in a tree, outside of the originals.
  std::string unlike(const Tree& wanted) {
    const Tree tree = now();
    std::string text;
    for (const auto& [path, bytes] : wanted) {
      if (is_in_originals(path)) continue;
      const auto there = tree.find(path);
      if (there == tree.end()) {
        text += path + " is gone\n";
      } else if (there->second != bytes) {
        text += path + " is another\n";
      }
    }
    for (const auto& [path, bytes] : tree) {
      if (wanted.contains(path) || is_in_originals(path) || is_leftover(path)) continue;
      text += path + " is there still\n";
    }
    return text;
  }
  static std::string listing(const Tree& tree) {
    std::string text;
    for (const auto& [path, bytes] : tree) {
      text += "  " + path + "  " + std::to_string(bytes.size()) + "\n";
      if (path.ends_with(".ind") || path.ends_with(".ant") || path.ends_with(".ptr")) text += bytes;
    }
    return text;
  }

  TestDisk disk_;
  Origin& origin_;
  std::set<std::string> whole_;
};

::testing::AssertionResult none(const std::string& text) {
  if (text.empty()) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << text;
}

// Every point is tried where ORDELAN_CRASH_POINTS is "all"; otherwise one of so many.
int stride(int usual) {
  const char* const asked = std::getenv("ORDELAN_CRASH_POINTS");
  return asked != nullptr && std::string(asked) == "all" ? 1 : usual;
}

struct RelinkCrash : ::testing::TestWithParam<Place> {
  using Call = FaultyFiles::Call;

  void SetUp() override {
    Point point(origin);
    point.run([](auto&) {});
    all_calls = point.calls;
    choices = point.choices;
    report = point.report;
    origin.after = point.now();
  }

  bool is_new(const std::string& path, const std::string& bytes) {
    const auto found = origin.after.find(path);
    return found != origin.after.end() && found->second == bytes;
  }
  auto only_new() {
    return
        [this](const std::string& path, const std::string& bytes) { return is_new(path, bytes); };
  }

  void print(const char* what) {
    std::cout << "  points tried, " << what << ": " << points << "\n";
  }

  // Kills the update at its calls, `prepare` being made before each.
  template <class Prepare>
  void sweep_kills(int step, Prepare prepare, bool again) {
    for (int n = 0;; n += step) {
      Point point(origin);
      point.files.room = static_cast<std::size_t>(n) * 37 % 401;
      prepare(point.files, n);
      if (!point.run([n](auto& faults) { faults.kill({.after = n}); })) break;
      ++points;
      const auto made = point.files.faults.made().back();
      const std::string where = "killed at call " + std::to_string(n) + " of the update, kind " +
                                std::to_string(static_cast<int>(made.call)) + ": " + made.path;
      ASSERT_TRUE(none(point.wrong(only_new()))) << where;
      if (again) {
        point.look_for_halves();
        point.run_again();
        ASSERT_TRUE(none(point.unlike_undisturbed())) << where;
      }
      ASSERT_TRUE(none(point.lost(again))) << where;
    }
    EXPECT_GT(points, 0);
  }

  // How an update leaves the disk where files under these folders are not found.
  Tree after_without(const std::vector<std::string>& folders) {
    Origin less = origin;
    std::erase_if(less.before, [&](const auto& file) {
      return file.first.ends_with(".wav") &&
             std::any_of(folders.begin(), folders.end(),
                         [&](const auto& folder) { return file.first.starts_with(folder); });
    });
    Point point(less);
    point.run([](auto&) {});
    return point.now();
  }

  // A folder that cannot be listed hides its files from the searches: the projects that use them
  // are then as after an update that does not find them.
  auto new_or_not_found() {
    const std::vector<Tree> all = {origin.after, after_without({"Nuevo\\", "Otro\\"}),
                                   after_without({"Nuevo\\"}), after_without({"Otro\\"})};
    return [all](const std::string& path, const std::string& bytes) {
      return std::any_of(all.begin(), all.end(), [&](const Tree& tree) {
        const auto found = tree.find(path);
        return found != tree.end() && found->second == bytes;
      });
    };
  }

  // Makes calls of the update fail, one at a time or all from one on.
  void sweep_failures(int step, int times) {
    using system::Reason;
    constexpr Reason kReasons[] = {Reason::not_found, Reason::no_space,      Reason::in_use,
                                   Reason::other,     Reason::no_permission, Reason::exists};
    const auto right = new_or_not_found();
    for (int n = 0; n < all_calls; n += step) {
      Point point(origin);
      point.files.room = static_cast<std::size_t>(n) * 37 % 401;
      const Reason reason = kReasons[(n / step) % 6];
      point.run([&](auto& faults) { faults.fail({.after = n}, reason, times); });
      ++points;
      ASSERT_TRUE(none(point.wrong(right)))
          << system::name_of(reason) << " at call " << n << " of the update";
      ASSERT_TRUE(none(point.lost(false)))
          << system::name_of(reason) << " at call " << n << " of the update";
    }
  }
  // No file can be made and no byte written from call `n` of the update on.
  void fill_disk(Point& point, int n) {
    point.files.faults.on_call = [&faults = point.files.faults, n](Call, std::string_view) mutable {
      if (n-- != 0) return;
      for (const Call call :
           {Call::create, Call::create_new, Call::write, Call::copy_new, Call::make_folder}) {
        faults.fail(call, system::Reason::no_space);
      }
    };
  }

  DiskInMemory in_memory;
  Origin origin{GetParam()};
  int all_calls = 0;
  int choices = 0;
  std::string report;
  int points = 0;
};

TEST_P(RelinkCrash, without_a_fault_every_project_is_updated_and_comes_back) {
  std::cout << "  calls of the update: " << all_calls << "\n";
  EXPECT_EQ(choices, 1);
  int changed = 0;
  for (const std::string& path : origin.targets()) {
    ASSERT_TRUE(origin.after.contains(path)) << path << "\n" << report;
    const auto before = origin.before.find(path);
    if (before == origin.before.end() || before->second != origin.after[path]) ++changed;
  }
  // What another update has written at places where nothing is searched stays.
  EXPECT_EQ(changed, GetParam() == Place::fresh ? 11 : 8);
  Point point(origin);
  EXPECT_FALSE(point.run([](auto&) {}));
  EXPECT_TRUE(none(point.wrong(only_new())));
  point.look_for_halves();
  point.run_again();
  EXPECT_TRUE(none(point.unlike_undisturbed()));
  EXPECT_TRUE(none(point.lost(true)));
}

TEST_P(RelinkCrash, an_update_that_is_killed_leaves_old_or_new) {
  sweep_kills(
      stride(47), [](FaultyFiles&, int) {}, false);
  print("killed");
}

TEST_P(RelinkCrash, an_update_after_one_that_was_killed_ends_like_one_of_its_own) {
  sweep_kills(
      stride(29), [](FaultyFiles&, int) {}, true);
  print("killed and run again");
}

TEST_P(RelinkCrash, a_power_cut_leaves_old_or_new) {
  sweep_kills(
      stride(47), [](FaultyFiles& files, int) { files.loses_unflushed = files.loses_names = true; },
      false);
  print("power cut that loses all that was not flushed");
}

TEST_P(RelinkCrash, a_power_cut_that_loses_only_the_bytes_leaves_old_or_new) {
  sweep_kills(
      stride(61), [](FaultyFiles& files, int) { files.loses_unflushed = true; }, false);
  print("power cut that loses bytes");
}

TEST_P(RelinkCrash, a_power_cut_that_loses_a_part_leaves_old_or_new) {
  for (const std::uint32_t factor : {7919u, 15'485'863u, 179'424'673u}) {
    sweep_kills(
        stride(89),
        [factor](FaultyFiles& files, int n) {
          files.loses_unflushed = files.loses_names = true;
          files.luck = static_cast<std::uint32_t>(n) * factor + 1u;
        },
        false);
    if (HasFatalFailure()) return;
  }
  print("power cut that loses a part");
}

TEST_P(RelinkCrash, an_update_after_a_power_cut_ends_like_one_of_its_own) {
  sweep_kills(
      stride(71),
      [](FaultyFiles& files, int n) {
        files.loses_unflushed = files.loses_names = true;
        files.luck = static_cast<std::uint32_t>(n) * 104'729u;
      },
      true);
  print("power cut and run again");
}

TEST_P(RelinkCrash, a_call_that_fails_leaves_old_or_new) {
  sweep_failures(stride(41), 1);
  print("one call failed");
}

TEST_P(RelinkCrash, calls_that_fail_from_one_on_leave_old_or_new) {
  sweep_failures(stride(61), Faults<Call>::kForEver);
  print("all calls failed from one on");
}

TEST_P(RelinkCrash, a_full_disk_leaves_old_or_new) {
  for (int n = 0; n < all_calls; n += stride(43)) {
    Point point(origin);
    point.files.room = static_cast<std::size_t>(n) * 37 % 401;
    point.run([&](auto&) { fill_disk(point, n); });
    ++points;
    ASSERT_TRUE(none(point.wrong(only_new()))) << "full from call " << n << " of the update on";
    ASSERT_TRUE(none(point.lost(false))) << "full from call " << n << " of the update on";
  }
  print("disk full");
}

TEST_P(RelinkCrash, a_way_back_that_is_killed_can_be_made_again) {
  for (int n = 0;; n += stride(29)) {
    Point point(origin);
    point.run([](auto&) {});
    point.files.loses_unflushed = point.files.loses_names = n % 3 != 0;
    if (n % 3 == 2) point.files.luck = static_cast<std::uint32_t>(n) * 7919u + 1u;
    if (!point.undo_killed_at(n)) break;
    ++points;
    ASSERT_TRUE(none(point.lost(false))) << "way back killed at call " << n;
  }
  EXPECT_GT(points, 0);
  print("way back killed");
}

std::string name_of_originals(const ::testing::TestParamInfo<Place>& info) {
  return info.param == Place::fresh ? "fresh" : "used_before";
}
INSTANTIATE_TEST_SUITE_P(Originals, RelinkCrash,
                         ::testing::Values(Place::fresh, Place::used_before), name_of_originals);

}  // namespace
}  // namespace ordelan::test::relink_crash
