#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/fuzz_input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(data, data + size);
  const std::string complaint = ordelan::test::check_waveform(input);
  if (!complaint.empty()) {
    std::cerr << "fuzz_waveform: " << complaint << "\n";
    std::abort();
  }
  return 0;
}
