#include "app/program.h"

namespace ordelan::app {

Program::Program(ui::Backend& backend, const system::Platform& platform,
                 settings::Settings& settings)
    : form(backend, platform, work, windows, settings) {}

// The other windows work with pieces of the main one: they go first.
Program::~Program() {
  windows.close_all();
  windows.free_closed();
}

}  // namespace ordelan::app
