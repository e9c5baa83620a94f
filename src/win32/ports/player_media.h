// The media engine over the Windows Media Player control.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "system/media.h"
#include "win32/ports/control_site.h"
#include "win32/ports/dispatch.h"

namespace ordelan::win32 {

// Makes the control, for its calls by name; null where it cannot be made.
using MakePlayer = std::function<ComPtr<IDispatch>()>;

// To be used on the thread that made it, which must have set up the system's objects and handle
// messages: the player does its work in between. What the player says passes unchanged.
class PlayerMedia final : public system::Media {
 public:
  // `make_player` is for tests; without it the control of the system is made.
  explicit PlayerMedia(MakePlayer make_player = {});
  ~PlayerMedia() override;

  // Brings the control to life if it is not yet. False where there is none, or none that can do all
  // that the program needs; it is not tried again then.
  bool begin();
  // Whether what the player says is of the file that it was given last, and no longer of the one
  // before.
  bool has_taken_up() const;
  // Null takes the control out of its window, and `end` does so too. The window must stay until
  // then.
  void set_host(HWND window);
  // The window has another size.
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
  std::string status() const override;
  int playState() const override;
  system::Heard heard(std::size_t) const override { return {}; }
  bool shows_itself() const override { return true; }
  bool holds(const std::string& path) const override;
  std::string notice() const override;
  void end() override;

 private:
  Dispatch controls() const { return player_.object(L"controls"); }
  Dispatch settings() const { return player_.object(L"settings"); }
  Dispatch media() const { return player_.object(L"currentMedia"); }
  bool is_complete() const;
  // Remembers a file that the player may not have let go yet.
  void leave(const std::string& path);
  void set_up();
  void show();

  MakePlayer make_player_;
  bool useless_ = false;
  Dispatch player_;
  HWND host_ = nullptr;
  std::optional<ControlSite> site_;
  std::string url_;
  // The newest of those before it, as far as the player may not have let them go yet.
  mutable std::vector<std::string> closed_;
  int volume_ = 50;
  int balance_ = 0;
};

}  // namespace ordelan::win32
