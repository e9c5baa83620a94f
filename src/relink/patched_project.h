// Putting a patched project in its place: others find the old one or the new one, never a half.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "relink/file_image.h"
#include "relink/run_index.h"
#include "system/clock.h"
#include "system/file_system.h"
#include "work/work_in_hand.h"

namespace ordelan::relink {

// An opened project with its image.
struct OpenProject {
  std::unique_ptr<system::InputFile> file;  // null for one that does not exist yet
  FileImage image{nullptr};
};

// Whether a project is as it was seen: another program may have saved it meanwhile.
bool is_as_seen(system::FileSystem& files, const std::string& path, const work::Visto& seen);

// The project as it is now; not_found without an error for one that is missing.
system::Result<std::unique_ptr<OpenProject>> open_project(system::FileSystem& files,
                                                          const std::string& path);

// Patched projects that take their places together: one wait for the disk takes hardly longer for
// many files than for one. Each new content is written to a temporary file beside its project and
// waits for the disk; the changes are put on record; then each takes its project's place in one
// step. Until then all projects are as they were.
class PutBatch {
 public:
  struct Record {
    // Puts changes on record, on the disk; while it fails, the projects stay as they are.
    std::function<system::Status(const std::vector<ProjectChange>&)> changes;
    // Says of a recorded change that it did not come about.
    std::function<void(const std::string& path)> left;
  };
  // How a project has fared: called once for each, in `add` or `put`.
  using Ended = std::function<void(system::Status)>;

  // `turn` is called between waits for the disk, for the window; it cannot stop them. The first two
  // must outlive the batch.
  PutBatch(system::FileSystem& files, system::Clock& clock, Record record,
           std::function<void()> turn);
  // What has not taken its place is dropped.
  ~PutBatch();
  PutBatch(const PutBatch&) = delete;
  PutBatch& operator=(const PutBatch&) = delete;

  // Takes a project whose image is to stand at `path`, and closes its file. `seen` is how the
  // project was when its copy was made: in_use if it has changed since; without it the project must
  // not exist. One that is a link or has other names on the disk is changed in place, at once: it
  // needs its copy before.
  void add(OpenProject& project, const std::string& path, const std::optional<work::Visto>& seen,
           Ended ended);
  // Whether a project of that path waits for its place.
  bool holds(const std::string& path) const;
  // Whether those that wait have become many, large or old.
  bool due() const;
  // All that wait take their places.
  void put();

 private:
  struct Waiting {
    ProjectChange change;
    std::string temporary;
    std::optional<work::Visto> seen;
    Ended ended;
  };

  void place(std::vector<Waiting>& projects);
  system::Status place(const Waiting& project);
  void drop(const Waiting& project, system::Status why);

  system::FileSystem& files_;
  system::Clock& clock_;
  Record record_;
  std::function<void()> turn_;
  std::vector<Waiting> waiting_;
  std::uint64_t bytes_ = 0;  // of those that wait
  system::Clock::Time since_;
};

// Puts other bytes into a project that is a link or has other names on the disk, so that it stays
// the same file under all of them. On failure it is as it was, unless that fails too.
system::Status write_in_place(system::FileSystem& files, const std::string& path,
                              std::string_view bytes);

// Removes what a killed update, or the undoing of one, has left of its temporary files in a folder.
void remove_leftovers(system::FileSystem& files, const std::string& folder);

}  // namespace ordelan::relink
