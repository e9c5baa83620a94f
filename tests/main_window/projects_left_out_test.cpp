// Projects that are left out, as the main window reports them.
#include <gmock/gmock.h>

#include "main_window/projects_left_out_window.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;

struct LeftOutWindow : ::testing::Test, ProgramBench {
  LeftOutWindow() { start(); }

  void leave_out(const std::string& path, const std::string& reason) {
    work.ProyectosFuera.push_back({path, reason});
    form.show_ProyectosFuera();
  }
  main_window::Fuera* window() { return windows.find<main_window::Fuera>(); }
};

TEST_F(LeftOutWindow, are_not_spoken_of_while_there_are_none) {
  EXPECT_FALSE(form.LabelFuera.visible());
  form.show_ProyectosFuera();
  EXPECT_FALSE(form.LabelFuera.visible());
}

TEST_F(LeftOutWindow, are_counted_in_the_main_window) {
  leave_out("D:\\Mix\\a.vip", "no se puede leer");
  EXPECT_TRUE(form.LabelFuera.visible());
  EXPECT_EQ(form.LabelFuera.caption(), "1 proyectos no cuentan");
  leave_out("D:\\Mix\\b.vip", "vacío");
  EXPECT_EQ(form.LabelFuera.caption(), "2 proyectos no cuentan");
  EXPECT_EQ(window(), nullptr) << "the user did not ask for the list";
}

TEST_F(LeftOutWindow, the_label_covers_no_place_of_another_control) {
  const ui::Rect& own = form.LabelFuera.bounds();
  ASSERT_GT(own.width, 0);
  int compared = 0;
  for (const ui::Control* const each : form.controls()) {
    if (each == &form.LabelFuera) continue;
    const ui::Rect& other = each->bounds();
    const bool apart = own.left + own.width <= other.left || other.left + other.width <= own.left ||
                       own.top + own.height <= other.top || other.top + other.height <= own.top;
    EXPECT_TRUE(apart) << each->name();
    ++compared;
  }
  EXPECT_GT(compared, 40);
}

TEST_F(LeftOutWindow, a_click_lists_them_with_their_reasons) {
  leave_out("D:\\Mix\\a.vip", "no se puede leer");
  leave_out("D:\\Mix\\Año\\b.vip", "vacío");
  form.LabelFuera.on_click();
  ASSERT_NE(window(), nullptr);
  EXPECT_TRUE(window()->visible());
  EXPECT_TRUE(window()->topmost());
  EXPECT_EQ(window()->title(), "Proyectos que no cuentan");
  EXPECT_THAT(window()->ListFuera.rows(),
              ElementsAre("D:\\Mix\\a.vip   (no se puede leer)", "D:\\Mix\\Año\\b.vip   (vacío)"));
  EXPECT_GT(window()->ListFuera.horizontal_extent(), 0);
  EXPECT_EQ(window()->LabelNota.caption(),
            "Lo que usan estos proyectos puede aparecer en la lista 4 como no utilizado.");
}

TEST_F(LeftOutWindow, a_second_click_closes_the_list_and_its_place_is_kept) {
  leave_out("D:\\Mix\\a.vip", "vacío");
  form.LabelFuera.on_click();
  window()->set_position({333, 222});
  form.LabelFuera.on_click();
  EXPECT_EQ(window(), nullptr);
  EXPECT_EQ(settings.number("Fuera_Left", 0), 333);
  EXPECT_EQ(settings.number("Fuera_Top", 0), 222);
  form.LabelFuera.on_click();
  ASSERT_NE(window(), nullptr);
  EXPECT_EQ(window()->position(), (ui::Point{333, 222}));
}

TEST_F(LeftOutWindow, its_buttons_close_and_minimise_the_list) {
  leave_out("D:\\Mix\\a.vip", "vacío");
  form.LabelFuera.on_click();
  window()->Button2.on_click();
  EXPECT_TRUE(window()->minimized());
  window()->Salir.on_click();
  EXPECT_EQ(window(), nullptr);
  form.LabelFuera.on_click();
  window()->cmdSalir.on_click();
  EXPECT_EQ(window(), nullptr);
  form.LabelFuera.on_click();
  window()->on_close();
  EXPECT_EQ(window(), nullptr);
}

TEST_F(LeftOutWindow, the_open_list_follows_the_work) {
  leave_out("D:\\Mix\\a.vip", "vacío");
  form.LabelFuera.on_click();
  leave_out("D:\\Mix\\b.vip", "vacío");
  EXPECT_THAT(window()->ListFuera.rows(),
              ElementsAre("D:\\Mix\\a.vip   (vacío)", "D:\\Mix\\b.vip   (vacío)"));
  work.ProyectosFuera.clear();
  form.show_ProyectosFuera();
  EXPECT_EQ(window(), nullptr);
  EXPECT_FALSE(form.LabelFuera.visible());
}

TEST_F(LeftOutWindow, a_reset_forgets_them_and_closes_the_list) {
  leave_out("D:\\Mix\\a.vip", "vacío");
  form.LabelFuera.on_click();
  form.cmdReset_Click();
  EXPECT_TRUE(work.ProyectosFuera.empty());
  EXPECT_FALSE(form.LabelFuera.visible());
  EXPECT_EQ(window(), nullptr);
}

TEST_F(LeftOutWindow, a_reset_that_is_refused_keeps_them) {
  leave_out("D:\\Mix\\a.vip", "vacío");
  work.Borrando = true;
  form.cmdReset_Click();
  EXPECT_EQ(work.ProyectosFuera.size(), 1u);
  EXPECT_TRUE(form.LabelFuera.visible());
}

}  // namespace
}  // namespace ordelan::test
