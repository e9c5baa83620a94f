// Ways in which somebody could lose something by an update or its undoing, once found by trying.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "relink/originals.h"
#include "relink/run_index.h"
#include "removal/backup_options_window.h"
#include "support/update_bench.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

struct UpdateAttack : ::testing::Test, UpdateBench {
  using Call = FaultyFiles::Call;

  void two() {
    for (const std::string name : {"a", "b"}) {
      project_at("Mix\\" + name + ".vip", {"D:\\Viejo\\" + name + ".wav"});
      audio("Nuevo\\" + name + ".wav");
      before[name] = bytes("Mix\\" + name + ".vip");
    }
    start();
    open("Mix\\a.vip");
  }
  bool is_old(const std::string& name) { return bytes("Mix\\" + name + ".vip") == before[name]; }
  bool is_new(const std::string& name) {
    return paths_in("Mix\\" + name + ".vip") ==
           std::vector<std::string>{disk.path("Nuevo\\" + name + ".wav")};
  }
  void copy_folder(const std::string& from, const std::string& to) {
    std::filesystem::copy(disk.native_path(from), disk.native_path(to),
                          std::filesystem::copy_options::recursive);
  }
  // Offers the way back of a folder and takes it.
  void undo_in(const std::string& below) {
    form.relink().look_for_undo(disk.path(below));
    undo();
  }

  std::map<std::string, std::string> before;
};

TEST_F(UpdateAttack, undoing_in_a_copy_of_the_folder_leaves_the_folder_alone) {
  two();
  update();
  copy_folder("Mix", "Mix copia");
  undo_in("Mix copia\\");
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_new("b"));
  EXPECT_EQ(bytes("Mix copia\\a.vip"), before["a"]);
  EXPECT_EQ(bytes("Mix copia\\b.vip"), before["b"]);
}

TEST_F(UpdateAttack, undoing_in_a_renamed_folder_does_not_touch_a_new_one_of_the_old_name) {
  two();
  update();
  copy_folder("Mix", "Mix v1");
  disk.remove("Mix");
  disk.write("Mix\\a.vip", "a new song");
  undo_in("Mix v1\\");
  EXPECT_EQ(bytes("Mix\\a.vip"), "a new song");
  EXPECT_EQ(bytes("Mix v1\\a.vip"), before["a"]);
}

TEST_F(UpdateAttack, undoing_in_a_copy_replaces_no_project_but_the_updated_one) {
  two();
  update();
  copy_folder("Mix", "Mix copia");
  disk.write("Mix copia\\a.vip", "another song");
  undo_in("Mix copia\\");
  EXPECT_EQ(bytes("Mix copia\\a.vip"), "another song");
  EXPECT_EQ(bytes("Mix copia\\b.vip"), before["b"]);
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("no es el proyecto que se actualizó en"));
}

TEST_F(UpdateAttack, a_project_that_could_not_be_read_to_its_end_is_left) {
  two();
  bool pointing = false;
  backend.on_pump = [&] { pointing = pointing || form.strip.LabelAviso.visible(); };
  int reads = 0;
  faulty.on_read = [&](std::uint64_t) -> std::optional<std::size_t> {
    // The reads of the pass that writes pointers, once the copies stand.
    if (there("Mix\\Originales\\b.vip") && work.ModoPosiciones && ++reads > 8) return std::nullopt;
    return std::size_t{1} << 20;
  };
  update();
  faulty.on_read = nullptr;
  EXPECT_TRUE(is_old("a") || is_new("a"));
  EXPECT_TRUE(is_old("b") || is_new("b"));
  EXPECT_TRUE(is_old("b"));
}

TEST_F(UpdateAttack, an_older_pointer_file_that_could_not_be_replaced_is_not_used) {
  two();
  disk.write("Mix\\Originales\\a_vip.ptr", " 120 \r\n 130 \r\n");
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\Originales\\a_vip.ptr"),
                                          system::attribute::kReadOnly));
  update();
  EXPECT_TRUE(is_old("a"));
  EXPECT_TRUE(is_new("b"));
  EXPECT_EQ(updated()[0].motivo, "su archivo de punteros está dañado");
}

TEST_F(UpdateAttack, a_pointer_file_that_was_cut_short_is_not_used) {
  two();
  faulty.faults.fail({.call = Call::write, .path = disk.path("Mix\\Originales\\a_vip.ptr")},
                     system::Reason::no_space);
  update();
  EXPECT_TRUE(is_old("a"));
  EXPECT_TRUE(is_new("b"));
}

TEST_F(UpdateAttack, an_update_that_may_not_begin_touches_nothing_in_the_folder) {
  two();
  disk.write("Mix\\Originales\\a_vip.ptr", " 120 \r\n 130 \r\n");
  disk.write("Mix\\Originales\\b_vip.ptr", "my notes");
  disk.write("Mix\\ordelan-0123abcd.tmp", "of the other update");
  disk.write("Mix\\Originales\\Actualizacion.log", "Actualización de proyectos: the other's");
  const auto lock = disk.files().lock(disk.path("Mix\\Originales\\Actualizacion.lock"));
  ASSERT_TRUE(lock);
  update();
  EXPECT_TRUE(is_old("a"));
  EXPECT_EQ(bytes("Mix\\Originales\\a_vip.ptr"), " 120 \r\n 130 \r\n");
  EXPECT_EQ(bytes("Mix\\Originales\\b_vip.ptr"), "my notes");
  EXPECT_EQ(bytes("Mix\\ordelan-0123abcd.tmp"), "of the other update");
  EXPECT_EQ(bytes("Mix\\Originales\\Actualizacion.log"), "Actualización de proyectos: the other's");
  EXPECT_EQ(last_box().title, "Estos proyectos Vip no tienen archivos desubicados");
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("lo tiene abierto otro programa"));
}

TEST_F(UpdateAttack, a_file_with_the_name_of_pointers_stays_where_it_cannot_be_saved) {
  two();
  disk.write("Mix\\Originales\\a_vip.ptr", "my notes");
  faulty.faults.fail(
      {.call = Call::copy_new, .path = disk.path("Mix\\Originales\\0001\\a_vip.ptr.orig")},
      system::Reason::no_space);
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\a_vip.ptr"), "my notes");
  EXPECT_TRUE(is_old("a"));
  EXPECT_TRUE(is_new("b"));
}

TEST_F(UpdateAttack, a_file_with_the_name_of_the_lock_stays) {
  two();
  disk.write("Mix\\Originales\\Actualizacion.lock", "my own list");
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\Actualizacion.lock"), "my own list");
  EXPECT_TRUE(is_old("a"));
}

TEST_F(UpdateAttack, an_undo_that_was_killed_can_be_taken_up_again) {
  two();
  update();
  faulty.faults.kill({.call = Call::replace, .path = disk.path("Mix\\b.vip")});
  EXPECT_THROW(undo(), Killed);
  faulty.faults.heal();
  work.Actualizando = false;
  EXPECT_TRUE(is_old("a"));
  EXPECT_TRUE(is_new("b"));
  undo_in("Mix\\");
  EXPECT_TRUE(is_old("b"));
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateAttack, an_update_that_was_killed_before_it_patched_anything_reverts_nothing) {
  two();
  faulty.faults.kill({.call = Call::create_new, .path = disk.path("Mix\\Originales\\b_vip.ptr")});
  EXPECT_THROW(update(), Killed);
  faulty.faults.heal();
  work.Actualizando = false;
  disk.write("Mix\\a.vip", "a week's work");
  undo_in("Mix\\");
  EXPECT_EQ(bytes("Mix\\a.vip"), "a week's work");
}

// The second update writes over the copy of the first, and ends before it has done anything.
TEST_F(UpdateAttack, an_update_that_ends_early_does_not_break_the_way_back_of_the_one_before) {
  two();
  update();
  disk.remove("Nuevo");
  open("Mix\\a.vip");
  faulty.faults.kill({.call = Call::create_new, .path = disk.path("Mix\\Originales\\a_vip.ptr")});
  EXPECT_THROW(update(), Killed);
  faulty.faults.heal();
  work.Actualizando = false;
  undo_in("Mix\\");  // of the one that was killed
  undo_in("Mix\\");
  EXPECT_TRUE(is_old("a"));
  EXPECT_TRUE(is_old("b"));
}

TEST_F(UpdateAttack, copies_that_do_not_reach_the_disk_leave_nothing_to_be_undone) {
  two();
  faulty.faults.fail({.call = Call::flush_file}, system::Reason::other);
  update();
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateAttack, a_folder_of_projects_is_not_taken_for_one_without_while_pointers_are_on) {
  two();
  disk.write("Mix\\a.hdp", "side file");
  windows.touch<removal::BacUp>()->CheckBorraAsociados.set_checked(true);
  work.ModoPosiciones = true;
  dialogs.answers.push_back(system::Answer::ok);
  drop({"Mix"});
  EXPECT_TRUE(there("Mix\\a.hdp"));
}

TEST_F(UpdateAttack, a_drive_window_that_is_closed_lets_the_options_of_removal_be_used) {
  two();
  auto& options = *windows.touch<removal::BacUp>();
  options.cmdBorrar.set_enabled(false);
  options.LabelConfig.hide();
  form.Configurar.on_click();
  boxes().cmdSalir.on_click();
  EXPECT_TRUE(options.cmdBorrar.enabled());
  EXPECT_TRUE(options.LabelConfig.visible());
  options.cmdBorrar.set_enabled(false);
  work.ModoPosiciones = true;
  form.Configurar.on_click();
  boxes().cmdSalir.on_click();
  EXPECT_FALSE(options.cmdBorrar.enabled());
}

// --- the index

TEST(RunIndex, a_line_is_read_back_as_it_was_written) {
  using relink::RunRecord;
  const std::vector<RunRecord> all = {{RunRecord::Kind::folder, "D:\\Mix\\Originales\\"},
                                      {RunRecord::Kind::copy, "D:\\a.vip", {7, 9}, "0001\\a.orig"},
                                      {RunRecord::Kind::target, "D:\\a.vip", {7, ~0ull}},
                                      {RunRecord::Kind::created, "D:\\b.vip"},
                                      {RunRecord::Kind::done, "D:\\a.vip", {0, 0}}};
  std::string lines;
  for (const RunRecord& record : all) lines += relink::run_line(record);
  EXPECT_EQ(relink::read_run(lines), all);
}

TEST(RunIndex, lines_that_are_none_and_a_line_without_its_end_are_passed_over) {
  EXPECT_THAT(relink::read_run("copy\t1\t2\t\tD:\\a\r\nother\t1\r\ndone\tx\t1\tD:\\a\r\n"
                               "new\t\r\nnew\tD:\\a\tb\r\nnew\tD:\\c"),
              IsEmpty());
}

TEST(RunIndex, the_updates_of_a_folder_are_found_by_their_numbers) {
  TestDisk disk;
  for (const char* const name :
       {"Actualizacion0002.ind", "Actualizacion0010.IND", "Actualizacion0003.ant",
        "Actualizacion3.ind", "Actualizacion.ind", "Actualizacion0004.ind.bak"}) {
    disk.write(name, "");
  }
  disk.make_folder("Actualizacion0099.ind");
  const relink::Runs runs = relink::runs_of(disk.files(), disk.folder());
  EXPECT_EQ(runs.open, (std::vector<std::size_t>{2, 10}));
  EXPECT_EQ(runs.undone, (std::vector<std::size_t>{3}));
  EXPECT_EQ(runs.last(), 10u);
}

TEST(OriginalsFolder, is_beside_the_projects) {
  EXPECT_EQ(relink::originals_folder("D:\\Mix\\"), "D:\\Mix\\Originales\\");
  EXPECT_EQ(relink::originals_folder("D:\\Mix"), "D:\\Mix\\Originales\\");
}

// A folder whose name holds the letters is cut as well: what is then updated stands above it.
TEST(OriginalsFolder, a_path_that_holds_vip_is_cut_to_its_folder) {
  EXPECT_EQ(relink::projects_folder("D:\\Mix\\a.vip"), "D:\\Mix\\");
  EXPECT_EQ(relink::projects_folder("D:\\Mix\\A.VIP"), "D:\\Mix\\");
  EXPECT_EQ(relink::projects_folder("D:\\Mix\\a.Vip"), "D:\\Mix\\a.Vip");
  EXPECT_EQ(relink::projects_folder("D:\\vips\\Mix"), "D:\\vips\\");
  EXPECT_EQ(relink::projects_folder("D:\\Mix\\"), "D:\\Mix\\");
}

TEST(OriginalsFolder, is_recognised_in_any_case_and_only_as_a_whole_name) {
  EXPECT_TRUE(relink::is_original("D:\\Mix\\ORIGINALES\\a.vip"));
  EXPECT_TRUE(relink::is_original("D:\\Originales\\0001\\a.vip"));
  EXPECT_FALSE(relink::is_original("D:\\Mix\\Originales.vip"));
  EXPECT_FALSE(relink::is_original("D:\\Mis Originales\\a.vip"));
}

}  // namespace
}  // namespace ordelan::test
