#include "relink/run_index.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "text/code_page.h"

namespace ordelan::relink {
namespace {

constexpr std::string_view kName = "Actualizacion";
constexpr std::string_view kOpen = ".ind";
constexpr std::string_view kUndone = ".ant";
constexpr std::array<std::string_view, 6> kWords = {"copy", "target", "done",
                                                    "new",  "folder", "left"};
constexpr int kHexadecimal = 16;

bool has_content(RunRecord::Kind kind) {
  return kind == RunRecord::Kind::copy || kind == RunRecord::Kind::target ||
         kind == RunRecord::Kind::done;
}

// The next part of a line, which the tab after it ends; nothing without one.
std::optional<std::string_view> part(std::string_view& line) {
  const std::size_t tab = line.find('\t');
  if (tab == std::string_view::npos) return std::nullopt;
  const std::string_view found = line.substr(0, tab);
  line.remove_prefix(tab + 1);
  return found;
}

std::optional<std::uint64_t> number(std::optional<std::string_view> text, int base) {
  std::uint64_t value = 0;
  if (!text || text->empty()) return std::nullopt;
  const char* const end = text->data() + text->size();
  const auto read = std::from_chars(text->data(), end, value, base);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value;
}

std::optional<RunRecord> record_of(std::string_view line) {
  const auto word = part(line);
  const auto known = std::find(kWords.begin(), kWords.end(), word.value_or(""));
  if (known == kWords.end()) return std::nullopt;
  RunRecord record{static_cast<RunRecord::Kind>(known - kWords.begin()), {}};
  if (has_content(record.kind)) {
    const auto size = number(part(line), 10);
    const auto hash = number(part(line), kHexadecimal);
    if (!size || !hash) return std::nullopt;
    record.content = {*size, *hash};
  }
  if (record.kind == RunRecord::Kind::copy) {
    const auto place = part(line);
    if (!place || place->empty()) return std::nullopt;
    record.place = *place;
  }
  if (line.empty() || line.find_first_of(std::string_view("\t\0", 2)) != std::string_view::npos) {
    return std::nullopt;
  }
  record.path = line;
  return record;
}

template <class Use>
void for_each_line(std::string_view bytes, Use use) {
  for (std::size_t end = bytes.find("\r\n"); end != std::string_view::npos;
       end = bytes.find("\r\n")) {
    use(bytes.substr(0, end));
    bytes.remove_prefix(end + 2);
  }
}

std::string hexadecimal(std::uint64_t value) {
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, kHexadecimal);
  return {digits.data(), end.ptr};
}

std::string numbered(std::size_t number, std::string_view ending) {
  return std::string(kName).append(removal::numbered_folder(number)).append(ending);
}

// The number in a name of that ending; nothing if it is none.
std::optional<std::size_t> number_in(std::string_view name, std::string_view ending) {
  if (name.size() <= kName.size() + ending.size()) return std::nullopt;
  const auto digits = name.substr(kName.size(), name.size() - kName.size() - ending.size());
  const auto found = number(digits, 10);
  if (!found || !text::equal_ignoring_case(name, numbered(*found, ending))) return std::nullopt;
  return static_cast<std::size_t>(*found);
}

}  // namespace

std::string run_line(const RunRecord& record) {
  std::string line(kWords[static_cast<std::size_t>(record.kind)]);
  if (has_content(record.kind)) {
    line += "\t" + std::to_string(record.content.size) + "\t" + hexadecimal(record.content.hash);
  }
  if (record.kind == RunRecord::Kind::copy) line += "\t" + record.place;
  return line + "\t" + record.path + "\r\n";
}

std::vector<RunRecord> read_run(std::string_view bytes) {
  std::vector<RunRecord> records;
  for_each_line(bytes, [&](std::string_view line) {
    if (auto record = record_of(line)) records.push_back(std::move(*record));
  });
  return records;
}

bool is_damaged_run(std::string_view bytes) {
  bool damaged = false;
  for_each_line(bytes, [&](std::string_view line) { damaged = damaged || !record_of(line); });
  return damaged;
}

std::string run_name(std::size_t number) {
  return numbered(number, kOpen);
}

std::string undone_run_name(std::size_t number) {
  return numbered(number, kUndone);
}

std::size_t Runs::last() const {
  return std::max(open.empty() ? 0 : open.back(), undone.empty() ? 0 : undone.back());
}

Runs runs_of(system::FileSystem& files, const std::string& folder) {
  Runs runs;
  files.each(folder, system::Detail::names, [&](system::FileInfo& entry) {
    if (entry.folder) return true;
    if (const auto number = number_in(entry.name, kOpen)) runs.open.push_back(*number);
    if (const auto number = number_in(entry.name, kUndone)) runs.undone.push_back(*number);
    return true;
  });
  std::sort(runs.open.begin(), runs.open.end());
  std::sort(runs.undone.begin(), runs.undone.end());
  return runs;
}

}  // namespace ordelan::relink
