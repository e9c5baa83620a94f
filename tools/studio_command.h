// The command line of the maker of sample studios.
#pragma once

#include <iosfwd>

namespace ordelan::studio {

// Makes the studio that the arguments ask for and writes a short summary to `out`; what goes wrong
// is one line on `err`. Gives the exit code: 0, 1 when the disk or an encoder fails, 2 when the
// arguments or the folder will not do (nothing has been changed then).
int run_studio_command(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

}  // namespace ordelan::studio
