// The last entries that were looked up in a table by a text: rows of a list name the same few
// folders again and again, and to compare a text costs less than to hash it and to find its place.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace ordelan::text {

// `Entry` is a pair of a text and a value, as a node of a map. The owner of the entries calls
// `forget` before one of them goes.
template <class Entry>
class Recent {
 public:
  // The entry of that text; null where it is none of the last ones.
  Entry* find(std::string_view text) const {
    Entry* const entry = entries_[place(text)];
    return entry != nullptr && entry->first == text ? entry : nullptr;
  }
  void put(Entry& entry) { entries_[place(entry.first)] = &entry; }
  void forget() { entries_.fill(nullptr); }

 private:
  static constexpr std::size_t kCount = 16;

  // Subfolders of one folder differ by their length or by their last letter, before the backslash.
  static std::size_t place(std::string_view text) {
    if (text.size() < 2) return 0;
    return (text.size() + 7 * static_cast<unsigned char>(text[text.size() - 2])) % kCount;
  }

  std::array<Entry*, kCount> entries_{};
};

}  // namespace ordelan::text
