// This floor as the main window sees it: its windows, in the directory, and what it asks of them.
#pragma once

#include <string>

#include "location/context.h"
#include "location/lost_files.h"
#include "project/file_location.h"

namespace ordelan::location {

class Location final : public project::FileLocation {
 public:
  // Tells the directory how the windows of this floor are made. `version` is the program's.
  Location(const Context& context, const std::string& version);
  Location(const Location&) = delete;
  Location& operator=(const Location&) = delete;

  int UnidadesDisponibles() override;
  bool BuscarVips(const std::string& folder) override;
  void LlenarPerdidos(project::FolderTree& listed) override { lost_files.LlenarPerdidos(listed); }
  void cmdPerdidos_Click() override { lost_files.cmdPerdidos_Click(); }
  bool has_report() override;

  LostFiles lost_files;

 private:
  Context context_;
};

}  // namespace ordelan::location
