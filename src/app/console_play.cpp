// Plays one audio file and prints what the player's window would show.
#include <ostream>
#include <string>

#include "app/console_json.h"
#include "app/console_session.h"
#include "audio/player.h"
#include "text/code_page.h"
#include "text/numbers.h"

namespace ordelan::app {
namespace {

// What is on the player at a moment.
struct Shown {
  std::string estado;  // of the engine, in its own words
  std::string LabelTime;
  std::string mp3Baud;  // empty while hidden
  std::string aviso;    // why nothing sounds
  bool operator==(const Shown&) const = default;
};

Shown shown(const audio::Player& player, const system::Media& engine) {
  return {engine.status(), player.LabelTime.caption(),
          player.mp3Baud.visible() ? player.mp3Baud.caption() : "", engine.notice()};
}

class Report {
 public:
  Report(const ConsoleHost& host, bool json, std::ostream& output)
      : host_(host), json_(json), output_(output), begun_(host.clock.now()) {}

  double seconds() const {
    return std::chrono::duration<double>(host_.clock.now() - begun_).count();
  }
  void add(const Shown& now) {
    if (now == last_) return;
    last_ = now;
    if (json_) {
      moments_.push_back({{"segundos", seconds()},
                          {"estado", text::to_utf8(now.estado)},
                          {"LabelTime", text::to_utf8(now.LabelTime)},
                          {"mp3Baud", text::to_utf8(now.mp3Baud)},
                          {"aviso", text::to_utf8(now.aviso)}});
      return;
    }
    std::string line = text::fixed(seconds(), 2, host_.regional.decimal_mark()) + " seg  " +
                       now.LabelTime + "  " + now.estado + now.mp3Baud;
    if (!now.aviso.empty()) line += "  " + now.aviso;
    output_ << text::to_utf8(line) << std::endl;  // at once: it is read while the sound goes on
  }
  void end(const audio::Player& player) {
    if (!json_) return;
    Json object;
    object["LabelVol"] = text::to_utf8(player.LabelVol.caption());
    object["LabelDisplay"] = text::to_utf8(player.LabelDisplay.caption());
    object["momentos"] = std::move(moments_);
    output_ << object.dump(2) << "\n";
  }

 private:
  const ConsoleHost& host_;
  bool json_;
  std::ostream& output_;
  system::Clock::Time begun_;
  Shown last_;
  Json moments_ = Json::array();
};

}  // namespace

int play_file(const Options& options, const ConsoleHost& host, std::ostream& output,
              std::ostream& error) {
  const ArgumentPath file = host.windows_path(options.audio);
  if (const auto complaint = unreadable(file, host)) {
    complain(error, options.audio, *complaint);
    return kMisused;
  }
  Session session(host, options, error);
  audio::Sound& sound = session.program.form.sound();
  audio::Player& player = *sound.player();
  player.SliderVol.set_value(options.volume.value_or(player.SliderVol.value()));
  player.Vol(player.SliderVol.value());
  Report report(host, options.json, output);
  sound.set_URL(*file.path);
  sound.Control_Click(audio::kPlay);
  // The timer runs until the end of the file stops it. A file that never comes to play has no end.
  bool played = false;
  constexpr double kPatience = 10;
  while (player.TimerTime.running()) {
    session.backend.pump();
    report.add(shown(player, host.media));
    played = played || host.media.currentPosition() > 0;
    if (options.seconds && report.seconds() >= *options.seconds) break;
    if (!played &&
        (host.media.playState() == system::Media::kReady || report.seconds() >= kPatience)) {
      break;
    }
    host.rest();
  }
  report.add(shown(player, host.media));
  report.end(player);
  sound.stop_and_empty();
  return played ? kDone : kRefused;
}

}  // namespace ordelan::app
