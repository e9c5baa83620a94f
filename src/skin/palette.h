// The colours of the windows: dark and quiet, with one accent. The pictures are drawn in them too.
#pragma once

#include <cstdint>

namespace ordelan::skin {

// From the usual 0xRRGGBB to the colour word 0xBBGGRR that controls take.
constexpr std::uint32_t word(std::uint32_t rgb) {
  return ((rgb & 0xFF) << 16) | (rgb & 0xFF00) | (rgb >> 16);
}

// The build reads these lines as well: each is a name and a colour, and nothing else.

// What everything stands on.
inline constexpr std::uint32_t kGround = word(0x1E2126);
inline constexpr std::uint32_t kHeader = word(0x252930);   // the band at a window's top
inline constexpr std::uint32_t kSurface = word(0x262A31);  // lists and text boxes
inline constexpr std::uint32_t kRaised = word(0x333943);   // buttons
inline constexpr std::uint32_t kRaisedOver = word(0x3F4753);
inline constexpr std::uint32_t kRaisedDown = word(0x2A2F37);
inline constexpr std::uint32_t kLine = word(0x454D59);

inline constexpr std::uint32_t kText = word(0xE8EBEF);
inline constexpr std::uint32_t kTextOver = word(0xFEFEFE);  // pure white would be a hole
inline constexpr std::uint32_t kTextDim = word(0xAEB6C2);
inline constexpr std::uint32_t kTextOff = word(0x8B94A1);  // what cannot be used now

inline constexpr std::uint32_t kAccent = word(0x4CC2A0);
inline constexpr std::uint32_t kAccentDark = word(0x1F5F54);  // selected rows
inline constexpr std::uint32_t kDanger = word(0xE8868A);

// The four steps: the projects, what the open one uses, what all use, what none uses.
inline constexpr std::uint32_t kStep1 = word(0x7DA7D9);
inline constexpr std::uint32_t kStep2 = word(0x4CC2A0);
inline constexpr std::uint32_t kStep3 = word(0xB79AD6);
inline constexpr std::uint32_t kStep4 = word(0xE0A572);

// In the picture of a window's ground: what is not the window. Nothing else may have these colours:
// it would be a hole in such a window.
inline constexpr std::uint32_t kMask = word(0xFF00FF);
inline constexpr std::uint32_t kRedMask = word(0xFF0000);    // of the protected folders
inline constexpr std::uint32_t kBlueMask = word(0x0000FF);   // of the player
inline constexpr std::uint32_t kWhiteMask = word(0xFFFFFF);  // of the spectrum

}  // namespace ordelan::skin
