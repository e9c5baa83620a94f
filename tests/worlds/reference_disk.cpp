#include "worlds/reference_disk.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>

namespace ordelan::test::reference {
namespace {

namespace fs = std::filesystem;

// What the bytes 0x80 to 0x9F stand for; the five open ones stand for themselves.
constexpr char16_t kHigh[32] = {
    u'\u20AC', 0x81,      u'\u201A', u'\u0192', u'\u201E', u'\u2026', u'\u2020', u'\u2021',
    u'\u02C6', u'\u2030', u'\u0160', u'\u2039', u'\u0152', 0x8D,      u'\u017D', 0x8F,
    0x90,      u'\u2018', u'\u2019', u'\u201C', u'\u201D', u'\u2022', u'\u2013', u'\u2014',
    u'\u02DC', u'\u2122', u'\u0161', u'\u203A', u'\u0153', 0x9D,      u'\u017E', u'\u0178'};

char16_t point_of(char byte) {
  const auto value = static_cast<unsigned char>(byte);
  return value >= 0x80 && value <= 0x9F ? kHigh[value - 0x80] : static_cast<char16_t>(value);
}

std::string encoded(char16_t point) {
  if (point < 0x80) return {static_cast<char>(point)};
  if (point < 0x800) {
    return {static_cast<char>(0xC0 + point / 64), static_cast<char>(0x80 + point % 64)};
  }
  return {static_cast<char>(0xE0 + point / 4096), static_cast<char>(0x80 + point / 64 % 64),
          static_cast<char>(0x80 + point % 64)};
}

const std::map<std::string, char>& bytes_by_sequence() {
  static const auto table = [] {
    std::map<std::string, char> bytes;
    for (int value = 0; value < 256; ++value) {
      bytes[encoded(point_of(static_cast<char>(value)))] = static_cast<char>(value);
    }
    return bytes;
  }();
  return table;
}

char16_t capital(char16_t point) {
  if (point >= u'a' && point <= u'z') return static_cast<char16_t>(point - 32);
  if (point >= 0xE0 && point <= 0xFE && point != 0xF7) return static_cast<char16_t>(point - 32);
  if (point == 0xFF) return 0x178;
  if (point == 0x161 || point == 0x153 || point == 0x17E) return static_cast<char16_t>(point - 1);
  return point;
}

bool is_separator(char c) {
  return c == '\\' || c == '/';
}

// Names that Windows lets no file have.
bool is_forbidden(const std::string& name) {
  return std::any_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < 32 ||
           std::string("\\/:*?\"<>|").find(c) != std::string::npos;
  });
}

// The components of a path after its drive, those that lead nowhere or back resolved.
std::vector<std::string> components(const std::string& path) {
  std::vector<std::string> names;
  std::string name;
  for (std::size_t i = 2; i <= path.size(); ++i) {
    if (i < path.size() && !is_separator(path[i])) {
      name += path[i];
      continue;
    }
    if (name == "..") {
      if (!names.empty()) names.pop_back();
    } else if (!name.empty() && name != ".") {
      names.push_back(name);
    }
    name.clear();
  }
  return names;
}

}  // namespace

std::string utf8_of(const std::string& ansi) {
  std::string utf8;
  for (const char c : ansi) utf8 += encoded(point_of(c));
  return utf8;
}

std::optional<std::string> ansi_of(const std::string& utf8) {
  std::string ansi;
  std::string sequence;
  for (const char c : utf8) {
    sequence += c;
    const auto byte = bytes_by_sequence().find(sequence);
    if (byte == bytes_by_sequence().end()) continue;
    ansi += byte->second;
    sequence.clear();
  }
  return sequence.empty() ? std::optional(ansi) : std::nullopt;
}

std::u16string capitals(const std::string& ansi) {
  std::u16string text;
  for (const char c : ansi) text += capital(point_of(c));
  return text;
}

std::string folded(const std::string& ansi) {
  // The small letter of a capital is the other byte that has the same capital.
  static const auto small = [] {
    std::map<char16_t, char> bytes;
    for (int value = 0; value < 256; ++value) {
      const char16_t point = point_of(static_cast<char>(value));
      if (capital(point) != point) bytes[capital(point)] = static_cast<char>(value);
    }
    return bytes;
  }();
  std::string text = ansi;
  for (char& c : text) {
    const auto letter = small.find(point_of(c));
    if (letter != small.end()) c = letter->second;
  }
  return text;
}

bool ends_with(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

std::string name_of(const std::string& path) {
  std::string name;
  for (const char c : path) {
    if (is_separator(c) || c == ':') {
      name.clear();
    } else {
      name += c;
    }
  }
  return name;
}

std::string folder_of(const std::string& path, bool with_backslash) {
  std::string folder = path.substr(0, path.rfind('\\') + 1);
  const auto colon = folder.find(':');
  if (colon != std::string::npos && colon >= 1) folder = folder.substr(colon - 1);
  if (!with_backslash && !folder.empty()) folder.pop_back();
  return folder;
}

bool fits_extension(const std::string& name, const std::string& extension) {
  const auto dot = name.rfind('.');
  if (dot == std::string::npos) return false;
  const std::string own = folded(name.substr(dot + 1));
  return own == extension || (extension.size() == 3 && own.substr(0, 3) == extension);
}

std::string normalised(const std::string& path) {
  if (path.size() < 2 || path[1] != ':') return folded(path);
  std::string plain = folded(path.substr(0, 2));
  for (const std::string& name : components(path)) plain += "\\" + folded(name);
  return plain;
}

std::optional<fs::path> Disk::native(const std::string& path) const {
  const bool on_d = path.size() >= 3 && (path[0] == 'D' || path[0] == 'd') && path[1] == ':' &&
                    is_separator(path[2]);
  if (!on_d) return std::nullopt;
  const std::vector<std::string> names = components(path);
  if (std::any_of(names.begin(), names.end(), is_forbidden)) return std::nullopt;
  std::error_code failed;
  // Most paths are spelt as they are on the disk.
  fs::path place = root_;
  for (const std::string& name : names) place /= utf8_of(name);
  if (fs::exists(place, failed)) return place;

  place = root_;
  for (const std::string& name : names) {
    // Of several that differ by case, the one of just this spelling, or the first by its bytes.
    std::string found;
    for (fs::directory_iterator entry(place, failed), end; !failed && entry != end;
         entry.increment(failed)) {
      const std::string there = entry->path().filename().string();
      const auto ansi = ansi_of(there);
      if (!ansi || folded(*ansi) != folded(name) || found == utf8_of(name)) continue;
      if (*ansi == name || found.empty() || there < found) found = there;
    }
    if (found.empty()) return std::nullopt;
    place /= found;
  }
  return fs::exists(place, failed) ? std::optional(place) : std::nullopt;
}

std::string Disk::look_up(const std::string& path) const {
  if (path.empty() || is_separator(path.back())) return "";
  const auto place = native(path);
  std::error_code failed;
  if (!place || !fs::is_regular_file(*place, failed)) return "";
  return ansi_of(place->filename().string()).value_or("");
}

std::optional<Disk::Identity> Disk::identity(const std::string& path) const {
  const auto place = native(path);
  struct stat found {};
  if (!place || ::stat(place->c_str(), &found) != 0) return std::nullopt;
  return Identity(found.st_dev, found.st_ino);
}

std::string Disk::bytes(const std::string& path) const {
  if (look_up(path).empty()) return "";
  std::ifstream file(*native(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool Disk::equal(const std::string& a, const std::string& b) const {
  return !look_up(a).empty() && !look_up(b).empty() && bytes(a) == bytes(b);
}

std::vector<std::string> Disk::files(const std::string& folder) const {
  return list(folder, false);
}

std::vector<std::string> Disk::folders(const std::string& folder) const {
  return list(folder, true);
}

std::vector<fs::path> Disk::unnamed(const std::string& folder) const {
  std::vector<fs::path> places;
  const auto place = native(folder);
  if (!place) return places;
  std::error_code failed;
  for (fs::directory_iterator entry(*place, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::error_code none;
    if (ansi_of(entry->path().filename().string()) || entry->is_symlink(none)) continue;
    places.push_back(entry->path());
  }
  return places;
}

std::vector<std::string> Disk::list(const std::string& folder, bool want_folders) const {
  std::vector<std::string> names;
  const auto place = native(folder);
  if (!place) return names;
  std::error_code failed;
  for (fs::directory_iterator entry(*place, failed), end; !failed && entry != end;
       entry.increment(failed)) {
    std::error_code none;
    const auto name = ansi_of(entry->path().filename().string());
    if (!name || is_forbidden(*name)) continue;
    const bool folder_here = entry->is_directory(none);
    if (folder_here && entry->is_symlink(none)) continue;
    if (!folder_here && !entry->is_regular_file(none)) continue;
    if (folder_here == want_folders) names.push_back(*name);
  }
  std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    return std::pair(capitals(a), a) < std::pair(capitals(b), b);
  });
  return names;
}

}  // namespace ordelan::test::reference
