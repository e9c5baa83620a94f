#include "location/literal_finder.h"

#include <cmath>

#include "text/code_page.h"
#include "text/paths.h"
#include "text/wildcard.h"

namespace ordelan::test {
namespace {

class LiteralFinder {
 public:
  LiteralFinder(system::FileSystem& files, const LiteralSearch& search)
      : files_(files), search_(search) {}

  LiteralOutcome run(const std::vector<std::string>& drives) {
    std::string list = search_.Extensions;
    if (list.empty() || list.back() != ';') list += ";";
    std::string piece;
    for (const char c : list) {
      if (c != ';') {
        piece += c;
        continue;
      }
      pieces_.push_back(piece);
      piece.clear();
    }
    pieces_.push_back(piece);
    if (pieces_.back().empty() && pieces_.size() > 1) pieces_.pop_back();
    if (pieces_.size() > 1) {
      for (std::string& each : pieces_) {
        while (each.find("*.") != std::string::npos) each.replace(each.find("*."), 2, "");
      }
    }
    if (pieces_.size() == 1 && pieces_[0].empty()) pieces_[0] = "*.*";

    outcome_.events.push_back("InitSearch");
    if (!search_.Path.empty()) {
      scan(search_.Path);
    } else {
      for (const std::string& root : drives) scan(root);
    }
    outcome_.events.push_back("EndSearch");
    return outcome_;
  }

 private:
  void scan(std::string path) {
    if (stop_) return;
    if (path.back() != '\\') path += "\\";
    std::vector<std::string> subfolders;
    if (search_.SearchSubDirs) {
      const auto entries = files_.list(path, system::Detail::times);
      if (entries) {
        for (const auto& entry : *entries) {
          if (!entry.folder) continue;
          ++outcome_.DirCount;
          if (!entry.link) subfolders.push_back(entry.name);
        }
      }
    }
    const auto entries = files_.list(path, system::Detail::times);
    if (entries) {
      for (const auto& entry : *entries) consider(path, entry);
    }
    for (const std::string& name : subfolders) scan(path + name + "\\");
  }

  void consider(const std::string& path, const system::FileInfo& entry) {
    if (pieces_.size() == 1 && !text::matches(pieces_[0], entry.name)) return;
    const auto low = static_cast<std::uint32_t>(entry.size & 0xFFFFFFFFu);
    const auto high = static_cast<std::uint32_t>(entry.size >> 32);
    const auto size = static_cast<std::int32_t>(low - high);
    if (search_.MinFileSize != 0 && size < search_.MinFileSize) return;
    if (search_.MaxFileSize != 0 && size > search_.MaxFileSize) return;
    if (search_.Attributes != 0 &&
        entry.attributes != static_cast<std::uint32_t>(search_.Attributes)) {
      return;
    }
    const double made = std::floor(entry.created);
    if (search_.DateCreationFrom != 0 && made < search_.DateCreationFrom) return;
    if (search_.DateCreationTo != 0 && made > search_.DateCreationTo) return;
    const double day = std::floor(entry.modified);
    if (search_.DateLastModifiedFrom != 0 && day < search_.DateLastModifiedFrom) return;
    if (search_.DateLastModifiedTo != 0 && day > search_.DateLastModifiedTo) return;
    const double seen = std::floor(entry.accessed);
    if (search_.DateLastAccessFrom != 0 && seen < search_.DateLastAccessFrom) return;
    if (search_.DateLastAccessTo != 0 && seen > search_.DateLastAccessTo) return;
    if (pieces_.size() == 1) {
      offer(path, entry, size);
      return;
    }
    for (const std::string& piece : pieces_) {
      if (text::lower(text::Obtener_Extension(entry.name)) != text::lower(piece)) continue;
      offer(path, entry, size);
      return;
    }
  }

  void offer(const std::string& path, const system::FileInfo& entry, std::int32_t size) {
    if (entry.folder || stop_) return;
    std::string base = text::lower(text::Obtener_Nombre_Archivo(entry.name));
    if (base.find('.') != std::string::npos) base = base.substr(0, base.rfind('.'));
    const std::string wanted = text::lower(search_.FileName);
    if (search_.Mode == 1) {
      if (!wanted.empty() && base.find(wanted) == std::string::npos) return;
    } else if (text::trim(base) != text::trim(wanted)) {
      return;
    }
    outcome_.TotalSize += size;
    ++outcome_.FilesCount;
    outcome_.events.push_back("GetFile " + path + entry.name);
    outcome_.ColFiles.push_back(path + entry.name);
    if (outcome_.ColFiles.size() == search_.stop_after) stop_ = true;
  }

  system::FileSystem& files_;
  const LiteralSearch& search_;
  std::vector<std::string> pieces_;
  LiteralOutcome outcome_;
  bool stop_ = false;
};

}  // namespace

LiteralOutcome literal_find(system::FileSystem& files, const std::vector<std::string>& drives,
                            const LiteralSearch& search) {
  return LiteralFinder(files, search).run(drives);
}

}  // namespace ordelan::test
