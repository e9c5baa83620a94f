// The drives in Ordelan's settings. Without a ticked one the program starts with a warning.
#pragma once

#include <string>
#include <vector>

namespace ordelan::test {

// The roots of the drives that have a box, as the system lists them: fixed and removable ones, but
// not the floppy's letter.
std::vector<std::string> boxed_drives();

// The caption of a drive's box, which is also its key in the settings: "Unidad: D:\" and the label
// of what is in the drive.
std::string drive_caption(const std::string& root);

// Writes the program's settings anew: the drives with these letters are ticked. `more` are further
// lines.
void write_settings(const std::string& letters, const std::string& more = "");

// Takes the settings away; their folder exists afterwards.
void remove_settings();

bool settings_written();

// The lines of the settings' file; none if there is no file.
std::vector<std::string> settings_lines();

}  // namespace ordelan::test
