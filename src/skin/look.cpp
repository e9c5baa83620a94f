#include "skin/look.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <utility>

#include "skin/look_sound.h"
#include "skin/palette.h"

namespace ordelan::skin {
namespace {

constexpr std::pair<std::string_view, std::uint32_t> kColors[] = {
    {"Ground", kGround},
    {"Header", kHeader},
    {"Surface", kSurface},
    {"Raised", kRaised},
    {"RaisedOver", kRaisedOver},
    {"RaisedDown", kRaisedDown},
    {"Line", kLine},
    {"Text", kText},
    {"TextOver", kTextOver},
    {"TextDim", kTextDim},
    {"TextOff", kTextOff},
    {"Accent", kAccent},
    {"AccentDark", kAccentDark},
    {"Danger", kDanger},
    {"Step1", kStep1},
    {"Step2", kStep2},
    {"Step3", kStep3},
    {"Step4", kStep4},
    {"Mask", kMask},
    {"RedMask", kRedMask},
    {"BlueMask", kBlueMask},
    {"WhiteMask", kWhiteMask},
};

std::string color_text(std::string_view name) {
  for (const auto& [known, word] : kColors) {
    if (known != name) continue;
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%06X", static_cast<unsigned>(word));
    return text.data();
  }
  return "$" + std::string(name);
}

std::string line_of(std::string_view line) {
  const std::size_t mark = line.find('=');
  if (mark == std::string_view::npos) return std::string(line);
  const std::string_view name = line.substr(0, mark);
  const std::string value(line.substr(mark + 1));
  if (name == "Icon") {
    return "Style=1\nPictureNormal=" + value + "\nPictureOver=" + value +
           "_over\nPictureDown=" + value + "_down\nPictureDisabled=" + value + "_off";
  }
  if (!value.starts_with('$')) return std::string(line);
  return std::string(name) + "=" + color_text(std::string_view(value).substr(1));
}

}  // namespace

std::string all_looks() {
  return bags_of(kLook) + bags_of(kSoundLook);
}

std::string bags_of(std::string_view look) {
  std::string text;
  while (!look.empty()) {
    const std::size_t end = look.find('\n');
    text += line_of(look.substr(0, end)) + "\n";
    look.remove_prefix(end == std::string_view::npos ? look.size() : end + 1);
  }
  return text;
}

}  // namespace ordelan::skin
