#include "main_window/main_window.h"

#include "audio/lists_zoom.h"
#include "audio/player.h"
#include "location/drive_window.h"
#include "main_window/about_window.h"
#include "main_window/projects_left_out_window.h"
#include "skin/main_window_layout.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::main_window {

Form1::Form1(ui::Backend& backend, const system::Platform& platform, work::WorkInHand& work,
             work::WindowDirectory& windows, settings::Settings& settings)
    : ProgramWindow({backend, platform, work, windows, settings, lists, strip, clocks},
                    {.name = "Form1",
                     .title = "Ordelan",
                     .layout = skin::kMainWindow,
                     .place_key = work::place_key::kForm1,
                     .minimizable = true}),
      lists(*this),
      strip(*this),
      clocks(*this, platform.regional),
      path_strip(*this),
      sound_(context()),
      play(*this, sound_),
      AbrirFichero(*this, "AbrirFichero"),
      cmdReset(*this, "cmdReset"),
      cmdCancelar(*this, "cmdCancelar"),
      CommandBorrado(*this, "CommandBorrado"),
      cmdPerdidos(*this, "cmdPerdidos"),
      cmdMinimizar(*this, "cmdMinimizar"),
      Salir(*this, "Salir"),
      SalvaListados(*this, "SalvaListados"),
      ActualizarVip(*this, "ActualizarVip"),
      DeshacerActualizacion(*this, "DeshacerActualizacion"),
      RecuperaBorrados(*this, "RecuperaBorrados"),
      Configurar(*this, "Configurar"),
      AcercaDe(*this, "AcercaDe"),
      cmdSalir(*this, "cmdSalir"),
      LabelFuera(*this, "LabelFuera"),
      CheckSubPath(*this, "CheckSubPath"),
      CheckBAK(*this, "CheckBAK"),
      CheckToolTips(*this, "CheckToolTips"),
      CheckPlayer(*this, "CheckPlayer"),
      CheckDragDrop(*this, "CheckDragDrop"),
      CheckLogo(*this, "CheckLogo"),
      ZoomListas(*this, "ZoomListas"),
      TextNum1(*this, "TextNum1", 4),
      ImagePaso(*this, "ImagePaso", 4),
      ListProyectosInfo(*this, "ListProyectosInfo"),
      ShowIco(*this, "ShowIco"),
      cmdPlayer(*this, "cmdPlayer"),
      clicks(*this, context(), sound_, {path_strip, ZoomListas, CheckPlayer}),
      reader(platform, work, strip.XP_ProgressBar1),
      platform_(platform),
      work_(work),
      windows_(windows),
      settings_(settings),
      left_out_(work),
      gate_(platform.files, reader),
      listing_(platform, work, lists, gate_, left_out_),
      decoding_(platform, work, lists, strip, reader, left_out_),
      analysis_(platform, lists, strip, left_out_),
      location_(context(), reader, left_out_,
                {[this] { cmdReset_Click(); },
                 [this](int ticked) {
                   removal_.drives_chosen();
                   ActualizarVip.set_visible(ticked > 0);
                 },
                 {[this](const std::string& hit) { return clicks.take_hit(hit); },
                  [this](const std::vector<std::string>& hits) { clicks.offer_hits(hits); }}}),
      removal_(context(), sound_,
               {[this] { path_strip.ListPath.hide(); },
                [this](const std::vector<std::string>& rows) { path_strip.show_rows(rows); }}),
      relink_(context(), reader, location_.lost_files,
              {.cmdReset_Click = [this] { cmdReset_Click(); },
               .show_updating = [this] { show_updating(); },
               .show_updated = [this] { show_updated(); },
               .hide_ActualizarVip = [this] { ActualizarVip.hide(); },
               .offer_undo = [this](bool undoable) { DeshacerActualizacion.set_visible(undoable); },
               .pointers = {[this] { show_progress(); }, [this] { hide_progress(); }}}) {
  name_controls();
  set_up();
  wire();
  windows_.add<Fuera>([this] { return std::make_unique<Fuera>(context()); });
  windows_.add<audio::ListasZoom>([this] {
    return std::make_unique<audio::ListasZoom>(context(), sound_,
                                               [this](int row) { decode_row(row); });
  });
  windows_.add<Acerca>([this] { return std::make_unique<Acerca>(context()); });
}

void Form1::name_controls() {
  AbrirFichero.set_caption("Abrir proyecto...");
  AbrirFichero.set_tip("Elegir un proyecto y descodificar su carpeta");
  cmdReset.set_caption("Vaciar");
  cmdReset.set_tip("Volver a la ventana vacía");
  cmdCancelar.set_caption("Cancelar");
  cmdCancelar.set_tip("Parar lo que está en marcha");
  CommandBorrado.set_caption("Borrar archivos...");
  CommandBorrado.set_tip("Revisar los archivos no utilizados y borrarlos");
  cmdPerdidos.set_caption("Archivos perdidos");
  cmdPerdidos.set_tip("Ver los archivos que no están donde dicen los proyectos");
  cmdMinimizar.set_description("Minimizar");
  cmdMinimizar.set_tip("Minimizar a barra de tareas");
  Salir.set_description("Salir");
  Salir.set_tip("Cerrar la aplicación");
  SalvaListados.set_caption("Salvar listados");
  ActualizarVip.set_caption("Actualizar Vip's");
  ActualizarVip.set_tip("Llevar los proyectos a donde están ahora sus archivos de audio");
  DeshacerActualizacion.set_caption("Deshacer actualización");
  DeshacerActualizacion.set_tip("Volver a los proyectos de antes de la última actualización");
  RecuperaBorrados.set_caption("Recuperar");
  RecuperaBorrados.set_tip("Para recuperar archivos borrados con copia de seguridad");
  Configurar.set_caption("Configurar");
  Configurar.set_tip("Elegir las unidades en las que se buscan archivos");
  AcercaDe.set_caption("Acerca de");
  cmdSalir.set_caption("Salir");
  cmdSalir.set_tip(Salir.tip());
  LabelFuera.set_tip("Ver qué proyectos no cuentan y por qué");
  ZoomListas.set_caption("Ampliar listas");
  ZoomListas.set_tip("Un clic en una lista la muestra ampliada");

  // These captions are also the keys under which the boxes are remembered.
  CheckSubPath.set_caption("Incluir subcarpetas");
  CheckBAK.set_caption("Incluir Vip_BAK");
  CheckToolTips.set_caption("Ver tooltips de listas");
  CheckPlayer.set_caption("Player automático");
  CheckDragDrop.set_caption("Ver Info de esta ventana al inicio");
  CheckLogo.set_caption("Ver Logo al inicio");
  for (ui::CheckBox* box :
       {&CheckSubPath, &CheckBAK, &CheckToolTips, &CheckPlayer, &CheckDragDrop, &CheckLogo}) {
    box->set_checked(true);
  }

  TextNum1[0].set_caption(
      "Pulsa «Abrir proyecto...» y elige uno: aquí se listan todos los de su carpeta.");
  TextNum1[1].set_caption("Los archivos de audio que utiliza el proyecto abierto.");
  TextNum1[2].set_caption("Los archivos que utilizan todos los proyectos de la carpeta.");
  TextNum1[3].set_caption("Los archivos que no utiliza ninguno: los que se pueden borrar.");
  ListProyectosInfo.set_caption("Suelta aquí proyectos Vip o carpetas");
  for (int i = 0; i < ImagePaso.size(); ++i) {
    ImagePaso[i].set_description("Paso " + std::to_string(i + 1));
  }
  ShowIco.set_description("Ordelan");
  for (ui::ListBox* list :
       {&lists.ListProyectos, &lists.ListVip, &lists.ListUtilizados, &lists.ListBorrar}) {
    make_list_keys(*list);
  }
  cmdPlayer.set_description("Player");
  cmdPlayer.set_tip("Ver u ocultar el Player");
}

void Form1::wire() {
  on_close = [this] { Salir_Click(); };
  on_key_down = [this](ui::Key& key) { Form_KeyDown(key); };
  on_escape = [this] { Form_Escape(); };
  on_deactivate = [this] { sound_.hide_balloons(); };
  CheckToolTips.on_click = [this] { CheckToolTips_Click(); };
  AbrirFichero.on_click = [this] { AbrirFichero_Click(); };
  cmdReset.on_click = [this] { cmdReset_Click(); };
  cmdCancelar.on_click = [this] { cmdCancelar_Click(); };
  SalvaListados.on_click = [this] { SalvaListados_Click(); };
  ActualizarVip.on_click = [this] { relink_.ActualizarVip_Click(); };
  DeshacerActualizacion.on_click = [this] { relink_.DeshacerActualizacion_Click(); };
  lists.ListProyectos.on_drop = [this](const auto& items) { ListProyectos_Drop(items); };
  lists.ListProyectos.on_double_click = [this] { ListProyectos_DblClick(); };
  lists.ListProyectos.on_enter = [this] { ListProyectos_DblClick(); };
  lists.ListProyectos.on_click = [this] { ListProyectos_Click(); };
  CommandBorrado.on_click = [this] { removal_.CommandBorrado_Click(); };
  RecuperaBorrados.on_click = [this] { removal_.RecuperaBorrados_Click(); };
  cmdPerdidos.on_click = [this] { location_.lost_files.cmdPerdidos_Click(); };
  Configurar.on_click = [this] { Configurar_Click(); };
  AcercaDe.on_click = [this] { windows_.touch<Acerca>(); };
  cmdMinimizar.on_click = [this] { set_minimized(true); };
  Salir.on_click = [this] { Salir_Click(); };
  cmdSalir.on_click = [this] { Salir_Click(); };
  cmdPlayer.on_click = [this] { cmdPlayer_Click(); };
  sound_.restore_main_window = [this] {
    if (minimized()) set_minimized(false);
  };
  LabelFuera.on_click = [this] { LabelFuera_Click(); };
  CheckDragDrop.on_click = [this] { ListProyectosInfo.set_visible(CheckDragDrop.checked()); };
  CheckLogo.on_click = [this] { CheckLogo_Click(); };
  ListProyectosInfo.on_mouse_move = [this](ui::Point) { ListProyectosInfo.hide(); };
  // A heading that the window cuts off can be read in full on the strip.
  for (auto* headings :
       {&lists.LabelAdd, &lists.LabelCheck, &lists.LabelCount, &lists.LabelErase}) {
    for (auto& heading : *headings) {
      heading->on_click = [this, label = heading.get()] {
        path_strip.MostrarPath(label->caption());
      };
    }
  }
}

void Form1::Form_Load() {
  for (ui::CheckBox* box :
       {&CheckToolTips, &CheckPlayer, &CheckSubPath, &CheckBAK, &CheckDragDrop, &CheckLogo}) {
    work::read_box(settings_, *box);
  }
  CheckToolTips_Click();
  cmdReset_Click();
  show();
  sound_.begin();  // two more windows, for which the first need not wait
  if (location_.UnidadesDisponibles() == 0) warn_of_no_drive();
  work_.ClickEnLista = true;
}

void Form1::warn_of_no_drive() {
  platform_.dialogs.message(
      {.title = "Configuración",
       .text = "No hay ninguna unidad de disco seleccionada para la búsqueda de archivos.\r\n\r\n"
               "Esto anula la función de \"Actualizar Vip's\"\r\n"
               "Tampoco permite que al clicar un item de audio de las listas\r\n"
               "el programa busque audios desubicados.",
       .icon = system::Icon::critical});
  Configurar_Click();
}

void Form1::Configurar_Click() {
  auto* const drives = windows_.touch<location::UnidadesBuscar>();
  if (drives == nullptr) return;
  drives->show();
  drives->bring_to_front();
}

void Form1::cmdReset_Click() {
  if (work_.Borrando) return;
  work_.begin_job();
  left_out_.clear();
  work_.ListaBorrarCompleta = false;
  show_ProyectosFuera();
  shown_before_reports_.reset();
  set_waiting(false);
  close_windows({kZoom, kSA, kPlayer, kListasZoom});
  clocks.reset();
  strip.TextDecode.set_text("");
  for (ui::ListBox* list :
       {&lists.ListVip, &lists.ListUtilizados, &lists.ListProyectos, &lists.ListBorrar}) {
    list->clear();
  }
  work_.Descodificando = false;
  work_.ModoPosiciones = false;
  work_.ZoomConHallados = false;
  clicks.forget_found();
  sound_.hide_AvisoPL();
  sound_.hide_balloons();
  show_empty();
}

void Form1::cmdCancelar_Click() {
  if (work_.Borrando) return;
  sound_.hide_AvisoPL();
  work_.Cancelar = true;
  work_.Descodificando = false;
  cmdReset.show();
  close_windows({kPlayer, kZoom, kSA});
}

void Form1::Salir_Click() {
  close_windows({kPlayer, kZoom});
  work_.begin_job();
  store_place();
  for (const ui::CheckBox* box :
       {&CheckDragDrop, &CheckToolTips, &CheckPlayer, &CheckSubPath, &CheckBAK, &CheckLogo}) {
    work::write_box(settings_, *box);
  }
  sound_.store_volume();
  backend().end();
}

void Form1::cmdPlayer_Click() {
  if (work_.Borrando) return;
  audio::Player* const player = sound_.player();
  if (player == nullptr) return;
  player->AvisoPL.hide();
  if (player->minimized()) {
    player->set_minimized(false);
    return;
  }
  player->set_visible(!player->visible());
  if (!player->visible()) {
    sound_.store_volume();  // it comes back with this one
    return;
  }
  player->Form_DblClick();
  player->bring_to_front();
  if (sound_.media().URL().empty()) return;
  player->place_title(audio::Player::kTitleStart);
  player->show_title();
}

// The keys of the window, beside those that every window of the sound has.
void Form1::Form_KeyDown(ui::Key& key) {
  constexpr int kF5 = 116;
  const bool plain = !key.shift && !key.control && !key.alt;
  if (key.code == kF5 && plain) {
    key.swallowed = true;
    open_again();
  } else if (key.code == 'O' && key.control && !key.shift && !key.alt) {
    key.swallowed = true;
    AbrirFichero_Click();
  } else {
    sound_.list_window_KeyDown(key, clicks.commands_of(key.focus));
  }
}

// The way out of what runs; never out of the program.
void Form1::Form_Escape() {
  if (work_.Buscando) {
    clicks.cmdPararBusqueda_Click();
  } else if (cmdCancelar.visible()) {
    cmdCancelar_Click();
  }
}

void Form1::CheckToolTips_Click() {
  constexpr const char* kFiles =
      "Clic bot.iqz. reproduce archivo clicado. Clic bot.dcho. carga todos los archivos en "
      "PlayList";
  const bool shown = CheckToolTips.checked();
  for (ui::ListBox* list : {&lists.ListVip, &lists.ListUtilizados, &lists.ListBorrar}) {
    list->set_tip(shown ? kFiles : "");
  }
  lists.ListProyectos.set_tip(
      shown ? "Lista de proyectos en la Carpeta, doble clic en un item, descodifica ese proyecto"
            : "");
}

void Form1::close_windows(std::initializer_list<const char*> names) {
  for (const char* const name : names) windows_.close(name);
}

void Form1::CheckLogo_Click() {
  if (lists.empty()) ShowIco.set_visible(CheckLogo.checked());
}

}  // namespace ordelan::main_window
