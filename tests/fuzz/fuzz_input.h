// What the fuzzers and the replay of their corpus have in common: one function an input format,
// which gives a sentence on the first rule that the bytes break, and nothing when all hold.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "project/vip_reader_agreement.h"
#include "text/code_page.h"

namespace ordelan::test {

// The first byte is the size of the blocks that the reader reads, 0 for its own; the rest is a
// project. The reader must give what the literal one gives.
inline std::string check_vip_reader(std::string_view input) {
  if (input.empty()) return {};
  const auto first = static_cast<unsigned char>(input[0]);
  const std::size_t block = first == 0 ? project::FileWindow::kBlock : first;
  return Agreement(block).compare(std::string(input.substr(1)));
}

// Any bytes, taken as code-page text and as UTF-8.
inline std::string check_code_page(std::string_view input) {
  const std::string utf8 = text::to_utf8(input);
  if (text::from_utf8(utf8) != input) return "code-page text does not survive the way to UTF-8";
  const std::optional<std::string> ansi = text::from_utf8(input);
  if (ansi && text::to_utf8(*ansi) != input) return "two texts in UTF-8 became the same";
  if (ansi && ansi->size() > input.size()) return "UTF-8 became longer in the code page";

  const std::string folded = text::lower(input);
  if (text::lower(folded) != folded) return "folding twice is not folding once";
  if (!text::equal_ignoring_case(input, folded)) return "a text differs from its own small letters";
  const std::string_view half = input.substr(input.size() / 2);
  const bool equal = text::equal_ignoring_case(input, half);
  const bool less = text::less_ignoring_case(input, half);
  const bool more = text::less_ignoring_case(half, input);
  if (int{equal} + int{less} + int{more} != 1) return "two texts are not in one order";
  return {};
}

}  // namespace ordelan::test
