#include "win32/ports/filter_graph.h"

#include <windows.h>

#include <dshow.h>
#include <mmsystem.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

#include "win32/com_ptr.h"
#include "win32/ports/extended_path.h"
#include "win32/ports/sample_tap.h"
#include "win32/ports/sound_devices.h"

namespace ordelan::win32 {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double kUnits = 1e7;  // the graph's own, in a second
constexpr long kSoundDeviceFailed = 0x0201;
// How long samples take from the graph to the ear, and how long at the most, in seconds.
constexpr double kOnTheWay = 0.1;
constexpr double kLongestWay = 0.5;
// How long a playing graph may go without new samples. Renderers keep no more than two seconds.
constexpr double kStarved = 5;

// An existing path in the form that has no name of more than twelve characters; nothing where the
// volume keeps none.
std::optional<std::wstring> short_path(const std::wstring& path) {
  const DWORD needed = GetShortPathNameW(path.c_str(), nullptr, 0);
  std::wstring result(needed, L'\0');
  const DWORD length = GetShortPathNameW(path.c_str(), result.data(), needed);
  if (length == 0 || length >= needed) return std::nullopt;
  result.resize(length);
  return result;
}

bool is_wine() {
  static const bool wine =
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return wine;
}

// The place of a graph without a clock: it plays as fast as the sound device takes it.
class OwnTime {
 public:
  double position() const { return base_ + elapsed(since_); }
  void run() {
    if (!since_) since_ = Clock::now();
  }
  void rest() {
    base_ = position();
    since_.reset();
  }
  void go_to(double position) {
    base_ = position;
    if (since_) since_ = Clock::now();
  }

  static double elapsed(std::optional<Clock::time_point> since) {
    return since ? std::chrono::duration<double>(Clock::now() - *since).count() : 0;
  }

 private:
  double base_ = 0;
  std::optional<Clock::time_point> since_;
};

class FilterGraph final : public MediaGraph {
 public:
  FilterGraph(std::shared_ptr<SampleRing> samples, bool clocked)
      : samples_(std::move(samples)), clocked_(clocked) {}

  ~FilterGraph() override { take_apart(); }

  void set_device(const std::string& id) override { device_ = id; }

  Opening open(const std::string& path) override {
    const auto extended = extended_path(path);
    const DWORD found = extended ? GetFileAttributesW(extended->c_str()) : INVALID_FILE_ATTRIBUTES;
    if (found == INVALID_FILE_ATTRIBUTES || (found & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      return Opening::missing;
    }
    const auto name = graph_path(path);
    if (!name) return Opening::missing;
    Opening built = build(*name);
    if (built != Opening::ok && !device_.empty()) {
      // The device may be busy or going away: what the system chooses is better than silence.
      device_.clear();
      take_apart();
      built = build(*name);
    }
    if (built != Opening::ok) return built;
    tap_.emplace(samples_);
    Opening opening = Opening::ok;
    if (tap_->put_before(audio_renderer_of(graph_.get()).get(), graph_.get()) ==
        SampleTap::Result::broken) {
      take_apart();
      opening = build(*name);
    }
    const auto filter = graph_.as<IMediaFilter>(IID_IMediaFilter);
    if (!clocked_ && (!filter || FAILED(filter->SetSyncSource(nullptr)))) clocked_ = true;
    return opening;
  }

  double duration() override {
    LONGLONG duration = 0;
    return SUCCEEDED(seeking_->GetDuration(&duration)) ? seconds(duration) : 0;
  }
  double position() override {
    if (!clocked_) {
      keep_to_samples();
      return std::min(time_.position(), duration());
    }
    LONGLONG position = 0;
    return SUCCEEDED(seeking_->GetCurrentPosition(&position)) ? seconds(position) : 0;
  }

  bool run() override {
    runs_ = SUCCEEDED(control_->Run());
    fed_at_ = Clock::now();
    if (runs_) time_.run();
    return runs_;
  }
  bool pause() override {
    time_.rest();
    runs_ = false;
    return SUCCEEDED(control_->Pause());
  }
  bool stop() override {
    time_.rest();
    runs_ = false;
    const bool stopped = SUCCEEDED(control_->Stop());
    return seek(0) && stopped;
  }
  bool seek(double position) override {
    LONGLONG units = std::llround(position * kUnits);
    if (tap_) tap_->begin_at(position);
    samples_->clear();
    fed_at_ = Clock::now();
    const bool moved = SUCCEEDED(seeking_->SetPositions(&units, AM_SEEKING_AbsolutePositioning,
                                                        nullptr, AM_SEEKING_NoPositioning));
    time_.go_to(position);
    complete_.reset();
    return moved;
  }

  void set_gain(long gain) override { audio_->put_Volume(gain); }
  void set_balance(long balance) override { audio_->put_Balance(balance); }

  Event event() override {
    Event happened = Event::none;
    long code = 0;
    LONG_PTR first = 0;
    LONG_PTR second = 0;
    while (events_->GetEvent(&code, &first, &second, 0) == S_OK) {
      if (code == EC_COMPLETE) complete_ = Clock::now();
      if (code == EC_ERRORABORT || code == EC_STREAM_ERROR_STOPPED || code == EC_DEVICE_LOST ||
          code == kSoundDeviceFailed) {
        happened = Event::device_lost;
      }
      events_->FreeEventParams(code, first, second);
    }
    if (happened == Event::none && complete_ && is_heard_out()) {
      complete_.reset();
      happened = Event::ended;
    }
    if (happened == Event::none && starves()) happened = Event::device_lost;
    return happened;
  }

 private:
  // Without a clock the time must not run on where no samples come.
  void keep_to_samples() {
    const auto newest = complete_ ? std::nullopt : samples_->newest();
    if (newest && time_.position() > *newest) time_.go_to(*newest);
  }

  // Whether no samples have come for so long that there can be no device that takes them.
  bool starves() {
    const auto newest = samples_->newest();
    if (!runs_ || complete_ || !newest || newest != fed_) fed_at_ = Clock::now();
    fed_ = newest;
    return OwnTime::elapsed(fed_at_) >= kStarved;
  }

  // Without a clock a graph is complete when the last samples are on their way to the device.
  bool is_heard_out() {
    return clocked_ || time_.position() >= duration() + kOnTheWay ||
           OwnTime::elapsed(complete_) >= kLongestWay;
  }

  static double seconds(LONGLONG units) {
    return std::max(0.0, static_cast<double>(units) / kUnits);
  }

  Opening build(const std::wstring& path) {
    if (FAILED(CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_IGraphBuilder,
                                graph_.out_void()))) {
      return Opening::no_engine;
    }
    // What renders sound and is in the graph already is what the system connects first.
    if (!device_.empty()) {
      if (const auto renderer = renderer_on(device_)) {
        graph_->AddFilter(renderer.get(), L"Audio Renderer");
      }
    }
    const HRESULT rendered = graph_->RenderFile(path.c_str(), nullptr);
    // A file may hold a picture of its cover, which is not to be shown in a window of its own.
    if (const auto video = graph_.as<IVideoWindow>(IID_IVideoWindow)) {
      video->put_AutoShow(OAFALSE);
    }
    control_ = graph_.as<IMediaControl>(IID_IMediaControl);
    seeking_ = graph_.as<IMediaSeeking>(IID_IMediaSeeking);
    events_ = graph_.as<IMediaEvent>(IID_IMediaEvent);
    audio_ = graph_.as<IBasicAudio>(IID_IBasicAudio);
    if (!control_ || !seeking_ || !events_ || !audio_) return Opening::no_engine;
    if (SUCCEEDED(rendered) && audio_renderer_of(graph_.get())) return Opening::ok;
    return waveOutGetNumDevs() == 0 ? Opening::no_device : Opening::unplayable;
  }

  void take_apart() {
    if (control_) control_->Stop();
    tap_.reset();
    audio_ = {};
    events_ = {};
    seeking_ = {};
    control_ = {};
    graph_ = {};
  }

  std::shared_ptr<SampleRing> samples_;
  std::string device_;
  ComPtr<IGraphBuilder> graph_;
  ComPtr<IMediaControl> control_;
  ComPtr<IMediaSeeking> seeking_;
  ComPtr<IMediaEvent> events_;
  ComPtr<IBasicAudio> audio_;
  std::optional<SampleTap> tap_;
  bool clocked_;
  OwnTime time_;
  bool runs_ = false;
  std::optional<double> fed_;  // how far samples had come, and when that was so first
  std::optional<Clock::time_point> fed_at_;
  std::optional<Clock::time_point> complete_;  // when all of the file had been played
};

}  // namespace

std::optional<std::wstring> graph_path(const std::string& path) {
  const auto extended = file_path(path);
  if (!extended) return std::nullopt;
  std::wstring plain = plain_path(*extended);
  // Windows drops dots and blanks from the end of a plain path, and would open another file.
  const bool literal_only = plain.size() >= MAX_PATH || plain.ends_with(L'.') ||
                            plain.ends_with(L' ') || plain.find(L" \\") != std::wstring::npos ||
                            plain.find(L".\\") != std::wstring::npos;
  if (!literal_only) return plain;
  const auto shorter = short_path(*extended);
  return shorter ? plain_path(*shorter) : *extended;
}

std::unique_ptr<MediaGraph> make_filter_graph(std::shared_ptr<SampleRing> samples) {
  return std::make_unique<FilterGraph>(std::move(samples), !is_wine());
}

std::unique_ptr<MediaGraph> make_clocked_filter_graph(std::shared_ptr<SampleRing> samples) {
  return std::make_unique<FilterGraph>(std::move(samples), true);
}

}  // namespace ordelan::win32
