// Takes the samples out of a graph on their way to the sound device.
#pragma once

#include <windows.h>

#include <ole2.h>

#include <atomic>
#include <memory>

#include "win32/com_ptr.h"
#include "win32/ports/sample_ring.h"

struct IBaseFilter;
struct IGraphBuilder;
struct SystemSampleGrabber;

namespace ordelan::win32 {

// Stands in front of the graph's audio renderer for as long as it lives. It must be destroyed
// before the graph, on the same thread.
class SampleTap {
 public:
  explicit SampleTap(std::shared_ptr<SampleRing> ring);
  ~SampleTap();
  SampleTap(const SampleTap&) = delete;
  SampleTap& operator=(const SampleTap&) = delete;

  enum class Result {
    in_place,
    left_out,  // the system has no grabber, or no use for it here: the graph is as it was
    broken     // the graph no longer plays, and must be built anew
  };
  // Puts it into a graph that has been built and does not run.
  Result put_before(IBaseFilter* renderer, IGraphBuilder* graph);

  // The place in the file, in seconds, from which samples are counted from now on.
  void begin_at(double seconds);

 private:
  class Receiver;
  ComPtr<SystemSampleGrabber> grabber_;
  ComPtr<Receiver> receiver_;
};

// The graph's filter that plays audio on a device, with what it plays connected to it; null without
// one.
ComPtr<IBaseFilter> audio_renderer_of(IGraphBuilder* graph);

}  // namespace ordelan::win32
