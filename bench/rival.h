// Rivals: other programs, run as a shell runs them.
#pragma once

#include <array>
#include <cstdio>
#include <string>

namespace ordelan::bench {

// Runs a command and gives what it printed.
inline std::string output_of(const std::string& command) {
  std::string output;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return output;
  std::array<char, 4096> buffer{};
  while (const std::size_t came = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
    output.append(buffer.data(), came);
  }
  ::pclose(pipe);
  return output;
}

// The number that a command printed first; -1 if it printed none.
inline long long number_of(const std::string& command) {
  long long number = -1;
  std::sscanf(output_of(command).c_str(), "%lld", &number);
  return number;
}

}  // namespace ordelan::bench
