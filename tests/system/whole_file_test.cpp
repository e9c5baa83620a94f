// Saving: a file is replaced as a whole or left as it was, and no other file is touched.
#include "system/whole_file.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "support/faulty_files.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct WholeFile : ::testing::Test {
  TestDisk disk;

  bool save(const std::string& name, const std::string& bytes) {
    return system::write_whole(disk.files(), disk.path(name), bytes).ok();
  }
  std::string content(const std::string& name) {
    const auto file = disk.files().open(disk.path(name));
    if (!file) return "not opened";
    std::string bytes(static_cast<std::size_t>(file->size()), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }
  std::vector<std::string> names() {
    std::vector<std::string> found;
    const auto entries = disk.files().list(disk.folder());
    if (!entries) return {"not listed"};
    for (const auto& entry : *entries) found.push_back(entry.name);
    return found;
  }
};

TEST_F(WholeFile, a_new_file_holds_the_bytes_and_stands_alone) {
  EXPECT_TRUE(save("a.log", "uno"));
  EXPECT_EQ(content("a.log"), "uno");
  EXPECT_THAT(names(), ElementsAre("a.log"));
}

TEST_F(WholeFile, saving_twice_gives_the_same_contents) {
  disk.write("a.log", "an old and longer content");
  EXPECT_TRUE(save("a.log", "uno"));
  EXPECT_TRUE(save("a.log", "uno"));
  EXPECT_EQ(content("a.log"), "uno");
  EXPECT_THAT(names(), ElementsAre("a.log"));
}

TEST_F(WholeFile, the_users_files_with_names_alike_stay) {
  for (const char* name : {"a.log.new", "a.log.tmp", "a.log.bak", "a.log~", "a.new"}) {
    disk.write(name, "the user's");
  }
  EXPECT_TRUE(save("a.log", "uno"));
  EXPECT_TRUE(save("a.log", "dos"));
  EXPECT_EQ(content("a.log"), "dos");
  for (const char* name : {"a.log.new", "a.log.tmp", "a.log.bak", "a.log~", "a.new"}) {
    EXPECT_EQ(content(name), "the user's") << name;
  }
  EXPECT_EQ(names().size(), 6u);
}

TEST_F(WholeFile, a_folder_with_a_name_alike_is_no_hindrance) {
  disk.make_folder("a.log.new");
  EXPECT_TRUE(save("a.log", "uno"));
  EXPECT_EQ(content("a.log"), "uno");
  EXPECT_THAT(names(), ElementsAre("a.log", "a.log.new"));
}

TEST_F(WholeFile, the_longest_names_of_the_disk_are_saved) {
  for (const std::size_t length : {235u, 236u, 239u}) {
    const std::string name = "Archivos de " + std::string(length, 'x') + ".log";
    ASSERT_LE(name.size(), 255u);
    EXPECT_TRUE(save(name, "uno")) << name.size();
    EXPECT_TRUE(save(name, "dos")) << name.size();
    EXPECT_EQ(content(name), "dos") << name.size();
  }
  EXPECT_EQ(names().size(), 3u);
}

TEST_F(WholeFile, a_read_only_file_is_not_replaced) {
  using std::filesystem::perms;
  disk.write("a.log", "old");
  std::filesystem::permissions(disk.native_path("a.log"),
                               perms::owner_write | perms::group_write | perms::others_write,
                               std::filesystem::perm_options::remove);
  EXPECT_FALSE(save("a.log", "new"));
  EXPECT_EQ(content("a.log"), "old");
  EXPECT_THAT(names(), ElementsAre("a.log"));
}

TEST_F(WholeFile, nothing_is_saved_where_a_folder_has_the_name_or_the_folder_is_missing) {
  disk.make_folder("a.log");
  for (const char* name : {"a.log", "a.log\\", "missing\\a.log", "b*.log", ""}) {
    EXPECT_FALSE(save(name, "uno")) << name;
  }
  EXPECT_FALSE(system::write_whole(disk.files(), "a.log", "uno"));
  EXPECT_FALSE(system::write_whole(disk.files(), "", "uno"));
  EXPECT_THAT(names(), ElementsAre("a.log"));
  EXPECT_THAT(disk.files().list(disk.path("a.log")).value(), IsEmpty());
}

using Call = FaultyFiles::Call;
using system::Reason;

constexpr std::array kSteps{Call::create_new, Call::write, Call::flush, Call::close, Call::replace};

TEST_F(WholeFile, whatever_step_fails_the_old_file_stays_and_no_other_is_left) {
  FaultyFiles failing(disk.files());
  failing.room = 2;
  for (const Call step : kSteps) {
    failing.faults.heal();
    failing.faults.fail(step, Reason::no_space);
    EXPECT_EQ(system::write_whole(failing, disk.path("new.log"), "new"), Reason::no_space);
    EXPECT_THAT(names(), IsEmpty());
  }
  disk.write("a.log", "old");
  for (const Call step : kSteps) {
    failing.faults.heal();
    failing.faults.fail(step, Reason::in_use);
    EXPECT_EQ(system::write_whole(failing, disk.path("a.log"), "new"), Reason::in_use);
    EXPECT_EQ(content("a.log"), "old");
    EXPECT_THAT(names(), ElementsAre("a.log"));
  }
  failing.faults.heal();
  EXPECT_TRUE(system::write_whole(failing, disk.path("a.log"), "new"));
  EXPECT_EQ(content("a.log"), "new");
}

TEST_F(WholeFile, a_power_cut_at_any_call_leaves_the_old_file_or_the_new_one) {
  const std::string bytes(5000, 'n');
  int calls = 0;
  for (bool killed = true; killed; ++calls) {
    disk.write("a.log", "old");
    FaultyFiles cut(disk.files());
    cut.loses_unflushed = true;
    cut.room = 1000;
    cut.faults.kill({.after = calls});
    try {
      EXPECT_TRUE(system::write_whole(cut, disk.path("a.log"), bytes));
    } catch (const Killed&) {
    }
    killed = cut.faults.killed();
    const std::string left = content("a.log");
    EXPECT_TRUE(left == "old" || left == bytes) << calls << ": " << left.size() << " bytes";
    for (const std::string& name : names()) {
      if (name != "a.log") disk.remove(name);
    }
  }
  EXPECT_GE(calls, 6) << "each step was the last one once";
}

TEST_F(WholeFile, a_saved_file_outlives_a_power_cut) {
  FaultyFiles cut(disk.files());
  cut.loses_unflushed = true;
  ASSERT_TRUE(system::write_whole(cut, disk.path("a.log"), "uno"));
  cut.faults.kill({});
  EXPECT_THROW(cut.info(disk.path("a.log")), Killed);
  EXPECT_EQ(content("a.log"), "uno");
}

TEST_F(WholeFile, a_save_asks_for_its_name_to_reach_the_disk_and_is_saved_even_if_it_cannot) {
  FaultyFiles watched(disk.files());
  disk.make_folder("Mix");
  watched.faults.fail(Call::flush_folder);
  EXPECT_TRUE(system::write_whole(watched, disk.path("Mix\\a.log"), "uno"));
  EXPECT_EQ(content("Mix\\a.log"), "uno");
  EXPECT_EQ(watched.faults.made().back(),
            (Faults<Call>::Made{Call::flush_folder, disk.path("Mix\\")}));
}

TEST_F(WholeFile, a_file_that_has_the_temporary_name_stays_and_another_name_is_taken) {
  FaultyFiles crowded(disk.files());
  std::vector<std::string> taken;
  crowded.faults.on_call = [&](Call call, std::string_view path) {
    if (call != Call::create_new || taken.size() == 3) return;
    taken.emplace_back(path.substr(disk.folder().size()));
    disk.write(taken.back(), "the user's");
  };
  EXPECT_TRUE(system::write_whole(crowded, disk.path("a.log"), "uno"));
  EXPECT_EQ(content("a.log"), "uno");
  ASSERT_EQ(taken.size(), 3u);
  for (const std::string& name : taken) EXPECT_EQ(content(name), "the user's") << name;
  EXPECT_EQ(names().size(), 4u);
}

TEST_F(WholeFile, temporary_names_are_short_in_the_files_own_folder_and_all_different) {
  FaultyFiles failing(disk.files());
  failing.faults.fail(Call::replace);
  std::vector<std::string> created;
  failing.faults.on_call = [&](Call call, std::string_view path) {
    if (call == Call::create_new) created.emplace_back(path);
  };
  disk.make_folder("Mix");
  const std::string name = disk.path("Mix\\" + std::string(251, 'x') + ".log");
  EXPECT_FALSE(system::write_whole(failing, name, "uno"));
  EXPECT_FALSE(system::write_whole(failing, name, "uno"));
  ASSERT_EQ(created.size(), 2u);
  EXPECT_NE(created[0], created[1]);
  for (const std::string& path : created) {
    EXPECT_TRUE(path.starts_with(disk.path("Mix\\"))) << path;
    EXPECT_LE(path.size(), disk.path("Mix\\").size() + 20) << path;
  }
}

TEST_F(WholeFile, where_every_temporary_name_is_taken_it_gives_up_and_the_old_file_stays) {
  disk.write("a.log", "the old one");
  FaultyFiles crowded(disk.files());
  crowded.faults.fail(Call::create_new, Reason::exists);
  EXPECT_EQ(system::write_whole(crowded, disk.path("a.log"), "uno"), Reason::exists);
  EXPECT_GE(crowded.faults.count(Call::create_new), 2);
  EXPECT_LE(crowded.faults.count(Call::create_new), 100);
  EXPECT_EQ(content("a.log"), "the old one");
  EXPECT_THAT(names(), ElementsAre("a.log"));
}

TEST_F(WholeFile, nine_temporary_names_may_be_taken) {
  FaultyFiles crowded(disk.files());
  crowded.faults.fail({.call = Call::create_new}, Reason::exists, 9);
  EXPECT_TRUE(system::write_whole(crowded, disk.path("a.log"), "uno"));
  EXPECT_EQ(content("a.log"), "uno");
}

// Copying: a whole copy comes to be, or nothing.
struct WholeCopy : WholeFile {
  WholeCopy() {
    disk.make_folder("Mix");
    disk.make_folder("Copia");
    disk.write("Mix\\a.wav", audio);
  }

  system::Status copy(system::FileSystem& files,
                      system::Existing existing = system::Existing::keep) {
    return system::copy_whole(files, disk.path("Mix\\a.wav"), disk.path("Copia\\a.wav"), existing);
  }
  std::vector<std::string> copies() {
    std::vector<std::string> found;
    const auto entries = disk.files().list(disk.path("Copia"));
    for (const auto& entry : entries.value()) found.push_back(entry.name);
    return found;
  }

  const std::string audio = std::string(300'000, 'a') + "fin";
};

TEST_F(WholeCopy, a_copy_has_the_bytes_and_the_original_stays) {
  EXPECT_TRUE(copy(disk.files()));
  EXPECT_EQ(content("Copia\\a.wav"), audio);
  EXPECT_EQ(content("Mix\\a.wav"), audio);
  EXPECT_THAT(copies(), ElementsAre("a.wav"));
}

TEST_F(WholeCopy, a_file_that_has_the_name_stays_unless_it_is_to_be_replaced) {
  disk.write("Copia\\A.wav", "another");
  EXPECT_EQ(copy(disk.files()), Reason::exists);
  EXPECT_EQ(content("Copia\\a.wav"), "another");
  EXPECT_TRUE(copy(disk.files(), system::Existing::replace));
  EXPECT_EQ(content("Copia\\a.wav"), audio);
  EXPECT_THAT(copies(), ElementsAre("A.wav"));
}

TEST_F(WholeCopy, nothing_is_copied_in_vain_where_a_file_has_the_name) {
  disk.write("Copia\\a.wav", "another");
  FaultyFiles files(disk.files());
  EXPECT_EQ(copy(files), Reason::exists);
  EXPECT_EQ(files.faults.count(Call::copy_new), 0);
}

TEST_F(WholeCopy, where_every_temporary_name_is_taken_it_gives_up) {
  FaultyFiles crowded(disk.files());
  crowded.faults.fail(Call::copy_new, Reason::exists);
  EXPECT_EQ(copy(crowded), Reason::exists);
  EXPECT_GE(crowded.faults.count(Call::copy_new), 2);
  EXPECT_LE(crowded.faults.count(Call::copy_new), 100);
  EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(WholeCopy, a_file_that_comes_to_the_name_meanwhile_stays) {
  FaultyFiles files(disk.files());
  files.faults.on_call = [&](Call call, std::string_view) {
    if (call == Call::move) disk.write("Copia\\a.wav", "just come");
  };
  EXPECT_EQ(copy(files), Reason::exists);
  EXPECT_EQ(content("Copia\\a.wav"), "just come");
  EXPECT_THAT(copies(), ElementsAre("a.wav"));
}

TEST_F(WholeCopy, a_file_is_not_copied_onto_itself) {
  const std::string path = disk.path("Mix\\a.wav");
  for (const std::string& same : {path, disk.path("Mix\\.\\A.WAV")}) {
    EXPECT_EQ(system::copy_whole(disk.files(), path, same, system::Existing::replace),
              Reason::exists);
  }
  EXPECT_EQ(content("Mix\\a.wav"), audio);
}

TEST_F(WholeCopy, a_read_only_file_has_a_read_only_copy_and_a_failed_one_leaves_nothing) {
  using system::attribute::kReadOnly;
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\a.wav"), kReadOnly));
  FaultyFiles failing(disk.files());
  failing.faults.fail(Call::move, Reason::no_permission);
  EXPECT_EQ(copy(failing), Reason::no_permission);
  EXPECT_THAT(copies(), IsEmpty());
  EXPECT_TRUE(copy(disk.files()));
  EXPECT_TRUE(disk.files().info(disk.path("Copia\\a.wav"))->attributes & kReadOnly);
  EXPECT_EQ(content("Copia\\a.wav"), audio);
}

TEST_F(WholeCopy, a_copy_that_the_caller_stops_leaves_nothing) {
  const auto stop = [](std::uint64_t) { return false; };
  EXPECT_EQ(system::copy_whole(disk.files(), disk.path("Mix\\a.wav"), disk.path("Copia\\a.wav"),
                               system::Existing::keep, stop),
            Reason::cancelled);
  EXPECT_THAT(copies(), IsEmpty());
}

TEST_F(WholeCopy, a_copy_whose_name_may_be_lost_in_a_power_cut_is_no_success_and_stays) {
  FaultyFiles files(disk.files());
  files.faults.fail({.call = Call::flush_folder, .path = disk.path("Copia\\")}, Reason::not_ready);
  EXPECT_EQ(copy(files), Reason::not_ready);
  EXPECT_EQ(content("Copia\\a.wav"), audio);
}

TEST_F(WholeCopy, whatever_call_fails_or_kills_no_half_copy_has_the_name) {
  for (const bool kills : {false, true}) {
    for (const system::Existing existing : {system::Existing::keep, system::Existing::replace}) {
      bool struck = true;
      for (int calls = 0; struck; ++calls) {
        disk.remove("Copia");
        disk.make_folder("Copia");
        if (existing == system::Existing::replace) disk.write("Copia\\a.wav", "old");
        FaultyFiles files(disk.files());
        files.loses_unflushed = true;
        if (kills) {
          files.faults.kill({.after = calls});
        } else {
          files.faults.fail({.after = calls}, Reason::other, 1);
        }
        bool copied = false;
        try {
          copied = copy(files, existing).ok();
        } catch (const Killed&) {
        }
        struck = files.faults.count() > calls;
        const std::string left = content("Copia\\a.wav");
        const bool untouched =
            existing == system::Existing::replace ? left == "old" : left == "not opened";
        EXPECT_TRUE(left == audio || untouched) << calls << ": " << left.size() << " bytes";
        if (copied) {
          EXPECT_EQ(left, audio) << calls;
        }
        if (!kills) {
          EXPECT_LE(copies().size(), 1u) << calls << ": a temporary file is left";
        }
        EXPECT_EQ(content("Mix\\a.wav"), audio);
      }
    }
  }
}

}  // namespace
}  // namespace ordelan::test
