#include "project/vip_scan.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "text/byte_search.h"
#include "text/code_page.h"

namespace ordelan::project {
namespace {

constexpr Position kMarkerSize = 12;

bool is_marker(const std::uint8_t* at) {
  return std::memcmp(at, "LIST", 4) == 0 && std::memcmp(at + 8, "mdrl", 4) == 0;
}

enum class Extension { none, three, four };

// What the three bytes after a dot make of it. A "fla" takes one byte more, whatever that is.
Extension extension(const std::uint8_t* behind_dot) {
  std::array<char, 3> folded{};
  for (std::size_t i = 0; i < folded.size(); ++i) {
    folded[i] = text::lower(static_cast<char>(behind_dot[i]));
  }
  const std::string_view letters(folded.data(), folded.size());
  if (letters == "fla") return Extension::four;
  for (const std::string_view known : {"mp3", "wav", "aif", "ogg"}) {
    if (letters == known) return Extension::three;
  }
  return Extension::none;
}

}  // namespace

void HeaderScan::advance(const Chunk& chunk) {
  if (done_) return;
  const Position end = std::min(chunk.end(), length_);
  if (position_ < end) {
    const auto* stop = chunk.at(end);
    const auto* nul = text::find_byte(chunk.at(position_), stop, 0);
    position_ += nul - chunk.at(position_);
    if (nul != stop) {
      ++position_;
      done_ = found_ = true;
      return;
    }
  }
  done_ = chunk.last || position_ >= length_;
}

void MarkerSearch::advance(const Chunk& chunk) {
  const Position end = std::min(chunk.end(), length_);
  while (!done_) {
    if (position_ >= end) break;
    position_ += text::find_byte(chunk.at(position_), chunk.at(end), 'L') - chunk.at(position_);
    if (position_ == end) break;
    const bool whole = position_ + kMarkerSize <= chunk.end();
    if (!whole && !chunk.last) return;
    if (whole && is_marker(chunk.at(position_))) {
      limit_ = position_ - 5;
      done_ = true;
      return;
    }
    position_ += kMarkerSize;
  }
  done_ = done_ || chunk.last || position_ >= length_;
}

Position ReferenceScan::candidate() const {
  const bool reading = phase_ == Phase::entry || phase_ == Phase::extension;
  return reading && start_ > 0 ? std::min(start_, position_) : position_;
}

bool ReferenceScan::next(const Chunk& chunk, Position limit, Reference& found) {
  while (phase_ != Phase::ended) {
    if (phase_ == Phase::top && (position_ >= limit || position_ < 1)) {
      phase_ = Phase::ended;
      return false;
    }
    if (position_ >= chunk.end()) break;

    if (phase_ == Phase::top) {
      // A colon at the very top is taken for one that a backslash follows; the reference then
      // begins where the one before it began. What comes of it is cut at its first NUL, so such
      // rows repeat the path before them.
      phase_ = chunk[position_] == ':' ? Phase::extension : Phase::colon;
    }
    if (phase_ == Phase::colon && !seek_colon(chunk, limit)) break;
    if (phase_ == Phase::entry) {
      if (position_ >= chunk.end()) break;
      if (chunk[position_] == 0) {
        end_candidate(position_, limit);
        continue;
      }
      phase_ = Phase::extension;
    }
    if (phase_ == Phase::extension) {
      bool hit = false;
      if (!seek_extension(chunk, limit, found, hit)) break;
      if (hit) return true;
    }
  }
  if (chunk.last) phase_ = Phase::ended;
  return false;
}

// Goes on to a colon with a backslash or a second colon after it. False when the chunk ends
// first.
bool ReferenceScan::seek_colon(const Chunk& chunk, Position limit) {
  const Position end = std::min(limit + 1, chunk.end() - 1);
  if (position_ < end) {
    position_ +=
        text::find_pair(chunk.at(position_), chunk.at(end), ':', '\\', ':') - chunk.at(position_);
  }
  if (position_ > limit) {
    phase_ = Phase::ended;
    return true;
  }
  if (position_ >= end) return false;
  if (chunk[position_ + 1] == '\\') {
    start_ = position_ - 1;
    ++position_;
    phase_ = Phase::extension;
    return true;
  }
  // Two colons in a row pass for the start of a reference too, the previous one's.
  position_ += 2;
  phase_ = position_ > limit ? Phase::ended : Phase::entry;
  return true;
}

// Goes on to a known extension (`hit`), or to the NUL that drops the candidate. False when the
// chunk ends first.
bool ReferenceScan::seek_extension(const Chunk& chunk, Position limit, Reference& found,
                                   bool& hit) {
  for (;;) {
    const Position end = std::min(limit + 1, chunk.end());
    if (position_ < end) {
      position_ +=
          text::find_either(chunk.at(position_), chunk.at(end), 0, '.') - chunk.at(position_);
    }
    if (position_ > limit) {
      phase_ = Phase::ended;
      return true;
    }
    if (position_ >= end) return false;
    if (chunk[position_] == 0) {
      if (position_ + 1 > limit) {
        phase_ = Phase::ended;
      } else {
        end_candidate(position_ + 1, limit);
      }
      return true;
    }

    constexpr Position kLookahead = 4;
    const Position dot = position_;
    const bool whole = dot + kLookahead < chunk.end();
    if (!whole && !chunk.last) return false;
    if (dot + 3 >= chunk.end()) {
      phase_ = Phase::ended;
      return true;
    }
    const Extension kind = extension(chunk.at(dot + 1));
    if (kind != Extension::none) {
      if (start_ < 1 || (kind == Extension::four && !whole)) {
        // Nothing has begun yet that could be read: the scan breaks off with what it has.
        phase_ = Phase::ended;
        return true;
      }
      found = {start_, kind == Extension::four ? dot + 4 : dot + 3, dot};
      hit = true;
      end_candidate(dot + 4, limit);
      return true;
    }
    // The three bytes after the dot are used up, and the one after them is never looked at.
    const bool nul = chunk[dot + 3] == 0;
    position_ = dot + 5;
    if (position_ > limit) {
      phase_ = Phase::ended;
      return true;
    }
    if (nul) {
      end_candidate(position_, limit);
      return true;
    }
  }
}

// The byte at `position` is skipped: after a path it is the NUL, or the byte after the NUL.
void ReferenceScan::end_candidate(Position position, Position limit) {
  progress_ = position;
  position_ = position + 1;
  phase_ = position_ > limit ? Phase::ended : Phase::top;
}

bool PointerScan::next(const Chunk& chunk, Position limit, Position& start) {
  if (ended_) return false;
  if (top_ && position_ >= limit) {
    ended_ = true;
    return false;
  }
  top_ = false;
  const Position end = std::min(limit + 1, chunk.end() - 1);
  if (position_ < end) {
    position_ +=
        text::find_pair(chunk.at(position_), chunk.at(end), ':', '\\', '\\') - chunk.at(position_);
  }
  if (position_ >= end) {
    ended_ = position_ > limit || chunk.last;
    return false;
  }
  start = position_ - 1;
  position_ += 2;
  top_ = true;
  return true;
}

}  // namespace ordelan::project
