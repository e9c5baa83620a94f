#include "relink/pointer_walk.h"

#include <algorithm>

#include "text/byte_search.h"

namespace ordelan::relink {

using project::Chunk;
using project::Position;

bool PointerWalk::next(const Chunk& chunk, Position& line) {
  while (phase_ != Phase::ended) {
    if (phase_ == Phase::top && position_ >= limit_) {
      phase_ = Phase::ended;
      return false;
    }
    if (!in(chunk)) break;
    switch (phase_) {
      case Phase::top:
        if (chunk[position_] != '\\') {
          phase_ = Phase::start;
        } else {
          go_on_after_start();
        }
        break;
      case Phase::start:
        if (seek_start(chunk, line)) return true;
        break;
      case Phase::path:
        if (seek_end(chunk, line)) return true;
        break;
      case Phase::ended:
        break;
    }
  }
  if (chunk.last) phase_ = Phase::ended;
  return false;
}

// The search for a start has ended without one, at a backslash: either the walk still counts as
// inside a path, or that byte is skipped.
void PointerWalk::go_on_after_start() {
  if (inside_) {
    phase_ = Phase::path;
  } else {
    ++position_;
    phase_ = Phase::top;
  }
}

// Goes on to the next backslash. True with the start of a path in `line` if a colon stands before
// it.
bool PointerWalk::seek_start(const Chunk& chunk, Position& line) {
  const Position end = std::min(limit_ + 1, chunk.end());
  if (position_ < end) {
    position_ += text::find_byte(chunk.at(position_), chunk.at(end), '\\') - chunk.at(position_);
  }
  if (position_ > limit_) {
    phase_ = Phase::ended;
    return false;
  }
  if (position_ >= chunk.end()) return false;
  const std::uint8_t before = chunk[position_ - 1];
  ++position_;
  if (before == ':') {
    line = position_ - 3;
    gave_end_ = false;
    inside_ = true;
    phase_ = position_ > limit_ ? Phase::ended : Phase::path;
    return true;
  }
  if (position_ > limit_) {
    phase_ = Phase::ended;
  } else if (before == '\\') {
    go_on_after_start();
  }
  return false;
}

// Goes on to the NUL that ends a path. True with its last byte in `line`.
bool PointerWalk::seek_end(const Chunk& chunk, Position& line) {
  // The first byte of a path is looked at on its own: a path that is empty has no end of its own.
  if (!searching_end_) {
    if (chunk[position_] == 0) {
      line = end_;
      gave_end_ = true;
      ++position_;
      phase_ = Phase::top;
      return true;
    }
    searching_end_ = true;
  }
  const Position end = std::min(limit_ + 1, chunk.end());
  if (position_ < end) {
    position_ += text::find_byte(chunk.at(position_), chunk.at(end), 0) - chunk.at(position_);
  }
  if (position_ > limit_) {
    phase_ = Phase::ended;
    return false;
  }
  if (position_ >= chunk.end()) return false;
  searching_end_ = false;
  inside_ = false;
  end_ = position_ - 1;
  line = end_;
  gave_end_ = true;
  ++position_;
  phase_ = Phase::top;
  return true;
}

}  // namespace ordelan::relink
