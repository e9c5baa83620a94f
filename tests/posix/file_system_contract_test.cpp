// The file system of Linux keeps to what every one keeps to.
#include "system/file_system_contract.h"

#include <sys/stat.h>

#include <filesystem>

#include "posix/native_folder.h"
#include "system/file_change_contract.h"
#include "text/code_page.h"

namespace ordelan::test {
namespace {

class PosixPlace {
 public:
  PosixPlace() { mapped_.disk.folder("lugar"); }

  system::FileSystem& files() { return mapped_.files; }
  std::string folder() { return "D:\\lugar"; }
  void make_folder(std::string_view path) { mapped_.disk.folder(native(path)); }
  void write(std::string_view path, std::string_view bytes) {
    mapped_.disk.file(native(path), std::string(bytes));
  }
  void truncate(std::string_view path) { write(path, ""); }
  void make_read_only(std::string_view path) {
    ASSERT_EQ(::chmod((mapped_.disk / native(path)).c_str(), 0444), 0);
  }
  bool link(std::string_view link, std::string_view to) {
    mapped_.disk.link(native(link), mapped_.disk / native(to));
    return true;
  }
  bool add_name(std::string_view name, std::string_view to) {
    std::filesystem::create_hard_link(mapped_.disk / native(to), mapped_.disk / native(name));
    return true;
  }
  void write_unnameable() { mapped_.disk.file("lugar/\xD0\x96\xE6\xBC\xA2.wav"); }

 private:
  // The name below the mapped folder.
  static std::string native(std::string_view path) {
    std::string name = text::to_utf8(path.substr(std::string_view("D:\\").size()));
    for (char& c : name) {
      if (c == '\\') c = '/';
    }
    return name;
  }

  MappedFolder mapped_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FileSystemContract, PosixPlace);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, FileChangeContract, PosixPlace);

}  // namespace
}  // namespace ordelan::test
