// Three projects of a folder whose files have moved, and what an update has made of each.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/update_bench.h"

namespace ordelan::test {

struct UpdateSafety : ::testing::Test, UpdateBench {
  using Call = FaultyFiles::Call;

  // Three projects, each with a file that has moved.
  void three() {
    for (const std::string name : {"a", "b", "c"}) {
      project_at("Mix\\" + name + ".vip", {"D:\\Viejo\\" + name + ".wav"});
      audio("Nuevo\\" + name + ".wav");
      before[name] = bytes("Mix\\" + name + ".vip");
    }
    start();
    open("Mix\\a.vip");
    ASSERT_THAT(form.lists.ListProyectos.rows(), ::testing::SizeIs(3));
  }
  bool is_old(const std::string& name) { return bytes("Mix\\" + name + ".vip") == before[name]; }
  bool is_new(const std::string& name) {
    return paths_in("Mix\\" + name + ".vip") ==
           std::vector<std::string>{disk.path("Nuevo\\" + name + ".wav")};
  }
  std::string reason(const std::string& name) {
    for (const auto& project : updated()) {
      if (project.ruta == disk.path("Mix\\" + name + ".vip")) return project.motivo;
    }
    return "<not come to>";
  }
  std::string report() { return bytes("Mix\\Originales\\Actualizacion.log"); }

  std::map<std::string, std::string> before;
};

}  // namespace ordelan::test
