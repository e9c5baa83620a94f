// The search for mentions of names, plain and slow: at each place of a file each name is tried. It
// shares no code with the fast one.
#pragma once

#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace ordelan::test {

// A name's place among the names, the path by which it is mentioned, that path read as UTF-8, and
// whether the mention ends as names do.
using LiteralMention = std::tuple<std::size_t, std::string, std::string, bool>;

std::set<LiteralMention> literal_mentions(const std::vector<std::string>& names,
                                          const std::string& file);

// Whether `short_name` may be the short name that a disk has given to `name`.
bool literally_short(std::string short_name, std::string name);

}  // namespace ordelan::test
