// Windows that other rooms close or ask for by name alone: their own rooms lie above, or nothing
// more of them is needed.
#pragma once

namespace ordelan::work::window_name {

inline constexpr const char* kPlayer = "Player";
inline constexpr const char* kSA = "SA";
inline constexpr const char* kZoom = "Zoom";
inline constexpr const char* kListasZoom = "ListasZoom";

}  // namespace ordelan::work::window_name
