// Ordinary situations in which audio that a project uses must not be offered for removal: through
// the handlers of the window, on a real disk.
#include <gmock/gmock.h>

#include <filesystem>
#include <map>

#include "main_window/main_window.h"
#include "project/candidates_of.h"
#include "project/memory_folders.h"
#include "project/side_files.h"
#include "project/used_guard.h"
#include "support/forwarding_files.h"
#include "support/program_bench.h"
#include "text/code_page.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::UnorderedElementsAre;

struct NeverOfferUsed : ::testing::Test, ProgramBench {
  NeverOfferUsed() { start(); }

  const std::vector<std::string>& projects() const { return form.lists.ListProyectos.rows(); }
  std::vector<std::string> left_out() const {
    std::vector<std::string> rows;
    for (const auto& project : work.ProyectosFuera) {
      rows.push_back(project.ruta + ": " + project.motivo);
    }
    return rows;
  }
  void remember_side_files() {
    settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>", "1");
  }
};

// --- drops of several items

struct MixedDrop : NeverOfferUsed {
  MixedDrop() {
    project("A.vip", {"a1.wav"});
    project("C.vip", {"c1.wav"});
    for (const char* file : {"a1.wav", "c1.wav", "libre.wav"}) disk.write(file, file);
    disk.write("nota.txt", "x");
    disk.make_folder("vacia");
  }
};

TEST_F(MixedDrop, a_file_between_two_projects_forgets_none_of_them) {
  drop({"A.vip", "nota.txt", "C.vip"});
  EXPECT_THAT(projects(), ElementsAre(row(1, "A.vip"), row(2, "C.vip")));
  EXPECT_THAT(offered(), ElementsAre(disk.path("libre.wav")));
}

TEST_F(MixedDrop, an_empty_folder_after_a_project_forgets_it_not) {
  drop({"A.vip", "C.vip", "vacia"});
  EXPECT_THAT(projects(), ElementsAre(row(1, "A.vip"), row(2, "C.vip")));
  EXPECT_THAT(offered(), ElementsAre(disk.path("libre.wav")));
}

TEST_F(MixedDrop, audio_dropped_with_its_projects_is_passed_over) {
  drop({"A.vip", "C.vip", "a1.wav"});
  EXPECT_THAT(projects(), ElementsAre(row(1, "A.vip"), row(2, "C.vip")));
  EXPECT_THAT(offered(), ElementsAre(disk.path("libre.wav")));
}

TEST_F(MixedDrop, a_folder_with_projects_is_swept_together_with_the_projects_before_it) {
  project("Otra\\d.vip", {"Otra\\d1.wav"});
  disk.write("Otra\\d1.wav", "d");
  disk.write("Otra\\libre.wav", "l");
  drop({"C.vip", "vacia", "Otra", "A.vip"});
  EXPECT_THAT(projects(), ElementsAre(row(1, "C.vip"), row(2, "Otra\\d.vip")));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("c1.wav")));
  EXPECT_THAT(offered(), Not(Contains(disk.path("c1.wav"))));
  EXPECT_THAT(offered(), Not(Contains(disk.path("Otra\\d1.wav"))));
  EXPECT_THAT(left_out(),
              Contains(disk.path("A.vip") + ": soltado con una carpeta que ya tenía proyectos"));
}

TEST_F(MixedDrop, what_was_shown_before_goes_with_the_first_project_of_a_folder) {
  drop({"A.vip", "C.vip"});
  project("Otra\\d.vip", {"Otra\\d1.wav"});
  drop({"nota.txt", "Otra"});
  EXPECT_THAT(projects(), ElementsAre(row(1, "Otra\\d.vip")));
}

TEST_F(MixedDrop, a_cancel_between_two_items_sweeps_nothing) {
  project("Otra\\d.vip", {"Otra\\d1.wav"});
  in_the_middle([&] { return form.strip.LabelAviso.visible(); }, [&] { form.cmdCancelar_Click(); });
  disk.write("A.vip", project_of({disk.path("a1.wav")}, 3'000'000));
  drop({"A.vip", "C.vip", "Otra"});
  EXPECT_THAT(offered(), IsEmpty());
  EXPECT_THAT(projects(), IsEmpty());
}

TEST_F(MixedDrop, the_entries_of_a_sweep_are_shown_after_a_drop_of_nothing_too) {
  drop({"vacia"});
  EXPECT_THAT(projects(), IsEmpty());
  for (const ui::Control* shown : std::initializer_list<const ui::Control*>{
           &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas}) {
    EXPECT_TRUE(shown->visible()) << shown->name();
  }
}

// --- brackets and characters that no name can hold

TEST_F(NeverOfferUsed, projects_with_brackets_in_their_path_are_decoded) {
  for (const char* place : {"[2024] Mix\\tema.vip", "Mix\\tema [master].vip", "Mix]\\tema.vip"}) {
    const std::string folder = std::string(place).substr(0, std::string(place).find('\\') + 1);
    project(place, {folder + "toma [1].wav", folder + "b.wav"});
    for (const char* file : {"toma [1].wav", "b.wav", "a libre [2].wav"}) {
      disk.write(folder + file, file);
    }
    for (const bool backups : {true, false}) {
      for (const bool dropped : {true, false}) {
        form.CheckBAK.set_checked(backups);
        dropped ? drop({place}) : open(place);
        EXPECT_EQ(form.lists.LabelCount[0].caption(),
                  "2 Archivos utilizados en: " + disk.path(place));
        EXPECT_THAT(form.lists.ListUtilizados.rows(),
                    ElementsAre(row(1, place), disk.path(folder + "toma [1].wav"),
                                disk.path(folder + "b.wav")));
        EXPECT_THAT(offered(), ElementsAre(disk.path(folder + "a libre [2].wav"))) << place;
      }
    }
    disk.remove(folder.substr(0, folder.size() - 1));
  }
}

TEST_F(NeverOfferUsed, a_copy_with_brackets_is_distinguished_from_other_files_by_its_name) {
  project("a.vip", {"toma [1].wav"});
  disk.write("toma [1].wav", "1");
  disk.write("Copia\\toma [1].wav", "1");
  disk.write("Copia\\toma [2].wav", "1");
  open("a.vip");
  EXPECT_THAT(offered(), ElementsAre(disk.path("Copia\\toma [2].wav")));
}

TEST_F(NeverOfferUsed, a_reference_that_no_disk_could_hold_changes_nothing_for_other_rows) {
  project("a.vip", {"u.wav"});
  for (const char* file : {"u.wav", "[x].wav", "y.wav", "z.wav"}) disk.write(file, file);
  open("a.vip");
  const auto before = offered();
  disk.write("a.vip", project_of({disk.path("u.wav"), disk.path("a?.wav"), disk.path("*.wav")}));
  open("a.vip");
  EXPECT_EQ(offered(), before);
  EXPECT_FALSE(before.empty());
}

TEST_F(NeverOfferUsed, reports_of_projects_with_brackets_have_their_whole_names) {
  project("Mix\\tema [master].vip", {"u.wav"});
  open("Mix\\tema [master].vip");
  form.SalvaListados.on_click();
  EXPECT_TRUE(there("Mix\\Listados\\Archivos de tema [master].vip.log"));
}

TEST_F(NeverOfferUsed, lost_files_with_brackets_are_found) {
  disk.write("Otra\\toma [1].wav", "x");
  EXPECT_TRUE(
      buscar().BuscarEnTodasUnidades(disk.path("Mix\\toma [1].wav"), form.lists.ListUtilizados));
  EXPECT_EQ(work.ArchivoActual, disk.path("Otra\\toma [1].wav"));
}

TEST_F(NeverOfferUsed, no_file_passes_for_a_lost_one_whose_name_no_disk_could_hold) {
  disk.write("Otra\\toma 1.wav", "x");
  for (const char* name : {"Mix\\toma ?.wav", "Mix\\*.wav"}) {
    EXPECT_FALSE(buscar().BuscarEnTodasUnidades(disk.path(name), form.lists.ListUtilizados))
        << name;
  }
}

// --- one file under two spellings

struct Spellings : NeverOfferUsed, ::testing::WithParamInterface<const char*> {};

TEST_P(Spellings, a_used_file_is_not_offered_however_the_project_spells_it) {
  // An equal copy that is listed earlier takes the strike by name, so that only the last look is
  // left to see that both are one file.
  std::string used = GetParam();
  used = (used[0] == '#' ? text::lower(disk.folder()) : disk.folder()) + used.substr(1);
  disk.write("x\\p.vip", project_of({used}));
  disk.write("x\\Copia\\a.wav", "audio");
  disk.write("x\\Tomas largas\\a.wav", "audio");
  disk.write("x\\libre.wav", "otro");
  open("x\\p.vip");
  EXPECT_THAT(offered(), Not(Contains(disk.path("x\\Tomas largas\\a.wav"))));
  drop({"x"});
  EXPECT_THAT(offered(), Not(Contains(disk.path("x\\Tomas largas\\a.wav"))));
  EXPECT_THAT(offered(), Contains(disk.path("x\\libre.wav")));
}

// "@" stands for the disk's folder, "#" for the same in small letters.
INSTANTIATE_TEST_SUITE_P(OfOnePath, Spellings,
                         ::testing::Values("@x\\Tomas largas\\a.wav", "#x\\Tomas largas\\a.wav",
                                           "#X\\tomas LARGAS\\A.WAV", "@x/Tomas largas/a.wav",
                                           "@x\\\\Tomas largas\\\\a.wav",
                                           "@x\\Copia\\..\\Tomas largas\\a.wav",
                                           "@x\\.\\Tomas largas\\a.wav",
                                           "@x\\no existe\\..\\Tomas largas\\a.wav"));

TEST_F(NeverOfferUsed, a_file_used_through_a_link_is_not_offered) {
  namespace fs = std::filesystem;
  disk.write("x\\Tomas\\a.wav", "a");
  disk.write("x\\Tomas\\b.wav", "b");
  disk.write("x\\Tomas\\c.wav", "c");
  disk.write("x\\libre.wav", "l");
  disk.make_folder("enlaces");
  std::error_code failed;
  fs::create_directory_symlink(disk.native_path("x\\Tomas"), disk.native_path("enlaces\\t"),
                               failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  fs::create_symlink(disk.native_path("x\\Tomas\\b.wav"), disk.native_path("x\\otro b.wav"));
  fs::create_hard_link(disk.native_path("x\\Tomas\\c.wav"),
                       disk.native_path("enlaces\\otro c.wav"));
  project("x\\p.vip", {"enlaces\\t\\a.wav", "x\\otro b.wav", "enlaces\\otro c.wav"});
  open("x\\p.vip");
  EXPECT_THAT(offered(), ElementsAre(disk.path("x\\libre.wav")));
}

TEST_F(NeverOfferUsed, a_second_name_of_a_used_file_is_not_offered) {
  disk.write("x\\a.wav", "a");
  disk.write("x\\libre.wav", "l");
  disk.write("x\\m.wav", "m");  // stands between, as the file after a used one is kept
  std::error_code failed;
  std::filesystem::create_hard_link(disk.native_path("x\\a.wav"), disk.native_path("x\\z.wav"),
                                    failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  if (disk.files().info(disk.path("x\\a.wav"))->number == 0) {
    GTEST_SKIP() << "this system's listings give no numbers of files";
  }
  project("x\\p.vip", {"x\\a.wav"});
  open("x\\p.vip");
  EXPECT_THAT(offered(), ElementsAre(disk.path("x\\m.wav")));
}

TEST_F(NeverOfferUsed, nested_project_folders_offer_no_used_file_in_another_case) {
  project("x\\p.vip", {"x\\y\\A.wav"});
  project("x\\y\\q.vip", {"x\\y\\B.WAV"});
  for (const char* file :
       {"x\\y\\a.wav", "x\\y\\b.wav", "x\\y\\libre 1.wav", "x\\y\\libre 2.wav"}) {
    disk.write(file, file);
  }
  open("x\\p.vip");
  EXPECT_THAT(offered(),
              UnorderedElementsAre(disk.path("x\\y\\libre 1.wav"), disk.path("x\\y\\libre 2.wav")));
  EXPECT_EQ(form.lists.LabelErase[1].caption(),
            "Archivos no utilizados: 4     Duplicados: 2    Total: 2")
      << "what is used is not counted";
}

TEST_F(NeverOfferUsed, what_a_backup_opened_by_hand_uses_is_not_offered) {
  form.CheckBAK.set_checked(false);
  project("p.vip", {"a.wav"});
  project("p_BAK.vip", {"m.wav"});
  for (const char* file : {"a.wav", "b.wav", "m.wav", "z.wav"}) disk.write(file, file);
  open("p_BAK.vip");
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("m.wav")));
  EXPECT_THAT(offered(), ElementsAre(disk.path("z.wav"))) << "b is the neighbour of a used file";
}

TEST_F(NeverOfferUsed, the_project_is_decoded_under_the_path_that_was_picked) {
  project("x\\p.vip", {"x\\a.wav"});
  disk.write("x\\a.wav", "a");
  // The display form of this path names another file, as slashes are not seen as such there.
  dialogs.files.push_back({disk.folder() + "x/p.vip"});
  form.AbrirFichero_Click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("x\\a.wav")));
}

// --- projects that vanish on the way

TEST_F(NeverOfferUsed, the_folder_of_a_project_that_vanished_is_not_searched) {
  project("Uno\\a.vip", {"Uno\\u.wav"});
  project("Dos\\b.vip", {"Dos\\u.wav"});
  disk.write("Uno\\libre.wav", "1");
  disk.write("Dos\\libre.wav", "2");
  // After the decode, before the folders are searched.
  in_the_middle([&] { return form.lists.LabelAdd[1].visible(); },
                [&] { disk.remove("Dos\\b.vip"); });
  drop({"Uno\\a.vip", "Dos\\b.vip"});
  EXPECT_THAT(offered(), ElementsAre(disk.path("Uno\\libre.wav")));
}

TEST_F(NeverOfferUsed,
       the_others_are_decoded_for_the_last_look_where_the_first_dropped_one_vanishes) {
  form.CheckBAK.set_checked(false);
  project("Uno\\a.vip", {"Uno\\u.wav"});
  project("Dos\\b.vip", {"Dos\\u.wav"});
  project("Tres\\c.vip", {"Tres\\u.wav"});
  for (const char* file : {"Uno\\u.wav", "Dos\\u.wav", "Tres\\u.wav", "Dos\\libre.wav"}) {
    disk.write(file, file);
  }
  in_the_middle([&] { return form.lists.ListVip.visible(); }, [&] { disk.remove("Uno\\a.vip"); });
  drop({"Uno\\a.vip", "Dos\\b.vip", "Tres\\c.vip"});
  EXPECT_THAT(offered(), Not(Contains(disk.path("Dos\\u.wav"))));
  EXPECT_THAT(offered(), Not(Contains(disk.path("Tres\\u.wav"))));
}

TEST_F(NeverOfferUsed, a_used_file_whose_name_looks_like_a_separator_is_not_offered) {
  project("p.vip", {"----------.WAV"});
  disk.write("----------.wav", "x");
  disk.write("Copia\\----------.wav", "y");
  open("p.vip");
  EXPECT_THAT(offered(), ElementsAre(disk.path("Copia\\----------.wav")));
}

// --- projects that are left out

struct ProjectsLeftOut : NeverOfferUsed {
  ProjectsLeftOut() { project("Mix\\a.vip", {"Mix\\u.wav"}); }
};

TEST_F(ProjectsLeftOut, each_is_kept_with_its_reason) {
  disk.write("Mix\\midi.vip", project_of({}));
  disk.write("Mix\\vacio.vip", "");
  project("Mix\\FreezeData\\f.vip", {"Mix\\u.wav"});
  project("Mix\\Sub\\viejo_BAK.vip", {"Mix\\u.wav"});
  form.CheckBAK.set_checked(false);
  const std::vector<std::string> all = {
      disk.path("Mix\\FreezeData\\f.vip") + ": en una carpeta FreezeData",
      disk.path("Mix\\Sub\\viejo_BAK.vip") + ": copia _BAK, no incluida",
      disk.path("Mix\\midi.vip") + ": no se ha encontrado audio en él",
      disk.path("Mix\\vacio.vip") + ": no se ha encontrado audio en él"};
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), ::testing::UnorderedElementsAreArray(all));
  drop({"Mix"});
  EXPECT_THAT(left_out(), ::testing::UnorderedElementsAreArray(all));
  form.CheckBAK.set_checked(true);
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), ::testing::SizeIs(3));
}

TEST_F(ProjectsLeftOut, those_of_subfolders_are_left_out_where_these_are_not_included) {
  project("Mix\\Sub\\b.vip", {"Mix\\u.wav"});
  form.CheckSubPath.set_checked(false);
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), ElementsAre(disk.path("Mix\\Sub\\b.vip") +
                                      ": no está entre los proyectos abiertos o soltados"));
}

TEST_F(ProjectsLeftOut, those_beside_a_dropped_one_are_left_out) {
  project("Mix\\b.vip", {"Mix\\u.wav"});
  drop({"Mix\\a.vip"});
  EXPECT_THAT(left_out(), ElementsAre(disk.path("Mix\\b.vip") +
                                      ": no está entre los proyectos abiertos o soltados"));
}

TEST_F(ProjectsLeftOut, a_folder_whose_name_holds_the_backup_mark_is_reported) {
  // Listed by its file name, passed over by its row: the heading counts it, the totals do not.
  project("Mix\\Viejo_BAK\\b.vip", {"Mix\\u.wav"});
  form.CheckBAK.set_checked(false);
  open("Mix\\a.vip");
  EXPECT_THAT(projects(), ::testing::SizeIs(2));
  EXPECT_THAT(left_out(),
              ElementsAre(disk.path("Mix\\Viejo_BAK\\b.vip") + ": copia _BAK, no incluida"));
}

TEST_F(ProjectsLeftOut, one_that_vanishes_between_listing_and_decoding_is_reported) {
  project("Mix\\b.vip", {"Mix\\u.wav"});
  in_the_middle([&] { return form.lists.ListVip.visible(); }, [&] { disk.remove("Mix\\b.vip"); });
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), ElementsAre(disk.path("Mix\\b.vip") + ": ya no está"));
}

TEST_F(ProjectsLeftOut, one_whose_name_the_code_page_lacks_is_reported_with_marks) {
  std::ofstream(disk.native_path("Mix") / u8"nieve \u2603.vip") << "x";
  std::filesystem::create_directory(disk.native_path("Mix") / u8"nieve \u2603");
  std::ofstream(disk.native_path("Mix") / u8"nieve \u2603.wav") << "x";
  const std::vector<std::string> all = {
      disk.path("Mix\\nieve ?.vip") + ": su nombre no cabe en la página de códigos",
      disk.path("Mix\\nieve ?\\") + ": su nombre no cabe en la página de códigos"};
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), ::testing::UnorderedElementsAreArray(all));
  drop({"Mix"});
  EXPECT_THAT(left_out(), ::testing::UnorderedElementsAreArray(all));
}

TEST_F(ProjectsLeftOut, a_refused_project_is_reported_with_its_reason_on_the_empty_window) {
  disk.write("midi.vip", project_of({}));
  open("midi.vip");
  EXPECT_THAT(left_out(), ElementsAre(disk.path("midi.vip") + ": no se ha encontrado audio en él"));
  drop({"midi.vip"});
  EXPECT_THAT(left_out(), ElementsAre(disk.path("midi.vip") + ": no se ha encontrado audio en él"));
  disk.remove("midi.vip");
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), IsEmpty());
}

TEST_F(ProjectsLeftOut, a_reset_forgets_them) {
  disk.write("Mix\\midi.vip", project_of({}));
  open("Mix\\a.vip");
  EXPECT_THAT(left_out(), ::testing::SizeIs(1));
  form.cmdReset_Click();
  EXPECT_THAT(left_out(), IsEmpty());
}

// --- side files of a dropped folder without projects

struct SideFilesOfADrop : NeverOfferUsed {
  SideFilesOfADrop() {
    remember_side_files();
    for (const char* name : {"a.wma", "b.m4a", "Canción.WMA", "libre.wma", "x.cue", "y.h2"}) {
      disk.write(std::string("Viejo\\") + name, "x");
    }
  }
  void drop_and_confirm(const std::vector<std::string>& below) {
    dialogs.answers.push_back(system::Answer::ok);
    drop(below);
  }
  const std::string& strip_text() const { return form.strip.TextDecode.text(); }
};

TEST_F(SideFilesOfADrop, audio_that_a_project_names_stays) {
  // None of these is valid: no marker, no reference that the reader sees.
  disk.write("Viejo\\uno.vip", "basura C:\\Otra\\A.WMA");
  disk.write("Viejo\\Sub\\dos.vip", std::string("b\0.\0m\0"
                                                "4\0a\0",
                                                10));
  disk.write("Viejo\\Sub\\tres.vip.old", "canci\xC3\xB3n.wma");
  drop_and_confirm({"Viejo"});
  for (const char* kept : {"a.wma", "b.m4a", "Canción.WMA"}) {
    EXPECT_TRUE(there(std::string("Viejo\\") + kept)) << kept;
    EXPECT_NE(strip_text().find(disk.path(std::string("Viejo\\") + kept)), std::string::npos);
  }
  for (const char* gone : {"libre.wma", "x.cue", "y.h2"}) {
    EXPECT_FALSE(there(std::string("Viejo\\") + gone)) << gone;
  }
  EXPECT_TRUE(form.strip.TextDecode.visible()) << "also on the window that was emptied";
}

TEST_F(SideFilesOfADrop, all_audio_stays_where_a_project_cannot_be_read) {
  disk.make_folder("Viejo\\Sub");
  std::ofstream(disk.native_path("Viejo\\Sub") / u8"tres \u2603.vip") << "x";
  drop_and_confirm({"Viejo"});
  for (const char* kept : {"a.wma", "b.m4a", "Canción.WMA", "libre.wma"}) {
    EXPECT_TRUE(there(std::string("Viejo\\") + kept)) << kept;
  }
  EXPECT_FALSE(there("Viejo\\x.cue"));
  EXPECT_NE(strip_text().find("No se puede leer: " + disk.path("Viejo\\Sub\\tres ?.vip")),
            std::string::npos)
      << strip_text();
}

TEST_F(SideFilesOfADrop, what_stays_is_reported_after_a_sweep_too) {
  disk.write("Viejo\\uno.vip", "a.wma");
  project("Mix\\p.vip", {"Mix\\u.wav"});
  drop_and_confirm({"Viejo", "Mix"});
  EXPECT_THAT(projects(), ElementsAre(row(1, "Mix\\p.vip")));
  EXPECT_TRUE(there("Viejo\\a.wma"));
  EXPECT_FALSE(there("Viejo\\libre.wma"));
  EXPECT_TRUE(form.strip.TextDecode.visible());
  EXPECT_NE(strip_text().find(disk.path("Viejo\\a.wma")), std::string::npos);
}

TEST_F(SideFilesOfADrop, a_cancel_during_the_search_removes_nothing) {
  disk.write("Viejo\\uno.vip", std::string(3'000'000, 'x'));
  backend.on_pump = [&] {
    if (!dialogs.messages.empty()) form.cmdCancelar_Click();
  };
  drop_and_confirm({"Viejo"});
  EXPECT_TRUE(there("Viejo\\libre.wma"));
  EXPECT_TRUE(there("Viejo\\x.cue"));
}

// --- the last look alone, on disks whose listings give no numbers of files

class WithoutNumbers final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::map<std::string, std::string> short_names;  // what the disk finds a path by

  std::optional<system::FileInfo> info(std::string_view path) override {
    auto found = files().info(long_path(path));
    if (found) found->number = 0;
    return found;
  }
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    return files().identity(long_path(path));
  }

 private:
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    return files().each(
        folder, detail,
        [&](system::FileInfo& entry) {
          entry.number = 0;
          return visit(entry);
        },
        unnamed);
  }
  std::string long_path(std::string_view path) const {
    const auto found = short_names.find(std::string(path));
    return found == short_names.end() ? std::string(path) : found->second;
  }
};

struct LastLook : ::testing::Test {
  TestDisk disk;
  WithoutNumbers files{disk.files()};
  work::FolderTree tree{files};

  // Which of the offered files are used, with the folders of the offered ones searched before.
  std::vector<bool> same(const std::vector<std::string>& offered,
                         const std::vector<std::string>& used) {
    std::vector<std::string> rows;
    for (const std::string& file : offered) rows.push_back(disk.path(file));
    tree.walk(disk.path("x\\"), [](const auto&, const auto&) { return true; });
    std::vector<std::string> names;
    for (const std::string& file : used) {
      names.push_back(file.find(':') == std::string::npos ? disk.path(file) : file);
    }
    const auto candidates = candidates_of(rows, tree);
    return project::same_as_used(candidates, all_of(candidates), {&names}, files, tree,
                                 [] { return true; });
  }
  bool make_link(const std::string& target, const std::string& link, bool folder) {
    std::error_code failed;
    disk.make_folder("enlaces");
    if (folder) {
      std::filesystem::create_directory_symlink(disk.native_path(target), disk.native_path(link),
                                                failed);
    } else {
      std::filesystem::create_symlink(disk.native_path(target), disk.native_path(link), failed);
    }
    return !failed;
  }
};

TEST_F(LastLook, sees_a_used_link_to_an_offered_file_listed_or_not) {
  disk.write("x\\a.wav", "a");
  disk.write("x\\b.wav", "b");
  disk.write("x\\c.wav", "c");
  if (!make_link("x\\a.wav", "x\\otra a.wav", false)) GTEST_SKIP() << "this system makes no links";
  make_link("x\\b.wav", "enlaces\\otra b.wav", false);
  EXPECT_THAT(same({"x\\a.wav", "x\\b.wav", "x\\c.wav"}, {"x\\otra a.wav", "enlaces\\otra b.wav"}),
              ElementsAre(true, true, false));
}

TEST_F(LastLook, sees_an_offered_link_to_a_used_file) {
  disk.write("x\\a.wav", "a");
  disk.write("x\\c.wav", "c");
  if (!make_link("x\\a.wav", "x\\otra a.wav", false)) GTEST_SKIP() << "this system makes no links";
  EXPECT_THAT(same({"x\\otra a.wav", "x\\c.wav"}, {"x\\a.wav"}), ElementsAre(true, false));
}

TEST_F(LastLook, sees_a_used_file_through_another_way_to_its_folder) {
  std::vector<std::string> offered;
  std::vector<std::string> used;
  for (int i = 0; i < 40; ++i) {
    const std::string name = "Tomas\\n" + std::to_string(i) + ".wav";
    disk.write("x\\" + name, "x");
    offered.push_back("x\\" + name);
    used.push_back("enlaces\\X\\TOMAS\\N" + std::to_string(i) + ".wav");
  }
  disk.write("x\\libre.wav", "x");
  offered.push_back("x\\libre.wav");
  if (!make_link("x", "enlaces\\X", true)) GTEST_SKIP() << "this system makes no links";
  std::vector<bool> wanted(40, true);
  wanted.push_back(false);
  EXPECT_EQ(same(offered, used), wanted) << "a folder worth a listing";
  tree.forget();
  EXPECT_EQ(same({"x\\Tomas\\n3.wav", "x\\libre.wav"}, {used[3]}), std::vector<bool>({true, false}))
      << "a folder that is asked for single files";
}

TEST_F(LastLook, sees_a_used_folder_that_was_searched_in_two_ways) {
  disk.write("x\\a.wav", "a");
  if (!make_link("x", "enlaces\\X", true)) GTEST_SKIP() << "this system makes no links";
  tree.listing(disk.path("enlaces\\X\\"));
  EXPECT_THAT(same({"enlaces\\X\\a.wav"}, {"x\\a.wav"}), ElementsAre(true));
}

TEST_F(LastLook, sees_a_used_file_by_its_short_name) {
  disk.write("x\\una toma larga.wav", "a");
  disk.write("x\\b.wav", "b");
  files.short_names[disk.path("x\\UNATOM~1.WAV")] = disk.path("x\\una toma larga.wav");
  EXPECT_THAT(same({"x\\una toma larga.wav", "x\\b.wav"}, {"x\\UNATOM~1.WAV"}),
              ElementsAre(true, false));
}

TEST_F(LastLook, passes_over_titles) {
  disk.write("x\\a.wav", "a");
  EXPECT_THAT(same({"x\\a.wav"}, {"1 --> " + disk.path("x\\a.wav")}), ElementsAre(false));
}

// --- what the side files of a drop are kept for

TEST_F(SideFilesOfADrop, that_are_hidden_stay) {
  // Nothing is hidden on every system: the search alone is asked.
  MemoryFolders files;
  files.add_folder("D:\\v");
  files.add_file("D:\\v\\a.cue", "x", true);
  files.add_file("D:\\v\\b.cue", "x");
  work::FolderTree tree(files);
  const auto side = project::side_files_of("D:\\v\\", {}, files, tree, [] { return true; });
  EXPECT_THAT(side.removable, ElementsAre("b.cue"));
}

TEST_F(SideFilesOfADrop, that_are_audio_stay_where_a_project_is_locked) {
  for (const bool locked : {false, true}) {
    MemoryFolders files;
    files.add_folder("D:\\v");
    files.add_folder("D:\\v\\sub");
    files.add_file("D:\\v\\a.wma", "x");
    files.add_file("D:\\v\\b.cue", "x");
    files.add_file("D:\\v\\sub\\p.vip", "nada", false, locked);
    work::FolderTree tree(files);
    const auto side = project::side_files_of("D:\\v\\", {}, files, tree, [] { return true; });
    EXPECT_EQ(side.kept.size(), locked ? 1u : 0u);
    EXPECT_EQ(side.unreadable, locked ? "D:\\v\\sub\\p.vip" : "");
    EXPECT_EQ(side.removable.size(), locked ? 1u : 2u);
  }
}

TEST_F(SideFilesOfADrop, are_not_removed_once_the_job_has_ended_while_the_box_was_up) {
  dialogs.on_dialog = [&] { form.cmdReset_Click(); };
  drop_and_confirm({"Viejo"});
  EXPECT_TRUE(there("Viejo\\x.cue"));
}

TEST_F(NeverOfferUsed, a_used_file_that_goes_during_the_search_still_protects_its_name) {
  // Listed, then gone: as a lost file it strikes out every file of its name without a comparison.
  project("x\\p.vip", {"x\\Tomas\\a.wav"});
  disk.write("x\\Tomas\\a.wav", "audio");
  disk.write("x\\Copia\\a.wav", "otro");
  in_the_middle([&] { return form.strip.TextDecode.text() == "Buscando archivos no utilizados "; },
                [&] { disk.remove("x\\Tomas\\a.wav"); });
  open("x\\p.vip");
  EXPECT_THAT(offered(), Not(Contains(disk.path("x\\Copia\\a.wav"))));
}

}  // namespace
}  // namespace ordelan::test
