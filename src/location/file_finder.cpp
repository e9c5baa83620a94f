#include "location/file_finder.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "location/under_way.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "text/wildcard.h"

namespace ordelan::location {
namespace {

// How many entries of one folder are looked at before the window may have a turn.
constexpr int kEntriesPerTurn = 256;

// Sizes are calculated in 32 bits with a sign, as the limits are defined: a file of over
// 2 GiB counts as one of a wrong, often negative, size.
std::int32_t reckoned_size(std::uint64_t size) {
  const auto low = static_cast<std::uint32_t>(size);
  const auto high = static_cast<std::uint32_t>(size >> 32);
  return static_cast<std::int32_t>(low - high);
}

bool within(Date moment, Date from, Date to) {
  const Date day = std::floor(moment);
  return !(from != 0 && day < from) && !(to != 0 && day > to);
}

void raise(const std::function<void()>& event) {
  if (event) event();
}

}  // namespace

cFindFiles::cFindFiles(const system::Platform& platform)
    : platform_(platform), ColDrives_(pvGetDrives()), pacer_(platform.pump, platform.clock) {}

void cFindFiles::set_MinFileSize(std::int64_t bytes) {
  const bool refused = maximum_ != 0 && bytes > maximum_;
  minimum_ = refused ? 0 : bytes;
  if (refused) {
    platform_.dialogs.message({.title = "",
                               .text = "El valor mínimo no puede ser mayor al valor máximo. Cambie "
                                       "el valor de MaxFileSize.",
                               .icon = system::Icon::exclamation});
  }
}

void cFindFiles::set_MaxFileSize(std::int64_t bytes) {
  const bool refused = bytes != 0 && bytes < minimum_;
  maximum_ = refused ? 0 : bytes;
  if (refused) {
    platform_.dialogs.message({.title = "",
                               .text = "El valor máximo no puede ser menor al valor mínimo. Cambie "
                                       "el valor de MinFileSize.",
                               .icon = system::Icon::exclamation});
  }
}

void cFindFiles::Find(const std::string& Path, const std::string& Extensions,
                      const std::string& FileName, int Mode) {
  if (searching_) return;
  const UnderWay under_way(searching_);
  if (FileName.find_first_of("*|><?:/\\") != std::string::npos) {
    platform_.dialogs.message({.title = "Error en nombre de archivo",
                               .text = "El nombre de archivo no puede contener ninguno de estos "
                                       "caracteres : / \\ * ? : | < > ",
                               .icon = system::Icon::critical});
    raise(EndSearch);
    return;
  }
  try {
    total_size_ = 0;
    files_ = 0;
    folders_ = 0;
    stop_ = false;
    search_name_ = text::lower(FileName);
    mode_ = Mode;
    ColFiles_.clear();
    parse_extensions(Extensions);

    raise(InitSearch);
    if (!Path.empty()) {
      scan(Path);
    } else {
      for (const std::string& root : ColDrives_) {
        give_turn();
        scan(root);
      }
    }
    give_turn();
    raise(EndSearch);
  } catch (...) {
    // A search that fails ends without a word.
  }
  stop_ = false;
}

void cFindFiles::parse_extensions(std::string Extensions) {
  ColExtensions_.clear();
  if (!Extensions.ends_with(';')) Extensions += ';';
  for (std::size_t begin = 0; begin <= Extensions.size();) {
    const std::size_t end = std::min(Extensions.find(';', begin), Extensions.size());
    ColExtensions_.push_back(Extensions.substr(begin, end - begin));
    begin = end + 1;
  }
  if (ColExtensions_.size() > 1 && ColExtensions_.back().empty()) ColExtensions_.pop_back();
  if (ColExtensions_.size() > 1) {
    for (std::string& piece : ColExtensions_) {
      for (auto at = piece.find("*."); at != std::string::npos; at = piece.find("*.", at)) {
        piece.erase(at, 2);
      }
    }
  } else if (ColExtensions_[0].empty()) {
    ColExtensions_[0] = "*.*";
  }
  lower_extensions_.clear();
  for (const std::string& piece : ColExtensions_) lower_extensions_.push_back(text::lower(piece));
}

// The least that the filters can do with.
system::Detail cFindFiles::detail() const {
  for (const Date limit : {DateCreationFrom, DateCreationTo, DateLastModifiedFrom,
                           DateLastModifiedTo, DateLastAccessFrom, DateLastAccessTo}) {
    if (limit != 0) return system::Detail::times;
  }
  const bool by_size = minimum_ != 0 || maximum_ != 0 || Attributes != 0;
  return by_size ? system::Detail::sizes : system::Detail::names;
}

bool cFindFiles::passes_limits(const system::FileInfo& file) const {
  const std::int64_t size = reckoned_size(file.size);
  if (minimum_ != 0 && size < minimum_) return false;
  if (maximum_ != 0 && size > maximum_) return false;
  if (Attributes != 0 && file.attributes != static_cast<std::uint32_t>(Attributes)) return false;
  return within(file.created, DateCreationFrom, DateCreationTo) &&
         within(file.modified, DateLastModifiedFrom, DateLastModifiedTo) &&
         within(file.accessed, DateLastAccessFrom, DateLastAccessTo);
}

// Several pieces are extensions; a single one is what the name as a whole must fit.
bool cFindFiles::passes_extension(const std::string& name) const {
  if (lower_extensions_.size() == 1) return text::matches(lower_extensions_[0], name);
  const std::string extension = text::lower(GetExtension(name));
  return std::find(lower_extensions_.begin(), lower_extensions_.end(), extension) !=
         lower_extensions_.end();
}

bool cFindFiles::passes_name(const std::string& name) const {
  if (mode_ == 1 && search_name_.empty()) return true;
  std::string base = text::lower(GetFileName(name));
  base.resize(std::min(base.rfind('.'), base.size()));
  if (mode_ == 1) return base.find(search_name_) != std::string::npos;
  return text::trim(base) == text::trim(search_name_);
}

// Each folder is listed once. Its files are reported before its subfolders, both in alphabetical
// order, and nothing is kept of it but what was found and what is still to be searched.
void cFindFiles::scan(const std::string& path) {
  const system::Detail needed = detail();
  std::vector<std::string> waiting = {system::with_backslash(path)};
  std::vector<system::FileInfo> files;
  std::vector<system::FileInfo> folders;
  while (!waiting.empty() && !stop_) {
    const std::string here = std::move(waiting.back());
    waiting.pop_back();
    turn();
    if (stop_) return;
    files.clear();
    folders.clear();
    int until_turn = kEntriesPerTurn;
    const auto see = [&](system::FileInfo& entry) {
      if (entry.folder) {
        if (!SearchSubDirs) return true;
        ++folders_;
        // A junction or a link leads out of the tree, or round in it.
        if (!entry.link) {
          folders.push_back(std::move(entry));
        } else if (on_unseen) {
          on_unseen(here + entry.name + "\\", Unseen::linked);
        }
      } else if (passes_extension(entry.name) && passes_limits(entry) && passes_name(entry.name) &&
                 (!wanted || wanted(entry.name))) {
        files.push_back(std::move(entry));
      }
      if (--until_turn > 0) return true;
      until_turn = kEntriesPerTurn;
      turn();
      return !stop_;
    };
    const auto miss = [&](const system::UnnamedEntry& entry) {
      if (on_unseen) on_unseen(here + entry.shown + (entry.folder ? "\\" : ""), Unseen::unnamed);
    };
    const bool readable = platform_.files.each(here, needed, see, miss);
    if (stop_) return;
    if (!readable && on_unseen && platform_.files.info(here)) on_unseen(here, Unseen::unreadable);
    std::sort(files.begin(), files.end(), system::in_listing_order);
    offer(here, files);
    std::sort(folders.begin(), folders.end(), system::in_listing_order);
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
      waiting.push_back(here + folder->name + "\\");
    }
  }
}

void cFindFiles::offer(const std::string& folder, std::vector<system::FileInfo>& files) {
  for (system::FileInfo& file : files) {
    if (stop_) return;
    std::string path = folder + file.name;
    if (!EventsOnly) {
      // Where names were enough, the size was left out by some systems.
      if (file.size == 0) file.size = platform_.files.info(path).value_or(file).size;
      total_size_ += reckoned_size(file.size);
    }
    ++files_;
    if (GetFile) GetFile(path);
    if (!EventsOnly) ColFiles_.push_back(std::move(path));
    turn();
  }
}

// A turn for the window, if its last is long enough ago.
void cFindFiles::turn() {
  if (pacer_.turn() && on_turn) on_turn();
}

void cFindFiles::give_turn() {
  platform_.pump.pump();
  if (on_turn) on_turn();
}

}  // namespace ordelan::location
