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
      search_(context.platform) {
  search_.on_several = options.on_several;
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
  system::FileSystem& files = context_.platform.files;
  if (!options_.simulate) {
    const auto there = files.info(CarpetaOriginales_);
    const Status made =
        there && there->folder
            ? Status()
            : files.make_folder(CarpetaOriginales_.substr(0, CarpetaOriginales_.size() - 1));
    originals_ = std::make_unique<Originals>(files, context_.platform.shell, CarpetaOriginales_,
                                             [this] { return go_on(); });
    const Status taken = made ? originals_->take() : made;
    if (!taken) {
      no_originals_ = removal::reason::of(taken);
      originals_.reset();
    }
    clean_up();
  }
  copy_projects();
  copy_targets();
  if (job_.must_stop()) return;
  if (originals_) {
    if (const Status settled = originals_->settle(); !settled) give_up_originals(settled);
  }
  if (options_.simulate || options_.careful) {
    for (const std::string& row : rows_) {
      if (is_original(text::Obtener_VipPath(row))) continue;
      if (auto lines = pointers_.pointers_of(row, job_)) {
        const std::string key = options_.careful ? row : written_pointer_name(row);
        kept_pointers_[text::lower(key)] = std::move(*lines);
      }
      if (job_.must_stop()) return;
    }
  } else {
    save_foreign_pointers();
    std::vector<std::string> rows;
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(rows),
                 [this](const std::string& row) {
                   return !is_original(text::Obtener_VipPath(row)) &&
                          !foreign_pointers_.contains(text::lower(written_pointer_name(row)));
                 });
    pointers_.GrabarPunteros(CarpetaOriginales_, rows, job_);
  }
  if (job_.must_stop()) return;
  Informe_ = "Los Vip's actualizados estan en la carpeta: " + RutaProyectos_ + "\r\n" +
             "Los Vip's originales estan en la carpeta: " + CarpetaOriginales_ + "\r\n\r\n" +
             "Lista de Vip's actualizados: " + "\r\n\r\n";
}

// Without copies that are safe no project is touched.
void UpdateRun::give_up_originals(Status why) {
  no_originals_ = removal::reason::of(why);
  originals_->close();
  originals_.reset();
}

void UpdateRun::clean_up() {
  std::set<std::string> folders;
  for (const std::string& row : rows_) folders.insert(text::getPath(target_of(row), "\\"));
  for (const std::string& folder : folders) {
    remove_leftovers(context_.platform.files, folder);
  }
}

void UpdateRun::copy_projects() {
  if (originals_) {
    std::vector<std::string> paths;
    for (const std::string& row : rows_) {
      const std::string path = text::Obtener_VipPath(row);
      if (!is_original(path)) paths.push_back(path);
    }
    const Status room = originals_->make_room(paths);
    if (job_.must_stop()) return;
    if (!room) give_up_originals(room);
  }
  for (const std::string& row : rows_) {
    const std::string path = text::Obtener_VipPath(row);
    const std::string target = target_of(row);
    Target& entry = targets_[text::same_file_key(target)];
    entry.path = target;
    if (is_original(path)) continue;
    if (!originals_) continue;
    const Status copied = originals_->copy(path);
    if (text::same_file_key(path) == text::same_file_key(target) && !copied) {
      entry.motivo = removal::reason::of(copied);
    }
    if (!go_on()) return;
  }
}

// What is patched needs its own copy, also where it is no row, and is not asked about.
void UpdateRun::copy_targets() {
  system::FileSystem& files = context_.platform.files;
  for (auto& [key, target] : targets_) {
    const auto there = files.info(target.path);
    target.exists = there.has_value() || files.open(target.path).status() != Reason::not_found;
    if (there) target.seen = {there->size, there->modified};
    if (options_.simulate || !target.exists || !target.motivo.empty()) continue;
    if (!originals_) {
      target.motivo = no_originals_;
      continue;
    }
    const Status copied = originals_->copy_aside(target.path);
    if (!copied) {
      target.motivo = removal::reason::of(copied);
    } else {
      target.seen = originals_->copy_of(target.path)->seen;
      originals_->note_target(target.path).ignore();
    }
    if (!go_on()) return;
  }
}

std::string UpdateRun::pointer_path(const std::string& row) const {
  return CarpetaOriginales_ + read_pointer_name(row);
}

// A file that has the name of a pointer file and is none is somebody's own.
void UpdateRun::save_foreign_pointers() {
  system::FileSystem& files = context_.platform.files;
  for (const std::string& row : rows_) {
    const std::string path = pointer_path(row);
    if (!files.info(path)) continue;
    const auto bytes = removal::bytes_of(files, path);
    if (bytes && !read_pointers(*bytes).damaged) continue;
    const Status saved = originals_ ? originals_->save(path) : Status(Reason::other);
    if (saved) continue;
    foreign_pointers_[text::lower(read_pointer_name(row))] =
        originals_ ? removal::reason::of(saved) : no_originals_;
  }
}

std::optional<std::string> UpdateRun::pointer_bytes(const std::string& row) {
  if (options_.simulate || options_.careful) {
    const auto found =
        kept_pointers_.find(text::lower(options_.careful ? row : read_pointer_name(row)));
    if (found == kept_pointers_.end()) return std::nullopt;
    return found->second;
  }
  system::FileSystem& files = context_.platform.files;
  if (!files.look_up(pointer_path(row))) return std::nullopt;
  return removal::bytes_of(files, pointer_path(row));
}

// Rows of one name have one pointer file: a part of any of them is not to be used.
bool UpdateRun::has_whole_pointers(const std::string& row) const {
  const auto is_of = [&](const std::string& other) {
    if (options_.careful) return other == row;
    return text::equal_ignoring_case(written_pointer_name(other), read_pointer_name(row));
  };
  const auto& incomplete = pointers_.incomplete();
  return std::none_of(incomplete.begin(), incomplete.end(), is_of);
}

void UpdateRun::drop_pointers(const std::string& row) {
  if (options_.simulate || options_.careful) {
    kept_pointers_.erase(text::lower(options_.careful ? row : read_pointer_name(row)));
  } else {
    context_.platform.files.remove(pointer_path(row)).ignore();
  }
}

bool UpdateRun::save_report() {
  if (options_.simulate) return true;
  system::FileSystem& files = context_.platform.files;
  const std::string path = CarpetaOriginales_ + kReportName;
  if (files.info(path)) {
    const auto old = removal::bytes_of(files, path);
    if (!old || (!is_report(*old) && !(originals_ && originals_->save(path)))) return false;
  }
  return system::write_whole(files, path,
                             report_text(report_heading(context_.platform.regional), projects_))
      .ok();
}

}  // namespace ordelan::relink
