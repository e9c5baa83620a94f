#include "system/file_system.h"

#include <algorithm>
#include <set>
#include <utility>

#include "text/code_page.h"

namespace ordelan::system {

std::optional<FileInfo> FileSystem::look_up(std::string_view path) {
  auto found = info(path);
  if (found && (found->folder || found->hidden || found->system)) found.reset();
  return found;
}

std::optional<std::vector<FileInfo>> FileSystem::list(std::string_view folder, Detail detail,
                                                      const VisitUnnamed& unnamed) {
  std::vector<FileInfo> entries;
  const auto keep = [&entries](FileInfo& entry) {
    entries.push_back(std::move(entry));
    return true;
  };
  const bool read = each(folder, detail, keep, unnamed);
  if (!read) return std::nullopt;
  std::sort(entries.begin(), entries.end(), in_listing_order);
  return entries;
}

Status FileSystem::flush_files(std::span<const std::string> paths, const GoOn& go_on) {
  Status first;
  std::set<std::string_view> folders;
  for (const std::string& path : paths) {
    if (go_on && !go_on()) return Reason::cancelled;
    const Status flushed = flush_file(path);
    if (first) first = flushed;
    const std::size_t name = path.find_last_of("\\/") + 1;
    folders.insert(std::string_view(path).substr(0, name));
  }
  for (const std::string_view folder : folders) {
    const Status flushed = flush_folder(folder);
    if (first) first = flushed;
  }
  return first;
}

bool in_listing_order(const FileInfo& a, const FileInfo& b) {
  return name_before(a.name, b.name);
}

bool name_before(std::string_view a, std::string_view b) {
  const int order = text::compare_ignoring_case(a, b);
  return order != 0 ? order < 0 : a < b;
}

std::string with_backslash(std::string_view folder) {
  std::string path(folder);
  if (path.empty() || path.back() != '\\') path += '\\';
  return path;
}

}  // namespace ordelan::system
