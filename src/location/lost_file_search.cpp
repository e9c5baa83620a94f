// The search for a lost file over the ticked drives.
#include <algorithm>
#include <utility>

#include "location/path_choice_window.h"
#include "location/search_window.h"
#include "location/under_way.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "ui/list_width.h"

namespace ordelan::location {
namespace {

constexpr const char* kLine = "\r\n";

std::string replaced(std::string text, const std::string& what, const std::string& by) {
  for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

}  // namespace

bool Buscar::BuscarOtraLetra(const std::string& Ruta) {
  const bool found = try_other_letters(Ruta);
  show_announced();
  return found;
}

// The same, but its last text may still wait to be shown.
bool Buscar::try_other_letters(const std::string& Ruta) {
  UnidadesBuscar* const drives = boxes();
  const std::string raiz = Ruta.substr(0, 3);
  if (drives == nullptr || raiz.find(":\\") == std::string::npos) return false;
  bool found = false;
  for (const auto& box : drives->Check1) {
    if (!box->checked()) continue;
    announce("Buscando: " + Ruta + kLine + "En la " + box->caption() + kLine + "ESPERAR");
    const std::string candidato = replaced(Ruta, raiz, box->tag());
    const auto there = context_.platform.files.info(candidato);
    if (!there || there->folder) continue;
    // The search goes on: of several drives the last one counts.
    context_.work.ArchivoActual = candidato;
    found = true;
  }
  return found;
}

bool Buscar::BuscarEnTodasUnidades(const std::string& Archivo, ui::ListBox&) {
  if (searching_) return false;
  const UnderWay under_way(searching_);
  stopped_ = false;
  std::optional<UnderWay> of_the_user;
  if (!context_.work.ModoPosiciones) of_the_user.emplace(context_.work.Buscando);
  // A search of the user's own begins here: a stop that was asked of an earlier job is over. While
  // projects are updated it belongs to that job.
  if (!context_.work.ModoPosiciones && !context_.work.Descodificando) {
    context_.work.Cancelar = false;
    // A job that was cancelled and has not looked yet must not take this for leave to go on.
    context_.work.begin_job();
    context_.strip.LabelAviso.hide();
  }
  work::Job job = work::Job::join(context_.work, context_.platform);
  const bool found = search(std::string(Archivo), job);
  asked_.clear();
  announced_.reset();
  return found && !job.superseded();
}

bool Buscar::search(const std::string& file, work::Job& job) {
  const bool is_path = file.find(':') != std::string::npos;
  const std::string name = is_path ? Obtener_Nombre_Archivo(file) : file;
  if (name.empty()) return false;
  // In the finder ";" parts one extension from the next: a name that holds one is looked for by a
  // pattern, and of what that finds only the name itself counts. So it is with the name of a lost
  // file that holds "*" or "?": no disk has it, and no other file may pass for it.
  const bool pattern = is_path && name.find_first_of("*?") != std::string::npos;
  asked_ = pattern || name.find(';') != std::string::npos ? name : "";
  List2.clear();
  List1.clear();
  const bool silent = context_.work.ModoPosiciones;
  if (!silent) {
    context_.clocks.TextLapsoTotal.set_back_color(ui::Color{0x8080FF});
    context_.clocks.iniciarCrono();
  }

  bool found = false;
  if (try_other_letters(file)) {
    context_.strip.Alerta(work::kResult,
                          "El archivo: " + file + kLine + "Ha sido encontrado en " + kLine +
                              context_.work.ArchivoActual,
                          true);
    found = true;
  } else {
    const UnidadesBuscar* const drives = boxes();
    if (drives == nullptr || drives->ticked() == 0) {
      context_.strip.Alerta(work::kWarning,
                            std::string("AVISO ") + kLine + "NO HAY NIGUNA UNIDAD DE DISCO" +
                                kLine + "Seleccionada para buscar este archivo",
                            true);
      stop_clock();
      return false;
    }
    found = find_everywhere(name, job);
    if (job.superseded()) return false;
    if (context_.work.Cancelar || stopped_) {
      context_.strip.Alerta(work::kProgress, ": ", false);
      found = false;
    } else if (found = tell(file); found && silent && List2.count() > 1) {
      found = choose(job);
      if (job.superseded()) return false;
    }
  }
  if (!silent) {
    stop_clock();
    context_.clocks.ShowLapso();
  }
  return found;
}

// Walks the ticked drives. False when it was stopped.
bool Buscar::find_everywhere(const std::string& name, work::Job& job) {
  const std::string what = replaced(name, ";", "?");
  for (int i = 0; const UnidadesBuscar* const drives = boxes(); ++i) {
    if (i >= drives->Check1.size()) break;
    const ui::CheckBox& box = drives->Check1[i];
    announce("Buscando: " + name + kLine + "En la " + box.caption() + kLine + "ESPERAR");
    cFind_InitSearch();
    if (box.checked()) {
      const std::string root = box.tag();
      update_ != nullptr ? find_in_index(root, what, job) : run(root, what, job);
    }
    if (must_stop(job)) return false;
  }
  return true;
}

// In place of `run` while projects are updated.
void Buscar::find_in_index(const std::string& folder, const std::string& what, work::Job& job) {
  const auto go_on = [&] {
    if (job.must_stop()) return false;
    if (announced_ && update_ != nullptr && update_->display.due()) show_announced();
    return true;
  };
  if (const auto found = update_->index.find(folder, what, go_on)) cFind_EndSearch(*found);
}

// Says on the strip what is searched now. In an update, where most of these texts are replaced at
// once, it waits until one is due.
void Buscar::announce(std::string text) {
  announced_ = std::move(text);
  if (update_ == nullptr || update_->display.due()) show_announced();
}

void Buscar::show_announced() {
  if (!announced_) return;
  context_.strip.Alerta(work::kWaiting, *announced_, true);
  announced_.reset();
}

// Says what was found. Whether anything was.
bool Buscar::tell(const std::string& file) {
  context_.lists.ListProyectos.window().set_waiting(false);
  const std::string head = "El archivo: ";
  const std::size_t count = List2.count();
  if (count == 0) {
    context_.strip.Alerta(work::kWarning,
                          head + kLine + file + kLine + "No existe" + kLine + "En ninguna unidad",
                          true);
    return false;
  }
  context_.work.ArchivoActual = List2.row(0);
  if (context_.work.ModoPosiciones) {
    show_announced();
    return true;
  }
  if (count == 1) {
    const std::string text = head + file + kLine + "Ha sido encontrado en: " + kLine + List2.row(0);
    context_.strip.Alerta(work::kResult, text, true);
    if (hits_.one(List2.row(0))) {
      context_.strip.Alerta(work::kResult,
                            text + kLine + "La ruta del PlayList ha sido actualizada", true);
    }
    return true;
  }
  std::string text =
      head + file + kLine + "Ha sido encontrado en " + std::to_string(count) + " unidades";
  for (const std::string& row : List2.rows()) text.append(kLine).append(row);
  context_.strip.Alerta(work::kResult, text, true);
  hits_.several(List2.rows());
  return true;
}

// Takes the one hit in the folder that the user has chosen for all of the old folder. False where
// there is no such folder, or no hit in it, or several.
bool Buscar::choose_by_folder() {
  if (update_ == nullptr || update_->old_folder.empty()) return false;
  const auto rule = update_->chosen.find(text::same_file_key(update_->old_folder));
  if (rule == update_->chosen.end()) return false;
  const std::string folder = text::same_file_key(rule->second);
  const std::string* taken = nullptr;
  for (const std::string& row : List2.rows()) {
    if (text::same_file_key(text::folder_of(row)) != folder) continue;
    if (taken != nullptr) return false;
    taken = &row;
  }
  if (taken == nullptr) return false;
  context_.work.ArchivoActual = *taken;
  return true;
}

// Has one of the hits chosen: as for other files of the folder, or by the user, for whom it waits.
// False when the job has ended meanwhile, or the program has.
bool Buscar::choose(work::Job& job) {
  if (choose_by_folder()) return true;
  if (update_ != nullptr && update_->before_question) update_->before_question();
  if (update_ != nullptr && update_->on_several) {
    const auto row = update_->on_several(List2.rows());
    if (row) context_.work.ArchivoActual = *row;
    return row.has_value();
  }
  ElegirRuta* choice = context_.windows.touch<ElegirRuta>();
  if (choice == nullptr) return true;
  choice->Elegido = false;
  choice->offer_folder(update_ != nullptr ? update_->old_folder : "");
  choice->ListElegirRuta.clear();
  choice->ListElegirRuta.add(List2.rows());
  ui::ListaAncho(choice->ListElegirRuta);
  system::EventPump& pump = context_.platform.pump;
  while (choice != nullptr && !choice->Elegido && !pump.ended() && !job.superseded()) {
    pump.wait();
    choice = context_.windows.find<ElegirRuta>();
  }
  const bool chosen = choice != nullptr && choice->Elegido;
  const std::string& row = context_.work.ArchivoActual;
  if (chosen && choice->for_whole_folder() && update_ != nullptr && !row.empty()) {
    update_->chosen[text::same_file_key(update_->old_folder)] = text::folder_of(row);
  }
  context_.windows.close<ElegirRuta>();
  return chosen;
}

void Buscar::stop_clock() {
  context_.clocks.TimerLap.stop();
  context_.clocks.TextLapsoTotal.set_back_color(ui::Color::window_background);
}

}  // namespace ordelan::location
