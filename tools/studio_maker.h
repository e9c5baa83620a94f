// Makes sample studios on the disk: projects, the audio that they refer to, and all that lies
// around in a studio besides.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "tools/encoders.h"
#include "tools/studio_folder.h"
#include "tools/studio_plan.h"

namespace ordelan::studio {

struct StudioOptions {
  std::uint64_t seed = 1;

  // Any of these makes a large studio instead of the demo, with exactly so many of each; those left
  // out get a number that fits the others.
  std::optional<std::size_t> projects;
  std::optional<std::size_t> references;  // of all projects together
  std::optional<std::size_t> files;       // audio and side files

  // How large each project gets; 0 gives each a size of its own.
  std::uint64_t bytes_per_project = 0;

  // The drive letters by which projects name the studio's folder and the second folder.
  char drive_letter = 'D';
  char second_letter = 'E';

  // What stands for the second drive. Empty: what lies there is lost.
  std::filesystem::path second_folder;

  // Where encoded audio is kept from one studio to the next. Empty: a temporary folder, which is
  // removed at the end.
  std::filesystem::path cache;
};

// Makes a studio. `folder` is the root of its drive: projects name folder/Mix
// D:\Mix. The same options give the same tree, byte for byte. A studio made there before is
// replaced; other files stay. All audio is encoded before anything is written.
// Throws StudioRefused when a folder must not be used, EncoderError when an encoder is missing or
// fails, and std::runtime_error when the disk fails; a studio cut short by the disk can be made
// again in the same place.
StudioSummary make_studio(const std::filesystem::path& folder, const StudioOptions& options);

}  // namespace ordelan::studio
