#include "settings/reports.h"

#include "system/whole_file.h"

namespace ordelan::settings {
namespace {

constexpr const char* kLineEnd = "\r\n";

bool is_title(const std::string& row) {
  return row.find('>') != std::string::npos;
}

}  // namespace

bool SalvarListados(system::FileSystem& files, system::Regional& regional,
                    const std::string& Archivo, const std::vector<std::string>& Lista,
                    const std::string& Texto1, const std::string& Texto2) {
  if (Archivo.empty()) return false;
  const std::string rule = std::string(66, '-') + kLineEnd;
  std::string report = "Fecha: " + regional.short_date() + "    Hora: " + regional.short_time();
  report += kLineEnd;
  report += std::string(" ") + kLineEnd + Texto1 + kLineEnd + Texto2 + kLineEnd;
  report += rule + " " + kLineEnd;
  for (std::size_t r = 0; r < Lista.size(); ++r) {
    report += Lista[r] + kLineEnd;
    if (r + 1 < Lista.size() && is_title(Lista[r + 1])) report += rule;
    if (is_title(Lista[r])) report += std::string(" ") + kLineEnd;
  }

  return system::write_whole(files, Archivo, report).ok();
}

bool SalvarLog(system::FileSystem& files, const std::string& Archivo,
               const std::vector<std::string>& Lista) {
  if (Archivo.empty()) return false;
  std::string lines;
  for (const std::string& row : Lista) lines.append(row).append(kLineEnd);
  return system::write_whole(files, Archivo, lines).ok();
}

}  // namespace ordelan::settings
