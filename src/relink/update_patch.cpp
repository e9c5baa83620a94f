// The second pass of an update: the paths of each project are overwritten.
#include <algorithm>
#include <utility>

#include "relink/update_lookups.h"
#include "relink/update_run.h"
#include "removal/reasons.h"
#include "text/paths.h"

namespace ordelan::relink {
namespace {

constexpr const char* kOriginal = "está en una carpeta de originales";
constexpr const char* kNoPointers = "no tiene archivo de punteros";
constexpr const char* kBadPointers = "su archivo de punteros está dañado";
constexpr const char* kBadPositions = "sus punteros no caen dentro del archivo";
constexpr const char* kUnread = "no se ha podido leer";
constexpr const char* kSeveral = "hay varios archivos con el nombre de uno de los suyos";
constexpr const char* kStopped = "se ha cancelado";
constexpr const char* kNotReached = "el trabajo ha terminado antes";

}  // namespace

// All names are looked for on the drives at once, so that one walk answers every search.
void UpdateRun::expect_names() {
  for (const std::string& row : rows_) {
    if (is_original(text::Obtener_VipPath(row))) continue;
    const auto bytes = pointer_bytes(row);
    if (!bytes) continue;
    const auto project = open_project(context_.platform.files, target_of(row));
    if (!project) continue;
    for (const Pointer& pair : read_pointers(*bytes).pairs) {
      if (pair.ini < 1 || pair.fin < 1) break;
      const std::string path = bytes_between((*project)->image, pair.ini, pair.fin);
      if (is_searched(path)) search_.index.expect(name_in(path));
    }
    if (!go_on()) return;
  }
}

UpdateRun::End UpdateRun::patch(const std::function<void()>& zero_counter) {
  const End end = patch_all(zero_counter);
  batch_.put();
  // The report names those that the pass has not come to.
  for (std::size_t i = projects_.size(); end != End::done && i < rows_.size(); ++i) {
    projects_.push_back({.ruta = text::Obtener_VipPath(rows_[i]),
                         .destino = target_of(rows_[i]),
                         .motivo = end == End::stopped ? kStopped : kNotReached});
  }
  return end;
}

UpdateRun::End UpdateRun::patch_all(const std::function<void()>& zero_counter) {
  if (job_.must_stop()) return End::stopped;
  if (auto* const buscar = context_.windows.touch<location::Buscar>()) {
    buscar->set_update(&search_);
  }
  expect_names();
  if (job_.must_stop()) return End::stopped;
  for (const std::string& row : rows_) {
    Informe_ += CarpetaOriginales_ + text::Obtener_Nombre_Archivo(row) + "\r\n";
    zero_counter();
    projects_.push_back({.ruta = text::Obtener_VipPath(row), .destino = target_of(row)});
    ProjectUpdate& update = projects_.back();
    if (is_original(update.ruta)) {
      update.motivo = kOriginal;
      continue;
    }
    // The folder of the originals cannot be used, or the copies are not on the disk for good:
    // nothing may be touched.
    if (!no_originals_.empty()) {
      update.motivo = no_originals_;
      continue;
    }
    if (const auto blocked = blocked_pointers_.find(pointer_key(row));
        blocked != blocked_pointers_.end()) {
      update.motivo = blocked->second;
      continue;
    }
    if (!has_pointers(row)) {
      update.motivo = kNoPointers;
      if (options_.careful) continue;
      return End::no_pointers;
    }
    const auto bytes = pointer_bytes(row);
    Pointers pointers;
    pointers.damaged = !bytes;
    if (bytes) pointers = read_pointers(*bytes);
    if (!patch_project(row, pointers, update)) {
      update.motivo = kStopped;
      return End::stopped;
    }
    drop_pointers(row);
    if (batch_.due()) batch_.put();
    if (!go_on()) return End::stopped;
  }
  return End::done;
}

// A project in hand when the run is stopped stays as it was. False then.
bool UpdateRun::patch_project(const std::string& row, const Pointers& pointers,
                              ProjectUpdate& update) {
  const Target& target = targets_[text::same_file_key(target_of(row))];
  update.motivo = target.motivo;
  if (update.motivo.empty() && (pointers.odd || pointers.damaged)) update.motivo = kBadPointers;
  if (!update.motivo.empty()) return true;
  // A second row of the project goes on from what the first has made of it.
  if (batch_.holds(update.destino)) batch_.put();
  auto project = open_project(context_.platform.files, update.destino);
  if (!project) {
    update.motivo = removal::reason::of(project.status());
    return true;
  }
  // One that has gone meanwhile is not made anew from its paths alone.
  if (target.exists && (*project)->file == nullptr) {
    update.motivo = removal::reason::of(system::Reason::not_found);
    return true;
  }
  if (!patch_image(**project, pointers, update)) return false;
  if (update.motivo.empty()) put(target, **project, update);
  return true;
}

bool UpdateRun::patch_image(OpenProject& project, const Pointers& pointers, ProjectUpdate& update) {
  const PatchRules rules{CarpetaOriginales_.front(), text::Obtener_Nombre_Path(update.ruta, true),
                         options_.careful};
  // The pointers are those of the row's project: beyond its end they cannot lead.
  const auto row = context_.platform.files.info(update.ruta);
  const Position end = row ? static_cast<Position>(row->size) : 0;
  for (const Pointer& pair : pointers.pairs) {
    if (pair.ini > end || pair.fin > end) {
      update.motivo = kBadPositions;
      return true;
    }
    lookups_.begin(project.image, pair);
    auto change = patch_pair(project.image, pair, rules, lookups_);
    if (!go_on() || context_.platform.pump.ended()) return false;
    if (options_.leaves_project && options_.leaves_project()) {
      update.motivo = kSeveral;
      return true;
    }
    if (!change) {
      update.motivo = project.image.failed() ? kUnread : kBadPositions;
      return true;
    }
    update.rutas.push_back(std::move(*change));
  }
  return true;
}

// Has the patched project put into place, unless it is as it was.
void UpdateRun::put(const Target& target, OpenProject& project, ProjectUpdate& update) {
  update.creado = !target.exists;
  update.cambiado = update.creado || project.image.differs();
  if (!update.cambiado) return;
  if (options_.simulate) {
    if (update.creado) return;
    const auto opened = context_.platform.files.change(update.destino);
    if (!opened) update.motivo = removal::reason::of(opened.status());
    return;
  }
  const std::size_t number = projects_.size() - 1;
  batch_.add(project, update.destino,
             update.creado ? std::nullopt : std::optional<work::Visto>(target.seen),
             [this, number](system::Status put) {
               if (!put) projects_[number].motivo = removal::reason::of(put);
             });
}

}  // namespace ordelan::relink
