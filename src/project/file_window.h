// A window that moves along a file: the bytes that a scan is looking at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>

#include "project/vip_scan.h"
#include "system/file_system.h"

namespace ordelan::project {

// Memory to read into.
struct ReadBuffer {
  std::unique_ptr<std::uint8_t[]> bytes;
  std::size_t capacity = 0;
};

class FileWindow {
 public:
  // Small enough to stay in the processor's cache between the reading and the looking, large
  // enough that the calls cost nothing.
  static constexpr std::size_t kBlock = 128 * 1024;

  // `file` must outlive the window. `block` is how many bytes are read at once. Memory that an
  // earlier window has left spares the making of new.
  explicit FileWindow(system::InputFile& file, std::size_t block = kBlock, ReadBuffer memory = {});

  // Gives the memory away; the window is of no use afterwards.
  ReadBuffer release() { return std::move(buffer_); }

  // Moves the window so that it begins at `from` and holds at least one byte more than it held
  // after that, unless the file ends. False when the reading failed; the window is then the last.
  bool move(Position from);

  // Whether a read has failed, or the file turned out shorter than it was when it was opened: what
  // was seen of it is not the whole.
  bool failed() const { return failed_; }

  const Chunk& chunk() const { return chunk_; }
  Position length() const { return length_; }

 private:
  system::InputFile& file_;
  std::size_t block_;
  Position length_;
  ReadBuffer buffer_;
  Chunk chunk_;
  bool failed_ = false;
};

}  // namespace ordelan::project
