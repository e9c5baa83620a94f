// A media engine without sound, whose time a test moves by hand.
#pragma once

#include <algorithm>
#include <map>
#include <string>

#include "system/media.h"

namespace ordelan::test {

// Holds the files that a test puts in. Opening one takes its time too: until `advance` the state is
// `opening`.
class FakeMedia final : public system::Media {
 public:
  struct File {
    Time duration{0};
    Time opening{0};  // how long it takes to open; at 0 the next `advance` opens it
    bool seekable = true;
    system::Status status = {};  // how the opening ends
  };
  std::map<std::string, File> files;  // by path
  bool device = true;                 // whether the machine has a sound device

  // Lets that time pass, and calls the events that come in it. What a handler begins has the rest
  // of the time.
  void advance(Time time) {
    while (true) {
      if (state_ == State::opening) {
        if (time < opening_left_) {
          opening_left_ -= time;
          return;
        }
        time -= opening_left_;
        opened();
      } else if (state_ == State::playing) {
        const Time left = file_.duration - position_;
        if (time < left) {
          position_ += time;
          return;
        }
        time -= left;
        state_ = State::stopped;
        position_ = Time(0);
        if (on_end) on_end();
      } else {
        return;
      }
    }
  }

  system::Status open(const std::string& path) override {
    close();
    const auto found = files.find(path);
    if (found == files.end()) return system::Reason::not_found;
    file_ = found->second;
    path_ = path;
    opening_left_ = file_.opening;
    state_ = State::opening;
    return {};
  }

  void close() override {
    state_ = State::empty;
    path_.clear();
    position_ = Time(0);
    runs_when_open_ = false;
  }

  std::string path() const override { return path_; }
  State state() const override { return state_; }

  system::Status run() override {
    if (state_ == State::empty) return system::Reason::not_found;
    if (!device) return system::Reason::not_ready;
    if (state_ == State::opening) {
      runs_when_open_ = true;
    } else {
      state_ = State::playing;
    }
    return {};
  }

  system::Status pause() override {
    if (state_ == State::empty) return system::Reason::not_found;
    runs_when_open_ = false;
    if (state_ == State::playing) state_ = State::paused;
    return {};
  }

  system::Status stop() override {
    if (state_ == State::empty) return system::Reason::not_found;
    runs_when_open_ = false;
    position_ = Time(0);
    if (state_ != State::opening) state_ = State::stopped;
    return {};
  }

  Time position() const override { return position_; }
  Time duration() const override { return is_open() ? file_.duration : Time(0); }

  system::Status seek(Time position) override {
    if (state_ == State::empty) return system::Reason::not_found;
    if (state_ == State::opening) return system::Reason::not_ready;
    if (!file_.seekable) return system::Reason::not_supported;
    position_ = std::clamp(position, Time(0), file_.duration);
    return {};
  }

  void set_volume(int volume) override { volume_ = std::clamp(volume, 0, 100); }
  int volume() const override { return volume_; }
  void set_balance(int balance) override { balance_ = std::clamp(balance, -100, 100); }
  int balance() const override { return balance_; }

 private:
  bool is_open() const { return state_ != State::empty && state_ != State::opening; }

  void opened() {
    const auto status = file_.status;
    const bool runs = runs_when_open_;
    runs_when_open_ = false;
    if (status) {
      state_ = runs ? State::playing : State::stopped;
    } else {
      close();
    }
    if (on_opened) on_opened(status);
  }

  State state_ = State::empty;
  std::string path_;
  File file_;
  Time opening_left_{0};
  Time position_{0};
  bool runs_when_open_ = false;
  int volume_ = 50;
  int balance_ = 0;
};

}  // namespace ordelan::test
