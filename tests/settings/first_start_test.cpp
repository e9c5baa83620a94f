// The first start of the program, before there is any file of settings, and what comes after it.
#include <gmock/gmock.h>

#include <cstdint>
#include <map>
#include <string>

#include "settings/ini_text.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::SizeIs;

struct FirstStart : ::testing::Test, ProgramBench {
  std::map<std::string, bool> boxes_of_form() const {
    std::map<std::string, bool> ticks;
    for (const ui::CheckBox* box : {&form.CheckToolTips, &form.CheckPlayer, &form.CheckSubPath,
                                    &form.CheckBAK, &form.CheckDragDrop, &form.CheckLogo}) {
      ticks[box->caption()] = box->checked();
    }
    return ticks;
  }
  std::string file() {
    const auto opened = disk.files().open(settings.RutaConfig);
    if (!opened) return "no file";
    std::string bytes(static_cast<std::size_t>(opened->size()), '\0');
    opened->read(0, {reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
  }
};

TEST_F(FirstStart, opens_in_the_corner_with_all_boxes_as_designed_and_writes_nothing) {
  const auto designed = boxes_of_form();
  ASSERT_THAT(designed, SizeIs(6)) << "each has its own caption";
  form.set_position({300, 200});
  program.start();
  EXPECT_EQ(form.position(), (ui::Point{0, 0}));
  EXPECT_EQ(boxes_of_form(), designed);
  EXPECT_EQ(boxes().ticked(), 0) << "no drive is ticked";
  EXPECT_FALSE(disk.files().info(settings.RutaConfig));
}

TEST_F(FirstStart, closing_makes_the_file_and_closing_again_adds_nothing) {
  program.start();
  form.set_position({120, 45});
  form.CheckBAK.set_checked(false);
  form.Salir_Click();
  const std::string once = file();
  EXPECT_EQ(settings::ini_value(once, "Settings", "Me_Left"), "120");
  EXPECT_EQ(settings::ini_value(once, "Settings", "Me_Top"), "45");
  EXPECT_EQ(settings::ini_value(once, "Settings", form.CheckBAK.caption()), "0");
  EXPECT_EQ(settings::ini_value(once, "Settings", form.CheckLogo.caption()), "1");
  form.Salir_Click();
  EXPECT_EQ(file(), once);
}

TEST_F(FirstStart, without_the_folder_of_the_file_settings_are_lost_and_no_folder_is_made) {
  settings::Settings lost(disk.files(), regional, disk.path("missing\\Config.ini"));
  lost.GrabarIni(lost.RutaConfig, "Me_Left", "7");
  EXPECT_EQ(lost.LeerIni(lost.RutaConfig, "Me_Left", "1"), "1");
  EXPECT_FALSE(disk.files().info(disk.path("missing")));
}

}  // namespace
}  // namespace ordelan::test
