#include "project/project_decoding.h"

#include <gmock/gmock.h>

#include "project/literal_analysis.h"
#include "support/faulty_files.h"
#include "support/hostile_bytes.h"
#include "support/program_bench.h"
#include "support/work_bench.h"
#include "text/rows.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The decoding of all listed projects on a real disk.
struct AllProjects : ::testing::Test, WorkBench {
  void list_project(const std::string& below, const std::vector<std::string>& used,
                    std::size_t padding = 0) {
    WorkBench::list_project(below, project_of(used, padding));
  }
  std::string row(int number, const std::string& below) const {
    return std::to_string(number) + " --> " + disk.path(below);
  }
  const std::vector<std::string>& used() const { return lists.ListUtilizados.rows(); }
  const std::string& totals() const { return lists.LabelAdd[0].caption(); }

  project::VipReader reader{platform, work, strip.XP_ProgressBar1};
  project::LeftOut left_out{work};
  work::Job job = work::Job::join(work, platform);
  project::ProjectDecoding decoding{platform, work, lists, strip, reader, left_out};

  // The same disk, whose reads can fail.
  FaultyFiles broken{disk.files()};
  system::Platform broken_platform{broken, dialogs, backend, clock, regional, drives, shell, media};
  project::VipReader broken_reader{broken_platform, work, strip.XP_ProgressBar1};
};

TEST_F(AllProjects, give_a_header_and_their_files_each) {
  work.RutaProyectos = disk.path("Mix\\");
  list_project("Mix\\tema.vip", {"D:\\a.wav", "D:\\b.mp3"});
  list_project("Mix\\otro.vip", {"D:\\c.wav"});
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav", "D:\\b.mp3",
                                  row(2, "Mix\\otro.vip"), "D:\\c.wav"));
  EXPECT_EQ(totals(), "3  archivos en: 2 proyectos, 0 duplicados; Total: 3");
  EXPECT_EQ(lists.LabelAdd[1].caption(), disk.path("Mix\\"));
  EXPECT_TRUE(lists.LabelAdd[0].visible());
  EXPECT_TRUE(lists.LabelAdd[1].visible());
  EXPECT_FALSE(strip.TextDecode.visible());
}

TEST_F(AllProjects, a_shared_file_stands_once_under_the_first_that_uses_it) {
  list_project("Mix\\tema.vip", {"D:\\a.wav", "D:\\b.wav"});
  list_project("Mix\\otro.vip", {"D:\\b.wav", "D:\\c.wav"});
  list_project("Mix\\tres.vip", {"D:\\b.wav"});
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav", "D:\\b.wav",
                                  row(2, "Mix\\otro.vip"), "D:\\c.wav", row(3, "Mix\\tres.vip")));
  EXPECT_EQ(totals(), "5  archivos en: 3 proyectos, 2 duplicados; Total: 3");
  EXPECT_EQ(strip.TextDecode.text(), "Eliminando duplicado: D:\\b.wav");
}

TEST_F(AllProjects, paths_that_differ_by_case_or_folder_are_no_repeats) {
  list_project("Mix\\tema.vip", {"D:\\a.wav"});
  list_project("Mix\\otro.vip", {"D:\\A.wav", "D:\\x\\a.wav"});
  decoding.DescodificarProyectos(job, true);
  EXPECT_EQ(totals(), "3  archivos en: 2 proyectos, 0 duplicados; Total: 3");
}

TEST_F(AllProjects, a_backup_is_passed_over_unless_backups_count) {
  list_project("Mix\\tema.vip", {"D:\\a.wav"});
  list_project("Mix\\tema_BAK.vip", {"D:\\b.wav"});
  list_project("Mix\\otro_bak.vip", {"D:\\c.wav"});
  decoding.DescodificarProyectos(job, false);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav", row(3, "Mix\\otro_bak.vip"),
                                  "D:\\c.wav"));
  EXPECT_EQ(totals(), "2  archivos en: 2 proyectos, 0 duplicados; Total: 2");

  lists.ListUtilizados.clear();
  reader.TotalArchivosVip = 0;
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav", row(2, "Mix\\tema_BAK.vip"),
                                  "D:\\b.wav", row(3, "Mix\\otro_bak.vip"), "D:\\c.wav"));
  EXPECT_EQ(totals(), "3  archivos en: 3 proyectos, 0 duplicados; Total: 3");
}

TEST_F(AllProjects, report_each_that_was_passed_over_and_show_how_far_they_are) {
  list_project("Mix\\a_BAK.vip", {"D:\\a.wav"});
  list_project("Mix\\b.vip", {"D:\\b.wav"});
  list_project("Mix\\midi.vip", {});
  strip.TextDecode.hide();
  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  bool shown = false;
  backend.on_pump = [&] { shown = shown || strip.TextDecode.visible(); };
  decoding.DescodificarProyectos(job, false);
  EXPECT_TRUE(shown);
  EXPECT_FALSE(strip.TextDecode.visible());
  EXPECT_EQ(strip.XP_ProgressBar1.maximum(), 3);
  EXPECT_EQ(strip.XP_ProgressBar1.value(), 2) << "the last row";
  ASSERT_EQ(work.ProyectosFuera.size(), 2u);
  EXPECT_EQ(work.ProyectosFuera[0].ruta, disk.path("Mix\\a_BAK.vip"));
  EXPECT_EQ(work.ProyectosFuera[0].motivo, project::motivo(project::WhyOut::backup));
  EXPECT_EQ(work.ProyectosFuera[1].ruta, disk.path("Mix\\midi.vip"));
  EXPECT_EQ(work.ProyectosFuera[1].motivo, project::motivo(project::WhyOut::no_audio));
}

TEST_F(AllProjects, a_job_that_takes_their_place_at_any_turn_keeps_its_rows_and_headings) {
  for (const char* name : {"Mix\\a.vip", "Mix\\b.vip", "Mix\\c.vip"}) {
    list_project(name, {"D:\\a.wav", "D:\\b.wav"});
  }
  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  int turns = 0;
  const auto replaced_at = [&](int last) {
    lists.ListUtilizados.clear();
    turns = 0;
    backend.on_pump = [&] {
      if (++turns != last) return;
      work.begin_job();
      lists.ListUtilizados.clear();
      lists.ListUtilizados.add("newer");
      for (auto& heading : lists.LabelAdd) heading->set_caption("newer");
      strip.TextDecode.set_text("newer");
    };
    auto now = work::Job::join(work, platform);
    decoding.DescodificarProyectos(now, true);
    backend.on_pump = nullptr;
  };
  replaced_at(0);
  const int all = turns;
  ASSERT_GE(all, 4) << "one for each project and one for the repeats";
  for (int last = 1; last <= all; ++last) {
    replaced_at(last);
    EXPECT_LE(turns, last + 1) << "it went on";
    EXPECT_THAT(used(), ElementsAre("newer")) << last;
    EXPECT_EQ(totals(), "newer") << last;
    EXPECT_EQ(strip.TextDecode.text(), "newer") << last;
  }
}

TEST_F(AllProjects, one_without_references_keeps_its_header_and_is_not_counted) {
  list_project("Mix\\tema.vip", {"D:\\a.wav"});
  list_project("Mix\\midi.vip", {});
  list_project("Mix\\otro.vip", {"D:\\c.wav"});
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav", row(2, "Mix\\midi.vip"),
                                  row(3, "Mix\\otro.vip"), "D:\\c.wav"));
  EXPECT_EQ(totals(), "2  archivos en: 2 proyectos, 0 duplicados; Total: 2");
}

TEST_F(AllProjects, one_that_is_gone_leaves_no_row) {
  list_project("Mix\\tema.vip", {"D:\\a.wav"});
  list_project("Mix\\otro.vip", {"D:\\c.wav"});
  disk.remove("Mix\\tema.vip");
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), ElementsAre(row(2, "Mix\\otro.vip"), "D:\\c.wav"));
  EXPECT_EQ(totals(), "1  archivos en: 1 proyectos, 0 duplicados; Total: 1");
}

TEST_F(AllProjects, none_at_all_give_totals_of_nothing) {
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), IsEmpty());
  EXPECT_EQ(totals(), "0  archivos en: 0 proyectos, 0 duplicados; Total: 0");
}

TEST_F(AllProjects, rows_without_their_folder_are_looked_for_in_the_folder_of_the_projects) {
  disk.write("Mix\\tema.vip", project_of({"D:\\a.wav"}));
  lists.ListProyectos.add("1 --> tema.vip");
  work.RutaProyectos = disk.path("Mix\\");
  work.PrimerProyecto = disk.path("falta.vip");
  decoding.DescodificarProyectos(job, false);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav"));
  EXPECT_EQ(work.PrimerProyecto, disk.path("Mix\\tema.vip"));
}

TEST_F(AllProjects, a_cancel_in_the_middle_keeps_what_is_decoded_with_its_repeats) {
  list_project("Mix\\uno.vip", {"D:\\a.wav"});
  list_project("Mix\\dos.vip", {"D:\\a.wav"});
  list_project("Mix\\tres.vip", {"D:\\c.wav"});
  clock.step = std::chrono::milliseconds(20);  // each turn of a loop pumps
  backend.on_pump = [&] {
    if (lists.ListUtilizados.count() == 4) work.Cancelar = true;
  };
  decoding.DescodificarProyectos(job, true);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\uno.vip"), "D:\\a.wav", row(2, "Mix\\dos.vip"),
                                  "D:\\a.wav"));
  EXPECT_EQ(totals(), "2  archivos en: 2 proyectos, 0 duplicados; Total: 2");
  EXPECT_FALSE(strip.TextDecode.visible());
}

TEST_F(AllProjects, a_job_that_takes_their_place_in_the_middle_finds_the_headings_untouched) {
  list_project("Mix\\uno.vip", {"D:\\a.wav"});
  list_project("Mix\\dos.vip", {"D:\\b.wav"});
  clock.step = std::chrono::milliseconds(20);
  backend.on_pump = [&] {
    work.begin_job();
    lists.ListUtilizados.clear();
  };
  decoding.DescodificarProyectos(job, true);
  EXPECT_EQ(totals(), "");
  EXPECT_FALSE(lists.LabelAdd[0].visible());
}

TEST_F(AllProjects, the_bar_ends_full_where_repeats_were_struck_out) {
  list_project("Mix\\uno.vip", {"D:\\a.wav"});
  list_project("Mix\\dos.vip", {"D:\\a.wav"});
  decoding.DescodificarProyectos(job, true);
  EXPECT_EQ(strip.XP_ProgressBar1.maximum(), 4);
  EXPECT_EQ(strip.XP_ProgressBar1.value(), 4);
}

TEST_F(AllProjects, repeats_go_as_a_double_loop_takes_them_whatever_is_shared) {
  for (std::uint64_t seed = 0; seed < 150; ++seed) {
    Dice dice(seed);
    lists.ListProyectos.clear();
    lists.ListUtilizados.clear();
    reader.TotalArchivosVip = 0;
    std::vector<std::string> wanted;
    std::size_t total = 0;
    const auto projects = 1 + dice.below(4);
    for (std::uint64_t p = 0; p < projects; ++p) {
      std::vector<std::string> paths(1 + dice.below(5));
      for (std::string& path : paths) path = "D:\\" + std::to_string(dice.below(6)) + ".wav";
      const std::string below = "Mix\\p" + std::to_string(p) + ".vip";
      list_project(below, paths);
      wanted.push_back(row(static_cast<int>(p) + 1, below));
      wanted.insert(wanted.end(), paths.begin(), paths.end());
      total += paths.size();
    }
    const std::size_t duplicates = literal_file_repeats(wanted);
    decoding.DescodificarProyectos(job, true);
    ASSERT_EQ(used(), wanted) << "seed " << seed;
    ASSERT_EQ(totals(), std::to_string(total) + "  archivos en: " + std::to_string(projects) +
                            " proyectos, " + std::to_string(duplicates) +
                            " duplicados; Total: " + std::to_string(total - duplicates))
        << "seed " << seed;
  }
}

// The folder of the projects is put before whole paths too where the first project is gone.
TEST_F(AllProjects,
       what_a_project_that_is_looked_for_in_the_wrong_place_uses_is_in_use_all_the_same) {
  list_project("Mix\\tema.vip", {"D:\\a.wav", "D:\\b.wav"});
  work.RutaProyectos = disk.path("Mix\\");
  work.PrimerProyecto = disk.path("falta.vip");
  decoding.DescodificarProyectos(job, false);
  EXPECT_THAT(used(), IsEmpty());
  EXPECT_THAT(decoding.also_used(), ElementsAre("D:\\a.wav", "D:\\b.wav"));
  EXPECT_EQ(decoding.decoded(), 0u);
  EXPECT_EQ(totals(), "0  archivos en: 0 proyectos, 0 duplicados; Total: 0");
  ASSERT_EQ(work.ProyectosFuera.size(), 1u);
  EXPECT_EQ(work.ProyectosFuera[0].ruta, disk.path("Mix\\tema.vip"));
  EXPECT_EQ(work.ProyectosFuera[0].motivo, project::motivo(project::WhyOut::gone));

  work.PrimerProyecto.clear();
  decoding.DescodificarProyectos(job, false);
  EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav", "D:\\b.wav"));
  EXPECT_THAT(decoding.also_used(), IsEmpty()) << "they are rows now";
  EXPECT_EQ(decoding.decoded(), 1u);
  EXPECT_EQ(totals(), "2  archivos en: 1 proyectos, 0 duplicados; Total: 2");
}

TEST_F(AllProjects, paths_stay_as_they_are_while_the_first_project_is_there) {
  list_project("Mix\\tema.vip", {"D:\\a.wav"});
  work.RutaProyectos = disk.path("Mix\\");
  for (const bool with_backups : {false, true}) {
    work.PrimerProyecto = disk.path(with_backups ? "falta.vip" : "Mix\\tema.vip");
    lists.ListUtilizados.clear();
    decoding.DescodificarProyectos(job, with_backups);
    EXPECT_THAT(used(), ElementsAre(row(1, "Mix\\tema.vip"), "D:\\a.wav")) << with_backups;
    EXPECT_THAT(decoding.also_used(), IsEmpty()) << with_backups;
  }
}

TEST_F(AllProjects, the_strip_names_each_and_the_totals_of_before_are_put_away_meanwhile) {
  list_project("Mix\\copia_BAK.vip", {"D:\\a.wav"});
  list_project("Mix\\tema.vip", {"D:\\a.wav"});
  list_project("Mix\\otro.vip", {"D:\\b.wav"});
  lists.LabelAdd[0].set_caption("before");
  lists.LabelAdd[0].show();
  clock.step = std::chrono::milliseconds(100);  // each turn of a loop pumps, each text is shown
  std::vector<std::string> texts;
  bool heading = false;
  backend.on_pump = [&] {
    const std::string& text = strip.TextDecode.text();
    if (texts.empty() || texts.back() != text) texts.push_back(text);
    heading = heading || lists.LabelAdd[0].visible();
    EXPECT_TRUE(strip.TextDecode.visible());
  };
  decoding.DescodificarProyectos(job, false);
  EXPECT_THAT(texts, ElementsAre("", "Descodificando: " + row(2, "Mix\\tema.vip"),
                                 "Descodificando: " + row(3, "Mix\\otro.vip")));
  EXPECT_FALSE(heading);
  EXPECT_TRUE(lists.LabelAdd[0].visible());
}

TEST_F(AllProjects, one_that_breaks_off_after_some_rows_keeps_them_and_is_named) {
  // More rows than are kept before the marker of the file is found: it is read twice.
  std::string bytes = std::string(96, 'x') + "cabecera" + '\0';
  for (int i = 0; i < 400'000; ++i) bytes += "D:\\" + std::to_string(i) + ".wav" + '\0';
  bytes += "    LIST" + std::string(4, '\0') + "mdrl tail";
  WorkBench::list_project("Mix\\tema.vip", bytes);
  broken.on_read = [&](std::uint64_t) {
    return broken_reader.PosFinalVip > 0 ? std::nullopt : std::optional(std::size_t{1} << 30);
  };
  project::ProjectDecoding on_broken{broken_platform, work, lists, strip, broken_reader, left_out};
  on_broken.DescodificarProyectos(job, true);
  EXPECT_EQ(on_broken.decoded(), 1u);
  EXPECT_GT(used().size(), 100'000u);
  EXPECT_LT(used().size(), 400'000u);
  ASSERT_EQ(work.ProyectosFuera.size(), 1u);
  EXPECT_EQ(work.ProyectosFuera[0].ruta, disk.path("Mix\\tema.vip"));
  EXPECT_EQ(work.ProyectosFuera[0].motivo, project::motivo(project::WhyOut::broken));
}

}  // namespace
}  // namespace ordelan::test
