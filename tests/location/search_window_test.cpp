#include "location/search_window.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;

struct SearchWindow : ::testing::Test {
  ProgramBench bench;

  // As a job that joins what is under way.
  bool BuscarVips() {
    auto job = work::Job::join(bench.work, bench.platform);
    return bench.buscar().BuscarVips(job);
  }
};

TEST_F(SearchWindow, cuts_paths) {
  bench.start();
  const location::Buscar& buscar = bench.buscar();
  EXPECT_EQ(buscar.Obtener_Nombre_Archivo("D:\\Mix\\toma.wav"), "toma.wav");
  EXPECT_EQ(buscar.Obtener_Nombre_Path("12 --> D:\\Mix\\toma.wav", true), "D:\\Mix\\");
  EXPECT_EQ(buscar.Obtener_Nombre_Path("12 --> D:\\Mix\\toma.wav", false), "D:\\Mix");
  EXPECT_EQ(buscar.Obtener_VipPath("12 --> D:\\Mix\\tema.vip"), "D:\\Mix\\tema.vip");
  EXPECT_EQ(buscar.Obtener_Extension("D:\\Mix\\toma.WAV"), "WAV");
}

TEST_F(SearchWindow, asks_for_a_folder) {
  bench.start();
  bench.dialogs.folders.push_back("D:\\Copia");
  EXPECT_EQ(bench.buscar().ElegirCarpeta("Elige una carpeta"), "D:\\Copia");
  EXPECT_THAT(bench.dialogs.folder_titles, ElementsAre("Elige una carpeta"));
}

TEST_F(SearchWindow, is_never_shown) {
  bench.start();
  bench.buscar();
  EXPECT_FALSE(bench.windows.visible("Buscar"));
}

TEST_F(SearchWindow, refuses_a_project_among_frozen_tracks_without_reading_it) {
  bench.disk.write("FreezeData\\tema.vip", project_of({"D:\\a.wav"}));
  bench.disk.write("Mix\\tema.vip", project_of({"D:\\a.wav"}));
  bench.disk.write("Mix\\midi.vip", project_of({}));
  bench.start();
  EXPECT_FALSE(bench.buscar().Valido(bench.disk.path("FreezeData\\tema.vip")));
  EXPECT_TRUE(bench.buscar().Valido(bench.disk.path("Mix\\tema.vip")));
  EXPECT_FALSE(bench.buscar().Valido(bench.disk.path("Mix\\midi.vip")));
  EXPECT_FALSE(bench.buscar().Valido(bench.disk.path("Mix\\nada.vip")));
}

TEST_F(SearchWindow, lists_the_valid_projects_of_a_folder_and_below) {
  const std::string audio = project_of({"D:\\a.wav"});
  bench.disk.write("Mix\\b.vip", audio);
  bench.disk.write("Mix\\Viejo\\a.VIP", audio);
  bench.disk.write("Mix\\midi.vip", project_of({}));
  bench.disk.write("Otra\\c.vip", audio);
  bench.start();
  location::Buscar& buscar = bench.buscar();
  buscar.Text1.set_text(bench.disk.path("Mix\\"));
  EXPECT_TRUE(BuscarVips());
  EXPECT_THAT(buscar.List2.rows(),
              ElementsAre(bench.disk.path("Mix\\b.vip"), bench.disk.path("Mix\\midi.vip"),
                          bench.disk.path("Mix\\Viejo\\a.VIP")));
  EXPECT_THAT(bench.form.lists.ListProyectos.rows(),
              ElementsAre(bench.disk.path("Mix\\b.vip"), bench.disk.path("Mix\\Viejo\\a.VIP")));
  EXPECT_EQ(bench.form.lists.List1.rows(), bench.form.lists.ListProyectos.rows())
      << "the list that the sweep numbers";
  EXPECT_TRUE(buscar.List1.empty()) << "what was only asked leaves no row";
  buscar.Text1.set_text(bench.disk.path("nada"));
  EXPECT_FALSE(BuscarVips());
  EXPECT_TRUE(buscar.List2.empty());
}

// Where nothing is swept afterwards, only the search itself can have seen them.
TEST_F(SearchWindow, reports_which_projects_and_folders_a_search_could_not_look_at) {
  bench.disk.make_folder("Mix\\Sub");
  bench.disk.make_folder("Otra");
  std::error_code failed;
  std::filesystem::create_directory_symlink(bench.disk.native_path("Otra"),
                                            bench.disk.native_path("Mix\\enlace"), failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  for (const auto* name : {u8"tema \u2603.vip", u8"notas \u2603.txt"}) {
    std::ofstream(bench.disk.native_path("Mix\\Sub") / name) << "x";
  }
  bench.disk.write("Mix\\midi.vip", project_of({}));
  bench.start();
  bench.buscar().Text1.set_text(bench.disk.path("Mix"));
  EXPECT_FALSE(BuscarVips());
  std::vector<std::string> left_out;
  for (const auto& each : bench.work.ProyectosFuera) {
    left_out.push_back(each.ruta + ": " + each.motivo);
  }
  EXPECT_THAT(
      left_out,
      ::testing::UnorderedElementsAre(
          bench.disk.path("Mix\\enlace\\: ") + project::motivo(project::WhyOut::linked),
          bench.disk.path("Mix\\Sub\\tema ?.vip: ") + project::motivo(project::WhyOut::unnamed),
          bench.disk.path("Mix\\midi.vip: ") + project::motivo(project::WhyOut::no_audio)));
}

TEST_F(SearchWindow, a_search_for_projects_that_is_replaced_at_any_turn_finds_none) {
  for (const char* name : {"Mix\\a.vip", "Mix\\b.vip", "Mix\\Sub\\c.vip"}) {
    bench.disk.write(name, project_of({"D:\\a.wav"}));
  }
  bench.disk.write("Mix\\Sub\\midi.vip", project_of({}));
  bench.start();
  work::WorkLists& lists = bench.form.lists;
  int turns = 0;
  const auto replaced_at = [&](int last) {
    lists.ListProyectos.clear();
    lists.List1.clear();
    bench.buscar().Text1.set_text(bench.disk.path("Mix"));
    turns = 0;
    bench.backend.on_pump = [&] {
      if (++turns != last) return;
      bench.work.begin_job();
      lists.ListProyectos.add("newer");
      lists.List1.add("newer");
      bench.work.ProyectosFuera.clear();
    };
    const bool found = BuscarVips();
    bench.backend.on_pump = nullptr;
    return found;
  };
  EXPECT_TRUE(replaced_at(0));
  const int all = turns;
  ASSERT_GT(all, 6);
  for (int last = 1; last <= all; ++last) {
    EXPECT_FALSE(replaced_at(last)) << last;
    EXPECT_LE(turns, last + 2) << "it went on";
    EXPECT_THAT(lists.ListProyectos.rows(), ElementsAre("newer")) << last;
    EXPECT_THAT(lists.List1.rows(), ElementsAre("newer")) << last;
    EXPECT_TRUE(bench.work.ProyectosFuera.empty()) << last;
  }
}

TEST_F(SearchWindow, a_cancelled_search_for_projects_keeps_those_that_it_has_found) {
  for (const char* name : {"a.vip", "b.vip", "c.vip"}) {
    bench.disk.write(std::string("Mix\\") + name, project_of({"D:\\a.wav"}));
  }
  bench.start();
  bench.buscar().Text1.set_text(bench.disk.path("Mix"));
  // The hits exist once the search itself is over; then each is read.
  bench.in_the_middle([&] { return bench.buscar().List2.count() == 3; },
                      [&] { bench.work.Cancelar = true; });
  EXPECT_TRUE(BuscarVips());
  EXPECT_EQ(bench.form.lists.ListProyectos.count(), 1u) << "it stops at the first look";
}

TEST_F(SearchWindow, the_first_projects_of_a_drop_take_the_place_of_what_the_lists_held) {
  bench.disk.write("Mix\\b.vip", project_of({"D:\\a.wav"}));
  bench.disk.write("Vacia\\midi.vip", project_of({}));
  bench.start();
  location::Buscar& buscar = bench.buscar();
  work::WorkLists& lists = bench.form.lists;
  lists.List1.add("D:\\antes\\toma.h2");
  lists.ListProyectos.add("1 --> D:\\antes\\tema.vip");
  buscar.List1.add("antes");
  buscar.Text1.set_text(bench.disk.path("Vacia"));
  EXPECT_FALSE(BuscarVips());
  EXPECT_THAT(lists.List1.rows(), ElementsAre("D:\\antes\\toma.h2")) << "nothing was found yet";
  EXPECT_THAT(lists.ListProyectos.rows(), ElementsAre("1 --> D:\\antes\\tema.vip"));
  buscar.Text1.set_text(bench.disk.path("Mix"));
  EXPECT_TRUE(BuscarVips());
  EXPECT_THAT(lists.List1.rows(), ElementsAre(bench.disk.path("Mix\\b.vip")));
  EXPECT_THAT(lists.ListProyectos.rows(), ElementsAre(bench.disk.path("Mix\\b.vip")));
  EXPECT_THAT(buscar.List1.rows(), ElementsAre("antes"));
}

TEST_F(SearchWindow, the_projects_of_a_folder_follow_those_that_were_dropped_before_it) {
  bench.disk.write("Mix\\b.vip", project_of({"D:\\a.wav"}));
  bench.start();
  work::WorkLists& lists = bench.form.lists;
  bench.work.PrimerProyecto = bench.disk.path("a.vip");
  lists.List1.add(bench.disk.path("a.vip"));
  lists.ListProyectos.add("1 --> " + bench.disk.path("a.vip"));
  bench.buscar().Text1.set_text(bench.disk.path("Mix"));
  EXPECT_TRUE(BuscarVips());
  EXPECT_THAT(lists.List1.rows(),
              ElementsAre(bench.disk.path("a.vip"), bench.disk.path("Mix\\b.vip")));
  EXPECT_THAT(lists.ListProyectos.rows(),
              ElementsAre("1 --> " + bench.disk.path("a.vip"), bench.disk.path("Mix\\b.vip")));
}

}  // namespace
}  // namespace ordelan::test
