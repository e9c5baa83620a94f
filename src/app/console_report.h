// What the console program prints: the lists of the window with their headings and the projects
// that are left out, or the outcome of a search.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/program.h"
#include "removal/removal_state.h"
#include "system/dialogs.h"

namespace ordelan::app {

class ConsoleReport {
 public:
  // Both must outlive the report.
  ConsoleReport(const Program& program, const std::vector<system::Message>& messages)
      : form_(program.form),
        lost_(program.form.lost_files()),
        work_(program.work),
        messages_(messages) {}

  // Also prints these of ListBorrar, which some project names.
  void add_named(std::vector<removal::Kept> named) { named_ = std::move(named); }

  // In UTF-8: lists with their headings to read, or one JSON object.
  void print(std::ostream& output, bool json) const;

 private:
  void print_json(std::ostream& output) const;
  void print_text(std::ostream& output) const;

  const main_window::Form1& form_;
  const location::LostFiles& lost_;
  const work::WorkInHand& work_;
  const std::vector<system::Message>& messages_;
  std::optional<std::vector<removal::Kept>> named_;
};

// In UTF-8: how many projects are left out, and each with its reason; nothing where there is none.
void print_left_out(std::ostream& output, const work::WorkInHand& work);

// How a search for a file has ended.
struct SearchOutcome {
  bool Hallado = false;
  std::string ArchivoActual;
  std::string TextDecode;  // what the strip says
};

// In UTF-8: the strip's words to read, or one JSON object.
void print_search(std::ostream& output, const SearchOutcome& outcome, const ui::ListBox& hits,
                  bool json);

}  // namespace ordelan::app
