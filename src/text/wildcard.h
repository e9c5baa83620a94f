// File patterns, matched as Windows' own search matches them.
#pragma once

#include <string_view>

namespace ordelan::text {

// Whether a file name fits a pattern of "*" and "?", case ignored. "*.*" fits every name, also one
// without a dot. A pattern with wildcards that ends in an extension of exactly three characters
// also fits longer extensions that begin with them ("*.fla" finds x.flac): Windows finds those by
// their short name. A pattern without any wildcard fits its own name only.
bool matches(std::string_view pattern, std::string_view name);

}  // namespace ordelan::text
