// The waveform of a file as a picture needs it: for each of some columns the lowest and the highest
// of its samples.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "audio/samples.h"
#include "system/file_system.h"

namespace ordelan::audio {

class WaveformReader {
 public:
  // So much is read in a step at most, but for the first, which reads the header.
  static constexpr std::size_t kPiece = 256 * 1024;
  // So much is read of a file in all: 40 minutes of a CD's sound. A longer one is read in pieces
  // that are evenly spread, the same number for each column: its peaks are then those of these
  // pieces, and one between them may be missed.
  static constexpr std::uint64_t kMost = std::uint64_t{400} << 20;

  // `files` must outlive the reader. Nothing is opened before the first step.
  WaveformReader(system::FileSystem& files, std::string path, std::size_t columns = 200);

  // Opens the file, reads the next piece and closes it again, so that nothing keeps others from
  // moving or removing it between two steps. False once there is nothing more to read: all was
  // read, the file has no samples that are stored as they are, or it can no longer be read. What
  // was read until then stays.
  bool step();

  // From the left, over all channels, from -1 to 1; columns that are not read yet are 0 and 0.
  // Empty before the first samples were read, and for ever where there are none.
  const std::vector<Peaks>& columns() const { return shown_; }

 private:
  // The samples from `begin` to before `end`.
  struct Piece {
    std::uint64_t begin = 0;
    std::uint64_t end = 0;
  };

  bool find_samples(system::InputFile& file);
  Piece piece(std::uint64_t number) const;
  std::uint64_t begin_of(std::size_t column) const;
  bool read(system::InputFile& file, Piece piece);
  void show();

  system::FileSystem& files_;
  std::string path_;
  std::vector<Peaks> columns_;  // as read; of those without a sample `low` is above `high`
  std::vector<Peaks> shown_;
  std::optional<StoredSamples> samples_;
  std::uint64_t next_ = 0;  // the number of the next piece
  std::uint64_t pieces_ = 0;
  bool ended_ = false;
  std::vector<std::uint8_t> buffer_;
};

}  // namespace ordelan::audio
