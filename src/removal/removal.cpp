#include "removal/removal.h"

#include <memory>

#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/protected_folders_window.h"
#include "removal/recovery_window.h"
#include "removal/removal_review_window.h"

namespace ordelan::removal {

Removal::Removal(const work::Context& context, audio::Sound& sound, const Listener& listener)
    : second_reading_(context), removal_{context, state, second_reading_, sound, listener} {
  work::WindowDirectory& windows = context.windows;
  windows.add<BacUp>([this] { return std::make_unique<BacUp>(removal_); });
  windows.add<ParaBorrar>([this] { return std::make_unique<ParaBorrar>(removal_); });
  windows.add<CarpetaBack>([this] { return std::make_unique<CarpetaBack>(removal_); });
  windows.add<Recuperar>([this] { return std::make_unique<Recuperar>(removal_); });
  windows.add<FormNoBorrar>([this] { return std::make_unique<FormNoBorrar>(removal_); });
}

void Removal::CopiarListBorrados() {
  removal_.work.windows.close<CarpetaBack>();  // it was opened for another list
  if (auto* const review = removal_.work.windows.touch<ParaBorrar>()) review->CopiarListBorrados();
}

void Removal::CommandBorrado_Click() {
  if (removal_.work.work.Borrando) return;
  removal_.sound.hide_AvisoPL();
  auto* const options = removal_.work.windows.touch<BacUp>();
  if (options == nullptr) return;
  options->set_visible(!options->visible());
}

void Removal::drives_chosen() {
  auto* const options = removal_.work.windows.find<BacUp>();
  if (removal_.work.work.ModoPosiciones || options == nullptr) return;
  options->LabelConfig.show();
  options->cmdBorrar.set_enabled(true);
}

void Removal::RecuperaBorrados_Click() {
  if (removal_.work.work.Borrando) return;
  auto* const recovery = removal_.work.windows.touch<Recuperar>();
  if (recovery == nullptr) return;
  recovery->show();
  recovery->bring_to_front();
}

std::optional<std::vector<Kept>> Removal::named_files(const std::function<bool()>& go_on) {
  return second_reading_.look(*removal_.work.lists.ListBorrar.kept_rows(), go_on);
}

bool Removal::removes_side_files() const {
  if (const auto* const options = removal_.work.windows.find<BacUp>()) {
    return options->CheckBorraAsociados.checked();
  }
  return removal_.work.settings.number("Borrar todos los asociados      ------>", 0) == 1;
}

}  // namespace ordelan::removal
