#include "location/search_window.h"

#include <gmock/gmock.h>

#include "support/desk.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAre;

struct SearchWindow : ::testing::Test {
  Desk desk;
};

TEST_F(SearchWindow, cuts_paths) {
  desk.start();
  const location::Buscar& buscar = desk.buscar();
  EXPECT_EQ(buscar.Obtener_Nombre_Archivo("D:\\Mix\\toma.wav"), "toma.wav");
  EXPECT_EQ(buscar.Obtener_Nombre_Path("12 --> D:\\Mix\\toma.wav", true), "D:\\Mix\\");
  EXPECT_EQ(buscar.Obtener_Nombre_Path("12 --> D:\\Mix\\toma.wav", false), "D:\\Mix");
  EXPECT_EQ(buscar.Obtener_VipPath("12 --> D:\\Mix\\tema.vip"), "D:\\Mix\\tema.vip");
  EXPECT_EQ(buscar.Obtener_Extension("D:\\Mix\\toma.WAV"), "WAV");
}

TEST_F(SearchWindow, asks_for_a_folder) {
  desk.start();
  desk.dialogs.folders.push_back("D:\\Copia");
  EXPECT_EQ(desk.buscar().ElegirCarpeta("Elige una carpeta"), "D:\\Copia");
  EXPECT_THAT(desk.dialogs.folder_titles, ElementsAre("Elige una carpeta"));
}

TEST_F(SearchWindow, is_never_shown) {
  desk.start();
  desk.buscar();
  EXPECT_FALSE(desk.windows.visible("Buscar"));
}

TEST_F(SearchWindow, refuses_a_project_among_frozen_tracks_without_reading_it) {
  desk.disk.write("FreezeData\\tema.vip", project_of({"D:\\a.wav"}));
  desk.disk.write("Mix\\tema.vip", project_of({"D:\\a.wav"}));
  desk.disk.write("Mix\\midi.vip", project_of({}));
  desk.start();
  EXPECT_FALSE(desk.buscar().Valido(desk.disk.path("FreezeData\\tema.vip")));
  EXPECT_TRUE(desk.buscar().Valido(desk.disk.path("Mix\\tema.vip")));
  EXPECT_FALSE(desk.buscar().Valido(desk.disk.path("Mix\\midi.vip")));
  EXPECT_FALSE(desk.buscar().Valido(desk.disk.path("Mix\\nada.vip")));
}

TEST_F(SearchWindow, lists_the_valid_projects_of_a_folder_and_below) {
  const std::string audio = project_of({"D:\\a.wav"});
  desk.disk.write("Mix\\b.vip", audio);
  desk.disk.write("Mix\\Viejo\\a.VIP", audio);
  desk.disk.write("Mix\\midi.vip", project_of({}));
  desk.disk.write("Otra\\c.vip", audio);
  desk.start();
  location::Buscar& buscar = desk.buscar();
  buscar.Text1.set_text(desk.disk.path("Mix\\"));
  EXPECT_TRUE(buscar.BuscarVips());
  EXPECT_THAT(buscar.List2.rows(),
              ElementsAre(desk.disk.path("Mix\\b.vip"), desk.disk.path("Mix\\midi.vip"),
                          desk.disk.path("Mix\\Viejo\\a.VIP")));
  EXPECT_THAT(desk.form.lists.ListProyectos.rows(),
              ElementsAre(desk.disk.path("Mix\\b.vip"), desk.disk.path("Mix\\Viejo\\a.VIP")));
  buscar.Text1.set_text(desk.disk.path("nada"));
  EXPECT_FALSE(buscar.BuscarVips());
}

}  // namespace
}  // namespace ordelan::test
