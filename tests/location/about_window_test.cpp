#include "location/about_window.h"

#include <gmock/gmock.h>

#include "support/desk.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

struct AboutWindow : ::testing::Test {
  AboutWindow() {
    desk.start();
    desk.form.AcercaDe.on_click();
  }
  location::Acerca& window() { return *desk.windows.touch_as<location::Acerca>("Acerca"); }

  Desk desk;
};

TEST_F(AboutWindow, shows_the_version) {
  EXPECT_TRUE(desk.windows.visible("Acerca"));
  EXPECT_EQ(window().LabelVersion.caption(), "Versión " ORDELAN_VERSION);
}

TEST_F(AboutWindow, opens_the_web_page) {
  window().LabelWeb.on_click();
  EXPECT_THAT(desk.shell.opened, ElementsAre(StartsWith("https://")));
}

TEST_F(AboutWindow, closes_and_forgets_its_place) {
  window().set_position({300, 300});
  window().cmdSalir.on_click();
  EXPECT_EQ(desk.windows.find("Acerca"), nullptr);
  desk.form.AcercaDe.on_click();
  EXPECT_NE(window().position(), (ui::Point{300, 300}));
}

}  // namespace
}  // namespace ordelan::test
