// The part of the review that shows before a run what it would take and what it would keep.
#include <algorithm>
#include <string_view>
#include <unordered_set>

#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "removal/removal_run.h"
#include "removal/second_reading.h"
#include "skin/removal_review_layout.h"
#include "text/numbers.h"
#include "text/rows.h"
#include "ui/list_width.h"
#include "work/job.h"

namespace ordelan::removal {

void ParaBorrar::comprobar() {
  sizes_.emplace(context().work, context().platform);  // drives are asked anew
  show_totals();
  TimerComprobar.start();
}

// The window may be closed, and opened again, in any turn of the look.
void ParaBorrar::look_at_projects() {
  // The list of a decode is not whole, nor its sizes noted, before it ends: the timer ticks again.
  if (context().work.Descodificando) return;
  TimerComprobar.stop();
  if (removal_.state.running || !visible()) return;
  show_totals();
  const auto* const options = context().windows.find<BacUp>();
  if (options == nullptr || !options->CheckComprobar.checked()) {
    show_kept({});
    return;
  }
  LabelConservados.set_caption("Comprobando los proyectos...");
  LabelConservados.show();
  const RemovalContext removal = removal_;
  auto job = work::Job::join(removal.work.work, removal.work.platform);
  const std::size_t number = ++removal.state.looks;
  const auto is_last = [&] {
    return !job.superseded() && number == removal.state.looks &&
           removal.work.windows.visible(kName);
  };
  const auto kept = removal.second_reading.look(
      rows_to_search(*ListBorrar.kept_rows(), *removal.work.lists.List1.kept_rows()), [&] {
        job.turn();
        return is_last();
      });
  if (number != removal.state.looks || !removal.work.windows.visible(kName)) return;
  auto& review = *removal.work.windows.find<ParaBorrar>();
  if (kept) {
    review.show_kept(*kept);
  } else if (review.cmdHecho.visible()) {
    // Another job has ended the look; it begins anew as soon as that has ended.
    review.TimerComprobar.start();
  } else {
    review.show_kept({});
  }
}

void ParaBorrar::show_kept(const std::vector<Kept>& kept) {
  ListConservados.clear();
  kept_paths_.clear();
  const std::unordered_set<std::string_view> rows(ListBorrar.rows().begin(),
                                                  ListBorrar.rows().end());
  for (const Kept& each : kept) {
    if (!rows.contains(each.ruta)) continue;  // a side file
    ListConservados.add(text::row_with_reason(each.ruta, "Se conserva: " + each.motivo));
    kept_paths_.push_back(each.ruta);
  }
  ui::ListaAncho(ListConservados);
  show_kept_list();
  show_totals();  // what is kept takes nothing
}

// The list of what is kept takes its room from the foot of the other.
void ParaBorrar::show_kept_list() {
  const bool shown = !ListConservados.empty();
  const int taller = size().height - skin::kRemovalReview.height;
  LabelConservados.set_caption("Se conservan: " + std::to_string(ListConservados.count()));
  LabelConservados.set_visible(shown);
  ListConservados.set_visible(shown);
  for (ui::ListBox* const list : {&ListBorrar, static_cast<ui::ListBox*>(&ListStatus)}) {
    ui::Rect place = list->bounds();
    place.height = taller + (shown ? skin::kRemovalReviewShortList : skin::kRemovalReviewLongList);
    list->set_bounds(place);
  }
}

RunTotals ParaBorrar::totals() {
  if (!sizes_) sizes_.emplace(context().work, context().platform);
  const std::unordered_set<std::string_view> kept(kept_paths_.begin(), kept_paths_.end());
  return sizes_->totals(
      ListBorrar.rows(),
      [&](std::size_t i) { return ListStatus.ticked(i) && !kept.contains(ListBorrar.row(i)); },
      CheckBorrarPapelera.checked(), removal_.state.RutaBackup);
}

void ParaBorrar::show_totals() {
  // What a decode has not noted yet would be asked of the disk, file by file; and what a run has
  // removed takes nothing any more.
  if (context().work.Descodificando || !cmdHecho.visible()) {
    LabelEspacio.set_caption("");
    LabelPapelera.hide();
    return;
  }
  const RunTotals totals = this->totals();
  const char mark = context().platform.regional.decimal_mark();
  std::string room = "Activados: " + text::format_size(static_cast<double>(totals.ticked), mark);
  const auto* const options = context().windows.find<BacUp>();
  if (options != nullptr && options->CheckBackup.checked()) {
    room += "     " + room_line(context().platform, totals, removal_.state.RutaBackup);
  }
  LabelEspacio.set_caption(room);
  std::string bins;
  for (const DriveWithoutBin& drive : totals.no_bin) {
    bins += (bins.empty() ? "" : ". ") + sentence(drive);
  }
  LabelPapelera.set_caption(bins);
  LabelPapelera.set_visible(!bins.empty());
}

}  // namespace ordelan::removal
