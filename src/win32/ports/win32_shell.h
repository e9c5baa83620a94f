// Windows' own shell.
#pragma once

#include "system/shell.h"
#include "win32/ole_session.h"

namespace ordelan::win32 {

// To be used on the thread that made it.
class Win32Shell final : public system::Shell {
 public:
  // Whether there is a user in front of the screen who can be asked.
  enum class Questions { asked, answered_no };
  explicit Win32Shell(Questions questions = Questions::asked)
      : asks_(questions == Questions::asked) {}

  bool open(const std::string& target) override;
  bool copy_text(const std::string& text) override;
  bool show_in_folder(const std::string& path) override;
  bool show_properties(const std::string& path) override;
  std::string file_type(const std::string& path) override;
  std::string executable(const std::string& path) override;
  // In the large size of the system, usually 32 by 32.
  std::optional<system::Pixels> icon(const std::string& path) override;
  system::Status recycle(const std::string& path, system::Confirm confirm) override;
  system::Status copy_into(const std::string& from, const std::string& folder) override;
  // Fixed drives have a bin, unless the user or the administrator has turned it off.
  system::Status recycles(std::string_view root) override;
  std::uint64_t bin_capacity(std::string_view root) override;
  system::Status empty_bin(const std::string& root, system::Confirm confirm) override;

 private:
  OleSession ole_;
  bool asks_;
};

}  // namespace ordelan::win32
