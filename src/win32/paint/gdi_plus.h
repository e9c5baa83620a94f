// GDI+ needs headers that the lean ones leave out, and the names min and max.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <algorithm>

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus

#include <gdiplus.h>

namespace ordelan::win32 {

// Starts GDI+ at the first call, for as long as the program runs: it must outlive everything that
// paints. False when the system has none.
bool gdi_plus_started();

}  // namespace ordelan::win32
