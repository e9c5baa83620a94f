#include "project/project_decoding.h"

#include <cstdint>

#include "project/project_gate.h"
#include "project/repeated_rows.h"
#include "text/paths.h"
#include "text/rows.h"

namespace ordelan::project {

void ProjectDecoding::DescodificarProyectos(work::Job& job, bool with_backups) {
  lists_.LabelAdd[0].hide();
  strip_.TextDecode.show();
  decoded_ = 0;
  misread_.clear();
  work_.ProyectosLeidos.clear();
  std::size_t duplicates = 0;

  const auto projects = lists_.ListProyectos.kept_rows();
  const auto maximum = static_cast<std::int64_t>(projects->size());
  for (std::size_t i = 0; i < projects->size(); ++i) {
    decode_row(job, (*projects)[i], with_backups);
    if (job.superseded()) return;
    job.turn();
    if (job.superseded()) return;
    // The reader has used the bar for its own file.
    strip_.XP_ProgressBar1.set_range(0, maximum);
    strip_.XP_ProgressBar1.set_value(static_cast<std::int64_t>(i));
    if (job.cancelled()) break;
  }
  if (!job.cancelled()) duplicates = strike_out_repeats(job);
  if (job.superseded()) return;

  strip_.TextDecode.hide();
  lists_.LabelAdd.set_visible(false);
  const std::size_t total = reader_.TotalArchivosVip;
  lists_.LabelAdd[0].set_caption(
      std::to_string(total) + "  archivos en: " + std::to_string(decoded_) + " proyectos, " +
      std::to_string(duplicates) + " duplicados; Total: " + std::to_string(total - duplicates));
  lists_.LabelAdd[1].set_caption(work_.RutaProyectos);
  lists_.LabelAdd.set_visible(true);
}

void ProjectDecoding::decode_row(work::Job& job, const std::string& row, bool with_backups) {
  if (!with_backups && row.find("_BAK") != std::string::npos) {
    left_out_.add(text::Obtener_VipPath(row), WhyOut::backup);
    return;
  }
  if (job.display_due()) strip_.Alerta(work::kProgress, "Descodificando: " + row, true);

  const std::string prefix = row.substr(0, row.find('>') + 1) + " ";
  const std::string own_path(text::after_arrow(row));
  std::string path = with_backups ? text::Obtener_VipPath(row) : own_path;
  if (!with_backups && !work_.PrimerProyecto.empty() &&
      !platform_.files.look_up(work_.PrimerProyecto)) {
    path = work_.RutaProyectos + path;
    work_.PrimerProyecto = path;
  }
  note_read(own_path);
  if (reader_.ExtraerNombres_Archivos(path, into(lists_.ListUtilizados), prefix + path, true)) {
    ++decoded_;
    if (reader_.last_reading() == Reading::broken) left_out_.add(path, WhyOut::broken);
  } else if (const auto why = why_without_audio(platform_.files, reader_, path)) {
    left_out_.add(own_path, *why);
  }
  // The folder is put before rows that are names alone, and before whole paths as well, which are
  // then not found; and of a row on a network share the number stays before the path, which is then
  // read from the wrong place. What those projects use must not be offered.
  if (path != own_path && !job.superseded()) read_misread(own_path);
}

// How the project stands on the disk before it is read: one that is missing can never pass for the
// one that was read.
void ProjectDecoding::note_read(const std::string& path) {
  const auto info = platform_.files.info(path);
  work_.ProyectosLeidos.push_back(
      {path, info ? info->size : work::Visto::kMissing, info ? info->modified : 0});
}

void ProjectDecoding::read_misread(const std::string& path) {
  const std::size_t counted = reader_.TotalArchivosVip;
  reader_.ExtraerNombres_Archivos(path, into(misread_), "", true);
  reader_.TotalArchivosVip = counted;
}

// Two files are the same only if their full paths are, letter for letter; the first stays, so that
// a shared file stands under the first project that uses it.
std::size_t ProjectDecoding::strike_out_repeats(work::Job& job) {
  ui::ListBox& list = lists_.ListUtilizados;
  auto rows = list.kept_rows();
  const auto repeated = repeated_rows(
      *rows, [](const std::string& row) { return !text::is_file_row(row); }, [&] { job.turn(); });
  if (job.superseded()) return 0;
  std::size_t count = 0;
  std::string last;
  for (std::size_t i = 0; i < repeated.size(); ++i) {
    if (!repeated[i]) continue;
    ++count;
    last = (*rows)[i];
  }
  rows.reset();  // or the list would copy them before it takes any out
  if (count == 0) return 0;
  strip_.XP_ProgressBar1.set_range(0, static_cast<std::int64_t>(list.count()));
  strip_.XP_ProgressBar1.set_value(static_cast<std::int64_t>(list.count()));
  strip_.Alerta(work::kProgress, "Eliminando duplicado: " + last, true);
  list.remove_if([&](std::size_t i) { return repeated[i]; });
  return count;
}

}  // namespace ordelan::project
