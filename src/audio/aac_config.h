// What the decoder of AAC sound is given in an m4a file.
#pragma once

#include <string_view>

#include "audio/details.h"

namespace ordelan::audio {

// The channels and the rate in the content of a box "esds": descriptors inside of each other, each
// a kind, a length of up to four bytes and fields. Nothing is changed where it has none.
void read_esds(std::string_view box, Detalles& details);

}  // namespace ordelan::audio
