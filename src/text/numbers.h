// Numbers as the program writes them: with the system's decimal mark, and never more digits than
// they have.
#pragma once

#include <string>
#include <string_view>

namespace ordelan::text {

// The shortest form of a number, at most 15 digits, with `decimal_mark` where a fraction follows.
std::string number(double value, char decimal_mark);

// A number with exactly `decimals` digits after the decimal mark.
std::string fixed(double value, int decimals, char decimal_mark);

// The number that a text begins with, leading blanks skipped; 0 when it begins with none.
double parse_number(std::string_view text, char decimal_mark);

// An elapsed time: up to 59 seconds "12,34 seg", above that "3 min 7 seg" of the whole seconds.
std::string elapsed(double seconds, char decimal_mark);

// A size in bytes as "12,00 bytes", "1,50 KB", "1,50 MB" or "1,50 GB".
std::string format_size(double bytes, char decimal_mark);

}  // namespace ordelan::text
