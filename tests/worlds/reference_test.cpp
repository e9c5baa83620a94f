// The reference itself, on studios small enough to work out by hand.
#include <gmock/gmock.h>

#include <fstream>

#include "support/small_project.h"
#include "test_disk.h"
#include "worlds/reference_program.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Reference : ::testing::Test {
  TestDisk disk;
  reference::Program program{disk.native_path("")};
};

TEST_F(Reference, strikes_a_used_file_and_the_candidate_after_it) {
  for (const char* file : {"a.wav", "b.wav", "c.wav", "d.mp3", "c.h2"}) disk.write(file, file);
  disk.write("tema.vip", project_of({"D:\\a.wav"}));
  program.open("D:\\tema.vip");
  EXPECT_THAT(program.ListProyectos, ElementsAre("1 --> D:\\tema.vip"));
  EXPECT_THAT(program.ListVip, ElementsAre("D:\\a.wav"));
  EXPECT_THAT(program.ListUtilizados, ElementsAre("1 --> D:\\tema.vip", "D:\\a.wav"));
  EXPECT_THAT(program.ListBorrar, ElementsAre("D:\\c.wav", "D:\\d.mp3"));
  EXPECT_EQ(program.LabelCheck[0], "Encontrados 1 proyectos en:");
  EXPECT_EQ(program.LabelCheck[1], "D:\\");
  EXPECT_EQ(program.LabelCount[0], "1 Archivos utilizados en: D:\\tema.vip");
  EXPECT_EQ(program.LabelAdd[0], "1  archivos en: 1 proyectos, 0 duplicados; Total: 1");
  EXPECT_EQ(program.LabelErase[1], "Archivos no utilizados: 2     Duplicados: 0    Total: 2");
  EXPECT_TRUE(program.offers_reports);
}

TEST_F(Reference, keeps_equal_copies_and_offers_other_recordings_of_the_same_name) {
  disk.write("Mix\\a.wav", "1");
  disk.write("Mix\\Igual\\a.wav", "1");
  disk.write("Mix\\Otra\\a.wav", "2");
  disk.write("Mix\\Otra\\z.wav", "2");
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  program.open("D:\\Mix\\tema.vip");
  // The copy goes with the used file: it stands after it.
  EXPECT_THAT(program.ListBorrar, ElementsAre("D:\\Mix\\Otra\\a.wav", "D:\\Mix\\Otra\\z.wav"));
}

TEST_F(Reference, strikes_the_namesakes_of_a_lost_file_but_for_one_right_after_another) {
  disk.write("Mix\\Uno\\a.wav", "1");
  disk.write("Mix\\Uno\\A.wav2", "1");
  disk.write("Mix\\Dos\\a.wav", "2");
  disk.write("Mix\\b.wav", "2");
  disk.write("Mix\\tema.vip", project_of({"D:\\Mix\\a.wav"}));
  program.open("D:\\Mix\\tema.vip");
  // The row after a struck one is not looked at, so that Uno's stays and is found by no other row.
  EXPECT_THAT(program.ListBorrar, ElementsAre("D:\\Mix\\b.wav", "D:\\Mix\\Uno\\a.wav"));
}

TEST_F(Reference, offers_no_file_that_is_used_under_another_spelling) {
  disk.write("Mix\\Toma.wav", "1");
  disk.write("Mix\\voz.wav", "2");
  disk.write("Mix\\piano.wav", "3");
  disk.write("Mix\\otro.wav", "4");
  std::filesystem::create_hard_link(disk.native_path("Mix\\otro.wav"),
                                    disk.native_path("Mix\\enlace.wav"));
  disk.write("Mix\\tema.vip", project_of({"d:\\MIX\\tOMA.wav", "D:\\Mix/VOZ.wav",
                                          "D:\\\\Nada\\..\\Mix\\.\\PIANO.wav"}));
  disk.write("Mix\\dos.vip", project_of({"E:\\otro.mp3", "D:\\Mix\\enlace.wav"}));
  program.open("D:\\Mix\\tema.vip");
  EXPECT_THAT(program.ListBorrar, IsEmpty());
  // Of the five, enlace.wav and otro.wav went with the strike; the guard kept the rest.
  EXPECT_EQ(program.tally.struck, 2u);
  EXPECT_EQ(program.tally.guarded, 3u);
}

TEST_F(Reference, reads_references_with_their_oddities) {
  disk.write("tema.vip",
             project_of({"D:\\x.aiff", "D:\\x.flac", "D:\\a.b.wav", "D:\\my.wave\\take.mp3",
                         "D:\\X.WAV", "D:\\x.wma", "D:\\[x].ogg"}));
  program.open("D:\\tema.vip");
  EXPECT_THAT(program.ListVip,
              ElementsAre("D:\\x.aif", "D:\\x.flac", "D:\\my.wav", "D:\\X.WAV", "D:\\[x].ogg"));
  disk.write("sin.vip", project_of({"D:\\x.wav"}).substr(0, 300));
  program.open("D:\\sin.vip");
  EXPECT_THAT(program.ListProyectos, IsEmpty()) << "no marker, no references";
  EXPECT_FALSE(program.offers_reports);
}

TEST_F(Reference, lists_folders_in_the_order_of_capitals_and_leaves_out_what_has_no_name) {
  for (const char* folder : {"tema_B", "temaA", "\xC1rbol", "zeta", "nada"}) {
    disk.write(std::string("Mix\\") + folder + "\\p.vip", project_of({"D:\\x.wav"}));
  }
  disk.write("Mix\\p.vip", project_of({"D:\\x.wav"}));
  std::filesystem::create_directory_symlink(disk.native_path("Mix\\zeta"),
                                            disk.native_path("Mix\\puente"));
  std::filesystem::rename(disk.native_path("Mix\\nada"),
                          disk.native_path("Mix") / "nieve\xE2\x98\x83");
  program.CheckSubPath = true;
  program.open("D:\\Mix\\p.vip");
  EXPECT_THAT(program.ListProyectos,
              ElementsAre("1 --> D:\\Mix\\p.vip", "2 --> D:\\Mix\\temaA\\p.vip",
                          "3 --> D:\\Mix\\tema_B\\p.vip", "4 --> D:\\Mix\\zeta\\p.vip",
                          "5 --> D:\\Mix\\\xC1rbol\\p.vip"));
}

TEST_F(Reference, leaves_backups_out_of_what_is_listed_and_decoded) {
  disk.write("Mix\\a.vip", project_of({"D:\\x.wav"}));
  disk.write("Mix\\Viejo_BAK\\b.vip", project_of({"D:\\y.wav"}));
  disk.write("Mix\\c_BAK.vip", project_of({"D:\\z.wav"}));
  program.CheckSubPath = true;
  program.open("D:\\Mix\\c_BAK.vip");
  EXPECT_THAT(program.ListProyectos,
              ElementsAre("1 --> D:\\Mix\\a.vip", "2 --> D:\\Mix\\Viejo_BAK\\b.vip"));
  EXPECT_THAT(program.ListVip, ElementsAre("D:\\z.wav"));
  EXPECT_THAT(program.ListUtilizados, ElementsAre("1 --> D:\\Mix\\a.vip", "D:\\x.wav"));
  program.CheckBAK = true;
  program.open("D:\\Mix\\a.vip");
  EXPECT_EQ(program.ListProyectos.size(), 3u);
  EXPECT_EQ(program.LabelAdd[0], "3  archivos en: 3 proyectos, 0 duplicados; Total: 3");
}

TEST_F(Reference, a_drop_passes_over_what_is_no_project_and_ends_at_a_folder_with_projects) {
  for (const char* project : {"A.vip", "C.vip", "Mix\\m.vip", "Z.vip"}) {
    disk.write(project, project_of({"D:\\x.wav"}));
  }
  disk.write("nota.txt", "");
  program.drop({"D:\\A.vip", "D:\\nota.txt", "D:\\C.vip"});
  EXPECT_THAT(program.ListProyectos, ElementsAre("1 --> D:\\A.vip", "2 --> D:\\C.vip"));
  EXPECT_EQ(program.LabelCheck[1], "D:\\A.vip");
  program.drop({"D:\\C.vip", "D:\\Mix\\", "D:\\Z.vip"});
  EXPECT_THAT(program.ListProyectos, ElementsAre("1 --> D:\\C.vip", "2 --> D:\\Mix\\m.vip"));
  EXPECT_EQ(program.LabelCheck[1], "D:");
  program.drop({"D:\\nota.txt"});
  EXPECT_THAT(program.ListProyectos, IsEmpty());
  EXPECT_TRUE(program.offers_reports);
}

}  // namespace
}  // namespace ordelan::test
