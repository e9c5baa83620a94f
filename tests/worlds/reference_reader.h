// The reader of project files, byte by byte and step by step.
#pragma once

#include <string>
#include <vector>

#include "worlds/reference_disk.h"

namespace ordelan::test::reference {

class Reader {
 public:
  explicit Reader(const Disk& disk) : disk_(disk) {}

  // Position after the header text of the last project read: a project without such a text is read
  // from the place of the one before it.
  long PosInicioVip = 0;
  int TotalArchivosVip = 0;

  // Adds the title and the references of a project to the list; with `add` false only asks whether
  // it has any. True if a reference was found.
  bool ExtraerNombres_Archivos(const std::string& path, std::vector<std::string>& list,
                               const std::string& title, bool add);

 private:
  bool scan(const std::string& file, long limit, std::vector<std::string>& list, bool add);

  const Disk& disk_;
};

}  // namespace ordelan::test::reference
