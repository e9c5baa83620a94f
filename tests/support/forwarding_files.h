// Two file systems for tests to begin with: one that hands every call on to another, and one of a
// disk with nothing on it. What a test needs otherwise it overrides.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "system/file_system.h"

namespace ordelan::test {

class ForwardingFiles : public system::FileSystem {
 public:
  // `files` must outlive this.
  explicit ForwardingFiles(system::FileSystem& files) : files_(files) {}

  std::optional<system::FileInfo> info(std::string_view path) override { return files_.info(path); }
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    return files_.identity(path);
  }
  system::Opened<system::InputFile> open(std::string_view path) override {
    return files_.open(path);
  }
  system::Opened<system::OutputFile> create(std::string_view path) override {
    return files_.create(path);
  }
  system::Opened<system::OutputFile> create_new(std::string_view path) override {
    return files_.create_new(path);
  }
  system::Opened<system::ChangeFile> change(std::string_view path) override {
    return files_.change(path);
  }
  system::Status make_folder(std::string_view path) override { return files_.make_folder(path); }
  system::Status set_attributes(std::string_view path, std::uint32_t attributes) override {
    return files_.set_attributes(path, attributes);
  }
  system::Status replace(std::string_view from, std::string_view to) override {
    return files_.replace(from, to);
  }
  system::Status move(std::string_view from, std::string_view to) override {
    return files_.move(from, to);
  }
  system::Status copy_new(std::string_view from, std::string_view to, const Progress& progress,
                          system::Flush flush = system::Flush::yes) override {
    return files_.copy_new(from, to, progress, flush);
  }
  system::Status flush_folder(std::string_view folder) override {
    return files_.flush_folder(folder);
  }
  system::Status flush_file(std::string_view path) override { return files_.flush_file(path); }
  system::Status flush_files(std::span<const std::string> paths,
                             const GoOn& go_on = nullptr) override {
    return files_.flush_files(paths, go_on);
  }
  system::Opened<system::FileLock> lock(std::string_view path) override {
    return files_.lock(path);
  }
  system::Status remove(std::string_view path) override { return files_.remove(path); }

 protected:
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    return files_.each(folder, detail, visit, unnamed);
  }

  system::FileSystem& files() { return files_; }

 private:
  system::FileSystem& files_;
};

// Nothing is found, and nothing can be written.
class NoFiles : public system::FileSystem {
 public:
  std::optional<system::FileInfo> info(std::string_view) override { return std::nullopt; }
  std::optional<system::FileIdentity> identity(std::string_view) override { return std::nullopt; }
  system::Opened<system::InputFile> open(std::string_view) override {
    return system::Reason::not_found;
  }
  system::Opened<system::OutputFile> create(std::string_view) override {
    return system::Reason::read_only;
  }
  system::Opened<system::OutputFile> create_new(std::string_view) override {
    return system::Reason::read_only;
  }
  system::Opened<system::ChangeFile> change(std::string_view) override {
    return system::Reason::not_found;
  }
  system::Status make_folder(std::string_view) override { return system::Reason::read_only; }
  system::Status set_attributes(std::string_view, std::uint32_t) override {
    return system::Reason::not_found;
  }
  system::Status replace(std::string_view, std::string_view) override {
    return system::Reason::not_found;
  }
  system::Status move(std::string_view, std::string_view) override {
    return system::Reason::not_found;
  }
  system::Status copy_new(std::string_view, std::string_view, const Progress&,
                          system::Flush) override {
    return system::Reason::not_found;
  }
  system::Status flush_folder(std::string_view) override { return system::Reason::not_found; }
  system::Status flush_file(std::string_view) override { return system::Reason::not_found; }
  system::Opened<system::FileLock> lock(std::string_view) override {
    return system::Reason::read_only;
  }
  system::Status remove(std::string_view) override { return system::Reason::not_found; }

 protected:
  bool each_entry(std::string_view, system::Detail, const Visit&, const VisitUnnamed&) override {
    return false;
  }
};

}  // namespace ordelan::test
