// The bytes of a project with the changes of a patch in them. The file itself is only read: what is
// changed is kept here, page by page, until it is written somewhere.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string_view>

#include "project/vip_scan.h"
#include "system/file_system.h"

namespace ordelan::relink {

using project::Position;

class FileImage {
 public:
  // Over the bytes of `file`, which must outlive the image; null for a file that is empty as yet.
  explicit FileImage(system::InputFile* file);

  // The byte at a 1-based position; 0 after the end.
  std::uint8_t at(Position position);
  // Sets the byte at a 1-based position. The file grows to hold it, with zeros in between.
  void put(Position position, std::uint8_t byte);

  std::uint64_t size() const { return size_; }
  // Whether the content is another than that of the file.
  bool differs();
  // Whether a read has failed: what the image holds is then not the file.
  bool failed() const { return failed_; }

  // Gives the whole content to `write`, in pieces and in order. Ends with the first failure.
  using Write = std::function<system::Status(std::string_view bytes)>;
  system::Status write_whole(const Write& write);
  // Gives the pages that were changed, each with the 0-based place of its first byte.
  using WriteAt = std::function<system::Status(std::uint64_t offset, std::string_view bytes)>;
  system::Status write_changes(const WriteAt& write);

 private:
  static constexpr std::uint64_t kPage = 1 << 16;
  struct Page {
    std::array<std::uint8_t, kPage> bytes{};
    bool changed = false;
  };

  Page& page(std::uint64_t number);
  void read_page(std::uint64_t number, Page& page);
  std::string_view bytes_of(std::uint64_t number, const Page& page) const;

  system::InputFile* file_;
  std::uint64_t file_size_;
  std::uint64_t size_;
  bool failed_ = false;
  std::map<std::uint64_t, std::unique_ptr<Page>> pages_;
  Page* last_ = nullptr;  // the page that was asked for last
  std::uint64_t last_number_ = 0;
};

}  // namespace ordelan::relink
