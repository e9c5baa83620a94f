// Reading audio paths out of the bytes of a project, as machines over stretches of a file.
//
// A project is not parsed: a text begins at position 97, a "LIST" chunk of type "mdrl" closes the
// part worth reading, and in that part stand absolute paths as plain text. Three machines know
// this: HeaderScan, MarkerSearch and ReferenceScan, and PointerScan for the positions alone. Each
// is fed with stretches of the file in ascending order, as long or as short as they come, and
// stops where the bytes at hand do not settle the next step.
//
// Positions are 1-based: position 1 is the first byte of the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>

namespace ordelan::project {

using Position = std::int64_t;

inline constexpr Position kHeaderPosition = 97;
inline constexpr Position kNoLimit = std::numeric_limits<Position>::max() / 2;

// Bytes of a file in a row.
struct Chunk {
  const std::uint8_t* data = nullptr;
  Position first = 1;    // the position of data[0]
  std::size_t size = 0;  // bytes at hand
  bool last = false;     // no byte of the file follows these

  Position end() const { return first + static_cast<Position>(size); }
  const std::uint8_t* at(Position position) const { return data + (position - first); }
  std::uint8_t operator[](Position position) const { return *at(position); }
};

// Finds the NUL that ends the header text. The last byte of the file is never taken for it.
class HeaderScan {
 public:
  explicit HeaderScan(Position length) : length_(length) {}

  // Looks at the chunk, which holds `position()` unless the file ends before it.
  void advance(const Chunk& chunk);

  bool done() const { return done_; }
  // Whether the NUL was found, and then the position just after it.
  bool found() const { return found_; }
  // The next position to be looked at; after the NUL once that is found.
  Position position() const { return position_; }

 private:
  Position length_;
  Position position_ = kHeaderPosition;
  bool done_ = false;
  bool found_ = false;
};

// Finds the marker: "LIST", four bytes of any value, "mdrl".
//
// Every "L" that does not begin the marker makes the search go on twelve bytes after it, so that
// a marker which begins within eleven bytes of another "L" is missed. Projects are known to the
// program by this rule: the rows of old projects would change with any other.
class MarkerSearch {
 public:
  MarkerSearch(Position from, Position length) : position_(from < 1 ? 1 : from), length_(length) {}

  // Looks at the chunk, which holds `position()` unless the file ends before it.
  void advance(const Chunk& chunk);

  bool done() const { return done_; }
  // Once done: the scan limit, five less than the marker's position; 0 when there is no marker.
  Position limit() const { return limit_; }
  // The next position to be looked at.
  Position position() const { return position_; }

 private:
  Position position_;
  Position length_;
  Position limit_ = 0;
  bool done_ = false;
};

// An audio path that stands in a project.
struct Reference {
  Position start;  // of its first byte
  Position last;   // of its last byte
  Position dot;    // of its extension's dot: it counts where this is within the scan limit
};

// Finds the references. The limit need not be known from the start: run with kNoLimit, the scan
// gives the same references in the same order, and those whose dot lies after the limit are the
// ones that do not count.
class ReferenceScan {
 public:
  explicit ReferenceScan(Position from) : position_(from) {}

  // Looks on in the chunk, which holds `position()` unless the file ends before it. Gives true
  // with the next reference in `found`, false when the chunk holds no further one or the scan
  // has ended.
  bool next(const Chunk& chunk, Position limit, Reference& found);

  bool ended() const { return phase_ == Phase::ended; }
  // The next position to be looked at.
  Position position() const { return position_; }
  // Where the reference begins that is being read, or the next position if there is none.
  Position candidate() const;
  // Where the last candidate, kept or dropped, ended.
  Position progress() const { return progress_; }

 private:
  enum class Phase { top, colon, entry, extension, ended };

  bool seek_colon(const Chunk& chunk, Position limit);
  bool seek_extension(const Chunk& chunk, Position limit, Reference& found, bool& hit);
  void end_candidate(Position position, Position limit);

  Phase phase_ = Phase::top;
  Position position_;
  Position start_ = 0;
  Position progress_ = 0;
};

// Finds every colon with a backslash after it, wherever it stands.
class PointerScan {
 public:
  explicit PointerScan(Position from) : position_(from) {}

  // As ReferenceScan::next; `start` is the position of the byte before the colon.
  bool next(const Chunk& chunk, Position limit, Position& start);

  bool ended() const { return ended_; }
  Position position() const { return position_; }

 private:
  Position position_;
  bool top_ = true;
  bool ended_ = false;
};

}  // namespace ordelan::project
