#include "project/mention_search.h"

#include <algorithm>
#include <utility>

#include "project/name_letters.h"
#include "text/byte_search.h"
#include "text/code_page.h"

namespace ordelan::project {
namespace {

constexpr std::size_t kShortBase = 8;  // characters of a short name before its dot
// Of a file, what is kept before the place that is searched: a name in UTF-8, its path and a
// length.
constexpr std::size_t kTail = 16'384;
static_assert(kTail > MentionSearch::kFarthestDrive + 3 * kLongestName + 64);

// What may stand in a path, but for the colon of the drive that is as good as any other.
constexpr std::array<bool, 256> kInPath = [] {
  auto table = kNever;
  for (bool& one : table) one = !one;
  for (const char c : {'\\', '/', ':'}) table[static_cast<unsigned char>(c)] = true;
  return table;
}();

// The last ones are quotes and what begins a question; a mark of UTF-8 ends with the last.
constexpr std::array<bool, 256> kOpens = such("=,;'([{#`\x91\x92\x93\x94\xA1\xBF");

bool holds(const std::array<bool, 256>& table, int c) {
  return c >= 0 && table[static_cast<std::size_t>(c)];
}

bool is_drive_letter(int c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

MentionSearch::MentionSearch(const MentionNames& names, Report report)
    : names_(names), report_(std::move(report)) {}

void MentionSearch::feed(std::string_view bytes) {
  if (names_.extensions_.empty()) return;
  // Small pieces are not worth moving the rest each time.
  if (searched_ > 4 * kTail) {
    const std::size_t gone = searched_ - kTail;
    buffer_.erase(0, gone);
    start_ += gone;
    searched_ -= gone;
  }
  buffer_ += bytes;
  search(false);
}

void MentionSearch::end_of_file() {
  search(true);
  buffer_.clear();
  start_ = 0;
  searched_ = 0;
  walks_ = {};
  seen_.clear();
  seen_text_ = 0;
}

void MentionSearch::search(bool last) {
  // An extension in any encoding, and what says whether a name ends there.
  const std::size_t ahead = 3 * names_.longest_extension_ + 16;
  const std::size_t limit =
      last ? buffer_.size() : buffer_.size() - std::min(buffer_.size(), ahead);
  const auto* const bytes = reinterpret_cast<const std::uint8_t*>(buffer_.data());
  while (searched_ < limit) {
    const auto* const dot = text::find_byte(bytes + searched_, bytes + limit, '.');
    const auto at = static_cast<std::size_t>(dot - bytes);
    searched_ = std::min(at + 1, limit);
    if (at < limit && at + 1 < buffer_.size() && names_.begins_extension_[bytes[at + 1]]) {
      at_dot(at);
    }
  }
}

void MentionSearch::at_dot(std::size_t dot) {
  const bool wide = byte(dot + 1) == 0;
  for (const MentionNames::Extension& extension : names_.extensions_) {
    std::size_t end = 0;
    if (wide) {
      if (has_extension(Reading::utf16, dot + 2, extension, end)) {
        look_before(Reading::utf16, dot, end, extension);
      }
      continue;
    }
    if (has_extension(Reading::code_page, dot + 1, extension, end) &&
        look_before(Reading::code_page, dot, end, extension) && extension.ascii) {
      look_before(Reading::utf8, dot, end, extension);
    }
    if (!extension.ascii && has_extension(Reading::utf8, dot + 1, extension, end)) {
      look_before(Reading::utf8, dot, end, extension);
    }
  }
}

bool MentionSearch::has_extension(Reading reading, std::size_t at,
                                  const MentionNames::Extension& extension,
                                  std::size_t& end) const {
  for (const char c : extension.text) {
    const Symbol symbol = next(reading, at);
    if (symbol.c < 0 || text::kLower[static_cast<std::size_t>(symbol.c)] != c) return false;
    at += symbol.size;
  }
  end = at;
  return true;
}

// Looks for names that end with the extension. Gives whether what may be a part of a name holds a
// character outside of ASCII.
bool MentionSearch::look_before(Reading reading, std::size_t dot, std::size_t end,
                                const MentionNames::Extension& extension) {
  name_.assign(extension.text.rbegin(), extension.text.rend());
  name_ += '.';
  const std::size_t after_base = name_.size();
  const std::size_t longest = std::max(names_.longest_name_, after_base + kShortBase);
  std::uint64_t hash = extension.hash;
  bool high = !extension.ascii;
  for (std::size_t at = dot;;) {
    // What is ASCII alone was found in code-page text.
    if (reading != Reading::utf8 || high) {
      if (extension.whole && name_.size() <= kLongestName && names_.lengths_[name_.size()]) {
        const auto group = names_.find(hash, name_);
        const Found found = group ? mention_at(reading, at, end, name_.size()) : Found::no;
        if (found != Found::no) report(reading, *group, at, end, found);
      }
      const std::size_t base = name_.size() - after_base;
      if (extension.cut && base >= 3 && base <= kShortBase) {
        look_for_short(reading, at, end, std::string_view(name_).substr(after_base), extension);
      }
    }
    if (name_.size() >= longest) return high;
    const Symbol symbol = before(reading, at);
    if (symbol.c < 0 || holds(kNever, symbol.c)) return high;
    const char c = text::kLower[static_cast<std::size_t>(symbol.c)];
    high |= !is_ascii(c);
    name_ += c;
    hash = hashed(hash, c);
    at -= symbol.size;
  }
}

// `base`: what stands before the dot, folded and backwards.
void MentionSearch::look_for_short(Reading reading, std::size_t begin, std::size_t end,
                                   std::string_view base,
                                   const MentionNames::Extension& extension) {
  std::size_t digits = 0;
  while (digits < base.size() && is_digit(base[digits])) ++digits;
  if (digits == 0 || digits >= base.size() || base[digits] != '~') return;
  const std::string stem(base.rbegin(), base.rend() - static_cast<std::ptrdiff_t>(digits + 1));
  if (stem.empty() || stem.size() > kShortStem || stem.find_first_of(" .") != std::string::npos) {
    return;
  }
  short_groups_.clear();
  names_.find_short(stem, extension.text, short_groups_);
  // Where many short names begin alike, all but one or two letters become a number.
  constexpr std::size_t kNumber = 4;
  if (stem.size() > kNumber && std::all_of(stem.end() - kNumber, stem.end(), is_hex)) {
    names_.find_short(std::string_view(stem).substr(0, stem.size() - kNumber), extension.text,
                      short_groups_);
  }
  if (short_groups_.empty()) return;
  const Found found = mention_at(reading, begin, end, base.size() + 1 + extension.text.size());
  if (found == Found::no) return;
  for (const MentionNames::Group group : short_groups_) report(reading, group, begin, end, found);
}

MentionSearch::Found MentionSearch::mention_at(Reading reading, std::size_t begin, std::size_t end,
                                               std::size_t letters) {
  if (length_before(reading, begin, end, letters)) return Found::firm;
  if (!begins(reading, begin)) return Found::no;
  if (ends(reading, end)) return Found::firm;
  const PathStart& start = path_start(reading, begin);
  if (start.drive) {
    if (path_length_before(reading, *start.drive - start_, end)) return Found::firm;
    return next(reading, end).c == '.' ? Found::no : Found::loose;
  }
  if (!start.run) return Found::no;
  // A relative path. Its length may itself look like one more character.
  const std::size_t unit = reading == Reading::utf16 ? 2 : 1;
  const std::size_t run = *start.run - start_;
  const bool length = path_length_before(reading, run, end) ||
                      (run + unit <= begin && path_length_before(reading, run + unit, end));
  return length ? Found::firm : Found::no;
}

bool MentionSearch::begins(Reading reading, std::size_t at) const {
  // UTF-16 directly after 8-bit text and its NUL: the two look like one more letter.
  if (reading == Reading::utf16 && at >= 3 && byte(at - 1) == 0 && byte(at - 3) != 0) return true;
  for (std::size_t blanks = 0; blanks < kManyBlanks; ++blanks) {
    const std::size_t unit = reading == Reading::utf16 ? 2 : 1;
    if (at < unit) return true;
    const Symbol symbol = before(reading, at);
    if (symbol.c != ' ') {
      // A character that the code page lacks may be a number, or a mark of the encoding.
      const bool foreign = reading == Reading::utf16 && symbol.c == kForeign;
      return foreign || holds(kNever, symbol.c) || holds(kOpens, symbol.c);
    }
    at -= symbol.size;
  }
  return true;
}

bool MentionSearch::ends(Reading reading, std::size_t at) const {
  if (reading == Reading::utf16) return ends_in(reading, at);
  return ends_in(Reading::code_page, at) || ends_in(Reading::utf8, at);
}

bool MentionSearch::ends_in(Reading reading, std::size_t at) const {
  const auto symbol_at = [&](std::size_t place) {
    const Symbol symbol = next(reading, place);
    // What is no UTF-8 is code-page text.
    return symbol.c == kNone && reading == Reading::utf8 ? next(Reading::code_page, place) : symbol;
  };
  const Symbol after = symbol_at(at);
  if (holds(kLetterOrDigit, after.c) || after.c == '_' || after.c == '-') return false;
  return after.c != '.' || !holds(kLetterOrDigit, symbol_at(at + after.size).c);
}

// Whether a length that stands before a text is that of the text, in characters or bytes, with or
// without a closing NUL.
bool MentionSearch::length_before(Reading reading, std::size_t begin, std::size_t end,
                                  std::size_t letters) const {
  const std::size_t unit = reading == Reading::utf16 ? 2 : 1;
  const std::size_t bytes = end - begin;
  for (const std::size_t width : {1u, 2u, 4u}) {
    if (width > begin) return false;
    std::uint64_t value = 0;
    for (std::size_t i = width; i > 0; --i) value = (value << 8) | byte(begin - width + i - 1);
    if (value == letters || value == letters + 1 || value == bytes || value == bytes + unit) {
      return true;
    }
  }
  return false;
}

bool MentionSearch::path_length_before(Reading reading, std::size_t begin, std::size_t end) const {
  std::size_t letters = (end - begin) / (reading == Reading::utf16 ? 2 : 1);
  if (reading != Reading::utf16) {
    const std::string_view path(buffer_.data() + begin, end - begin);
    std::size_t points = 0;
    std::size_t at = 0;
    while (at < path.size() && text::next_code_point(path, at)) ++points;
    if (at == path.size()) letters = points;
  }
  return length_before(reading, begin, end, letters);
}

const MentionSearch::PathStart& MentionSearch::path_start(Reading reading, std::size_t begin) {
  const bool wide = reading == Reading::utf16;
  const std::uint64_t from = start_ + begin;
  PathStart& known = walks_[wide ? 1 + from % 2 : 0];
  if (known.from == from && from != 0) return known;
  PathStart found;
  found.from = from;
  const std::size_t unit = wide ? 2 : 1;
  const std::size_t bound = begin - std::min(begin, kFarthestDrive);
  std::size_t at = begin;
  int after = kNone;  // the two characters after the one before `at`
  int second_after = kNone;
  for (;;) {
    if (start_ + at == known.from && known.from != 0) {
      // It was walked from here on before.
      found.drive = known.drive;
      found.run = known.run;
      break;
    }
    if (at < bound + unit) {
      if (start_ + at < unit) found.run = start_ + at;
      break;
    }
    const Symbol symbol = before(wide ? Reading::utf16 : Reading::code_page, at);
    if (symbol.c >= 0 && !kInPath[static_cast<std::size_t>(symbol.c)]) {
      found.run = start_ + at;
      break;
    }
    at -= unit;
    if (is_drive_letter(symbol.c) && after == ':' &&
        (second_after == '\\' || second_after == '/')) {
      found.drive = start_ + at;
      break;
    }
    second_after = after;
    after = symbol.c;
  }
  // What is farther away than the walk would have gone is not seen.
  if (found.drive && from - *found.drive > kFarthestDrive) found.drive.reset();
  if (found.run && from - *found.run >= kFarthestDrive) found.run.reset();
  known = found;
  return known;
}

void MentionSearch::report(Reading reading, MentionNames::Group group, std::size_t begin,
                           std::size_t end, Found found) {
  path_.clear();
  other_.clear();
  const auto drive = path_start(reading, begin).drive;
  if (drive && seen_text_ < kMostText) {
    const std::size_t from = *drive - start_;
    if (reading == Reading::utf16) {
      if (!decode(reading, from, end, path_)) path_.clear();
    } else {
      const std::string_view folder = std::string_view(buffer_).substr(from, begin - from);
      std::string name;
      decode(reading, begin, end, name);
      path_.append(folder).append(name);
      if (!std::all_of(folder.begin(), folder.end(), is_ascii) &&
          text::from_utf8(folder, folder_)) {
        other_.append(folder_).append(name);
      }
    }
  }
  bool firm = found == Found::firm;
  if (!firm && path_.empty()) {
    if (!drive || seen_text_ < kMostText) return;  // the path cannot be the file's
    firm = true;
  }
  key_.assign(1, firm ? '1' : '0');
  for (std::size_t i = 0; i < sizeof group; ++i) key_ += static_cast<char>(group >> (8 * i));
  key_.append(path_).append(1, '\0').append(other_);
  if (!seen_.insert(key_).second) return;
  seen_text_ += path_.size() + other_.size();
  report_({group, path_, other_, firm});
}

// A part of the buffer in the code page. False where it does not fit.
bool MentionSearch::decode(Reading reading, std::size_t begin, std::size_t end,
                           std::string& text) const {
  text.clear();
  for (std::size_t at = begin; at < end;) {
    const Symbol symbol = next(reading, at);
    if (symbol.c < 0) return false;
    text += static_cast<char>(static_cast<unsigned char>(symbol.c));
    at += symbol.size;
  }
  return true;
}

MentionSearch::Symbol MentionSearch::next(Reading reading, std::size_t at) const {
  if (at >= buffer_.size()) return {kNone, 0};
  const auto in_page = [](std::uint32_t point) {
    const auto found = text::byte_of(point);
    return found ? static_cast<int>(static_cast<unsigned char>(*found)) : kForeign;
  };
  if (reading == Reading::utf16) {
    if (at + 2 > buffer_.size()) return {kNone, 0};
    return {in_page(byte(at) | (std::uint32_t{byte(at + 1)} << 8)), 2};
  }
  if (reading == Reading::code_page || byte(at) < 0x80) return {byte(at), 1};
  std::size_t after = at;
  const auto point = text::next_code_point(buffer_, after);
  if (!point) return {kNone, 0};
  return {in_page(*point), after - at};
}

MentionSearch::Symbol MentionSearch::before(Reading reading, std::size_t at) const {
  const std::size_t unit = reading == Reading::utf16 ? 2 : 1;
  if (at < unit) return {kNone, 0};
  if (reading != Reading::utf8 || byte(at - 1) < 0x80) return next(reading, at - unit);
  constexpr std::size_t kLongestSequence = 4;
  for (std::size_t size = 2; size <= std::min(at, kLongestSequence); ++size) {
    if ((byte(at - size) & 0xC0u) == 0x80u) continue;
    const Symbol symbol = next(reading, at - size);
    return symbol.size == size ? symbol : Symbol{kNone, 0};
  }
  return {kNone, 0};
}

}  // namespace ordelan::project
