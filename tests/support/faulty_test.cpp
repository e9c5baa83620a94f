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
