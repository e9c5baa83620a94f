// The search for files: walks a folder tree, or all drives, and reports each file that passes its
// filters.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/platform.h"
#include "ui/image.h"

// Windows' own headers, where they come first, give these names another ending.
#undef DrawIcon
#undef GetDiskFreeSpace
#undef GetDriveType
#undef LoadIcon

namespace ordelan::location {

// A date with its time of day, as days since the 30th of December 1899.
using Date = double;

class cFindFiles {
 public:
  // `platform` must outlive the finder. The drives are looked up here, once.
  explicit cFindFiles(const system::Platform& platform);
  cFindFiles(const cFindFiles&) = delete;
  cFindFiles& operator=(const cFindFiles&) = delete;

  // --- what the search has found so far; stays readable until the next one
  int FilesCount() const { return files_; }
  // Folders met, also those that only stand for another place and are not searched.
  int DirCount() const { return folders_; }
  double TotalSize() const { return total_size_; }  // bytes
  const std::vector<std::string>& ColFiles() const { return ColFiles_; }
  const std::vector<std::string>& ColDrives() const { return ColDrives_; }
  const std::vector<std::string>& ColExtensions() const { return ColExtensions_; }

  // --- filters
  bool SearchSubDirs = true;
  std::int32_t Attributes = 0;  // 0 for any; otherwise a file's attribute word must equal it

  // Limits of the date alone, 0 for none. A limit with a time of day lies after its own day.
  Date DateCreationFrom = 0;
  Date DateCreationTo = 0;
  Date DateLastModifiedFrom = 0;
  Date DateLastModifiedTo = 0;
  Date DateLastAccessFrom = 0;
  Date DateLastAccessTo = 0;

  // Limits of the size in bytes, 0 for none. A minimum above a set maximum, or a maximum below a
  // set minimum, is refused with a message, and the limit goes back to 0.
  std::int64_t MinFileSize() const { return minimum_; }
  std::int64_t MaxFileSize() const { return maximum_; }
  void set_MinFileSize(std::int64_t bytes);
  void set_MaxFileSize(std::int64_t bytes);

  // --- events
  std::function<void(const std::string& Archivo)> GetFile;  // before it is added to ColFiles
  std::function<void()> InitSearch;
  std::function<void()> EndSearch;
  // What a search passes over: entries that the code page cannot name, folders that cannot be
  // listed and folders that only lead to another place. The path, with a backslash at the end of a
  // folder's, is for the user to read.
  enum class Unseen { unnamed, unreadable, linked };
  std::function<void(const std::string& Ruta, Unseen Motivo)> on_unseen;
  // After each turn that the window was given during a search: what it was asked may be looked at
  // here, and StopSearch called.
  std::function<void()> on_turn;

  // --- searches of many names at once
  // Asked for each file that has passed the filters, unless empty: a file for which it gives false
  // is not found.
  std::function<bool(const std::string& name)> wanted;
  // Files are reported by GetFile alone: ColFiles and TotalSize stay empty.
  bool EventsOnly = false;

  // Searches `Path` and, with SearchSubDirs, all below it; all of ColDrives where it is empty.
  // `Extensions`: several, separated by ";" ("mp3;wav" or "*.mp3;*.wav"), or one piece that is a
  // whole file name or a pattern; empty for all files. `FileName`: with `Mode` 1 the name without
  // its extension must contain it, otherwise equal it; case does not count. A name with characters
  // that no file can have is refused with a message. Returns when the search has ended. Does
  // nothing while a search of this finder runs.
  void Find(const std::string& Path, const std::string& Extensions, const std::string& FileName,
            int Mode);
  // Ends the running search at once: no further file is reported.
  void StopSearch() { stop_ = true; }

  // --- helpers; they keep nothing
  // The bare name; empty where a path names no file.
  static std::string GetFileName(std::string_view Path);
  // The extension without its dot, in its own case.
  static std::string GetExtension(std::string_view Path);
  // "D:\" or "\\server\share"; empty for a path without a root.
  static std::string GetDriveFromPath(std::string_view Path);
  // The path in at most `Length` characters, its middle given up for "...".
  static std::string CompactPath(std::string_view Path, std::size_t Length);
  bool IsDirectory(std::string_view Path) const;
  // Whether there is anything of that name, a folder too.
  bool FileExist(std::string_view Path) const;
  // Drives are named "D", "D:" or "D:\".
  bool DriveIsReady(std::string_view Drive) const;
  // "DRIVE_FIXED", "DRIVE_REMOVABLE"...
  std::string GetDriveType(std::string_view Drive) const;
  // Nothing for a drive without a medium.
  std::optional<system::Volume> GetDriveInfo(std::string_view Drive) const;
  std::optional<system::DiskSpace> GetDiskFreeSpace(std::string_view Drive) const;
  // "1,50 MB"
  std::string GetFormatSize(double Size) const;

  struct FileDates {
    Date Creation = 0;
    Date LastModified = 0;
    Date LastAccess = 0;
  };
  // Local dates with their times of day; nothing for a file that is not there.
  std::optional<FileDates> GetFileDateTime(std::string_view Path) const;
  // What the system calls files of this kind, and the program that opens it; empty if unknown.
  std::string GetFileType(const std::string& Path) const;
  std::string GetExecutable(const std::string& Path) const;
  // The icon that the system shows for the file, and the drawing of it on a picture.
  std::optional<system::Pixels> LoadIcon(const std::string& Path) const;
  static void DrawIcon(const system::Pixels& Icon, ui::Image& Target);
  // The folder that the user picks, empty when the dialog was cancelled.
  std::string BrowseForFolder(const std::string& Title) const;
  // The root of every drive, from A upwards.
  std::vector<std::string> pvGetDrives() const;

 private:
  void parse_extensions(std::string Extensions);
  system::Detail detail() const;
  bool passes_limits(const system::FileInfo& file) const;
  bool passes_extension(const std::string& name) const;
  bool passes_name(const std::string& name) const;
  void scan(const std::string& folder);
  void offer(const std::string& folder, std::vector<system::FileInfo>& files);
  void turn();
  void give_turn();

  const system::Platform& platform_;
  std::vector<std::string> ColFiles_;
  std::vector<std::string> ColDrives_;
  std::vector<std::string> ColExtensions_;
  std::vector<std::string> lower_extensions_;
  double total_size_ = 0;
  int files_ = 0;
  int folders_ = 0;
  std::int64_t minimum_ = 0;
  std::int64_t maximum_ = 0;
  std::string search_name_;
  int mode_ = 0;
  bool stop_ = false;
  bool searching_ = false;
  system::Pacer pacer_;
};

}  // namespace ordelan::location
