// The part of a run that removes the side files.
#include <algorithm>
#include <array>

#include "removal/backup_options_window.h"
#include "removal/reasons.h"
#include "removal/removal_review_window.h"
#include "removal/removal_run.h"
#include "removal/run_colors.h"
#include "text/code_page.h"

namespace ordelan::removal {

using system::Status;

bool is_audio_row(const std::string& row) {
  constexpr std::array<std::string_view, 7> kAudio = {".wav", ".aif", ".mp3", ".ogg",
                                                      "flac", ".wma", ".m4a"};
  const std::string last = text::lower(row.substr(row.size() < 4 ? 0 : row.size() - 4));
  return std::find(kAudio.begin(), kAudio.end(), last) != kAudio.end();
}

// Everything in List1 that is not audio goes, whatever is ticked or protected: the audio program
// makes these files again.
void RemovalRun::BorrarAsociados() {
  options_.LabelInfo.hide();
  const auto rows = context_.lists.List1.kept_rows();
  show_bar(rows->size());
  system::FileSystem& files = context_.platform.files;
  std::size_t removed = 0;
  state_.AsociadosEncontrados = 0;
  for (const std::string& row : *rows) {
    if (!is_audio_row(row) && files.look_up(row)) ++state_.AsociadosEncontrados;
    job_->turn();
    if (job_->superseded() || !windows_open()) return;
  }
  for (std::size_t i = 0; i < rows->size(); ++i) {
    const std::string& row = (*rows)[i];
    if (is_audio_row(row)) continue;
    if (std::string why = why_side_file_stays(row); !why.empty()) {
      if (files.info(row)) keep(row, std::move(why));
    } else {
      // Those of what a link leads to are somebody else's.
      if (const auto info = files.info(row); info && !info->link) {
        files.set_attributes(row, 0).ignore();
      }
      if (files.look_up(row)) {
        const Status gone = remove_file(row);
        ++removed;
        if (is_gone(gone, row)) {
          ++state_.side_files_gone;
        } else {
          keep(row, reason::of(gone));
        }
      }
    }
    job_->turn();
    options_.XP_Bar.set_value(static_cast<std::int64_t>(i));
    if (stopped()) {
      show_cancelled();
      break;
    }
  }
  options_.XP_Bar.hide();
  if (removed == 0 || !windows_open()) return;
  const std::string count = "Se han borrado: " + std::to_string(removed) + " archivos asociados";
  review_->LabelErase.set_caption(count + " de " + std::to_string(state_.AsociadosEncontrados));
  review_->LabelErase.show();
  options_.LabelInfo.set_fore_color(kPaleGreen);
  options_.LabelInfo.set_caption(" > " + count + " < ");
  options_.LabelInfo.show();
}

// Audio of more letters ("x.aiff") is none by its last four, and stands among the side files.
std::string RemovalRun::why_side_file_stays(const std::string& row) const {
  if (RunCheck::is_project(row)) return reason::kProject;
  if (!order_.CheckComprobar) return {};
  if (!RunCheck::is_side_file(row)) return reason::kOtherKind;
  if (is_in_bin(row)) return reason::kInBin;
  if (const auto info = context_.platform.files.info(row); info && info->link) return reason::kLink;
  const Kept* const kept = check_.kept(row);
  return kept != nullptr ? kept->motivo : "";
}

}  // namespace ordelan::removal
