#include "project/name_search.h"

#include <algorithm>

#include "text/code_page.h"

namespace ordelan::project {
namespace {

constexpr std::size_t kLongestMention = 1024;  // bytes of a name of 255 characters in any encoding
constexpr std::size_t kShortName = 8;          // letters of a short name before its extension
constexpr char kOther = '\x01';                // a character that no name holds

// UTF-16 from `offset` on as folded code-page text, a character a unit.
std::string folded_utf16(std::string_view bytes, std::size_t offset) {
  std::string folded;
  folded.reserve(bytes.size() / 2);
  for (std::size_t at = offset; at + 1 < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    const unsigned unit = low | (unsigned{high} << 8);
    if (unit < 0x80) {
      folded += text::lower(static_cast<char>(low));
      continue;
    }
    const auto found = std::find(text::kCodePoints.begin() + 0x80, text::kCodePoints.end(), unit);
    folded += found == text::kCodePoints.end()
                  ? kOther
                  : text::lower(static_cast<char>(
                        static_cast<unsigned char>(found - text::kCodePoints.begin())));
  }
  return folded;
}

}  // namespace

NameSearch::NameSearch(const std::vector<std::string>& names) : found_(names.size(), false) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    folded_.push_back(text::lower(names[i]));
    const std::string& name = folded_.back();
    names_[name].push_back(i);
    lengths_.push_back(name.size());
    extensions_.push_back(name.substr(std::min(name.rfind('.'), name.size())));
  }
  const auto make_unique = [](auto& values) {
    std::sort(values.begin(), values.end());
    values.erase(std::unique(values.begin(), values.end()), values.end());
  };
  make_unique(lengths_);
  make_unique(extensions_);
}

void NameSearch::feed(std::string_view bytes) {
  if (names_.empty()) return;
  tail_ += bytes;
  search(text::lower(tail_));
  search(text::lower(text::from_utf8_with_marks(tail_)));
  search(folded_utf16(tail_, 0));
  search(folded_utf16(tail_, 1));
  tail_.erase(0, tail_.size() - std::min(tail_.size(), kLongestMention));
}

void NameSearch::search(const std::string& folded) {
  for (const std::string& extension : extensions_) {
    if (extension.empty()) continue;
    for (auto at = folded.find(extension); at != std::string::npos;
         at = folded.find(extension, at + 1)) {
      hit(folded, at + extension.size(), extension);
    }
  }
}

void NameSearch::hit(const std::string& folded, std::size_t end, const std::string& extension) {
  for (const std::size_t length : lengths_) {
    if (length > end) break;
    const auto named = names_.find(folded.substr(end - length, length));
    if (named == names_.end()) continue;
    for (const std::size_t i : named->second) found_[i] = true;
  }
  const std::size_t dot = end - extension.size();
  const std::size_t begin = dot - std::min(dot, kShortName);
  if (folded.find('~', begin) >= dot) return;
  for (std::size_t i = 0; i < folded_.size(); ++i) {
    if (folded_[i].ends_with(extension)) found_[i] = true;
  }
}

}  // namespace ordelan::project
