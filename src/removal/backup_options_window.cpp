#include "removal/backup_options_window.h"

#include "removal/backup_folder_window.h"
#include "removal/protected_folders_window.h"
#include "removal/removal_review_window.h"
#include "removal/removal_run.h"
#include "skin/backup_options_layout.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::removal {

BacUp::BacUp(const RemovalContext& removal)
    : ProgramWindow(removal.work, {.name = kName,
                                   .title = "Opciones de copia de seguridad",
                                   .layout = skin::kBackupOptions,
                                   .place = {140, 140},
                                   .place_key = work::place_key::kBacUp,
                                   .stores_after_drag = true,
                                   .topmost = true,
                                   .minimizable = true}),
      CheckBackup(*this, "CheckBackup"),
      CheckBorrar(*this, "CheckBorrar"),
      CheckBorraAsociados(*this, "CheckBorraAsociados"),
      CheckComprobar(*this, "CheckComprobar"),
      cmdBorrar(*this, "cmdBorrar"),
      CommandProtegidas(*this, "CommandProtegidas"),
      cmdParar(*this, "cmdParar"),
      LabelConfig(*this, "LabelConfig"),
      LabelEspera(*this, "LabelEspera"),
      LabelInfo(*this, "LabelInfo"),
      LabelResultado(*this, "LabelResultado"),
      LabelVueltas(*this, "LabelVueltas"),
      ListNoBorrados(*this, "ListNoBorrados"),
      XP_Bar(*this, "XP_Bar"),
      ImageInfoVip(*this, "ImageInfoVip"),
      AvisoAsociados(*this, "AvisoAsociados"),
      cmdSalir(*this, "cmdSalir"),
      Salir(*this, "Salir"),
      cmdMinimizar(*this, "cmdMinimizar"),
      RutaBackup(removal.state.RutaBackup),
      CancelarBorrado(removal.state.CancelarBorrado),
      Borrando(removal.work.work.Borrando),
      removal_(removal) {
  name_controls();
  set_up();
  on_close = [this] { Salir_Click(); };
  on_escape = [this] {
    if (!this->context().work.Borrando) Salir_Click();
  };
  cmdBorrar.on_click = [this] { cmdBorrar_Click(); };
  CommandProtegidas.on_click = [this] { show_protected_folders(context()); };
  cmdParar.on_click = [this] { CancelarBorrado = true; };
  const auto show_totals = [this] {
    if (auto* const review = context().windows.find<ParaBorrar>()) review->show_totals();
  };
  CheckBackup.on_click = show_totals;
  CheckComprobar.on_click = [this] {
    auto* const review = context().windows.find<ParaBorrar>();
    if (review != nullptr && review->visible()) review->comprobar();
  };
  cmdSalir.on_click = [this] { cmdSalir_Click(); };
  Salir.on_click = [this] { Salir_Click(); };
  ImageInfoVip.on_click = [this] {
    ui::Rect place = AvisoAsociados.bounds();
    place.left = 27;
    place.top = 57;
    AvisoAsociados.set_bounds(place);
    AvisoAsociados.show();
    AvisoAsociados.bring_to_front();
  };
  AvisoAsociados.on_click = [this] { AvisoAsociados.hide(); };
}

void BacUp::name_controls() {
  // These captions are also the keys under which the boxes are remembered.
  CheckBackup.set_caption("Hacer copia de seguridad de archivos");
  CheckBackup.set_tip("Copia de seguridad de los archivos a borrar");
  CheckBorrar.set_caption("Borrar lista 4 \"Archivos no utilizados\"");
  CheckBorrar.set_tip("Activar para borrar los archivos no utilizados de la lista 4");
  CheckBorraAsociados.set_caption("Borrar todos los asociados      ------>");
  CheckBorraAsociados.set_tip("Borrar archivos asociados.");
  CheckComprobar.set_caption("Comprobar los proyectos antes de borrar");
  CheckComprobar.set_tip("Conserva lo que algún proyecto puede usar todavía, y dice por qué");
  CheckBackup.set_checked(true);
  CheckBorrar.set_checked(true);
  CheckComprobar.set_checked(true);

  cmdBorrar.set_caption("Para borrar...");
  cmdBorrar.set_tip("Acceder a la ventana Para borrar");
  CommandProtegidas.set_caption("Carpetas protegidas...");
  CommandProtegidas.set_tip("Elegir carpetas cuyos archivos no se borran");
  cmdParar.set_caption("Parar");
  cmdParar.set_tip("Parar el borrado en marcha");
  cmdParar.hide();
  LabelConfig.set_caption(
      " Elegir la configuración que saldrá por defecto para el borrado de archivos. ");
  LabelEspera.set_caption("Aquí se verá el resultado del borrado.");
  // No run leaves this text: it is what the label holds until one has been made.
  LabelInfo.set_caption(" >> La operación se ha realixado con éxito << ");
  LabelInfo.hide();
  LabelResultado.hide();
  LabelVueltas.hide();
  ListNoBorrados.set_description("Archivos que siguen en su sitio");
  ListNoBorrados.hide();
  ImageInfoVip.set_description("Explicaciones");
  ImageInfoVip.set_tip("Clic para explicaciones.");
  AvisoAsociados.set_multiline(true);
  AvisoAsociados.set_text(
      "Con esta opción activa se borraran\r\ntodos los archivos con extensiones:\r\n"
      "H2; HDP; HM2; HMP; HG2; HGP; HA2; HAP\r\nHF2; HFP\r\nQue corresponden a:\r\n"
      "WAV; MP3; OGG; AIF\r\nFLAC\r\nCUE y HZ también se borran.\r\n"
      "Estas extensiones las vuelve a generar SAM\r\nal abrir un proyecto.");
  AvisoAsociados.set_tip("Clic para ocultar");
  AvisoAsociados.hide();
  cmdSalir.set_caption("Cerrar");
  cmdSalir.set_tip("Cerrar la aplicación");
  Salir.set_description("Cerrar");
  Salir.set_tip("Cerrar ventana");
  make_minimize_button(cmdMinimizar);
}

void BacUp::Form_Load() {
  for (ui::CheckBox* box : {&CheckBackup, &CheckBorrar, &CheckBorraAsociados, &CheckComprobar}) {
    work::read_box(context().settings, *box);
  }
}

void BacUp::cmdBorrar_Click() {
  if (removal_.state.running) return;
  close_other_windows(context());
  auto* const review = context().windows.touch<ParaBorrar>();
  if (review == nullptr) return;
  const std::size_t before = review->ListBorrar.count();
  const std::size_t offered = context().lists.ListBorrar.count();
  if (before != offered) {
    const bool unticked = !review->ListStatus.all_ticked();
    review->CopiarListBorrados();
    std::string caption = "La lista se ha llenado de nuevo";
    if (offered > before) {
      caption = std::to_string(offered - before) + " filas han vuelto a la lista";
    }
    if (unticked) caption += ", y todas quedan activadas";
    LabelVueltas.set_caption(caption);
    LabelVueltas.set_visible(offered > before || unticked);
  }
  review->set_visible(!review->visible());
  if (review->visible()) {
    review->comprobar();
    review->bring_to_front();
  }
  if (CheckBorraAsociados.checked() && !CheckBackup.checked() && !CheckBorrar.checked()) {
    review->TextAviso.show();
  }
}

void BacUp::BorrarSeleccionados() {
  LabelEspera.hide();
  removal_.sound.stop_and_empty();  // a file that plays cannot be moved or removed
  RemovalRun(removal_, *this).BorrarSeleccionados();
}

RemovalRun::Plan BacUp::plan() {
  return RemovalRun(removal_, *this).plan();
}

// The file goes first: the pictures of the transport then stay as they are.
void BacUp::end_sound() {
  removal_.sound.set_URL("");
  removal_.sound.Control_Click(audio::kStop);
}

void BacUp::cmdSalir_Click() {
  end_sound();
  context().windows.close<ParaBorrar>();
  Salir_Click();
}

void BacUp::Salir_Click() {
  end_sound();
  store_place();
  for (const ui::CheckBox* box :
       {&CheckBackup, &CheckBorrar, &CheckBorraAsociados, &CheckComprobar}) {
    work::write_box(context().settings, *box);
  }
  context().windows.close<CarpetaBack>();  // its run would have other options
  context().windows.close<BacUp>();
}

}  // namespace ordelan::removal
