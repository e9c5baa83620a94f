// The faulty file system and the faulty shell fail where a test says so and nowhere else.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/fake_services.h"
#include "support/faulty_files.h"
#include "support/faulty_shell.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using system::Confirm;
using system::Reason;
using ::testing::ElementsAre;
using Call = FaultyFiles::Call;

struct FaultyFilesTest : ::testing::Test {
  TestDisk disk;
  FaultyFiles files{disk.files()};

  std::string content(const std::string& name) {
    const auto file = disk.files().open(disk.path(name));
    if (!file) return "not opened";
    std::string bytes(static_cast<std::size_t>(file->size()), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }
};

TEST_F(FaultyFilesTest, without_faults_every_call_is_handed_on_and_counted) {
  disk.make_folder("Mix");
  {
    const auto file = files.create_new(disk.path("a.wav"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write("uno"));
    EXPECT_TRUE(file->flush());
    EXPECT_TRUE(file->close());
  }
  EXPECT_TRUE(files.move(disk.path("a.wav"), disk.path("Mix\\b.wav")));
  EXPECT_TRUE(files.copy_new(disk.path("Mix\\b.wav"), disk.path("c.wav"), nullptr));
  EXPECT_TRUE(files.remove(disk.path("Mix\\b.wav")));
  EXPECT_EQ(content("c.wav"), "uno");
  EXPECT_EQ(files.list(disk.folder())->size(), 2u);
  EXPECT_TRUE(files.info(disk.path("c.wav")));
  EXPECT_TRUE(files.identity(disk.path("c.wav")));
  std::vector<Call> calls;
  for (const auto& made : files.faults.made()) calls.push_back(made.call);
  EXPECT_THAT(calls,
              ElementsAre(Call::create_new, Call::write, Call::flush, Call::close, Call::move,
                          Call::copy_new, Call::remove, Call::each, Call::info, Call::identity));
  EXPECT_EQ(files.faults.count(), 10);
  EXPECT_EQ(files.faults.count(Call::move), 1);
  EXPECT_EQ(files.faults.made()[1].path, disk.path("a.wav"));
  EXPECT_EQ(files.faults.made()[4].path, disk.path("Mix\\b.wav"));
}

TEST_F(FaultyFilesTest, the_nth_call_of_a_kind_fails_with_the_given_reason) {
  files.faults.fail({.call = Call::make_folder, .after = 1}, Reason::no_space, 2);
  EXPECT_EQ(files.make_folder(disk.path("a")), Reason::ok);
  EXPECT_FALSE(files.info(disk.path("nada"))) << "calls of other kinds go on";
  EXPECT_EQ(files.make_folder(disk.path("b")), Reason::no_space);
  EXPECT_EQ(files.make_folder(disk.path("b")), Reason::no_space);
  EXPECT_EQ(files.make_folder(disk.path("c")), Reason::ok);
  EXPECT_FALSE(disk.files().info(disk.path("b"))) << "what fails does nothing";
}

TEST_F(FaultyFilesTest, the_nth_call_of_any_kind_or_those_of_one_path_fail) {
  disk.write("a.wav", "a");
  disk.write("b.wav", "b");
  files.faults.fail({.after = 2}, Reason::in_use, 1);
  EXPECT_TRUE(files.info(disk.path("a.wav")));
  EXPECT_TRUE(files.identity(disk.path("a.wav")));
  EXPECT_EQ(files.open(disk.path("a.wav")).status(), Reason::in_use);
  EXPECT_TRUE(files.open(disk.path("a.wav")));
  files.faults.heal();
  files.faults.fail({.path = disk.path("b.wav")}, Reason::no_permission);
  EXPECT_TRUE(files.open(disk.path("a.wav")));
  EXPECT_EQ(files.open(disk.path("b.wav")).status(), Reason::no_permission);
  EXPECT_EQ(files.remove(disk.path("b.wav")), Reason::no_permission);
  EXPECT_FALSE(files.info(disk.path("b.wav")));
}

TEST_F(FaultyFilesTest, listings_and_reads_fail_too) {
  disk.write("a.wav", "a");
  const auto file = files.open(disk.path("a.wav"));
  ASSERT_TRUE(file);
  files.faults.fail(Call::read);
  files.faults.fail(Call::each);
  std::vector<std::uint8_t> buffer(1);
  EXPECT_EQ(file->read(0, buffer), std::nullopt);
  EXPECT_FALSE(files.list(disk.folder()));
  files.faults.heal();
  EXPECT_EQ(file->read(0, buffer), 1u);
  EXPECT_TRUE(files.list(disk.folder()));
}

TEST_F(FaultyFilesTest, a_failing_write_writes_as_much_as_there_is_room) {
  files.faults.fail(Call::write, Reason::no_space);
  files.room = 2;
  const auto file = files.create(disk.path("a.wav"));
  ASSERT_TRUE(file);
  EXPECT_EQ(file->write("uno"), Reason::no_space);
  files.faults.heal();
  EXPECT_EQ(file->write("dos"), Reason::no_space) << "as a real one, it does not go on after that";
  EXPECT_EQ(file->close(), Reason::no_space);
  EXPECT_EQ(content("a.wav"), "un");
}

TEST_F(FaultyFilesTest, a_power_cut_loses_the_names_that_were_not_flushed) {
  disk.write("old.wav", "old");
  disk.write("gone.wav", "gone");
  disk.write("log.txt", "of before");
  disk.make_folder("Otra");
  files.loses_unflushed = files.loses_names = true;
  ASSERT_TRUE(files.copy_new(disk.path("old.wav"), disk.path("first.wav"), nullptr));
  ASSERT_TRUE(files.flush_folder(disk.folder()));
  ASSERT_TRUE(files.copy_new(disk.path("old.wav"), disk.path("second.wav"), nullptr));
  ASSERT_TRUE(files.copy_new(disk.path("old.wav"), disk.path("Otra\\third.wav"), nullptr));
  ASSERT_TRUE(files.move(disk.path("old.wav"), disk.path("new.wav")));
  ASSERT_TRUE(files.remove(disk.path("gone.wav")));
  ASSERT_TRUE(files.make_folder(disk.path("Nueva")));
  ASSERT_TRUE(files.copy_new(disk.path("new.wav"), disk.path("Nueva\\fourth.wav"), nullptr));
  ASSERT_TRUE(files.flush_folder(disk.path("Nueva")));
  const auto log = files.create(disk.path("log.txt"));
  ASSERT_TRUE(log);
  ASSERT_TRUE(log->write("new"));
  files.faults.kill({.call = Call::info});
  EXPECT_THROW(files.info(disk.path("old.wav")), Killed);
  EXPECT_EQ(content("first.wav"), "old") << "its folder was flushed";
  EXPECT_EQ(content("second.wav"), "not opened");
  EXPECT_EQ(content("Otra\\third.wav"), "not opened");
  EXPECT_EQ(content("old.wav"), "old");
  EXPECT_EQ(content("new.wav"), "not opened");
  EXPECT_EQ(content("gone.wav"), "gone");
  EXPECT_EQ(content("Nueva\\fourth.wav"), "not opened") << "the folder itself is lost";
  EXPECT_EQ(content("log.txt"), "of before");
}

TEST_F(FaultyFilesTest, a_call_may_take_its_time_or_change_the_world) {
  HandClock clock;
  files.faults.on_call = [&](Call call, std::string_view path) {
    clock.time += std::chrono::seconds(1);
    if (call == Call::open) disk.remove(std::string(path.substr(disk.folder().size())));
  };
  disk.write("a.wav", "a");
  const auto before = clock.time;
  EXPECT_TRUE(files.info(disk.path("a.wav")));
  EXPECT_EQ(files.open(disk.path("a.wav")).status(), Reason::not_found);
  EXPECT_EQ(clock.time - before, std::chrono::seconds(2));
}

TEST_F(FaultyFilesTest, after_the_kill_nothing_is_done_any_more) {
  disk.write("a.wav", "a");
  const auto file = files.create(disk.path("b.wav"));
  ASSERT_TRUE(file);
  files.faults.kill({.call = Call::remove});
  EXPECT_TRUE(file->write("uno"));
  EXPECT_THROW(files.remove(disk.path("a.wav")).ignore(), Killed);
  EXPECT_TRUE(files.faults.killed());
  EXPECT_FALSE(files.remove(disk.path("a.wav")));
  EXPECT_FALSE(file->write("dos"));
  EXPECT_FALSE(file->close());
  EXPECT_FALSE(files.info(disk.path("a.wav")));
  EXPECT_EQ(content("a.wav"), "a");
  EXPECT_EQ(content("b.wav"), "uno") << "the system has what was written";
  files.faults.heal();
  EXPECT_TRUE(files.remove(disk.path("a.wav")));
}

TEST_F(FaultyFilesTest, a_power_cut_loses_what_was_not_flushed) {
  files.loses_unflushed = true;
  disk.write("old.wav", "old");
  const auto half = files.create_new(disk.path("half.wav"));
  ASSERT_TRUE(half);
  EXPECT_TRUE(half->write("uno"));
  EXPECT_TRUE(half->flush());
  EXPECT_TRUE(half->write("dos"));
  {
    const auto none = files.create_new(disk.path("none.wav"));
    ASSERT_TRUE(none);
    EXPECT_TRUE(none->write("uno"));
    EXPECT_TRUE(none->close());
  }
  EXPECT_TRUE(files.replace(disk.path("none.wav"), disk.path("old.wav")));
  EXPECT_EQ(content("old.wav"), "uno") << "until then it can be read";
  {
    const auto whole = files.create(disk.path("whole.wav"));
    ASSERT_TRUE(whole);
    EXPECT_TRUE(whole->write("uno"));
    EXPECT_TRUE(whole->flush());
    EXPECT_TRUE(whole->close());
  }
  EXPECT_TRUE(files.copy_new(disk.path("whole.wav"), disk.path("copy.wav"), nullptr));
  files.faults.kill({});
  EXPECT_THROW(files.info(disk.path("old.wav")), Killed);
  EXPECT_EQ(content("half.wav"), "uno");
  EXPECT_EQ(content("old.wav"), "") << "a name that came before its bytes";
  EXPECT_EQ(content("whole.wav"), "uno");
  EXPECT_EQ(content("copy.wav"), "uno");
}

TEST_F(FaultyFilesTest, changes_in_place_are_handed_on_and_counted) {
  disk.write("a.vip", "0123456789");
  {
    const auto file = files.change(disk.path("a.vip"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->names(), 1u);
    EXPECT_TRUE(file->write_at(2, "xy"));
    EXPECT_TRUE(file->flush());
    EXPECT_TRUE(file->close());
  }
  EXPECT_EQ(content("a.vip"), "01xy456789");
  std::vector<Call> calls;
  for (const auto& made : files.faults.made()) {
    EXPECT_EQ(made.path, disk.path("a.vip"));
    calls.push_back(made.call);
  }
  EXPECT_THAT(calls, ElementsAre(Call::change, Call::write, Call::flush, Call::close));
  EXPECT_EQ(files.change(disk.path("nada")).status(), Reason::not_found);
  files.faults.fail(Call::change, Reason::in_use);
  EXPECT_EQ(files.change(disk.path("a.vip")).status(), Reason::in_use);
}

TEST_F(FaultyFilesTest, a_change_that_fails_writes_as_much_as_there_is_room_and_no_more_after_it) {
  disk.write("a.vip", "0123456789");
  files.faults.fail({.call = Call::write, .after = 1}, Reason::no_space);
  files.room = 1;
  const auto file = files.change(disk.path("a.vip"));
  ASSERT_TRUE(file);
  EXPECT_TRUE(file->write_at(0, "ab"));
  EXPECT_EQ(file->write_at(4, "cd"), Reason::no_space);
  files.faults.heal();
  EXPECT_EQ(file->write_at(6, "ef"), Reason::no_space);
  EXPECT_EQ(file->flush(), Reason::no_space);
  EXPECT_EQ(file->close(), Reason::no_space);
  EXPECT_EQ(content("a.vip"), "ab23c56789");
}

TEST_F(FaultyFilesTest, a_kill_in_a_change_leaves_a_part_of_it) {
  disk.write("a.vip", "0123456789");
  const auto file = files.change(disk.path("a.vip"));
  ASSERT_TRUE(file);
  files.room = 1;
  files.faults.kill({.call = Call::write, .after = 1});
  EXPECT_TRUE(file->write_at(0, "ab"));
  EXPECT_THROW(file->write_at(4, "cd").ignore(), Killed);
  files.faults.heal();
  EXPECT_FALSE(file->write_at(6, "ef")) << "the system has closed it";
  EXPECT_FALSE(file->flush());
  EXPECT_FALSE(file->close());
  EXPECT_EQ(content("a.vip"), "ab23c56789") << "the system has what was written";
}

TEST_F(FaultyFilesTest, a_power_cut_loses_changes_in_place_that_were_not_flushed) {
  for (const char* name : {"flushed.vip", "half.vip", "grown.vip", "whole.vip", "emptied.vip"}) {
    disk.write(name, "0123456789");
  }
  files.loses_unflushed = true;
  {
    const auto flushed = files.change(disk.path("flushed.vip"));
    ASSERT_TRUE(flushed);
    EXPECT_TRUE(flushed->write_at(0, "abc"));
    EXPECT_TRUE(flushed->flush());
  }
  const auto half = files.change(disk.path("half.vip"));
  ASSERT_TRUE(half);
  EXPECT_TRUE(half->write_at(0, "ab"));
  EXPECT_TRUE(half->flush());
  EXPECT_TRUE(half->write_at(1, "xy"));
  {
    const auto grown = files.change(disk.path("grown.vip"));
    ASSERT_TRUE(grown);
    EXPECT_TRUE(grown->write_at(12, "abc"));
    EXPECT_TRUE(grown->close());
    const auto whole = files.change(disk.path("whole.vip"));
    ASSERT_TRUE(whole);
    EXPECT_TRUE(whole->write_at(12, "abc"));
    EXPECT_TRUE(whole->close());
  }
  EXPECT_TRUE(files.flush_file(disk.path("whole.vip")));
  ASSERT_TRUE(files.change(disk.path("emptied.vip"))->write_at(0, "x"));
  ASSERT_TRUE(files.create(disk.path("emptied.vip"))->write("uno"));
  EXPECT_EQ(content("half.vip"), "axy3456789") << "until then it can be read";
  files.faults.kill({});
  EXPECT_THROW(files.info(disk.path("half.vip")), Killed);
  EXPECT_EQ(content("flushed.vip"), "abc3456789");
  EXPECT_EQ(content("half.vip"), "ab23456789");
  EXPECT_EQ(content("grown.vip"), "0123456789");
  EXPECT_EQ(content("emptied.vip"), "") << "a file that was emptied has lost its old bytes";
  EXPECT_EQ(content("whole.vip"), std::string("0123456789\0\0abc", 15));
}

TEST_F(FaultyFilesTest, a_power_cut_loses_changes_of_a_new_a_moved_and_a_replaced_file) {
  files.loses_unflushed = files.loses_names = true;
  disk.write("moved.vip", "0123456789");
  disk.write("new.tmp", "new");
  disk.write("old.vip", "0123456789");
  {
    const auto made = files.create_new(disk.path("made.vip"));
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->write("0123"));
    EXPECT_TRUE(made->flush());
    EXPECT_TRUE(made->write("4567"));
    EXPECT_TRUE(made->close());
  }
  for (const char* name : {"made.vip", "moved.vip", "old.vip"}) {
    const auto file = files.change(disk.path(name));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write_at(0, "x"));
  }
  EXPECT_TRUE(files.move(disk.path("moved.vip"), disk.path("there.vip")));
  EXPECT_TRUE(files.flush_folder(disk.folder()));
  EXPECT_TRUE(files.replace(disk.path("new.tmp"), disk.path("old.vip")));
  EXPECT_EQ(content("made.vip"), "x1234567");
  EXPECT_EQ(content("there.vip"), "x123456789");
  files.faults.kill({});
  EXPECT_THROW(files.info(disk.path("made.vip")), Killed);
  EXPECT_EQ(content("made.vip"), "0123");
  EXPECT_EQ(content("there.vip"), "0123456789");
  EXPECT_EQ(content("old.vip"), "0123456789") << "without the change that was never flushed";
}

TEST_F(FaultyFilesTest, a_power_cut_may_lose_one_page_of_a_change_and_keep_another) {
  constexpr std::size_t kPage = 4096;
  const std::string before(4 * kPage, '0');
  bool torn = false;
  for (std::uint32_t luck = 1; luck <= 20; ++luck) {
    disk.write("a.vip", before);
    FaultyFiles some(disk.files());
    some.loses_unflushed = true;
    some.luck = luck;
    const auto file = some.change(disk.path("a.vip"));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->write_at(kPage - 1, std::string(kPage, 'x')));
    some.faults.kill({});
    EXPECT_THROW(some.info(disk.path("a.vip")), Killed);
    const std::string after = content("a.vip");
    ASSERT_EQ(after.size(), before.size());
    EXPECT_EQ(std::string_view(after).substr(kPage, kPage - 1),
              std::string(kPage - 1, after[kPage]))
        << "a page is lost as a whole";
    EXPECT_EQ(after[2 * kPage - 1], '0') << "never written";
    torn = torn || after[kPage - 1] != after[kPage];
  }
  EXPECT_TRUE(torn);
}

TEST_F(FaultyFilesTest, many_files_are_flushed_in_calls_each_of_which_can_fail) {
  disk.write("a.wav", "a");
  disk.write("Mix\\b.wav", "b");
  disk.write("c.wav", "c");
  const std::vector<std::string> paths = {disk.path("a.wav"), disk.path("Mix\\b.wav"),
                                          disk.path("c.wav")};
  EXPECT_TRUE(files.flush_files(paths));
  std::vector<std::string> flushed;
  for (const auto& made : files.faults.made()) {
    flushed.push_back((made.call == Call::flush_file ? "file " : "folder ") + made.path);
  }
  EXPECT_THAT(flushed, ElementsAre("file " + paths[0], "file " + paths[1], "file " + paths[2],
                                   "folder " + disk.folder(), "folder " + disk.path("Mix\\")));
  EXPECT_EQ(files.faults.count(Call::flush_folder), 2);
  files.faults.fail({.call = Call::flush_folder}, Reason::not_ready);
  EXPECT_EQ(files.flush_files(paths), Reason::not_ready);
  files.faults.fail({.path = paths[1]}, Reason::no_space);
  const int before = files.faults.count();
  EXPECT_EQ(files.flush_files(paths), Reason::no_space) << "the first failure";
  EXPECT_EQ(files.faults.count() - before, 5) << "the others are flushed all the same";
  files.faults.heal();
  EXPECT_TRUE(files.flush_files({}));

  int asked = 0;
  EXPECT_TRUE(files.flush_files(paths, [&] { return ++asked > 0; }));
  EXPECT_EQ(asked, 3) << "before each file";
  const int flushes = files.faults.count(Call::flush_file);
  EXPECT_EQ(files.flush_files(paths, [&] { return ++asked < 5; }), Reason::cancelled);
  EXPECT_EQ(files.faults.count(Call::flush_file) - flushes, 1);
}

TEST_F(FaultyFilesTest, a_power_cut_takes_nothing_of_files_that_were_flushed_together) {
  files.loses_unflushed = files.loses_names = true;
  disk.write("old.vip", "0123456789");
  disk.write("log.txt", "of before");
  std::vector<std::string> paths = {disk.path("log.txt")};
  for (int i = 0; i < 20; ++i) {
    paths.push_back(disk.path("new " + std::to_string(i) + ".vip"));
    const auto made = files.create_new(paths.back());
    ASSERT_TRUE(made);
    EXPECT_TRUE(made->write("uno"));
  }
  ASSERT_TRUE(files.create(disk.path("log.txt"))->write("new"));
  paths.push_back(disk.path("old.vip"));
  ASSERT_TRUE(files.change(paths.back())->write_at(0, "x"));
  EXPECT_TRUE(files.flush_files(paths));
  files.faults.kill({});
  EXPECT_THROW(files.info(disk.path("old.vip")), Killed);
  EXPECT_EQ(content("new 0.vip"), "uno");
  EXPECT_EQ(content("new 19.vip"), "uno");
  EXPECT_EQ(content("log.txt"), "new");
  EXPECT_EQ(content("old.vip"), "x123456789");
}

TEST_F(FaultyFilesTest, a_kill_in_a_copy_leaves_a_part_of_it) {
  disk.write("a.wav", "0123456789");
  files.faults.kill({.call = Call::copy_new});
  EXPECT_THROW(files.copy_new(disk.path("a.wav"), disk.path("b.wav"), nullptr).ignore(), Killed);
  EXPECT_EQ(content("b.wav"), "01234");
  EXPECT_EQ(content("a.wav"), "0123456789");
}

struct FaultyShellTest : ::testing::Test {
  FaultyShellTest() { desktop.files = &disk.files(); }

  TestDisk disk;
  FakeShell desktop;
  FaultyShell shell{desktop};
};

TEST_F(FaultyShellTest, calls_are_handed_on_until_one_is_to_fail) {
  using Asked = FaultyShell::Call;
  desktop.types["a"] = "Archivo WAV";
  disk.write("a.wav", "voz");
  disk.write("b.wav", "bajo");
  EXPECT_TRUE(shell.open("a"));
  EXPECT_EQ(shell.file_type("a"), "Archivo WAV");
  EXPECT_EQ(shell.recycles("D:\\"), Reason::ok);
  EXPECT_EQ(shell.recycle(disk.path("a.wav"), Confirm::without_asking), Reason::ok);
  EXPECT_FALSE(disk.files().info(disk.path("a.wav")));
  EXPECT_EQ(desktop.bin[disk.path("a.wav")], "voz");
  shell.faults.fail(Asked::recycle, Reason::cancelled);
  EXPECT_EQ(shell.recycle(disk.path("b.wav"), Confirm::without_asking), Reason::cancelled);
  EXPECT_TRUE(disk.files().info(disk.path("b.wav")));
  shell.faults.kill({.call = Asked::empty_bin});
  EXPECT_THROW(shell.empty_bin("", Confirm::ask).ignore(), Killed);
  EXPECT_EQ(desktop.emptied, 0);
  EXPECT_FALSE(shell.open("a"));
  EXPECT_EQ(shell.faults.count(Asked::recycle), 2);
}

TEST_F(FaultyShellTest, the_fake_desktop_asks_and_has_drives_without_a_bin) {
  disk.write("a.wav", "voz");
  const std::string path = disk.path("a.wav");
  desktop.answers_yes = false;
  EXPECT_EQ(desktop.recycle(path, Confirm::ask), Reason::cancelled);
  EXPECT_EQ(desktop.empty_bin("", Confirm::ask), Reason::cancelled);
  EXPECT_THAT(desktop.questions, ElementsAre(path));
  desktop.without_bin.insert(path.substr(0, 3));
  EXPECT_EQ(desktop.recycle(path, Confirm::without_asking), Reason::not_supported);
  EXPECT_TRUE(disk.files().info(path));
  desktop.without_bin.clear();
  EXPECT_EQ(desktop.recycle(disk.path("nada"), Confirm::without_asking), Reason::not_found);
  EXPECT_TRUE(desktop.recycle(path, Confirm::without_asking));
  EXPECT_TRUE(desktop.empty_bin("", Confirm::without_asking));
  EXPECT_TRUE(desktop.bin.empty());
  EXPECT_EQ(desktop.emptied, 1);
}

}  // namespace
}  // namespace ordelan::test
