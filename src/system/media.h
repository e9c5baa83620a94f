// The one media engine of the machine: it plays one audio file at a time.
#pragma once

#include <string>
#include <vector>

#include "text/code_page.h"

namespace ordelan::system {

// What is heard at a moment: the newest samples of it, the channels mixed into one, from -1 to 1.
struct Heard {
  int rate = 0;  // samples a second; 0 where nothing is heard or the engine does not tell
  std::vector<float> samples;
};

// A device that sound can come out of.
struct SoundDevice {
  std::string id;    // what `set_device` takes; it stays the same from start to start
  std::string name;  // for the user
};

// The operations are those of the system's media player, and they carry its names. All calls are
// made on the program's thread; none waits for a file to be opened. An order given while a file is
// still being opened is carried out when it is open, in the order given. What an order comes to is
// read at once: after `play` no `status` says that the file is stopped. No call fails: what an
// engine cannot play simply does not sound, and `notice` says why.
//
// The engine itself comes to life with the first `set_URL` of a path. Volume and balance and a
// device that were set before hold for it.
class Media {
 public:
  // The numbers are the player's. Others may come from the system's player: they mean neither.
  enum PlayState {
    kUndefined = 0,
    kStopped = 1,
    kPaused = 2,
    kPlaying = 3,
    kOpening = 9,
    kReady = 10
  };

  virtual ~Media() = default;

  // The file that is loaded: the path as it was given, also where it cannot be played. Empty means
  // nothing is loaded. Setting a path closes the file before, opens this one and plays it from its
  // beginning; the same path once more begins anew. Setting an empty one ends the sound.
  virtual std::string URL() const = 0;
  virtual void set_URL(const std::string& path) = 0;
  // Ends the sound and lets the file go, so that it can be moved or removed; `URL` is empty then.
  // This, an empty path and `end` wait until the system has let it go, a quarter of a second at
  // most; `holds` says whether the system keeps a file for longer.
  virtual void close() = 0;

  // The transport. `play` goes on from where a pause has left it, else from the beginning; `stop`
  // goes back to the beginning. A file that has come to its end is stopped. What could not be
  // played is tried once more by `play`. Without a file they do nothing.
  virtual void play() = 0;
  virtual void pause() = 0;
  virtual void stop() = 0;

  // Seconds. A position written while the file is stopped is dropped, and a stopped file is at 0;
  // one beyond the end ends the file. Both are 0 without a file and while one is being opened.
  virtual double currentPosition() const = 0;
  virtual void set_currentPosition(double seconds) = 0;
  virtual double duration() const = 0;
  // The duration as text, "mm:ss", or "h:mm:ss" from an hour on; "" while there is none.
  virtual std::string durationString() const = 0;
  // The title in the file's own tag, else its file name without folder and ending; "" without a
  // file.
  virtual std::string name() const = 0;

  // 0 to 100; values beyond are brought into that range. 50 at first.
  virtual void set_volume(int volume) = 0;
  // -100 (left) to 100 (right); 0 at first. Values beyond are brought into that range.
  virtual int balance() const = 0;
  virtual void set_balance(int balance) = 0;

  // The devices of the machine by which this engine can play, without the system's default; empty
  // where the engine has no choice.
  virtual std::vector<SoundDevice> devices() { return {}; }
  // The device that sound comes out of from now on, empty for the system's default, as at first. A
  // loaded file goes on at its place. While the chosen device is missing the default one plays.
  virtual std::string device() const { return ""; }
  virtual void set_device(const std::string& /*id*/) {}

  // The engine's own text of its state, in its own language. Ours says "Reproduciendo: 192 K
  // bits/s" (the file's bit rate), "En pausa", "Detenido", "Abriendo" while a file is being opened,
  // "Listo" where one cannot be played, and "" without a file.
  virtual std::string status() const = 0;
  virtual int playState() const = 0;

  // What is heard now, at most `samples` of it. Empty unless the file is playing; always empty
  // where the engine shows a picture of its own (`shows_itself`).
  virtual Heard heard(std::size_t samples) const = 0;
  // True where the engine draws its own picture into the window that it was given.
  virtual bool shows_itself() const { return false; }

  // Whether the engine has this file open, or may have: the loaded one, and one that was closed
  // while the system did not let it go. Until it has, the file can be neither moved nor removed.
  virtual bool holds(const std::string& path) const {
    return !path.empty() && text::equal_ignoring_case(path, URL());
  }

  // One line in Spanish for the user on why the loaded file does not sound, or "" where it does or
  // may still.
  virtual std::string notice() const = 0;

  // Ends the sound and the engine. It is then as at first: the next path brings a new one to life,
  // with volume 50, balance 0 and the default device unless they are set again.
  virtual void end() = 0;
};

}  // namespace ordelan::system
