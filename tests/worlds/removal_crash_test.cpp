// A run with backup that ends at every one of its steps, or in which every one of them fails: no
// file is lost, and recovery brings every one back.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "support/faulty_files.h"
#include "support/forwarding_files.h"
#include "support/small_project.h"
#include "test_disk.h"
#include "worlds/flow_worlds.h"
#include "worlds/removal_session.h"

namespace ordelan::test {
namespace {

namespace fs = std::filesystem;
using Contents = std::map<std::string, std::string>;  // path of the program to bytes

// Where the copies go: into a new folder, into the one that is cleaned, into one in which another
// run has left its log and its copies and a user files of his own.
enum class Place { fresh, cleaned, used_before };

// A studio before the run, of which each point gets a copy.
struct Origin {
  explicit Origin(Place place) : folder(place == Place::cleaned ? "D:\\Mix" : "D:\\Copias") {
    disk.write("Mix\\usado.wav", "used");
    disk.write("Mix\\usado2.wav", "the neighbour of a used file, which is never offered");
    disk.write("Mix\\Tomas\\voz.wav", "used too");
    disk.write("Mix\\Tomas\\vozz.wav", "its neighbour");
    disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\usado.wav", "D:\\Mix\\Tomas\\voz.wav"}));
    if (place == Place::used_before) fill_folder();
    for (const char letter : {'A', 'B', 'C', 'D', 'E', 'F'}) {
      const std::string in = std::string("Mix\\") + letter + "\\";
      disk.write(in + "voz.wav", letter < 'C' ? "one take" : std::string("take ") + letter);
      disk.write(in + "bajo.wav", "the same everywhere");
      disk.write(in + "usado.wav", std::string("no used one, ") + letter);
      disk.write(in + "coro.wav", letter == 'C' ? "" : std::string(70, letter));
      disk.write(in + "solo" + letter + ".wav", letter == 'E' ? std::string(300'000, 'e') : "solo");
    }
    note(disk.native_path(""));
  }

  // What another run and a user have left in the folder.
  void fill_folder() {
    for (const char* name : {"voz.wav", "vieja.wav", "B\\voz.wav", "B\\otra.wav"}) {
      const std::string below = std::string("Mix\\Vieja\\") + name;
      disk.write(below, "old " + below);
      removed_before["D:\\" + below] = "old " + below;
    }
    disk.make_folder(folder.substr(3));
    {
      RemovalSession session(disk.files());
      session.open("D:\\Mix\\tema.vip");
      session.prepare(true);
      session.shell.answers_yes = false;
      session.remove_to(folder);
      for (const auto& [path, bytes] : removed_before) {
        EXPECT_FALSE(disk.files().info(path)) << path;
      }
    }
    for (const char* name : {"coro.wav", "soloA.wav", "de alguien.txt"}) {
      const std::string bytes = std::string("somebody's ") + name;
      disk.write("Copias\\" + std::string(name), bytes);
      own[name] = bytes;
    }
  }

  // What must be there in the end: everything, but the settings and what the folder of copies has.
  void note(const fs::path& root) {
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      if (!entry.is_regular_file()) continue;
      std::string below = entry.path().lexically_relative(root).string();
      std::replace(below.begin(), below.end(), '/', '\\');
      const std::string path = "D:\\" + below;
      if (path.starts_with("D:\\Mix\\")) kept[path] = bytes_at(disk.files(), path).value_or("");
    }
  }

  TestDisk disk;
  const std::string folder;
  Contents kept;            // by path, all of which must be there after recovery
  Contents removed_before;  // by another run: they must come back too
  Contents own;             // files of the folder of copies, by name
};

// A disk with room for so many bytes more.
class SmallDisk final : public ForwardingFiles {
 public:
  SmallDisk(system::FileSystem& files, std::uint64_t room) : ForwardingFiles(files), left_(room) {}

  bool full = false;  // whether something has not found room

  system::Opened<system::OutputFile> create(std::string_view path) override {
    return limited(files().create(path));
  }
  system::Opened<system::OutputFile> create_new(std::string_view path) override {
    return limited(files().create_new(path));
  }
  system::Status copy_new(std::string_view from, std::string_view to, const Progress& progress,
                          system::Flush flush = system::Flush::yes) override {
    const auto found = files().info(from);
    if (found && take(found->size) < found->size) return system::Reason::no_space;
    return files().copy_new(from, to, progress, flush);
  }

 private:
  class Output final : public system::OutputFile {
   public:
    Output(SmallDisk& disk, std::unique_ptr<system::OutputFile> file)
        : disk_(disk), file_(std::move(file)) {}
    system::Status write(std::string_view bytes) override {
      if (!failed_) return failed_;
      const std::uint64_t room = disk_.take(bytes.size());
      failed_ = file_->write(bytes.substr(0, static_cast<std::size_t>(room)));
      if (failed_ && room < bytes.size()) failed_ = system::Reason::no_space;
      return failed_;
    }
    system::Status flush() override { return failed_ ? file_->flush() : failed_; }
    system::Status close() override {
      const auto closed = file_->close();
      return failed_ ? closed : failed_;
    }

   private:
    SmallDisk& disk_;
    std::unique_ptr<system::OutputFile> file_;
    system::Status failed_;
  };

  system::Opened<system::OutputFile> limited(system::Opened<system::OutputFile> file) {
    if (!file) return file;
    return std::make_unique<Output>(*this, std::move(file));
  }
  // Takes room for so many bytes, or what is left of it.
  std::uint64_t take(std::uint64_t bytes) {
    const std::uint64_t taken = std::min(bytes, left_);
    left_ -= taken;
    full = full || taken < bytes;
    return taken;
  }

  std::uint64_t left_;
};

// One point: a disk with the studio, the run with its fault, a new start of the program.
class Point {
 public:
  explicit Point(Origin& origin) : origin_(origin) {
    fs::copy(origin.disk.native_path(""), disk_.native_path(""), fs::copy_options::recursive);
  }

  FaultyFiles files{disk_.files()};

  // Runs with the fault that `arm` plans. False if the fault was not reached.
  template <class Arm>
  bool run(Arm arm) {
    RemovalSession session(files);
    session.open("D:\\Mix\\tema.vip");
    session.prepare(true);
    // The user makes the folder in the dialog, if it is missing.
    if (!disk_.files().info(origin_.folder)) files.make_folder(origin_.folder).ignore();
    session.choose(origin_.folder);
    arm(files.faults);
    const int before = files.faults.count();
    try {
      session.folder_window().cmdCarpetaBorrar_Click();
    } catch (const Killed&) {
    }
    calls = files.faults.count() - before;
    removed = session.program.form.removal_state().gone;
    const bool reached = files.faults.killed();
    // What is closed now is closed by a program that has been killed.
    if (!reached) files.faults.heal();
    return reached;
  }
  int calls = 0;
  std::size_t removed = 0;

  // Runs where the disk has room for so many bytes more. False if there was enough.
  bool run_with_room(std::uint64_t room) {
    disk_.files().make_folder(origin_.folder).ignore();
    SmallDisk small(disk_.files(), room);
    RemovalSession session(small);
    session.open("D:\\Mix\\tema.vip");
    session.prepare(true);
    session.remove_to(origin_.folder);
    return small.full;
  }

  // Another run, in which nothing goes wrong, over what the first has left.
  void run_again() {
    disk_.files().make_folder(origin_.folder).ignore();
    RemovalSession session(disk_.files());
    session.open("D:\\Mix\\tema.vip");
    session.prepare(true);
    session.remove_to(origin_.folder);
  }

  // Recovers from every log. Gives what is not as it was; empty if all is.
  std::string lost() {
    RemovalSession session(disk_.files());
    session.shell.answers_yes = false;
    for (const std::string& folder : folders()) {
      const std::string log = folder + "Archivos_Borrados.log";
      if (disk_.files().info(log)) session.recover(log);
    }
    std::string text;
    const auto expect = [&](const Contents& contents) {
      for (const auto& [path, bytes] : contents) {
        const auto there = bytes_at(disk_.files(), path);
        if (there != bytes) text += path + (there ? " is another\n" : " is gone\n");
      }
    };
    expect(origin_.kept);
    expect(origin_.removed_before);
    for (const auto& [name, bytes] : origin_.own) {
      bool found = false;
      for (const std::string& folder : folders()) {
        found = found || bytes_at(disk_.files(), folder + name) == bytes;
      }
      if (!found) text += "somebody's " + name + " is gone\n";
    }
    return text.empty() ? text : text + listing();
  }

  // The same for a recovery that is killed at its call `n` and made again.
  bool recover_killed_at(int n) {
    RemovalSession session(files);
    session.shell.answers_yes = false;
    files.faults.kill({.after = n});
    try {
      session.recover(origin_.folder + "\\Archivos_Borrados.log");
    } catch (const Killed&) {
    }
    return files.faults.killed();
  }

  std::string listing() {
    std::string text;
    const fs::path root = disk_.native_path("");
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      if (entry.is_regular_file())
        text += "  " + entry.path().lexically_relative(root).string() + "\n";
    }
    const auto log = bytes_at(disk_.files(), origin_.folder + "\\Archivos_Borrados.log");
    const auto index = bytes_at(disk_.files(), origin_.folder + "\\Archivos_Borrados.ind");
    return text + "log:\n" + log.value_or("none") + "\nindex:\n" + index.value_or("none");
  }

 private:
  // The folder of copies and the numbered ones below it.
  std::vector<std::string> folders() {
    std::vector<std::string> all = {origin_.folder + "\\"};
    for (int number = 30; number > 0; --number) {
      const std::string digits = std::to_string(number);
      const std::string folder = all.front() + std::string(4 - digits.size(), '0') + digits + "\\";
      if (disk_.files().info(folder)) all.push_back(folder);
    }
    return all;
  }

  TestDisk disk_;
  Origin& origin_;
};

// Every point is tried where ORDELAN_CRASH_POINTS is "all"; otherwise one of so many.
int stride(int usual) {
  const char* const asked = std::getenv("ORDELAN_CRASH_POINTS");
  return asked != nullptr && std::string(asked) == "all" ? 1 : usual;
}

struct RemovalCrash : ::testing::TestWithParam<Place> {
  DiskInMemory in_memory;
  Origin origin{GetParam()};
  int points = 0;

  void report(const char* what) {
    std::cout << "  points tried, " << what << ": " << points << "\n";
  }

  // Kills the run at its calls, `prepare` being made before each.
  template <class Prepare>
  void sweep_kills(int step, Prepare prepare, bool again) {
    for (int n = 0;; n += step) {
      Point point(origin);
      prepare(point.files, n);
      if (!point.run([n](auto& faults) { faults.kill({.after = n}); })) break;
      ++points;
      if (again) point.run_again();
      ASSERT_EQ(point.lost(), "") << "killed at call " << n
                                  << " of the run: " << point.files.faults.made().back().path;
    }
    EXPECT_GT(points, 0);
  }
  // Makes the calls of the run fail, one at a time or all from one on.
  void sweep_failures(int step, int times) {
    using system::Reason;
    constexpr Reason kReasons[] = {Reason::not_found, Reason::no_space,      Reason::in_use,
                                   Reason::other,     Reason::no_permission, Reason::exists};
    const int all = [this] {
      Point point(origin);
      point.run([](auto&) {});
      return point.calls;
    }();
    for (int n = 0; n < all; n += step) {
      Point point(origin);
      point.files.room = static_cast<std::size_t>(n % 7);
      const Reason reason = kReasons[(n / step) % 6];
      point.run([&](auto& faults) { faults.fail({.after = n}, reason, times); });
      ++points;
      ASSERT_EQ(point.lost(), "") << system::name_of(reason) << " at call " << n << " of the run";
    }
  }
};

TEST_P(RemovalCrash, without_a_fault_every_row_goes_and_comes_back) {
  Point point(origin);
  EXPECT_FALSE(point.run([](auto&) {}));
  EXPECT_GE(point.removed, 20u);
  std::cout << "  calls of the run: " << point.calls << ", files removed: " << point.removed
            << "\n";
  EXPECT_EQ(point.lost(), "");
}

TEST_P(RemovalCrash, a_run_that_is_killed_loses_nothing) {
  sweep_kills(
      stride(23), [](FaultyFiles&, int) {}, false);
  report("killed");
}

TEST_P(RemovalCrash, a_run_after_one_that_was_killed_loses_nothing) {
  sweep_kills(
      stride(29), [](FaultyFiles&, int) {}, true);
  report("killed and run again");
}

TEST_P(RemovalCrash, a_power_cut_loses_nothing) {
  sweep_kills(
      stride(23), [](FaultyFiles& files, int) { files.loses_unflushed = files.loses_names = true; },
      false);
  report("power cut that loses all that was not flushed");
}

TEST_P(RemovalCrash, a_power_cut_that_loses_only_the_bytes_loses_nothing) {
  sweep_kills(
      stride(31), [](FaultyFiles& files, int) { files.loses_unflushed = true; }, false);
  report("power cut that loses bytes");
}

TEST_P(RemovalCrash, a_power_cut_that_loses_a_part_loses_nothing) {
  sweep_kills(
      stride(19),
      [](FaultyFiles& files, int n) {
        files.loses_unflushed = files.loses_names = true;
        files.luck = static_cast<std::uint32_t>(n) * 7919u + 1u;
      },
      false);
  report("power cut that loses a part");
}

TEST_P(RemovalCrash, a_run_after_a_power_cut_loses_nothing) {
  sweep_kills(
      stride(37),
      [](FaultyFiles& files, int n) {
        files.loses_unflushed = files.loses_names = true;
        files.luck = static_cast<std::uint32_t>(n) * 104'729u + 1u;
      },
      true);
  report("power cut and run again");
}

TEST_P(RemovalCrash, a_call_that_fails_loses_nothing) {
  sweep_failures(stride(17), 1);
  report("one call failed");
}

TEST_P(RemovalCrash, calls_that_fail_from_one_on_lose_nothing) {
  sweep_failures(stride(41), Faults<FaultyFiles::Call>::kForEver);
  report("all calls failed from one on");
}

TEST_P(RemovalCrash, a_full_disk_loses_nothing) {
  // The lines of log and index are short: their bytes are tried one by one where all points are.
  for (std::uint64_t room = 0;;
       room += static_cast<std::uint64_t>(room > 12'000 ? 40'011 : stride(397))) {
    Point point(origin);
    if (!point.run_with_room(room)) break;
    ++points;
    if (room % 2 != 0) point.run_again();
    ASSERT_EQ(point.lost(), "") << "a disk with room for " << room << " bytes";
  }
  EXPECT_GT(points, 0);
  report("disk full");
}

TEST_P(RemovalCrash, a_recovery_that_is_killed_can_be_made_again) {
  for (int n = 0;; n += stride(29)) {
    Point point(origin);
    point.run([](auto&) {});
    point.files.loses_unflushed = point.files.loses_names = n % 2 != 0;
    if (!point.recover_killed_at(n)) break;
    ++points;
    ASSERT_EQ(point.lost(), "") << "recovery killed at call " << n;
  }
  report("recovery killed");
}

std::string name_of_place(const ::testing::TestParamInfo<Place>& info) {
  constexpr const char* kNames[] = {"fresh", "cleaned", "used_before"};
  return kNames[static_cast<int>(info.param)];
}
INSTANTIATE_TEST_SUITE_P(Folders, RemovalCrash,
                         ::testing::Values(Place::fresh, Place::cleaned, Place::used_before),
                         name_of_place);

}  // namespace
}  // namespace ordelan::test
