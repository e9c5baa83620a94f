// Ways in which a run could take a file that its user wanted to keep.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "removal/reasons.h"
#include "support/removal_bench.h"
#include "ui/mouse.h"

namespace ordelan::test {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

using FileCall = FaultyFiles::Call;
using system::Reason;

struct RunAttack : ::testing::Test, RemovalBench {
  // Takes a row out of the review as the key does.
  void throw_out(int row) {
    review().ListBorrar.set_current(row);
    ui::Key key{46};
    review().on_key_down(key);
  }
  void removal_stop() { options().cmdParar.on_click(); }
  void choose_folder(const std::string& below) {
    set(true, true, false);
    disk.make_folder(below);
    dialogs.folders.push_back(disk.path(below));
    review().cmdHecho_Click();
  }
};

TEST_F(RunAttack, a_row_that_moves_up_while_another_is_copied_stays_without_a_copy) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  // The key comes while the first row is being copied.
  bool pressed = false;
  faulty.faults.on_call = [&](FileCall call, std::string_view) {
    if (pressed || call != FileCall::flush_file) return;
    pressed = true;
    throw_out(0);
  };
  remove_with_backup("Copias");
  ASSERT_TRUE(pressed);
  EXPECT_TRUE(there("Mix\\b.wav")) << "it has no copy";
  EXPECT_FALSE(there("Copias\\b.wav"));
  EXPECT_THAT(reason("Mix\\b.wav"), HasSubstr(removal::reason::kNoCopy));
  EXPECT_TRUE(there("Mix\\a.wav")) << "it was thrown out";
}

TEST_F(RunAttack, the_folder_window_goes_with_the_review) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  untick("Mix\\b.wav");
  choose_folder("Copias");
  review().cmdSalir_Click();
  EXPECT_EQ(windows.find<removal::CarpetaBack>(), nullptr);
}

TEST_F(RunAttack, the_folder_window_goes_with_the_options) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  untick("Mix\\b.wav");
  choose_folder("Copias");
  options().Salir_Click();
  EXPECT_EQ(windows.find<removal::CarpetaBack>(), nullptr);
  choose_folder("Copias");
  options().cmdSalir_Click();
  EXPECT_EQ(windows.find<removal::CarpetaBack>(), nullptr);
}

TEST_F(RunAttack, the_folder_window_goes_when_another_project_is_opened) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  disk.write("Dos\\usado.wav", "used");
  disk.write("Dos\\z.wav", "not reviewed by anybody");
  project("Dos\\tema.vip", {"Dos\\usado.wav"});
  choose_folder("Copias");
  open("Dos\\tema.vip");
  EXPECT_EQ(windows.find<removal::CarpetaBack>(), nullptr);
}

TEST_F(RunAttack, a_copy_never_gets_the_place_of_a_row_in_a_numbered_folder) {
  disk.write("Mix\\0001\\usado3.wav", "used");
  disk.write("Mix\\0001\\usado4.wav", "its neighbour");
  disk.write("Mix\\s1\\usado5.wav", "used");
  project("Mix\\otro.vip", {"Mix\\0001\\usado3.wav", "Mix\\s1\\usado5.wav"});
  open_studio({"Mix\\0001\\a.wav", "Mix\\s1\\a.wav"});
  ASSERT_EQ(offered().size(), 2u);
  shell.answers_yes = false;
  remove_with_backup("Mix");
  EXPECT_FALSE(there("Mix\\s1\\a.wav"));
  EXPECT_FALSE(there("Mix\\0001\\a.wav")) << "its place is free for it";
  shell.answers_yes = true;
  recover("Mix");
  EXPECT_EQ(bytes("Mix\\0001\\a.wav"), "bytes of Mix\\0001\\a.wav");
  EXPECT_EQ(bytes("Mix\\s1\\a.wav"), "bytes of Mix\\s1\\a.wav");
}

TEST_F(RunAttack, what_lies_in_a_bin_stays) {
  const std::vector<std::string> bins = {
      "Mix\\$RECYCLE.BIN\\S-1-5-21\\$RB.wav", "Mix\\.Trash-0\\files\\b.wav",
      "Mix\\.Trash\\0\\files\\c.wav", "Mix\\share\\Trash\\files\\d.wav", "Mix\\RECYCLER\\e.wav"};
  open_studio({"Mix\\a.wav"});
  for (const std::string& each : bins) {
    disk.write(each, "removed once already");
    form.lists.ListBorrar.add(disk.path(each));
  }
  form.CopiarListBorrados();
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  for (const std::string& each : bins) {
    EXPECT_TRUE(there(each)) << each;
    EXPECT_EQ(reason(each), removal::reason::kInBin) << each;
  }
}

TEST_F(RunAttack, a_folder_named_like_a_song_about_trash_is_no_bin) {
  open_studio({"Mix\\a.wav", "Mix\\Trash\\b.wav", "Mix\\Trash day\\files\\c.wav"});
  for (const char* each : {"Mix\\Trash\\b.wav", "Mix\\Trash day\\files\\c.wav"}) {
    form.lists.ListBorrar.add(disk.path(each));
  }
  form.CopiarListBorrados();
  remove();
  EXPECT_NE(reason("Mix\\Trash\\b.wav"), removal::reason::kInBin);
  EXPECT_NE(reason("Mix\\Trash day\\files\\c.wav"), removal::reason::kInBin);
}

TEST_F(RunAttack, a_side_file_that_is_a_link_stays_and_what_it_leads_to_keeps_its_attributes) {
  open_studio({"Mix\\a.wav"});
  disk.write("Ajeno\\b.h2", "somebody else's");
  std::error_code failed;
  fs::create_symlink(disk.native_path("Ajeno\\b.h2"), disk.native_path("Mix\\b.h2"), failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  form.lists.List1.add(disk.path("Mix\\b.h2"));
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Ajeno\\b.h2"), system::attribute::kReadOnly));
  set(false, true, true);
  remove();
  EXPECT_TRUE(there("Mix\\b.h2"));
  EXPECT_EQ(reason("Mix\\b.h2"), removal::reason::kLink);
  unchecked();
  remove();
  const auto target = disk.files().info(disk.path("Ajeno\\b.h2"));
  ASSERT_TRUE(target);
  EXPECT_NE(target->attributes & system::attribute::kReadOnly, 0u);
}

TEST_F(RunAttack, a_folder_that_is_protected_in_the_middle_of_a_run_is_spared) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  in_the_middle([&] { return !there("Mix\\a.wav"); },
                [&] {
                  folders().Salir_Click();
                  folders().List1.add(disk.path("Mix"));
                });
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\c.wav"));
}

TEST_F(RunAttack, a_row_that_is_ticked_during_a_run_without_the_careful_look_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  unchecked();
  untick("Mix\\c.wav");
  in_the_middle([&] { return !there("Mix\\a.wav"); },
                [&] { review().ListStatus.set_ticked(2, true); });
  remove();
  EXPECT_FALSE(there("Mix\\b.wav"));
  EXPECT_TRUE(there("Mix\\c.wav"));
}

TEST_F(RunAttack, a_file_that_changes_during_the_run_stays) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  in_the_middle([&] { return !there("Mix\\a.wav"); },
                [&] { disk.write("Mix\\b.wav", "a take recorded over it a moment ago"); });
  remove();
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_EQ(reason("Mix\\b.wav"), removal::reason::kChanged);
}

TEST_F(RunAttack, a_folder_that_is_protected_under_another_name_is_spared) {
  open_studio({"Mix\\a.wav"});
  std::error_code failed;
  fs::create_directory_symlink(disk.native_path("Mix"), disk.native_path("Otra"), failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  folders().List1.add(disk.path("Otra"));
  folders().Salir_Click();
  remove();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_THAT(reason("Mix\\a.wav"), StartsWith(removal::reason::kProtected));
}

TEST_F(RunAttack, no_recovery_begins_during_a_run) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav", "Mix\\c.wav"});
  remove_with_backup("Copias");
  disk.write("Mix\\d.wav", "d");
  dialogs.files.push_back({disk.path("Copias\\Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  open("Mix\\tema.vip");
  form.CommandBorrado.on_click();
  options().cmdBorrar_Click();
  set(false, true, false);
  review().CheckBorrarPapelera.set_checked(false);
  dialogs.files.push_back({disk.path("Copias\\Archivos_Borrados.log")});
  auto& window = recovery();
  window.cmdOpen_Click();
  ASSERT_TRUE(window.cmdRecuperar.visible());
  in_the_middle([&] { return options().cmdParar.visible(); }, [&] { window.RecuperarArchivos(); });
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(window.cmdRecuperar.visible());
}

TEST_F(RunAttack, a_log_that_cannot_be_read_leaves_nothing_of_the_one_before) {
  open_studio({"Mix\\a.wav"});
  remove_with_backup("Copias");
  disk.write("Otra\\Archivos_Borrados.log", bytes("Copias\\Archivos_Borrados.log"));
  dialogs.files.push_back({disk.path("Copias\\Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  ASSERT_TRUE(recovery().cmdRecuperar.visible());
  faulty.faults.fail({.call = FileCall::open, .path = disk.path("Otra\\Archivos_Borrados.log")},
                     Reason::in_use);
  dialogs.files.push_back({disk.path("Otra\\Archivos_Borrados.log")});
  recovery().cmdOpen_Click();
  EXPECT_FALSE(recovery().cmdRecuperar.visible());
  EXPECT_TRUE(recovery().log().empty());
  EXPECT_THAT(recovery().Label1.caption(), HasSubstr("lo tiene abierto otro programa"));
}

TEST_F(RunAttack, a_stop_during_the_look_ends_the_run_before_anything_is_touched) {
  open_studio({"Mix\\a.wav", "Mix\\a.h2"});
  form.lists.List1.add(disk.path("Mix\\a.h2"));
  set(true, true, true);
  review().CheckVaciarPapelera.set_checked(true);
  disk.make_folder("Copias");
  dialogs.folders.push_back(disk.path("Copias"));
  review().cmdHecho_Click();
  in_the_middle([&] { return options().cmdParar.visible(); },
                [&] { options().cmdParar.on_click(); });
  folder_window().cmdCarpetaBorrar_Click();
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\a.h2"));
  EXPECT_EQ(shell.emptied, 0);
  EXPECT_FALSE(there("Copias\\Archivos_Borrados.log"));
  EXPECT_EQ(options().LabelInfo.caption(), " >> Se han Cancelado todas las operaciones << ");
  EXPECT_FALSE(outcome().CancelarBorrado);
}

TEST_F(RunAttack, a_project_that_is_saved_while_a_question_stands_is_read_again) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  shell.without_bin.insert(disk.folder().substr(0, 3));
  review().CheckBorrarPapelera.set_checked(true);
  dialogs.answers.push_back(system::Answer::yes);
  dialogs.on_dialog = [&] { project("Mix\\nuevo.vip", {"Mix\\b.wav"}); };
  remove();
  EXPECT_FALSE(there("Mix\\a.wav"));
  EXPECT_TRUE(there("Mix\\b.wav"));
  EXPECT_EQ(reason("Mix\\b.wav"), "lo nombra " + disk.path("Mix\\nuevo.vip"));
}

TEST_F(RunAttack, a_no_to_a_backup_without_room_takes_the_stop_of_that_run_along) {
  open_studio({"Mix\\a.wav", "Mix\\b.wav"});
  drives.add(disk.folder().substr(0, 3)).space.free = 1;
  dialogs.answers.push_back(system::Answer::no);
  dialogs.on_dialog = [&] { removal_stop(); };
  remove_with_backup("Copias");
  EXPECT_TRUE(there("Mix\\a.wav"));
  EXPECT_FALSE(outcome().CancelarBorrado);
}

}  // namespace
}  // namespace ordelan::test
