// A media engine without sound, whose files and whose time are a test's.
#pragma once

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "system/media.h"
#include "system/media_texts.h"

namespace ordelan::test {

// Plays the files that a test puts in. Time only passes in `advance`.
class FakeMedia : public system::Media {
 public:
  struct File {
    double duration = 0;  // seconds; 0 cannot be played
    double opening = 0;   // seconds; at 0 the file is open at once
    int kilobits = 0;
    std::string title = {};  // the path's own where it is empty
  };
  std::map<std::string, File> files;  // by path
  // The orders in sequence: "URL D:\\a.wav", "close", "play", "pause", "stop", "position 2.5",
  // "volume 50", "balance -3", "end". A test may clear it.
  std::vector<std::string> orders;
  // Whether the engine draws what is heard by itself.
  bool own_picture = false;
  bool shows_itself() const override { return own_picture; }
  // What the engine says in place of its own texts; "" for those.
  std::string said_status;
  // The devices that can be chosen.
  std::vector<system::SoundDevice> plugged_in;
  // What is heard while a file plays.
  system::Heard sound;

  // Lets that many seconds pass.
  void advance(double seconds) {
    if (state_ == kOpening) {
      const double used = std::min(seconds, opening_left_);
      opening_left_ -= used;
      seconds -= used;
      if (opening_left_ <= kNothing) opened();
    }
    if (state_ == kPlaying) {
      position_ += seconds;
      if (position_ >= file_.duration - kNothing) rest(kStopped, 0);
    }
  }

  int volume() const { return volume_; }

  std::string URL() const override { return url_; }
  void set_URL(const std::string& path) override {
    orders.push_back("URL " + path);
    load(path);
  }
  void close() override {
    orders.push_back("close");
    load("");
  }
  void play() override {
    order({"play", [this] { play_now(); }});
  }
  void pause() override {
    order({"pause", [this] {
             if (state_ == kPlaying) state_ = kPaused;
           }});
  }
  void stop() override {
    order({"stop", [this] {
             if (is_open()) rest(kStopped, 0);
           }});
  }

  double currentPosition() const override { return is_open() ? position_ : 0; }
  void set_currentPosition(double seconds) override {
    order({"position " + number(seconds), [this, seconds] { seek_now(seconds); }});
  }
  double duration() const override { return is_open() ? file_.duration : 0; }
  std::string durationString() const override { return system::duration_text(duration()); }
  std::string name() const override {
    if (url_.empty()) return "";
    return file_.title.empty() ? system::title_of_path(url_) : file_.title;
  }

  void set_volume(int volume) override {
    orders.push_back("volume " + std::to_string(volume));
    volume_ = system::volume_in_range(volume);
  }
  int balance() const override { return balance_; }
  void set_balance(int balance) override {
    orders.push_back("balance " + std::to_string(balance));
    balance_ = system::balance_in_range(balance);
  }

  std::vector<system::SoundDevice> devices() override { return plugged_in; }
  std::string device() const override { return device_; }
  void set_device(const std::string& id) override {
    orders.push_back("device " + id);
    device_ = id;
  }

  std::string status() const override {
    return said_status.empty() ? system::status_text(state_, file_.kilobits) : said_status;
  }
  int playState() const override { return state_; }
  system::Heard heard(std::size_t samples) const override {
    if (state_ != kPlaying) return {};
    system::Heard newest = sound;
    const std::size_t count = std::min(samples, sound.samples.size());
    newest.samples.erase(newest.samples.begin(), newest.samples.end() - static_cast<long>(count));
    return newest;
  }
  std::string notice() const override { return state_ == kReady ? "No suena." : ""; }
  void end() override {
    orders.push_back("end");
    load("");
    volume_ = 50;
    balance_ = 0;
    device_.clear();
  }

 private:
  struct Order {
    std::string text;
    std::function<void()> carry_out;
  };
  static constexpr double kNothing = 1e-9;

  bool is_open() const { return state_ == kPlaying || state_ == kPaused || state_ == kStopped; }

  static std::string number(double value) {
    std::string text = std::to_string(value);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
  }

  void order(Order given) {
    orders.push_back(given.text);
    if (state_ == kOpening) {
      waiting_.push_back(std::move(given));
    } else {
      given.carry_out();
    }
  }

  void load(const std::string& path) {
    url_ = path;
    waiting_.clear();
    position_ = 0;
    const auto found = files.find(path);
    file_ = found == files.end() ? File() : found->second;
    state_ = path.empty() ? kUndefined : kOpening;
    opening_left_ = file_.opening;
    if (state_ == kOpening && opening_left_ <= 0) opened();
  }

  void opened() {
    rest(file_.duration > 0 ? kPlaying : kReady, 0);
    const auto orders_now = std::move(waiting_);
    waiting_.clear();
    if (state_ == kReady) return;
    for (const Order& each : orders_now) each.carry_out();
  }

  void play_now() {
    if (state_ == kReady) {
      load(url_);
    } else if (is_open()) {
      state_ = kPlaying;
    }
  }

  void seek_now(double seconds) {
    if (!std::isfinite(seconds) || (state_ != kPlaying && state_ != kPaused)) return;
    if (seconds >= file_.duration) {
      rest(kStopped, 0);
    } else {
      position_ = std::max(seconds, 0.0);
    }
  }

  void rest(int state, double position) {
    state_ = state;
    position_ = position;
  }

  std::string url_;
  File file_;
  std::vector<Order> waiting_;  // for the file to be open
  int state_ = kUndefined;
  double opening_left_ = 0;
  double position_ = 0;
  int volume_ = 50;
  int balance_ = 0;
  std::string device_;
};

}  // namespace ordelan::test
