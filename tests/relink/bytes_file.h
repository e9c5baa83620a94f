// A file in memory and the image of a project over it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>

#include "relink/file_image.h"

namespace ordelan::test {

class BytesFile final : public system::InputFile {
 public:
  explicit BytesFile(std::string bytes) : bytes_(std::move(bytes)) {}

  // Called before each read with its offset; false makes the read fail.
  std::function<bool(std::uint64_t)> on_read;
  int reads = 0;

  // Takes bytes from the end after the file was opened: its size stays what it was.
  void shrink(std::size_t size) {
    opened_size_ = this->size();
    bytes_.resize(size);
  }

  std::uint64_t size() const override { return opened_size_.value_or(bytes_.size()); }
  std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
    ++reads;
    if (on_read && !on_read(offset)) return std::nullopt;
    if (offset >= bytes_.size()) return 0;
    const auto from = static_cast<std::size_t>(offset);
    const std::size_t count = std::min(buffer.size(), bytes_.size() - from);
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(from), count, buffer.begin());
    return count;
  }

 private:
  std::string bytes_;
  std::optional<std::uint64_t> opened_size_;
};

// All that an image holds.
inline std::string whole(relink::FileImage& image) {
  std::string bytes;
  image
      .write_whole([&](std::string_view piece) {
        bytes += piece;
        return system::Status{};
      })
      .ignore();
  return bytes;
}

// `bytes` after the changed pages of an image were written into them.
inline std::string with_changes(relink::FileImage& image, std::string bytes) {
  image
      .write_changes([&](std::uint64_t offset, std::string_view piece) {
        const auto from = static_cast<std::size_t>(offset);
        if (bytes.size() < from + piece.size()) bytes.resize(from + piece.size(), '\0');
        bytes.replace(from, piece.size(), piece);
        return system::Status{};
      })
      .ignore();
  return bytes;
}

}  // namespace ordelan::test
