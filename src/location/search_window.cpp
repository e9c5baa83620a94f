#include "location/search_window.h"

#include <utility>

#include "text/code_page.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::location {

Buscar::Buscar(const work::Context& context, project::VipReader& reader, project::LeftOut& left_out,
               std::function<void()> cmdReset_Click, HitListener hits)
    : ui::Window(context.backend, kName),
      List1(*this, "List1"),
      List2(*this, "List2"),
      Text1(*this, "Text1"),
      context_(context),
      left_out_(left_out),
      cmdReset_Click_(std::move(cmdReset_Click)),
      hits_(std::move(hits)),
      gate_(context.platform.files, reader) {
  on_load = [this] { cFind_ = new_finder(); };
}

// A finder is shared by the searches that run it: a new search may put another into its place
// meanwhile.
std::shared_ptr<cFindFiles> Buscar::new_finder() {
  auto finder = std::make_shared<cFindFiles>(context_.platform);
  finder->SearchSubDirs = true;
  finder->InitSearch = [this] { cFind_InitSearch(); };
  finder->EndSearch = [this, it = finder.get()] { cFind_EndSearch(it->ColFiles()); };
  return finder;
}

std::string Buscar::Obtener_Nombre_Archivo(const std::string& Ruta) const {
  return cFindFiles::GetFileName(Ruta);
}

std::string Buscar::Obtener_Nombre_Path(const std::string& Ruta, bool ConBarra) const {
  return text::Obtener_Nombre_Path(Ruta, ConBarra);
}

std::string Buscar::Obtener_VipPath(const std::string& Ruta) const {
  return text::Obtener_VipPath(Ruta);
}

std::string Buscar::Obtener_Extension(const std::string& Ruta) const {
  return cFindFiles::GetExtension(Ruta);
}

std::string Buscar::ElegirCarpeta(const std::string& Titulo) {
  return cFind_->BrowseForFolder(Titulo);
}

bool Buscar::Valido(const std::string& Ruta) {
  return gate_.Valido(Ruta);
}

// Runs one search; it ends as soon as the job that it belongs to has to.
void Buscar::run(const std::string& folder, const std::string& what, work::Job& job) {
  const std::shared_ptr<cFindFiles> finder = cFind_;
  finder->on_turn = [this, it = finder.get(), number = job.number()] {
    if (stopped_ || context_.work.must_stop(number)) it->StopSearch();
  };
  finder->Find(folder, what, "", 1);
}

bool Buscar::BuscarVips(work::Job& job) {
  cFind_ = new_finder();
  asked_.clear();
  std::string folder = Text1.text();
  if (folder.ends_with('\\')) folder.pop_back();
  List2.clear();
  cFind_->on_unseen = [this](const std::string& path, cFindFiles::Unseen why) {
    if (!path.ends_with('\\') && !project::is_project_name(path)) return;
    left_out_.add(path, why == cFindFiles::Unseen::unnamed  ? project::WhyOut::unnamed
                        : why == cFindFiles::Unseen::linked ? project::WhyOut::linked
                                                            : project::WhyOut::unreadable);
  };
  run(folder, "*.vip", job);
  if (job.superseded()) return false;

  std::vector<std::string> valid;
  const auto found = List2.kept_rows();
  for (const std::string& path : *found) {
    const bool usable = Valido(path);
    if (job.superseded()) return false;
    if (usable) {
      valid.push_back(path);
    } else if (const auto why = gate_.refusal(); why && project::is_project_name(path)) {
      left_out_.add(path, *why);
    }
    job.turn();
    if (job.superseded()) return false;
    if (context_.work.Cancelar) break;
  }
  work::WorkLists& lists = context_.lists;
  const bool any = !valid.empty();
  if (any && context_.work.PrimerProyecto.empty()) {
    // The first project of the drop: until now the lists held what was shown before.
    lists.ListProyectos.clear();
    lists.List1.clear();
  }
  lists.ListProyectos.add(valid);
  lists.List1.add(std::move(valid));
  ui::ListaAncho(lists.ListProyectos);
  return any;
}

void Buscar::UnidadesDisponibles() {
  UnidadesBuscar* const drives = boxes();
  if (drives == nullptr) return;
  int index = 0;
  for (const std::string& root : cFind_->ColDrives()) {
    const auto type = context_.platform.drives.type(root);
    if (type != system::DriveType::removable && type != system::DriveType::fixed) continue;
    // The floppy's letter: a look at it takes seconds, and no audio is there.
    if (root == "A:\\") continue;
    const auto volume = cFind_->GetDriveInfo(root);
    const std::string caption = "Unidad: " + root + (volume ? volume->label : "");
    if (index > 0) drives->CrearCheckBox(index, caption);
    drives->name_box(index, caption, root);
    ++index;
  }
  drives->keep(index);
}

UnidadesBuscar* Buscar::boxes() {
  return context_.windows.touch<UnidadesBuscar>();
}

void Buscar::cFind_InitSearch() {
  context_.clocks.iniciarCrono();
}

void Buscar::cFind_EndSearch(const std::vector<std::string>& found) {
  std::vector<std::string> hits;
  for (const std::string& path : found) {
    // Only folders of just this name are left out; the system's own bins are spelt otherwise, and
    // a user who keeps audio there wants it found.
    if (path.find("RECICLER") == std::string::npos &&
        (asked_.empty() || text::equal_ignoring_case(text::file_name(path), asked_))) {
      hits.push_back(path);
    }
    if (context_.work.Cancelar) {
      cmdReset_Click_();
      break;
    }
  }
  List2.add(std::move(hits));
}

}  // namespace ordelan::location
