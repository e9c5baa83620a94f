// Which of the files that the projects use are not where the projects say.
#pragma once

#include <string>
#include <vector>

#include "location/lost_file_window.h"
#include "work/context.h"
#include "work/job.h"

namespace ordelan::location {

class LostFiles {
 public:
  explicit LostFiles(const work::Context& context) : context_(context) {}

  // Fills ListPerdidos with the title of every project of ListUtilizados and, under it, its files
  // that are not on the disk: each lost file once, under the first project that uses it. A cancel
  // leaves the list as far as it got; a reset leaves it empty. Folders that
  // `job` has listed are not asked again.
  void LlenarPerdidos(work::Job& job);

  // Whether any used file is missing, as quickly as that can be said.
  bool HayPerdidos() const;

  // Shows the report with its window at its remembered place, or hides it and remembers the place.
  // Does nothing while a removal runs.
  void cmdPerdidos_Click();

  // Puts the report into a list, and its number of rows beside it.
  void show_in(Perdidos& target) const;

  // The report's rows, kept while its window comes and goes.
  const std::vector<std::string>& TextoPerdidos() const { return TextoPerdidos_; }

 private:
  bool is_lost(const std::string& row) const;
  std::vector<std::string> collect(work::Job& job) const;
  static void strike_out_repeats(std::vector<std::string>& rows);

  work::Context context_;
  std::vector<std::string> TextoPerdidos_;
};

}  // namespace ordelan::location
