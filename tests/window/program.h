// A driver of the real program: starts it, finds its controls by their names, works it with the
// real mouse and keyboard, and reads what it shows.
//
//   Program program;                               // starts it, waits for its main window
//   program.click("cmdAbrir");
//   program.pick_files({"D:\\Mix\\a.vip"});        // in the file dialog that is up
//   program.wait_until("the row exists", [&] { return program.rows("ListVip").size() == 1; });
//
// Texts are code-page bytes, as in the program. A control is named as in the program, a member of a
// control array as "Check1(2)". Names are looked for in the window that `use_window` chose, in the
// main window at first.
//
// Every call that needs something waits until it exists. When it does not come, the call throws
// std::runtime_error, which fails the test, and saves the screen as "<test>-failure.png".
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::test {

struct ProgramOptions {
  // Where the program is. Empty: $ORDELAN_EXE, or Ordelan.exe beside the tests, or in
  // ..\src\app\ from there.
  std::wstring exe;
  std::string main_window = "Form1";
  std::wstring arguments;
};

// A message box that is up.
struct MessageShown {
  std::string title;
  std::string text;
  HWND handle = nullptr;
};

class Program {
 public:
  explicit Program(ProgramOptions options = {});
  // Kills the program if it still runs.
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  // From the order to start until the main window was there to see.
  std::chrono::milliseconds start_time() const { return start_time_; }
  bool running() const;
  // How long it has kept processors busy since its start.
  double processor_seconds() const;
  // Waits for its end and gives its exit code.
  DWORD wait_for_end();

  // Polls until it is so; throws when it never is. `what` is in the message then.
  void wait_until(const std::string& what, const std::function<bool()>& reached) const;

  // --- windows
  HWND window() const { return window_; }
  // From now on, names are those of this window; waits until it is shown.
  void use_window(const std::string& name);
  bool window_shown(const std::string& name) const;
  // The close button of the window in use.
  void close_window();
  // The window's title, and its place on the screen.
  std::string title() const;
  RECT place() const;
  bool minimized() const;
  // Brings the window in use back, as a click on its button in the task bar does.
  void restore_window();
  // Drags the window in use by a place of its own, in pixels from the corner of its inside, and
  // waits until it is let go.
  void drag_window(POINT grip, POINT by);

  // --- what controls show
  HWND control(const std::string& name) const;   // waits until it exists
  RECT place_of(const std::string& name) const;  // on the screen
  bool has(const std::string& name) const;       // whether there is one, shown or not
  std::string text(const std::string& name) const;
  bool visible(const std::string& name) const;
  bool enabled(const std::string& name) const;
  bool checked(const std::string& name) const;
  int progress(const std::string& name) const;  // 0 to 10000
  // The control of the window in use that has the focus; "" when none has it.
  std::string focus() const;
  bool focused(const std::string& name) const { return focus() == name; }
  std::vector<std::string> rows(const std::string& list) const;
  std::string row(const std::string& list, int index) const;
  std::size_t row_count(const std::string& list) const;
  int selected(const std::string& list) const;   // -1 for none
  int first_row(const std::string& list) const;  // the first that is in sight
  bool ticked(const std::string& boxes, int row) const;

  // What the screen shows at a place of the control's, in pixels from its corner.
  COLORREF pixel(const std::string& name, POINT place) const;

  // --- the mouse; waits until the control is shown, enabled and not covered
  void click(const std::string& name);
  // The same at a place of the control's, in pixels from its corner.
  void click_at(const std::string& name, POINT place);
  void right_click(const std::string& name);
  void double_click(const std::string& name);
  void hover(const std::string& name);
  // A row is scrolled into sight first.
  void click_row(const std::string& list, int row);
  void right_click_row(const std::string& list, int row);
  void double_click_row(const std::string& list, int row);
  void hover_row(const std::string& list, int row);

  // --- the keyboard; goes to whatever has the focus in this program
  void key(WORD code, bool control = false, bool shift = false, bool alt = false);
  void type(const std::string& text);

  // --- files
  // Drops files and folders on a control. They need not exist.
  void drop(const std::string& name, const std::vector<std::string>& paths);
  // Names the files in the file dialog that is up, or comes up, and accepts them. Several must lie
  // in one folder.
  void pick_files(const std::vector<std::string>& paths);
  // Names one file and presses the dialog's button; what that leads to is left alone, be it the
  // dialog's end or a question.
  void name_file(const std::string& path);
  void cancel_file_dialog();
  // Chooses a folder that exists in the folder dialog that is up, or comes up, and accepts it.
  void pick_folder(const std::string& path);
  void cancel_folder_dialog();
  bool file_dialog_shown() const;

  // --- message boxes
  bool message_shown() const;
  MessageShown wait_for_message() const;
  // Presses a button (IDOK, IDYES, ...) of the box that is up, or comes up, and waits until the box
  // is gone. Gives what the box said.
  MessageShown answer_message(int button);

  // --- pictures, see screen_picture.h
  void picture_of_screen(const std::string& name) const;
  void picture_of_window(const std::string& name) const;
  // The whole screen without waiting until it is still.
  void picture_now(const std::string& name) const;

 private:
  HWND top_level(const std::string& property) const;
  HWND dialog(bool with_file_name) const;
  HWND folder_dialog() const;
  std::wstring folder_chosen(HWND dialog) const;
  HWND child(const std::string& name) const;
  LRESULT send(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0) const;
  std::string text_of(HWND window) const;
  void to_front() const;
  void point_at(HWND window, POINT place) const;
  POINT centre(HWND window) const;
  POINT place_of_row(const std::string& list, int row) const;
  std::wstring folder_shown(HWND dialog) const;
  void accept(HWND dialog, const std::wstring& names) const;
  [[noreturn]] void fail(const std::string& what) const;

  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
  std::chrono::milliseconds start_time_{};
};

}  // namespace ordelan::test
