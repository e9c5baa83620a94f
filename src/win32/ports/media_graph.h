// One audio file, opened and driven: what the engine's thread needs of the system.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "win32/ports/sample_ring.h"

namespace ordelan::win32 {

// Used by one thread alone, which may be blocked by any of its calls for as long as the system
// likes. Destroying it ends the sound and lets the file go.
class MediaGraph {
 public:
  enum class Opening {
    ok,
    missing,     // no such file
    unplayable,  // the system has no decoder for it, or it holds no audio
    no_device,   // nothing to play it on
    no_engine,   // the system itself is without what builds graphs
  };
  enum class Event { none, ended, device_lost };

  virtual ~MediaGraph() = default;

  // The device that the file will be heard on; empty for the default one, which is also taken where
  // this one is missing. To be called before `open`.
  virtual void set_device(const std::string& id) = 0;

  // Opens the file, silent and at its beginning. After anything but ok the graph is only good for
  // destroying.
  virtual Opening open(const std::string& path) = 0;

  // Seconds; 0 where the system does not tell.
  virtual double duration() = 0;
  virtual double position() = 0;

  // False where the system refuses.
  virtual bool run() = 0;
  virtual bool pause() = 0;
  // Stops, and goes back to the beginning.
  virtual bool stop() = 0;
  virtual bool seek(double seconds) = 0;

  // Hundredths of a decibel, as `gain_of` and `balance_gain_of` give them.
  virtual void set_gain(long gain) = 0;
  virtual void set_balance(long balance) = 0;

  // What has happened since the call before.
  virtual Event event() = 0;
};

// Why a file does not sound, in Spanish; "" for `ok`.
std::string notice_of(MediaGraph::Opening opening);

// Makes a graph that leaves its samples in the ring; null where it cannot be made.
using MakeGraph = std::function<std::unique_ptr<MediaGraph>(std::shared_ptr<SampleRing> samples)>;

}  // namespace ordelan::win32
