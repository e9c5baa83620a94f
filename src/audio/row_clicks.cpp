// Clicks on rows: only the newest goes on, and one search runs at a time.
#include <utility>

#include "audio/sound.h"
#include "location/search_window.h"

namespace ordelan::audio {

Sound::Click Sound::begin_click() {
  if (context_.work.Buscando) {
    if (auto* const buscar = context_.windows.find<location::Buscar>()) buscar->stop_search();
  }
  return {++clicks_, context_.work.current_job()};
}

bool Sound::is_newest(const Click& click) const {
  return click.number == clicks_ && !context_.work.superseded(click.job);
}

bool Sound::find_lost(const std::string& file, ui::ListBox& list, Click& click,
                      const std::function<void()>& again) {
  if (context_.work.Buscando) {
    waiting_ = Waiting{click.number, again};
    return false;
  }
  auto* const buscar = context_.windows.touch<location::Buscar>();
  if (buscar == nullptr) return false;
  const bool newest = is_newest(click);
  const work::JobNumber own = context_.work.current_job() + 1;  // that of the search
  searched_row_ = list.current();
  searched_list_ = &list;
  on_search(true);
  const bool found = buscar->BuscarEnTodasUnidades(file, list);
  on_search(false);
  searched_list_ = nullptr;
  searched_row_ = -1;
  if (newest && !context_.work.superseded(own)) click.job = own;
  const auto next = std::exchange(waiting_, std::nullopt);
  if (next && next->click == clicks_) next->again();
  return found && is_newest(click);
}

}  // namespace ordelan::audio
