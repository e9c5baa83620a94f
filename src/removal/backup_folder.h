// The folder of a run with backup: copies that are checked, the log, and the index of the copies.
// Nothing that stands in it is lost: what has to make room has a copy before.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "removal/copy_index.h"
#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::removal {

inline constexpr const char* kLockName = "Archivos_Borrados.lock";

// The name of the numbered subfolder: "0001", and on.
std::string numbered_folder(std::size_t number);

// Whether a file of the backup folder's own stands there: then it is one.
bool is_backup_folder(system::FileSystem& files, const std::string& folder);

// Compares the bytes of two files. Gives their size and fingerprint if they are equal, and why not
// otherwise: `other` for files that differ. `go_on` is called now and then, and ends the comparison
// (cancelled) by giving false.
struct Content {
  std::uint64_t size = 0;
  std::uint64_t hash = 0;
  bool operator==(const Content&) const = default;
};
system::Result<Content> same_content(system::FileSystem& files, const std::string& a,
                                     const std::string& b, const std::function<bool()>& go_on);
// All bytes of a file.
system::Result<std::string> bytes_of(system::FileSystem& files, const std::string& path);
// The size and fingerprint of one file.
system::Result<Content> content_of(system::FileSystem& files, const std::string& path,
                                   const std::function<bool()>& go_on);

class BackupFolder {
 public:
  // `go_on` is called while files are copied and compared; when it gives false the call ends with
  // `cancelled`. `files` and `shell` must outlive this.
  BackupFolder(system::FileSystem& files, system::Shell& shell, std::string RutaBackup,
               std::function<bool()> go_on);
  BackupFolder(const BackupFolder&) = delete;
  BackupFolder& operator=(const BackupFolder&) = delete;

  // Takes the folder for this run, until the object is destroyed; in_use while another run has it.
  // A log that an earlier run has left, which the new one replaces, is copied with its index into a
  // numbered subfolder, where it can be recovered from; an index is made for a log that has none.
  // Nothing that stood in the folder has been changed if it fails.
  system::Status take();

  // A path that no copy gets: that of a used file or of a row.
  void keep_place(const std::string& path);

  // Begins an empty log. The index begins with the first copy.
  system::Status begin_log();
  // Appends to the log and waits until it has reached the disk.
  system::Status log(std::string_view text);

  // Copies a file into the folder as the shell does (with its question where the name is taken),
  // checks the copy byte by byte and records it in the index. Ok once copy and record have reached
  // the disk. Where the name is taken, the file has a copy in a numbered subfolder before the shell
  // asks; and so has the one that stands there, if it has other content.
  system::Status copy(const std::string& path);

  // Closes the log and the index.
  void close();

 private:
  std::string path_of(std::string_view name) const { return folder_ + std::string(name); }
  bool is_missing(const std::string& path) const;
  bool is_kept_place(const std::string& path) const;
  system::Status keep_old_log();
  system::Status make_index(const std::string& place);
  system::Opened<system::OutputFile> begin_file(const char* name);
  system::Status record(const std::string& path, const std::string& place, const Content& content);
  // A checked copy in the first numbered subfolder that has no such name. Gives its place.
  system::Result<std::string> copy_aside(const std::string& from, Content& content);
  system::Result<std::string> folder_without(std::size_t number);
  system::Status save_present(const std::string& name, const std::string& there);
  system::Status copy_to_free_name(const std::string& path, const std::string& name);
  system::Status copy_beside(const std::string& path, const std::string& name, bool overwritable);

  system::FileSystem& files_;
  system::Shell& shell_;
  const std::string ruta_;    // as the user chose it: the shell is given just this
  const std::string folder_;  // with its backslash
  const std::function<bool()> go_on_;
  std::unique_ptr<system::FileLock> lock_;
  std::unique_ptr<system::OutputFile> log_;
  std::unique_ptr<system::OutputFile> index_;
  std::unordered_set<std::string> present_;         // log and index of an earlier run
  std::unordered_set<std::string> kept_places_;     // keys of paths
  std::map<std::string, std::size_t> next_number_;  // by name in capitals: where to look first
  // What has been saved of a name that the shell may write over, and is not saved again.
  struct Saved {
    std::uint64_t size;
    double modified;
    system::FileIdentity identity;
    bool operator==(const Saved&) const = default;
  };
  struct Copied {
    std::string path;
    Content content;
  };
  std::map<std::string, Copied> copied_;  // the copies under their own names, by name in capitals
  std::optional<Saved> state_of(const std::string& path) const;
  std::map<std::string, Saved> saved_;
};

}  // namespace ordelan::removal
