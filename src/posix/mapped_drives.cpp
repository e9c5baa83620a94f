#include "posix/mapped_drives.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "posix/folder_names.h"
#include "text/code_page.h"

namespace ordelan::posix {
namespace {

bool exists(const std::string& path) {
  struct stat found {};
  return ::stat(path.c_str(), &found) == 0;
}

bool is_letter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

char capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// The native path of names below a mapped folder, just as they are spelt.
std::string joined(const std::string& folder, const std::vector<std::string_view>& names) {
  std::string native;
  native.reserve(256);
  native = folder;
  for (const std::string_view name : names) {
    native += '/';
    text::append_utf8(name, native);
  }
  return native.empty() ? "/" : native;
}

}  // namespace

bool is_windows_name(std::string_view name) {
  static constexpr std::array<bool, 256> kForbidden = [] {
    std::array<bool, 256> forbidden{};
    for (std::size_t control = 0; control < 0x20; ++control) forbidden[control] = true;
    for (const char c : std::string_view("\\/:*?\"<>|"))
      forbidden[static_cast<unsigned char>(c)] = true;
    return forbidden;
  }();
  return std::none_of(name.begin(), name.end(),
                      [](char c) { return kForbidden[static_cast<unsigned char>(c)]; });
}

bool MappedDrives::map(char letter, const std::string& folder, MappedDrive drive) {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(folder.c_str(), nullptr),
                                                    &std::free);
  struct stat found {};
  if (!is_letter(letter) || !real || ::stat(real.get(), &found) != 0 || !S_ISDIR(found.st_mode)) {
    return false;
  }
  std::string path = real.get();
  if (path == "/") path.clear();
  places_[capital(letter)] = {std::move(path), std::move(drive)};
  return true;
}

std::vector<char> MappedDrives::letters() const {
  std::vector<char> letters;
  for (const auto& [letter, place] : places_) letters.push_back(letter);
  return letters;
}

const MappedDrive* MappedDrives::drive(char letter) const {
  const auto found = places_.find(capital(letter));
  return found == places_.end() ? nullptr : &found->second.drive;
}

std::optional<MappedDrives::Cut> MappedDrives::cut(std::string_view path) const {
  const auto is_separator = [](char c) { return c == '\\' || c == '/'; };
  if (path.size() < 3 || path[1] != ':' || !is_separator(path[2])) return std::nullopt;
  const auto place = places_.find(capital(path[0]));
  if (place == places_.end() || !place->second.drive.medium) return std::nullopt;
  std::string_view rest = path.substr(3);

  Cut cut{place->second.folder, {}};
  cut.names.reserve(8);
  while (!rest.empty()) {
    const auto slash = static_cast<std::size_t>(
        std::find_if(rest.begin(), rest.end(), is_separator) - rest.begin());
    const std::string_view name = rest.substr(0, slash);
    rest.remove_prefix(std::min(slash + 1, rest.size()));
    if (name.empty() || name == ".") continue;
    if (name == "..") {
      // Taken back from the text, as Windows does, and never above the drive.
      if (!cut.names.empty()) cut.names.pop_back();
      continue;
    }
    if (!is_windows_name(name)) return std::nullopt;
    cut.names.push_back(name);
  }
  return cut;
}

std::optional<std::string> MappedDrives::native(std::string_view path) const {
  const auto way = cut(path);
  if (!way) return std::nullopt;

  // Most paths stand on the disk just as they are spelt: one stat finds them.
  std::string native = joined(way->folder, way->names);
  if (way->names.empty() || exists(native)) return native;

  native = way->folder;
  for (std::size_t i = 0; i < way->names.size(); ++i) {
    std::string next = native + "/" + text::to_utf8(way->names[i]);
    if (!exists(next)) {
      const auto other = entry_ignoring_case(native.empty() ? "/" : native, way->names[i]);
      if (other) {
        next = native + "/" + *other;
      } else if (i + 1 < way->names.size()) {
        return std::nullopt;
      }
    }
    native = std::move(next);
  }
  return native;
}

std::optional<std::string> MappedDrives::spelt(std::string_view path) const {
  const auto way = cut(path);
  if (!way) return std::nullopt;
  return joined(way->folder, way->names);
}

std::optional<MappedDrives::Below> MappedDrives::below(const std::string& native_path) const {
  const std::unique_ptr<char, void (*)(void*)> real(::realpath(native_path.c_str(), nullptr),
                                                    &std::free);
  const std::string path = real ? real.get() : native_path;
  char letter = 0;
  std::size_t nearest = 0;
  for (const auto& [candidate, place] : places_) {
    const std::string& folder = place.folder;
    const bool under =
        (path == folder && !path.empty()) || path.compare(0, folder.size() + 1, folder + "/") == 0;
    if (under && (letter == 0 || folder.size() > nearest)) {
      letter = candidate;
      nearest = folder.size();
    }
  }
  if (letter == 0) return std::nullopt;
  return Below{letter, path.substr(nearest)};
}

std::optional<std::string> MappedDrives::below_drive(const std::string& native_path) const {
  auto found = below(native_path);
  if (!found) return std::nullopt;
  return std::move(found->rest);
}

std::optional<std::string> MappedDrives::windows(const std::string& native_path) const {
  const auto found = below(native_path);
  if (!found) return std::nullopt;
  const auto rest = text::from_utf8(found->rest);
  if (!rest) return std::nullopt;
  std::string windows(1, found->letter);
  windows += ":\\";
  for (std::size_t at = 1; at < rest->size();) {
    const auto slash = std::min(rest->find('/', at), rest->size());
    const std::string name = rest->substr(at, slash - at);
    if (!is_windows_name(name)) return std::nullopt;
    windows += name;
    if (slash < rest->size()) windows += '\\';
    at = slash + 1;
  }
  return windows;
}

}  // namespace ordelan::posix
