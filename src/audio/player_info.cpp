// What the player says of a file beside its sound, and its menu.
#include <algorithm>
#include <cmath>

#include "audio/player.h"
#include "audio/transport_texts.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace ordelan::audio {
namespace {

// Megabytes with one decimal at the most.
std::string megabytes(std::uint64_t size, char decimal_mark) {
  constexpr double kMegabyte = 9.53674316e-7;
  return text::number(std::nearbyint(static_cast<double>(size) * kMegabyte * 10) / 10,
                      decimal_mark);
}

}  // namespace

void Player::MostrarInfoArchivo(ui::Control& control, const std::string& Path,
                                const std::string& Titulo) {
  ui::Window& window = control.window();
  const std::string name = window.name();
  context().work.ArchivoActual = Path;
  // As it is spelt: of a "WAV" it says that it has no information.
  sound_.info.InfoAudio(Path.size() > 3 ? Path.substr(Path.size() - 3) : Path, Path);
  // It lets events run: either window may be gone.
  if (context().windows.find<Player>() != this || context().windows.find(name) != &window) return;
  show_info(control, Path, Titulo);
}

void Player::show_info(ui::Control& control, const std::string& Path, const std::string& Titulo) {
  Bal.Destroy();
  const auto file = context().platform.files.info(Path);
  if (!file) return;
  system::Regional& regional = context().platform.regional;
  std::string& text = sound_.info.TextoToolTip;
  text = " Tamaño: " + megabytes(file->size, regional.decimal_mark()) +
         " Mb\r\n Fecha: " + regional.date_and_time(file->modified) + "\r\n" + text;
  Bal.set_title(Titulo);
  Bal.set_tip_text(text);
  Bal.Create(control);
  Bal.Show(control.bounds().width, control.bounds().height, control);
}

// What is known of the loaded file, and where sound comes out.
void Player::show_menu(bool by_key) {
  using system::MenuItem;
  AvisoPL.hide();
  system::Media& engine = sound_.media();
  const auto devices = engine.devices();
  std::string chosen = sound_.stored_device();
  const bool is_there =
      std::any_of(devices.begin(), devices.end(),
                  [&](const system::SoundDevice& device) { return device.id == chosen; });
  if (!is_there) chosen.clear();  // the default one plays
  std::vector<MenuItem> items{{.text = "Información del archivo", .enabled = !engine.URL().empty()},
                              {},
                              {.text = "Salida: la del sistema", .ticked = chosen.empty()}};
  const std::size_t first_device = items.size();
  for (const system::SoundDevice& device : devices) {
    items.push_back({.text = "Salida: " + device.name, .ticked = device.id == chosen});
  }
  const auto picked = context().platform.dialogs.menu(
      items, by_key ? system::MenuPlace::focus : system::MenuPlace::pointer);
  if (!picked || context().windows.find<Player>() != this) return;
  if (*picked == 0) {
    // It may have been let go meanwhile: of no file nothing is shown.
    MostrarInfoArchivo(PictureLD, engine.URL(), text::Obtener_Nombre_Archivo(engine.URL()));
  } else {
    sound_.set_device(*picked < first_device ? "" : devices[*picked - first_device].id);
  }
}

}  // namespace ordelan::audio
