// The colours of the messages about a run.
#pragma once

#include <cstdint>

#include "ui/geometry.h"

namespace ordelan::removal {

inline constexpr auto kGreen = static_cast<ui::Color>(0x00FF00);
inline constexpr auto kPaleGreen = static_cast<ui::Color>(0x80FF80);
inline constexpr auto kPaleRed = static_cast<ui::Color>(0x8080FF);

}  // namespace ordelan::removal
