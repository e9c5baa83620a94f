// Which of the files that the projects use are not where the projects say.
#pragma once

#include <string>
#include <vector>

#include "location/context.h"
#include "location/lost_file_list.h"

namespace ordelan::location {

class LostFiles {
 public:
  explicit LostFiles(const Context& context) : context_(context) {}

  // Fills ListPerdidos with the title of every project of ListUtilizados and, under it, its files
  // that are not on the disk: each lost file once, under the first project that uses it. Shows
  // cmdPerdidos if the list has two rows or more. A cancel leaves the list as far as it got; a
  // reset leaves it empty.
  void LlenarPerdidos();

  // Whether any used file is missing, as quickly as that can be said.
  bool HayPerdidos();

  // Shows the report with its window at its remembered place, or hides it and remembers the place.
  // Does nothing while a removal runs.
  void cmdPerdidos_Click();

  // Puts the report into a list, and its number of rows beside it.
  void show_in(LostFileList& target) const;

  // The report's rows, kept while its window comes and goes.
  const std::vector<std::string>& TextoPerdidos() const { return TextoPerdidos_; }

 private:
  bool is_lost(const std::string& row) const;
  std::vector<std::string> collect() const;
  static void strike_out_repeats(std::vector<std::string>& rows);

  Context context_;
  std::vector<std::string> TextoPerdidos_;
};

}  // namespace ordelan::location
