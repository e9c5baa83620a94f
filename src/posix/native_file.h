// What the calls of Linux that look at files and change them share.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <utility>

#include "posix/mapped_drives.h"
#include "system/status.h"

namespace ordelan::posix {

// What one of the system's error numbers says.
system::Reason reason_of(int error);
// The same for the call that has just failed; never ok.
system::Reason last_reason();

// An open file, closed when it is destroyed.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close().ignore(); }

  int number() const { return number_; }
  bool valid() const { return number_ >= 0; }
  // Closes it now; ok if that has been done before.
  system::Status close();

 private:
  int number_;
};

// Writes all bytes at the end of what was written before.
system::Status write_all(const Descriptor& file, std::string_view bytes);

// Waits until an open file or folder has reached the disk. Ok where its disk has no way to do so.
system::Status flush_descriptor(const Descriptor& file);

// Moves what stands at a native path to another on the same volume, never over anything.
system::Status rename_to_free(const std::string& from, const std::string& to);

// Why a Windows path leads to no native one, where `MappedDrives::native` has given nothing.
system::Reason reason_without_path(const MappedDrives& drives, std::string_view path);

// Whether a path promises a folder by a separator at its end.
bool promises_folder(std::string_view path);

// Whether the mode lets this user write. The superuser counts as the owner of everything: what its
// owner has marked as not to be written is not to be written.
bool may_write(const struct statx& status);

// Whether there is a plain file at the native path, or a link to one, that this user may not write.
bool is_read_only_file(const std::string& native);

}  // namespace ordelan::posix
