#include "audio/sound.h"

#include <algorithm>

#include "audio/player.h"
#include "audio/sa.h"
#include "audio/zoom.h"
#include "work/window_names.h"

namespace ordelan::audio {
namespace {

constexpr std::string_view kVolumen = "Volumen";
constexpr std::string_view kSalida = "Salida";
constexpr int kSpace = 32;
constexpr int kEnd = 35;

}  // namespace

Mirror::Mirror(Sound& sound) : sound_(sound) {
  sound.mirrors_.push_back(this);
}

Mirror::~Mirror() {
  std::erase(sound_.mirrors_, this);
}

Sound::Sound(const work::Context& context)
    : info(context.platform.files, context.platform.pump,
           {.SA_visible = [&windows = context.windows] { return windows.visible(SA::kName); },
            .hide_SA = [&windows = context.windows] { windows.hide<SA>(); },
            .Player_visible = [&windows =
                                   context.windows] { return windows.visible(Player::kName); }}),
      rows(context, info),
      context_(context),
      media_(context.platform.media) {
  context.windows.add<Player>([this] { return std::make_unique<Player>(context_, *this); });
  context.windows.add<SA>([this] { return std::make_unique<SA>(context_, *this); });
  context.windows.add<Zoom>([this] { return std::make_unique<Zoom>(context_, *this); });
}

void Sound::begin() {
  context_.windows.touch<Player>();
  context_.windows.touch<SA>();
}

system::Media& Sound::engine() {
  context_.windows.touch<SA>();
  return media_;
}

Player* Sound::player() const {
  return context_.windows.touch<Player>();
}

void Sound::Control_Click(int Index) {
  if (Player* const window = player()) window->Control_Click(Index);
}

void Sound::Vol(std::int32_t Level) {
  if (Player* const window = player()) window->Vol(Level);
}

void Sound::set_URL(const std::string& path) {
  // A file can be let go without a window; only one that is to sound needs the engine's home.
  if (path.empty()) {
    media_.set_URL(path);
  } else {
    engine().set_URL(path);
  }
  if (Player* const window = context_.windows.find<Player>()) window->file_changed();
}

void Sound::stop_and_empty() {
  Control_Click(kStop);
  set_URL("");
}

bool Sound::Form_KeyDown(const ui::Key& key) {
  if (key.alt) return false;  // the system's own: its menu, the next window
  constexpr int kAdd = 107;
  constexpr int kSubtract = 109;
  const auto change_volume = [this](int step) {
    Player* const window = player();
    if (window == nullptr) return;
    window->SliderVol.set_value(window->SliderVol.value() + step);
    window->Vol(window->SliderVol.value());  // at an end of the slider it is as before
  };
  switch (key.code) {
    case kSpace:
      switch (media_.playState()) {
        case system::Media::kReady:
        case system::Media::kStopped:
        case system::Media::kPaused:
          Control_Click(kPlay);
          return true;
        case system::Media::kPlaying:
          Control_Click(kPause);
          return true;
        default:
          return false;
      }
    case kEnd:
      Control_Click(kStop);
      return true;
    case kAdd:
      change_volume(1);
      return true;
    case kSubtract:
      change_volume(-1);
      return true;
    default:
      return false;
  }
}

void Sound::list_window_KeyDown(ui::Key& key, const work::RowCommands* commands) {
  constexpr int kApps = 93;
  constexpr int kF10 = 121;
  hide_balloons();
  if (commands != nullptr && key.focus == &commands->list() && !key.alt) {
    if (key.code == kApps || (key.code == kF10 && key.shift)) {
      key.swallowed = true;
      commands->show_menu(true);
      return;
    }
    if (key.control && key.code == 'C') {
      key.swallowed = true;
      key.shift ? commands->copy_found() : commands->copy_path();
      return;
    }
  }
  if (!Form_KeyDown(key)) return;
  // A list goes to its last row by the same key; a slider would jump to its end.
  const bool slider = dynamic_cast<const ui::Slider*>(key.focus) != nullptr;
  key.swallowed = key.code == kSpace || (slider && key.code == kEnd);
}

void Sound::hide_AvisoPL() const {
  if (Player* const window = context_.windows.find<Player>()) window->AvisoPL.hide();
}

void Sound::hide_balloons() {
  if (Player* const window = context_.windows.find<Player>()) window->Bal.Destroy();
  rows.hide();
}

std::int32_t Sound::stored_volume(std::int32_t now) const {
  const double stored = context_.settings.number(kVolumen, now);
  return static_cast<std::int32_t>(std::clamp(stored, -1.0e9, 1.0e9));
}

void Sound::store_volume() {
  const Player* const window = context_.windows.find<Player>();
  store_volume(window ? window->SliderVol.value() : stored_volume());
}

void Sound::store_volume(std::int32_t Level) {
  context_.settings.set_number(kVolumen, Level);
}

std::optional<double> Sound::seek_to_unit(int x) {
  constexpr double kSliderUnits = 200;  // how wide a position slider is
  if (!(media_.currentPosition() > 0) || media_.URL().empty()) return std::nullopt;
  const double seconds = media_.duration() / kSliderUnits * x;
  go_to(seconds);
  return seconds;
}

void Sound::SliderTime_MouseUp(const ui::Mouse& mouse) {
  if (mouse.button == ui::kLeftButton) seek_to_unit(mouse.at.x);
}

std::optional<double> Sound::seek_by(double seconds) {
  constexpr double kBeforeEnd = 0.5;
  const int state = media_.playState();
  const double last = media_.duration() - kBeforeEnd;
  if ((state != system::Media::kPlaying && state != system::Media::kPaused) || last <= 0) {
    return std::nullopt;
  }
  const double now = media_.currentPosition();
  const double place = std::clamp(now + seconds, 0.0, std::max(now, last));
  go_to(place);
  return place;
}

void Sound::SliderTime_Change(std::int32_t Value) {
  hide_AvisoPL();
  go_to(Value);
}

void Sound::go_to(double seconds) {
  media_.set_currentPosition(seconds);
  if (Player* const window = context_.windows.find<Player>()) window->show_cursor(seconds);
}

void Sound::set_device(const std::string& id) {
  media_.set_device(id);
  context_.settings.GrabarIni(context_.settings.RutaConfig, kSalida, id);
}

std::string Sound::stored_device() const {
  return context_.settings.LeerIni(context_.settings.RutaConfig, kSalida, "");
}

void Sound::show_loaded() {
  each_mirror([](Mirror& mirror) { mirror.show_loaded(); });
}

void Sound::show_started() {
  // It may be shown later on: then it must say that something plays.
  if (Player* const window = player()) window->show_started();
  each_mirror([](Mirror& mirror) { mirror.show_action(kPlay); });
}

void Sound::show_emptied() {
  if (Player* const window = player()) window->show_emptied();
  each_mirror([](Mirror& mirror) { mirror.show_emptied(); });
}

void Sound::SituarPlayer(bool Mostrar) {
  Player* const window = player();
  if (window == nullptr) return;
  if (!Mostrar || !window->visible()) {
    const Zoom* const zoom = context_.windows.find<Zoom>();
    if (zoom != nullptr && !zoom->ListFilesZoom.empty() && media_.URL().empty()) {
      set_URL(zoom->ListFilesZoom.row(0));
    }
    window->show_title();
    Control_Click(kStop);
  }
  window->read_place();
  // The keys stay with the list that was clicked.
  Mostrar ? window->show_quietly() : window->hide();
  SA* const spectrum = context_.windows.find<SA>();
  if (!Mostrar || spectrum == nullptr) return;
  spectrum->hide();
  spectrum->set_position(window->place_of_SA());
}

void Sound::HacerVisibles() {
  for (const char* const name : {work::window_name::kListasZoom, Zoom::kName, Player::kName}) {
    ui::Window* const window = context_.windows.find(name);
    if (window != nullptr && window->visible()) window->bring_to_front();
  }
}

}  // namespace ordelan::audio
