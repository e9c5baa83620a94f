#include "headless/scripted_dialogs.h"

#include <gmock/gmock.h>

namespace ordelan::test {
namespace {

using system::Answer;
using system::Buttons;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct ScriptedDialogsTest : ::testing::Test {
  Answer ask(Buttons buttons) { return dialogs.message({"title", "text", {}, buttons}); }

  headless::ScriptedDialogs dialogs;
};

TEST_F(ScriptedDialogsTest, each_file_dialog_takes_the_next_answer_and_then_is_cancelled) {
  dialogs.files = {{"D:\\a.vip"}, {}, {"D:\\b.vip"}};
  EXPECT_THAT(dialogs.open_files({"one", false}), ElementsAre("D:\\a.vip"));
  EXPECT_THAT(dialogs.open_files({"two", false}), IsEmpty());
  EXPECT_THAT(dialogs.open_files({"three", false}), ElementsAre("D:\\b.vip"));
  EXPECT_THAT(dialogs.open_files({"four", false}), IsEmpty());
}

TEST_F(ScriptedDialogsTest, several_files_come_only_where_several_are_allowed) {
  dialogs.files = {{"a", "b"}, {"a", "b"}};
  EXPECT_THAT(dialogs.open_files({"", true}), ElementsAre("a", "b"));
  EXPECT_THAT(dialogs.open_files({"", false}), ElementsAre("a"));
}

TEST_F(ScriptedDialogsTest, places_to_save_and_folders_are_answered_in_turn_and_then_cancelled) {
  dialogs.saves = {"D:\\a.log", "", "D:\\b.log"};
  dialogs.folders = {"D:\\Mix"};
  EXPECT_EQ(dialogs.save_file({}), "D:\\a.log");
  EXPECT_EQ(dialogs.pick_folder(""), "D:\\Mix");
  EXPECT_EQ(dialogs.save_file({}), "");
  EXPECT_EQ(dialogs.save_file({}), "D:\\b.log");
  EXPECT_EQ(dialogs.save_file({}), "");
  EXPECT_EQ(dialogs.pick_folder(""), "");
}

TEST_F(ScriptedDialogsTest, what_was_asked_is_written_down) {
  dialogs.save_file({"Listas|*.log", "*.log"});
  dialogs.pick_folder("Carpeta de destino");
  ASSERT_EQ(dialogs.save_requests.size(), 1u);
  EXPECT_EQ(dialogs.save_requests[0].filter, "Listas|*.log");
  EXPECT_EQ(dialogs.save_requests[0].extension, "*.log");
  EXPECT_THAT(dialogs.folder_titles, ElementsAre("Carpeta de destino"));
  dialogs.open_files({"Proyectos|*.vip", true});
  dialogs.message({"Aviso", "line\r\nline", system::Icon::critical, Buttons::ok});
  ASSERT_EQ(dialogs.requests.size(), 1u);
  EXPECT_EQ(dialogs.requests[0].filter, "Proyectos|*.vip");
  EXPECT_TRUE(dialogs.requests[0].several);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].title, "Aviso");
  EXPECT_EQ(dialogs.messages[0].text, "line\r\nline");
  EXPECT_EQ(dialogs.messages[0].icon, system::Icon::critical);
}

TEST_F(ScriptedDialogsTest, message_boxes_are_answered_in_turn_and_then_with_care) {
  dialogs.answers = {Answer::yes, Answer::ok};
  EXPECT_EQ(ask(Buttons::yes_no), Answer::yes);
  EXPECT_EQ(ask(Buttons::ok_cancel), Answer::ok);
  EXPECT_EQ(ask(Buttons::yes_no), Answer::no);
  EXPECT_EQ(ask(Buttons::ok_cancel), Answer::cancel);
  EXPECT_EQ(ask(Buttons::ok), Answer::ok);
}

TEST_F(ScriptedDialogsTest, the_window_goes_on_while_a_dialog_is_up) {
  std::vector<std::size_t> seen;
  dialogs.on_dialog = [&] {
    seen.push_back(dialogs.requests.size() + dialogs.messages.size() +
                   dialogs.save_requests.size() + dialogs.folder_titles.size());
    dialogs.files = {{"late.vip"}};
    dialogs.saves = {"late.log"};
    dialogs.folders = {"late"};
    dialogs.answers = {Answer::yes};
  };
  EXPECT_THAT(dialogs.open_files({}), ElementsAre("late.vip")) << "answered after the handler";
  EXPECT_EQ(ask(Buttons::yes_no), Answer::yes);
  EXPECT_EQ(dialogs.save_file({}), "late.log");
  EXPECT_EQ(dialogs.pick_folder(""), "late");
  EXPECT_THAT(seen, ElementsAre(1u, 2u, 3u, 4u)) << "the question is on record by then";
}

}  // namespace
}  // namespace ordelan::test
