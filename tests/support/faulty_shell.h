// Another shell of which chosen calls fail, take their time or are the last ones before the program
// is killed.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "support/faults.h"
#include "system/shell.h"

namespace ordelan::test {

class FaultyShell final : public system::Shell {
 public:
  enum class Call { open, file_type, executable, icon, recycle, copy_into, recycles, empty_bin };

  // `shell` must outlive this.
  explicit FaultyShell(system::Shell& shell) : shell_(shell) {}

  Faults<Call> faults;

  bool open(const std::string& target) override {
    return begin(Call::open, target) && shell_.open(target);
  }
  std::string file_type(const std::string& path) override {
    return begin(Call::file_type, path) ? shell_.file_type(path) : "";
  }
  std::string executable(const std::string& path) override {
    return begin(Call::executable, path) ? shell_.executable(path) : "";
  }
  std::optional<system::Pixels> icon(const std::string& path) override {
    return begin(Call::icon, path) ? shell_.icon(path) : std::nullopt;
  }
  bool copy_text(const std::string& text) override { return shell_.copy_text(text); }
  bool show_in_folder(const std::string& path) override { return shell_.show_in_folder(path); }
  bool show_properties(const std::string& path) override { return shell_.show_properties(path); }
  system::Status recycle(const std::string& path, system::Confirm confirm) override {
    const auto status = begin(Call::recycle, path);
    return status ? shell_.recycle(path, confirm) : status;
  }
  system::Status copy_into(const std::string& from, const std::string& folder) override {
    const auto status = begin(Call::copy_into, from);
    return status ? shell_.copy_into(from, folder) : status;
  }
  system::Status recycles(std::string_view root) override {
    const auto status = begin(Call::recycles, root);
    return status ? shell_.recycles(root) : status;
  }
  std::uint64_t bin_capacity(std::string_view root) override { return shell_.bin_capacity(root); }
  system::Status empty_bin(const std::string& root, system::Confirm confirm) override {
    const auto status = begin(Call::empty_bin, root);
    return status ? shell_.empty_bin(root, confirm) : status;
  }

 private:
  system::Status begin(Call call, std::string_view path) {
    return faults.begin(call, path, [] {});
  }

  system::Shell& shell_;
};

}  // namespace ordelan::test
