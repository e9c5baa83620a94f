// The texts on wav and mp3 files read byte by byte, as the rules are worded: slow, plain, and what
// the readers of the program are compared with.
#pragma once

#include <string>
#include <string_view>

namespace ordelan::test {

// The text on a wav with these bytes.
std::string literal_wav(std::string_view file);

// The text on an mp3 with these bytes.
std::string literal_mp3(std::string_view file);

}  // namespace ordelan::test
