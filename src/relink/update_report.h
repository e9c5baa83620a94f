// The report of an update: each project, where each of its paths leads now, and what was left.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "relink/update_run.h"
#include "system/regional.h"

namespace ordelan::relink {

inline constexpr const char* kReportName = "Actualizacion.log";

// The first lines of the report: what it is, with date and time.
std::string report_heading(system::Regional& regional);
// The lines of the report on a project, and its last ones on the folders that the searches could
// not list.
std::string report_lines(const ProjectUpdate& project);
std::string report_end(const std::set<std::string>& unseen);

// Whether a file that has the report's name is one, by its first bytes.
bool is_report(system::FileSystem& files, const std::string& path);

// The projects that were left as they were although they should not, as lines for the strip; empty
// if there are none. Those in a folder of originals are none of them: they are never updated.
std::string left_alone(const std::vector<ProjectUpdate>& projects);

// Rows as lines for the strip, each after a line end: all of them, or as many as it has room for
// and how many more there are.
std::string strip_lines(const std::vector<std::string>& rows);

}  // namespace ordelan::relink
