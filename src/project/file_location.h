// What the main window asks of the floor above it, where files are searched and lost ones reported.
#pragma once

#include <string>

#include "project/folder_tree.h"

namespace ordelan::project {

class FileLocation {
 public:
  virtual ~FileLocation() = default;

  // Makes the boxes of the drives, ticked as they were left, and gives how many are ticked.
  virtual int UnidadesDisponibles() = 0;

  // Adds the valid projects in `folder` and below to ListProyectos, and their bare paths to List1;
  // the first project of a drop empties both lists before. Whether there is any. A stop leaves what
  // was found so far.
  virtual bool BuscarVips(const std::string& folder) = 0;

  // Works out which used files are lost, and shows cmdPerdidos if any is. Folders that `listed`
  // knows are not asked again.
  virtual void LlenarPerdidos(FolderTree& listed) = 0;
  // Shows the report, or puts it away.
  virtual void cmdPerdidos_Click() = 0;
  // Whether the report holds a row.
  virtual bool has_report() = 0;
};

}  // namespace ordelan::project
