// The one media engine of the machine: it plays one audio file at a time.
#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <string>

#include "system/status.h"

namespace ordelan::system {

// All calls are made on the program's thread, and all events are called there too, from the event
// pump and never inside a call to the engine. A handler of an event may make any call, `open` and
// `close` included, but must not destroy the engine.
//
// Every call may be made in every state. Where there is nothing to be done for it, it does nothing
// and says ok if what was asked for holds already, else why it cannot be.
class Media {
 public:
  using Time = std::chrono::milliseconds;

  enum class State {
    empty,    // no file is open
    opening,  // a file is being opened: large ones, or ones on slow disks, take their time
    stopped,  // at the beginning of the file, or where `seek` has put it
    playing,
    paused
  };

  virtual ~Media() = default;

  // Closes what is open and begins to open a file; plays nothing by itself. It returns before the
  // file is open: the state is then `opening`, or already `stopped`. How it ends comes as
  // `on_opened`. A failure that is seen at once (not_found, not_a_file, bad_path) is given back, no
  // event follows, and the state is `empty`.
  virtual Status open(const std::string& path) = 0;

  // Stops and closes the file, which may be moved or removed as soon as this returns. No event
  // of that file comes any more.
  virtual void close() = 0;

  // The path that was given to `open`, empty in the state `empty`.
  virtual std::string path() const = 0;

  virtual State state() const = 0;

  // Plays from the position on. While a file is being opened, it will be played as soon as it is
  // open; state stays `opening` until then. Fails with not_found if no file is open, and with
  // not_ready if the machine has no sound device.
  virtual Status run() = 0;

  // Rests at the position; `run` goes on from there. Does nothing in a stopped file. While a file
  // is being opened it takes back a `run`. Fails with not_found if no file is open.
  virtual Status pause() = 0;

  // Ends the playing and goes back to the beginning. While a file is being opened it takes back a
  // `run`. Fails with not_found if no file is open.
  virtual Status stop() = 0;

  // Where the file is, from 0 to its duration; 0 where nothing is open yet.
  virtual Time position() const = 0;

  // How long the file is; 0 where nothing is open yet or the file does not say.
  virtual Time duration() const = 0;

  // Goes to a position, brought between 0 and the duration; playing, paused or stopped it stays
  // what it is. Fails with not_found if no file is open, not_ready while one is being opened, and
  // not_supported in a file that cannot be sought in. A playing file that is sent to its end ends.
  virtual Status seek(Time position) = 0;

  // The volume from 0 (silence) to 100, and the balance from -100 (left only) over 0 to 100 (right
  // only). Values beyond are brought into that range. They hold from then on for every file, also
  // where none is open. At first the volume is 50 and the balance 0.
  virtual void set_volume(int volume) = 0;
  virtual int volume() const = 0;
  virtual void set_balance(int balance) = 0;
  virtual int balance() const = 0;

  // Called once after each `open` that gave ok, when the file is open (ok; the state is `stopped`,
  // or `playing` after a `run`) or cannot be played (the state is `empty`): not_supported where
  // nothing on this machine can decode it. Not called if another `open` or a `close` came first.
  std::function<void(Status)> on_opened;

  // Called once each time that a playing file has come to its end. The state is then `stopped` and
  // the position 0. Not called for a file that was stopped or closed before.
  std::function<void()> on_end;
};

// The engine of a machine without sound: it opens nothing.
class NoMedia final : public Media {
 public:
  Status open(const std::string&) override { return Reason::not_supported; }
  void close() override {}
  std::string path() const override { return {}; }
  State state() const override { return State::empty; }
  Status run() override { return Reason::not_found; }
  Status pause() override { return Reason::not_found; }
  Status stop() override { return Reason::not_found; }
  Time position() const override { return Time(0); }
  Time duration() const override { return Time(0); }
  Status seek(Time) override { return Reason::not_found; }
  void set_volume(int volume) override { volume_ = std::clamp(volume, 0, 100); }
  int volume() const override { return volume_; }
  void set_balance(int balance) override { balance_ = std::clamp(balance, -100, 100); }
  int balance() const override { return balance_; }

 private:
  int volume_ = 50;
  int balance_ = 0;
};

}  // namespace ordelan::system
