// What can be done with the files that rows name.
#include "work/row_commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/computer.h"
#include "ui/window.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using work::path_of_row;

TEST(RowPath, is_what_a_row_names) {
  EXPECT_EQ(path_of_row("D:\\Mix\\a.wav"), "D:\\Mix\\a.wav");
  EXPECT_EQ(path_of_row("12 --> D:\\Mix\\tema.vip"), "D:\\Mix\\tema.vip");
  EXPECT_EQ(path_of_row(std::string(100, '-')), "");
  EXPECT_EQ(path_of_row(""), "");
  EXPECT_EQ(path_of_row("a.wav"), "");
}

struct RowCommands : ::testing::Test, Computer {
  RowCommands() {
    list.set_markable(true);
    list.add(std::vector<std::string>{"1 --> D:\\tema.vip", "D:\\a.wav", std::string(100, '-'),
                                      "D:\\b.wav"});
  }
  // Chooses the item of that text from the menu.
  void choose(const std::string& item) {
    dialogs.choices.push_back(item);
    commands.show_menu(true);
  }

  ui::Window window{backend, "Ventana"};
  ui::ListBox list{window, "Lista"};
  ui::Button button{window, "cmdFilas"};
  work::RowCommands commands{platform, list, button};
};

TEST_F(RowCommands, copy_the_path_of_the_current_row) {
  choose("Copiar ruta\tCtrl+C");
  EXPECT_EQ(shell.clipboard, std::nullopt) << "without a row the clipboard stays";
  list.chosen(0);
  commands.copy_path();
  EXPECT_EQ(shell.clipboard, "D:\\tema.vip");
  list.chosen(2);
  commands.copy_path();
  EXPECT_EQ(shell.clipboard, "D:\\tema.vip") << "a separator names no file";
}

TEST_F(RowCommands, copy_the_paths_of_marked_rows_in_their_order) {
  list.chosen(3);
  list.mark_click(1, ui::kControlKey);
  commands.copy_path();
  EXPECT_EQ(shell.clipboard, "D:\\a.wav\r\nD:\\b.wav");
}

TEST_F(RowCommands, copy_all_paths_and_no_separators) {
  choose("Copiar todas");
  EXPECT_EQ(shell.clipboard, "D:\\tema.vip\r\nD:\\a.wav\r\nD:\\b.wav");
}

TEST_F(RowCommands, open_the_folder_and_show_the_properties_of_the_current_row) {
  list.chosen(1);
  choose("Abrir carpeta");
  choose("Propiedades");
  EXPECT_THAT(shell.folders_shown, ElementsAre("D:\\a.wav"));
  EXPECT_THAT(shell.properties_shown, ElementsAre("D:\\a.wav"));
  list.chosen(2);
  commands.open_folder();
  commands.show_properties();
  EXPECT_THAT(shell.folders_shown, ElementsAre("D:\\a.wav"));
  EXPECT_THAT(shell.properties_shown, ElementsAre("D:\\a.wav"));
}

TEST_F(RowCommands, copy_where_a_search_has_found_the_file_of_the_row) {
  commands.note_found("D:\\a.wav", "E:\\otra\\a.wav");
  list.chosen(3);
  commands.copy_found();
  EXPECT_EQ(shell.clipboard, std::nullopt);
  list.chosen(1);
  choose("Copiar ruta hallada\tCtrl+Mayús+C");
  EXPECT_EQ(shell.clipboard, "E:\\otra\\a.wav");
  commands.forget_found();
  commands.show_menu(true);
  EXPECT_EQ(dialogs.menus.back().size(), 5u);
}

TEST_F(RowCommands, are_offered_by_the_button_at_the_pointer_and_disabled_without_a_row) {
  button.on_click();
  ASSERT_THAT(dialogs.menus, testing::SizeIs(1));
  EXPECT_EQ(dialogs.menu_places.back(), system::MenuPlace::pointer);
  std::string enabled;
  for (const auto& item : dialogs.menus.back()) enabled += item.enabled ? 'y' : 'n';
  EXPECT_EQ(enabled, "nyynn");
  commands.show_menu(true);
  EXPECT_EQ(dialogs.menu_places.back(), system::MenuPlace::focus);
}

}  // namespace
}  // namespace ordelan::test
