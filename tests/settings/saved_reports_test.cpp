// The reports on a real disk, saved by the whole program.
#include <gmock/gmock.h>

#include <cstdint>
#include <map>
#include <string>

#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::SizeIs;
using ::testing::StartsWith;

struct ReportsOnDisk : ::testing::Test, ProgramBench {
  // Every file of a folder below the disk's, by its name.
  std::map<std::string, std::string> contents(const std::string& below) {
    std::map<std::string, std::string> found;
    const auto entries = disk.files().list(disk.path(below));
    if (!entries) return found;
    for (const system::FileInfo& entry : *entries) {
      const auto file = disk.files().open(disk.path(below) + entry.name);
      if (!file) continue;
      std::string& bytes = found[entry.name];
      bytes.resize(static_cast<std::size_t>(file->size()));
      file->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    }
    return found;
  }
};

TEST_F(ReportsOnDisk, saved_twice_have_the_same_contents_whatever_stood_there) {
  project("Mix\\a.vip", {"Mix\\usada.wav", "Mix\\perdida.wav"});
  project("Mix\\b.vip", {"Mix\\usada.wav"});
  disk.write("Mix\\usada.wav", "1");
  disk.write("Mix\\antigua.wav", "2");
  start();
  open("Mix\\a.vip");
  form.SalvaListados.on_click();
  const auto once = contents("Mix\\Listados\\");
  ASSERT_THAT(once, SizeIs(4));
  for (const auto& [name, bytes] : once) {
    EXPECT_THAT(bytes, StartsWith("Fecha: 21/11/2026    Hora: 9:05\r\n \r\n")) << name;
    disk.write("Mix\\Listados\\" + name, bytes + "old rows\r\n" + std::string(5000, 'x'));
  }
  EXPECT_EQ(once.at("Archivos a Borrar.log"),
            "Fecha: 21/11/2026    Hora: 9:05\r\n \r\n\r\n"
            "Archivos no utilizados: 1     Duplicados: 0    Total: 1\r\n" +
                std::string(66, '-') + "\r\n \r\n" + disk.path("Mix\\antigua.wav") + "\r\n");
  form.SalvaListados.on_click();
  EXPECT_EQ(contents("Mix\\Listados\\"), once);
  form.SalvaListados.on_click();
  EXPECT_EQ(contents("Mix\\Listados\\"), once);
}

}  // namespace
}  // namespace ordelan::test
