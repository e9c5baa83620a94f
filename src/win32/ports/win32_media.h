// The media engine of the program on Windows.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

#include "system/clock.h"
#include "system/media.h"
#include "win32/ports/graph_media.h"
#include "win32/ports/player_media.h"

namespace ordelan::win32 {

// Which engine plays: the player control where it is complete, and the graphs for what it does not
// play; or one of them alone.
enum class Motor { automatic, player, graph };

// The engine that the configuration names: "WMP" for the player, "DirectShow" for the graphs, in
// any case of letters; all other texts leave it to the program.
Motor motor_named(std::string_view name);

// Chooses at the first path. A file that the player does not bring to playing within three seconds
// after that was asked for is played by the graphs instead, until the next path. Orders of these
// seconds are given again when the file is open. Volume and balance hold for both. The player plays
// on the default device alone: another one that is chosen belongs to the graphs, and is not offered
// where the configuration wants the player. To be used on
// the program's thread, which must handle messages.
class Win32Media final : public system::Media {
 public:
  // `clock` must outlive it. The makers are for tests.
  Win32Media(system::Clock& clock, system::MediaFacts facts, Motor motor = Motor::automatic,
             MakePlayer make_player = {}, MakeGraph make_graph = {});
  ~Win32Media() override;

  // The window for the picture of the player; null takes it away, and so does `end`. It must stay
  // until then. `fit` after it has another size.
  void set_host(HWND window);
  void fit();

  std::string URL() const override { return url_; }
  void set_URL(const std::string& path) override;
  void close() override;
  void play() override;
  void pause() override;
  void stop() override;
  double currentPosition() const override;
  void set_currentPosition(double seconds) override;
  double duration() const override;
  std::string durationString() const override;
  std::string name() const override;
  void set_volume(int volume) override;
  int balance() const override;
  void set_balance(int balance) override;
  std::vector<system::SoundDevice> devices() override;
  std::string device() const override { return device_; }
  void set_device(const std::string& id) override;
  std::string status() const override;
  int playState() const override;
  system::Heard heard(std::size_t samples) const override;
  bool shows_itself() const override;
  bool holds(const std::string& path) const override;
  std::string notice() const override;
  void end() override;

  // Hands a file to the graphs if its time is over. The engine calls it by itself while messages
  // are handled.
  void look();

 private:
  static void CALLBACK on_timer(HWND, UINT, UINT_PTR timer, DWORD);
  system::Media& engine() const;
  bool is_for_player() const;
  // The graphs go on with the file, from a place if there is one.
  void hand_to_graphs(std::optional<double> place);
  void wait_for_sound();
  void wait_no_more();

  system::Clock& clock_;
  Motor motor_;
  mutable PlayerMedia player_;
  mutable GraphMedia graph_;
  system::Media* engine_ = nullptr;  // the one that has the file
  std::string url_;
  std::optional<system::Clock::Time> asked_;  // when the player was asked for sound not heard yet
  std::optional<double> place_;               // the position that was written since
  enum class Rest { none, paused, stopped } rest_ = Rest::none;  // what was ordered since
  UINT_PTR timer_ = 0;
  int volume_ = 50;
  int balance_ = 0;
  std::string device_;
};

}  // namespace ordelan::win32
