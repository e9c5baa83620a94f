#include "project/mention_names.h"

#include <algorithm>

#include "project/name_letters.h"
#include "text/code_page.h"

namespace ordelan::project {
namespace {

constexpr std::size_t kShortExtension = 3;

std::size_t place(std::uint64_t hash, std::size_t slots) {
  return static_cast<std::size_t>(hash ^ (hash >> 32)) & (slots - 1);
}

// What the makers of short names leave of a text in any case: its letters and digits up to the
// first character outside of ASCII, which may have become one letter or another. Odd characters are
// dropped or have become "_". `open` tells whether it was cut so.
struct Core {
  std::string text;
  bool open = false;
};
Core core_of(std::string_view folded) {
  Core core;
  for (const char c : folded) {
    if (core.text.size() == kShortStem) break;
    if (!is_ascii(c)) {
      core.open = true;
      break;
    }
    if (is_plain(c)) core.text += c;
  }
  return core;
}

// The forms that an extension may have in a short name.
std::vector<std::string> cut_extensions(std::string_view folded) {
  std::string dropped;
  std::string marked;
  for (const char c : folded) {
    const bool kept = is_plain(c) || !is_ascii(c);
    if (kept) dropped += c;
    if (c != ' ') marked += kept ? c : '_';
  }
  std::vector<std::string> forms;
  for (const std::string& form : {dropped, marked, std::string(folded)}) {
    const std::string cut = form.substr(0, kShortExtension);
    if (!cut.empty() && std::find(forms.begin(), forms.end(), cut) == forms.end()) {
      forms.push_back(cut);
    }
  }
  return forms;
}

std::string stem_key(std::string_view stem, std::string_view extension) {
  std::string key;
  key.reserve(stem.size() + 1 + extension.size());
  return key.append(stem).append(".").append(extension);
}

}  // namespace

MentionNames::MentionNames(const std::vector<std::string>& names,
                           const std::function<bool()>& go_on) {
  searchable_.reserve(names.size());
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!go_on()) return;
    const std::string folded = text::lower(names[i]);
    const std::size_t dot = folded.rfind('.');
    searchable_.push_back(dot != std::string::npos && dot + 1 < folded.size() &&
                          folded.size() <= kLongestName &&
                          std::none_of(folded.begin(), folded.end(), [](char c) {
                            return kNever[static_cast<unsigned char>(c)];
                          }));
    if (searchable_.back()) add_name(static_cast<std::uint32_t>(i), folded);
  }
  std::size_t slots = 1024;
  while (slots < 2 * by_whole_.size()) slots *= 2;
  slots_.resize(slots);
  for (const auto& [folded, group] : by_whole_) {
    if (!go_on()) return;
    std::uint64_t hash = 0;
    for (const char c : folded_[group]) hash = hashed(hash, c);
    put(hash, group);
  }
  by_whole_ = {};
  for (const Extension& extension : extensions_) {
    longest_extension_ = std::max(longest_extension_, extension.text.size());
    for (std::size_t b = 0; b < 256; ++b) {
      const bool first =
          text::lower(static_cast<char>(static_cast<unsigned char>(b))) == extension.text.front();
      // A first letter outside of ASCII begins with another byte in UTF-8.
      begins_extension_[b] |= first || (b >= 0xC0 && !is_ascii(extension.text.front()));
    }
    begins_extension_[0] = true;  // the high half of a dot in UTF-16
  }
}

void MentionNames::add_name(std::uint32_t name, const std::string& folded) {
  const auto [known, added] = by_whole_.try_emplace(folded, static_cast<Group>(groups_.size()));
  if (added) {
    groups_.emplace_back();
    folded_.resize(groups_.size());
    folded_.back().assign(folded.rbegin(), folded.rend());
    lengths_[folded.size()] = true;
    longest_name_ = std::max(longest_name_, folded.size());
    extension(folded.substr(folded.rfind('.') + 1)).whole = true;
  }
  groups_[known->second].push_back(name);
  add_short_names(name, folded);
}

void MentionNames::add_short_names(std::uint32_t name, const std::string& folded) {
  const std::size_t dot = folded.rfind('.');
  const Core core = core_of(std::string_view(folded).substr(0, dot));
  const auto add = [&](auto& map, std::string_view stem, const std::string& cut) {
    const auto [known, added] =
        map.try_emplace(stem_key(stem, cut), static_cast<Group>(groups_.size()));
    if (added) groups_.emplace_back();
    groups_[known->second].push_back(name);
  };
  for (const std::string& cut : cut_extensions(std::string_view(folded).substr(dot + 1))) {
    extension(cut).cut = true;
    for (std::size_t length = 0; length < core.text.size() + (core.open ? 0 : 1); ++length) {
      add(by_stem_, std::string_view(core.text).substr(0, length), cut);
    }
    if (core.open) add(by_open_stem_, core.text, cut);
  }
}

MentionNames::Extension& MentionNames::extension(const std::string& text) {
  for (Extension& known : extensions_) {
    if (known.text == text) return known;
  }
  std::uint64_t hash = 0;
  for (auto c = text.rbegin(); c != text.rend(); ++c) hash = hashed(hash, *c);
  const bool ascii = std::all_of(text.begin(), text.end(), is_ascii);
  return extensions_.emplace_back(Extension{text, hashed(hash, '.'), false, false, ascii});
}

void MentionNames::put(std::uint64_t hash, Group group) {
  std::size_t at = place(hash, slots_.size());
  while (slots_[at].used) at = (at + 1) & (slots_.size() - 1);
  slots_[at] = {hash, group, true};
}

std::optional<MentionNames::Group> MentionNames::find(std::uint64_t hash,
                                                      std::string_view backwards) const {
  for (std::size_t at = place(hash, slots_.size()); slots_[at].used;
       at = (at + 1) & (slots_.size() - 1)) {
    const Slot& slot = slots_[at];
    if (slot.hash == hash && folded_[slot.group] == backwards) return slot.group;
  }
  return std::nullopt;
}

void MentionNames::find_short(std::string_view stem, std::string_view extension,
                              std::vector<Group>& found) const {
  const Core core = core_of(stem);
  const auto add = [&](const auto& map, std::string_view begin) {
    const auto known = map.find(stem_key(begin, extension));
    if (known != map.end()) found.push_back(known->second);
  };
  add(by_stem_, core.text);
  for (std::size_t length = 0; length <= core.text.size(); ++length) {
    add(by_open_stem_, std::string_view(core.text).substr(0, length));
  }
}

}  // namespace ordelan::project
