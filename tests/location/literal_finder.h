// The search for files in its plainest form: recursion, two listings a folder, one test after
// another. Slow and plain, for the fast one to be compared with.
#pragma once

#include <string>
#include <vector>

#include "location/file_finder.h"
#include "system/file_system.h"

namespace ordelan::test {

struct LiteralSearch {
  std::string Path;
  std::string Extensions;
  std::string FileName;
  int Mode = 1;
  bool SearchSubDirs = true;
  std::int64_t MinFileSize = 0;
  std::int64_t MaxFileSize = 0;
  std::int32_t Attributes = 0;
  location::Date DateLastModifiedFrom = 0;
  location::Date DateLastModifiedTo = 0;
  location::Date DateCreationFrom = 0;
  location::Date DateCreationTo = 0;
  location::Date DateLastAccessFrom = 0;
  location::Date DateLastAccessTo = 0;
  std::size_t stop_after = 0;  // hits after which the search is stopped; 0 for never
};

struct LiteralOutcome {
  std::vector<std::string> events;  // "InitSearch", "GetFile <path>", "EndSearch"
  std::vector<std::string> ColFiles;
  int FilesCount = 0;
  int DirCount = 0;
  double TotalSize = 0;
};

LiteralOutcome literal_find(system::FileSystem& files, const std::vector<std::string>& drives,
                            const LiteralSearch& search);

}  // namespace ordelan::test
