// The report of lost files, in the whole program without a screen.
#include "location/lost_files.h"

#include <gmock/gmock.h>

#include "location/lost_file_window.h"
#include "support/program_bench.h"
#include "text/code_page.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string kRule(100, '-');

struct LostFileReport : ::testing::Test {
  LostFileReport() { bench.disk.write("Mix\\ok.wav", ""); }

  std::string path(const std::string& below) const { return bench.disk.path(below); }
  void write_project(const std::string& name, const std::vector<std::string>& below) {
    std::vector<std::string> paths;
    for (const std::string& each : below) paths.push_back(path(each));
    bench.disk.write(name, project_of(paths));
  }
  location::Perdidos& window() { return *bench.windows.touch<location::Perdidos>(); }
  const std::vector<std::string>& rows() { return window().ListPerdidos.rows(); }
  void report() {
    auto job = work::Job::join(bench.work, bench.platform);
    bench.form.lost_files().LlenarPerdidos(job);
  }
  bool report_offered() const { return bench.form.cmdPerdidos.visible(); }
  std::string saved(const std::string& below) {
    const auto file = bench.disk.files().open(path(below));
    if (!file) return "(no file)";
    std::string bytes(static_cast<std::size_t>(file->size()), '\0');
    file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }

  ProgramBench bench;
};

TEST_F(LostFileReport, one_lost_file_in_one_project_stands_under_the_projects_title) {
  write_project("Mix\\tema.vip", {"Mix\\ok.wav", "Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  EXPECT_THAT(rows(), ElementsAre("1 --> " + path("Mix\\tema.vip"), path("Mix\\lost.wav")));
  EXPECT_EQ(window().TextEncontrados.caption(), "Encontrados: 2 archivos perdidos o desubicados");
  EXPECT_TRUE(report_offered());
  EXPECT_FALSE(window().visible());
}

TEST_F(LostFileReport, projects_that_lost_nothing_keep_their_titles) {
  write_project("Mix\\a.vip", {"Mix\\ok.wav"});
  write_project("Mix\\b.vip", {"Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\a.vip");
  EXPECT_THAT(rows(), ElementsAre("1 --> " + path("Mix\\a.vip"), kRule,
                                  "2 --> " + path("Mix\\b.vip"), path("Mix\\lost.wav")));
}

TEST_F(LostFileReport, a_file_lost_in_three_projects_stands_once) {
  for (const char* name : {"Mix\\a.vip", "Mix\\b.vip", "Mix\\c.vip"}) {
    write_project(name, {"Mix\\lost.wav"});
  }
  bench.start();
  bench.open("Mix\\a.vip");
  EXPECT_THAT(rows(),
              ElementsAre("1 --> " + path("Mix\\a.vip"), path("Mix\\lost.wav"), kRule,
                          "2 --> " + path("Mix\\b.vip"), kRule, "3 --> " + path("Mix\\c.vip")));
}

TEST_F(LostFileReport, repeats_are_struck_out_in_the_report_too) {
  bench.start();
  const std::string lost = path("Mix\\lost.wav");
  bench.form.lists.ListUtilizados.add(
      std::vector<std::string>{"1 --> " + path("a.vip"), lost, "2 --> " + path("b.vip"), lost});
  report();
  EXPECT_THAT(rows(), ElementsAre("1 --> " + path("a.vip"), lost, kRule, "2 --> " + path("b.vip")));
}

// Folders with many used files are listed, others asked file by file: the answers are the same.
TEST_F(LostFileReport, what_is_lost_does_not_depend_on_how_many_files_a_folder_has) {
  bench.start();
  std::vector<std::string> used;
  std::vector<std::string> lost;
  for (const int count : {1, 15, 16, 40}) {
    const std::string folder = "n" + std::to_string(count) + "\\";
    for (int i = 0; i < count; ++i) {
      const std::string name = folder + "Toma " + std::to_string(i) + ".wav";
      used.push_back(path(i % 3 == 0 ? text::lower(name) : name));
      if (i % 4 == 0) {
        lost.push_back(used.back());
      } else {
        bench.disk.write(name, "");
      }
    }
    for (const char* odd : {"z.", "carpeta", "LARGO~1.WAV"}) {
      used.push_back(path(folder + odd));
      lost.push_back(used.back());
    }
    bench.disk.make_folder(folder + "carpeta");
  }
  bench.form.lists.ListUtilizados.add(used);
  report();
  EXPECT_EQ(rows(), lost);
}

// A name with ten hyphens looks like a separator to the code that strikes out repeats.
TEST_F(LostFileReport, a_lost_name_with_ten_hyphens_may_stand_twice) {
  bench.start();
  const std::string lost = path("Mix\\a----------b.wav");
  bench.form.lists.ListUtilizados.add(std::vector<std::string>{lost, lost});
  report();
  EXPECT_THAT(rows(), ElementsAre(lost, lost));
}

TEST_F(LostFileReport, a_single_project_without_losses_offers_no_report) {
  write_project("Mix\\tema.vip", {"Mix\\ok.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  EXPECT_THAT(rows(), ElementsAre("1 --> " + path("Mix\\tema.vip")));
  EXPECT_FALSE(report_offered());
}

TEST_F(LostFileReport, without_any_row_no_report_is_offered) {
  bench.start();
  report();
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_FALSE(report_offered());
  EXPECT_EQ(window().TextEncontrados.caption(), "Encontrados: 0 archivos perdidos o desubicados");
}

TEST_F(LostFileReport, a_row_that_no_disk_could_hold_is_lost) {
  bench.start();
  bench.form.lists.ListUtilizados.add(
      std::vector<std::string>{"1 --> x.vip", "D:\\a?.wav", "toma"});
  report();
  EXPECT_THAT(rows(), ElementsAre("1 --> x.vip", "D:\\a?.wav", "toma"));
}

TEST_F(LostFileReport, a_sweep_offers_the_report_in_every_case) {
  write_project("Mix\\tema.vip", {"Mix\\ok.wav"});
  bench.start();
  bench.form.ListProyectos_Drop({path("Mix\\tema.vip")});
  EXPECT_THAT(rows(), ElementsAre("1 --> " + path("Mix\\tema.vip")));
  EXPECT_TRUE(report_offered());
}

TEST_F(LostFileReport, the_decode_of_one_project_offers_the_existing_report) {
  write_project("Mix\\tema.vip", {"Mix\\ok.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  ASSERT_FALSE(report_offered());
  bench.double_click(0);
  EXPECT_TRUE(report_offered());
}

TEST_F(LostFileReport, a_reset_during_the_report_leaves_it_empty) {
  std::vector<std::string> many;
  for (int i = 0; i < 50; ++i) many.push_back("Mix\\lost" + std::to_string(i) + ".wav");
  write_project("Mix\\tema.vip", many);
  bench.start();
  bench.in_the_middle([&] { return bench.form.SalvaListados.visible(); },
                      [&] { bench.form.cmdReset_Click(); });
  bench.open("Mix\\tema.vip");
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_TRUE(bench.form.lists.empty());
  EXPECT_FALSE(report_offered());
  EXPECT_FALSE(bench.form.ZoomListas.visible());
}

TEST_F(LostFileReport, a_cancel_during_the_report_leaves_the_window_empty) {
  std::vector<std::string> many;
  for (int i = 0; i < 50; ++i) many.push_back("Mix\\lost" + std::to_string(i) + ".wav");
  write_project("Mix\\tema.vip", many);
  bench.start();
  bench.in_the_middle([&] { return bench.form.SalvaListados.visible(); },
                      [&] { bench.form.cmdCancelar_Click(); });
  bench.open("Mix\\tema.vip");
  EXPECT_LT(rows().size(), 20u);  // as far as it got
  EXPECT_TRUE(bench.form.lists.empty());
  EXPECT_FALSE(bench.work.Descodificando);
}

TEST_F(LostFileReport, the_button_shows_the_window_and_puts_it_away) {
  write_project("Mix\\tema.vip", {"Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  bench.settings.set_number("Perdidos_Left", 33);
  bench.settings.set_number("Perdidos_Top", 44);
  bench.form.cmdPerdidos.on_click();
  EXPECT_TRUE(window().visible());
  EXPECT_TRUE(window().topmost());
  EXPECT_EQ(window().position(), (ui::Point{33, 44}));
  EXPECT_EQ(rows().size(), 2u);
  window().moved_to({55, 66});
  bench.form.cmdPerdidos.on_click();
  EXPECT_FALSE(window().visible());
  EXPECT_EQ(bench.settings.number("Perdidos_Left", 0), 55);
  EXPECT_EQ(bench.settings.number("Perdidos_Top", 0), 66);
}

TEST_F(LostFileReport, the_button_does_nothing_while_files_are_removed) {
  write_project("Mix\\tema.vip", {"Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  bench.work.Borrando = true;
  bench.form.cmdPerdidos.on_click();
  EXPECT_FALSE(window().visible());
}

TEST_F(LostFileReport, a_closed_window_comes_back_with_the_same_report_where_it_was) {
  write_project("Mix\\tema.vip", {"Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  bench.form.cmdPerdidos.on_click();
  window().moved_to({70, 80});
  window().Salir.on_click();
  EXPECT_EQ(bench.windows.find("Perdidos"), nullptr);
  bench.form.cmdPerdidos.on_click();
  EXPECT_TRUE(window().visible());
  EXPECT_EQ(window().position(), (ui::Point{70, 80}));
  EXPECT_EQ(rows().size(), 2u);
  EXPECT_EQ(window().TextEncontrados.caption(), "Encontrados: 2 archivos perdidos o desubicados");
  window().cmdSalir.on_click();
  EXPECT_EQ(bench.windows.find("Perdidos"), nullptr);
}

TEST_F(LostFileReport, an_open_window_follows_the_next_project) {
  write_project("Mix\\tema.vip", {"Mix\\lost.wav"});
  write_project("Otra\\dos.vip", {"Otra\\x.wav", "Otra\\y.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  bench.form.cmdPerdidos.on_click();
  ASSERT_EQ(rows().size(), 2u);
  bench.open("Otra\\dos.vip");
  EXPECT_THAT(rows(), ElementsAre("1 --> " + path("Otra\\dos.vip"), path("Otra\\x.wav"),
                                  path("Otra\\y.wav")));
  EXPECT_EQ(window().TextEncontrados.caption(), "Encontrados: 3 archivos perdidos o desubicados");
  EXPECT_TRUE(window().ListPerdidos.visible());
  EXPECT_GT(window().ListPerdidos.horizontal_extent(), 0);
}

TEST_F(LostFileReport, the_button_fills_the_window_anew_and_restores_a_minimised_one) {
  write_project("Mix\\tema.vip", {"Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  window().ListPerdidos.clear();
  window().set_minimized(true);
  bench.form.cmdPerdidos.on_click();
  EXPECT_EQ(rows().size(), 2u);
  EXPECT_FALSE(window().minimized());
}

TEST_F(LostFileReport, its_first_button_minimises_it) {
  bench.start();
  window().show();
  window().Button2.on_click();
  EXPECT_TRUE(window().minimized());
}

TEST_F(LostFileReport, the_list_is_saved_row_by_row_without_a_head) {
  write_project("Mix\\tema.vip", {"Mix\\lost.wav"});
  bench.start();
  bench.open("Mix\\tema.vip");
  bench.dialogs.saves.push_back(path("perdidos.log"));
  window().cmdLog.on_click();
  EXPECT_EQ(saved("perdidos.log"),
            "1 --> " + path("Mix\\tema.vip") + "\r\n" + path("Mix\\lost.wav") + "\r\n");
  ASSERT_EQ(bench.dialogs.save_requests.size(), 1u);
  EXPECT_EQ(bench.dialogs.save_requests[0].filter, "Archivos log (*.log)|*.log");
  EXPECT_EQ(bench.dialogs.save_requests[0].extension, "*.log");
}

TEST_F(LostFileReport,
       nothing_is_saved_when_the_dialog_is_cancelled_or_the_file_cannot_be_written) {
  bench.start();
  window().cmdLog.on_click();
  EXPECT_FALSE(window().SalvarLog(""));
  EXPECT_FALSE(window().SalvarLog(path("nada\\perdidos.log")));
  EXPECT_THAT(bench.dialogs.messages, IsEmpty());
}

// --- the quick question

struct QuickQuestion : LostFileReport {
  void list(const std::vector<std::string>& shown, const std::vector<std::string>& used) {
    bench.start();
    bench.form.lists.ListVip.add(shown);
    bench.form.lists.ListUtilizados.add(used);
  }
  bool HayPerdidos() { return bench.form.lost_files().HayPerdidos(); }
};

TEST_F(QuickQuestion, no_rows_no_losses) {
  list({}, {});
  EXPECT_FALSE(HayPerdidos());
}

TEST_F(QuickQuestion, a_lost_file_of_the_shown_project_counts) {
  list({path("Mix\\ok.wav"), path("Mix\\lost.wav")}, {});
  EXPECT_TRUE(HayPerdidos());
}

// The row's number comes from one list and the text from the other.
TEST_F(QuickQuestion, rows_are_counted_in_one_list_and_read_in_the_other) {
  const std::string ok = path("Mix\\ok.wav");
  list({ok, ok}, {"1 --> x.vip", path("Mix\\lost.wav")});
  EXPECT_FALSE(HayPerdidos()) << "row 1 of ListVip is read, and it is there";
  bench.form.lists.ListUtilizados.add(ok);
  EXPECT_TRUE(HayPerdidos()) << "row 2 of ListVip is none";
}

TEST_F(QuickQuestion, titles_of_projects_are_ignored) {
  list({path("Mix\\ok.wav")}, {"1 --> x.vip", "2 --> y.vip", "3 --> z.vip"});
  EXPECT_FALSE(HayPerdidos());
}

}  // namespace
}  // namespace ordelan::test
