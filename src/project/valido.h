// The gate of every project listing.
#pragma once

#include <string>

#include "project/vip_reader.h"
#include "system/file_system.h"

namespace ordelan::project {

class Validator {
 public:
  Validator(system::FileSystem& files, VipReader& reader, ui::ListBox& scratch)
      : files_(files), reader_(reader), scratch_(scratch) {}

  // Whether a project is to be listed: it is there, is not in a folder of frozen tracks, and uses
  // at least one audio file.
  bool Valido(const std::string& Ruta);

 private:
  system::FileSystem& files_;
  VipReader& reader_;
  ui::ListBox& scratch_;  // handed to the reader, which adds nothing to it
};

}  // namespace ordelan::project
