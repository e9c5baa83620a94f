// The projects read once more before anything is removed, as bytes: what the reader of projects
// does not see is found too, and what has come or changed since.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "project/project_mentions.h"
#include "removal/removal_state.h"
#include "work/context.h"

namespace ordelan::removal {

// The folders of the listed projects, each once and with its backslash.
std::vector<std::string> project_folders(const work::WorkLists& lists);

class SecondReading {
 public:
  // What `context` refers to must outlive this.
  explicit SecondReading(const work::Context& context);

  // Those of `rows` (paths) that have to stay, with the reason: some project in or below the
  // folders of the listed ones, listed or not, names them or may do so, or could not be read. Only
  // what has changed is read again by a later look for the same rows, or for fewer.
  //
  // `go_on` is called every few milliseconds, and any handler may run inside. Nothing is given when
  // it gives false, or when another look has begun in a handler: then nothing is known.
  std::optional<std::vector<Kept>> look(const std::vector<std::string>& rows,
                                        std::function<bool()> go_on);

 private:
  std::vector<std::string> projects() const;

  const work::Context context_;
  project::ProjectMentions mentions_;
};

}  // namespace ordelan::removal
