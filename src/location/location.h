// The search for files as the main window uses it: its windows are in the directory.
#pragma once

#include <functional>
#include <string>

#include "location/lost_files.h"
#include "location/search_window.h"
#include "project/left_out.h"
#include "project/vip_reader.h"
#include "work/context.h"

namespace ordelan::location {

// What the searches tell the main window.
struct Listener {
  std::function<void()> cmdReset_Click;       // a cancelled search empties the window
  std::function<void(int)> on_drives_chosen;  // how many drives the user has left ticked
  HitListener hits;
};

class Location {
 public:
  // Adds the windows of this room to the directory. The arguments must outlive them.
  Location(const work::Context& context, project::VipReader& reader, project::LeftOut& left_out,
           const Listener& listener);
  Location(const Location&) = delete;
  Location& operator=(const Location&) = delete;

  // Makes the boxes of the drives, ticked as they were left, and gives how many are ticked.
  int UnidadesDisponibles();

  // Adds the valid projects in `folder` and below to ListProyectos, and their bare paths to List1;
  // the first project of a drop empties both lists before. Whether there is any. A stop leaves what
  // was found so far.
  bool BuscarVips(const std::string& folder, work::Job& job);

  // Whether the report of lost files holds a row.
  bool has_report();

  LostFiles lost_files;

 private:
  work::Context context_;
};

}  // namespace ordelan::location
