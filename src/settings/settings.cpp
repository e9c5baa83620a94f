#include "settings/settings.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <span>

#include "settings/ini_text.h"
#include "settings/wide_text.h"
#include "system/whole_file.h"
#include "text/code_page.h"
#include "text/numbers.h"

namespace ordelan::settings {
namespace {

constexpr std::size_t kLongestValue = 255;
constexpr std::uint64_t kLargestFile = std::uint64_t{256} << 20;  // anything larger is not ours

int whole(double value) {
  constexpr double kFarthest = 1e6;  // no screen is that wide
  return static_cast<int>(std::lround(std::clamp(value, -kFarthest, kFarthest)));
}

}  // namespace

std::string Settings::load(std::string_view path) const {
  std::string bytes;
  const auto file = files_.open(path);
  if (!file || file->size() > kLargestFile) return bytes;
  bytes.resize(static_cast<std::size_t>(file->size()));
  auto* data = reinterpret_cast<std::uint8_t*>(bytes.data());
  bytes.resize(file->read(0, std::span(data, bytes.size())).value_or(0));
  return bytes;
}

std::string Settings::LeerIni(std::string_view Ruta, std::string_view Clave,
                              std::string_view PorDefecto) const {
  try {
    const std::string bytes = load(Ruta);
    auto found = is_wide(bytes)
                     ? ini_value(utf8_of_wide(bytes), SeccionConfig, text::to_utf8(Clave))
                     : ini_value(bytes, SeccionConfig, Clave);
    if (found && is_wide(bytes)) found = text::from_utf8(*found);
    std::string value(found ? *found : PorDefecto);
    value.resize(std::min(value.size(), kLongestValue));
    return value;
  } catch (const std::bad_alloc&) {
    return std::string(PorDefecto);  // a file too large to be ours
  }
}

void Settings::GrabarIni(std::string_view Ruta, std::string_view Clave, std::string_view Valor) {
  try {
    const std::string old = load(Ruta);
    // A file that is there but cannot be read must not be written over.
    if (old.empty()) {
      const auto there = files_.info(Ruta);
      if (there && there->size > 0) return;
    }
    const std::string changed =
        is_wide(old) ? wide_of_utf8(with_ini_value(utf8_of_wide(old), SeccionConfig,
                                                   text::to_utf8(Clave), text::to_utf8(Valor)))
                     : with_ini_value(old, SeccionConfig, Clave, Valor);

    system::write_whole(files_, std::string(Ruta), changed);
  } catch (const std::bad_alloc&) {
    // As any other failure of writing.
  }
}

double Settings::number(std::string_view key, double fallback) const {
  const std::string value = LeerIni(RutaConfig, key, "");
  const bool starts_like_one = !value.empty() &&
                               value.find_first_of("0123456789") != std::string::npos &&
                               value.find_first_not_of("0123456789+-.,Ee ") == std::string::npos;
  if (!starts_like_one) return fallback;
  return text::parse_number(value, regional_.decimal_mark());
}

void Settings::set_number(std::string_view key, double value) {
  GrabarIni(RutaConfig, key, text::number(value, regional_.decimal_mark()));
}

void Settings::read(ui::CheckBox& box) const {
  box.set_checked(number(box.caption(), box.checked() ? 1 : 0) != 0);
}

void Settings::write(const ui::CheckBox& box) {
  GrabarIni(RutaConfig, box.caption(), box.checked() ? "1" : "0");
}

void Settings::read_position(ui::Window& window, const std::string& name,
                             ui::Point fallback) const {
  window.set_position(
      {whole(number(name + "_Left", fallback.x)), whole(number(name + "_Top", fallback.y))});
}

void Settings::write_position(const ui::Window& window, const std::string& name) {
  set_number(name + "_Left", window.position().x);
  set_number(name + "_Top", window.position().y);
}

}  // namespace ordelan::settings
