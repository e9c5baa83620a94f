#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <iostream>

#include "relink/hostile_pointers.h"
#include "relink/pointer_agreement.h"

namespace ordelan::test {
namespace {

// How many inputs are tried in all, half of them by each of the two tests; a long run sets the
// variable.
std::uint64_t half_of_the_inputs() {
  const char* wished = std::getenv("ORDELAN_POINTER_INPUTS");
  return (wished == nullptr ? 200'000 : std::strtoull(wished, nullptr, 10)) / 2;
}

std::string readable_bytes(std::string_view bytes) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string shown;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7F) {
      shown += c;
    } else {
      shown += std::string("<") + kDigits[byte >> 4] + kDigits[byte & 15] + ">";
    }
  }
  return shown;
}

class Report {
 public:
  ~Report() {
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin_;
    std::cout << inputs << " inputs, " << worth << " of them with " << what << ", " << time.count()
              << " s\n";
  }
  explicit Report(std::string_view of) : what(of) {}
  std::string_view what;
  std::uint64_t inputs = 0;
  std::uint64_t worth = 0;

 private:
  std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

TEST(PointerHostile, the_walk_prints_the_numbers_of_the_literal_one_in_chunks_of_any_size) {
  Report report("numbers");
  Dice dice(11);
  const std::uint64_t inputs = half_of_the_inputs();
  for (; report.inputs < inputs; ++report.inputs) {
    const std::string file = hostile_pointer_project(dice);
    const std::size_t chunk = dice.below(4) == 0 ? 1 << 16 : 2 + dice.below(14);
    std::size_t printed = 0;
    const std::string difference = compare_walk(file, chunk, printed);
    ASSERT_EQ(difference, "") << "input " << report.inputs << ", chunks of " << chunk << ": "
                              << readable_bytes(file);
    if (printed > 0) ++report.worth;
  }
  // The files must be worth comparing.
  EXPECT_GT(report.worth * 2, inputs);
}

TEST(PointerHostile, the_patch_leaves_the_bytes_of_the_literal_one_for_pairs_of_any_kind) {
  static constexpr std::array<std::string_view, 4> kFolders = {
      "D:\\Mix\\", "C:\\", "D:\\Proyectos\\Tema largo\\Mezclas de junio\\", ""};
  Report report("patched paths");
  Dice dice(12);
  const std::uint64_t inputs = half_of_the_inputs();
  for (; report.inputs < inputs; ++report.inputs) {
    std::string file = hostile_pointer_project(dice);
    std::vector<relink::Pointer> pairs = hostile_pairs(dice, file);
    // The image keeps its bytes in pages of 64 KB: what stands across two of them is rare.
    if (dice.below(512) == 0) {
      const std::size_t before = 65'536 - dice.below(file.size() + 32);
      file.insert(0, before, 'p');
      for (relink::Pointer& pair : pairs) {
        pair.ini += static_cast<std::int32_t>(before);
        pair.fin += static_cast<std::int32_t>(before);
      }
    }
    relink::PatchRules rules;
    rules.letter = "DvLa"[dice.below(4)];
    rules.carpeta = kFolders[dice.below(kFolders.size())];
    rules.careful = dice.below(3) == 0;
    std::size_t patched = 0;
    const std::string difference = compare_patch(file, pairs, rules, dice.next(), patched);
    std::string shown;
    if (!difference.empty()) {
      for (const auto& [ini, fin] : pairs) {
        shown += " " + std::to_string(ini) + "-" + std::to_string(fin);
      }
    }
    ASSERT_EQ(difference, "") << "input " << report.inputs << ", pairs" << shown << ", letter "
                              << rules.letter << ", folder " << rules.carpeta << ", careful "
                              << rules.careful << ": " << readable_bytes(file);
    if (patched > 0) ++report.worth;
  }
  EXPECT_GT(report.worth * 4, inputs);
}

}  // namespace
}  // namespace ordelan::test
