#include "project/vip_files.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "project/identity_hash.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::project {
namespace {

using system::FileIdentity;

constexpr std::size_t kSteps = 64;  // entries of a folder between two turns

// Folders of the system in the root of a drive, which no program may read: what others have put
// into their bins, and what it keeps for itself. Otherwise no drive could be searched from its
// root.
bool is_systems_own(std::string_view folder) {
  const std::string root = text::root(folder).size() == 3 ? text::lower(folder.substr(3)) : "";
  return root == "system volume information\\" || root == "lost+found\\" ||
         root == "windowsapps\\" || root.starts_with("$recycle.bin\\") ||
         root.starts_with(".trash-");
}

}  // namespace

bool may_be_project(std::string_view name) {
  return text::lower(name).find(".vip") != std::string::npos;
}

VipFiles::VipFiles(system::FileSystem& files, std::function<bool()> turn)
    : files_(files), turn_(std::move(turn)) {}

void VipFiles::add(const std::string& path) {
  if (known_.insert(path).second) paths_.push_back(path);
}

bool VipFiles::step() {
  if (++steps_ % kSteps == 0) ended_ = !turn_();
  return !ended_;
}

void VipFiles::add_below(const std::vector<std::string>& folders) {
  std::vector<std::string> waiting;
  for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder) {
    waiting.push_back(system::with_backslash(*folder));
  }
  std::vector<std::string> links;
  while (!waiting.empty() && unread_.empty()) {
    if (ended_ = !turn_(); ended_) return;
    const std::string here = std::move(waiting.back());
    waiting.pop_back();
    if (!folders_.insert(here).second) continue;
    walked_.push_back(here);
    std::vector<std::string> below;
    list(here, below, links);
    if (ended_) return;
    std::move(below.rbegin(), below.rend(), std::back_inserter(waiting));
  }
  if (unread_.empty() && !links.empty()) follow(links);
}

void VipFiles::list(const std::string& here, std::vector<std::string>& below,
                    std::vector<std::string>& links) {
  const auto visit = [&](const system::FileInfo& entry) {
    // Copied first: a handler may list another folder into the same entry.
    const std::string path = text::path_of(here, entry.name);
    if (entry.folder && entry.link && entry.hidden && entry.system) {
      // Windows' own for old programs, as in the folder of documents; no program may list them.
    } else if (entry.folder) {
      (entry.link ? links : below).push_back(path + "\\");
    } else if (may_be_project(entry.name)) {
      add(path);
    }
    return step();
  };
  const auto unnamed = [&](const system::UnnamedEntry& entry) {
    if (!entry.folder && !may_be_project(entry.shown)) return;
    unread_ = here + entry.shown;
    why_unread_ = WhyUnread::unnamed;
  };
  if (!files_.each(here, system::Detail::names, visit, unnamed) && !is_systems_own(here)) {
    unread_ = here;
    why_unread_ = WhyUnread::unreadable;
  }
}

// Each link must lead to a folder that is searched anyway: others might lead round in a ring, or
// to half of the network.
void VipFiles::follow(const std::vector<std::string>& links) {
  std::unordered_set<FileIdentity, IdentityHash> walked;
  for (const std::string& folder : walked_) {
    if (ended_ = !turn_(); ended_) return;
    if (const auto identity = files_.identity(folder)) walked.insert(*identity);
  }
  for (const std::string& link : links) {
    if (ended_ = !turn_(); ended_) return;
    const auto identity = files_.identity(link);
    if (identity && walked.contains(*identity)) continue;
    unread_ = link.substr(0, link.size() - 1);
    why_unread_ = WhyUnread::linked;
    return;
  }
}

}  // namespace ordelan::project
