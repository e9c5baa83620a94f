// The driver itself, tried on a small window made for it.
#include <windows.h>

#include <gmock/gmock.h>

#include <iostream>

#include "screen_picture.h"
#include "wide_text.h"
#include "window/program.h"

namespace ordelan::test {
namespace {

std::wstring demo() {
  const std::wstring given = environment(L"ORDELAN_DEMO_EXE");
  if (!given.empty()) return given;
  wchar_t path[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, path, MAX_PATH);
  const std::wstring own = path;
  return own.substr(0, own.rfind(L'\\') + 1) + L"ordelan-demo-window.exe";
}

class Driver : public testing::Test {
 protected:
  void expect_status(const std::string& status) {
    program.wait_until("the status " + status, [&] { return program.text("lblEstado") == status; });
  }

  Program program{ProgramOptions{demo(), "Form1", L""}};
};

TEST_F(Driver, finds_the_program_and_what_its_controls_show) {
  std::cout << "main window after " << program.start_time().count() << " ms\n";
  EXPECT_EQ(program.title(), "Demostración");
  EXPECT_EQ(program.text("lblEstado"), "nada");
  EXPECT_EQ(program.text("ListVip"), "Filas");
  EXPECT_TRUE(program.visible("cmdAbrir"));
  EXPECT_FALSE(program.visible("cmdEscondido"));
  EXPECT_TRUE(program.enabled("cmdAbrir"));
  EXPECT_FALSE(program.checked("Check1(0)"));
  EXPECT_FALSE(program.has("cmdNada"));
  EXPECT_TRUE(program.rows("ListVip").empty());
  program.wait_until("the bar moves", [&] { return program.progress("ProgressBar1") > 4100; });
}

TEST_F(Driver, clicks_with_the_real_mouse) {
  program.click("Check1(0)");
  program.wait_until("the tick", [&] { return program.checked("Check1(0)"); });
  program.wait_until("the button", [&] { return program.visible("cmdEscondido"); });
  program.click("lblEstado");
  expect_status("pulsado");
  program.wait_until("the move over the label", [&] { return program.checked("Check1(1)"); });
}

TEST_F(Driver, works_two_hundred_thousand_rows) {
  program.click("cmdLlenar");
  expect_status("llena");
  EXPECT_EQ(program.row_count("ListVip"), 200000u);
  const auto rows = program.rows("ListVip");
  ASSERT_EQ(rows.size(), 200000u);
  EXPECT_EQ(rows.back(), "fila 199999");
  EXPECT_EQ(program.row("ListVip", 70000), "fila 70000");
  program.click_row("ListVip", 150000);
  expect_status("fila fila 150000");
  EXPECT_EQ(program.selected("ListVip"), 150000);
  program.right_click_row("ListVip", 150003);
  expect_status("derecho fila 150003");
  program.double_click_row("ListVip", 2);
  expect_status("doble fila 2");
  program.picture_of_window("driver-rows");
}

TEST_F(Driver, types_into_boxes_and_presses_keys) {
  program.click("Text2");
  program.wait_until("the focus", [&] { return program.focused("Text2"); });
  program.type("Año 2");
  program.wait_until("the text", [&] { return program.text("Text2") == "Año 2"; });
  program.key(VK_F2);
  expect_status("F2");
  program.key(VK_TAB, false, true);
  program.wait_until("the focus before", [&] { return program.focused("Text1"); });
}

TEST_F(Driver, answers_message_boxes) {
  program.click("cmdPreguntar");
  const MessageShown shown = program.wait_for_message();
  EXPECT_EQ(shown.title, "Demostración");
  EXPECT_EQ(shown.text, "¿Seguir?");
  program.answer_message(IDYES);
  expect_status("sí");
  program.click("cmdPreguntar");
  program.answer_message(IDNO);
  expect_status("no");
}

TEST_F(Driver, picks_files_in_the_systems_dialog) {
  wchar_t temporary[MAX_PATH] = {};
  GetTempPathW(MAX_PATH, temporary);
  const std::string folder = bytes(temporary) + "ordelan driver";
  CreateDirectoryW(wide(folder).c_str(), nullptr);
  const std::vector<std::string> paths = {folder + "\\uno.vip", folder + "\\dos más.vip"};
  for (const std::string& path : paths) {
    CloseHandle(
        CreateFileW(wide(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
  }
  program.click("cmdAbrir");
  program.pick_files({paths[0]});
  program.wait_until("the row", [&] { return program.row_count("ListVip") == 1; });
  EXPECT_THAT(program.rows("ListVip"), testing::ElementsAre(paths[0]));
  program.click("cmdAbrir");
  program.pick_files(paths);
  program.wait_until("the rows", [&] { return program.row_count("ListVip") == 3; });
  EXPECT_THAT(program.rows("ListVip"), testing::UnorderedElementsAre(paths[0], paths[0], paths[1]));
  program.click("cmdAbrir");
  program.cancel_file_dialog();
  EXPECT_FALSE(program.file_dialog_shown());
  program.click("lblEstado");
  expect_status("pulsado");
  EXPECT_EQ(program.row_count("ListVip"), 3u);
  for (const std::string& path : paths) DeleteFileW(wide(path).c_str());
  RemoveDirectoryW(wide(folder).c_str());
}

TEST_F(Driver, drops_files) {
  program.drop("ListVip", {"D:\\Mix\\año.vip", "D:\\Mix"});
  program.wait_until("the rows", [&] { return program.row_count("ListVip") == 2; });
  EXPECT_THAT(program.rows("ListVip"), testing::ElementsAre("D:\\Mix\\año.vip", "D:\\Mix"));
}

TEST_F(Driver, sees_what_is_painted) {
  RECT picture{};
  GetClientRect(program.control("Image1"), &picture);
  const LONG middle = picture.right / 2;
  const LONG quarter = picture.bottom / 4;
  program.wait_until("the green half of the picture", [&] {
    return program.pixel("Image1", {middle, quarter}) == RGB(0, 0xC0, 0);
  });
  EXPECT_EQ(program.pixel("Image1", {middle, 3 * quarter}), GetSysColor(COLOR_BTNFACE));
}

TEST_F(Driver, drags_a_window_by_its_background) {
  const RECT before = program.place();
  RECT client{};
  GetClientRect(program.window(), &client);
  program.drag_window({client.right - 20, client.bottom - 20}, {60, 40});
  expect_status("arrastrado");
  const RECT after = program.place();
  EXPECT_EQ(after.left - before.left, 60);
  EXPECT_EQ(after.top - before.top, 40);
}

TEST_F(Driver, saves_pictures_of_the_screen) {
  const std::wstring path = save_screen("driver-screen");
  ASSERT_NE(path, L"");
  WIN32_FILE_ATTRIBUTE_DATA data{};
  ASSERT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data));
  EXPECT_GT(data.nFileSizeLow, 1000u);
}

TEST_F(Driver, sees_the_program_end) {
  program.close_window();
  EXPECT_EQ(program.wait_for_end(), 0u);
  EXPECT_FALSE(program.running());
}

TEST_F(Driver, fails_when_what_it_waits_for_cannot_come) {
  program.close_window();
  program.wait_for_end();
  EXPECT_THROW(program.wait_until("nothing", [] { return false; }), std::runtime_error);
}

}  // namespace
}  // namespace ordelan::test
