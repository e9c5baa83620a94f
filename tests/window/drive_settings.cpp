#include "window/drive_settings.h"

#include <windows.h>

#include <filesystem>
#include <fstream>

#include "wide_text.h"

namespace ordelan::test {
namespace {

const std::filesystem::path kFolder = L"C:\\QZT\\Ordelan";
const std::filesystem::path kFile = kFolder / L"Config.ini";

}  // namespace

std::vector<std::string> boxed_drives() {
  std::vector<std::string> roots;
  const DWORD present = GetLogicalDrives();
  for (char letter = 'B'; letter <= 'Z'; ++letter) {
    if ((present >> (letter - 'A') & 1u) == 0) continue;
    const std::string root = std::string(1, letter) + ":\\";
    const UINT type = GetDriveTypeW(wide(root).c_str());
    if (type == DRIVE_FIXED || type == DRIVE_REMOVABLE) roots.push_back(root);
  }
  return roots;
}

std::string drive_caption(const std::string& root) {
  const DWORD mode = SetErrorMode(SEM_FAILCRITICALERRORS);
  wchar_t label[MAX_PATH + 1] = {};
  GetVolumeInformationW(wide(root).c_str(), label, MAX_PATH + 1, nullptr, nullptr, nullptr, nullptr,
                        0);
  SetErrorMode(mode);
  return "Unidad: " + root + bytes(label);
}

void write_settings(const std::string& letters, const std::string& more) {
  std::filesystem::create_directories(kFolder);
  std::ofstream file(kFile, std::ios::binary);
  file << "[Settings]\r\n" << more;
  for (const char letter : letters) {
    file << drive_caption(std::string(1, letter) + ":\\") << "=1\r\n";
  }
}

void remove_settings() {
  std::filesystem::create_directories(kFolder);
  std::filesystem::remove(kFile);
}

bool settings_written() {
  return std::filesystem::exists(kFile);
}

std::vector<std::string> settings_lines() {
  std::ifstream file(kFile, std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

}  // namespace ordelan::test
