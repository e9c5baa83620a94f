// Projects of a few bytes.
#pragma once

#include <string>
#include <vector>

namespace ordelan::test {

// A project that refers to the given paths, each in a field of its own, and says nothing else.
inline std::string project_of(const std::vector<std::string>& paths, std::size_t padding = 0) {
  std::string bytes(96, 'x');
  bytes += std::string("cabecera") + '\0';
  for (const std::string& path : paths) bytes += path + std::string(260 - path.size(), '\0');
  bytes += std::string(padding, ' ') + std::string("    LIST\0\0\0\0mdrl tail", 21);
  return bytes;
}

}  // namespace ordelan::test
