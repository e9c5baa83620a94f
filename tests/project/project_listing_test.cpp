// The listings of a folder's projects, on a disk in memory.
#include "project/project_listing.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "headless/headless_backend.h"
#include "headless/scripted_dialogs.h"
#include "project/memory_folders.h"
#include "project/project_gate.h"
#include "support/fake_media.h"
#include "support/fake_services.h"
#include "support/small_project.h"
#include "ui/window.h"
#include "work/status_strip.h"
#include "work/work_lists.h"

namespace ordelan::test {
namespace {

using project::WhyOut;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAre;

struct Listing : ::testing::Test {
  Listing() {
    disk.add_folder("D:\\Mix");
    work.RutaProyectos = "D:\\Mix\\";
  }

  void project(const std::string& path, bool hidden = false) {
    disk.add_file(path, project_of({"D:\\a.wav"}), hidden);
  }
  // What was left out, with its reason.
  std::vector<std::pair<std::string, std::string>> left() const {
    std::vector<std::pair<std::string, std::string>> all;
    for (const auto& each : work.ProyectosFuera) all.emplace_back(each.ruta, each.motivo);
    return all;
  }
  // Each as a job that joins what is under way.
  void list_flat(bool with_backups) {
    auto job = work::Job::join(work, platform);
    listing.list_flat(job, with_backups);
  }
  void ListarCarpetas() {
    auto job = work::Job::join(work, platform);
    listing.ListarCarpetas(job);
  }
  void ListarProyectosCarpetas(bool with_backups) {
    auto job = work::Job::join(work, platform);
    listing.ListarProyectosCarpetas(job, with_backups);
  }
  void list_below(bool with_backups) {
    ListarCarpetas();
    ListarProyectosCarpetas(with_backups);
  }

  MemoryFolders disk{true};
  HandClock clock;
  FixedRegional regional;
  FakeDrives drives;
  FakeShell shell;
  FakeMedia media;
  headless::ScriptedDialogs dialogs;
  headless::HeadlessBackend backend{clock};
  system::Platform platform{disk, dialogs, backend, clock, regional, drives, shell, media};
  ui::Window window{backend, "window"};
  work::WorkLists lists{window};
  work::StatusStrip strip{window};
  work::WorkInHand work;
  project::VipReader reader{platform, work, strip.XP_ProgressBar1};
  project::ProjectGate gate{disk, reader};
  project::LeftOut left_out{work};
  project::ProjectListing listing{platform, work, lists, gate, left_out};
};

TEST_F(Listing, of_one_folder_numbers_the_valid_projects_and_keeps_the_paths_of_all) {
  for (const char* name : {"b.vip", "A.VIP", "c.vipx", "notas.txt"}) {
    project(std::string("D:\\Mix\\") + name);
  }
  disk.add_file("D:\\Mix\\midi.vip", project_of({}));
  project("D:\\Mix\\oculto.vip", true);
  disk.add_folder("D:\\Mix\\Sub");
  project("D:\\Mix\\Sub\\d.vip");
  lists.List1.add("old");
  list_flat(true);
  EXPECT_THAT(lists.ListProyectos.rows(),
              ElementsAre("1 --> D:\\Mix\\A.VIP", "2 --> D:\\Mix\\b.vip", "3 --> D:\\Mix\\c.vipx"));
  EXPECT_THAT(lists.List1.rows(), ElementsAre("D:\\Mix\\A.VIP", "D:\\Mix\\b.vip", "D:\\Mix\\c.vipx",
                                              "D:\\Mix\\midi.vip"));
  EXPECT_FALSE(lists.ListProyectos.visible());
  EXPECT_THAT(left(), ElementsAre(Pair("D:\\Mix\\midi.vip", project::motivo(WhyOut::no_audio))));
}

TEST_F(Listing, of_one_folder_leaves_backups_out_by_their_whole_path) {
  project("D:\\Mix\\a.vip");
  project("D:\\Mix\\a_BAK.vip");
  project("D:\\Mix\\a_bak.vip2");
  list_flat(false);
  EXPECT_THAT(lists.ListProyectos.rows(),
              ElementsAre("1 --> D:\\Mix\\a.vip", "2 --> D:\\Mix\\a_bak.vip2"));
  EXPECT_THAT(left(), ElementsAre(Pair("D:\\Mix\\a_BAK.vip", project::motivo(WhyOut::backup))));
  lists.ListProyectos.clear();
  list_flat(true);
  EXPECT_THAT(lists.ListProyectos.rows(), SizeIs(3));

  disk.add_folder("D:\\Mix_BAK");
  project("D:\\Mix_BAK\\a.vip");
  work.RutaProyectos = "D:\\Mix_BAK\\";
  lists.ListProyectos.clear();
  list_flat(false);
  EXPECT_THAT(lists.ListProyectos.rows(), IsEmpty());
}

TEST_F(Listing, with_subfolders_takes_names_that_end_in_vip_and_leaves_backups_out_by_their_name) {
  disk.add_folder("D:\\Mix\\Sub_BAK");
  project("D:\\Mix\\Sub_BAK\\a.Vip");
  project("D:\\Mix\\Sub_BAK\\b_BAK.vip");
  project("D:\\Mix\\Sub_BAK\\c_BAK.notvip");
  project("D:\\Mix\\a.vipx");
  project("D:\\Mix\\vip");
  project("D:\\Mix\\ip");
  project("D:\\Mix\\b.vip");
  list_below(false);
  EXPECT_THAT(lists.List1.rows(), ElementsAre("D:\\Mix\\", "D:\\Mix\\Sub_BAK"));
  EXPECT_THAT(lists.ListProyectos.rows(),
              ElementsAre("1 --> D:\\Mix\\b.vip", "2 --> D:\\Mix\\Sub_BAK\\a.Vip"));
  EXPECT_THAT(left(),
              ElementsAre(Pair("D:\\Mix\\Sub_BAK\\b_BAK.vip", project::motivo(WhyOut::backup))))
      << "what is no project's name is not spoken of";
  list_below(true);
  EXPECT_THAT(lists.ListProyectos.rows(), SizeIs(3)) << "the rows of before are gone";
}

TEST_F(Listing, reports_why_projects_of_subfolders_get_no_row) {
  disk.add_folder("D:\\Mix\\FreezeData");
  project("D:\\Mix\\FreezeData\\a.vip");
  project("D:\\Mix\\oculto.vip", true);
  disk.add_file("D:\\Mix\\ocupado.vip", "x", false, true);
  list_below(true);
  EXPECT_THAT(lists.ListProyectos.rows(), IsEmpty());
  EXPECT_THAT(left(), UnorderedElementsAre(
                          Pair("D:\\Mix\\FreezeData\\a.vip", project::motivo(WhyOut::frozen)),
                          Pair("D:\\Mix\\oculto.vip", project::motivo(WhyOut::hidden)),
                          Pair("D:\\Mix\\ocupado.vip", project::motivo(WhyOut::unreadable))));
}

TEST_F(Listing, of_folders_takes_the_blanks_off_the_path_and_shows_the_wait_cursor_meanwhile) {
  disk.add_folder("D:\\Mix\\Sub");
  work.RutaProyectos = "  D:\\Mix\\ ";
  bool waited = false;
  backend.on_pump = [&] { waited = window.waiting(); };
  ListarCarpetas();
  EXPECT_THAT(lists.List1.rows(), ElementsAre("D:\\Mix\\", "D:\\Mix\\Sub"));
  EXPECT_TRUE(waited);
  EXPECT_FALSE(window.waiting());
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(Listing, of_folders_reports_a_missing_one_but_not_one_that_cannot_be_read) {
  disk.add_folder("D:\\Mix\\Cerrada");
  disk.forbid("D:\\Mix\\Cerrada\\");
  ListarCarpetas();
  EXPECT_THAT(lists.List1.rows(), ElementsAre("D:\\Mix\\", "D:\\Mix\\Cerrada"));
  EXPECT_THAT(dialogs.messages, IsEmpty());
  work.RutaProyectos = "D:\\missing\\";
  ListarCarpetas();
  ASSERT_THAT(dialogs.messages, SizeIs(1));
  EXPECT_EQ(dialogs.messages[0].text, "No se ha encontrado la ruta de acceso");
}

TEST_F(Listing, that_a_newer_job_has_replaced_adds_nothing_more_and_gives_the_pointer_back) {
  disk.add_folder("D:\\Mix\\Sub");
  for (const char* path : {"D:\\Mix\\a.vip", "D:\\Mix\\b.vip", "D:\\Mix\\Sub\\c.vip"})
    project(path);
  clock.step = std::chrono::milliseconds(20);
  const auto replaced_at = [&](int last, const std::function<void()>& run) {
    lists.ListProyectos.clear();
    lists.List1.clear();
    for (const char* row : {"D:\\Mix\\", "D:\\Mix\\Sub"}) lists.List1.add(row);
    int turns = 0;
    backend.on_pump = [&] {
      if (++turns != last) return;
      work.begin_job();
      lists.ListProyectos.clear();
      lists.List1.clear();
      lists.ListProyectos.add("newer");
      lists.List1.add("newer");
    };
    run();
    backend.on_pump = nullptr;
    return turns;
  };
  for (const auto& run : {std::function<void()>([&] { list_flat(true); }),
                          std::function<void()>([&] { ListarProyectosCarpetas(true); }),
                          std::function<void()>([&] { ListarCarpetas(); })}) {
    const int all = replaced_at(0, run);
    ASSERT_GE(all, 2);
    for (int last = 1; last <= all; ++last) {
      const int turns = replaced_at(last, run);
      EXPECT_THAT(lists.ListProyectos.rows(), ElementsAre("newer")) << last;
      EXPECT_THAT(lists.List1.rows(), ElementsAre("newer")) << last;
      EXPECT_LE(turns, last + 1) << "it went on";
      EXPECT_FALSE(window.waiting());
    }
  }
}

TEST_F(Listing, of_folders_whose_first_cannot_be_read_does_not_call_it_missing) {
  disk.forbid("D:\\Mix\\");
  ListarCarpetas();
  EXPECT_THAT(lists.List1.rows(), ElementsAre("D:\\Mix\\"));
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(Listing, of_projects_gives_turns_in_folders_without_any) {
  for (int i = 0; i < 20; ++i) disk.add_folder("D:\\Mix\\" + std::to_string(i));
  ListarCarpetas();
  clock.step = std::chrono::milliseconds(20);
  int turns = 0;
  backend.on_pump = [&] { ++turns; };
  ListarProyectosCarpetas(true);
  EXPECT_GE(turns, 20);
}

// A question that the user has broken off says nothing about the project.
TEST_F(Listing, a_project_whose_reading_was_cancelled_is_not_left_out_with_a_reason) {
  disk.add_file("D:\\Mix\\midi.vip", project_of({}, 10'000'000));
  clock.step = std::chrono::milliseconds(20);
  backend.on_pump = [&] { work.Cancelar = true; };
  for (const bool below : {false, true}) {
    work.Cancelar = false;
    lists.List1.clear();
    lists.List1.add("D:\\Mix\\");
    below ? ListarProyectosCarpetas(true) : list_flat(true);
    EXPECT_TRUE(work.Cancelar);
    EXPECT_THAT(lists.ListProyectos.rows(), IsEmpty()) << below;
    EXPECT_THAT(left(), IsEmpty()) << below;
  }
}

TEST_F(Listing, of_one_folder_gives_a_turn_after_each_project_however_short) {
  for (int i = 0; i < 20; ++i) disk.add_file("D:\\Mix\\" + std::to_string(i) + ".vip", "");
  clock.step = std::chrono::milliseconds(20);
  int turns = 0;
  backend.on_pump = [&] { ++turns; };
  list_flat(true);
  EXPECT_GE(turns, 20);
}

TEST_F(Listing, that_a_newer_job_has_replaced_adds_no_reasons_to_those_of_that_job) {
  for (const char* folder : {"D:\\Mix\\", "D:\\Mix\\a\\", "D:\\Mix\\b\\"}) {
    const std::string path = folder;
    if (path != "D:\\Mix\\") disk.add_folder(path.substr(0, path.size() - 1));
    disk.add_file(path + "a.vip", "");
    project(path + "b_BAK.vip");
    disk.add_file(path + "c.vip", "");
    project(path + "d FreezeData.vip");
    project(path + "e_BAK.vip");
  }
  disk.add_folder("D:\\Mix\\0");  // none in it
  clock.step = std::chrono::milliseconds(20);
  for (const bool below : {false, true}) {
    int all = 0;
    for (int last = 0; last <= all; ++last) {
      lists.List1.clear();
      for (const char* row : {"D:\\Mix\\0", "D:\\Mix", "D:\\Mix\\a", "D:\\Mix\\b"}) {
        lists.List1.add(row);
      }
      left_out.clear();
      int turns = 0;
      backend.on_pump = [&] {
        if (++turns != last) return;
        work.begin_job();
        left_out.clear();
      };
      below ? ListarProyectosCarpetas(false) : list_flat(false);
      backend.on_pump = nullptr;
      if (last == 0) {
        all = turns;
        ASSERT_GE(all, below ? 12 : 3);
        ASSERT_THAT(left(), SizeIs(below ? 15 : 5));
      } else {
        EXPECT_THAT(left(), IsEmpty()) << last << " of " << all << (below ? " below" : "");
      }
    }
  }
}

TEST_F(Listing, that_a_newer_job_has_replaced_reports_no_missing_folder) {
  work.RutaProyectos = "D:\\missing\\";
  backend.on_pump = [&] { work.begin_job(); };
  ListarCarpetas();
  EXPECT_THAT(dialogs.messages, IsEmpty());
  EXPECT_FALSE(window.waiting());
}

}  // namespace
}  // namespace ordelan::test
