#include "location/drive_window.h"

#include <gmock/gmock.h>

#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct DriveWindow : ::testing::Test {
  DriveWindow() { bench.drives.drives.clear(); }

  // Starts the program with just this configuration.
  void start(const std::string& configuration = "") {
    bench.disk.write("Config.ini", "[Settings]\r\n" + configuration);
    bench.start();
  }
  location::UnidadesBuscar& window() { return *bench.windows.touch<location::UnidadesBuscar>(); }
  std::vector<std::string> captions() {
    std::vector<std::string> all;
    for (const auto& box : bench.boxes().Check1) all.push_back(box->caption());
    return all;
  }

  ProgramBench bench;
};

TEST_F(DriveWindow, fixed_and_removable_drives_have_a_box_and_no_others) {
  bench.drives.add("A:\\", system::DriveType::removable);
  bench.drives.add("C:\\", system::DriveType::fixed, "Sistema");
  bench.drives.add("D:\\", system::DriveType::cdrom, "CD");
  bench.drives.add("E:\\", system::DriveType::remote, "Red");
  bench.drives.add("F:\\", system::DriveType::ramdisk);
  bench.drives.add("G:\\", system::DriveType::removable, "TARJETA");
  start();
  EXPECT_THAT(captions(), ElementsAre("Unidad: C:\\Sistema", "Unidad: G:\\TARJETA"));
  EXPECT_EQ(bench.boxes().Check1[1].tag(), "G:\\");
}

TEST_F(DriveWindow, a_removable_drive_without_a_medium_has_its_box) {
  bench.drives.add("C:\\");
  bench.drives.add("G:\\", system::DriveType::removable, "TARJETA").medium = false;
  start();
  EXPECT_THAT(captions(), ElementsAre("Unidad: C:\\", "Unidad: G:\\"));
}

TEST_F(DriveWindow, one_drive_takes_the_existing_box) {
  bench.drives.add("C:\\", system::DriveType::fixed, "Sistema");
  start();
  EXPECT_THAT(captions(), ElementsAre("Unidad: C:\\Sistema"));
}

TEST_F(DriveWindow, a_floppy_alone_leaves_the_box_as_it_was_designed) {
  bench.drives.add("A:\\", system::DriveType::removable);
  start();
  EXPECT_THAT(captions(), ElementsAre("Unidad: "));
  EXPECT_EQ(bench.boxes().Check1[0].tag(), "");
  EXPECT_EQ(bench.boxes().ticked(), 0);
}

TEST_F(DriveWindow, boxes_stand_twenty_pixels_apart_with_the_label_below_and_the_window_around) {
  bench.drives.add("C:\\");
  bench.drives.add("D:\\", system::DriveType::fixed, "Audio");
  bench.drives.add("E:\\");
  start();
  auto& boxes = bench.boxes();
  const ui::Rect first = boxes.Check1[0].bounds();
  EXPECT_EQ(boxes.Check1[1].bounds().top, first.top + 20);
  EXPECT_EQ(boxes.Check1[2].bounds().top, first.top + 40);
  EXPECT_EQ(boxes.Check1[1].bounds().left, first.left);
  // "Unidad: D:\Audio" has 16 characters: (16 + 5) * 107 twips.
  EXPECT_EQ(boxes.Check1[1].bounds().width, 21 * 107 / 15);
  EXPECT_EQ(first.width, 16 * 107 / 15);
  EXPECT_EQ(boxes.Label2.bounds().top, first.top + 60);
  EXPECT_GT(window().size().height, boxes.Label2.bounds().top + boxes.Label2.bounds().height);
}

// The number of characters is divided, not multiplied: all wide labels give this one width.
TEST_F(DriveWindow, a_wide_label_gives_the_window_its_one_wide_size) {
  bench.drives.add("C:\\");
  bench.drives.add("D:\\", system::DriveType::fixed, std::string(32, 'x'));
  start();
  EXPECT_EQ(window().size().width, 4770 / 15);
}

TEST_F(DriveWindow, boxes_come_ticked_as_they_were_left) {
  bench.drives.add("C:\\", system::DriveType::fixed, "Sistema");
  bench.drives.add("D:\\", system::DriveType::fixed, "Audio");
  start("Unidad: D:\\Audio=1\r\nUnidad: C:\\Otro=1\r\n");
  EXPECT_FALSE(bench.boxes().Check1[0].checked());
  EXPECT_TRUE(bench.boxes().Check1[1].checked());
  EXPECT_EQ(bench.boxes().Label2.caption(), "Se buscará en: D:\\");
  EXPECT_THAT(bench.dialogs.messages, IsEmpty());
  EXPECT_FALSE(window().visible());
}

TEST_F(DriveWindow, a_start_with_no_ticked_drive_warns_and_shows_the_drives) {
  bench.drives.add("C:\\");
  start();
  ASSERT_EQ(bench.dialogs.messages.size(), 1u);
  const system::Message& box = bench.dialogs.messages[0];
  EXPECT_EQ(box.title, "Configuración");
  EXPECT_EQ(box.icon, system::Icon::critical);
  EXPECT_EQ(box.text,
            "No hay ninguna unidad de disco seleccionada para la búsqueda de archivos.\r\n\r\n"
            "Esto anula la función de \"Actualizar Vip's\"\r\n"
            "Tampoco permite que al clicar un item de audio de las listas\r\n"
            "el programa busque audios desubicados.");
  EXPECT_TRUE(window().visible());
}

TEST_F(DriveWindow, a_click_on_a_box_says_anew_what_is_ticked) {
  bench.drives.add("C:\\");
  bench.drives.add("D:\\");
  start();
  EXPECT_EQ(bench.boxes().Label2.caption(), "No se buscará en ninguna unidad.");
  bench.boxes().Check1[0].toggle();
  bench.boxes().Check1[1].toggle();
  EXPECT_EQ(bench.boxes().Label2.caption(), "Se buscará en: C:\\, D:\\");
}

TEST_F(DriveWindow, closing_hides_the_window_and_keeps_its_boxes_and_their_ticks) {
  bench.drives.add("C:\\", system::DriveType::fixed, "Sistema");
  bench.drives.add("D:\\");
  start();
  window().set_position({40, 50});
  bench.boxes().Check1[0].toggle();
  const ui::Window* const before = &window();
  window().on_close();
  EXPECT_FALSE(window().visible());
  EXPECT_EQ(&window(), before);
  EXPECT_EQ(bench.boxes().Check1.size(), 2);
  EXPECT_EQ(bench.settings.number("Unidad: C:\\Sistema", -1), 1);
  EXPECT_EQ(bench.settings.number("Unidad: D:\\", -1), 0);
  EXPECT_EQ(bench.settings.number("UnidadesBuscar_Left", -1), 40);
  EXPECT_EQ(bench.settings.number("UnidadesBuscar_Top", -1), 50);
}

TEST_F(DriveWindow, its_button_closes_it) {
  bench.drives.add("C:\\");
  start("Unidad: C:\\=1\r\n");
  bench.form.Configurar.on_click();
  window().cmdSalir.on_click();
  EXPECT_FALSE(window().visible());
}

TEST_F(DriveWindow, closing_only_hides_it) {
  bench.drives.add("C:\\");
  start();
  const ui::Window* const before = &window();
  bench.windows.close("UnidadesBuscar");
  EXPECT_EQ(bench.windows.find("UnidadesBuscar"), before);
  EXPECT_FALSE(window().visible());
}

TEST_F(DriveWindow, ActualizarVip_is_shown_only_with_a_ticked_drive) {
  bench.drives.add("C:\\");
  start();
  bench.form.ActualizarVip.show();
  window().on_close();
  EXPECT_FALSE(bench.form.ActualizarVip.visible());
  bench.boxes().Check1[0].toggle();
  window().on_close();
  EXPECT_TRUE(bench.form.ActualizarVip.visible());
}

TEST_F(DriveWindow, its_place_is_kept_when_it_is_dragged_and_taken_up_at_the_next_start) {
  bench.drives.add("C:\\");
  start("UnidadesBuscar_Left=31\r\nUnidadesBuscar_Top=32\r\n");
  EXPECT_EQ(window().position(), (ui::Point{31, 32}));
  window().moved_to({60, 70});
  window().on_drag_end();
  EXPECT_EQ(bench.settings.number("UnidadesBuscar_Left", -1), 60);
}

TEST_F(DriveWindow, Configurar_shows_it) {
  bench.drives.add("C:\\");
  start("Unidad: C:\\=1\r\n");
  EXPECT_FALSE(window().visible());
  bench.form.Configurar.on_click();
  EXPECT_TRUE(window().visible());
}

TEST_F(DriveWindow, a_drive_that_is_gone_loses_its_box) {
  bench.drives.add("C:\\");
  bench.drives.add("D:\\");
  start();
  EXPECT_EQ(bench.boxes().Check1.size(), 2);
  bench.drives.drives.erase("D:\\");
  // The drives are looked up anew with each new finder.
  bench.buscar().Text1.set_text(bench.disk.path("nada"));
  auto job = work::Job::join(bench.work, bench.platform);
  bench.buscar().BuscarVips(job);
  bench.buscar().UnidadesDisponibles();
  EXPECT_THAT(captions(), ElementsAre("Unidad: C:\\"));
}

}  // namespace
}  // namespace ordelan::test
