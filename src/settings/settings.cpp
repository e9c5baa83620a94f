#include "settings/settings.h"

#include <algorithm>
#include <new>
#include <span>

#include "settings/ini_encoding.h"
#include "settings/ini_text.h"
#include "system/whole_file.h"
#include "text/code_page.h"
#include "text/numbers.h"

namespace ordelan::settings {
namespace {

constexpr std::size_t kLongestValue = 255;
constexpr std::uint64_t kLargestFile = std::uint64_t{256} << 20;  // anything larger is not ours

// What the bytes of a text taken from a file of that encoding mean.
TextCode code_of(IniEncoding encoding) {
  return encoding == IniEncoding::code_page ? TextCode::code_page : TextCode::utf8;
}

// The program's code-page text in such a code.
std::string in_code(std::string_view text, TextCode code) {
  return code == TextCode::utf8 ? text::to_utf8(text) : std::string(text);
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
    const IniEncoding encoding = encoding_of(bytes);
    const TextCode code = code_of(encoding);
    auto found = ini_value(ini_text(bytes, encoding), SeccionConfig, in_code(Clave, code), code);
    if (found && code == TextCode::utf8) found = text::from_utf8(*found);
    std::string value(found ? *found : PorDefecto);
    value.resize(std::min(value.size(), kLongestValue));
    return value;
  } catch (const std::bad_alloc&) {
    return std::string(PorDefecto);  // a file too large to be ours
  }
}

void Settings::GrabarIni(std::string_view Ruta, std::string_view Clave, std::string_view Valor) {
  if (read_only_) return;
  try {
    const std::string old = load(Ruta);
    // A file that exists but cannot be read must not be written over.
    if (old.empty()) {
      const auto found = files_.info(Ruta);
      if (found && found->size > 0) return;
    }
    const IniEncoding encoding = encoding_of(old);
    const TextCode code = code_of(encoding);
    const std::string text = ini_text(old, encoding);
    const std::string changed =
        with_ini_value(text, SeccionConfig, in_code(Clave, code), in_code(Valor, code), code);
    if (changed == text) return;  // the value is the same already
    system::write_whole(files_, std::string(Ruta), ini_bytes(changed, encoding)).ignore();
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

}  // namespace ordelan::settings
