#include "relink/pointer_writer.h"

#include <algorithm>
#include <new>

#include "project/file_window.h"
#include "relink/pointer_walk.h"
#include "removal/backup_folder.h"
#include "text/code_page.h"
#include "text/rows.h"

namespace ordelan::relink {

using project::Position;

namespace {

// A search for the marker that could not read the project finds none either. True where the file
// has it after all, or cannot be read.
bool has_marker(system::InputFile& file) {
  project::FileWindow window(file);
  project::MarkerSearch marker(project::kHeaderPosition, window.length());
  while (!marker.done()) {
    window.move(marker.position());
    marker.advance(window.chunk());
  }
  return window.failed() || marker.limit() > 0;
}

}  // namespace

void PointerWriter::show_begun() {
  if (shown_) return;
  shown_ = true;
  work::StatusStrip& strip = context_.strip;
  if (listener_.begun) listener_.begun();
  strip.XP_ProgressBar1.set_range(0, 100);
  strip.XP_ProgressBar1.set_value(0);
  strip.LabelAviso.set_font({.points = 14, .bold = true});
  strip.LabelAviso.set_caption("Grabando punteros para actualizar... esperar a que termine.");
  strip.LabelAviso.show();
}

void PointerWriter::show_ended() {
  if (several_ || !shown_) return;
  shown_ = false;
  if (listener_.ended) listener_.ended();
  context_.strip.LabelAviso.hide();
}

// Between two rows the window gets no turn, so that what it shows stays from the first to the last.
void PointerWriter::GrabarPunteros(const std::string& Carpeta, const std::vector<std::string>& rows,
                                   work::Job& job) {
  several_ = true;
  for (const std::string& row : rows) {
    GrabarPunteroVip(row, Carpeta, job);
    if (job.must_stop()) break;
  }
  several_ = false;
  if (!job.superseded()) show_ended();
}

// The path of a row whose project can be walked; nothing where no pointer file is written.
std::optional<std::string> PointerWriter::project_of(const std::string& row) const {
  if (text::lower(row).find(".vip") == std::string::npos) return std::nullopt;
  std::string path(text::after_arrow(row));
  const auto there = context_.platform.files.look_up(path);
  if (!there) return std::nullopt;
  return path;
}

std::optional<PointerWriter::Walked> PointerWriter::pointers_of(const std::string& Fila,
                                                                work::Job& job) {
  const auto path = project_of(Fila);
  if (!path) return std::nullopt;
  const auto there = context_.platform.files.info(*path);
  if (!there || there->size == 0) return std::nullopt;
  return walk(*path, job);
}

void PointerWriter::GrabarPunteroVip(const std::string& Fila, const std::string& Carpeta,
                                     work::Job& job) {
  if (!project_of(Fila)) return;
  show_begun();
  if (const auto walked = pointers_of(Fila, job)) {
    write(Carpeta, written_pointer_name(Fila), *walked);
  }
  if (!job.superseded()) show_ended();
}

bool is_foreign_pointer_file(system::FileSystem& files, const std::string& path) {
  if (!files.info(path)) return false;
  const auto bytes = removal::bytes_of(files, path);
  return !bytes || read_pointers(*bytes).damaged;
}

void PointerWriter::write(const std::string& folder, const std::string& name,
                          const Walked& walked) {
  const std::string key = text::lower(name);
  written_.erase(key);
  system::FileSystem& files = context_.platform.files;
  auto file = files.create_new(folder + name);
  if (file.status() == system::Reason::exists) {
    if (is_foreign_pointer_file(files, folder + name)) return;
    file = files.create(folder + name);
  }
  if (!file) return;
  const system::Status wrote = file->write(walked.lines);
  const system::Status closed = file->close();
  if (wrote && closed && walked.whole) written_[key] = {name, walked.lines};
}

// The numbers of one project as lines. A walk that is stopped, or that cannot read on, gives those
// so far.
PointerWriter::Walked PointerWriter::walk(const std::string& path, work::Job& job) {
  Walked walked{{}, false};
  std::string& lines = walked.lines;
  reader_.PosFinalVip = reader_.BuscarMarcaListas(path, project::kHeaderPosition);
  const auto file = context_.platform.files.open(path);
  if (!file || job.must_stop()) return walked;
  ui::ProgressBar& bar = context_.strip.XP_ProgressBar1;
  int progress = 0;
  PointerWalk walk(reader_.PosFinalVip);
  try {
    project::FileWindow window(*file);
    while (!walk.ended()) {
      window.move(walk.position() - 1);
      Position number = 0;
      while (walk.next(window.chunk(), number)) {
        lines += pointer_line(number);
        if (!walk.gave_end()) continue;
        progress = progress >= 90 ? 0 : progress + 10;
        if (job.display_due()) bar.set_value(progress);
      }
      if (!job.turn() && walk.may_stop()) return walked;
      if (job.superseded()) return walked;
    }
    walked.whole = !window.failed() && (reader_.PosFinalVip > 0 || !has_marker(*file));
  } catch (const std::bad_alloc&) {
    // A project made to exhaust the memory: the lines so far stay.
  }
  return walked;
}

}  // namespace ordelan::relink
