// The patch of a project one byte a write, over its bytes as a text: slow, plain, and what the fast
// patch is compared with.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "relink/patch.h"
#include "relink/pointer_file.h"

namespace ordelan::test {

// Patches one pair. Nothing when a byte before the file had to be read or written; `image` is then
// as it was at that moment.
std::optional<relink::PathChange> literal_patch_pair(std::string& image,
                                                     const relink::Pointer& pair,
                                                     const relink::PatchRules& rules,
                                                     relink::Lookups& lookups);

// A project, patched by all pairs in their order up to the first that cannot be.
struct LiteralPatched {
  std::string image;
  std::vector<relink::PathChange> changes;
  bool whole = true;  // all pairs were patched
};
LiteralPatched literal_patch(std::string image, const std::vector<relink::Pointer>& pairs,
                             const relink::PatchRules& rules, relink::Lookups& lookups);

}  // namespace ordelan::test
