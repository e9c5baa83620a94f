#include "removal/backup_folder_window.h"

#include "location/search_window.h"
#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "removal/run_totals.h"
#include "skin/backup_folder_layout.h"
#include "work/place_keys.h"

namespace ordelan::removal {

CarpetaBack::CarpetaBack(const RemovalContext& removal)
    : ProgramWindow(removal.work, {.name = kName,
                                   .title = "Ruta para copia de seguridad",
                                   .layout = skin::kBackupFolder,
                                   .place = {220, 220},
                                   .place_key = work::place_key::kCarpetaBack,
                                   .stores_after_drag = true,
                                   .topmost = true}),
      LabelTitulo(*this, "LabelTitulo"),
      CarpetaNew(*this, "CarpetaNew"),
      cmdCarpetaBorrar(*this, "cmdCarpetaBorrar"),
      LabelRuta(*this, "LabelRuta", 2),
      LabelOK(*this, "LabelOK"),
      LabelAviso(*this, "LabelAviso"),
      LabelEspacio(*this, "LabelEspacio"),
      AvisoBack(*this, "AvisoBack"),
      cmdSalir(*this, "cmdSalir"),
      removal_(removal) {
  LabelTitulo.set_caption(title());
  CarpetaNew.set_caption("Elegir carpeta...");
  CarpetaNew.set_tip("Pulsar para modificar la carpeta de seguridad");
  cmdCarpetaBorrar.set_caption("Borrar");
  cmdCarpetaBorrar.set_tip("Pulsar para empezar proceso de borrado, según opciones");
  LabelRuta[0].set_caption("Ruta de la copia de seguridad");
  LabelOK.set_caption(" Pulsar el botón de borrado ");
  LabelAviso.set_caption(" Hay que elegir o crear una carpeta para continuar ");
  AvisoBack.set_multiline(true);
  AvisoBack.set_text(
      "1 - Elegir carpeta de seguridad.\r\no crear una nueva.\r\n"
      "2 - Una vez elegida/creada la carpeta\r\n    aparece el botón de borrado.\r\n"
      "3 - Pulsar el botón de Borrar");
  AvisoBack.set_tip("Clic para ocultar");
  cmdSalir.set_description("Cerrar");
  cmdSalir.set_tip("Cerrar la aplicación");
  set_up();
  on_close = [this] { cmdSalir_Click(); };
  CarpetaNew.on_click = [this] { CrearCarpeta(); };
  cmdCarpetaBorrar.on_click = [this] { cmdCarpetaBorrar_Click(); };
  AvisoBack.on_click = [this] { AvisoBack.hide(); };
  cmdSalir.on_click = [this] { cmdSalir_Click(); };
}

void CarpetaBack::Form_Load() {
  CarpetaElegida_ = CarpetaValida_ = false;
  cmdCarpetaBorrar.hide();
  LabelRuta.set_visible(false);
  LabelOK.hide();
  LabelEspacio.hide();
  LabelAviso.hide();
  ui::Rect place = AvisoBack.bounds();
  place.left = 31;
  place.top = 140;
  AvisoBack.set_bounds(place);
  AvisoBack.show();
}

void CarpetaBack::CrearCarpeta() {
  LabelRuta.set_visible(false);
  LabelOK.hide();
  cmdCarpetaBorrar.hide();
  LabelEspacio.hide();
  CarpetaElegida_ = CarpetaValida_ = false;
  if (auto* const options = context().windows.find<BacUp>()) options->set_position({100, 100});
  const std::string folder =
      context().windows.touch<location::Buscar>()->ElegirCarpeta("Elegir o crear carpeta");
  if (!folder.empty()) {
    CarpetaNew.hide();
    AvisoBack.hide();
    LabelAviso.hide();
    cmdCarpetaBorrar.show();
    LabelOK.show();
    CarpetaElegida_ = CarpetaValida_ = true;
    removal_.state.RutaBackup = folder;
    LabelRuta[1].set_caption(folder);
    LabelRuta.set_visible(true);
    show_room();
  } else {
    CarpetaNew.show();
    LabelAviso.show();
    AvisoBack.hide();
    cmdCarpetaBorrar.hide();
  }
  CarpetaNew.show();
  bring_to_front();  // the dialog stood before it, and options and review stay on top as well
}

void CarpetaBack::show_room() {
  auto* const review = context().windows.find<ParaBorrar>();
  if (review == nullptr) return;
  review->show_totals();
  LabelEspacio.set_caption(
      room_line(context().platform, review->totals(), removal_.state.RutaBackup));
  LabelEspacio.show();
}

void CarpetaBack::cmdCarpetaBorrar_Click() {
  auto* const options = context().windows.touch<BacUp>();
  if (options == nullptr) return;
  options->bring_to_front();  // with its bar, and the button that stops the run
  options->BorrarSeleccionados();
  if (auto* const review = context().windows.find<ParaBorrar>()) review->show_totals();
}

void CarpetaBack::cmdSalir_Click() {
  store_place();
  context().windows.close<CarpetaBack>();
}

}  // namespace ordelan::removal
