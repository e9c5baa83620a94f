#include "project/file_window.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

namespace ordelan::project {
FileWindow::FileWindow(system::InputFile& file, std::size_t block, ReadBuffer memory)
    : file_(file),
      block_(block),
      length_(static_cast<Position>(file.size())),
      buffer_(std::move(memory)) {
  chunk_.last = length_ == 0;
}

bool FileWindow::move(Position from) {
  std::size_t kept = 0;
  if (from >= chunk_.first && from < chunk_.end()) {
    kept = static_cast<std::size_t>(chunk_.end() - from);
  }
  const auto skipped = static_cast<std::size_t>(kept > 0 ? from - chunk_.first : 0);
  const Position next = from + static_cast<Position>(kept);
  std::size_t wanted = 0;
  if (next <= length_) {
    wanted = std::min(block_, static_cast<std::size_t>(length_ - next + 1));
  }
  if (buffer_.capacity < kept + wanted) {
    // Nothing is filled in: all of it will be read over.
    auto larger = std::make_unique_for_overwrite<std::uint8_t[]>(kept + wanted);
    if (kept > 0) std::memcpy(larger.get(), buffer_.bytes.get() + skipped, kept);
    buffer_ = {std::move(larger), kept + wanted};
  } else if (kept > 0) {
    std::memmove(buffer_.bytes.get(), buffer_.bytes.get() + skipped, kept);
  }

  const std::optional<std::size_t> came =
      wanted == 0 ? std::size_t{0}
                  : file_.read(static_cast<std::uint64_t>(next - 1),
                               std::span(buffer_.bytes.get() + kept, wanted));
  if (!came || *came < wanted) failed_ = true;
  const std::size_t size = kept + came.value_or(0);
  const bool last = !came || *came < wanted || from + static_cast<Position>(size) > length_;
  chunk_ = {buffer_.bytes.get(), from, size, last};
  return came.has_value();
}

}  // namespace ordelan::project
