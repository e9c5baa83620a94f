// What the fuzzers and the replay of their corpus have in common: one function an input format,
// which gives a sentence on the first rule that the bytes break, and nothing when all hold.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "audio/details_agreement.h"
#include "audio/info_agreement.h"
#include "audio/waveform_agreement.h"
#include "project/mention_agreement.h"
#include "project/vip_reader_agreement.h"
#include "relink/pointer_agreement.h"
#include "relink/pointer_file.h"
#include "removal/copy_index.h"
#include "removal/recovery.h"
#include "removal/removal_log.h"
#include "support/fake_services.h"
#include "support/memory_files.h"
#include "text/code_page.h"
#include "text/paths.h"

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

// The lines of a text, ended by CR LF, CR or LF; the last one need have no end.
inline std::vector<std::string> literal_lines(std::string_view text) {
  std::vector<std::string> lines;
  std::string line;
  bool begun = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r' && text[i] != '\n') {
      line += text[i];
      begun = true;
      continue;
    }
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
    lines.push_back(std::exchange(line, ""));
    begun = false;
  }
  if (begun) lines.push_back(line);
  return lines;
}

// A log of removed files: what is listed of it is what a reader of its plain lines lists, and what
// runs write is read back.
inline std::string check_removal_log(std::string_view input) {
  const auto on = [] { return true; };
  const removal::ListedFiles listed = removal::read_log(input, on);
  const std::vector<std::string> lines = literal_lines(input);
  std::vector<std::string> paths;
  std::string heading;
  std::string line;  // stays as it is where no more can be read
  std::size_t at = 0;
  const auto read = [&] {
    if (at < lines.size()) line = lines[at++];
  };
  while (at < lines.size()) {
    read();
    if (line.substr(0, 17) == "Archivos borrados") {
      heading = line;
      read();
      if (line.substr(0, 6) == "------") read();
    }
    paths.push_back(line);
  }
  if (listed.paths != paths) return "another list than that of the plain lines";
  if (listed.heading != heading) return "another heading";

  std::string again;
  for (const std::string& path : paths) again += removal::log_line(path);
  const std::vector<std::string> back = literal_lines(again);
  if (back != paths) return "lines do not survive being written";
  std::size_t left = 2;
  const auto cut = removal::read_log(input, [&left] { return --left > 0; });
  if (cut.paths.size() > 2) return "it goes on after it was stopped";
  return {};
}

// An index of copies: its records are those of its whole lines, a cut one gives the first of them,
// and no copy is taken from outside of the folder.
inline std::string check_copy_index(std::string_view input) {
  const auto records = removal::read_index(input);
  std::vector<removal::CopyRecord> wanted;
  for (std::size_t begin = 0;;) {
    const std::size_t end = input.find("\r\n", begin);
    if (end == std::string_view::npos) break;
    const std::string_view line = input.substr(begin, end - begin);
    begin = end + 2;
    std::vector<std::string> parts(1);
    for (const char c : line) {
      if (c == '\t') {
        parts.emplace_back();
      } else {
        parts.back() += c;
      }
    }
    if (parts.size() != 4 || parts[2].empty() || parts[3].empty() || parts[1].size() != 16)
      continue;
    if (parts[0].empty() || parts[0].find_first_not_of("0123456789") != std::string::npos) continue;
    if (parts[1].find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) continue;
    if (parts[3].find('\0') != std::string::npos) continue;
    std::uint64_t size = 0;
    bool fits = true;
    for (const char c : parts[0]) {
      const auto digit = static_cast<std::uint64_t>(c - '0');
      fits = fits && size <= (std::numeric_limits<std::uint64_t>::max() - digit) / 10;
      size = size * 10 + digit;
    }
    if (!fits) continue;
    wanted.push_back({parts[3], parts[2], size, std::stoull(parts[1], nullptr, 16)});
  }
  if (records != wanted) return "other records than those of the plain lines";
  std::string again;
  for (const auto& record : records) again += removal::index_line(record);
  if (removal::read_index(again) != records) return "records do not survive being written";
  const auto part = removal::read_index(input.substr(0, input.size() / 2));
  if (part.size() > records.size() ||
      !std::equal(part.begin(), part.end(), records.begin(),
                  records.begin() + static_cast<std::ptrdiff_t>(part.size()))) {
    return "a cut index gives other records";
  }

  MemoryFiles files;
  FakeShell shell;
  const std::string folder = "D:\\Copias\\";
  files.contents[folder + "Archivos_Borrados.ind"] = input;
  for (const auto& record : records) {
    files.contents[folder + record.place] = "";
    files.contents[record.place] = "";
  }
  const removal::Recovery recovery(files, shell, folder + "Archivos_Borrados.log",
                                   [] { return true; });
  for (const auto& record : records) {
    const std::string copy = recovery.plan(record.path).copy;
    if (copy.empty()) continue;
    if (!copy.starts_with(folder)) return "a copy from outside of the folder";
    const std::string name(text::file_name(record.path));
    const std::string below = copy.substr(folder.size());
    if (below.size() < name.size() || below.find("..\\") != std::string::npos ||
        !text::equal_ignoring_case(below.substr(below.size() - name.size()), name)) {
      return "a copy of another name";
    }
  }
  return {};
}

// A pointer file as its plain lines give it: blanks and tabs around the numbers, which fit into 32
// bits. Nothing after the first line that is no number is read.
inline relink::Pointers literal_pairs(std::string_view input) {
  relink::Pointers read;
  std::vector<std::int32_t> numbers;
  for (const std::string& line : literal_lines(input)) {
    const std::size_t begin = line.find_first_not_of(" \t");
    const std::size_t end = line.find_last_not_of(" \t");
    std::string number = begin == std::string::npos ? "" : line.substr(begin, end - begin + 1);
    const bool negative = number.starts_with('-');
    if (negative) number.erase(0, 1);
    std::int64_t value = 0;
    bool fits = !number.empty();
    for (const char c : number) {
      fits = fits && c >= '0' && c <= '9';
      if (!fits) break;
      value = value * 10 + (c - '0');
      fits = value <= (negative ? std::int64_t{2147483648} : std::int64_t{2147483647});
    }
    read.damaged = !fits;
    if (!fits) break;
    numbers.push_back(static_cast<std::int32_t>(negative ? -value : value));
  }
  for (std::size_t i = 0; i + 1 < numbers.size(); i += 2) {
    read.pairs.push_back({numbers[i], numbers[i + 1]});
  }
  read.odd = numbers.size() % 2 != 0;
  return read;
}

// Any bytes, taken as a pointer file, as the name of a project, and as the project whose numbers
// are printed; the first byte is the size of the chunks then.
inline std::string check_pointers(std::string_view input) {
  const relink::Pointers read = relink::read_pointers(input);
  const relink::Pointers wanted = literal_pairs(input);
  if (read.damaged != wanted.damaged) return "another line that is no number";
  if (read.odd != wanted.odd) return "another number without a partner";
  if (read.pairs != wanted.pairs) return "other pairs than those of the plain lines";
  std::string again;
  for (const auto& [ini, fin] : read.pairs) {
    again += relink::pointer_line(ini) + relink::pointer_line(fin);
  }
  const relink::Pointers back = relink::read_pointers(again);
  if (back.damaged || back.odd || back.pairs != read.pairs) return "pairs do not survive printing";

  const std::string row = "1 --> D:\\" + std::string(input);
  const std::string written = relink::written_pointer_name(row);
  if (written != literal_written_name(row)) return "another name to be written";
  if (relink::read_pointer_name(row) != literal_read_name(row)) return "another name to be read";
  // No project's name holds one of these two.
  if (input.find('>') == std::string_view::npos && input.find('\0') == std::string_view::npos &&
      written != relink::read_pointer_name(row)) {
    return "the two names of a row's pointer file differ";
  }

  if (input.empty()) return {};
  const auto size = static_cast<unsigned char>(input[0]);
  const std::string project = std::string(96, 'x') + std::string(input.substr(1));
  std::size_t printed = 0;
  return compare_walk(project, size < 2 ? 1 << 16 : size, printed);
}

// The first byte says what luck the disk has, the second by which rules is patched; then the text
// of a pointer file up to a NUL, and the bytes of a project. Without such a text the pairs are
// those of the project's walk.
inline std::string check_patch(std::string_view input) {
  const std::size_t nul = input.find('\0', 2);
  if (nul == std::string_view::npos) return {};
  const auto luck = static_cast<unsigned char>(input[0]);
  const auto flags = static_cast<unsigned char>(input[1]);
  const std::string file(input.substr(nul + 1));
  relink::PatchRules rules;
  rules.careful = (flags & 1) != 0;
  rules.letter = "DvaL"[flags >> 1 & 3];
  rules.carpeta = (flags & 8) != 0 ? "D:\\Mix\\" : "E:\\Proyectos\\Temas nuevos\\";
  std::vector<relink::Pointer> pairs = relink::read_pointers(input.substr(2, nul - 2)).pairs;
  if (nul == 2) pairs = relink::read_pointers(literal_pointers(file).text).pairs;
  // Far positions take long and nothing else.
  std::erase_if(pairs, [](const relink::Pointer& pair) {
    return pair.ini > 70'000 || pair.fin > 70'000 ||
           std::int64_t{pair.fin} - std::max(pair.ini, 0) > 4'000;
  });
  if (pairs.size() > 64) pairs.resize(64);
  std::size_t patched = 0;
  return compare_patch(file, pairs, rules, luck, patched);
}

// Any bytes, taken as a wav and as an mp3: the texts of the tooltips are those of a literal
// reading.
inline std::string check_audio_info(std::string_view input) {
  return compare_info(std::string(input));
}

}  // namespace ordelan::test
