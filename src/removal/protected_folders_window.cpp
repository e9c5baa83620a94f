#include "removal/protected_folders_window.h"

#include <algorithm>
#include <utility>

#include "skin/protected_folders_layout.h"
#include "text/paths.h"
#include "ui/list_width.h"
#include "work/folder_tree.h"
#include "work/place_keys.h"
#include "work/stored_state.h"

namespace ordelan::removal {
namespace {

constexpr const char* kTotal = "TotalRutas";
constexpr const char* kIndent = "    ";

std::string key_of(std::size_t index) {
  return "Ruta " + std::to_string(index);
}

std::string without_backslash(std::string folder) {
  if (folder.size() > text::root(folder).size() && folder.ends_with('\\')) folder.pop_back();
  return folder;
}

}  // namespace

void show_protected_folders(const work::Context& context) {
  auto* const window = context.windows.touch<FormNoBorrar>();
  if (window == nullptr) return;
  window->show();
  window->bring_to_front();
}

FormNoBorrar::FormNoBorrar(const RemovalContext& removal)
    : ProgramWindow(removal.work, {.name = kName,
                                   .title = "Carpetas con archivos que no se borraran.",
                                   .layout = skin::kProtectedFolders,
                                   .place = {200, 160},
                                   .place_key = work::place_key::kFormNoBorrar,
                                   .topmost = true}),
      List1(*this, "List1"),
      Drive1(*this, "Drive1"),
      Dir1(*this, "Dir1"),
      LabelDir(*this, "LabelDir"),
      CommandAgregar(*this, "CommandAgregar"),
      CommandQuitar(*this, "CommandQuitar"),
      cmdBorrar(*this, "cmdBorrar"),
      Salir(*this, "Salir"),
      cmdSalir(*this, "cmdSalir"),
      CheckAviso(*this, "CheckAviso"),
      AvisoNoBorrados(*this, "AvisoNoBorrados"),
      Label1(*this, "Label1"),
      Label2(*this, "Label2"),
      removal_(removal) {
  name_controls();
  set_up();
  on_close = [this] { Salir_Click(); };
  Salir.on_click = [this] { Salir_Click(); };
  cmdSalir.on_click = [this] { Salir_Click(); };
  CommandAgregar.on_click = [this] { CommandAgregar_Click(); };
  CommandQuitar.on_click = [this] { CommandQuitar_Click(); };
  cmdBorrar.on_click = [this] { List1.clear(); };
  Drive1.on_click = [this] {
    if (Drive1.current() < 0) return;
    set_Dir1(Drive1.current_row());
    AvisoNoBorrados.hide();
  };
  Dir1.on_double_click = [this] { open_Dir1_row(); };
  Dir1.on_key = [this](int code) {
    constexpr int kEnter = 13;
    if (code == kEnter) open_Dir1_row();
  };
  List1.on_click = [this] { AvisoNoBorrados.hide(); };
  CheckAviso.on_click = [this] { AvisoNoBorrados.set_visible(CheckAviso.checked()); };
  AvisoNoBorrados.on_click = [this] { AvisoNoBorrados.hide(); };
}

void FormNoBorrar::name_controls() {
  List1.set_tip("Lista de carpetas donde no se borrarán archivos.");
  List1.set_description("Rutas que no se borran sus archivos");
  Drive1.set_tip("Seleccionar Unidad");
  Drive1.set_description("Unidades");
  Dir1.set_tip("Seleccionar ruta");
  Dir1.set_description("Carpetas");
  CommandAgregar.set_caption("Agregar ruta");
  CommandQuitar.set_caption("Quitar ruta");
  cmdBorrar.set_caption("Borrar lista");
  cmdBorrar.set_tip("Borrar lista de rutas.");
  Salir.set_description("Cerrar");
  Salir.set_tip("Salir guardando datos.");
  cmdSalir.set_caption("Cerrar");
  cmdSalir.set_tip("Salir guardando datos.");
  CheckAviso.set_caption("Ver el aviso al iniciar");
  CheckAviso.set_checked(true);
  AvisoNoBorrados.set_multiline(true);
  AvisoNoBorrados.set_text(
      "Elige las carpetas donde haya\r\narchivos que no quieres que se borren\r\n"
      "aunque figuren en la lista 4\r\n\r\nTodos los archivos de las carpetas \r\n"
      "que figuren en esta lista de rutas\r\nno se borrarán excepto los asociados \r\n"
      "si esta activada su opción.         \r\n\r\nUna vez leido...  hacer clic aquí");
  AvisoNoBorrados.set_tip("Clic para ocultar");
  Label1.set_caption("Carpetas con archivos que no se borraran");
  Label2.set_caption("Rutas que no se borran sus archivos");
}

void FormNoBorrar::Form_Load() {
  work::read_box(context().settings, CheckAviso);
  AvisoNoBorrados.set_visible(CheckAviso.checked());
  LeerRutasNoBorrados();
  Drive1.clear();
  for (const std::string& root : context().platform.drives.roots()) Drive1.add(root);
  const std::string& projects = context().work.RutaProyectos;
  const std::string start = text::Obtener_Nombre_Path(projects, false);
  set_Dir1(!start.empty() ? start : Drive1.row(0));
}

void FormNoBorrar::LeerRutasNoBorrados() {
  const settings::Settings& settings = context().settings;
  int& total = removal_.state.TotalRutas;
  constexpr double kMost = 32767;  // the most that a list of this kind has ever held
  total = static_cast<int>(std::clamp(settings.number(kTotal, total), -1.0, kMost));
  List1.clear();
  for (int i = 0; i <= total; ++i) {
    const std::string path =
        settings.LeerIni(settings.RutaConfig, key_of(static_cast<std::size_t>(i)), "");
    if (!path.empty()) List1.add(path);
  }
  ui::ListaAncho(List1);
}

// Keys of a longer list before stay in the file: the total says how many count.
void FormNoBorrar::GrabarRutas() {
  settings::Settings& settings = context().settings;
  for (std::size_t i = 0; i < List1.count(); ++i) {
    settings.GrabarIni(settings.RutaConfig, key_of(i), List1.row(i));
  }
  removal_.state.TotalRutas = static_cast<int>(List1.count()) - 1;
  settings.set_number(kTotal, removal_.state.TotalRutas);
}

// As it stands: a folder may be there twice. It is stored when the window is closed.
void FormNoBorrar::CommandAgregar_Click() {
  if (!path_.empty()) List1.add(path_);
  ui::ListaAncho(List1);
  AvisoNoBorrados.hide();
}

// Stored at once, other than what is added.
void FormNoBorrar::CommandQuitar_Click() {
  if (List1.current() < 0) return;
  List1.remove(static_cast<std::size_t>(List1.current()));
  AvisoNoBorrados.hide();
  GrabarRutas();
}

void FormNoBorrar::Salir_Click() {
  GrabarRutas();
  store_place();
  work::write_box(context().settings, CheckAviso);
  context().windows.close<FormNoBorrar>();
}

// The folders around the open one stand above it, so that a click leads back to each.
void FormNoBorrar::set_Dir1(const std::string& folder) {
  path_ = without_backslash(folder);
  LabelDir.set_caption(path_);
  Dir1.clear();
  std::vector<std::string> around = work::folders_around(path_);
  std::string indent;
  for (auto each = around.rbegin(); each != around.rend(); ++each) {
    Dir1.add(indent + without_backslash(*each));
    indent += kIndent;
  }
  const int open = static_cast<int>(Dir1.count());
  Dir1.add(indent + path_);
  indent += kIndent;
  if (const auto entries = context().platform.files.list(path_, system::Detail::names)) {
    for (const system::FileInfo& entry : *entries) {
      if (entry.folder) Dir1.add(indent + system::with_backslash(path_) + entry.name);
    }
  }
  Dir1.set_current(open);
  ui::ListaAncho(Dir1);
}

void FormNoBorrar::open_Dir1_row() {
  const std::string row = Dir1.current_row();
  const std::size_t begin = row.find_first_not_of(' ');
  if (begin != std::string::npos) set_Dir1(row.substr(begin));
}

}  // namespace ordelan::removal
