// The way back: projects as they were before the latest update, and again before the one before.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "relink/originals.h"
#include "relink/run_index.h"
#include "removal/removal_state.h"
#include "system/file_system.h"
#include "system/shell.h"

namespace ordelan::relink {

class Undo {
 public:
  // `folder` is that of the originals, with its backslash. `go_on` is called now and then; the run
  // ends early when it gives false. The rest must outlive this.
  Undo(system::FileSystem& files, system::Shell& shell, std::string folder,
       std::function<bool()> go_on);

  // Whether there is an update that can be undone.
  static bool available(system::FileSystem& files, const std::string& folder);

  // How many projects the latest update has changed, as far as its index says.
  std::size_t projects() const;

  // Restores the state before the latest update, each project in one step and only from a copy that
  // has been compared. A project that has changed since the update is saved in a numbered
  // subfolder before. A file that the update created is removed. An update that could not be
  // undone as a whole can be tried again. Gives what could not be restored; the folder itself if
  // nothing could be begun.
  std::vector<removal::Kept> run();

  // How many projects were given back their bytes or removed, and how many were saved before.
  std::size_t restored() const { return restored_; }
  std::size_t saved() const { return saved_; }

 private:
  struct Step {
    std::string path;
    Content before{};
    std::optional<Content> done{};  // what the update made of it, where it is recorded
    bool created = false;
  };
  // A path of the index in the folder as it stands now: the studio may have been moved or copied
  // with it since.
  std::string here(const std::string& path) const;

  void read();
  std::vector<RunRecord> records_of(const std::string& name) const;
  system::Result<std::string> copy_with(const Content& content) const;
  system::Status restore(const Step& step) const;
  system::Status give_back(const std::string& copy, const std::string& path) const;

  system::FileSystem& files_;
  system::Shell& shell_;
  const std::string folder_;
  const std::function<bool()> go_on_;
  std::size_t number_ = 0;  // of the update, 0 for none
  std::vector<Step> steps_;
  std::vector<RunRecord> copies_;  // of all updates
  std::string was_;                // the folder of the projects when the update took place
  std::string is_;                 // and now
  bool moved_ = false;
  std::size_t restored_ = 0;
  std::size_t saved_ = 0;
};

}  // namespace ordelan::relink
