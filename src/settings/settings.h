// The settings of all windows, in one INI file. Every value is text; the reader converts it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "system/file_system.h"
#include "system/regional.h"

namespace ordelan::settings {

// The file is the same for every copy of the program, wherever it was installed.
inline constexpr const char* kConfigFile = "C:\\QZT\\Ordelan\\Config.ini";

class Settings {
 public:
  // The arguments must outlive the settings. The file's folder is not made here: without it,
  // settings are not kept.
  Settings(system::FileSystem& files, system::Regional& regional,
           std::string config_file = kConfigFile)
      : RutaConfig(std::move(config_file)), files_(files), regional_(regional) {}

  const std::string RutaConfig;
  const std::string SeccionConfig = "Settings";

  // Keeps this object from ever writing: `GrabarIni`, and all that is written by way of it, does
  // nothing from now on. Reading still works.
  void set_read_only() { read_only_ = true; }

  // The value of a key, at most 255 characters of it; `PorDefecto` when there is none.
  std::string LeerIni(std::string_view Ruta, std::string_view Clave,
                      std::string_view PorDefecto) const;

  // Sets the value of a key. The file keeps its encoding (code page, UTF-8 or UTF-16 with a mark).
  // An unchanged value is not written again. A failure is quiet: the file is then as
  // it was.
  void GrabarIni(std::string_view Ruta, std::string_view Clave, std::string_view Valor);

  // A number under a key. The default stands in for a missing key and for text that is no number.
  double number(std::string_view key, double fallback) const;
  void set_number(std::string_view key, double value);

 private:
  std::string load(std::string_view path) const;

  system::FileSystem& files_;
  system::Regional& regional_;
  bool read_only_ = false;
};

}  // namespace ordelan::settings
