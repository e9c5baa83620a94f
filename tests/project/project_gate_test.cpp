#include "project/project_gate.h"

#include <gmock/gmock.h>

#include "support/faulty_files.h"
#include "support/reader_bench.h"
#include "support/small_project.h"

namespace ordelan::test {
namespace {

using project::WhyOut;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The gate on a disk in memory that writes down which files are opened.
struct ProjectGateTest : ::testing::Test, ReaderBench {
  ProjectGateTest() {
    watched.faults.on_call = [this](FaultyFiles::Call call, std::string_view path) {
      if (call == FaultyFiles::Call::open) opened.emplace_back(path);
    };
  }

  FaultyFiles watched{files};
  system::Platform watched_platform{watched,  dialogs, backend, clock,
                                    regional, drives,  shell,   media};
  project::VipReader watched_reader{watched_platform, work, progress};
  project::ProjectGate gate{watched, watched_reader};
  std::vector<std::string> opened;
};

TEST_F(ProjectGateTest, a_project_among_frozen_tracks_is_refused_without_being_opened) {
  for (const char* path : {"D:\\Mix\\FreezeData\\tema.vip", "D:\\FreezeData 2\\a\\tema.vip",
                           "D:\\Mix\\tema FreezeData.vip", "D:\\FreezeData\\missing.vip"}) {
    if (!std::string(path).ends_with("missing.vip"))
      files.contents[path] = project_of({"D:\\a.wav"});
    EXPECT_FALSE(gate.Valido(path)) << path;
    EXPECT_EQ(gate.refusal(), WhyOut::frozen) << path;
  }
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(ProjectGateTest, a_folder_of_that_name_in_another_case_is_one_like_any_other) {
  files.contents["D:\\freezedata\\tema.vip"] = project_of({"D:\\a.wav"});
  EXPECT_TRUE(gate.Valido("D:\\freezedata\\tema.vip"));
  EXPECT_THAT(opened, ElementsAre("D:\\freezedata\\tema.vip"));
}

TEST_F(ProjectGateTest,
       a_project_that_is_accepted_has_no_reason_of_the_one_before_and_gives_no_row) {
  files.contents["D:\\tema.vip"] = project_of({"D:\\a.wav", "D:\\b.wav"});
  EXPECT_FALSE(gate.Valido("D:\\missing.vip"));
  EXPECT_EQ(gate.refusal(), WhyOut::gone);
  EXPECT_TRUE(gate.Valido("D:\\tema.vip"));
  EXPECT_EQ(gate.refusal(), std::nullopt);
  EXPECT_THAT(list.rows(), IsEmpty());
  EXPECT_EQ(watched_reader.TotalArchivosVip, 0u);
}

TEST_F(ProjectGateTest, one_without_audio_is_refused_for_that) {
  files.contents["D:\\midi.vip"] = project_of({});
  files.contents["D:\\empty.vip"] = "";
  for (const char* path : {"D:\\midi.vip", "D:\\empty.vip"}) {
    EXPECT_FALSE(gate.Valido(path));
    EXPECT_EQ(gate.refusal(), WhyOut::no_audio) << path;
  }
}

TEST_F(ProjectGateTest, a_name_that_is_no_projects_is_refused_without_being_opened) {
  // The folder's name makes it one for the reader.
  files.contents["D:\\copia.vip\\tema"] = project_of({"D:\\a.wav"});
  files.contents["D:\\Mix\\tema.txt"] = project_of({"D:\\a.wav"});
  for (const char* path : {"D:\\copia.vip\\tema", "D:\\Mix\\tema.txt"}) {
    EXPECT_FALSE(gate.Valido(path)) << path;
    EXPECT_EQ(gate.refusal(), WhyOut::no_audio) << path;
  }
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(ProjectGateTest, one_that_another_program_holds_is_refused_for_that) {
  files.contents["D:\\tema.vip"] = project_of({"D:\\a.wav"});
  watched.faults.fail(FaultyFiles::Call::open, system::Reason::in_use);
  EXPECT_FALSE(gate.Valido("D:\\tema.vip"));
  EXPECT_EQ(gate.refusal(), WhyOut::unreadable);
}

TEST_F(ProjectGateTest, one_whose_reading_fails_is_refused_for_that) {
  files.contents["D:\\tema.vip"] = project_of({"D:\\a.wav"});
  files.on_read = [](std::uint64_t) { return false; };
  EXPECT_FALSE(gate.Valido("D:\\tema.vip"));
  EXPECT_EQ(gate.refusal(), WhyOut::broken);
}

TEST_F(ProjectGateTest, a_question_that_was_broken_off_has_no_reason) {
  files.contents["D:\\midi.vip"] = project_of({}, 10'000'000);
  clock.step = std::chrono::milliseconds(20);
  backend.on_pump = [this] { work.Cancelar = true; };
  EXPECT_FALSE(gate.Valido("D:\\midi.vip"));
  EXPECT_EQ(gate.refusal(), std::nullopt);
}

}  // namespace
}  // namespace ordelan::test
