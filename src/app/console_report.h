// What the console program prints of a window: its lists with their headings.
#pragma once

#include <iosfwd>
#include <vector>

#include "project/main_window.h"
#include "system/dialogs.h"

namespace ordelan::app {

class ConsoleReport {
 public:
  // Both must outlive the report.
  ConsoleReport(const project::Form1& form, const std::vector<system::Message>& messages)
      : form_(form), messages_(messages) {}

  // In UTF-8: lists with their headings to read, or one JSON object.
  void print(std::ostream& output, bool json) const;

 private:
  void print_json(std::ostream& output) const;
  void print_text(std::ostream& output) const;

  const project::Form1& form_;
  const std::vector<system::Message>& messages_;
};

}  // namespace ordelan::app
