// Running another program and waiting for it.
#pragma once

#include <string>
#include <vector>

namespace ordelan::studio {

// How a program ended.
struct ProgramResult {
  bool started = false;  // false when there is no such program
  int exit_code = -1;    // -1 when it did not start or a signal ended it
  std::string output;    // what it wrote to its standard output
  std::string errors;    // what it wrote to its standard error
};

// Runs `arguments[0]`, looked for in PATH, with the other arguments and no input. No shell is
// involved, so names need no quoting. Never throws for what the program does.
ProgramResult run_program(const std::vector<std::string>& arguments);

}  // namespace ordelan::studio
