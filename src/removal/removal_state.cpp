#include "removal/removal_state.h"

#include "location/drive_window.h"
#include "location/lost_file_window.h"
#include "work/window_names.h"

namespace ordelan::removal {

namespace window_name = work::window_name;

void close_other_windows(const work::Context& context) {
  for (const char* const name :
       {window_name::kZoom, window_name::kListasZoom, "Recuperar", location::Perdidos::kName,
        window_name::kPlayer, window_name::kSA, location::UnidadesBuscar::kName}) {
    if (context.windows.visible(name)) context.windows.close(name);
  }
}

}  // namespace ordelan::removal
