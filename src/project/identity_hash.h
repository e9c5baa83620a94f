// Files by what they are, in hash tables.
#pragma once

#include <cstddef>

#include "system/file_system.h"

namespace ordelan::project {

struct IdentityHash {
  std::size_t operator()(const system::FileIdentity& identity) const {
    return static_cast<std::size_t>(
        (identity.file ^ (identity.volume << 32) ^ identity.file_high) * 0x9E3779B97F4A7C15u >> 16);
  }
};

}  // namespace ordelan::project
