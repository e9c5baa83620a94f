// The way back while somebody else is at work, where its index or its copies are damaged, and where
// nothing can be restored.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/three_projects.h"

namespace ordelan::test {
namespace {

using system::Reason;
using ::testing::Contains;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;

struct UndoTest : UpdateSafety {
  // Three projects, updated; the first two of them have been restored when `action` is called.
  template <class Action>
  void undo_and_before_the_third(Action action) {
    faulty.faults.on_call = [this, action](Call call, std::string_view path) {
      if (call == Call::replace && path == disk.path("Mix\\b.vip")) action();
    };
    undo();
    faulty.faults.on_call = nullptr;
  }
  std::string strip() { return form.strip.TextDecode.text(); }
  std::string index(int number) {
    return "Mix\\Originales\\Actualizacion000" + std::to_string(number) + ".ind";
  }
  void second_update() {
    std::filesystem::rename(disk.native_path("Nuevo"), disk.native_path("Otro"));
    update();
  }
};

TEST_F(UndoTest, what_is_saved_while_others_are_restored_stays) {
  three();
  update();
  undo_and_before_the_third([&] { disk.write("Mix\\c.vip", "saved meanwhile"); });
  EXPECT_TRUE(is_old("a"));
  EXPECT_EQ(bytes("Mix\\c.vip"), "saved meanwhile");
  EXPECT_THAT(strip(), HasSubstr("c.vip   (ha cambiado mientras se restauraban)"));
  // The next one saves it first.
  undo();
  EXPECT_TRUE(is_old("c"));
  EXPECT_THAT(strip(), HasSubstr("Guardados antes porque habían cambiado: 1"));
}

TEST_F(UndoTest, what_is_saved_while_others_are_restored_stays_under_all_its_names) {
  three();
  std::filesystem::create_hard_link(disk.native_path("Mix\\c.vip"),
                                    disk.native_path("otro nombre"));
  update();
  undo_and_before_the_third([&] { disk.write("Mix\\c.vip", "saved meanwhile"); });
  EXPECT_EQ(bytes("Mix\\c.vip"), "saved meanwhile");
  EXPECT_EQ(bytes("otro nombre"), "saved meanwhile");
}

TEST_F(UndoTest, a_created_file_that_is_saved_while_others_are_restored_stays) {
  three();
  disk.write("Mix\\sub\\x.vip", bytes("Mix\\a.vip"));
  form.CheckSubPath.set_checked(true);
  open("Mix\\a.vip");
  ASSERT_THAT(form.lists.ListProyectos.rows(), Contains(EndsWith("sub\\x.vip")));
  update();
  ASSERT_TRUE(there("Mix\\x.vip"));
  undo_and_before_the_third([&] { disk.write("Mix\\x.vip", "my own project"); });
  EXPECT_EQ(bytes("Mix\\x.vip"), "my own project");
}

TEST_F(UndoTest, an_index_that_cannot_be_read_undoes_nothing_and_stays) {
  three();
  update();
  faulty.faults.fail({.call = Call::open, .path = disk.path(index(1))}, Reason::in_use);
  undo();
  EXPECT_TRUE(is_new("a"));
  EXPECT_THAT(strip(), HasSubstr("Actualizacion0001.ind   (lo tiene abierto otro programa)"));
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
  faulty.faults.heal();
  undo();
  EXPECT_TRUE(is_old("a"));
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UndoTest, a_damaged_index_is_not_put_away_as_undone) {
  three();
  update();
  std::string lines = bytes(index(1));
  const std::size_t target = lines.find("target");
  lines.replace(target, 6, "tXrget");
  disk.write(index(1), lines);
  undo();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
  EXPECT_TRUE(is_old("c"));
  EXPECT_THAT(strip(), HasSubstr("Actualizacion0001.ind   (está dañado)"));
  EXPECT_TRUE(there(index(1)));
}

TEST_F(UndoTest, a_cut_last_line_of_an_index_is_no_damage) {
  three();
  update();
  disk.write(index(1), bytes(index(1)) + "target\t12");
  undo();
  EXPECT_TRUE(is_old("a"));
  EXPECT_FALSE(there(index(1)));
}

TEST_F(UndoTest, a_linked_project_that_cannot_be_written_is_as_it_was) {
  three();
  std::filesystem::create_hard_link(disk.native_path("Mix\\b.vip"),
                                    disk.native_path("otro nombre"));
  update();
  const std::string updated_bytes = bytes("Mix\\b.vip");
  faulty.room = 10;
  faulty.faults.fail({.call = Call::write, .path = disk.path("Mix\\b.vip")}, Reason::no_space, 1);
  undo();
  EXPECT_EQ(bytes("Mix\\b.vip"), updated_bytes);
  EXPECT_EQ(bytes("otro nombre"), updated_bytes);
  EXPECT_THAT(strip(), HasSubstr("b.vip   (no hay sitio en el disco)"));
  undo();
  EXPECT_TRUE(is_old("b"));
  EXPECT_EQ(bytes("otro nombre"), before["b"]);
}

// The new path reaches past the end of the file: what has been written of it goes again.
TEST_F(UndoTest, a_linked_project_that_cannot_be_updated_keeps_its_length) {
  const std::string old = std::string(96, 'x') + "cabecera" + '\0' + "D:\\V\\b.wav" + '\0' +
                          std::string("    LIST\0\0\0\0mdrl", 16);
  disk.write("Mix\\b.vip", old);
  std::filesystem::create_hard_link(disk.native_path("Mix\\b.vip"),
                                    disk.native_path("otro nombre"));
  audio("Una carpeta con un nombre bien largo\\b.wav");
  start();
  open("Mix\\b.vip");
  faulty.room = old.size() + 3;
  faulty.faults.fail({.call = Call::write, .path = disk.path("Mix\\b.vip")}, Reason::no_space, 1);
  update();
  EXPECT_EQ(reason("b"), "no hay sitio en el disco");
  EXPECT_EQ(bytes("otro nombre"), old);
  update();
  EXPECT_GT(bytes("otro nombre").size(), old.size()) << "it does grow";
}

TEST_F(UndoTest, what_can_never_be_restored_can_be_given_up_for_the_update_before) {
  three();
  update();
  second_update();
  EXPECT_EQ(paths_in("Mix\\b.vip"), std::vector<std::string>{disk.path("Otro\\b.wav")});
  // The copies of the second update go, those of the first stay.
  for (const std::string name : {"a", "b", "c"}) {
    disk.files().remove(disk.path("Mix\\Originales\\" + name + ".vip")).ignore();
  }
  dialogs.answers = {system::Answer::yes, system::Answer::no};
  form.DeshacerActualizacion.on_click();
  EXPECT_THAT(last_box().text, HasSubstr("b.vip   (falta su copia)"));
  EXPECT_TRUE(there(index(2))) << "not without a yes";
  dialogs.answers = {system::Answer::yes, system::Answer::yes};
  form.DeshacerActualizacion.on_click();
  EXPECT_FALSE(there(index(2)));
  EXPECT_TRUE(form.DeshacerActualizacion.visible());
  undo();
  for (const std::string name : {"a", "b", "c"}) EXPECT_TRUE(is_old(name)) << name;
  EXPECT_FALSE(form.DeshacerActualizacion.visible());
}

TEST_F(UndoTest, an_update_of_another_program_while_it_asks_ends_it) {
  three();
  update();
  const std::string lines = bytes(index(1));
  dialogs.on_dialog = [&] { disk.write(index(2), lines); };
  undo();
  dialogs.on_dialog = nullptr;
  EXPECT_TRUE(is_new("a"));
  EXPECT_THAT(strip(), HasSubstr("otra actualización se ha hecho o deshecho entretanto"));
  EXPECT_TRUE(there(index(1)));
  EXPECT_TRUE(there(index(2)));
}

TEST_F(UndoTest, one_that_saves_nothing_leaves_no_index_of_its_own) {
  three();
  update();
  undo();
  EXPECT_THAT(names_in("Mix\\Originales"), Not(Contains("Actualizacion0002.ant")));
  EXPECT_THAT(names_in("Mix\\Originales"), Contains("Actualizacion0001.ant"));
}

// --- what an update says of what it could not see

TEST_F(UpdateSafety, folders_that_cannot_be_listed_are_named) {
  disk.write("Privado\\b.wav", "x");
  three();
  disk.files().remove(disk.path("Nuevo\\b.wav")).ignore();
  faulty.faults.fail({.call = Call::each, .path = disk.path("Privado\\")}, Reason::no_permission);
  faulty.faults.fail({.call = Call::each, .path = disk.path("Privado")}, Reason::no_permission);
  update();
  EXPECT_THAT(report(), HasSubstr("Carpetas que no se han podido ver (sus archivos pasan por no "
                                  "encontrados):\r\n  " +
                                  disk.path("Privado\\")));
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("Carpetas que no se han podido ver: 1"));
}

TEST_F(UpdateSafety, a_report_that_could_not_be_saved_is_said_to_be_missing) {
  three();
  disk.make_folder("Mix\\Originales\\Actualizacion.log");
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_THAT(form.strip.TextDecode.text(),
              HasSubstr("No se ha podido guardar Originales\\Actualizacion.log"));
}

TEST_F(UpdateSafety, careful_leaves_a_path_that_it_may_not_look_at) {
  three();
  const auto old_path = [&](const std::string& name) {
    return disk.path("Un sitio viejo de antes\\" + name + ".wav");
  };
  for (const std::string name : {"a", "b"}) {
    project_at("Mix\\" + name + ".vip", {old_path(name)});
    before[name] = bytes("Mix\\" + name + ".vip");
  }
  form.relink().options.careful = true;
  faulty.faults.fail({.call = Call::open, .path = old_path("b")}, Reason::no_permission);
  update();
  EXPECT_TRUE(is_new("a"));
  EXPECT_TRUE(is_old("b"));
}

TEST_F(UpdateSafety, a_simulation_foresees_a_project_that_cannot_be_written) {
  three();
  form.relink().options.simulate = true;
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\b.vip"), system::attribute::kReadOnly));
  update();
  EXPECT_EQ(reason("a"), "");
  EXPECT_EQ(reason("b"), "es de solo lectura");
  EXPECT_THAT(form.strip.TextDecode.text(), HasSubstr("no se han actualizado:"))
      << "there is no report to look into";
  ASSERT_TRUE(disk.files().set_attributes(disk.path("Mix\\b.vip"), 0));
}

TEST_F(UpdateSafety, a_simulation_foresees_that_there_is_no_room_for_the_originals) {
  three();
  form.relink().options.simulate = true;
  disk.write("Mix\\Originales", "a file");
  update();
  EXPECT_EQ(reason("a"), "ya existe un archivo con ese nombre");
  EXPECT_TRUE(is_old("a"));
}

TEST_F(UpdateSafety, a_folder_with_the_name_of_a_copy_stays_and_the_copy_has_another_place) {
  three();
  disk.write("Mix\\Originales\\b.vip\\mine.txt", "mine");
  update();
  EXPECT_TRUE(is_new("b"));
  EXPECT_EQ(bytes("Mix\\Originales\\b.vip\\mine.txt"), "mine");
  EXPECT_EQ(bytes("Mix\\Originales\\0001\\b.vip.orig"), before["b"]);
  undo();
  EXPECT_TRUE(is_old("b"));
}

TEST_F(UpdateSafety, pointers_beyond_the_end_of_the_project_touch_nothing) {
  three();
  // Cut while the pointers wait.
  faulty.faults.on_call = [&](Call call, std::string_view path) {
    if (call == Call::remove && path == disk.path("Mix\\Originales\\a_vip.ptr")) {
      disk.write("Mix\\b.vip", before["b"].substr(0, 110));
    }
  };
  update();
  EXPECT_EQ(bytes("Mix\\b.vip"), before["b"].substr(0, 110));
  EXPECT_EQ(reason("b"), "sus punteros no caen dentro del archivo");
}

}  // namespace
}  // namespace ordelan::test
