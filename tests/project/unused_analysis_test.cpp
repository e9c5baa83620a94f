#include "project/unused_analysis.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "project/candidate_kinds.h"
#include "project/candidates_of.h"
#include "project/used_strike.h"
#include "support/faulty_files.h"
#include "support/hostile_bytes.h"
#include "support/work_bench.h"
#include "text/rows.h"
#include "text/wildcard.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// The search on a real disk. An existing project makes its folder one of those searched.
struct UnusedFiles : ::testing::Test, WorkBench {
  UnusedFiles() { lists.LabelErase.set_visible(false); }

  void list_project(const std::string& below) { WorkBench::list_project(below, "project"); }
  void use(const std::string& below) { lists.ListUtilizados.add(disk.path(below)); }
  void search() {
    job.folders().forget();
    lists.ListBorrar.clear();
    candidates = analysis.ListarArchivosCarpetas(job);
    analysis.BuscarNoUtilizados(job, candidates);
  }
  const std::vector<std::string>& offered() const { return lists.ListBorrar.rows(); }
  bool equal(const std::string& a, const std::string& b) {
    return analysis.ComparaFiles(disk.path(a), disk.path(b), job);
  }

  work::Job job = work::Job::join(work, platform);
  project::LeftOut left_out{work};
  project::UnusedAnalysis analysis{platform, lists, strip, left_out};
  project::Candidates candidates;  // of the last search
};

TEST_F(UnusedFiles, a_used_file_goes_and_the_candidate_after_it_too) {
  list_project("Mix\\tema.vip");
  for (const char* name : {"a.wav", "b.wav", "c.wav", "d.wav"}) {
    disk.write(std::string("Mix\\") + name, name);
  }
  use("Mix\\b.wav");
  search();
  EXPECT_THAT(lists.List1.rows(), ElementsAre(disk.path("Mix\\a.wav"), disk.path("Mix\\d.wav")));
  EXPECT_EQ(offered(), lists.List1.rows());
  EXPECT_EQ(lists.LabelErase[1].caption(),
            "Archivos no utilizados: 2     Duplicados: 0    Total: 2");
  EXPECT_TRUE(lists.LabelErase[1].visible());
  EXPECT_FALSE(lists.LabelErase[0].visible());
  EXPECT_TRUE(lists.ListBorrar.visible());
}

TEST_F(UnusedFiles, the_candidate_after_a_used_one_goes_also_where_it_is_of_another_kind) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  disk.write("Mix\\m.mp3", "m");
  disk.write("Mix\\n.mp3", "n");
  use("Mix\\a.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\n.mp3")));
}

TEST_F(UnusedFiles, an_equal_copy_is_never_offered) {
  list_project("Mix\\tema.vip");
  disk.write("Audio\\a.wav", std::string(30'000, 'a'));
  disk.write("Mix\\Copia\\a.wav", std::string(30'000, 'a'));
  use("Audio\\a.wav");
  search();
  EXPECT_THAT(offered(), IsEmpty());
}

TEST_F(UnusedFiles, a_copy_with_one_changed_byte_is_offered) {
  list_project("Mix\\tema.vip");
  std::string bytes(30'000, 'a');
  disk.write("Audio\\a.wav", bytes);
  bytes[29'999] = 'b';
  disk.write("Mix\\Copia\\a.wav", bytes);
  use("Audio\\a.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Copia\\a.wav")));
}

TEST_F(UnusedFiles, an_equal_copy_under_another_name_is_offered) {
  list_project("Mix\\tema.vip");
  disk.write("Audio\\a.wav", "a");
  disk.write("Mix\\otra.wav", "a");
  use("Audio\\a.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\otra.wav")));
}

TEST_F(UnusedFiles, a_used_frozen_track_protects_nothing) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  disk.write("Mix\\FreezeData\\a.wav", "a");
  use("Mix\\FreezeData\\a.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\a.wav")));
}

TEST_F(UnusedFiles, a_frozen_track_is_never_offered) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\FreezeData\\a.wav", "a");
  disk.write("Mix\\freezedata\\b.wav", "b");
  disk.write("Mix\\mi FreezeData.wav", "c");
  lists.ListUtilizados.add("E:\\z.wav");
  search();
  EXPECT_THAT(lists.List1.rows(), SizeIs(3));
#ifdef _WIN32
  EXPECT_THAT(offered(), IsEmpty()) << "there the two folders are one";
#else
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\freezedata\\b.wav")))
      << "the mark is looked for letter for letter";
#endif
}

TEST_F(UnusedFiles, only_the_audio_kinds_are_offered) {
  list_project("Mix\\tema.vip");
  for (const char* name : {"x.wav", "x.aif", "x.mp3", "x.ogg", "x.flac", "x.wma", "x.m4a", "x.fla",
                           "x.aiff", "x.cue", "x.h2", "x.hdp", "x.hs", "x.txt", "x.WMA"}) {
    disk.write(std::string("Mix\\") + (name == std::string("x.WMA") ? "y.WMA" : name), "x");
  }
  lists.ListUtilizados.add("E:\\z.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\x.wav"), disk.path("Mix\\x.mp3"),
                                     disk.path("Mix\\x.aif"), disk.path("Mix\\x.ogg"),
                                     disk.path("Mix\\x.flac"), disk.path("Mix\\x.wma"),
                                     disk.path("Mix\\y.WMA"), disk.path("Mix\\x.m4a")));
  EXPECT_THAT(lists.List1.rows(), SizeIs(14)) << "all but the text file are candidates";
}

TEST_F(UnusedFiles, where_nothing_is_used_nothing_changes) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  lists.ListBorrar.add("E:\\antes.wav");
  lists.LabelErase[1].set_caption("antes");
  lists.ListBorrar.hide();
  candidates = analysis.ListarArchivosCarpetas(job);
  analysis.BuscarNoUtilizados(job, candidates);
  EXPECT_THAT(lists.List1.rows(), ElementsAre(disk.path("Mix\\a.wav")));
  EXPECT_THAT(offered(), ElementsAre("E:\\antes.wav"));
  EXPECT_EQ(lists.LabelErase[1].caption(), "antes");
  EXPECT_FALSE(lists.LabelErase[0].visible());
  EXPECT_FALSE(lists.LabelErase[1].visible());
  EXPECT_FALSE(lists.ListBorrar.visible());
}

TEST_F(UnusedFiles, where_all_is_used_that_is_reported) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  use("Mix\\a.wav");
  search();
  EXPECT_THAT(offered(), IsEmpty());
  EXPECT_EQ(lists.LabelErase[0].caption(), "No se han encontrado archivos no utilizados");
  EXPECT_TRUE(lists.LabelErase[0].visible());
  EXPECT_EQ(lists.LabelErase[1].caption(), "Archivos no utilizados: 0");
  EXPECT_FALSE(lists.LabelErase[1].visible());
}

TEST_F(UnusedFiles, what_nested_project_folders_list_twice_is_counted_and_offered_once) {
  list_project("Mix\\tema.vip");
  list_project("Mix\\Dentro\\otro.vip");
  disk.write("Mix\\Dentro\\a.wav", "a");
  lists.ListUtilizados.add("E:\\z.wav");
  search();
  EXPECT_THAT(lists.List1.rows(), SizeIs(2));
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Dentro\\a.wav")));
  EXPECT_EQ(lists.LabelErase[1].caption(),
            "Archivos no utilizados: 2     Duplicados: 1    Total: 1");
  EXPECT_EQ(strip.TextDecode.text(), "Eliminando duplicado: " + disk.path("Mix\\Dentro\\a.wav"));
  EXPECT_TRUE(strip.TextDecode.visible());
  lists.ListProyectos.remove_if([](std::size_t i) { return i == 1; });
  search();
  EXPECT_EQ(strip.TextDecode.text(), "Buscando archivos no utilizados ") << "nothing is repeated";
}

TEST_F(UnusedFiles, a_used_file_that_nested_project_folders_list_twice_is_not_offered) {
  list_project("Mix\\tema.vip");
  list_project("Mix\\Dentro\\otro.vip");
  disk.write("Mix\\Dentro\\a.wav", "a");
  disk.write("Mix\\Dentro\\b.wav", "b");
  use("Mix\\Dentro\\a.wav");
  search();
  EXPECT_THAT(lists.List1.rows(),
              ElementsAre(disk.path("Mix\\Dentro\\a.wav"), disk.path("Mix\\Dentro\\b.wav")));
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Dentro\\b.wav")));
  EXPECT_EQ(lists.LabelErase[1].caption(),
            "Archivos no utilizados: 1     Duplicados: 0    Total: 1");
}

TEST_F(UnusedFiles, two_projects_of_one_folder_list_it_once) {
  list_project("Mix\\tema.vip");
  list_project("Mix\\otro.vip");
  disk.write("Mix\\a.wav", "a");
  candidates = analysis.ListarArchivosCarpetas(job);
  EXPECT_THAT(paths_of(candidates), ElementsAre(disk.path("Mix\\a.wav")));
}

TEST_F(UnusedFiles, candidates_come_folder_by_folder_and_pattern_by_pattern) {
  list_project("Mix\\tema.vip");
  list_project("Otro\\tema.vip");
  for (const char* below : {"Mix\\b.h2", "Mix\\z.wav", "Mix\\Uno\\a.wav", "Mix\\Uno\\Dos\\a.wav",
                            "Mix\\Uno\\a.mp3", "Mix\\Zeta\\a.h2", "Otro\\a.wav"}) {
    disk.write(below, "x");
  }
  candidates = analysis.ListarArchivosCarpetas(job);
  EXPECT_THAT(paths_of(candidates),
              ElementsAre(disk.path("Mix\\z.wav"), disk.path("Mix\\Uno\\a.wav"),
                          disk.path("Mix\\Uno\\Dos\\a.wav"), disk.path("Mix\\b.h2"),
                          disk.path("Mix\\Zeta\\a.h2"), disk.path("Mix\\Uno\\a.mp3"),
                          disk.path("Otro\\a.wav")));
}

TEST_F(UnusedFiles, the_folder_of_a_project_that_is_gone_is_not_searched) {
  disk.write("Mix\\a.wav", "a");
  lists.ListProyectos.add(text::project_row(1, disk.path("Mix\\tema.vip")));
  candidates = analysis.ListarArchivosCarpetas(job);
  EXPECT_THAT(paths_of(candidates), IsEmpty());
}

TEST_F(UnusedFiles, names_are_compared_letter_for_letter) {
  list_project("Mix\\tema.vip");
  disk.write("Audio\\take.wav", "t");
  disk.write("Mix\\Take.WAV", "t");
  use("Audio\\take.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Take.WAV")));
}

TEST_F(UnusedFiles, a_used_file_that_is_gone_keeps_its_namesakes) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  disk.write("Mix\\b.wav", "b");
  disk.write("Mix\\Copia\\a.wav", "another");
  lists.ListUtilizados.add("E:\\Antes\\a.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\b.wav")));
}

TEST_F(UnusedFiles, the_row_after_a_removed_one_is_not_looked_at) {
  list_project("Mix\\tema.vip");
  for (const char* below : {"Mix\\a.wav", "Mix\\Uno\\a.wav", "Mix\\Uno\\Dos\\a.wav"}) {
    disk.write(below, "a");
  }
  lists.ListUtilizados.add("E:\\Antes\\a.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Uno\\a.wav")));
}

TEST_F(UnusedFiles, headers_of_projects_strike_nothing) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  lists.ListUtilizados.add("1 --> " + disk.path("Mix\\a.wav"));
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\a.wav")));
}

TEST_F(UnusedFiles, a_folder_with_the_name_of_audio_is_no_candidate) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\Todo.wav\\a.wav", "a");
  lists.ListUtilizados.add("E:\\z.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Todo.wav\\a.wav")));
}

TEST_F(UnusedFiles, a_link_to_a_folder_outside_is_not_walked_into) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  disk.write("Fuera\\b.wav", "b");
  std::error_code failed;
  std::filesystem::create_directory_symlink(disk.native_path("Fuera"),
                                            disk.native_path("Mix\\Enlace"), failed);
  if (failed) GTEST_SKIP() << "no links may be made here: " << failed.message();
  lists.ListUtilizados.add("E:\\z.wav");
  search();
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\a.wav")));
}

TEST_F(UnusedFiles, a_cancel_in_the_middle_offers_nothing) {
  list_project("Mix\\tema.vip");
  for (int i = 10; i < 30; ++i) disk.write("Mix\\f" + std::to_string(i) + ".wav", "x");
  for (int i = 0; i < 9; ++i) lists.ListUtilizados.add("E:\\z" + std::to_string(i) + ".wav");
  search();
  ASSERT_THAT(offered(), SizeIs(20));

  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  int pumps = 0;
  backend.on_pump = [&] { work.Cancelar = strip.TextDecode.visible() && ++pumps == 4; };
  lists.ListBorrar.clear();
  analysis.BuscarNoUtilizados(job, candidates);
  EXPECT_EQ(pumps, 4) << "it went on after the cancel";
  EXPECT_THAT(offered(), IsEmpty());
  EXPECT_TRUE(lists.ListBorrar.visible());
  EXPECT_FALSE(lists.LabelErase[0].visible()) << "the result is not known";
  EXPECT_FALSE(lists.LabelErase[1].visible());
}

TEST_F(UnusedFiles, a_cancel_at_any_turn_offers_nothing_and_claims_nothing) {
  list_project("Mix\\tema.vip");
  for (int i = 10; i < 20; ++i) disk.write("Mix\\f" + std::to_string(i) + ".wav", "x");
  for (int i = 0; i < 9; ++i) lists.ListUtilizados.add("E:\\z" + std::to_string(i) + ".wav");
  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  int cancelled = 0;
  for (int turn = 1; turn < 60; ++turn) {
    work.Cancelar = false;
    candidates = analysis.ListarArchivosCarpetas(job);
    lists.ListBorrar.clear();
    for (auto& heading : lists.LabelErase) heading->set_caption("of an earlier search");
    int turns = 0;
    backend.on_pump = [&] { work.Cancelar = ++turns >= turn; };
    analysis.BuscarNoUtilizados(job, candidates);
    backend.on_pump = nullptr;
    if (turns < turn) break;
    ++cancelled;
    EXPECT_THAT(offered(), IsEmpty()) << turn;
    for (auto& heading : lists.LabelErase) {
      EXPECT_FALSE(heading->visible()) << turn;
      EXPECT_EQ(heading->caption(), "") << "it heads the report too: " << turn;
    }
  }
  EXPECT_GT(cancelled, 20) << "after the strike too";
}

TEST_F(UnusedFiles, a_job_that_takes_its_place_in_the_middle_finds_the_lists_untouched) {
  list_project("Mix\\tema.vip");
  disk.write("Mix\\a.wav", "a");
  use("Mix\\a.wav");
  candidates = analysis.ListarArchivosCarpetas(job);
  clock.step = std::chrono::milliseconds(20);
  backend.on_pump = [&] {
    work.begin_job();
    lists.List1.clear();
    lists.List1.add("the newer job's row");
  };
  analysis.BuscarNoUtilizados(job, candidates);
  EXPECT_THAT(lists.List1.rows(), ElementsAre("the newer job's row"));
  EXPECT_EQ(lists.LabelErase[1].caption(), "");
}

TEST_F(UnusedFiles, a_job_that_takes_its_place_at_any_turn_keeps_its_own_lists_and_headings) {
  list_project("Mix\\tema.vip");
  for (int i = 10; i < 20; ++i) disk.write("Mix\\f" + std::to_string(i) + ".wav", "x");
  for (int i = 0; i < 9; ++i) lists.ListUtilizados.add("E:\\z" + std::to_string(i) + ".wav");
  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  const auto replaced_at = [&](int last) {
    auto now = work::Job::join(work, platform);
    candidates = analysis.ListarArchivosCarpetas(now);
    lists.ListBorrar.clear();
    lists.LabelErase.set_visible(false);
    int turns = 0;
    backend.on_pump = [&] {
      if (++turns != last) return;
      work.begin_job();
      for (ui::ListBox* list : {&lists.List1, &lists.ListBorrar}) {
        list->clear();
        list->add("newer");
      }
      for (auto& heading : lists.LabelErase) heading->set_caption("newer");
      lists.LabelErase.set_visible(true);
    };
    analysis.BuscarNoUtilizados(now, candidates);
    backend.on_pump = nullptr;
    return turns;
  };
  const int all = replaced_at(0);
  ASSERT_GT(all, 30);
  for (int last = 1; last <= all; ++last) {
    EXPECT_LE(replaced_at(last), last + 2) << "it went on";
    EXPECT_THAT(lists.List1.rows(), ElementsAre("newer")) << last;
    EXPECT_THAT(lists.ListBorrar.rows(), ElementsAre("newer")) << last;
    for (auto& heading : lists.LabelErase) {
      EXPECT_EQ(heading->caption(), "newer") << last;
      EXPECT_TRUE(heading->visible()) << last;
    }
  }
}

TEST_F(UnusedFiles, the_list_is_hidden_and_the_bar_runs_while_they_are_searched) {
  list_project("Mix\\tema.vip");
  for (int i = 10; i < 16; ++i) disk.write("Mix\\f" + std::to_string(i) + ".wav", "x");
  for (int i = 0; i < 9; ++i) lists.ListUtilizados.add("E:\\z" + std::to_string(i) + ".wav");
  candidates = analysis.ListarArchivosCarpetas(job);
  lists.ListBorrar.show();
  clock.step = std::chrono::milliseconds(20);              // each turn of a loop pumps
  std::vector<std::pair<std::int64_t, std::int64_t>> bar;  // the end of its range, and its value
  bool shown = false;
  backend.on_pump = [&] {
    shown = shown || lists.ListBorrar.visible();
    bar.emplace_back(strip.XP_ProgressBar1.maximum(), strip.XP_ProgressBar1.value());
  };
  analysis.BuscarNoUtilizados(job, candidates);
  EXPECT_FALSE(shown);
  EXPECT_TRUE(lists.ListBorrar.visible());
  EXPECT_THAT(bar, ::testing::Contains(::testing::Pair(9, 5))) << "first over the used files";
  EXPECT_THAT(bar, ::testing::Contains(::testing::Pair(6, 4))) << "then over the candidates";
}

// --- projects of the searched folders that have no row

struct ProjectsWithoutARow : UnusedFiles {
  // Lists these projects and searches their folders. Gives the paths that were left out.
  std::vector<std::string> left_out_of(const std::vector<std::string>& listed) {
    lists.ListProyectos.clear();
    for (const std::string& below : listed) list_project(below);
    return search_again();
  }
  std::vector<std::string> search_again() {
    job.folders().forget();
    left_out.clear();
    candidates = analysis.ListarArchivosCarpetas(job);
    std::vector<std::string> paths;
    for (const auto& each : work.ProyectosFuera) paths.push_back(each.ruta);
    return paths;
  }
};

TEST_F(ProjectsWithoutARow, are_those_of_this_search_and_not_of_the_one_before) {
  disk.write("Uno\\b.vip", "project");
  EXPECT_THAT(left_out_of({"Uno\\a.vip"}), ElementsAre(disk.path("Uno\\b.vip")));
  EXPECT_THAT(left_out_of({"Uno\\b.vip"}), ElementsAre(disk.path("Uno\\a.vip")))
      << "its row went with the search before";
  EXPECT_THAT(left_out_of({"Dos\\c.vip"}), IsEmpty());
}

TEST_F(ProjectsWithoutARow, are_reported_though_a_listed_project_has_gone) {
  disk.write("Uno\\b.vip", "project");
  lists.ListProyectos.add("1 --> " + disk.path("Uno\\gone.vip"));
  list_project("Uno\\a.vip");
  EXPECT_THAT(search_again(), ElementsAre(disk.path("Uno\\b.vip")));
}

TEST_F(ProjectsWithoutARow, are_not_reported_after_a_cancel) {
  disk.write("Uno\\b.vip", "project");
  list_project("Uno\\a.vip");
  work.Cancelar = true;
  EXPECT_THAT(search_again(), IsEmpty());
}

TEST_F(ProjectsWithoutARow, are_not_added_to_those_of_a_job_that_takes_the_place_of_the_search) {
  for (const char* name : {"b.vip", "c.vip", "x.wav"}) {
    disk.write(std::string("Uno\\Sub\\") + name, "x");
  }
  for (const char* name : {"Uno\\a.vip", "Dos\\a.vip", "Tres\\a.vip"}) list_project(name);
  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  int turns = 0;
  const auto replaced_at = [&](int last) {
    turns = 0;
    backend.on_pump = [&] {
      if (++turns != last) return;
      work.begin_job();
      left_out.clear();
      lists.List1.clear();
      lists.List1.add("newer");
    };
    const auto left = search_again();
    backend.on_pump = nullptr;
    return left;
  };
  EXPECT_THAT(replaced_at(0), SizeIs(2));
  const int all = turns;
  ASSERT_GT(all, 10);
  for (int last = 1; last <= all; ++last) {
    EXPECT_THAT(replaced_at(last), IsEmpty()) << last;
    EXPECT_THAT(lists.List1.rows(), ElementsAre("newer")) << last;
    EXPECT_LE(turns, last + 2) << "it went on";
  }
}

// --- the comparison of two files

TEST_F(UnusedFiles, files_are_equal_in_length_and_in_every_byte) {
  const std::string bytes(10'000, 'a');
  disk.write("igual.wav", bytes);
  disk.write("mismo.wav", bytes);
  disk.write("corto.wav", std::string(9'999, 'a'));
  disk.write("largo.wav", std::string(10'001, 'a'));
  disk.write("final.wav", std::string(9'999, 'a') + "b");
  disk.write("inicio.wav", "b" + std::string(9'999, 'a'));
  EXPECT_TRUE(equal("igual.wav", "mismo.wav"));
  EXPECT_TRUE(equal("igual.wav", "igual.wav"));
  for (const char* other : {"corto.wav", "largo.wav", "final.wav", "inicio.wav"}) {
    EXPECT_FALSE(equal("igual.wav", other)) << other;
    EXPECT_FALSE(equal(other, "igual.wav")) << other;
  }
}

TEST_F(UnusedFiles, files_that_cannot_be_read_to_their_ends_equal_nothing) {
  const std::string bytes(600'000, 'a');
  disk.write("igual.wav", bytes);
  disk.write("mismo.wav", bytes);
  FaultyFiles failing(disk.files());
  const system::Platform unlucky{failing, dialogs, backend, clock, regional, drives, shell, media};
  project::UnusedAnalysis other(unlucky, lists, strip, left_out);
  const auto same = [&] {
    return other.ComparaFiles(disk.path("igual.wav"), disk.path("mismo.wav"), job);
  };
  using Came = std::optional<std::size_t>;
  int reads = 0;
  int from = 0;
  Came came;
  failing.on_read = [&](std::uint64_t) { return ++reads > from ? came : Came(1 << 20); };
  from = 1'000;
  EXPECT_TRUE(same());
  const int all = reads;
  ASSERT_GE(all, 6) << "three blocks of each file";
  for (const Came each : {Came(), Came(0), Came(7)}) {
    came = each;
    for (from = 0; from < all; ++from) {
      reads = 0;
      EXPECT_FALSE(same()) << from;
    }
  }
}

TEST_F(UnusedFiles, a_comparison_ends_where_the_search_has_to) {
  disk.write("igual.wav", std::string(2'000'000, 'a'));
  disk.write("mismo.wav", std::string(2'000'000, 'a'));
  clock.step = std::chrono::milliseconds(20);
  int pumps = 0;
  backend.on_pump = [&] {
    ++pumps;
    work.Cancelar = true;
  };
  EXPECT_FALSE(equal("igual.wav", "mismo.wav"));
  EXPECT_EQ(pumps, 1);
}

TEST_F(UnusedFiles, long_files_that_differ_in_their_last_byte_are_not_equal) {
  const std::string bytes(700'000, 'a');
  disk.write("largo.wav", bytes);
  disk.write("mismo.wav", bytes);
  disk.write("final.wav", bytes.substr(1) + "b");
  EXPECT_TRUE(equal("largo.wav", "mismo.wav"));
  EXPECT_FALSE(equal("largo.wav", "final.wav"));
}

TEST_F(UnusedFiles, empty_files_are_equal) {
  disk.write("cero.wav", "");
  disk.write("nada.wav", "");
  disk.write("uno.wav", "1");
  EXPECT_TRUE(equal("cero.wav", "nada.wav"));
  EXPECT_FALSE(equal("cero.wav", "uno.wav"));
}

TEST_F(UnusedFiles, what_is_missing_or_no_file_or_has_no_name_equals_nothing) {
  disk.write("a.wav", "a");
  disk.make_folder("Carpeta");
  EXPECT_FALSE(equal("a.wav", "falta.wav"));
  EXPECT_FALSE(equal("falta.wav", "falta.wav"));
  EXPECT_FALSE(equal("Carpeta", "Carpeta"));
  EXPECT_FALSE(analysis.ComparaFiles("", disk.path("a.wav"), job));
  EXPECT_FALSE(analysis.ComparaFiles(disk.path("a.wav"), "", job));
  EXPECT_FALSE(analysis.ComparaFiles("", "", job));
}

TEST(CandidateKinds, agree_with_the_twenty_patterns_for_any_name) {
  constexpr std::string_view kPieces[] = {".",   "wav", "h2", "h",  "hdp", "fla", "c",  "aif", "f",
                                          "MP3", "x",   " ",  "hz", "HS",  "m4a", "..", "cue", "2"};
  Dice dice(1);
  std::size_t fitting = 0;
  for (int round = 0; round < 50'000; ++round) {
    std::string name;
    for (auto pieces = 1 + dice.below(5); pieces > 0; --pieces) {
      name += kPieces[dice.below(std::size(kPieces))];
    }
    std::vector<std::size_t> fits;
    for (std::size_t i = 0; i < project::kPatterns.size(); ++i) {
      if (text::matches(project::kPatterns[i], name)) fits.push_back(i);
    }
    const auto kind = project::kind_of(name);
    if (kind) {
      ASSERT_THAT(fits, ElementsAre(*kind)) << name;
      ++fitting;
    } else {
      ASSERT_THAT(fits, IsEmpty()) << name;
    }
  }
  EXPECT_GT(fitting, 2'000u);
}

TEST(CandidateKinds, short_extensions_stand_only_for_themselves) {
  EXPECT_EQ(project::kind_of("x.flac"), project::kind_of("x.fla"));
  EXPECT_EQ(project::kind_of("x.aiff"), project::kind_of("x.aif"));
  EXPECT_TRUE(project::kind_of("x.h2"));
  EXPECT_FALSE(project::kind_of("x.h2x"));
  EXPECT_FALSE(project::kind_of("x"));
  EXPECT_FALSE(project::kind_of("wav"));
  EXPECT_FALSE(project::is_offered("x.fla"));
  EXPECT_FALSE(project::is_offered("x.aiff"));
  EXPECT_FALSE(project::is_offered("wav"));
  EXPECT_TRUE(project::is_offered("xflac"));
  EXPECT_TRUE(project::is_offered("x.WaV"));
}

TEST(UsedStrike, the_disk_is_asked_only_about_namesakes_and_never_about_a_path_and_itself) {
  std::vector<std::string> compared;
  std::vector<std::string> looked_up;
  const project::DiskQuestions disk = {[&](const std::string& path) {
                                         looked_up.push_back(path);
                                         return true;
                                       },
                                       [&](const std::string& a, const std::string& b) {
                                         compared.push_back(a + " " + b);
                                         return false;
                                       }};
  const auto struck =
      project::strike_used({"D:\\a.wav", "D:\\n.wav"},
                           candidates_of({"D:\\a.wav", "D:\\b.wav", "D:\\c.wav", "E:\\a.wav"}),
                           disk, [](std::size_t) { return true; });
  EXPECT_THAT(struck, ElementsAre(true, true, false, false));
  EXPECT_THAT(compared, ElementsAre("D:\\a.wav E:\\a.wav"));
  EXPECT_THAT(looked_up, ElementsAre("D:\\a.wav")) << "the candidates have been listed";
}

TEST(UsedStrike, a_namesake_that_is_listed_twice_is_compared_once_with_each_used_file) {
  std::vector<std::string> compared;
  const project::DiskQuestions disk = {[](const std::string&) { return true; },
                                       [&](const std::string& a, const std::string& b) {
                                         compared.push_back(a + " " + b);
                                         return a == "E:\\a.wav";
                                       }};
  const auto struck =
      project::strike_used({"F:\\a.wav", "E:\\a.wav"},
                           candidates_of({"D:\\a.wav", "D:\\b.wav", "D:\\a.wav", "D:\\c.wav"}),
                           disk, [](std::size_t) { return true; });
  EXPECT_THAT(struck, ElementsAre(true, false, true, false));
  EXPECT_THAT(compared, ElementsAre("F:\\a.wav D:\\a.wav", "E:\\a.wav D:\\a.wav"));
}

TEST(UsedStrike, a_stop_while_the_names_are_collected_ends_it_at_once) {
  const project::DiskQuestions disk = {[](const std::string&) { return true; },
                                       [](const std::string&, const std::string&) { return true; }};
  std::vector<std::string> candidates;
  for (int i = 0; i < 20'000; ++i) candidates.push_back("D:\\" + std::to_string(i) + ".wav");
  int turns = 0;
  const auto struck =
      project::strike_used({"D:\\7.wav"}, candidates_of(candidates), disk, [&](std::size_t) {
        ++turns;
        return false;
      });
  EXPECT_EQ(turns, 2) << "once for the names, once for the used files";
  EXPECT_THAT(struck, ::testing::Each(false));
}

TEST(UsedStrike, a_stop_leaves_the_rest_unstruck) {
  const project::DiskQuestions disk = {[](const std::string&) { return true; },
                                       [](const std::string&, const std::string&) { return true; }};
  const auto struck = project::strike_used({"D:\\a.wav", "D:\\c.wav"},
                                           candidates_of({"D:\\a.wav", "D:\\b.wav", "D:\\c.wav"}),
                                           disk, [](std::size_t i) { return i < 1; });
  EXPECT_THAT(struck, ElementsAre(true, true, false));
}

}  // namespace
}  // namespace ordelan::test
