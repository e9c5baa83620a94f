#include "removal/removal_log.h"

namespace ordelan::removal {

std::string log_heading(system::Regional& regional) {
  constexpr std::size_t kRule = 61;  // hyphens
  return log_line("Archivos borrados  " + regional.short_date() + " a las " +
                  regional.long_time()) +
         log_line(std::string(kRule, '-'));
}

std::string log_line(std::string_view path) {
  return std::string(path) + "\r\n";
}

const std::string& Lines::next() {
  if (left_.empty()) return line_;
  const std::size_t end = left_.find_first_of("\r\n");
  line_ = left_.substr(0, end);
  if (end == std::string_view::npos) {
    left_ = {};
    return line_;
  }
  const bool both = left_.substr(end, 2) == "\r\n";
  left_.remove_prefix(end + (both ? 2 : 1));
  return line_;
}

}  // namespace ordelan::removal
