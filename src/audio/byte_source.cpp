#include "audio/byte_source.h"

#include <algorithm>
#include <utility>

namespace ordelan::audio {

ByteSource::ByteSource(std::uint64_t size, Read read) : size_(size), read_(std::move(read)) {}

bool ByteSource::load(std::uint64_t number) {
  if (!block_.empty() && number == number_) return true;
  if (blocks_read_ == kMostBlocks) return false;
  ++blocks_read_;
  block_.resize(kBlock);
  number_ = number;
  const auto came =
      read_(number * kBlock, {reinterpret_cast<std::uint8_t*>(block_.data()), kBlock});
  block_.resize(std::min(came.value_or(0), kBlock));
  return !block_.empty();
}

std::string ByteSource::bytes(std::uint64_t offset, std::size_t count) {
  std::string found;
  while (found.size() < count && offset < size_ && load(offset / kBlock)) {
    const auto from = static_cast<std::size_t>(offset % kBlock);
    if (from >= block_.size()) break;
    const std::uint64_t left = std::min<std::uint64_t>(count - found.size(), size_ - offset);
    const auto taken =
        static_cast<std::size_t>(std::min<std::uint64_t>(block_.size() - from, left));
    found.append(block_, from, taken);
    offset += taken;
  }
  return found;
}

SourceStream::SourceStream(ByteSource& source, std::uint64_t begin, std::uint64_t end)
    : source_(source), at_(begin), end_(std::max(begin, std::min(end, source.size()))) {}

std::string SourceStream::take(std::size_t count) {
  std::string bytes =
      source_.bytes(at_, static_cast<std::size_t>(std::min<std::uint64_t>(count, end_ - at_)));
  at_ += bytes.size();
  return bytes;
}

void SourceStream::skip(std::uint64_t count) {
  at_ += std::min(count, end_ - at_);
}

}  // namespace ordelan::audio
