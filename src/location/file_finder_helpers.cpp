// The helpers of the file finder: small questions about paths, files and drives.
#include "location/file_finder.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace ordelan::location {
namespace {

std::string root_of(std::string_view drive) {
  std::string root(drive);
  if (root.size() == 1) root += ':';
  return system::with_backslash(root);
}

const char* name_of(system::DriveType type) {
  switch (type) {
    case system::DriveType::no_root_dir:
      return "DRIVE_NO_ROOT_DIR";
    case system::DriveType::removable:
      return "DRIVE_REMOVABLE";
    case system::DriveType::fixed:
      return "DRIVE_FIXED";
    case system::DriveType::remote:
      return "DRIVE_REMOTE";
    case system::DriveType::cdrom:
      return "DRIVE_CDROM";
    case system::DriveType::ramdisk:
      return "DRIVE_RAMDISK";
    case system::DriveType::unknown:
      break;
  }
  return "DRIVE_UNKNOWN";
}

}  // namespace

std::string cFindFiles::GetFileName(std::string_view Path) {
  return text::Obtener_Nombre_Archivo(Path);
}

std::string cFindFiles::GetExtension(std::string_view Path) {
  return text::Obtener_Extension(Path);
}

std::string cFindFiles::GetDriveFromPath(std::string_view Path) {
  return text::root(Path);
}

std::string cFindFiles::CompactPath(std::string_view Path, std::size_t Length) {
  return text::compact_path(Path, Length);
}

bool cFindFiles::IsDirectory(std::string_view Path) const {
  const auto found = platform_.files.info(Path);
  return found && found->folder;
}

bool cFindFiles::FileExist(std::string_view Path) const {
  return platform_.files.info(Path).has_value();
}

bool cFindFiles::DriveIsReady(std::string_view Drive) const {
  return GetDriveInfo(Drive).has_value();
}

std::string cFindFiles::GetDriveType(std::string_view Drive) const {
  return name_of(platform_.drives.type(root_of(Drive)));
}

std::optional<system::Volume> cFindFiles::GetDriveInfo(std::string_view Drive) const {
  return platform_.drives.volume(root_of(Drive));
}

std::optional<system::DiskSpace> cFindFiles::GetDiskFreeSpace(std::string_view Drive) const {
  return platform_.drives.space(root_of(Drive));
}

std::string cFindFiles::GetFormatSize(double Size) const {
  return text::format_size(Size, platform_.regional.decimal_mark());
}

std::optional<cFindFiles::FileDates> cFindFiles::GetFileDateTime(std::string_view Path) const {
  const auto found = platform_.files.info(Path);
  if (!found) return std::nullopt;
  return FileDates{found->created, found->modified, found->accessed};
}

std::string cFindFiles::GetFileType(const std::string& Path) const {
  return platform_.shell.file_type(Path);
}

std::string cFindFiles::GetExecutable(const std::string& Path) const {
  return platform_.shell.executable(Path);
}

std::optional<system::Pixels> cFindFiles::LoadIcon(const std::string& Path) const {
  return platform_.shell.icon(Path);
}

void cFindFiles::DrawIcon(const system::Pixels& Icon, ui::Image& Target) {
  Target.set_pixels(Icon.width, Icon.height, Icon.argb);
}

std::string cFindFiles::BrowseForFolder(const std::string& Title) const {
  return platform_.dialogs.pick_folder(Title);
}

std::vector<std::string> cFindFiles::pvGetDrives() const {
  return platform_.drives.roots();
}

}  // namespace ordelan::location
