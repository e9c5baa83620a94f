// The disk, through Windows.
#pragma once

#include "system/file_system.h"

namespace ordelan::win32 {

class Win32FileSystem final : public system::FileSystem {
 public:
  // Makes Windows report a drive without a medium as a failure, without a box on the screen.
  Win32FileSystem();

  std::optional<system::FileInfo> info(std::string_view path) override;
  std::optional<system::FileIdentity> identity(std::string_view path) override;
  system::Opened<system::InputFile> open(std::string_view path) override;
  system::Opened<system::OutputFile> create(std::string_view path) override;
  system::Opened<system::OutputFile> create_new(std::string_view path) override;
  // No other program may have the file open for writing, nor move or remove it meanwhile.
  system::Opened<system::ChangeFile> change(std::string_view path) override;
  system::Status make_folder(std::string_view path) override;
  system::Status set_attributes(std::string_view path, std::uint32_t attributes) override;
  // Keeps the time of creation, the access rights, the attributes and the named streams of `to`,
  // where the disk keeps such; a stream of `from` that has the name of one of `to` is lost. Fails
  // where a stream cannot be copied. Tries for a quarter of a second while another program has one
  // of the files open.
  system::Status replace(std::string_view from, std::string_view to) override;
  // Tries as long as `replace`.
  system::Status move(std::string_view from, std::string_view to) override;
  // No other program may write to `from` meanwhile. Other streams of the file are not copied.
  system::Status copy_new(std::string_view from, std::string_view to, const Progress& progress,
                          system::Flush flush = system::Flush::yes) override;
  // Only looks whether the folder exists.
  system::Status flush_folder(std::string_view folder) override;
  system::Status flush_file(std::string_view path) override;
  system::Opened<system::FileLock> lock(std::string_view path) override;
  system::Status remove(std::string_view path) override;

 private:
  // Windows gives sizes and attributes with the names in any case.
  bool each_entry(std::string_view folder, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override;
};

}  // namespace ordelan::win32
