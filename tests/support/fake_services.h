// A clock that a test sets, and regional settings, drives and a desktop that it chooses.
#pragma once

#include <limits>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "system/clock.h"
#include "system/drives.h"
#include "system/file_system.h"
#include "system/regional.h"
#include "system/shell.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace ordelan::test {

class HandClock final : public system::Clock {
 public:
  Time time{};
  // How far the clock goes by itself at each look.
  std::chrono::microseconds step{0};

  Time now() override { return time += step; }
};

class FixedRegional final : public system::Regional {
 public:
  char mark = ',';

  char decimal_mark() override { return mark; }
  std::string short_date() override { return "21/11/2026"; }
  std::string short_time() override { return "9:05"; }
  std::string long_time() override { return "9:05:07"; }
  std::string date_and_time(double moment) override {
    return "[" + text::number(moment, mark) + "]";
  }
};

// A machine with just the drives that a test puts in; without any at first.
class FakeDrives final : public system::Drives {
 public:
  struct Drive {
    system::DriveType type = system::DriveType::fixed;
    system::Volume volume;
    system::DiskSpace space;
    bool medium = true;
  };
  std::map<std::string, Drive, std::less<>> drives;  // by root ("D:\\")

  // A drive with a label and no more. Gives it, to be changed further.
  Drive& add(const std::string& root, system::DriveType type = system::DriveType::fixed,
             const std::string& label = "") {
    constexpr std::uint64_t kRoom = std::uint64_t{1} << 40;
    return drives[root] = {type, {label, 0, "NTFS"}, {kRoom, kRoom}, true};
  }

  std::vector<std::string> roots() override {
    std::vector<std::string> roots;
    for (const auto& [root, drive] : drives) roots.push_back(root);
    return roots;
  }
  system::DriveType type(std::string_view root) override {
    const auto found = drives.find(root);
    return found == drives.end() ? system::DriveType::no_root_dir : found->second.type;
  }
  std::optional<system::Volume> volume(std::string_view root) override {
    const Drive* const drive = with_medium(root);
    return drive ? std::optional(drive->volume) : std::nullopt;
  }
  system::Result<system::DiskSpace> space(std::string_view root) override {
    const Drive* const drive = with_medium(root);
    if (drive) return drive->space;
    return drives.contains(root) ? system::Reason::not_ready : system::Reason::not_found;
  }

 private:
  const Drive* with_medium(std::string_view root) const {
    const auto found = drives.find(root);
    return found != drives.end() && found->second.medium ? &found->second : nullptr;
  }
};

// A desktop that opens everything and recycles everything, and writes down what it was asked to do.
class FakeShell final : public system::Shell {
 public:
  std::vector<std::string> opened;
  bool opens = true;  // what opening gives
  // What is known of each path; nothing of the others.
  std::map<std::string, std::string> types;
  std::map<std::string, std::string> executables;
  std::map<std::string, system::Pixels> icons;

  // The disk from which recycled files go; without one nothing is looked at.
  system::FileSystem* files = nullptr;
  // What is in the bin: path to bytes. A path that is recycled twice has its last bytes here.
  std::map<std::string, std::string> bin;
  std::vector<std::string> questions;    // the paths that were recycled with a question
  std::vector<std::string> overwritten;  // the paths for which a copy needed an answer
  int emptied = 0;                       // how often the bin was emptied
  std::set<std::string> without_bin;     // the roots of drives whose files are not recycled
  bool answers_yes = true;               // what the user answers to questions
  std::uint64_t largest_in_bin = std::numeric_limits<std::uint64_t>::max();

  std::optional<std::string> clipboard;
  std::vector<std::string> folders_shown;     // the paths of the files chosen in them
  std::vector<std::string> properties_shown;  // of these paths
  bool copy_text(const std::string& text) override {
    clipboard = text;
    return true;
  }
  bool show_in_folder(const std::string& path) override {
    folders_shown.push_back(path);
    return true;
  }
  bool show_properties(const std::string& path) override {
    properties_shown.push_back(path);
    return true;
  }

  system::Status recycle(const std::string& path, system::Confirm confirm) override {
    if (!recycles(path.substr(0, 3))) return system::Reason::not_supported;
    const auto found = files ? files->info(path) : std::nullopt;
    if (files && !found) return system::Reason::not_found;
    if (found && found->folder) return system::Reason::not_a_file;
    if (confirm == system::Confirm::ask) {
      questions.push_back(path);
      if (!answers_yes) return system::Reason::cancelled;
    }
    std::string bytes;
    if (files) {
      {
        const auto file = files->open(path);
        if (!file) return file.status();
        bytes.resize(static_cast<std::size_t>(file->size()));
        file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
      }
      // The bin takes read-only files too.
      if ((found->attributes & system::attribute::kReadOnly) != 0) {
        files->set_attributes(path, system::attribute::kArchive).ignore();
      }
      const auto removed = files->remove(path);
      if (!removed) return removed;
    }
    bin[path] = std::move(bytes);
    return {};
  }
  system::Status copy_into(const std::string& from, const std::string& folder) override {
    if (!files) return system::Reason::not_supported;
    const std::string to = system::with_backslash(folder) + text::Obtener_Nombre_Archivo(from);
    if (files->info(to)) {
      overwritten.push_back(to);
      if (!answers_yes) return system::Reason::cancelled;
      const auto removed = files->remove(to);
      if (!removed) return removed;
    }
    return files->copy_new(from, to, nullptr, system::Flush::no);
  }
  system::Status recycles(std::string_view root) override {
    return without_bin.contains(std::string(root)) ? system::Reason::not_supported
                                                   : system::Reason::ok;
  }
  std::uint64_t bin_capacity(std::string_view root) override {
    return recycles(root) ? largest_in_bin : 0;
  }
  system::Status empty_bin(const std::string& root, system::Confirm confirm) override {
    if (confirm == system::Confirm::ask && !answers_yes) return system::Reason::cancelled;
    ++emptied;
    std::erase_if(bin, [&](const auto& file) { return file.first.starts_with(root); });
    return {};
  }

  bool open(const std::string& target) override {
    opened.push_back(target);
    return opens;
  }
  std::string file_type(const std::string& path) override { return known(types, path); }
  std::string executable(const std::string& path) override { return known(executables, path); }
  std::optional<system::Pixels> icon(const std::string& path) override {
    const auto found = icons.find(path);
    return found == icons.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  static std::string known(const std::map<std::string, std::string>& all, const std::string& path) {
    const auto found = all.find(path);
    return found == all.end() ? "" : found->second;
  }
};

}  // namespace ordelan::test
