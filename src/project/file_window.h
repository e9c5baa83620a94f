// A window that moves along a file: the bytes that a scan is looking at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "project/vip_scan.h"
#include "system/file_system.h"

namespace ordelan::project {

class FileWindow {
 public:
  // Small enough to stay in the processor's cache between the reading and the looking, large
  // enough that the calls cost nothing.
  static constexpr std::size_t kBlock = 128 * 1024;

  // `file` must outlive the window. `block` is how many bytes are read at once.
  explicit FileWindow(system::InputFile& file, std::size_t block = kBlock);

  // Moves the window so that it begins at `from` and holds at least one byte more than it held
  // behind that, unless the file ends. False when the reading failed; the window is then the last.
  bool move(Position from);

  const Stretch& stretch() const { return stretch_; }
  Position length() const { return length_; }

 private:
  system::InputFile& file_;
  std::size_t block_;
  Position length_;
  std::vector<std::uint8_t> buffer_;
  Stretch stretch_;
};

}  // namespace ordelan::project
