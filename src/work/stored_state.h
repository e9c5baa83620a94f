// What windows and check boxes keep in the settings from one run to the next.
#pragma once

#include <string>

#include "settings/settings.h"
#include "ui/check_box.h"
#include "ui/window.h"

namespace ordelan::work {

// A check box is stored under its caption: the captions are part of the file's format. The box's
// own value is the default, also where the file has another value than 0 or 1.
void read_box(const settings::Settings& settings, ui::CheckBox& box);
void write_box(settings::Settings& settings, const ui::CheckBox& box);

// A window's place is stored under "<key>_Left" and "<key>_Top"; `fallback` is where it stands when
// nothing is stored.
void read_place(const settings::Settings& settings, ui::Window& window, const std::string& key,
                ui::Point fallback);
void write_place(settings::Settings& settings, const ui::Window& window, const std::string& key);

// The size of a window that can be resized, under "<key>_Width" and "<key>_Height". A stored size
// is brought into the limits that the window and any screen have; without one the size stays.
void read_size(const settings::Settings& settings, ui::Window& window, const std::string& key);
void write_size(settings::Settings& settings, const ui::Window& window, const std::string& key);

}  // namespace ordelan::work
