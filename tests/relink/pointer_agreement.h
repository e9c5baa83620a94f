// Runs the fast walk and the fast patch beside the literal ones and says where they differ.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "project/vip_scan.h"
#include "relink/bytes_file.h"
#include "relink/literal_patch.h"
#include "relink/literal_pointers.h"
#include "relink/patch.h"
#include "relink/pointer_file.h"
#include "relink/pointer_walk.h"

namespace ordelan::test {

// Pieces of a file, each between bytes that would lead a walk astray that reads them.
class ChunkSource {
 public:
  ChunkSource(std::string_view file, std::size_t size) : file_(file), size_(size) {}

  // The chunk that begins at a position; `size` bytes or what the file has.
  project::Chunk at(project::Position first) {
    static constexpr std::string_view kAstray(":\\\0L:\\\0:", 8);
    const auto begin = std::min(static_cast<std::size_t>(first - 1), file_.size());
    const auto count = std::min(size_, file_.size() - begin);
    bytes_.assign(kAstray.begin(), kAstray.end());
    bytes_.insert(bytes_.end(), file_.begin() + static_cast<std::ptrdiff_t>(begin),
                  file_.begin() + static_cast<std::ptrdiff_t>(begin + count));
    bytes_.insert(bytes_.end(), kAstray.begin(), kAstray.end());
    project::Chunk chunk;
    chunk.data = bytes_.data() + kAstray.size();
    chunk.first = first;
    chunk.size = count;
    chunk.last = begin + count == file_.size();
    return chunk;
  }

 private:
  std::string_view file_;
  std::size_t size_;
  std::vector<std::uint8_t> bytes_;
};

// The limit that the marker sets, by the fast search, which needs the twelve bytes of one at once.
inline project::Position fast_limit(std::string_view file, std::size_t chunk_size) {
  const auto length = static_cast<project::Position>(file.size());
  ChunkSource source(file, chunk_size);
  project::MarkerSearch search(97, length);
  while (!search.done()) {
    const project::Position before = search.position();
    search.advance(source.at(before));
    if (!search.done() && search.position() <= before) return -1;  // it does not move
  }
  return search.limit();
}

// The first rule that the fast walk breaks over `file`, read in chunks of that size, two bytes or
// more; nothing when it prints the numbers of the literal one. `printed` receives their count.
inline std::string compare_walk(std::string_view file, std::size_t chunk_size,
                                project::Position limit, const LiteralPointers& literal,
                                std::size_t& printed) {
  ChunkSource source(file, chunk_size);
  relink::PointerWalk walk(limit);
  std::string text;
  std::size_t count = 0;
  while (!walk.ended()) {
    const project::Position before = walk.position();
    const project::Chunk chunk = source.at(before - 1);
    project::Position line = 0;
    while (walk.next(chunk, line)) {
      if (count >= literal.numbers.size()) return "more numbers";
      if (line != literal.numbers[count]) return "another number";
      if (walk.gave_end() != literal.ends[count]) return "a start taken for an end";
      text += relink::pointer_line(line);
      ++count;
    }
    if (walk.ended()) break;
    // A chunk of which nothing is left to be looked at brings the walk on.
    if (walk.position() <= before) return "it does not move";
    if (walk.position() < chunk.end()) return "it leaves bytes of a chunk";
    const bool in_path = literal.in_path.contains(walk.position());
    const bool at_end = walk.position() > limit || walk.position() > chunk.end();
    const bool edge = literal.at_its_edge.contains(walk.position());
    if (!at_end && !edge && walk.may_stop() == in_path) {
      return in_path ? "it may be stopped inside a path" : "it may not be stopped outside of paths";
    }
    if (chunk.last) return "it does not end with the file";
  }
  if (count != literal.numbers.size()) return "fewer numbers";
  if (text != literal.text) return "another text";
  printed = count;
  return {};
}

inline std::string compare_walk(std::string_view file, std::size_t chunk_size,
                                std::size_t& printed) {
  const LiteralPointers literal = literal_pointers(file);
  const project::Position limit = fast_limit(file, std::max<std::size_t>(chunk_size, 12));
  if (limit != literal.PosFinalVip) return "another limit";
  const std::string difference = compare_walk(file, chunk_size, limit, literal, printed);
  if (!difference.empty()) return difference;

  // What was printed is read back.
  const relink::Pointers back = relink::read_pointers(literal.text);
  if (back.damaged) return "a printed number that is none";
  if (back.odd != (literal.numbers.size() % 2 != 0)) return "another last line";
  if (back.pairs.size() != literal.numbers.size() / 2) return "another count of pairs";
  for (std::size_t i = 0; i < back.pairs.size(); ++i) {
    if (back.pairs[i].ini != literal.numbers[2 * i] ||
        back.pairs[i].fin != literal.numbers[2 * i + 1]) {
      return "another pair";
    }
  }
  return {};
}

// A disk on which luck decides what exists, the same luck for the same path. Searches are noted.
class LuckyDisk final : public relink::Lookups {
 public:
  explicit LuckyDisk(std::uint64_t luck) : luck_(luck) {}
  std::vector<std::string> searches;

  bool exists(const std::string& path) override { return lot('f', path) % 3 == 0; }
  bool stands(const std::string& path) override { return lot('d', path) % 4 == 0 || exists(path); }
  void BuscarOtraLetra(const std::string& path) override { searches.push_back("letter " + path); }
  std::optional<std::string> search(const std::string& name) override {
    searches.push_back("drives " + name);
    switch (lot('s', name) % 8) {
      case 0:
        return "";
      case 1:
        return "E:\\" + name;
      case 2:
        return "E:\\a\\b\\c\\d\\e\\f\\g\\h\\i\\j\\" + name;
      case 3:
        return "L:\\\xF1";
      default:
        return std::nullopt;
    }
  }

 private:
  std::uint64_t lot(char kind, const std::string& path) const {
    std::uint64_t hash = luck_ ^ static_cast<unsigned char>(kind);
    for (const char c : path) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    return (hash ^ (hash >> 29)) * 0xBF58476D1CE4E5B9u >> 40;
  }

  std::uint64_t luck_;
};

inline std::string joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += "[" + text + "]";
  return all;
}

// The first rule that the fast patch of `file` breaks; nothing when it does what the literal one
// does. `patched` receives how many paths were overwritten.
inline std::string compare_patch(const std::string& file, const std::vector<relink::Pointer>& pairs,
                                 const relink::PatchRules& rules, std::uint64_t luck,
                                 std::size_t& patched) {
  // A pair that begins before the file stops the fast patch, also where its end would have it
  // skipped. No walk writes such a pair but after one that ends at 0, which stops both.
  const auto no_start = std::find_if(pairs.begin(), pairs.end(),
                                     [](const relink::Pointer& pair) { return pair.ini < 1; });
  LuckyDisk literal_disk(luck);
  LiteralPatched literal = literal_patch(file, {pairs.begin(), no_start}, rules, literal_disk);
  if (no_start != pairs.end()) literal.whole = false;

  LuckyDisk disk(luck);
  BytesFile input(file);
  relink::FileImage image(&input);
  std::vector<relink::PathChange> changes;
  bool all = true;
  for (const relink::Pointer& pair : pairs) {
    auto change = relink::patch_pair(image, pair, rules, disk);
    if (!change) {
      all = false;
      break;
    }
    changes.push_back(std::move(*change));
  }
  if (image.failed()) return "a read failed";
  if (all != literal.whole || (!all && changes.size() != literal.changes.size())) {
    return "another pair that cannot be patched: " + std::to_string(changes.size()) + " and not " +
           std::to_string(literal.changes.size()) + " before it";
  }
  if (changes.size() != literal.changes.size()) return "another count of changes";
  for (std::size_t i = 0; i < changes.size(); ++i) {
    const relink::PathChange& got = changes[i];
    const relink::PathChange& wanted = literal.changes[i];
    if (got.untouched != wanted.untouched) {
      return "pair " + std::to_string(i) + " is left alone for another reason: " +
             std::to_string(static_cast<int>(got.untouched)) + " and not " +
             std::to_string(static_cast<int>(wanted.untouched)) + ", [" + got.vieja + "] to [" +
             got.nueva + "] or [" + wanted.nueva + "]";
    }
    if (got.vieja != wanted.vieja) return "another old path";
    if (got.untouched == relink::Untouched::skipped) continue;  // before a new one was chosen
    if (got.untouched == relink::Untouched::stays) continue;
    if (got.nueva != wanted.nueva) return "another new path";
    if (got.hallada != wanted.hallada) return "another word on whether it was found";
    if (got.sobrescritos != wanted.sobrescritos) return "another count of overwritten bytes";
    if (got.untouched == relink::Untouched::no) ++patched;
  }
  if (disk.searches != literal_disk.searches)
    return "other searches: " + joined(disk.searches) + " and not " + joined(literal_disk.searches);
  if (!all) return {};  // neither image is of use
  if (image.size() != literal.image.size()) return "another size";
  if (whole(image) != literal.image) return "other bytes";
  if (with_changes(image, file) != literal.image) return "other changed pages";
  if (!image.differs() && literal.image != file) return "a change goes unseen";
  return {};
}

}  // namespace ordelan::test
