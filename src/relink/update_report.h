// The report of an update: each project, where each of its paths leads now, and what was left.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "relink/update_run.h"
#include "system/regional.h"

namespace ordelan::relink {

inline constexpr const char* kReportName = "Actualizacion.log";

// The first line of the report: what it is, with date and time.
std::string report_heading(system::Regional& regional);
// The text of the report.
std::string report_text(const std::string& heading, const std::vector<ProjectUpdate>& projects);

// Whether a file that has the report's name is one, by its first bytes.
bool is_report(std::string_view bytes);

// The projects that were left as they were although they should not, as lines for the strip; empty
// if there are none. Those in a folder of originals are none of them: they are never updated.
std::string left_alone(const std::vector<ProjectUpdate>& projects);

// Rows as lines for the strip, each after a line end: all of them, or as many as it has room for
// and how many more there are.
std::string strip_lines(const std::vector<std::string>& rows);

}  // namespace ordelan::relink
