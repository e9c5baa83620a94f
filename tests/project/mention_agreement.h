// Files made of what the search for mentions distinguishes, and the two searches compared on them.
#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "project/literal_mentions.h"
#include "project/mention_search.h"
#include "text/code_page.h"

namespace ordelan::test {

// All mentions of the names in a file that comes in pieces of that size.
inline std::set<LiteralMention> found_mentions(const std::vector<std::string>& names,
                                               const std::string& file, std::size_t piece) {
  const project::MentionNames table(names);
  std::set<LiteralMention> found;
  project::MentionSearch search(table, [&](const project::MentionSearch::Mention& mention) {
    for (const std::size_t name : table.names_of(mention.group)) {
      found.insert(
          {name, std::string(mention.path), std::string(mention.other_path), mention.firm});
    }
  });
  for (std::size_t at = 0; at < file.size(); at += piece) {
    search.feed(std::string_view(file).substr(at, piece));
  }
  search.end_of_file();
  return found;
}

inline std::string utf16_of(std::string_view text) {
  std::string wide;
  for (const char c : text) {
    const unsigned point = text::kCodePoints[static_cast<unsigned char>(c)];
    wide += static_cast<char>(static_cast<unsigned char>(point & 0xFF));
    wide += static_cast<char>(static_cast<unsigned char>(point >> 8));
  }
  return wide;
}

// Each byte of the recipe adds a piece to the file; the first ones choose names and the sizes of
// chunks. Any recipe is good.
struct MentionRecipe {
  explicit MentionRecipe(std::string_view recipe) {
    static const std::vector<std::string> kNames = {
        "a.wav",         "b.wma",         "a (2).wav",      "a=b.wav",    "vocala.wav",
        "a.b.wav",       "toma uno.flac", "Canci\xF3n.wav", "\xE9.wav",   "a.wav.wav",
        " a.wav",        "name.flac",     ".wav",           "x\x80y.m4a", "vocal+larga.wav",
        "a.w\xE1v",      "uno.dos.flac",  "fl.fla",         "b;a.wav",    "\xD1u larga.aif",
        "123456789.wav", "a.h-2",         "VOCALA~1.WAV",   "a{b,c}.wav"};
    const auto byte = [&](std::size_t at) {
      return at < recipe.size() ? static_cast<unsigned char>(recipe[at]) : 0u;
    };
    const unsigned chosen = byte(0) | byte(1) << 8 | byte(2) << 16;
    for (std::size_t i = 0; i < kNames.size(); ++i) {
      if ((chosen >> i & 1) != 0) names.push_back(kNames[i]);
    }
    piece = byte(3) % 16 == 0 ? 1'000'000 : byte(3) % 61 + 1;
    unsigned way = 0;
    for (std::size_t at = 4; at < recipe.size(); ++at) add(byte(at), at, way, kNames);
  }

  std::vector<std::string> names;
  std::size_t piece = 1;
  std::string file;

 private:
  void add(unsigned code, std::size_t recipe_at, unsigned& way,
           const std::vector<std::string>& all) {
    static const std::vector<std::string> kPieces = {"D:\\",
                                                     "c:/",
                                                     "\\",
                                                     "/",
                                                     "..\\",
                                                     "Mix\\",
                                                     "M\xFAsica\\",
                                                     "\\\\",
                                                     ":",
                                                     ".wav",
                                                     ".WAV",
                                                     ".fla",
                                                     ".flac",
                                                     ".",
                                                     " ",
                                                     "=",
                                                     ",",
                                                     ";",
                                                     "'",
                                                     "(",
                                                     "[",
                                                     "{",
                                                     "x",
                                                     "_",
                                                     "-",
                                                     "7",
                                                     "\xF3",
                                                     "\x80",
                                                     "\xD7",
                                                     "\"",
                                                     "|",
                                                     "VOCALA~1.WAV",
                                                     "NAME~1.FLA",
                                                     "name~1.flac",
                                                     "AB~12.wav",
                                                     "VO3F2A~1.WAV",
                                                     "CANCI~1.WAV",
                                                     "CANCI\xD3~1.WAV",
                                                     "\xD1ULARG~1.AIF",
                                                     "NULARG~2.AIF",
                                                     "TOMAUN~1.FLA",
                                                     "UNODOS~1.FLA",
                                                     "12345~10.WAV",
                                                     "VOCAL_~1.WAV",
                                                     "A~1.H-2",
                                                     "A~1.H_2",
                                                     "A~1.H2",
                                                     "~1.WAV",
                                                     "CAFE01~1.WAV",
                                                     "wav",
                                                     "a",
                                                     "   "};
    const auto spelt = [&](const std::string& text) {
      return way == 0 ? text : way == 1 ? text::to_utf8(text) : utf16_of(text);
    };
    if (code < 72) {
      const std::string& name = all[code % all.size()];
      file += spelt(code < 24 ? name : code < 48 ? text::upper(name) : name.substr(1));
    } else if (code < 72 + 2 * kPieces.size()) {
      file += spelt(kPieces[(code - 72) / 2]);
    } else {
      const unsigned rest = code - 72 - 2 * static_cast<unsigned>(kPieces.size());
      static const std::vector<std::string> kRaw = {std::string(1, '\0'),
                                                    std::string(2, '\0'),
                                                    std::string(3, '\0'),
                                                    "\xC3",
                                                    "\xE2\x82",
                                                    "\xD0\x96",
                                                    std::string("\x16\x04", 2),
                                                    "\xF1",
                                                    "\x05",
                                                    "\x06",
                                                    std::string("\x05\0", 2),
                                                    std::string("\x0A\0\0\0", 4),
                                                    std::string("\x0C\0", 2),
                                                    "\x08",
                                                    "\x09",
                                                    std::string("\x10\0\0\0", 4),
                                                    "A",
                                                    "\x0B",
                                                    "\x0C",
                                                    "\x0D",
                                                    "\n",
                                                    "\x12"};
      if (rest < kRaw.size()) {
        file += kRaw[rest];
      } else if (rest < kRaw.size() + 12) {
        way = rest % 3;
      } else if (rest < kRaw.size() + 18) {
        counted_ = !counted_;
        if (counted_) from_ = file.size();
        // A length before all that came since.
        if (!counted_) {
          const std::size_t bytes = file.size() - from_;
          const std::size_t length = (rest % 2 == 0 && way == 2 ? bytes / 2 : bytes) + rest % 3 / 2;
          std::string before;
          const std::size_t width = std::array<std::size_t, 3>{1, 2, 4}[rest % 3];
          for (std::size_t i = 0; i < width; ++i) {
            before += static_cast<char>(static_cast<unsigned char>(length >> (8 * i) & 0xFF));
          }
          file.insert(from_, before);
        }
      } else if (code < 252) {
        file += spelt((rest % 2 == 0 ? "D:\\Mix\\" : "E:/M\xFAsica\\") + all[rest % all.size()]);
      } else if (code < 254) {
        file += spelt(std::string(250 + recipe_at % 16, ' '));
      } else {
        // Near its drive, or just too far from it; the literal search soon passes over these.
        file += spelt(std::string(code == 254 ? 30 : 12'280 + recipe_at % 8, '\\'));
      }
    }
  }

  bool counted_ = false;
  std::size_t from_ = 0;
};

// A sentence on what the two searches do not agree on; empty if they do.
inline std::string check_mentions(std::string_view input) {
  const MentionRecipe recipe(input);
  if (recipe.file.size() > 60'000) return {};
  const auto wanted = literal_mentions(recipe.names, recipe.file);
  const auto found = found_mentions(recipe.names, recipe.file, recipe.piece);
  if (wanted == found) return {};
  std::string complaint = "mentions differ:";
  const auto show = [&](const char* which, const auto& some, const auto& others) {
    for (const auto& one : some) {
      if (others.contains(one)) continue;
      complaint += std::string(" ") + which + " '" + recipe.names[std::get<0>(one)] + "' '" +
                   std::get<1>(one).substr(0, 200) + "' '" + std::get<2>(one).substr(0, 200) + "'";
    }
  };
  show("missing", wanted, found);
  show("wrong", found, wanted);
  return complaint + " in pieces of " + std::to_string(recipe.piece);
}

}  // namespace ordelan::test
