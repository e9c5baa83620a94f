// Finds rows by their text, or by a part of it: eight bytes a row, and no text is copied.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <string_view>
#include <vector>

namespace ordelan::text {

// Rows are identified by number; the caller gives the text that each is found by.
// Of several rows with one text the table holds one.
class RowTable {
 public:
  using Row = std::uint32_t;
  static constexpr Row kNone = std::numeric_limits<Row>::max();

  // Room for so many different texts; no more may be put in.
  explicit RowTable(std::size_t most)
      : slots_(std::bit_ceil(most + most / 4 + 1)), mask_(slots_.size() - 1) {}

  // The row with this text, kNone if there is none. `text_of(row)` gives the text of a row of the
  // table.
  template <class TextOf>
  Row find(std::string_view text, const TextOf& text_of) const {
    return slots_[place(text, hash_of(text), text_of)].row;
  }

  // The row of the table with the text of `row`: `row` itself, which is put in, if there was none.
  template <class TextOf>
  Row find_or_put(Row row, const TextOf& text_of) {
    const std::string_view text = text_of(row);
    const std::uint32_t hash = hash_of(text);
    Slot& slot = slots_[place(text, hash, text_of)];
    if (slot.row == kNone) slot = {hash, row};
    return slot.row;
  }

  // Puts in a row, in the place of one with the same text. Gives that one, kNone if there was none.
  template <class TextOf>
  Row put(Row row, const TextOf& text_of) {
    const std::string_view text = text_of(row);
    const std::uint32_t hash = hash_of(text);
    Slot& slot = slots_[place(text, hash, text_of)];
    const Row before = slot.row;
    slot = {hash, row};
    return before;
  }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    Row row = kNone;
  };

  static std::uint32_t hash_of(std::string_view text) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(text));
  }

  // Where the text is, or would be: texts that hash to the same place follow each other.
  template <class TextOf>
  std::size_t place(std::string_view text, std::uint32_t hash, const TextOf& text_of) const {
    std::size_t at = hash & mask_;
    while (slots_[at].row != kNone &&
           (slots_[at].hash != hash || text_of(slots_[at].row) != text)) {
      at = (at + 1) & mask_;
    }
    return at;
  }

  std::vector<Slot> slots_;
  std::size_t mask_;
};

}  // namespace ordelan::text
