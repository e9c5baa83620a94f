// Files that are changed in place.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <utility>

#include "posix/native_file.h"
#include "posix/posix_file_system.h"

namespace ordelan::posix {
namespace {

using system::Reason;
using system::Status;

class PosixChangeFile final : public system::ChangeFile {
 public:
  PosixChangeFile(Descriptor file, std::uint32_t names) : file_(std::move(file)), names_(names) {}

  std::uint32_t names() const override { return names_; }

  Status write_at(std::uint64_t offset, std::string_view bytes) override {
    while (status_ && !bytes.empty()) {
      const auto went =
          ::pwrite(file_.number(), bytes.data(), bytes.size(), static_cast<off_t>(offset));
      if (went < 0 && errno == EINTR) continue;
      if (went <= 0) return status_ = last_reason();
      bytes.remove_prefix(static_cast<std::size_t>(went));
      offset += static_cast<std::uint64_t>(went);
    }
    return status_;
  }

  Status set_size(std::uint64_t size) override {
    while (status_ && ::ftruncate(file_.number(), static_cast<off_t>(size)) != 0) {
      if (errno != EINTR) status_ = last_reason();
    }
    return status_;
  }

  Status flush() override {
    if (status_) status_ = flush_descriptor(file_);
    return status_;
  }

  Status close() override {
    const Status closed = file_.close();
    return status_ ? closed : status_;
  }

 private:
  Descriptor file_;
  std::uint32_t names_;
  Status status_;
};

}  // namespace

system::Opened<system::ChangeFile> PosixFileSystem::change(std::string_view path) {
  const auto native = drives_.native(path);
  if (!native) return reason_without_path(drives_, path);
  if (promises_folder(path)) return Reason::not_a_file;
  // Opening a pipe or a device may do something to it.
  struct stat found {};
  if (::stat(native->c_str(), &found) != 0) return last_reason();
  if (!S_ISREG(found.st_mode)) return Reason::not_a_file;
  if (is_read_only_file(*native)) return Reason::read_only;
  Descriptor file(::open(native->c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.valid() || ::fstat(file.number(), &found) != 0) return last_reason();
  // Something else may have taken the name since.
  if (!S_ISREG(found.st_mode)) return Reason::not_a_file;
  return std::make_unique<PosixChangeFile>(
      std::move(file), static_cast<std::uint32_t>(std::max<nlink_t>(found.st_nlink, 1)));
}

}  // namespace ordelan::posix
