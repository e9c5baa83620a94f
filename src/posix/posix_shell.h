// The shell of a machine on which no desktop is taken for granted.
#pragma once

#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::posix {

// A server or a script has no desktop to ask, and the desktops there are have no common answer. So
// nothing is opened, nothing has a program or an icon, and kinds of files go by their extensions,
// as Windows names those that no program has claimed.
class PosixShell final : public system::Shell {
 public:
  // `files` must outlive this.
  explicit PosixShell(system::FileSystem& files) : files_(files) {}

  bool open(const std::string&) override { return false; }
  std::string file_type(const std::string& path) override;
  std::string executable(const std::string&) override { return {}; }
  std::optional<system::Pixels> icon(const std::string&) override { return std::nullopt; }

 private:
  system::FileSystem& files_;
};

}  // namespace ordelan::posix
