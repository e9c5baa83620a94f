// The media engine of Linux: it keeps time and states like the one that sounds, without a sound.
#pragma once

#include <string>

#include "system/clock.h"
#include "system/media.h"
#include "system/media_texts.h"

namespace ordelan::posix {

// A file is open at once. One without a duration cannot be played. The clock must outlive the
// engine; the facts are asked inside `set_URL`.
class SilentMedia final : public system::Media {
 public:
  SilentMedia(system::Clock& clock, system::MediaFacts facts);

  std::string URL() const override { return url_; }
  void set_URL(const std::string& path) override;
  void close() override;
  void play() override;
  void pause() override;
  void stop() override;
  double currentPosition() const override;
  void set_currentPosition(double seconds) override;
  double duration() const override { return duration_; }
  std::string durationString() const override;
  std::string name() const override { return name_; }
  void set_volume(int volume) override { volume_ = system::volume_in_range(volume); }
  int balance() const override { return balance_; }
  void set_balance(int balance) override { balance_ = system::balance_in_range(balance); }
  std::string status() const override;
  int playState() const override;
  // Nothing is heard.
  system::Heard heard(std::size_t) const override { return {}; }
  std::string notice() const override;
  void end() override;

  // For the console program, which shows it.
  int volume() const { return volume_; }

 private:
  // Where a playing file would be by now, its end left aside.
  double reached() const;
  bool has_ended() const;
  // Stops the file if it has ended.
  void settle();
  void rest(int state, double position);

  system::Clock& clock_;
  system::MediaFacts facts_;
  std::string url_;
  std::string name_;
  double duration_ = 0;
  int kilobits_ = 0;
  int state_ = kUndefined;
  double position_ = 0;  // while playing, that at `since_`
  system::Clock::Time since_;
  int volume_ = 50;
  int balance_ = 0;
};

}  // namespace ordelan::posix
