// Saving: a file is replaced as a whole or left as it was, and no other file is touched.
#include "system/whole_file.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/failing_files.h"
#include "test_disk.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct WholeFile : ::testing::Test {
  TestDisk disk;

  bool save(const std::string& name, const std::string& bytes) {
    return system::write_whole(disk.files(), disk.path(name), bytes);
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

using Step = FailingFiles::Step;

TEST_F(WholeFile, whatever_step_fails_the_old_file_stays_and_no_other_is_left) {
  FailingFiles failing(disk.files());
  for (const Step step : {Step::create_new, Step::write, Step::close, Step::replace}) {
    failing.failing = step;
    failing.passing = 0;
    failing.room = 2;
    EXPECT_FALSE(system::write_whole(failing, disk.path("new.log"), "new"));
    EXPECT_THAT(names(), IsEmpty());
  }
  disk.write("a.log", "old");
  for (const Step step : {Step::create_new, Step::write, Step::close, Step::replace}) {
    failing.failing = step;
    EXPECT_FALSE(system::write_whole(failing, disk.path("a.log"), "new"));
    EXPECT_EQ(content("a.log"), "old");
    EXPECT_THAT(names(), ElementsAre("a.log"));
  }
  failing.failing.reset();
  EXPECT_TRUE(system::write_whole(failing, disk.path("a.log"), "new"));
  EXPECT_EQ(content("a.log"), "new");
}

TEST_F(WholeFile, a_file_that_has_the_temporary_name_stays_and_another_name_is_taken) {
  FailingFiles crowded(disk.files());
  std::vector<std::string> taken;
  crowded.on_create_new = [&](std::string_view path) {
    if (taken.size() == 3) return;
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
  FailingFiles failing(disk.files());
  failing.failing = Step::replace;
  std::vector<std::string> created;
  failing.on_create_new = [&](std::string_view path) { created.emplace_back(path); };
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

}  // namespace
}  // namespace ordelan::test
