// The careful look before a run: what must not be removed, whatever the lists say.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "removal/removal_state.h"
#include "work/context.h"
#include "work/job.h"

namespace ordelan::removal {

// Whether a file lies in a recycle bin of Windows or in a trash folder of Linux or of macOS: it has
// been removed once, and may be wanted back.
bool is_in_bin(std::string_view path);

class RunCheck {
 public:
  // The arguments must outlive this.
  RunCheck(const work::Context& context, SecondReading& second_reading)
      : context_(context), second_reading_(second_reading) {}

  // Why no run may begin, whatever the user has chosen: nothing if one may.
  static std::optional<std::string> why_never(const work::WorkInHand& work);

  // Why none may begin as the projects are now: one of the listed has changed since it was read, or
  // is gone. Gives the window its turns; of no use once the job has been superseded.
  std::optional<std::string> why_not_now(work::Job& job) const;

  // Works out which of the rows have to stay, by what the disk holds now. `unticked` are those that
  // the user wants to keep, also under another path; `folders` are the protected ones. Gives the
  // window its turns; of no use once the job has been superseded.
  void look_at(const std::vector<std::string>& rows, const std::vector<std::string>& unticked,
               const std::vector<std::string>& folders, work::Job& job);

  // The same for side files: those that a project names stay.
  void look_at_side_files(const std::vector<std::string>& rows, work::Job& job);

  // Reads all projects once more: those of the rows that some project names stay, and all of them
  // where that is not known, as when `go_on` gives false.
  void read_again(const std::vector<std::string>& rows, const std::function<bool()>& go_on);

  // Why a row has to stay; null if it may go.
  const Kept* kept(const std::string& row) const;

  // Whether the file of a row, found as `now`, is another than when it was listed. To be asked
  // after `look_at`, right before the file goes.
  bool has_changed(const std::string& row, const system::FileInfo& now) const;

  // Whether a file of the side list may go: those of the named kinds.
  static bool is_side_file(std::string_view path);
  // Whether a file is a project, by its name: none is ever removed.
  static bool is_project(std::string_view path);

 private:
  void take_seen();
  std::string project_using(const std::string& path) const;
  bool is_behind_link(const std::string& path, const std::string& project_folder,
                      const work::FolderTree& tree,
                      std::unordered_map<std::string, bool>& links) const;

  void keep(const std::string& row, std::string motivo, std::string proyecto = {});

  const work::Context& context_;
  SecondReading& second_reading_;
  std::unordered_map<std::string, Kept> kept_;            // by row
  std::shared_ptr<const std::vector<std::string>> rows_;  // whose texts are the keys of the next
  std::unordered_map<std::string_view, work::Visto> seen_;
};

}  // namespace ordelan::removal
