// The console program on Windows: drives of the system, its arguments in UTF-16, its exit codes.
#include <windows.h>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "support/small_project.h"
#include "window/drive_settings.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// A file into which a started program may write.
class RedirectedFile {
 public:
  explicit RedirectedFile(std::filesystem::path path) : path_(std::move(path)) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    handle_ = CreateFileW(path_.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle_ == INVALID_HANDLE_VALUE) throw std::runtime_error("no file for the output");
  }
  ~RedirectedFile() { CloseHandle(handle_); }
  RedirectedFile(const RedirectedFile&) = delete;
  RedirectedFile& operator=(const RedirectedFile&) = delete;

  HANDLE handle() const { return handle_; }
  std::string bytes() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path path_;
  HANDLE handle_;
};

class ConsoleProgram : public ::testing::Test {
 protected:
  struct Result {
    DWORD exit_code;
    std::string output;
    std::string error;
  };

  ConsoleProgram() {
    remove_settings();
    folder_ = std::filesystem::temp_directory_path() / L"ordelan_console";
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~ConsoleProgram() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  // Runs the program with these arguments and waits for its end; throws when it cannot be started
  // or does not end.
  Result run(const std::wstring& arguments, const wchar_t* current_folder = nullptr) const {
    wchar_t own[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, own, MAX_PATH);
    const auto exe = std::filesystem::path(own).parent_path() / L"../src/app/ordelan-cli.exe";
    std::wstring command = L"ordelan-cli " + arguments;
    const RedirectedFile output(folder_ / L"stdout.txt");
    const RedirectedFile error(folder_ / L"stderr.txt");
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output.handle();
    startup.hStdError = error.handle();
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(exe.c_str(), command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                        current_folder, &startup, &process)) {
      throw std::runtime_error("cannot start ordelan-cli.exe");
    }
    constexpr DWORD kLongest = 60000;
    const bool ended = WaitForSingleObject(process.hProcess, kLongest) == WAIT_OBJECT_0;
    if (!ended) TerminateProcess(process.hProcess, 99);
    Result result{99, output.bytes(), error.bytes()};
    GetExitCodeProcess(process.hProcess, &result.exit_code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (!ended) throw std::runtime_error("ordelan-cli.exe does not end");
    return result;
  }

  std::wstring path(const std::wstring& name) const { return (folder_ / name).wstring(); }
  void write_project(const std::wstring& name) const {
    std::ofstream(folder_ / name, std::ios::binary) << project_of({"D:\\Mix\\a.wav"});
  }

 private:
  std::filesystem::path folder_;
};

TEST_F(ConsoleProgram, a_drive_alone_is_its_root_wherever_the_current_folder_is) {
  const Result root = run(L"--json soltar D:\\");
  ASSERT_EQ(root.exit_code, 0u) << root.error;
  ASSERT_THAT(root.output, HasSubstr("D:\\\\Mix\\\\tema.vip"));
  const Result inside = run(L"--json soltar .", L"D:\\Mix\\Balada");
  ASSERT_NE(inside.output, root.output);
  for (const wchar_t* drive : {L"D:", L"D:/"}) {
    EXPECT_EQ(run(std::wstring(L"--json soltar ") + drive, L"D:\\Mix\\Balada").output, root.output);
  }
}

TEST_F(ConsoleProgram, slashes_separate_as_backslashes_do) {
  const Result back = run(L"--json abrir D:\\Mix\\tema.vip");
  ASSERT_EQ(back.exit_code, 0u) << back.error;
  EXPECT_EQ(run(L"--json abrir D:/Mix//./tema.vip").output, back.output);
  const Result searched = run(L"--json buscar X:/Mix/tema.vip --en D:/");
  EXPECT_EQ(searched.exit_code, 0u) << searched.error;
  EXPECT_THAT(searched.output, HasSubstr("\"ArchivoActual\": \"D:\\\\Mix\\\\tema.vip\""));
}

TEST_F(ConsoleProgram, a_missing_configuration_is_reported_and_none_is_written) {
  const Result result = run(L"--config C:/none.ini abrir D:/Mix/tema.vip");
  EXPECT_EQ(result.exit_code, 0u);
  EXPECT_THAT(result.error, HasSubstr("--config C:/none.ini: no existe el archivo"));
  EXPECT_FALSE(std::filesystem::exists(L"C:\\none.ini"));
  EXPECT_FALSE(settings_written());
}

TEST_F(ConsoleProgram, what_the_code_page_cannot_hold_is_reported_as_that) {
  const std::wstring east = L"\x6771.vip";
  write_project(east);
  write_project(L"a.vip");
  const std::string reason =
      "no cabe en la p\xC3\xA1gina de c\xC3\xB3"
      "digos\r\n";
  for (const wchar_t* command : {L"abrir ", L"listados ", L"soltar ", L"buscar --en D "}) {
    const Result result = run(command + path(east));
    EXPECT_EQ(result.exit_code, 2u);
    EXPECT_THAT(result.error, HasSubstr("\xE6\x9D\xB1.vip: " + reason));
  }
  const Result rest = run(L"soltar " + path(east) + L" " + path(L"a.vip") + L" " + path(L"none"));
  EXPECT_EQ(rest.exit_code, 0u) << rest.error;
  EXPECT_THAT(rest.error, HasSubstr(reason));
  EXPECT_THAT(rest.error, HasSubstr("none: no existe\r\n"));
  const Result config = run(L"--config " + path(L"\x6771.ini") + L" abrir " + path(L"a.vip"));
  EXPECT_EQ(config.exit_code, 0u) << config.error;
  EXPECT_THAT(config.error, HasSubstr("no cabe"));
  EXPECT_THAT(config.error, Not(HasSubstr("no existe")));
}

TEST_F(ConsoleProgram, an_accented_path_is_opened_as_it_is) {
  write_project(L"Canci\xF3n \x20AC.vip");
  const Result result = run(L"--json abrir \"" + path(L"Canci\xF3n \x20AC.vip") + L"\"");
  EXPECT_EQ(result.exit_code, 0u) << result.error;
  EXPECT_THAT(result.output, HasSubstr("Canci\xC3\xB3n \xE2\x82\xAC.vip"));
}

}  // namespace
}  // namespace ordelan::test
