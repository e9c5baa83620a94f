#include "audio/waveform.h"

#include <algorithm>
#include <utility>

namespace ordelan::audio {

WaveformReader::WaveformReader(system::FileSystem& files, std::string path, std::size_t columns)
    : files_(files), path_(std::move(path)), columns_(std::max<std::size_t>(columns, 1)) {}

bool WaveformReader::step() {
  if (ended_) return false;
  const auto file = files_.open(path_);
  ended_ = true;
  if (!file) return false;
  if (!samples_) {
    ended_ = !find_samples(*file);
  } else {
    const bool all_came = read(*file, piece(next_));
    ++next_;
    show();
    ended_ = !all_came || next_ == pieces_;
  }
  if (ended_) buffer_ = {};
  return !ended_;
}

bool WaveformReader::find_samples(system::InputFile& file) {
  ByteSource source(file.size(), [&file](std::uint64_t offset, std::span<std::uint8_t> buffer) {
    return file.read(offset, buffer);
  });
  samples_ = stored_samples(source);
  if (!samples_) return false;
  const std::uint64_t in_piece = kPiece / samples_->width;
  const bool whole = samples_->count <= kMost / samples_->width;
  pieces_ = whole ? (samples_->count + in_piece - 1) / in_piece
                  : std::max<std::uint64_t>(kMost / kPiece / columns_.size(), 1) * columns_.size();
  return true;
}

// The first sample of a column: columns begin with whole moments.
std::uint64_t WaveformReader::begin_of(std::size_t column) const {
  const std::uint64_t moments = samples_->count / samples_->channels;
  const std::uint64_t all = columns_.size();
  return (moments / all * column + moments % all * column / all) * samples_->channels;
}

WaveformReader::Piece WaveformReader::piece(std::uint64_t number) const {
  const std::uint64_t in_piece = kPiece / samples_->width;
  if (samples_->count <= kMost / samples_->width) {
    return {number * in_piece, std::min((number + 1) * in_piece, samples_->count)};
  }
  const std::uint64_t in_column = pieces_ / columns_.size();
  const auto column = static_cast<std::size_t>(number / in_column);
  const std::uint64_t begin = begin_of(column);
  const std::uint64_t length = begin_of(column + 1) - begin;
  if (length <= in_piece) return {begin, begin + length};
  const std::uint64_t spare = length - in_piece;
  const std::uint64_t gaps = std::max<std::uint64_t>(in_column - 1, 1);
  const std::uint64_t place = number % in_column;
  const std::uint64_t from = begin + spare / gaps * place + spare % gaps * place / gaps;
  return {from, from + in_piece};
}

// False where the file has become shorter or does not give its bytes.
bool WaveformReader::read(system::InputFile& file, Piece piece) {
  const std::size_t width = samples_->width;
  buffer_.resize(static_cast<std::size_t>(piece.end - piece.begin) * width);
  const std::size_t came = file.read(samples_->at + piece.begin * width, buffer_).value_or(0);
  const std::uint64_t end = piece.begin + std::min(came, buffer_.size()) / width;
  const std::uint64_t moment = piece.begin / samples_->channels;
  const std::uint64_t moments = samples_->count / samples_->channels;
  // A place near the column that the piece begins in; the next loop finds it exactly.
  auto column =
      static_cast<std::size_t>(static_cast<double>(moment) / static_cast<double>(moments) *
                               static_cast<double>(columns_.size()));
  column = std::min(column, columns_.size() - 1);
  while (column > 0 && begin_of(column) > piece.begin) --column;
  std::uint64_t at = piece.begin;
  for (; at < end; ++column) {
    const std::uint64_t next = std::min(begin_of(column + 1), end);
    if (next <= at) continue;
    const auto first = static_cast<std::size_t>(at - piece.begin) * width;
    const auto length = static_cast<std::size_t>(next - at) * width;
    widen(columns_[column], *samples_, std::span(buffer_).subspan(first, length));
    at = next;
  }
  return came == buffer_.size();
}

void WaveformReader::show() {
  shown_.resize(columns_.size());
  for (std::size_t i = columns_.size(); i > 0; --i) {
    const std::size_t column = i - 1;
    const Peaks& peaks = columns_[column];
    const bool shares = begin_of(column) == begin_of(i);
    if (peaks.low <= peaks.high) {
      shown_[column] = peaks;
    } else if (shares && i < columns_.size()) {
      shown_[column] = shown_[i];  // of fewer moments than columns each is shown several times
    } else {
      shown_[column] = {0, 0};
    }
  }
}

}  // namespace ordelan::audio
