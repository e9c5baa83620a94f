// The rules that the source tree keeps, as functions over file names and contents, so that they can
// be tried on invented files too.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::test {

// File name, as "room/file.h", to content.
using Sources = std::map<std::string, std::string>;

struct Include {
  std::string name;
  bool system = false;  // <name> and not "name"
};

// What a file includes, in order. Comments and texts are no includes.
std::vector<Include> includes_of(std::string_view content);

// The folder of a name; empty where there is none.
std::string room_of(std::string_view name);

// Each gives a sentence for every place that breaks its rule, and nothing when all is well.

// Files include files of their own room and of the rooms below it, by their full names.
std::vector<std::string> upward_includes(const Sources& sources);
// No file includes itself, directly or by way of others.
std::vector<std::string> circles(const Sources& sources);
// The headers of one system stay in the room of that system.
std::vector<std::string> misplaced_system_headers(const Sources& sources);
// A file is for one system or for all: it does not ask which one it is on.
std::vector<std::string> questions_for_the_system(const Sources& sources);
std::vector<std::string> files_that_are_too_long(const Sources& sources);
// A header begins with a comment that says what it is, and is guarded.
std::vector<std::string> headers_without_their_head(const Sources& sources);

}  // namespace ordelan::test
