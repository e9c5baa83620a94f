#include "main_window/about_window.h"

#include <gmock/gmock.h>

#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

struct AboutWindow : ::testing::Test {
  AboutWindow() {
    bench.start();
    bench.form.AcercaDe.on_click();
  }
  main_window::Acerca& window() { return *bench.windows.touch<main_window::Acerca>(); }

  ProgramBench bench;
};

TEST_F(AboutWindow, shows_the_version) {
  EXPECT_TRUE(bench.windows.visible("Acerca"));
  EXPECT_EQ(window().LabelVersion.caption(), "Versión " ORDELAN_VERSION);
}

TEST_F(AboutWindow, opens_the_web_page) {
  window().LabelWeb.on_click();
  EXPECT_THAT(bench.shell.opened, ElementsAre(StartsWith("https://")));
}

TEST_F(AboutWindow, closes_and_forgets_its_place) {
  window().set_position({300, 300});
  window().cmdSalir.on_click();
  EXPECT_EQ(bench.windows.find("Acerca"), nullptr);
  bench.form.AcercaDe.on_click();
  EXPECT_NE(window().position(), (ui::Point{300, 300}));
}

}  // namespace
}  // namespace ordelan::test
