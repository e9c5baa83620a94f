// The user's mouse and keyboard, as the system gets them from real ones.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace ordelan::test {

enum class MouseButton { left, right };

// Moves the pointer to a place on the screen. Throws when it does not come there.
void move_mouse(POINT place);

// Presses and lets go where the pointer is. A click soon after another at the same place waits
// until the two can no longer be taken for a double click.
void click_mouse(MouseButton button = MouseButton::left);
void double_click_mouse();

// Holds the left button down from one place to another. It starts to move once `held` says that the
// program has taken hold: before that, the system would give the movement to the window below. It
// lets go once `followed` says that what is dragged has arrived, or after a second.
void drag_mouse(POINT from, POINT to, const std::function<bool()>& held,
                const std::function<bool()>& followed);

// Presses a key and lets it go, with other keys held down meanwhile.
void press_key(WORD key, bool control = false, bool shift = false, bool alt = false);

// Types a text into whatever has the focus.
void type_text(const std::wstring& text);

}  // namespace ordelan::test
