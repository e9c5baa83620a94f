#include "audio/media_facts.h"

#include <cmath>
#include <optional>
#include <string>

#include "audio/details.h"

namespace ordelan::audio {
namespace {

int kilobits(double bits_a_second) {
  constexpr double kMost = 1e9;
  return bits_a_second > 0 && bits_a_second < kMost
             ? static_cast<int>(std::lround(bits_a_second / 1000))
             : 0;
}

double duration_of(system::FileSystem& files, const std::string& path) {
  return read_details(files, path).duracion.value_or(0);
}

std::string title_of(system::FileSystem& files, const std::string& path) {
  const Detalles details = read_details(files, path);
  for (const auto& [name, text] : details.etiquetas) {
    if (name == "title") return text;
  }
  return "";
}

int kilobits_of(system::FileSystem& files, const std::string& path, double seconds) {
  if (const auto rate = read_details(files, path).velocidad) {
    return kilobits(static_cast<double>(*rate));
  }
  const auto file = files.open(path);
  return file && seconds > 0 ? kilobits(static_cast<double>(file->size()) * 8 / seconds) : 0;
}

}  // namespace

system::MediaFacts media_facts(system::FileSystem& files) {
  return {.duration_of = [&files](const std::string& path) { return duration_of(files, path); },
          .title_of = [&files](const std::string& path) { return title_of(files, path); },
          .kilobits_of = [&files](const std::string& path,
                                  double seconds) { return kilobits_of(files, path, seconds); }};
}

}  // namespace ordelan::audio
