// The real program, started anew by each test, with settings and a folder of the test's own.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include "window/drive_settings.h"
#include "window/program.h"

namespace ordelan::test {

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

  void wait_decoded() {
    program->wait_until("the end of the decode", [&] { return program->visible("SalvaListados"); });
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

  // A project that takes seconds to read: references at its start, gigabytes of nothing, a marker.
  std::string long_project(const std::string& below = "largo.vip") const {
    std::string start(96, 'x');
    start += std::string("cabecera") + '\0' + "D:\\Mix\\a.wav" + std::string(260, '\0');
    write(below, start);
    const auto file = folder_ / below;
    constexpr std::uintmax_t kLength = std::uintmax_t{3} << 30;
    std::filesystem::resize_file(file, kLength);
    std::fstream end(file, std::ios::binary | std::ios::in | std::ios::out);
    end.seekp(static_cast<std::streamoff>(kLength - 100));
    end << std::string("LIST\0\0\0\0mdrl", 12);
    return file.string();
  }

  std::unique_ptr<Program> program;

 private:
  std::filesystem::path folder_;
};

}  // namespace ordelan::test
