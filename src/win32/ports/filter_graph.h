// Audio files played by the system's graphs of filters (DirectShow).
#pragma once

#include <optional>

#include "win32/ports/media_graph.h"

namespace ordelan::win32 {

// To be used by a thread that has set up the system's objects for many threads. Samples are left in
// the ring where the system can take them out; the file sounds also where it cannot.
std::unique_ptr<MediaGraph> make_filter_graph(std::shared_ptr<SampleRing> samples);

// The same with the system's own clock also where that clock is of little use. `make_filter_graph`
// does without it on Wine, whose renderer then begins a quarter of a second late and leaves out as
// much of the end.
std::unique_ptr<MediaGraph> make_clocked_filter_graph(std::shared_ptr<SampleRing> samples);

// A path as the system's graphs take it: they know no literal paths and none that are long, so that
// those are given in their short form. Nothing for what is no absolute path.
std::optional<std::wstring> graph_path(const std::string& path);

}  // namespace ordelan::win32
