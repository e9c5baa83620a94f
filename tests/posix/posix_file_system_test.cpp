#include "posix/posix_file_system.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "posix/native_folder.h"
#include "system/whole_file.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;

struct PosixFileSystemTest : ::testing::Test, MappedFolder {
  // The names that a folder lists; "nothing" when it cannot be read.
  std::vector<std::string> names(std::string_view folder) {
    const auto entries = files.list(folder);
    if (!entries) return {"nothing"};
    std::vector<std::string> found;
    for (const auto& entry : *entries) found.push_back(entry.name);
    return found;
  }
};

TEST_F(PosixFileSystemTest, a_file_is_described_with_its_size_and_its_name_on_the_disk) {
  disk.file("Mix/Voz.WAV", "12345");
  const auto found = files.info("D:\\mix\\voz.wav");
  ASSERT_TRUE(found);
  EXPECT_EQ(found->name, "Voz.WAV");
  EXPECT_EQ(found->size, 5u);
  EXPECT_FALSE(found->folder);
  EXPECT_FALSE(found->link);
  EXPECT_FALSE(found->hidden);
  EXPECT_FALSE(found->system);
}

TEST_F(PosixFileSystemTest, a_folder_is_described_as_one_without_a_size) {
  disk.file("Mix/a");
  for (const char* path : {"D:\\Mix", "D:\\MIX\\"}) {
    const auto found = files.info(path);
    ASSERT_TRUE(found) << path;
    EXPECT_EQ(found->name, "Mix");
    EXPECT_TRUE(found->folder);
    EXPECT_EQ(found->size, 0u);
  }
}

TEST_F(PosixFileSystemTest, the_root_of_a_drive_is_a_folder) {
  disk.file("a.wav");
  const auto found = files.info("D:\\");
  ASSERT_TRUE(found);
  EXPECT_TRUE(found->folder);
  EXPECT_THAT(names("D:\\"), ElementsAre("a.wav"));
  EXPECT_EQ(files.open("D:\\"), nullptr);
  EXPECT_EQ(files.create("D:\\"), nullptr);
}

TEST_F(PosixFileSystemTest, what_is_missing_gives_nothing) {
  disk.file("a.wav");
  for (const char* path : {"D:\\b.wav", "D:\\gone\\a.wav", "D:\\a.wav\\b.wav", "E:\\a.wav", "a.wav",
                           "", "D:\\*.wav", "D:\\?.wav", "\\a.wav"}) {
    EXPECT_FALSE(files.info(path)) << path;
    EXPECT_EQ(files.open(path), nullptr) << path;
    EXPECT_FALSE(files.list(path)) << path;
  }
  EXPECT_FALSE(files.info(std::string_view("D:\\a.wav\0", 9)));
}

TEST_F(PosixFileSystemTest, a_backslash_after_a_file_promises_a_missing_folder) {
  disk.file("a.wav");
  EXPECT_FALSE(files.info("D:\\a.wav\\"));
  EXPECT_EQ(files.open("D:\\a.wav\\"), nullptr);
  EXPECT_EQ(files.create("D:\\a.wav\\"), nullptr);
  EXPECT_EQ(disk.content("a.wav"), "x");
}

TEST_F(PosixFileSystemTest, a_folder_named_like_a_project_is_no_file) {
  disk.folder("tema.vip");
  EXPECT_TRUE(files.info("D:\\tema.vip"));
  EXPECT_FALSE(files.look_up("D:\\tema.vip"));
  EXPECT_EQ(files.open("D:\\tema.vip"), nullptr);
  EXPECT_EQ(files.create("D:\\tema.vip"), nullptr);
}

TEST_F(PosixFileSystemTest, a_folder_lists_its_entries_in_order_whatever_their_case) {
  disk.file("b.wav");
  disk.file("C.wav");
  disk.file("A.wav");
  disk.file("a2.wav");
  disk.folder("Bravo");
  disk.file("\xC3\xA1.wav");
  EXPECT_THAT(names("D:\\"), ElementsAre("A.wav", "a2.wav", "b.wav", "Bravo", "C.wav", "\xE1.wav"));
  EXPECT_THAT(names("d:\\bravo"), IsEmpty());
  EXPECT_THAT(names("D:\\a.wav"), ElementsAre("nothing"));
  EXPECT_THAT(names("D:\\gone"), ElementsAre("nothing"));
}

TEST_F(PosixFileSystemTest, names_that_differ_by_case_alone_come_in_the_same_order_every_time) {
  disk.file("voz.wav");
  disk.file("VOZ.wav");
  disk.file("Voz.wav");
  EXPECT_THAT(names("D:\\"), ElementsAre("VOZ.wav", "Voz.wav", "voz.wav"));
}

TEST_F(PosixFileSystemTest, names_outside_the_code_page_are_left_out_and_never_matched) {
  disk.file("\xE6\x9D\xB1.wav");  // a character that the page lacks
  disk.file("Canci\xF3n.wav");    // no UTF-8 at all
  disk.file("n\xCC\x83.wav");     // an n with a tilde of its own
  disk.file("\xC3\xB1.wav");
  EXPECT_THAT(names("D:\\"), ElementsAre("\xF1.wav"));
  EXPECT_FALSE(files.info("D:\\Canci\xF3n.wav"));
  EXPECT_EQ(files.open("D:\\Canci\xF3n.wav"), nullptr);
  EXPECT_FALSE(files.info("D:\\?.wav"));
}

TEST_F(PosixFileSystemTest, names_that_windows_cannot_hold_are_left_out) {
  disk.file("a\\b.wav");
  disk.file("a:b.wav");
  disk.file("a*.wav");
  disk.file("a\nb.wav");
  disk.file("good.wav");
  EXPECT_THAT(names("D:\\"), ElementsAre("good.wav"));
  EXPECT_FALSE(files.info("D:\\a\\b.wav"));
  EXPECT_FALSE(files.info("D:\\a:b.wav"));
  EXPECT_FALSE(files.info("D:\\a\nb.wav"));
}

// The time zone of the environment, for as long as it lives.
class Zone {
 public:
  explicit Zone(const char* name) {
    if (const char* before = std::getenv("TZ")) before_ = before;
    set(name);
  }
  ~Zone() { set(before_ ? before_->c_str() : nullptr); }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

 private:
  static void set(const char* name) {
    name ? ::setenv("TZ", name, 1) : ::unsetenv("TZ");
    ::tzset();
  }
  std::optional<std::string> before_;
};

TEST_F(PosixFileSystemTest, times_are_those_of_the_users_own_clock) {
  disk.file("a.wav");
  constexpr std::time_t kNoonOf2020 = 1'577'880'000;  // 1st of January, world time
  const timespec times[2] = {{kNoonOf2020 + 3600, 0}, {kNoonOf2020, 500'000'000}};
  ASSERT_EQ(::utimensat(AT_FDCWD, (disk / "a.wav").c_str(), times, 0), 0);
  constexpr double kMillisecond = 1 / 86.4e6;
  {
    const Zone world("UTC0");
    const auto found = files.info("D:\\a.wav");
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->modified, 43831.5 + 500 * kMillisecond, kMillisecond);
    EXPECT_NEAR(found->accessed, 43831.5 + 1 / 24.0, kMillisecond);
  }
  const Zone east("EST-5:30");
  const auto found = files.info("D:\\a.wav");
  ASSERT_TRUE(found);
  EXPECT_NEAR(found->modified, 43831.5 + 5.5 / 24 + 500 * kMillisecond, kMillisecond);
}

TEST_F(PosixFileSystemTest, what_may_not_be_written_is_read_only) {
  disk.file("a.wav");
  disk.file("b.wav");
  disk.folder("Mix");
  ASSERT_EQ(::chmod((disk / "a.wav").c_str(), 0444), 0);
  ASSERT_EQ(::chmod((disk / "Mix").c_str(), 0555), 0);
  using namespace system::attribute;
  EXPECT_EQ(files.info("D:\\a.wav")->attributes, kArchive | kReadOnly);
  EXPECT_EQ(files.info("D:\\b.wav")->attributes, kArchive);
  EXPECT_EQ(files.info("D:\\Mix")->attributes, kFolder | kReadOnly);
  const auto listed = files.list("D:\\", system::Detail::sizes);
  ASSERT_TRUE(listed);
  EXPECT_EQ(listed->at(0).attributes, kArchive | kReadOnly);
  const auto named = files.list("D:\\", system::Detail::names);
  ASSERT_TRUE(named);
  EXPECT_EQ(named->at(0).attributes, kArchive) << "for the names alone no file is looked at";
}

TEST_F(PosixFileSystemTest, a_folder_spelt_in_another_case_is_visited) {
  disk.file("Mix/Voces/a.wav");
  EXPECT_THAT(names("d:\\MIX\\voces"), ElementsAre("a.wav"));
  EXPECT_THAT(names("D:\\mix"), ElementsAre("Voces"));
}

TEST_F(PosixFileSystemTest, names_that_cannot_be_shown_spoil_none_that_follow) {
  disk.file("\xE6\x9D\xB1 lejano y largo como pocos.wav");
  disk.file("a:b.wav");
  disk.file("Canci\xC3\xB3n.wav");
  disk.file("voz.wav");
  EXPECT_THAT(names("D:\\"), ElementsAre("Canci\xF3n.wav", "voz.wav"));
}

TEST_F(PosixFileSystemTest, links_are_described_by_what_they_lead_to) {
  disk.file("Mix/a.wav", "123");
  disk.link("folder link", disk / "Mix");
  disk.link("file link", disk / "Mix/a.wav");
  const auto folder = files.info("D:\\folder link");
  ASSERT_TRUE(folder);
  EXPECT_TRUE(folder->folder);
  EXPECT_TRUE(folder->link);
  const auto file = files.info("D:\\file link");
  ASSERT_TRUE(file);
  EXPECT_FALSE(file->folder);
  EXPECT_TRUE(file->link);
  EXPECT_EQ(file->size, 3u);
  const auto listed = files.list("D:\\");
  ASSERT_TRUE(listed);
  ASSERT_EQ(listed->size(), 3u);
  EXPECT_TRUE(listed->at(0).link);
  EXPECT_TRUE(listed->at(1).link);
  EXPECT_FALSE(listed->at(2).link);
  EXPECT_TRUE(files.info("D:\\folder link\\a.wav"));
}

TEST_F(PosixFileSystemTest, a_link_that_leads_nowhere_is_left_out) {
  disk.link("nowhere", disk / "gone");
  disk.link("circle", disk / "circle");
  EXPECT_THAT(names("D:\\"), IsEmpty());
  EXPECT_FALSE(files.info("D:\\nowhere"));
  EXPECT_FALSE(files.info("D:\\circle"));
  EXPECT_EQ(files.open("D:\\nowhere"), nullptr);
}

TEST_F(PosixFileSystemTest, a_pipe_is_neither_listed_nor_opened) {
  // Opening it the plain way would wait for a process at the other end.
  ASSERT_EQ(::mkfifo((disk / "pipe.vip").c_str(), 0600), 0);
  EXPECT_THAT(names("D:\\"), IsEmpty());
  EXPECT_FALSE(files.info("D:\\pipe.vip"));
  EXPECT_EQ(files.open("D:\\pipe.vip"), nullptr);
}

TEST_F(PosixFileSystemTest, a_pipe_is_not_written_to) {
  ASSERT_EQ(::mkfifo((disk / "pipe.log").c_str(), 0600), 0);
  const int reader = ::open((disk / "pipe.log").c_str(), O_RDONLY | O_NONBLOCK);
  ASSERT_GE(reader, 0);
  EXPECT_EQ(files.create("D:\\pipe.log"), nullptr);
  ::close(reader);
  // Now that no process reads, a plain opening would wait.
  EXPECT_EQ(files.create("D:\\pipe.log"), nullptr);
}

struct ReadingTest : PosixFileSystemTest {
  // What stands at `offset`, as far as it comes.
  std::optional<std::string> read(system::InputFile& file, std::uint64_t offset,
                                  std::size_t count) {
    std::vector<std::uint8_t> buffer(count);
    const auto came = file.read(offset, buffer);
    if (!came) return std::nullopt;
    return std::string(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(*came));
  }
};

TEST_F(ReadingTest, bytes_come_from_wherever_they_are_asked_for) {
  disk.file("a", "0123456789");
  const auto file = files.open("D:\\A");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->size(), 10u);
  EXPECT_THAT(read(*file, 0, 10), Optional(std::string("0123456789")));
  EXPECT_THAT(read(*file, 7, 2), Optional(std::string("78")));
  EXPECT_THAT(read(*file, 2, 3), Optional(std::string("234")));
  EXPECT_THAT(read(*file, 3, 0), Optional(std::string()));
}

TEST_F(ReadingTest, past_the_end_come_fewer_bytes_and_then_none) {
  disk.file("a", "0123456789");
  const auto file = files.open("D:\\a");
  ASSERT_NE(file, nullptr);
  EXPECT_THAT(read(*file, 8, 100), Optional(std::string("89")));
  EXPECT_THAT(read(*file, 10, 100), Optional(std::string()));
  EXPECT_THAT(read(*file, 5'000'000'000, 100), Optional(std::string()));
}

TEST_F(ReadingTest, a_file_that_shrinks_after_its_opening_ends_early) {
  disk.file("a", "0123456789");
  const auto file = files.open("D:\\a");
  ASSERT_NE(file, nullptr);
  std::filesystem::resize_file(disk / "a", 4);
  EXPECT_EQ(file->size(), 10u) << "as it was when it was opened";
  EXPECT_THAT(read(*file, 0, 10), Optional(std::string("0123")));
  EXPECT_THAT(read(*file, 6, 10), Optional(std::string()));
}

TEST_F(ReadingTest, others_may_go_on_writing_to_an_open_file) {
  disk.file("a", "01");
  const auto file = files.open("D:\\a");
  ASSERT_NE(file, nullptr);
  disk.file("a", "ABCD");
  EXPECT_THAT(read(*file, 0, 10), Optional(std::string("ABCD")));
}

TEST_F(ReadingTest, an_empty_file_opens_and_holds_nothing) {
  disk.file("a", "");
  const auto file = files.open("D:\\a");
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(file->size(), 0u);
  EXPECT_THAT(read(*file, 0, 10), Optional(std::string()));
}

TEST_F(PosixFileSystemTest, what_is_written_stands_on_the_disk_once_it_is_closed) {
  const auto file = files.create("D:\\Canci\xF3n.log");
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(file->write("one\r\n"));
  EXPECT_TRUE(file->write(""));
  EXPECT_TRUE(file->write(std::string_view("a\0b", 3)));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(disk.content("Canci\xC3\xB3n.log"), std::string("one\r\na\0b", 8));
}

TEST_F(PosixFileSystemTest, creating_empties_an_existing_file_whatever_its_case) {
  disk.file("Tema.log", "old and long");
  const auto file = files.create("D:\\TEMA.LOG");
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(file->write("new"));
  EXPECT_TRUE(file->close());
  EXPECT_EQ(disk.content("Tema.log"), "new");
  EXPECT_THAT(names("D:\\"), ElementsAre("Tema.log"));
}

TEST_F(PosixFileSystemTest, nothing_is_created_where_it_cannot_be) {
  disk.file("a.wav");
  for (const char* path : {"D:\\gone\\a.log", "D:\\a.wav\\b.log", "E:\\a.log", "a.log",
                           "D:\\a*.log", "D:\\a:b", "D:\\"}) {
    EXPECT_EQ(files.create(path), nullptr) << path;
  }
  EXPECT_THAT(names("D:\\"), ElementsAre("a.wav"));
}

TEST_F(PosixFileSystemTest, a_device_is_neither_read_nor_written) {
  ASSERT_TRUE(drives.map('F', "/dev"));
  EXPECT_FALSE(files.info("F:\\null"));
  EXPECT_EQ(files.open("F:\\null"), nullptr);
  EXPECT_EQ(files.create("F:\\null"), nullptr);
}

// What a save does: writes a new file and puts it in the place of another.
struct ReplacingTest : PosixFileSystemTest {
  bool save(const std::string& name, std::string_view bytes = "new") {
    return system::write_whole(files, "D:\\" + name, bytes).ok();
  }
  struct stat status(const std::string& name) {
    struct stat found {};
    EXPECT_EQ(::lstat((disk / name).c_str(), &found), 0);
    return found;
  }
};

TEST_F(ReplacingTest, a_replaced_file_keeps_its_mode) {
  disk.file("a.log", "old");
  for (const mode_t mode : {0600u, 0640u, 0664u, 0755u, 0200u}) {
    ASSERT_EQ(::chmod((disk / "a.log").c_str(), mode), 0);
    EXPECT_TRUE(save("a.log"));
    EXPECT_EQ(status("a.log").st_mode & 07777u, mode);
  }
  EXPECT_THAT(names("D:\\"), ElementsAre("a.log"));
}

TEST_F(ReplacingTest, a_replaced_file_keeps_its_owner) {
  if (::geteuid() != 0) GTEST_SKIP() << "only the superuser gives files away";
  disk.file("a.log", "old");
  ASSERT_EQ(::chown((disk / "a.log").c_str(), 12'345, 23'456), 0);
  EXPECT_TRUE(save("a.log"));
  EXPECT_EQ(status("a.log").st_uid, 12'345u);
  EXPECT_EQ(status("a.log").st_gid, 23'456u);
  EXPECT_EQ(disk.content("a.log"), "new");
}

TEST_F(ReplacingTest, a_new_file_has_the_mode_of_any_new_file) {
  EXPECT_TRUE(save("a.log"));
  disk.file("plain", "x");
  EXPECT_EQ(status("a.log").st_mode, status("plain").st_mode);
}

TEST_F(ReplacingTest, a_link_stays_and_what_it_leads_to_is_replaced) {
  disk.file("Mix/real.log", "old");
  ASSERT_EQ(::chmod((disk / "Mix/real.log").c_str(), 0640), 0);
  disk.link("absolute.log", disk / "Mix/real.log");
  disk.link("Mix/relative.log", "real.log");
  disk.link("twice.log", "Mix/relative.log");
  int turn = 0;
  for (const char* name : {"absolute.log", "Mix\\relative.log", "twice.log"}) {
    const std::string bytes = "turn " + std::to_string(++turn);
    EXPECT_TRUE(save(name, bytes)) << name;
    EXPECT_EQ(disk.content("Mix/real.log"), bytes) << name;
  }
  EXPECT_EQ(status("Mix/real.log").st_mode & 07777u, 0640u);
  for (const char* link : {"absolute.log", "Mix/relative.log", "twice.log"}) {
    EXPECT_TRUE(S_ISLNK(status(link).st_mode)) << link;
  }
  EXPECT_THAT(names("D:\\"), ElementsAre("absolute.log", "Mix", "twice.log"));
  EXPECT_THAT(names("D:\\Mix"), ElementsAre("real.log", "relative.log"));
}

TEST_F(ReplacingTest, a_link_to_a_file_that_is_gone_makes_it_anew_and_a_circle_is_refused) {
  disk.link("nowhere.log", disk / "gone.log");
  EXPECT_TRUE(save("nowhere.log"));
  EXPECT_EQ(disk.content("gone.log"), "new");
  EXPECT_TRUE(S_ISLNK(status("nowhere.log").st_mode));
  disk.link("circle.log", disk / "circle.log");
  EXPECT_FALSE(save("circle.log"));
  EXPECT_TRUE(S_ISLNK(status("circle.log").st_mode));
  disk.link("no folder.log", disk / "missing/gone.log");
  EXPECT_FALSE(save("no folder.log"));
  EXPECT_EQ(files.create_new("D:\\circle.log"), nullptr);
  EXPECT_THAT(names("D:\\"), ElementsAre("gone.log", "nowhere.log"));
}

TEST_F(ReplacingTest, a_link_to_another_disk_is_written_through) {
  std::string other = "/dev/shm/ordelan-XXXXXX";
  if (::mkdtemp(other.data()) == nullptr) GTEST_SKIP() << "there is no other disk";
  const std::string real = other + "/real.log";
  struct stat here {};
  struct stat there {};
  ASSERT_EQ(::stat(disk.native().c_str(), &here), 0);
  ASSERT_EQ(::stat(other.c_str(), &there), 0);
  std::ofstream(real) << "old";
  ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
  disk.link("a.log", real);
  const bool saved = save("a.log");
  std::ifstream file(real);
  const std::string content{std::istreambuf_iterator<char>(file), {}};
  ASSERT_EQ(::stat(real.c_str(), &there), 0);
  std::size_t entries = 0;
  for (const auto& entry : std::filesystem::directory_iterator(other)) {
    entries += entry.exists() ? 1 : 0;
  }
  std::filesystem::remove_all(other);
  if (here.st_dev == there.st_dev) GTEST_SKIP() << "there is no other disk";
  EXPECT_TRUE(saved);
  EXPECT_EQ(content, "new");
  EXPECT_EQ(there.st_mode & 07777u, 0640u);
  EXPECT_EQ(entries, 1u);
  EXPECT_THAT(names("D:\\"), ElementsAre()) << "the link leads nowhere by now";
  EXPECT_TRUE(S_ISLNK(status("a.log").st_mode));
}

TEST_F(ReplacingTest, a_pipe_is_not_replaced) {
  ASSERT_EQ(::mkfifo((disk / "pipe.log").c_str(), 0600), 0);
  EXPECT_FALSE(save("pipe.log"));
  EXPECT_TRUE(S_ISFIFO(status("pipe.log").st_mode));
  EXPECT_THAT(names("D:\\"), IsEmpty());
}

TEST_F(ReplacingTest, a_full_disk_leaves_the_old_file_and_nothing_else) {
  disk.file("a.log", "old");
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit narrow{1000, before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &narrow), 0);
  const bool saved = save("a.log", std::string(5000, 'x'));
  const auto file = files.create("D:\\b.log");
  const bool wrote = file && file->write(std::string(5000, 'x'));
  const bool wrote_more = file && file->write("x");
  const bool closed = file && file->close();
  EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, handler);
  ASSERT_NE(file, nullptr);
  EXPECT_FALSE(wrote);
  EXPECT_FALSE(wrote_more) << "there is a hole before it";
  EXPECT_FALSE(closed) << "not everything has reached the disk";
  ASSERT_TRUE(files.remove("D:\\b.log"));
  EXPECT_FALSE(saved);
  EXPECT_EQ(disk.content("a.log"), "old");
  EXPECT_THAT(names("D:\\"), ElementsAre("a.log"));
}

TEST_F(PosixFileSystemTest, a_closed_file_takes_no_more_bytes) {
  const auto file = files.create("D:\\a.log");
  ASSERT_NE(file, nullptr);
  EXPECT_TRUE(file->close());
  EXPECT_FALSE(file->write("late"));
}

}  // namespace
}  // namespace ordelan::test
