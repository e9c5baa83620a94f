// What an update must not lose, whatever goes wrong; and the way back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "support/three_projects.h"
#include "text/paths.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;
using ::testing::StartsWith;

TEST_F(UpdateSafety, each_project_has_its_copy_before_the_first_one_is_touched) {
  three();
  bool looked = false;
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call != Call::replace || looked) return;
    if (path != disk.path("Mix\\a.vip")) return;
    looked = true;
    for (const std::string name : {"a", "b", "c"}) {
      EXPECT_EQ(bytes("Mix\\Originales\\" + name + ".vip"), before[name]);
    }
  };
  update();
  EXPECT_TRUE(looked);
}

TEST_F(UpdateSafety, a_project_without_its_copy_is_left_alone_and_named) {
  three();
  shell.files = nullptr;  // the shell copies nothing
  faulty.faults.fail(
      {.call = Call::copy_new, .path = disk.path("Mix\\Originales\\0001\\b.vip.orig")},
      system::Reason::no_space);
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("c"));
  EXPECT_EQ(reason("b"), "no hay sitio en el disco");
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr(disk.path("Mix\\b.vip")));
  EXPECT_TRUE(form.strip.TextDecode.visible());
  EXPECT_THAT(report(), HasSubstr("b.vip   (no se ha actualizado: no hay sitio en el disco)"));
  EXPECT_FALSE(there("Mix\\Originales\\b_vip.ptr"));
}

TEST_F(UpdateSafety, the_strip_names_no_more_projects_than_it_has_room_for) {
  three();
  for (const std::string name : {"d", "e"}) {
    disk.write("Mix\\" + name + ".vip", bytes("Mix\\a.vip"));
  }
  open("Mix\\a.vip");
  faulty.faults.fail({.call = Call::flush_file}, system::Reason::other);
  update();
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr(disk.path("Mix\\b.vip")));
  EXPECT_THAT(form.strip.TextDecode.text(), EndsWith("\r\n... y 3 más"));
  EXPECT_EQ(form.strip.TextDecode.line_count(), 4);
  EXPECT_THAT(report(), HasSubstr(disk.path("Mix\\e.vip") + "   (no se ha actualizado"));
}

TEST_F(UpdateSafety, a_copy_that_differs_is_none) {
  three();
  // The shell's copy of b is cut short; the one that we make in its place cannot be made.
  shell.files = &disk.files();
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call == Call::open && path == disk.path("Mix\\Originales\\b.vip")) {
      disk.write("Mix\\Originales\\b.vip", before["b"].substr(0, 50));
    }
  };
  faulty.faults.fail(
      {.call = Call::copy_new, .path = disk.path("Mix\\Originales\\0001\\b.vip.orig")},
      system::Reason::no_space);
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("a"));
}

TEST_F(UpdateSafety, copies_that_do_not_reach_the_disk_stop_the_whole_update) {
  three();
  faulty.faults.fail({.call = Call::flush_file}, system::Reason::other);
  update();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
}

TEST_F(UpdateSafety, a_project_that_cannot_be_replaced_is_left_and_the_others_go_on) {
  three();
  faulty.faults.fail({.call = Call::replace, .path = disk.path("Mix\\b.vip")},
                     system::Reason::in_use);
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("c"));
  EXPECT_EQ(reason("b"), "lo tiene abierto otro programa");
  EXPECT_THAT(names_in("Mix"), Not(Contains(EndsWith(".tmp"))));
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("lo tiene abierto otro programa"));
}

TEST_F(UpdateSafety, a_disk_that_is_full_leaves_the_project_as_it_was) {
  three();
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call == Call::create_new && path.starts_with(disk.path("Mix\\ordelan-"))) {
      faulty.faults.fail({.call = Call::write, .path = std::string(path)},
                         system::Reason::no_space);
    }
  };
  update();
  for (const std::string name : {"a", "b", "c"}) {
    EXPECT_TRUE(is_old(name)) << name;
    EXPECT_EQ(reason(name), "no hay sitio en el disco");
  }
  EXPECT_THAT(names_in("Mix"), Not(Contains(EndsWith(".tmp"))));
}

TEST_F(UpdateSafety, a_pointer_file_with_an_odd_number_of_lines_leaves_its_project) {
  three();
  std::string cut = project_of({"D:\\Viejo\\b.wav"});
  // The last path has no NUL before the marker.
  const auto marker = cut.find("    LIST");
  cut.replace(marker - 10, 10, "D:\\b.wavxx");
  disk.write("Mix\\b.vip", cut);
  before["b"] = cut;
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("c"));
  EXPECT_EQ(reason("b"), "su archivo de punteros está dañado");
}

TEST_F(UpdateSafety, a_project_whose_first_path_is_empty_is_left) {
  three();
  before["b"] = std::string(96, 'x') + std::string("cab\0D:\\\0", 8) + before["b"].substr(105);
  disk.write("Mix\\b.vip", before["b"]);
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(reason("b"), "sus punteros no caen dentro del archivo");
}

TEST_F(UpdateSafety, a_project_saved_meanwhile_is_not_written_over) {
  three();
  const std::string saved = project_of({"D:\\Viejo\\b.wav", "D:\\Viejo\\nuevo.wav"});
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call == Call::replace && path == disk.path("Mix\\a.vip")) disk.write("Mix\\b.vip", saved);
  };
  update();
  EXPECT_EQ(bytes("Mix\\b.vip"), saved);
  EXPECT_EQ(reason("b"), "lo tiene abierto otro programa");
  EXPECT_TRUE(is_new("c"));
}

TEST_F(UpdateSafety, a_read_only_project_is_left) {
  three();
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\b.vip"), system::attribute::kReadOnly));
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(reason("b"), "es de solo lectura");
  EXPECT_TRUE(is_new("c"));
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\b.vip"), 0));
}

TEST_F(UpdateSafety, a_project_with_two_names_on_the_disk_stays_one_file) {
  three();
  std::filesystem::create_hard_link(disk.native_path("Mix\\b.vip"),
                                    disk.native_path("otro nombre"));
  update();
  EXPECT_TRUE(is_new("b"));
  EXPECT_EQ(bytes("otro nombre"), bytes("Mix\\b.vip"));
  undo();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(bytes("otro nombre"), before["b"]);
}

TEST_F(UpdateSafety, leftovers_of_a_killed_update_go_and_nothing_else_does) {
  three();
  disk.write("Mix\\ordelan-0123abcd.tmp", "half");
  disk.write("Mix\\ordelan-0123abcd.tmp.bak", "own");
  disk.write("Mix\\ordelan-notas.tmp", "own");
  disk.write("Mix\\ord0123abcd.tmp", "own");
  update();
  EXPECT_FALSE(there("Mix\\ordelan-0123abcd.tmp"));
  EXPECT_TRUE(there("Mix\\ordelan-0123abcd.tmp.bak"));
  EXPECT_TRUE(there("Mix\\ordelan-notas.tmp"));
  EXPECT_TRUE(there("Mix\\ord0123abcd.tmp"));
}

TEST_F(UpdateSafety, a_file_that_only_has_the_name_of_pointers_is_saved) {
  three();
  disk.write("Mix\\Originales\\a_vip.ptr", "my own notes");
  disk.write("Mix\\Originales\\b_vip.ptr", " 12 \r\n 20 \r\n");
  disk.write("Mix\\Originales\\Actualizacion.log", "a diary");
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\0001\\a_vip.ptr.orig"), "my own notes");
  EXPECT_FALSE(there("Mix\\Originales\\0001\\b_vip.ptr.orig")) << "of an update that was cancelled";
  EXPECT_EQ(bytes("Mix\\Originales\\0001\\Actualizacion.log.orig"), "a diary");
  EXPECT_TRUE(is_new("a"));
}

// --- a second update

TEST_F(UpdateSafety, a_second_update_asks_before_it_writes_over_a_copy_and_saves_it_before) {
  three();
  update();
  disk.remove("Nuevo");
  for (const std::string name : {"a", "b", "c"}) audio("Aun mas nuevo\\" + name + ".wav");
  open("Mix\\a.vip");
  const std::string second = bytes("Mix\\a.vip");
  update();
  EXPECT_THAT(shell.overwritten, Contains(disk.path("Mix\\Originales\\a.vip")));
  EXPECT_EQ(bytes("Mix\\Originales\\a.vip"), second);
  EXPECT_EQ(bytes("Mix\\Originales\\0001\\a.vip.orig"), before["a"]);
  EXPECT_THAT(paths_in("Mix\\a.vip"), ElementsAre(disk.path("Aun mas nuevo\\a.wav")));
}

TEST_F(UpdateSafety, an_answer_of_no_keeps_the_older_copy_and_makes_another) {
  three();
  update();
  disk.remove("Nuevo");
  open("Mix\\a.vip");
  const std::string second = bytes("Mix\\a.vip");
  shell.answers_yes = false;
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\a.vip"), before["a"]);
  EXPECT_EQ(bytes("Mix\\Originales\\0002\\a.vip.orig"), second);
  undo();
  EXPECT_EQ(bytes("Mix\\a.vip"), second);
  undo();
  EXPECT_TRUE(is_old("a"));
}

TEST_F(UpdateSafety, an_earlier_copy_that_has_made_room_is_found_after_a_kill) {
  three();
  update();
  open("Mix\\a.vip");
  // All copies have been overwritten by then, and none is on record.
  faulty.faults.kill({.call = Call::flush_file, .path = disk.path("Mix\\Originales\\a.vip")});
  EXPECT_THROW(update(), Killed);
  faulty.faults.heal();
  start();
  open("Mix\\a.vip");
  undo();
  undo();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
}

TEST_F(UpdateSafety, an_earlier_copy_is_on_the_disk_before_another_takes_its_name) {
  three();
  update();
  open("Mix\\a.vip");
  bool flushed = false;
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    const bool its_copy = path == disk.path("Mix\\Originales\\0001\\a.vip.orig");
    if (call != Call::flush_file || !its_copy) return;
    flushed = true;
    EXPECT_EQ(bytes("Mix\\Originales\\a.vip"), before["a"]);
  };
  update();
  EXPECT_TRUE(flushed);
}

// --- pointers

TEST_F(UpdateSafety, pointers_for_which_there_was_no_room_leave_their_project) {
  three();
  // The two numbers that come about would lead to another place.
  faulty.room = std::string(" 106 \r\n 1").size();
  faulty.faults.fail({.call = Call::write, .path = disk.path("Mix\\Originales\\b_vip.ptr")},
                     system::Reason::no_space);
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("c"));
  EXPECT_EQ(reason("b"), "su archivo de punteros está dañado");
}

TEST_F(UpdateSafety, pointers_of_an_earlier_update_are_not_used) {
  three();
  disk.write("Mix\\Originales\\b_vip.ptr", " 2 \r\n 90 \r\n");
  faulty.faults.fail({.call = Call::create, .path = disk.path("Mix\\Originales\\b_vip.ptr")},
                     system::Reason::in_use);
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("c"));
}

TEST_F(UpdateSafety, a_file_under_the_name_of_pointers_that_cannot_be_saved_stays) {
  three();
  disk.write("Mix\\Originales\\b_vip.ptr", "my own notes");
  faulty.faults.fail(
      {.call = Call::copy_new, .path = disk.path("Mix\\Originales\\0001\\b_vip.ptr.orig")},
      system::Reason::no_space);
  update();
  EXPECT_EQ(bytes("Mix\\Originales\\b_vip.ptr"), "my own notes");
  EXPECT_EQ(reason("b"), "no hay sitio en el disco");
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_new("c"));
}

TEST_F(UpdateSafety, a_project_that_has_gone_meanwhile_is_not_made_anew) {
  three();
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call != Call::remove || path != disk.path("Mix\\Originales\\a_vip.ptr")) return;
    faulty.faults.fail({.call = Call::open, .path = disk.path("Mix\\b.vip")},
                       system::Reason::not_found, 1);
  };
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(reason("b"), "no existe");
}

// --- changes in place

struct UpdateInPlace : UpdateSafety {
  void three_of_which_one_is_linked() {
    three();
    std::filesystem::create_hard_link(disk.native_path("Mix\\b.vip"),
                                      disk.native_path("otro nombre"));
    faulty.room = 111;  // into the middle of the path
  }
  void fail_write() {
    faulty.faults.fail({.call = Call::write, .path = disk.path("Mix\\b.vip")},
                       system::Reason::no_space, 1);
  }
};

TEST_F(UpdateInPlace, one_that_fails_is_taken_back) {
  three_of_which_one_is_linked();
  fail_write();
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(reason("b"), "no hay sitio en el disco");
  EXPECT_TRUE(is_new("c"));
  EXPECT_EQ(bytes("otro nombre"), before["b"]);
}

TEST_F(UpdateInPlace, one_that_cannot_be_taken_back_is_undone_with_the_update) {
  three_of_which_one_is_linked();
  fail_write();
  faulty.faults.fail({.call = Call::change, .after = 1, .path = disk.path("Mix\\b.vip")},
                     system::Reason::in_use);
  update();
  EXPECT_FALSE(is_old("b"));
  EXPECT_FALSE(is_new("b"));
  faulty.faults.heal();
  undo();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
}

// --- cancel, reset, opening, dropping

struct UpdateEnded : UpdateSafety {
  // Ends the update while the second project is in hand.
  template <class Action>
  void end_at_the_second(Action action) {
    faulty.faults.on_call = [this, action](Call call, std::string_view path) {
      if (call == Call::remove && path == disk.path("Mix\\Originales\\a_vip.ptr")) pending_ = true;
    };
    backend.on_pump = [this, action] {
      if (!pending_) return;
      pending_ = false;
      action();
    };
  }
  bool pending_ = false;
};

TEST_F(UpdateEnded, a_cancel_leaves_the_project_in_hand_and_the_pointers_of_the_rest) {
  three();
  end_at_the_second([&] { form.cmdCancelar.on_click(); });
  update();
  EXPECT_FALSE(form.lists.LabelCount[0].visible());
  work.Cancelar = false;  // for the reading of the test
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_old("c"));
  EXPECT_FALSE(there("Mix\\Originales\\a_vip.ptr"));
  EXPECT_TRUE(there("Mix\\Originales\\b_vip.ptr"));
  EXPECT_TRUE(there("Mix\\Originales\\c_vip.ptr"));
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty()) << "the window is emptied";
  EXPECT_EQ(last_box().title, "Leer con atención") << "no box at the end";
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_FALSE(form.cmdCancelar.visible());
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
  EXPECT_THAT(report(), HasSubstr("b.vip   (no se ha actualizado: se ha cancelado)"));
  EXPECT_THAT(names_in("Mix"), Not(Contains(EndsWith(".tmp"))));
}

TEST_F(UpdateEnded, a_cancel_is_not_left_for_the_next_job) {
  three();
  work.Cancelar = true;
  update();
  EXPECT_TRUE(is_new("c"));
}

TEST_F(UpdateEnded, a_reset_ends_it_and_the_window_stays_empty) {
  three();
  end_at_the_second([&] { form.cmdReset.on_click(); });
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_old("c"));
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_FALSE(work.Actualizando);
  EXPECT_TRUE(form.TextNum1[0].visible());
}

TEST_F(UpdateEnded, opening_a_project_ends_it_and_its_lists_are_those_of_that_project) {
  project_at("Otro\\x.vip", {"D:\\Viejo\\x.wav"});
  three();
  end_at_the_second([&] { open("Otro\\x.vip"); });
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_THAT(form.lists.ListProyectos.rows(), ElementsAre(row(1, "Otro\\x.vip")));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Viejo\\x.wav"));
  EXPECT_FALSE(work.ModoPosiciones);
  EXPECT_TRUE(form.ActualizarVip.visible());
}

TEST_F(UpdateEnded, dropping_ends_it) {
  three();
  end_at_the_second([&] { drop({"Mix\\a.vip"}); });
  update();
  EXPECT_TRUE(is_old("b"));
  EXPECT_FALSE(work.ModoPosiciones);
}

TEST_F(UpdateEnded, a_double_click_and_the_reports_wait) {
  three();
  end_at_the_second([&] {
    double_click(1);
    form.SalvaListados.on_click();
    form.ActualizarVip.on_click();
    form.DeshacerActualizacion.on_click();
  });
  update();
  EXPECT_TRUE(is_new("c"));
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre("D:\\Viejo\\a.wav"));
  EXPECT_FALSE(there("Mix\\Listados"));
}

TEST_F(UpdateEnded, nothing_is_removed_while_projects_are_updated) {
  three();
  audio("Mix\\suelto.wav");
  audio("Mix\\suelto2.wav");
  open("Mix\\a.vip");
  end_at_the_second([&] {
    form.CommandBorrado.on_click();
    windows.touch<removal::BacUp>()->cmdBorrar_Click();
    windows.touch<removal::BacUp>()->CheckBorrar.set_checked(true);
    windows.touch<removal::ParaBorrar>()->cmdHecho_Click();
  });
  update();
  EXPECT_TRUE(there("Mix\\suelto.wav"));
  EXPECT_TRUE(is_new("c"));
}

// The list of unused files is that of the paths before the update: nothing goes by it.
TEST_F(UpdateEnded, nothing_is_removed_by_the_lists_of_before_an_update) {
  audio("Mix\\Sitio\\d.wav");
  audio("Mix\\Sitio\\suelto.wav");
  project_at("Mix\\d.vip", {"D:\\Viejo\\d.wav"});
  start();
  open("Mix\\d.vip");
  EXPECT_THAT(offered(), ElementsAre(disk.path("Mix\\Sitio\\suelto.wav")));
  update();
  EXPECT_THAT(paths_in("Mix\\d.vip"), ElementsAre(disk.path("Mix\\Sitio\\d.wav")));
  form.CommandBorrado.on_click();
  windows.touch<removal::BacUp>()->cmdBorrar_Click();
  windows.touch<removal::BacUp>()->CheckBorrar.set_checked(true);
  windows.touch<removal::BacUp>()->CheckComprobar.set_checked(true);
  windows.touch<removal::ParaBorrar>()->cmdHecho_Click();
  EXPECT_TRUE(there("Mix\\Sitio\\suelto.wav"));
  EXPECT_FALSE(form.removal_state().begun);
}

// --- the way back

TEST_F(UpdateSafety, undoing_gives_back_every_byte) {
  three();
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
  update();
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
  undo();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
  EXPECT_EQ(form.strip.TextDecode.text(), "Proyectos restaurados: 3");
}

TEST_F(UpdateSafety, undoing_asks_first) {
  three();
  update();
  form.DeshacerActualizacion.on_click();
  EXPECT_EQ(last_box().title, "Deshacer actualización");
  EXPECT_EQ(last_box().buttons, system::Buttons::yes_no);
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateSafety, a_project_that_has_changed_since_is_kept_aside_before_it_is_restored) {
  three();
  update();
  disk.write("Mix\\b.vip", "a night's work");
  undo();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(bytes("Mix\\Originales\\0001\\b.vip.orig"), "a night's work");
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("Guardados antes porque habían cambiado: 1"));
}

TEST_F(UpdateSafety, a_project_that_the_update_did_not_touch_is_not_undone) {
  three();
  faulty.faults.fail({.call = Call::replace, .path = disk.path("Mix\\b.vip")},
                     system::Reason::in_use);
  update();
  faulty.faults.heal();
  disk.write("Mix\\b.vip", "saved later");
  undo();
  EXPECT_EQ(bytes("Mix\\b.vip"), "saved later");
  EXPECT_TRUE(is_old("a"));
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateSafety, what_cannot_be_undone_can_be_tried_again) {
  three();
  update();
  faulty.faults.fail({.call = Call::replace, .path = disk.path("Mix\\b.vip")},
                     system::Reason::in_use);
  undo();
  EXPECT_TRUE(is_new("b"));
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("lo tiene abierto otro programa"));
  faulty.faults.heal();
  undo();
  EXPECT_TRUE(is_old("b"));
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateSafety, a_way_back_that_was_killed_is_not_offered_to_be_undone) {
  three();
  update();
  faulty.faults.kill({.call = Call::replace, .path = disk.path("Mix\\b.vip")});
  EXPECT_THROW(undo(), Killed);
  faulty.faults.heal();
  undo();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateSafety, a_copy_that_has_changed_restores_nothing) {
  three();
  update();
  disk.write("Mix\\Originales\\b.vip", "damaged");
  undo();
  EXPECT_TRUE(is_new("b"));
  EXPECT_TRUE(is_old("a"));
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
}

TEST_F(UpdateSafety, the_way_back_is_offered_for_a_project_that_cannot_be_read_any_more) {
  three();
  update();
  start();
  disk.write("Mix\\a.vip", "of no use");
  open("Mix\\a.vip");
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
  undo();
  EXPECT_TRUE(is_old("a"));
}

TEST_F(UpdateSafety, only_one_update_of_a_folder_runs_at_a_time) {
  three();
  disk.make_folder("Mix\\Originales");
  const auto lock = disk.files().lock(disk.path("Mix\\Originales\\Actualizacion.lock"));
  ASSERT_TRUE(lock);
  update();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
}

}  // namespace
}  // namespace ordelan::test
