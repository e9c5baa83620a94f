// The console program, run as a script runs it: a process with arguments, output and exit code.
#pragma once

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <string>

#include "support/small_project.h"
#include "test_disk.h"

namespace ordelan::test {

using Json = nlohmann::json;

struct Console : ::testing::Test {
  struct Result {
    int exit_code;
    std::string output;
    std::string error;
    Json json() const { return Json::parse(output); }
  };

  // Runs the program with drive D: on the test's disk. `arguments` are a shell's.
  Result run(const std::string& arguments) const {
    const std::string errors = disk.native_path("stderr.txt").string();
    const std::string command = std::string(ORDELAN_BINARY_DIR "/src/app/ordelan --unidad D=") +
                                disk.native_path("").string() + " " + arguments + " 2>" + errors;
    FILE* pipe = ::popen(command.c_str(), "r");
    Result result{-1, "", ""};
    std::array<char, 4096> buffer{};
    while (const std::size_t came = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
      result.output.append(buffer.data(), came);
    }
    result.exit_code = WEXITSTATUS(::pclose(pipe));
    std::getline(std::ifstream(errors), result.error, '\0');
    return result;
  }

  std::string native(const std::string& below) const { return disk.native_path(below).string(); }

  // The bytes of a file of the disk; empty if there is none.
  std::string bytes_of(const std::string& below) const {
    std::ifstream file(disk.native_path(below), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  TestDisk disk;
};

}  // namespace ordelan::test
