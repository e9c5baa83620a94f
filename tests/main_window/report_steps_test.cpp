// Single steps of the saving of reports and of a sweep, each of which a user would miss.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "main_window/main_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

struct ReportSteps : ::testing::Test, ProgramBench {
  ReportSteps() {
    start();
    project("Mix\\a.vip", {"Mix\\a.wav", "Mix\\a2.wav"});
    project("Mix\\b.vip", {"Mix\\b.wav"});
  }

  std::vector<std::string> reports() {
    std::vector<std::string> found;
    const auto entries = disk.files().list(disk.path("Mix\\Listados"));
    if (!entries) return found;
    for (const auto& entry : *entries) found.push_back(entry.name);
    return found;
  }
};

TEST_F(ReportSteps, there_is_one_for_each_project_and_two_for_all) {
  open("Mix\\a.vip");
  form.SalvaListados_Click();
  EXPECT_THAT(reports(), UnorderedElementsAre("Archivos de a.vip.log", "Archivos de b.vip.log",
                                              "Archivos Totales.log", "Archivos a Borrar.log"));
}

TEST_F(ReportSteps, a_stop_asked_of_an_earlier_job_stops_no_report) {
  open("Mix\\a.vip");
  work.Cancelar = true;
  form.SalvaListados_Click();
  EXPECT_THAT(reports(), ::testing::SizeIs(4));
}

TEST_F(ReportSteps, small_projects_too_give_the_window_a_turn_each) {
  open("Mix\\a.vip");
  int turns = 0;
  backend.on_pump = [&] { ++turns; };
  form.SalvaListados_Click();
  EXPECT_GE(turns, 2);
}

TEST_F(ReportSteps, nothing_else_begins_while_they_are_saved) {
  open("Mix\\a.vip");
  bool busy = true;
  backend.on_pump = [&] { busy = busy && work.Descodificando; };
  form.SalvaListados_Click();
  EXPECT_TRUE(busy);
  EXPECT_FALSE(work.Descodificando);
}

TEST_F(ReportSteps, the_row_that_is_chosen_stays_so_each_time) {
  open("Mix\\a.vip");
  for (const int chosen : {1, 0, -1}) {
    form.lists.ListVip.set_current(chosen);
    form.SalvaListados_Click();
    EXPECT_EQ(form.lists.ListVip.current(), chosen);
  }
}

// The picked project has lost its audio between the check and its reading: nothing of it is shown.
TEST_F(ReportSteps, a_list_that_was_hidden_is_hidden_again) {
  in_the_middle([&] { return work.Descodificando; },
                [&] { disk.write("Mix\\a.vip", project_of({})); });
  open("Mix\\a.vip");
  ASSERT_FALSE(form.lists.ListVip.visible());
  ASSERT_TRUE(form.lists.LabelCount[0].visible());
  ASSERT_FALSE(form.lists.LabelCount[1].visible());
  const std::string heading = form.lists.LabelCount[0].caption();
  form.SalvaListados_Click();
  EXPECT_FALSE(form.lists.ListVip.visible());
  EXPECT_TRUE(form.lists.ListVip.empty());
  EXPECT_EQ(form.lists.LabelCount[0].caption(), heading);
  EXPECT_TRUE(form.lists.LabelCount[0].visible());
  EXPECT_FALSE(form.lists.LabelCount[1].visible());
}

// A reading that can be watched: it takes several turns.
struct SweepSteps : ReportSteps {
  SweepSteps() { disk.write("Mix\\a.vip", project_of({disk.path("Mix\\a.wav")}, 1'000'000)); }

  bool decoding() { return form.strip.TextDecode.text().starts_with("Descodificando: "); }
};

TEST_F(SweepSteps, the_clock_of_a_sweep_begins_when_its_first_project_is_read) {
  double read_at = -1;
  backend.on_pump = [&] {
    if (read_at >= 0) return;
    if (decoding()) {
      read_at = form.clocks.LapsoDeco;
    } else {
      form.clocks.LapsoDeco = 1000;
    }
  };
  drop({"Mix\\a.vip"});
  EXPECT_GE(read_at, 0);
  EXPECT_LT(read_at, 1000);
  EXPECT_FALSE(form.clocks.TimerLap.running());
  EXPECT_EQ(form.clocks.TimeDeco.text(), form.clocks.TextLapsoTotal.text());
}

TEST_F(SweepSteps, the_clock_of_a_drop_begins_with_the_drop) {
  double first = -1;
  form.clocks.LapsoDeco = 1000;
  backend.on_pump = [&] {
    if (first < 0) first = form.clocks.LapsoDeco;
  };
  drop({"Mix\\a.vip"});
  EXPECT_GE(first, 0);
  EXPECT_LT(first, 1000);
}

TEST_F(SweepSteps, the_strip_names_the_project_that_is_read) {
  std::vector<std::string> named;
  std::vector<ui::Color> colours;
  backend.on_pump = [&] {
    if (!decoding() || !form.strip.TextDecode.visible()) return;
    if (!named.empty() && named.back() == form.strip.TextDecode.text()) return;
    named.push_back(form.strip.TextDecode.text());
    colours.push_back(form.strip.TextDecode.back_color());
  };
  const std::string path = disk.path("Mix\\a.vip");
  drop({"Mix\\a.vip"});
  EXPECT_THAT(named, ElementsAre("Descodificando: " + path, "Descodificando: 1 --> " + path));
  EXPECT_THAT(colours, ::testing::Each(ui::Color{0xC0E0FF}));
  EXPECT_EQ(form.strip.TextDecode.text(), ": ");

  named.clear();
  double_click(0);
  EXPECT_THAT(named, ElementsAre("Descodificando: " + path));
  EXPECT_EQ(form.strip.TextDecode.text(), ": ");
}

TEST_F(SweepSteps, nothing_of_the_work_before_is_left_in_the_caption_of_the_clock) {
  form.clocks.LabelD.set_caption("Tiempo actualización");
  std::string during;
  backend.on_pump = [&] { during = form.clocks.LabelD.caption(); };
  drop({"Mix\\a.vip"});
  EXPECT_EQ(during, "Tiempo descodificación");
}

TEST_F(SweepSteps, a_sweep_is_busy_until_its_end) {
  form.lists.List1.add(disk.path("Mix\\a.vip"));
  work.RutaProyectos = disk.path("Mix\\");
  int turns = 0;
  bool busy = true;
  backend.on_pump = [&] {
    ++turns;
    busy = busy && work.Descodificando;
  };
  auto job = work::Job::begin(work, platform);
  EXPECT_TRUE(form.BarrerProyectos(job));
  EXPECT_GT(turns, 0);
  EXPECT_TRUE(busy);
  EXPECT_FALSE(work.Descodificando) << "the job still lives";
  EXPECT_TRUE(form.ZoomListas.visible());
}

TEST_F(SweepSteps, a_drop_is_busy_from_its_first_turn) {
  int turns = 0;
  bool busy = true;
  backend.on_pump = [&] {
    ++turns;
    busy = busy && work.Descodificando;
  };
  drop({"Mix"});
  EXPECT_GT(turns, 0);
  EXPECT_TRUE(busy);
}

TEST_F(SweepSteps, a_drop_has_the_reasons_and_the_kept_files_of_no_other) {
  project("Otro\\z.vip", {"Otro\\z.wav"});
  drop({"Mix\\nada.vip", "Mix\\a.vip"});
  ASSERT_TRUE(form.LabelFuera.visible());
  in_the_middle([] { return true; },
                [&] {
                  EXPECT_FALSE(form.LabelFuera.visible());
                  EXPECT_TRUE(work.ProyectosFuera.empty());
                });
  drop({"Otro"});
  EXPECT_TRUE(work.ProyectosFuera.empty());
  EXPECT_FALSE(form.LabelFuera.visible());
}

TEST_F(SweepSteps, what_a_sweep_leaves_out_is_counted_at_its_end) {
  project("Mix\\Dos\\c.vip", {"Mix\\Dos\\c.wav"});
  drop({"Mix\\a.vip"});
  EXPECT_FALSE(work.ProyectosFuera.empty());
  EXPECT_TRUE(form.LabelFuera.visible());
  EXPECT_EQ(form.LabelFuera.caption(),
            std::to_string(work.ProyectosFuera.size()) + " proyectos no cuentan");
}

}  // namespace
}  // namespace ordelan::test
