#include "relink/update_run.h"

#include <algorithm>
#include <set>
#include <utility>

#include "relink/update_report.h"
#include "removal/reasons.h"
#include "system/whole_file.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "text/rows.h"

namespace ordelan::relink {

using system::Reason;
using system::Status;

namespace {

constexpr const char* kTwin = "otro proyecto tiene el mismo nombre con otras mayúsculas";

}  // namespace

UpdateRun::UpdateRun(const work::Context& context, project::VipReader& reader,
                     const PointerListener& listener, const UpdateOptions& options, work::Job& job,
                     std::string RutaProyectos, std::vector<std::string> rows)
    : context_(context),
      options_(options),
      job_(job),
      RutaProyectos_(std::move(RutaProyectos)),
      CarpetaOriginales_(originals_folder(RutaProyectos_)),
      rows_(std::move(rows)),
      pointers_(context, reader, listener),
      search_(context.platform),
      lookups_(context, job, search_),
      batch_(context.platform.files, context.platform.clock,
             {[this](const std::vector<ProjectChange>& changes) {
                return originals_->note_changes(changes);
              },
              [this](const std::string& path) { originals_->note_left(path).ignore(); }},
             [this] { job_.turn(); }) {
  search_.on_several = options.on_several;
  // A power cut in a long wait is to find those projects done that came before it.
  search_.before_question = [this] { batch_.put(); };
  search_.index.before_walk = [this] { batch_.put(); };
}

UpdateRun::~UpdateRun() {
  finish();
}

void UpdateRun::finish() {
  if (auto* const buscar = context_.windows.find<location::Buscar>()) buscar->set_update(nullptr);
  if (originals_) originals_->close();
  originals_.reset();
}

// The file that is patched for a row stands in the folder of the projects, under the row's name: a
// row of another folder is written into a file of its name there, which is made if it is missing.
// Projects that are sorted into subfolders are so found together, beside their originals.
std::string UpdateRun::target_of(const std::string& row) const {
  if (options_.careful) return text::Obtener_VipPath(row);
  return system::with_backslash(RutaProyectos_) + text::Obtener_Nombre_Archivo(row);
}

void UpdateRun::prepare() {
  if (options_.simulate) {
    foresee_folder();
  } else {
    take_folder();
  }
  list_targets();
  if (job_.must_stop()) return;
  if (originals_) copy_projects();
  if (job_.must_stop()) return;
  if (originals_ && !options_.careful) save_foreign_pointers();
  if (job_.must_stop()) return;
  if (originals_) settle();
  if (job_.must_stop()) return;
  if (options_.simulate || options_.careful) {
    keep_pointers();
  } else if (originals_) {
    write_pointers();
  }
  Informe_ = "Los Vip's actualizados estan en la carpeta: " + RutaProyectos_ + "\r\n" +
             "Los Vip's originales estan en la carpeta: " + CarpetaOriginales_ + "\r\n\r\n" +
             "Lista de Vip's actualizados: " + "\r\n\r\n";
}

// Without the folder nothing is done at all: another update may be at work in it.
void UpdateRun::take_folder() {
  system::FileSystem& files = context_.platform.files;
  const auto there = files.info(CarpetaOriginales_);
  const Status made =
      there && there->folder
          ? Status()
          : files.make_folder(CarpetaOriginales_.substr(0, CarpetaOriginales_.size() - 1));
  originals_ = std::make_unique<Originals>(files, context_.platform.shell, CarpetaOriginales_,
                                           [this] { return go_on(); });
  const Status taken = made ? originals_->take() : made;
  taken_ = taken.ok();
  if (!taken_) give_up(taken);
}

// Whether the update itself would come to its folder, as far as can be seen without touching it.
void UpdateRun::foresee_folder() {
  system::FileSystem& files = context_.platform.files;
  const std::string name = CarpetaOriginales_.substr(0, CarpetaOriginales_.size() - 1);
  const auto there = files.info(name);
  if (there && !there->folder) no_originals_ = removal::reason::of(Reason::exists);
}

void UpdateRun::give_up(Status why) {
  no_originals_ = removal::reason::of(why);
  originals_->close();
  originals_.reset();
}

// What is patched for each row. Two files whose names differ by case alone are one place here.
void UpdateRun::list_targets() {
  system::FileSystem& files = context_.platform.files;
  for (const std::string& row : rows_) {
    if (!go_on()) return;
    const std::string path = target_of(row);
    Target& target = targets_[text::same_file_key(path)];
    if (!target.path.empty() && target.path != path &&
        files.identity(target.path) != files.identity(path)) {
      target.motivo = kTwin;
    }
    if (!target.path.empty()) continue;
    target.path = path;
    const auto there = files.info(path);
    target.exists = there.has_value() || files.open(path).status() != Reason::not_found;
  }
}

void UpdateRun::copy_projects() {
  std::set<std::string> folders;
  for (const auto& [key, target] : targets_) folders.insert(text::getPath(target.path, "\\"));
  for (const std::string& folder : folders) remove_leftovers(context_.platform.files, folder);
  std::vector<std::string> paths;
  for (const std::string& row : rows_) {
    const std::string path = text::Obtener_VipPath(row);
    if (!is_original(path)) paths.push_back(path);
  }
  const Status room = originals_->make_room(paths);
  if (job_.must_stop()) return;
  if (!room) return give_up(room);
  for (const std::string& path : paths) {
    const Status copied = originals_->copy(path);
    const auto target = targets_.find(text::same_file_key(path));
    if (!copied && target != targets_.end() && target->second.path == path) {
      target->second.motivo = removal::reason::of(copied);
    }
    if (!go_on()) return;
  }
  // What is patched needs its own copy, also where it is no row: that is not asked about.
  for (auto& [key, target] : targets_) {
    if (!target.exists || !target.motivo.empty()) continue;
    const Status copied = originals_->copy_aside(target.path);
    if (!copied) {
      target.motivo = removal::reason::of(copied);
    } else {
      target.seen = originals_->copy_of(target.path)->seen;
    }
    if (!go_on()) return;
  }
}

void UpdateRun::settle() {
  if (const Status settled = originals_->settle(); !settled) give_up(settled);
}

void UpdateRun::keep_pointers() {
  for (const std::string& row : rows_) {
    if (is_original(text::Obtener_VipPath(row))) continue;
    if (auto walked = pointers_.pointers_of(row, job_); walked && walked->whole) {
      kept_pointers_[pointer_key(row)] = std::move(walked->lines);
    }
    if (job_.must_stop()) return;
  }
}

// A file that has the name of a pointer file and is none is somebody's own. It makes room once it
// is saved.
void UpdateRun::save_foreign_pointers() {
  system::FileSystem& files = context_.platform.files;
  for (const std::string& row : rows_) {
    // A look for a missing name may take the system long where the folder has many.
    if (!go_on()) return;
    const std::string path = pointer_path(row);
    if (!originals_->has_name(read_pointer_name(row)) || !is_foreign_pointer_file(files, path)) {
      continue;
    }
    if (const Status saved = originals_->save(path); saved) {
      foreign_pointers_.push_back(path);
    } else {
      blocked_pointers_[pointer_key(row)] = removal::reason::of(saved);
    }
  }
}

void UpdateRun::write_pointers() {
  for (const std::string& path : foreign_pointers_) context_.platform.files.remove(path).ignore();
  std::vector<std::string> rows;
  std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(rows),
               [](const std::string& row) { return !is_original(text::Obtener_VipPath(row)); });
  pointers_.GrabarPunteros(CarpetaOriginales_, rows, job_);
}

std::string UpdateRun::pointer_path(const std::string& row) const {
  return CarpetaOriginales_ + read_pointer_name(row);
}

std::string UpdateRun::pointer_key(const std::string& row) const {
  return options_.careful ? row : text::lower(read_pointer_name(row));
}

bool UpdateRun::has_pointers(const std::string& row) const {
  if (options_.simulate || options_.careful) return kept_pointers_.contains(pointer_key(row));
  return context_.platform.files.look_up(pointer_path(row)).has_value();
}

// What the pass before has found. A file that holds anything else is not what it has written: it is
// an older one, or was cut short.
std::optional<std::string> UpdateRun::pointer_bytes(const std::string& row) const {
  if (options_.simulate || options_.careful) {
    const auto kept = kept_pointers_.find(pointer_key(row));
    if (kept == kept_pointers_.end()) return std::nullopt;
    return kept->second;
  }
  const auto written = pointers_.written().find(pointer_key(row));
  if (written == pointers_.written().end()) return std::nullopt;
  const auto bytes = removal::bytes_of(context_.platform.files, pointer_path(row));
  if (!bytes || *bytes != written->second.lines) return std::nullopt;
  return *bytes;
}

void UpdateRun::drop_pointers(const std::string& row) {
  if (options_.simulate || options_.careful) {
    kept_pointers_.erase(pointer_key(row));
  } else if (!is_foreign_pointer_file(context_.platform.files, pointer_path(row))) {
    context_.platform.files.remove(pointer_path(row)).ignore();
  }
}

bool UpdateRun::save_report() {
  if (!taken_) return options_.simulate;
  system::FileSystem& files = context_.platform.files;
  const std::string path = CarpetaOriginales_ + kReportName;
  if (files.info(path)) {
    if (!is_report(files, path) && !(originals_ && originals_->save(path))) return false;
  }
  // Of a large folder it is long: the window gets its turns.
  const auto write = [&](system::OutputFile& file) {
    system::Status status = file.write(report_heading(context_.platform.regional));
    for (std::size_t i = 0; status && i < projects_.size(); ++i) {
      status = file.write(report_lines(projects_[i]));
      job_.turn();
    }
    return status ? file.write(report_end(unseen())) : status;
  };
  return system::write_in_pieces(files, path, write).ok();
}

}  // namespace ordelan::relink
