#include "project/file_window.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace ordelan::project {
FileWindow::FileWindow(system::InputFile& file, std::size_t block)
    : file_(file), block_(block), length_(static_cast<Position>(file.size())) {
  stretch_.last = length_ == 0;
}

bool FileWindow::move(Position from) {
  std::size_t kept = 0;
  if (from >= stretch_.first && from < stretch_.end()) {
    kept = static_cast<std::size_t>(stretch_.end() - from);
  }
  const auto skipped = static_cast<std::size_t>(kept > 0 ? from - stretch_.first : 0);
  const Position next = from + static_cast<Position>(kept);
  std::size_t wanted = 0;
  if (next <= length_) {
    wanted = std::min(block_, static_cast<std::size_t>(length_ - next + 1));
  }
  if (buffer_.size() < kept + wanted) buffer_.resize(kept + wanted);
  if (kept > 0) std::memmove(buffer_.data(), buffer_.data() + skipped, kept);

  const std::optional<std::size_t> came =
      wanted == 0 ? std::size_t{0}
                  : file_.read(static_cast<std::uint64_t>(next - 1),
                               std::span(buffer_).subspan(kept, wanted));
  const std::size_t size = kept + came.value_or(0);
  const bool last = !came || *came < wanted || from + static_cast<Position>(size) > length_;
  stretch_ = {buffer_.data(), from, size, last};
  return came.has_value();
}

}  // namespace ordelan::project
