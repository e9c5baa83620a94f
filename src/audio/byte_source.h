// The bytes of a file in any order, and no more of them than it takes to read a header: whatever
// lengths a damaged file claims, little is read and little memory is taken.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace ordelan::audio {

class ByteSource {
 public:
  // So many blocks are read in all, 384 KB; what is asked for after that is missing, as if the file
  // ended there. A block is read again when it is asked for after another one.
  static constexpr std::size_t kBlock = 4096;
  static constexpr std::size_t kMostBlocks = 96;

  // Reads from a 0-based offset on and gives how many bytes came, as InputFile::read does.
  using Read = std::function<std::optional<std::size_t>(std::uint64_t, std::span<std::uint8_t>)>;
  ByteSource(std::uint64_t size, Read read);

  // The length of the file.
  std::uint64_t size() const { return size_; }

  // The bytes from `offset` on: fewer than `count` where the file or the allowance ends, or where
  // reading fails.
  std::string bytes(std::uint64_t offset, std::size_t count);

  // How many blocks have been read.
  std::size_t blocks_read() const { return blocks_read_; }

 private:
  // Makes `block_` hold the block of that number. False where there is no more to be had.
  bool load(std::uint64_t number);

  std::uint64_t size_;
  Read read_;
  std::string block_;
  std::uint64_t number_ = 0;  // of the block that is held, if it is not empty
  std::size_t blocks_read_ = 0;
};

// Bytes that are taken one after the other.
class ByteStream {
 public:
  virtual ~ByteStream() = default;
  // The next bytes; fewer than `count` only at the end.
  virtual std::string take(std::size_t count) = 0;
  // Goes past the next bytes.
  virtual void skip(std::uint64_t count) = 0;
};

// A part of a file as a stream. The source must outlive it.
class SourceStream final : public ByteStream {
 public:
  // The bytes from `begin` to before `end`, or to the end of the file.
  SourceStream(ByteSource& source, std::uint64_t begin, std::uint64_t end);

  std::string take(std::size_t count) override;
  void skip(std::uint64_t count) override;

  // Where the next byte stands in the file, and where the last one has its end.
  std::uint64_t at() const { return at_; }
  std::uint64_t end() const { return end_; }

 private:
  ByteSource& source_;
  std::uint64_t at_;
  std::uint64_t end_;
};

}  // namespace ordelan::audio
