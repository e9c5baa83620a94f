// The projects read once more before anything is removed: what stays, and what the windows say.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "project/mention_agreement.h"
#include "removal/reasons.h"
#include "support/removal_bench.h"
#include "text/code_page.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr const char* kLooking = "Comprobando los proyectos...";

struct SecondReading : ::testing::Test, RemovalBench {
  void pump(int times = 20) {
    for (int i = 0; i < times; ++i) backend.pump();
  }
  // A project that is none of the listed ones and mentions a file below the disk's folder.
  void mention(const std::string& project, const std::string& file) {
    disk.write(project, "xxxx" + std::string(1, '\0') + disk.path(file) + std::string(9, '\0'));
  }
  // A run removes `libre` and keeps `kept` for that reason.
  void expect_kept(const std::string& kept, const std::string& why, const std::string& libre) {
    remove();
    EXPECT_TRUE(there(kept)) << kept;
    EXPECT_EQ(reason(kept), why);
    EXPECT_FALSE(there(libre)) << libre;
    const auto& rows = review().ListBorrar.rows();
    EXPECT_EQ(std::count(rows.begin(), rows.end(), disk.path(kept)), 1) << "it has no mark";
  }
  std::string names(const std::string& project) { return "lo nombra " + disk.path(project); }
  std::string kept_row(const std::string& file, const std::string& why) {
    return disk.path(file) + "   (Se conserva: " + why + ")";
  }
  bool looking() {
    return windows.find<removal::ParaBorrar>() != nullptr &&
           review().LabelConservados.caption() == kLooking;
  }
  // How often the bytes of a project have been read.
  int reads(const std::string& project) {
    const auto& made = faulty.faults.made();
    return static_cast<int>(
        std::count(made.begin(), made.end(),
                   Faults<FaultyFiles::Call>::Made{FaultyFiles::Call::read, disk.path(project)}));
  }
};

// --- what the reader of projects does not see

TEST_F(SecondReading, a_listed_project_keeps_a_wma) {
  open_studio({"Mix\\a.wma", "Mix\\libre.wma"}, {disk.path("Mix\\a.wma")});
  expect_kept("Mix\\a.wma", names("Mix\\tema.vip"), "Mix\\libre.wma");
}

TEST_F(SecondReading, a_listed_project_keeps_a_name_with_dots) {
  open_studio({"Mix\\a.b.wav", "Mix\\libre.wav"}, {disk.path("Mix\\a.b.wav")});
  expect_kept("Mix\\a.b.wav", names("Mix\\tema.vip"), "Mix\\libre.wav");
}

TEST_F(SecondReading, a_listed_project_keeps_a_path_in_utf8) {
  open_studio({"Mix\\ca\xF1\xF3n.wav", "Mix\\libre.wav"},
              {text::to_utf8(disk.path("Mix\\ca\xF1\xF3n.wav"))});
  expect_kept("Mix\\ca\xF1\xF3n.wav", names("Mix\\tema.vip"), "Mix\\libre.wav");
}

TEST_F(SecondReading, a_listed_project_keeps_a_path_in_utf16) {
  open_studio({"Mix\\ca\xF1\xF3n.wav", "Mix\\libre.wav"},
              {utf16_of(disk.path("Mix\\ca\xF1\xF3n.wav"))});
  expect_kept("Mix\\ca\xF1\xF3n.wav", names("Mix\\tema.vip"), "Mix\\libre.wav");
}

TEST_F(SecondReading, the_spelling_of_a_path_does_not_matter) {
  std::string path = disk.path("MIX\\Sub\\..\\A.WMA");
  std::replace(path.begin() + 3, path.end(), '\\', '/');
  disk.make_folder("Mix\\Sub");
  open_studio({"Mix\\a.wma", "Mix\\libre.wma"}, {path});
  expect_kept("Mix\\a.wma", names("Mix\\tema.vip"), "Mix\\libre.wma");
}

// --- projects that are not listed

TEST_F(SecondReading, projects_that_are_not_listed_keep_what_they_name) {
  for (const std::string project :
       {"Mix\\Sub\\otro.vip", "Mix\\tema_BAK.vip", "Mix\\FreezeData\\pista.vip",
        "Mix\\Sub\\otro.vip.old", "Mix\\Sub\\sin marca.VIP"}) {
    struct World : SecondReading {
      void TestBody() override {}
    } world;
    world.mention(project, "Mix\\a.wav");
    world.open_studio({"Mix\\a.wav", "Mix\\libre.wav"});
    world.expect_kept("Mix\\a.wav", world.names(project), "Mix\\libre.wav");
  }
}

TEST_F(SecondReading, a_project_that_came_after_the_sweep_keeps_what_it_names) {
  open_studio({"Mix\\a.wav", "Mix\\libre.wav"});
  project("Mix\\nuevo.vip", {"Mix\\a.wav"});
  expect_kept("Mix\\a.wav", names("Mix\\nuevo.vip"), "Mix\\libre.wav");
}

TEST_F(SecondReading, a_project_that_came_after_the_review_has_looked_keeps_what_it_names) {
  open_studio({"Mix\\a.wav", "Mix\\libre.wav"});
  pump();
  EXPECT_FALSE(review().ListConservados.visible());
  mention("Mix\\nuevo.vip", "Mix\\a.wav");
  expect_kept("Mix\\a.wav", names("Mix\\nuevo.vip"), "Mix\\libre.wav");
}

TEST_F(SecondReading, side_files_that_a_project_names_stay) {
  disk.write("Mix\\a.h2", "of a");
  disk.write("Mix\\b.h2", "of b");
  open_studio({"Mix\\a.wav"});
  set(false, false, true);
  mention("Mix\\Sub\\otro.vip", "Mix\\a.h2");
  remove();
  EXPECT_TRUE(there("Mix\\a.h2"));
  EXPECT_EQ(reason("Mix\\a.h2"), names("Mix\\Sub\\otro.vip"));
  EXPECT_FALSE(there("Mix\\b.h2"));
}

// --- the reasons

TEST_F(SecondReading, a_path_to_another_file_of_that_name_keeps_nothing) {
  disk.write("Otra\\a.wav", "another recording");
  open_studio({"Mix\\a.wav"});
  mention("Mix\\Sub\\otro.vip", "Otra\\a.wav");
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_THAT(outcome().kept, IsEmpty());
}

TEST_F(SecondReading, a_path_that_leads_to_no_file_keeps_what_may_be_the_lost_file) {
  open_studio({"Mix\\a.wav", "Mix\\libre.wav"});
  mention("Mix\\Sub\\otro.vip", "Vieja\\a.wav");
  expect_kept("Mix\\a.wav",
              "puede ser el archivo perdido que nombra " + disk.path("Mix\\Sub\\otro.vip"),
              "Mix\\libre.wav");
}

TEST_F(SecondReading, a_name_without_its_path_keeps_the_file) {
  open_studio({"Mix\\a.wav", "Mix\\libre.wav"});
  disk.write("Mix\\Sub\\otro.vip", "Tomas\\a.wav and vocallibre.wav");
  expect_kept("Mix\\a.wav", "lo nombra sin su ruta " + disk.path("Mix\\Sub\\otro.vip"),
              "Mix\\libre.wav");
}

TEST_F(SecondReading, a_file_that_the_disk_does_not_tell_from_the_named_one_stays) {
  disk.write("Otra\\a.wav", "another recording");
  open_studio({"Mix\\a.wav", "Mix\\libre.wav"});
  mention("Mix\\Sub\\otro.vip", "Otra\\a.wav");
  faulty.faults.fail({.call = FaultyFiles::Call::identity, .path = disk.path("Mix\\a.wav")},
                     system::Reason::no_permission);
  expect_kept("Mix\\a.wav", "puede ser el archivo que nombra " + disk.path("Mix\\Sub\\otro.vip"),
              "Mix\\libre.wav");
}

TEST_F(SecondReading, each_kind_of_mention_has_words_of_its_own) {
  using project::Mentioned;
  const auto words = [](Mentioned mentioned, const std::string& project) {
    return removal::reason::of(project::RowMention{mentioned, project});
  };
  EXPECT_EQ(words(Mentioned::unidentified, ""), "su nombre no se puede buscar en los proyectos");
  EXPECT_EQ(words(Mentioned::no, "D:\\x.vip"), "");
}

TEST_F(SecondReading, a_project_that_cannot_be_read_keeps_all) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  disk.write("Mix\\Sub\\otro.vip", "who can say");
  faulty.faults.fail({.call = FaultyFiles::Call::open, .path = disk.path("Mix\\Sub\\otro.vip")},
                     system::Reason::in_use);
  remove();
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav"}) {
    EXPECT_TRUE(there(file));
    EXPECT_EQ(reason(file), "no se ha podido leer entero " + disk.path("Mix\\Sub\\otro.vip"));
  }
}

TEST_F(SecondReading, a_project_whose_bytes_do_not_all_come_keeps_all) {
  open_studio({"Mix\\a.wav"});
  disk.write("Mix\\Sub\\otro.vip", "who can say");
  faulty.faults.fail({.call = FaultyFiles::Call::read, .path = disk.path("Mix\\Sub\\otro.vip")},
                     system::Reason::other);
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), "no se ha podido leer entero " + disk.path("Mix\\Sub\\otro.vip"));
}

TEST_F(SecondReading, a_folder_that_cannot_be_listed_keeps_all) {
  open_studio({"Mix\\a.wav"});
  disk.make_folder("Mix\\Sub");
  faulty.faults.fail({.call = FaultyFiles::Call::each, .path = disk.path("Mix\\Sub\\")},
                     system::Reason::no_permission);
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), "no se ha podido leer entero " + disk.path("Mix\\Sub\\"));
}

TEST_F(SecondReading, without_the_careful_look_nothing_is_kept_or_shown) {
  open_studio({"Mix\\a.wav"});
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  unchecked();
  pump();
  EXPECT_FALSE(review().ListConservados.visible());
  EXPECT_FALSE(review().LabelConservados.visible());
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
}

// --- what the review shows

TEST_F(SecondReading, the_review_lists_what_is_kept_after_it_has_come_up) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  mention("Mix\\Sub\\tercero.vip", "Vieja\\c.wav");
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  EXPECT_FALSE(review().ListConservados.visible()) << "nothing is known yet";
  bool said = false;
  backend.on_pump = [&] { said = said || (looking() && review().LabelConservados.visible()); };
  pump();
  EXPECT_TRUE(said);
  EXPECT_TRUE(review().ListConservados.visible());
  EXPECT_THAT(review().ListConservados.rows(),
              ElementsAre(kept_row("Mix\\a.wav", names("Mix\\Sub\\otro.vip")),
                          kept_row("Mix\\c.wav", "puede ser el archivo perdido que nombra " +
                                                     disk.path("Mix\\Sub\\tercero.vip"))));
  EXPECT_EQ(review().LabelConservados.caption(), "Se conservan: 2");
  EXPECT_THAT(review().ListBorrar.rows(), testing::SizeIs(3)) << "the list itself stays as it is";
}

TEST_F(SecondReading, the_list_of_what_is_kept_takes_its_room_from_the_other) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  const int before = review().ListBorrar.bounds().height;
  pump();
  const ui::Rect above = review().ListBorrar.bounds();
  EXPECT_LT(above.height, before);
  EXPECT_LE(above.top + above.height, review().ListConservados.bounds().top);
  EXPECT_EQ(review().ListStatus.bounds().height, above.height);
  review().CopiarListBorrados();
  EXPECT_EQ(review().ListBorrar.bounds().height, before);
  EXPECT_EQ(review().ListStatus.bounds().height, before);
}

TEST_F(SecondReading, a_review_that_is_made_larger_gives_its_lists_the_room) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  const ui::Size size = review().size();
  ASSERT_TRUE(review().resizable());
  const int alone = review().ListBorrar.bounds().height;
  pump();
  const int above = review().ListBorrar.bounds().height;
  review().resized_to({size.width + 100, size.height + 50});
  EXPECT_EQ(review().ListBorrar.bounds().height, above + 50);
  EXPECT_EQ(review().ListStatus.bounds().height, above + 50);
  EXPECT_EQ(review().ListBorrar.bounds().width, 600);
  EXPECT_EQ(review().ListConservados.bounds().width, 880);
  review().CopiarListBorrados();
  EXPECT_EQ(review().ListBorrar.bounds().height, alone + 50);
  const ui::Rect mark = review().ImageVol.bounds();
  EXPECT_EQ(mark.top + mark.height, 460) << "the volume's mark stands where it stood";
  review().resized_to(size);
  EXPECT_EQ(review().ListBorrar.bounds().height, alone);
}

TEST_F(SecondReading, a_row_that_is_taken_out_leaves_the_list_of_what_is_kept_too) {
  mention("Mix\\Sub\\otro.vip", "Mix\\b.wav");
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  pump();
  const auto press_delete = [this](int row) {
    review().ListBorrar.chosen(row);
    ui::Key key{46};
    review().on_key_down(key);
  };
  press_delete(0);
  EXPECT_THAT(review().ListConservados.rows(), testing::SizeIs(1));
  press_delete(0);
  EXPECT_FALSE(review().ListConservados.visible());
  EXPECT_FALSE(review().LabelConservados.visible());
}

TEST_F(SecondReading, the_box_of_the_careful_look_shows_and_hides_what_is_kept) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  pump();
  const auto click = [this](bool on) {
    options().CheckComprobar.set_checked(on);
    options().CheckComprobar.on_click();
    pump();
  };
  click(false);
  EXPECT_FALSE(review().ListConservados.visible());
  click(true);
  EXPECT_TRUE(review().ListConservados.visible());
}

TEST_F(SecondReading, a_new_list_empties_what_is_kept_and_is_looked_at_when_it_is_whole) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  pump();
  ASSERT_TRUE(review().ListConservados.visible());
  disk.write("Otra\\b.wav", "b");
  disk.write("Otra\\usado.wav", "used");
  disk.write("Otra\\usado2.wav", "its neighbour");
  project("Otra\\otra.vip", {"Otra\\usado.wav"});
  mention("Otra\\Sub\\vieja_BAK.vip", "Otra\\b.wav");
  open("Otra\\otra.vip");
  EXPECT_FALSE(review().ListConservados.visible());
  EXPECT_THAT(review().ListBorrar.rows(), ElementsAre(disk.path("Otra\\b.wav")));
  pump();
  EXPECT_THAT(review().ListConservados.rows(),
              ElementsAre(kept_row("Otra\\b.wav", names("Otra\\Sub\\vieja_BAK.vip"))));
}

TEST_F(SecondReading, a_list_that_takes_long_to_come_is_looked_at_all_the_same) {
  open_studio({"Mix\\a.wav"});
  pump();
  for (int i = 0; i < 20; ++i) disk.write("Mix\\toma " + std::to_string(i) + ".wav", "take");
  mention("Mix\\Sub\\otro.vip", "Mix\\toma 3.wav");
  clock.step = std::chrono::milliseconds(200);  // the timer is due in each turn of the decode
  open("Mix\\tema.vip");
  pump();
  EXPECT_THAT(review().ListConservados.rows(),
              ElementsAre(kept_row("Mix\\toma 3.wav", names("Mix\\Sub\\otro.vip"))));
  EXPECT_THAT(review().LabelEspacio.caption(), StartsWith("Activados: "));
}

TEST_F(SecondReading, what_is_kept_is_not_among_what_would_go_for_good) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  const std::string root = disk.folder().substr(0, 3);
  shell.without_bin.insert(root);
  review().CheckBorrarPapelera.set_checked(true);
  review().comprobar();
  pump();
  EXPECT_EQ(review().LabelPapelera.caption(),
            "En " + root.substr(0, 2) + " no hay papelera: 1 archivo se borraría para siempre");
}

TEST_F(SecondReading, a_new_job_ends_the_look_and_another_begins_after_it) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  bool met = false;
  in_the_middle([this] { return looking(); },
                [&] {
                  met = true;
                  work.begin_job();
                });
  pump();
  EXPECT_TRUE(met);
  EXPECT_EQ(reads("Mix\\Sub\\otro.vip"), 1) << "the first look went no further";
  EXPECT_THAT(review().ListConservados.rows(), SizeIs(1));
}

TEST_F(SecondReading, another_project_opened_in_the_middle_of_the_look_is_looked_at_instead) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  disk.write("Otra\\b.wav", "b");
  disk.write("Otra\\usado.wav", "used");
  disk.write("Otra\\usado2.wav", "its neighbour");
  project("Otra\\otra.vip", {"Otra\\usado.wav"});
  mention("Otra\\Sub\\vieja_BAK.vip", "Otra\\b.wav");
  in_the_middle([this] { return looking(); }, [this] { open("Otra\\otra.vip"); });
  pump();
  EXPECT_THAT(review().ListConservados.rows(),
              ElementsAre(kept_row("Otra\\b.wav", names("Otra\\Sub\\vieja_BAK.vip"))));
}

TEST_F(SecondReading, the_review_can_be_closed_in_the_middle_of_the_look) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  in_the_middle([this] { return looking(); }, [this] { review().cmdSalir_Click(); });
  pump();
  EXPECT_EQ(windows.find<removal::ParaBorrar>(), nullptr);
  EXPECT_EQ(reads("Mix\\Sub\\otro.vip"), 0) << "it went no further";
  options().cmdBorrar_Click();
  pump();
  EXPECT_THAT(review().ListConservados.rows(), testing::SizeIs(1));
}

TEST_F(SecondReading, the_review_can_be_closed_and_opened_in_one_turn_of_the_look) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav"});
  in_the_middle([this] { return looking(); },
                [this] {
                  review().cmdSalir_Click();
                  options().cmdBorrar_Click();
                });
  pump(40);
  EXPECT_THAT(review().ListConservados.rows(), testing::SizeIs(1));
}

TEST_F(SecondReading, a_run_can_begin_in_the_middle_of_the_look) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  in_the_middle([this] { return looking(); }, [this] { review().cmdHecho_Click(); });
  pump();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_EQ(reason("Mix\\a.wav"), names("Mix\\Sub\\otro.vip"));
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_EQ(options().LabelResultado.caption(), "1 de 2 borrados");
  EXPECT_NE(review().LabelConservados.caption(), kLooking);
}

TEST_F(SecondReading, a_stop_in_the_middle_of_the_runs_look_removes_nothing) {
  for (int i = 0; i < 5; ++i) {
    mention("Mix\\Sub\\otro " + std::to_string(i) + ".vip", "Mix\\a.wav");
  }
  disk.write("Mix\\a.h2", "side file");
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  set(false, true, true);
  in_the_middle([this] { return outcome().running && reads("Mix\\Sub\\otro 1.vip") > 0; },
                [this] {
                  EXPECT_EQ(options().LabelResultado.caption(), kLooking);
                  EXPECT_TRUE(options().cmdParar.visible());
                  options().cmdParar.on_click();
                });
  remove();
  EXPECT_EQ(reads("Mix\\Sub\\otro 4.vip"), 0);
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_TRUE(there("Mix\\a.h2"));
  EXPECT_EQ(options().LabelInfo.caption(), " >> Se han Cancelado todas las operaciones << ");
  EXPECT_THAT(options().LabelResultado.caption(), StartsWith("0 de 2 borrados"));
  EXPECT_FALSE(outcome().CancelarBorrado);
}

TEST_F(SecondReading, the_runs_look_reads_only_what_has_changed_since_that_of_the_review) {
  for (const std::string project : {"Mix\\Sub\\1.vip", "Mix\\Sub\\2.vip"}) {
    mention(project, "Mix\\a.wav");
  }
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  pump();
  const int first = reads("Mix\\Sub\\1.vip");
  const int second = reads("Mix\\Sub\\2.vip");
  EXPECT_GT(first, 0);
  disk.write("Mix\\Sub\\2.vip", "now it says " + disk.path("Mix\\b.wav"));
  remove();
  EXPECT_EQ(reads("Mix\\Sub\\1.vip"), first);
  EXPECT_GT(reads("Mix\\Sub\\2.vip"), second);
  EXPECT_EQ(reason("Mix\\a.wav"), names("Mix\\Sub\\1.vip"));
  EXPECT_EQ(reason("Mix\\b.wav"), names("Mix\\Sub\\2.vip"));
}

TEST_F(SecondReading, the_plan_names_what_is_kept_and_what_would_go) {
  mention("Mix\\Sub\\otro.vip", "Mix\\a.wav");
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  const auto plan = options().plan();
  ASSERT_EQ(plan.conservados.size(), 1u);
  EXPECT_EQ(plan.conservados[0],
            (removal::Kept{disk.path("Mix\\a.wav"), names("Mix\\Sub\\otro.vip"),
                           disk.path("Mix\\Sub\\otro.vip")}));
  EXPECT_TRUE(there("Mix\\b.wav"));
}

}  // namespace
}  // namespace ordelan::test
