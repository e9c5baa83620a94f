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

#include "project/mention_agreement.h"
#include "project/vip_reader_agreement.h"
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

}  // namespace ordelan::test
