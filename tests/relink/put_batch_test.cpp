// Patched projects that take their places together: the order of what is done to the disk, and what
// becomes of the others when one of them fails.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "relink/patched_project.h"
#include "support/computer.h"
#include "support/update_bench.h"

namespace ordelan::test {
namespace {

using relink::ProjectChange;
using relink::PutBatch;
using system::Reason;
using system::Status;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;
using Call = FaultyFiles::Call;

struct PutBatchTest : ::testing::Test, UpdateBench {
  PutBatchTest() { clock.step = std::chrono::milliseconds(0); }

  relink::PutBatch batch_of() {
    return PutBatch(faulty, clock,
                    {[this](const std::vector<ProjectChange>& changes) {
                       for (const ProjectChange& change : changes) recorded.push_back(change.path);
                       steps.push_back("record");
                       return record;
                     },
                     [this](const std::string& path) { left.push_back(path); }},
                    [this] { ++turns; });
  }
  // A project of that name on the disk, and its image with another first byte.
  void add(PutBatch& batch, const std::string& name, std::size_t size = 10) {
    disk.write("Mix\\" + name, std::string(size, 'a'));
    add_present(batch, name);
  }
  void add_present(PutBatch& batch, const std::string& name) {
    const auto info = disk.files().info(disk.path("Mix\\" + name));
    auto project = relink::open_project(faulty, disk.path("Mix\\" + name));
    (*project)->image.put(1, 'z');
    batch.add(**project, disk.path("Mix\\" + name), work::Visto{info->size, info->modified},
              [this, name](Status status) { ended[name] = status; });
  }
  char first_of(const std::string& name) { return bytes("Mix\\" + name).at(0); }

  Status record;
  int turns = 0;
  std::vector<std::string> recorded;
  std::vector<std::string> left;
  std::vector<std::string> steps;
  std::map<std::string, Status> ended;
};

TEST_F(PutBatchTest, projects_are_flushed_then_recorded_then_replaced) {
  faulty.faults.on_call = [&](Call call, std::string_view) {
    if (call == Call::flush_file) steps.push_back("flush");
    if (call == Call::replace) steps.push_back("replace");
  };
  auto batch = batch_of();
  add(batch, "a.vip");
  add(batch, "b.vip");
  EXPECT_THAT(steps, IsEmpty());
  EXPECT_THAT(ended, IsEmpty());
  EXPECT_EQ(first_of("a.vip"), 'a');
  batch.put();
  EXPECT_THAT(steps, ElementsAre("flush", "flush", "record", "replace", "replace"));
  EXPECT_THAT(recorded, ElementsAre(disk.path("Mix\\a.vip"), disk.path("Mix\\b.vip")));
  EXPECT_EQ(bytes("Mix\\a.vip"), "zaaaaaaaaa");
  EXPECT_EQ(bytes("Mix\\b.vip"), "zaaaaaaaaa");
  EXPECT_TRUE(ended.at("a.vip"));
  EXPECT_TRUE(ended.at("b.vip"));
  EXPECT_GE(turns, 2) << "the window gets its turns between the waits for the disk";
  EXPECT_THAT(names_in("Mix"), UnorderedElementsAre("a.vip", "b.vip"));
  batch.put();
  EXPECT_THAT(steps, SizeIs(5)) << "all is done";
}

TEST_F(PutBatchTest, is_due_when_many_wait_or_large_ones_or_for_long) {
  auto batch = batch_of();
  EXPECT_FALSE(batch.due());
  for (int i = 0; i < 31; ++i) add(batch, "p" + std::to_string(i) + ".vip");
  EXPECT_FALSE(batch.due());
  add(batch, "p31.vip");
  EXPECT_TRUE(batch.due());
  batch.put();
  EXPECT_FALSE(batch.due());
  add(batch, "large.vip", 64 << 20);
  EXPECT_TRUE(batch.due());
  batch.put();
  add(batch, "small.vip");
  EXPECT_FALSE(batch.due());
  clock.time += std::chrono::milliseconds(50);
  EXPECT_TRUE(batch.due());
  batch.put();
  EXPECT_EQ(first_of("small.vip"), 'z');
}

TEST_F(PutBatchTest, one_that_cannot_reach_the_disk_does_not_stop_the_others) {
  auto batch = batch_of();
  add(batch, "a.vip");
  add(batch, "b.vip");
  std::string of_a;
  for (const std::string& name : names_in("Mix")) {
    if (name.ends_with(".tmp") && of_a.empty()) of_a = name;
  }
  faulty.faults.fail({.call = Call::flush_file, .path = disk.path("Mix\\" + of_a)}, Reason::other);
  batch.put();
  EXPECT_NE(ended.at("a.vip").ok(), ended.at("b.vip").ok());
  EXPECT_NE(first_of("a.vip"), first_of("b.vip"));
  EXPECT_THAT(recorded, SizeIs(1)) << "what is not going to happen is not recorded";
  EXPECT_THAT(names_in("Mix"), UnorderedElementsAre("a.vip", "b.vip"));
}

TEST_F(PutBatchTest, without_a_record_all_stay) {
  auto batch = batch_of();
  add(batch, "a.vip");
  add(batch, "b.vip");
  record = Reason::no_space;
  batch.put();
  EXPECT_EQ(first_of("a.vip"), 'a');
  EXPECT_EQ(first_of("b.vip"), 'a');
  EXPECT_EQ(ended.at("a.vip"), Reason::no_space);
  EXPECT_EQ(ended.at("b.vip"), Reason::no_space);
  EXPECT_THAT(left, IsEmpty()) << "nothing was recorded";
  EXPECT_THAT(names_in("Mix"), UnorderedElementsAre("a.vip", "b.vip"));
}

TEST_F(PutBatchTest, one_that_changes_while_it_waits_stays_as_it_is_then) {
  auto batch = batch_of();
  add(batch, "a.vip");
  add(batch, "b.vip");
  disk.write("Mix\\a.vip", "saved by another program");
  batch.put();
  EXPECT_EQ(bytes("Mix\\a.vip"), "saved by another program");
  EXPECT_EQ(ended.at("a.vip"), Reason::in_use);
  EXPECT_EQ(first_of("b.vip"), 'z');
  EXPECT_THAT(left, ElementsAre(disk.path("Mix\\a.vip"))) << "the way back must not touch it";
  EXPECT_THAT(names_in("Mix"), UnorderedElementsAre("a.vip", "b.vip"));
}

TEST_F(PutBatchTest, a_full_disk_has_room_again_once_those_that_wait_have_their_places) {
  auto batch = batch_of();
  add(batch, "a.vip");
  faulty.faults.fail({.call = Call::write}, Reason::no_space, 1);
  add(batch, "b.vip");
  EXPECT_EQ(first_of("a.vip"), 'z');
  EXPECT_EQ(first_of("b.vip"), 'a');
  EXPECT_FALSE(ended.contains("b.vip")) << "it waits";
  batch.put();
  EXPECT_EQ(bytes("Mix\\b.vip"), "zaaaaaaaaa") << "whole, also at the second try";
  EXPECT_THAT(names_in("Mix"), UnorderedElementsAre("a.vip", "b.vip"));
}

TEST_F(PutBatchTest, a_disk_that_stays_full_leaves_the_project) {
  auto batch = batch_of();
  faulty.faults.fail({.call = Call::write}, Reason::no_space);
  add(batch, "a.vip");
  EXPECT_EQ(ended.at("a.vip"), Reason::no_space);
  EXPECT_EQ(first_of("a.vip"), 'a');
  EXPECT_THAT(names_in("Mix"), ElementsAre("a.vip"));
}

TEST_F(PutBatchTest, what_still_waits_at_its_end_is_dropped) {
  {
    auto batch = batch_of();
    add(batch, "a.vip");
    EXPECT_THAT(names_in("Mix"), SizeIs(2));
  }
  EXPECT_THAT(names_in("Mix"), ElementsAre("a.vip"));
  EXPECT_EQ(first_of("a.vip"), 'a');
}

TEST_F(PutBatchTest, a_throw_leaves_no_temporary_file) {
  auto batch = batch_of();
  add(batch, "a.vip");
  faulty.faults.on_call = [](Call call, std::string_view) {
    if (call == Call::replace) throw std::bad_alloc();
  };
  EXPECT_THROW(batch.put(), std::bad_alloc);
  EXPECT_THAT(names_in("Mix"), ElementsAre("a.vip"));
}

TEST_F(PutBatchTest, holds_a_project_whatever_the_letter_case_of_its_path) {
  auto batch = batch_of();
  add(batch, "a.vip");
  EXPECT_TRUE(batch.holds(disk.path("MIX\\A.VIP")));
  EXPECT_FALSE(batch.holds(disk.path("Mix\\b.vip")));
  batch.put();
  EXPECT_FALSE(batch.holds(disk.path("Mix\\a.vip")));
}

// The other name may be that of one that waits: it would be replaced by what it was before.
TEST_F(PutBatchTest, one_with_another_name_is_changed_once_those_that_wait_have_their_places) {
  auto batch = batch_of();
  add(batch, "a.vip");
  disk.write("Mix\\b.vip", "bbb");
  std::filesystem::create_hard_link(disk.native_path("Mix\\b.vip"), disk.native_path("otro"));
  add_present(batch, "b.vip");
  EXPECT_EQ(first_of("a.vip"), 'z');
  EXPECT_EQ(bytes("otro"), "zbb");
  EXPECT_TRUE(ended.at("b.vip"));
  EXPECT_THAT(recorded, ElementsAre(disk.path("Mix\\a.vip"), disk.path("Mix\\b.vip")));
}

// --- in an update

// The answer to a question may take long, and the walk of a drive too: a power cut in the
// meantime must find the projects done that came before.
struct LongWait : ::testing::Test, UpdateBench {
  void two(const std::vector<std::string>& places) {
    project_at("Mix\\a.vip", {disk.path("Nuevo\\z.wav"), "D:\\Viejo\\a.wav"});
    project_at("Mix\\b.vip", {"D:\\Viejo\\b.wav"});
    audio("Nuevo\\a.wav");
    for (const std::string& place : places) audio(place + "\\b.wav");
    before = bytes("Mix\\a.vip");
    start();
    open("Mix\\a.vip");
  }
  std::string before;
};

TEST_F(LongWait, projects_take_their_places_before_the_user_is_asked) {
  two({"Uno", "Dos"});
  bool asked = false;
  backend.on_pump = [&] {
    if (choice() == nullptr || asked) return;
    asked = true;
    EXPECT_NE(bytes("Mix\\a.vip"), before);
    choice()->ListElegirRuta.chosen(0);
    choice()->ListElegirRuta.on_click();
  };
  update();
  EXPECT_TRUE(asked);
}

TEST_F(LongWait, projects_take_their_places_before_another_walk_of_a_drive) {
  two({"Uno"});
  // The file of b has gone since the first walk: the drive is walked anew.
  bool walked = false;
  bool moved = false;
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call == Call::remove && path == disk.path("Mix\\Originales\\a_vip.ptr")) {
      std::filesystem::rename(disk.native_path("Uno"), disk.native_path("Dos"));
      moved = true;
    }
    if (moved && call == Call::each && path.find("Nuevo") != std::string_view::npos) {
      walked = true;
      EXPECT_NE(bytes("Mix\\a.vip"), before);
    }
  };
  update();
  EXPECT_TRUE(walked);
  EXPECT_THAT(paths_in("Mix\\b.vip"), ElementsAre(disk.path("Dos\\b.wav")));
}

}  // namespace
}  // namespace ordelan::test
