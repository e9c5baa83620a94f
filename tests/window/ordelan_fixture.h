// The real program, started anew by each test, with settings and a folder of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <system_error>

#include "support/disk_tools.h"
#include "window/drive_settings.h"
#include "window/program.h"

namespace ordelan::test {

// References at its start, gigabytes of nothing, and a marker.
class LongFile {
 public:
  LongFile() {
    std::string start(96, 'x');
    start += std::string("cabecera") + '\0' + "D:\\Mix\\a.wav" + std::string(260, '\0');
    std::ofstream(path_, std::ios::binary) << start;
    constexpr std::uint64_t kLength = std::uint64_t{3} << 30;
    lengthen(path_, kLength);
    std::fstream end(path_, std::ios::binary | std::ios::in | std::ios::out);
    end.seekp(static_cast<std::streamoff>(kLength - 100));
    end << std::string("LIST\0\0\0\0mdrl", 12);
  }
  ~LongFile() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }
  LongFile(const LongFile&) = delete;
  LongFile& operator=(const LongFile&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_ = std::filesystem::temp_directory_path() / L"ordelan_largo.vip";
};

class OrdelanTest : public ::testing::Test {
 protected:
  OrdelanTest() {
    remove_settings();
    folder_ = std::filesystem::temp_directory_path() / L"ordelan_window";
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~OrdelanTest() override {
    program.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  // Starts the program. The studio's drives are ticked, unless the test has written settings.
  void start() {
    if (!settings_written()) write_settings("DE");
    program = std::make_unique<Program>();
    program->wait_until("the start-up's end", [&] {
      return program->visible("TextNum1(0)") && !program->visible("SalvaListados");
    });
  }

  void open(const std::string& project) {
    program->click("AbrirFichero");
    program->pick_files({project});
  }

  // SalvaListados shows before the report of lost files is made, while clicks are still refused;
  // ZoomListas shows at the very end.
  void wait_decoded() {
    program->wait_until("the end of the decode", [&] {
      return program->visible("SalvaListados") && program->visible("ZoomListas");
    });
  }

  void wait_shown(const std::string& name) {
    program->wait_until(name + " is shown", [&] { return program->visible(name); });
  }

  // The test's own folder, and a path in it.
  const std::filesystem::path& folder() const { return folder_; }
  std::string path(const std::string& below) const { return (folder_ / below).string(); }

  // Writes a file in the folder, making the folders on the way.
  void write(const std::string& below, const std::string& bytes) const {
    const auto file = folder_ / below;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
  }

  // A project that takes a while to read. All tests share its bytes, as it takes the system much
  // longer to read them for the first time.
  std::string long_project(const std::string& below = "largo.vip") const {
    static const LongFile shared;
    const auto file = folder_ / below;
    std::filesystem::create_directories(file.parent_path());
    std::filesystem::create_hard_link(shared.path(), file);
    return file.string();
  }

  std::unique_ptr<Program> program;

 private:
  std::filesystem::path folder_;
};

}  // namespace ordelan::test
