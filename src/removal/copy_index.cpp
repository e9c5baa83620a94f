#include "removal/copy_index.h"

#include <array>
#include <charconv>
#include <optional>

namespace ordelan::removal {
namespace {

constexpr int kHexadecimal = 16;
constexpr std::size_t kDigits = 16;

std::optional<std::uint64_t> number(std::string_view text, int base) {
  std::uint64_t value = 0;
  const char* const end = text.data() + text.size();
  const auto read = std::from_chars(text.data(), end, value, base);
  if (text.empty() || read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return value;
}

std::optional<CopyRecord> record_of(std::string_view line) {
  std::array<std::string_view, 3> parts;
  for (std::string_view& part : parts) {
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return std::nullopt;
    part = line.substr(0, tab);
    line.remove_prefix(tab + 1);
  }
  const auto size = number(parts[0], 10);
  const auto hash = parts[1].size() == kDigits ? number(parts[1], kHexadecimal) : std::nullopt;
  const bool whole = line.find_first_of(std::string_view("\t\0", 2)) == std::string_view::npos;
  if (!size || !hash || parts[2].empty() || line.empty() || !whole) return std::nullopt;
  return CopyRecord{std::string(line), std::string(parts[2]), *size, *hash};
}

}  // namespace

std::string index_line(const CopyRecord& record) {
  std::array<char, kDigits> number{};
  const auto end =
      std::to_chars(number.data(), number.data() + number.size(), record.hash, kHexadecimal);
  const auto count = static_cast<std::size_t>(end.ptr - number.data());
  const std::string hash = std::string(kDigits - count, '0') + std::string(number.data(), count);
  return std::to_string(record.size) + "\t" + hash + "\t" + record.place + "\t" + record.path +
         "\r\n";
}

std::vector<CopyRecord> read_index(std::string_view bytes) {
  std::vector<CopyRecord> records;
  for (std::size_t end = bytes.find("\r\n"); end != std::string_view::npos;
       end = bytes.find("\r\n")) {
    if (auto record = record_of(bytes.substr(0, end))) records.push_back(std::move(*record));
    bytes.remove_prefix(end + 2);
  }
  return records;
}

}  // namespace ordelan::removal
