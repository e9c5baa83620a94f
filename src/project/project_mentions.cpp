#include "project/project_mentions.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "project/identity_hash.h"
#include "project/mention_search.h"
#include "project/vip_files.h"
#include "text/code_page.h"
#include "text/paths.h"

namespace ordelan::project {
namespace {

using system::FileIdentity;
using Group = MentionNames::Group;
constexpr std::size_t kBlock = std::size_t{1} << 17;  // what is read at once
constexpr std::size_t kPiece = std::size_t{1} << 14;  // what is searched between two turns
constexpr std::size_t kSteps = 64;                    // small steps between two turns
// From so many bytes of different paths on, further mentions pass for such without a path.
constexpr std::size_t kMostPathText = std::size_t{32} << 20;
constexpr std::size_t kMostLines = 2'000'000;

// By what a project is recognised as unchanged.
struct Stamp {
  std::uint64_t size = 0, listed_size = 0;
  double modified = 0;
  std::uint64_t number = 0;
  std::optional<FileIdentity> identity;
  bool operator==(const Stamp&) const = default;
};

// What a project says: names, and by what path. 0 is no path.
struct Line {
  Group group;
  std::uint32_t path, other_path;
  bool firm;  // without it the paths say something only where they lead to a row's file
};

struct Said {
  Stamp stamp;
  std::vector<Line> lines;
};

}  // namespace

struct ProjectMentions::State {
  std::uint64_t looks = 0;                             // the number of the last one
  std::unordered_map<std::string, std::uint32_t> ids;  // of the names, folded
  std::shared_ptr<const MentionNames> names;
  std::unordered_map<std::string, Said> said;  // by the project's path
  // The paths of all lines, each once; the place of one is its number less 1.
  std::unordered_map<std::string, std::uint32_t> path_numbers;
  std::vector<const std::string*> paths;
  std::size_t path_text = 0;
  std::size_t lines = 0;

  std::uint32_t number_of(std::string_view path) {
    if (path.empty() || path_text >= kMostPathText) return 0;
    const auto [known, added] =
        path_numbers.try_emplace(std::string(path), static_cast<std::uint32_t>(paths.size() + 1));
    if (added) {
      paths.push_back(&known->first);
      path_text += path.size();
    }
    return known->second;
  }
};

// One look. It holds what it needs itself: whatever a handler destroys meanwhile, it only ends.
class ProjectMentions::Look {
 public:
  Look(std::shared_ptr<State> state, system::FileSystem& files, std::function<bool()> go_on)
      : state_(std::move(state)),
        files_(files),
        go_on_(std::move(go_on)),
        number_(++state_->looks) {}

  // Nothing where it was ended.
  std::optional<std::vector<RowMention>> run(const std::vector<std::string>& rows,
                                             const std::vector<std::string>& folders,
                                             const std::vector<std::string>& projects) {
    if (!turn() || !take_names(rows)) return std::nullopt;
    VipFiles found(files_, [this] { return turn(); });
    for (const std::string& project : projects) found.add(project);
    found.add_below(folders);
    if (ended_) return std::nullopt;
    unread_ = found.unread();
    why_unread_ = found.why_unread();
    projects_ = found.paths();
    if (unread_.empty()) read_projects();
    if (ended_) return std::nullopt;
    std::vector<RowMention> result(rows.size());
    if (!unread_.empty()) {
      using Why = VipFiles::WhyUnread;
      result.assign(rows.size(), {why_unread_ == Why::linked    ? Mentioned::linked
                                  : why_unread_ == Why::unnamed ? Mentioned::unnamed
                                                                : Mentioned::unread,
                                  unread_});
    } else if (!judge(rows, result)) {
      return std::nullopt;
    }
    return result;
  }

 private:
  // What a path leads to, asked once.
  struct Target {
    bool asked = false;
    std::optional<FileIdentity> file;
  };
  // The strongest thing that is said about the names of a group, with the project that says it.
  struct GroupSaid {
    Mentioned mentioned = Mentioned::no;
    std::size_t project = 0;
    bool other_file = false;  // some path leads to a file
    std::size_t other_project = 0;
  };

  // Gives the caller its turn. False where the look is to end: nothing of the state is its own
  // then.
  [[nodiscard]] bool turn() {
    if (!ended_) ended_ = !go_on_() || state_->looks != number_;
    return !ended_;
  }
  // The same after small steps.
  [[nodiscard]] bool step() { return ++steps_ % kSteps == 0 ? turn() : !ended_; }

  // Finds out which names are searched for. With other names than before all is read anew.
  bool take_names(const std::vector<std::string>& rows) {
    std::vector<std::string> folded;
    bool known = state_->names != nullptr;
    for (const std::string& row : rows) {
      folded.push_back(text::lower(text::file_name(row)));
      known = known && state_->ids.contains(folded.back());
      if (!step()) return false;
    }
    if (!known && !make_names(folded)) return false;
    rows_of_.resize(state_->ids.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
      rows_of_[state_->ids.at(folded[row])].push_back(static_cast<std::uint32_t>(row));
      if (!step()) return false;
    }
    return true;
  }

  bool make_names(const std::vector<std::string>& folded) {
    *state_ = State{};
    state_->looks = number_;
    std::vector<std::string> names;
    for (const std::string& name : folded) {
      if (state_->ids.try_emplace(name, static_cast<std::uint32_t>(names.size())).second) {
        names.push_back(name);
      }
      if (!step()) return false;
    }
    auto made = std::make_shared<const MentionNames>(names, [this] { return step(); });
    if (!ended_) state_->names = std::move(made);
    return !ended_;
  }

  void read_projects() {
    forget_others();
    for (const std::string& project : projects_) {
      if (!turn()) return;
      if (read(project)) continue;
      unread_ = project;
      return;
    }
  }

  // Projects that are gone say nothing any more.
  void forget_others() {
    const std::unordered_set<std::string_view> present(projects_.begin(), projects_.end());
    std::erase_if(state_->said, [&](const auto& entry) {
      if (present.contains(entry.first)) return false;
      state_->lines -= entry.second.lines.size();
      return true;
    });
  }

  // A project and how it is recognised later. No file where it cannot be opened.
  struct OpenProject {
    std::unique_ptr<system::InputFile> file;
    Stamp stamp;
    bool link = false;  // whose size and time tell nothing about the project
  };
  OpenProject open(const std::string& project) {
    const auto info = files_.info(project);
    auto file = files_.open(project);
    if (!info || !file) return {};
    // The folder's entry of a file that is being written may be older than the file.
    const Stamp stamp{file->size(), info->size, info->modified, info->number,
                      files_.identity(project)};
    return {std::move(file), stamp, info->link};
  }

  // Has what a project says among the state's. False where it cannot be read whole.
  bool read(const std::string& project) {
    const OpenProject opened = open(project);
    if (!opened.file) return false;
    const auto known = state_->said.find(project);
    if (known != state_->said.end()) {
      if (known->second.stamp == opened.stamp && !opened.link) return true;
      state_->lines -= known->second.lines.size();
      state_->said.erase(known);
    }
    Said said{opened.stamp, {}};
    if (!search(*opened.file, said.lines)) return false;
    // What changed meanwhile was not read whole.
    const OpenProject again = open(project);
    if (!again.file || again.stamp != opened.stamp) return false;
    said.lines.shrink_to_fit();
    state_->lines += said.lines.size();
    state_->said.insert_or_assign(project, std::move(said));
    return true;
  }

  bool search(system::InputFile& file, std::vector<Line>& lines) {
    const auto names = state_->names;
    const auto report = [&](const MentionSearch::Mention& mention) {
      const bool full = state_->lines + lines.size() >= kMostLines;
      const std::uint32_t path = full ? 0 : state_->number_of(mention.path);
      const std::uint32_t other = full ? 0 : state_->number_of(mention.other_path);
      // Where there was no room for its path it may be the file's.
      const bool firm = mention.firm || (path == 0 && !mention.path.empty()) ||
                        (other == 0 && !mention.other_path.empty());
      lines.push_back({mention.group, path, other, firm});
    };
    MentionSearch search(*names, report);
    std::vector<std::uint8_t> block(kBlock);
    for (std::uint64_t at = 0; at < file.size();) {
      const auto came = file.read(at, block);
      if (!came || *came == 0) return false;
      const std::string_view bytes(reinterpret_cast<const char*>(block.data()), *came);
      for (std::size_t from = 0; from < bytes.size(); from += kPiece) {
        search.feed(bytes.substr(from, kPiece));
        if (!turn()) return false;
      }
      at += *came;
    }
    search.end_of_file();
    return true;
  }

  bool judge(const std::vector<std::string>& rows, std::vector<RowMention>& result) {
    const MentionNames& names = *state_->names;
    targets_.assign(state_->paths.size(), {});
    said_.assign(names.groups(), {});
    identified_.assign(rows.size(), false);
    for (std::size_t project = 0; project < projects_.size(); ++project) {
      for (const Line& line : state_->said.at(projects_[project]).lines) {
        if (!step()) return false;
        if (!wanted(line.group)) continue;
        const auto file = target(line.path);
        const auto other_file = ended_ ? std::nullopt : target(line.other_path);
        if (ended_) return false;
        GroupSaid& said = said_[line.group];
        if (!file && !other_file) {
          if (!line.firm) continue;
          say(said, line.path == 0 ? Mentioned::without_path : Mentioned::path_missing, project);
          continue;
        }
        if (!identify(rows)) return false;
        if (line.firm && !std::exchange(said.other_file, true)) said.other_project = project;
        for (const auto& one : {file, other_file}) {
          if (one) keep_file(*one, project, result);
        }
      }
    }
    if (!keep_groups(result)) return false;
    for (const auto& [folded, id] : state_->ids) {
      if (!step()) return false;
      if (names.searchable(id)) continue;
      for (const std::uint32_t row : rows_of_[id]) keep(result[row], Mentioned::unidentified, {});
    }
    return true;
  }

  // Whether a group has names of rows: a later look may have fewer.
  bool wanted(Group group) const {
    const auto& ids = state_->names->names_of(group);
    return std::any_of(ids.begin(), ids.end(),
                       [&](std::uint32_t id) { return !rows_of_[id].empty(); });
  }

  // The file that a path leads to. Nothing for no path, and where it leads to a folder.
  std::optional<FileIdentity> target(std::uint32_t path) {
    if (path == 0) return std::nullopt;
    Target& known = targets_[path - 1];
    if (known.asked) return known.file;
    const std::string& spelt = *state_->paths[path - 1];
    std::optional<FileIdentity> file;
    if (folder_exists(spelt)) {
      if (!turn()) return std::nullopt;
      file = files_.identity(spelt);
      const auto info = file ? files_.info(spelt) : std::nullopt;
      if (!info || info->folder) file.reset();
    } else if (ended_) {
      return std::nullopt;
    }
    known = {true, file};
    return file;
  }

  // Whether the folder of a path exists, asked once: many lost files are lost together, on a drive
  // that is gone or a server that lets each question wait.
  bool folder_exists(std::string_view path) {
    const auto [known, added] = folders_.try_emplace(std::string(text::folder_of(path)), false);
    if (!added) return known->second;
    if (!turn()) return false;
    return known->second = files_.identity(known->first).has_value();
  }

  // Finds out which files the rows are.
  bool identify(const std::vector<std::string>& rows) {
    if (std::exchange(asked_rows_, true)) return true;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      if (!turn()) return false;
      if (const auto identity = files_.identity(rows[row])) {
        rows_at_[*identity].push_back(static_cast<std::uint32_t>(row));
        identified_[row] = true;
      }
    }
    return true;
  }

  static void say(GroupSaid& said, Mentioned mentioned, std::size_t project) {
    if (said.mentioned < mentioned) {
      said.mentioned = mentioned;
      said.project = project;
    }
  }
  static void keep(RowMention& row, Mentioned mentioned, const std::string& project) {
    if (row.mentioned < mentioned) row = {mentioned, project};
  }

  void keep_file(const FileIdentity& file, std::size_t project, std::vector<RowMention>& result) {
    const auto found = rows_at_.find(file);
    if (found == rows_at_.end()) return;
    for (const std::uint32_t row : found->second) {
      keep(result[row], Mentioned::by_path, projects_[project]);
    }
  }

  // Keeps the rows of groups of which something is said that does not depend on the row.
  bool keep_groups(std::vector<RowMention>& result) {
    for (Group group = 0; group < said_.size(); ++group) {
      if (!step()) return false;
      const GroupSaid& said = said_[group];
      if (said.mentioned == Mentioned::no && !said.other_file) continue;
      for (const std::uint32_t id : state_->names->names_of(group)) {
        if (!step()) return false;
        for (const std::uint32_t row : rows_of_[id]) {
          keep(result[row], said.mentioned, projects_[said.project]);
          if (said.other_file && !identified_[row]) {
            keep(result[row], Mentioned::unidentified, projects_[said.other_project]);
          }
        }
      }
    }
    return true;
  }

  std::shared_ptr<State> state_;
  system::FileSystem& files_;
  std::function<bool()> go_on_;
  std::uint64_t number_;
  std::size_t steps_ = 0;
  bool ended_ = false;
  bool asked_rows_ = false;
  std::string unread_;
  VipFiles::WhyUnread why_unread_ = VipFiles::WhyUnread::unreadable;
  std::vector<std::vector<std::uint32_t>> rows_of_;  // by name
  std::vector<std::string> projects_;
  std::unordered_map<std::string, bool> folders_;  // of paths: whether they exist
  std::vector<Target> targets_;                    // by path
  std::vector<GroupSaid> said_;                    // by group
  std::vector<bool> identified_;                   // by row
  std::unordered_map<FileIdentity, std::vector<std::uint32_t>, IdentityHash> rows_at_;
};

ProjectMentions::ProjectMentions(system::FileSystem& files)
    : state_(std::make_shared<State>()), files_(files) {}

ProjectMentions::~ProjectMentions() = default;

std::optional<std::vector<RowMention>> ProjectMentions::look(std::vector<std::string> rows,
                                                             std::vector<std::string> folders,
                                                             std::vector<std::string> projects,
                                                             std::function<bool()> go_on) {
  return Look(state_, files_, std::move(go_on)).run(rows, folders, projects);
}

}  // namespace ordelan::project
