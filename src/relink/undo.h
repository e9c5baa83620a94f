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
  // nothing could be begun, and the index if it could not be read as a whole.
  std::vector<removal::Kept> run();

  // Gives up what could not be restored of the latest update, so that the one before can be undone.
  // Its copies stay.
  system::Status give_up();

  // How many projects were given back their bytes or removed, and how many were saved before.
  std::size_t restored() const { return restored_; }
  std::size_t saved() const { return saved_; }

 private:
  struct Step {
    std::string path;
    Content before{};
    bool created = false;
    // What the update made of it, where it is recorded; the last one of several rows of the
    // project.
    std::vector<std::optional<Content>> made{};
    std::optional<work::Visto> seen{};  // as it was looked at; nothing for a missing file

    std::optional<Content> done() const { return made.back(); }
  };
  // A path of the index in the folder as it stands now: the studio may have been moved or copied
  // with it since.
  std::string here(const std::string& path) const;

  using Failed = std::vector<removal::Kept>;

  void read();
  void read_steps(const std::vector<RunRecord>& records);
  void look_at(Originals& originals, Step step, std::vector<Step>& wanted, Failed& failed);
  system::Result<std::string> copy_with(const Content& content) const;
  // Why it failed, empty if it did not.
  std::string restore(const Step& step) const;
  system::Status give_back(const std::string& copy, const Step& step) const;
  system::Status retire();

  system::FileSystem& files_;
  system::Shell& shell_;
  const std::string folder_;
  const std::function<bool()> go_on_;
  std::size_t number_ = 0;  // of the update, 0 for none
  std::string unread_;      // why its index says less than it should; empty if it does not
  std::vector<Step> steps_;
  std::vector<RunRecord> copies_;  // of all updates
  std::string was_;                // the folder of the projects when the update took place
  std::string is_;                 // and now
  bool moved_ = false;
  std::size_t restored_ = 0;
  std::size_t saved_ = 0;
};

}  // namespace ordelan::relink
