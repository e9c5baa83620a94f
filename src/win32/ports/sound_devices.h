// The devices that the system's graphs can play on.
#pragma once

#include <windows.h>

#include <dshow.h>

#include <string>
#include <vector>

#include "system/media.h"
#include "win32/com_ptr.h"

namespace ordelan::win32 {

// Those of DirectSound without the default one, in the system's order; a device whose name the code
// page cannot hold is left out. None where the system does not let a graph choose. The calling
// thread must have set up the system's objects.
std::vector<system::SoundDevice> sound_devices();

// A filter that plays on that device; null where it is missing. On a thread as above.
ComPtr<IBaseFilter> renderer_on(const std::string& id);

}  // namespace ordelan::win32
