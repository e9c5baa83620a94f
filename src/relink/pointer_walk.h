// Finds where the absolute paths of a project stand, without a look at what they name: each colon
// with a backslash after it begins one byte before the colon and ends before the next NUL.
//
// The walk has blind spots, which are kept: the numbers that it gives are the format of pointer
// files, and every project that was ever updated was updated by them. After a doubled backslash it
// skips a byte, and so it does at a backslash that it meets first after a path: a path whose own
// backslash stands there is missed. A path that is empty after its backslash gives the end of the
// one before it, and the walk then counts as inside a path until it has found another end.
#pragma once

#include "project/vip_scan.h"

namespace ordelan::relink {

class PointerWalk {
 public:
  // Walks from the header's position to `limit`, which the marker sets; 0 or less walks nowhere.
  explicit PointerWalk(project::Position limit) : limit_(limit) {}

  // Looks on in the chunk, which holds the byte before `position()` and the one at it unless the
  // file ends before them. Gives true with the next number of the pointer file in `line`, false
  // when the chunk holds no further one or the walk has ended.
  bool next(const project::Chunk& chunk, project::Position& line);

  bool ended() const { return phase_ == Phase::ended; }
  // The next position to be looked at.
  project::Position position() const { return position_; }
  // Whether the last number given was the end of a path: a pair is then complete.
  bool gave_end() const { return gave_end_; }
  // Whether the user may stop the walk here: inside a path it goes on to its end.
  bool may_stop() const { return phase_ != Phase::path; }

 private:
  enum class Phase { top, start, path, ended };

  bool seek_start(const project::Chunk& chunk, project::Position& line);
  bool seek_end(const project::Chunk& chunk, project::Position& line);
  void go_on_after_start();
  bool in(const project::Chunk& chunk) const { return position_ < chunk.end(); }

  project::Position limit_;
  project::Position position_ = project::kHeaderPosition;
  project::Position end_ = 0;  // of the last path that had one
  Phase phase_ = Phase::top;
  bool inside_ = false;
  bool searching_end_ = false;  // the first byte of the path is not its NUL
  bool gave_end_ = false;
};

}  // namespace ordelan::relink
