// The log of a run with backup, from which removed files are brought back. Plain text in the code
// page, lines ended by CR LF: two lines of heading and a line for each file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "system/regional.h"

namespace ordelan::removal {

inline constexpr const char* kLogName = "Archivos_Borrados.log";

// A log shorter than this has no line of a file: the heading of a date of 10 characters and a time
// of 8 takes 109 bytes.
inline constexpr std::uint64_t kShortestLog = 110;

// The two lines of heading, with the present date and time.
std::string log_heading(system::Regional& regional);

// The line of one file.
std::string log_line(std::string_view path);

// What a log lists.
struct ListedFiles {
  std::string heading;             // the last line of heading; empty if there is none
  std::vector<std::string> paths;  // a line each, whatever stands in it
};

// Reads a log, also one that was cut short: its last line may be a part of a path. A heading is
// passed over wherever it stands. `go_on` is called after each line; when it gives false, the rest
// is left out.
template <class GoOn>
ListedFiles read_log(std::string_view bytes, GoOn&& go_on);

// The lines of a text; CR LF, CR and LF end one.
class Lines {
 public:
  explicit Lines(std::string_view text) : left_(text) {}

  bool at_end() const { return left_.empty(); }
  // The next line without its end; the one before, unchanged, at the end of the text.
  const std::string& next();

 private:
  std::string_view left_;
  std::string line_;
};

template <class GoOn>
ListedFiles read_log(std::string_view bytes, GoOn&& go_on) {
  ListedFiles listed;
  Lines lines(bytes);
  while (!lines.at_end()) {
    std::string line = lines.next();
    if (line.starts_with("Archivos borrados")) {
      listed.heading = line;
      // A heading that ends the log stands for a file's line: nothing has replaced it.
      line = lines.next();
      if (line.starts_with("------")) line = lines.next();
    }
    listed.paths.push_back(std::move(line));
    if (!go_on()) break;
  }
  return listed;
}

}  // namespace ordelan::removal
