// Files on Linux that are changed in place: what only this system has.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "posix/native_folder.h"

namespace ordelan::test {
namespace {

using system::Reason;

TEST(PosixChangeFile, is_no_pipe_and_no_device) {
  MappedFolder mapped;
  ASSERT_EQ(::mkfifo((mapped.disk / "tubo.vip").c_str(), 0600), 0);
  mapped.disk.link("nulo.vip", "/dev/null");
  EXPECT_EQ(mapped.files.change("D:\\tubo.vip").status(), Reason::not_a_file);
  EXPECT_EQ(mapped.files.change("D:\\nulo.vip").status(), Reason::not_a_file);
}

TEST(PosixChangeFile, is_not_opened_where_a_link_leads_nowhere_or_to_a_read_only_file) {
  MappedFolder mapped;
  mapped.disk.file("a.vip", "123");
  ASSERT_EQ(::chmod((mapped.disk / "a.vip").c_str(), 0444), 0);
  mapped.disk.link("enlace.vip", mapped.disk / "a.vip");
  mapped.disk.link("nada.vip", mapped.disk / "b.vip");
  EXPECT_EQ(mapped.files.change("D:\\enlace.vip").status(), Reason::read_only);
  EXPECT_EQ(mapped.files.change("D:\\nada.vip").status(), Reason::not_found);
  EXPECT_EQ(mapped.disk.content("a.vip"), "123");
}

// As a file server does for a client that keeps what it has read.
TEST(PosixChangeFile, is_in_use_while_another_has_a_lease_on_it) {
  MappedFolder mapped;
  mapped.disk.file("a.vip", "123");
  const int held = ::open((mapped.disk / "a.vip").c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_GE(held, 0);
  const auto before = std::signal(SIGIO, SIG_IGN);  // the holder is asked to give it back
  const bool leased = ::fcntl(held, F_SETLEASE, F_RDLCK) == 0;
  const Reason found = mapped.files.change("D:\\a.vip").status().reason();
  ::close(held);
  std::signal(SIGIO, before);
  if (!leased) GTEST_SKIP() << "this disk gives no leases";
  EXPECT_EQ(found, Reason::in_use);
  EXPECT_TRUE(mapped.files.change("D:\\a.vip"));
}

}  // namespace
}  // namespace ordelan::test
