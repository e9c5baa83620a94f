// How long a file takes from its choice to its sound, with the engine and with a bare graph of the
// system, in turns; and what many files leave in the process.
//
//   sound_bench FOLDER                the first sound of this process, and the median of 20 later
//                                     ones for each kind of file of scripts/sample-sounds
//   sound_bench FOLDER engine N       opens N files with the engine, one after the other
//   sound_bench FOLDER graphs N       the same with bare graphs; what the process holds meanwhile
//   is
//                                     to be seen from outside, under Wine in /proc
//
// What is heard is recorded from the default recording device: under Wine the monitor of a sink
// that plays into nothing, see scripts/wine.
#include <windows.h>

#include <dshow.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "audio/media_facts.h"
#include "tests/support/win32/sound_recorder.h"
#include "win32/ansi_text.h"
#include "win32/com_ptr.h"
#include "win32/ports/graph_media.h"
#include "win32/ports/graph_worker.h"
#include "win32/ports/win32_file_system.h"

namespace {

using namespace ordelan;
using Clock = std::chrono::steady_clock;

constexpr const char* kKinds[] = {"tono.wav", "tono32.wav", "tono.mp3", "tono.flac",
                                  "tono.ogg", "tono.m4a",   "tono.wma", "tono.aif"};
constexpr int kTurns = 20;

double milliseconds_since(Clock::time_point begin) {
  return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

// Opens a file with nothing of ours: what every program over such graphs has to wait for.
class BareGraph {
 public:
  explicit BareGraph(const std::string& path) {
    CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_IGraphBuilder,
                     graph_.out_void());
    graph_->RenderFile(win32::widen(path).c_str(), nullptr);
    control_ = graph_.as<IMediaControl>(IID_IMediaControl);
    control_->Run();
  }
  ~BareGraph() { control_->Stop(); }
  BareGraph(const BareGraph&) = delete;
  BareGraph& operator=(const BareGraph&) = delete;

 private:
  win32::ComPtr<IGraphBuilder> graph_;
  win32::ComPtr<IMediaControl> control_;
};

class Ear {
 public:
  void wait_for_silence() {
    while (test::level(recorder_.record(0.1)) > kSilent) continue;
  }
  // False after three seconds of silence.
  bool wait_for_sound() {
    const auto begin = Clock::now();
    while (test::level(recorder_.record(0.01)) < kHeard) {
      if (milliseconds_since(begin) > 3000) return false;
    }
    return true;
  }

 private:
  static constexpr double kHeard = 0.003;
  static constexpr double kSilent = 0.0005;
  test::SoundRecorder recorder_;
};

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void report_times(const std::string& folder) {
  win32::Win32FileSystem files;
  Ear ear;
  win32::GraphMedia media(audio::media_facts(files));
  const auto with_engine = [&](const std::string& path) {
    ear.wait_for_silence();
    const auto begin = Clock::now();
    media.set_URL(path);
    const double took = ear.wait_for_sound() ? milliseconds_since(begin) : -1;
    media.close();
    return took;
  };
  const auto with_graph = [&](const std::string& path) {
    ear.wait_for_silence();
    const auto begin = Clock::now();
    const BareGraph graph(path);
    return ear.wait_for_sound() ? milliseconds_since(begin) : -1;
  };
  std::printf("first sound of the process: %.0f ms\n", with_engine(folder + "\\tono.wav"));
  for (const char* const kind : kKinds) {
    const std::string path = folder + "\\" + kind;
    std::vector<double> ours;
    std::vector<double> bare;
    for (int turn = 0; turn < kTurns; ++turn) {
      ours.push_back(with_engine(path));
      bare.push_back(with_graph(path));
    }
    std::printf("%-10s engine %4.0f ms (least %.0f, most %.0f), bare graph %4.0f ms\n", kind,
                median(ours), *std::min_element(ours.begin(), ours.end()),
                *std::max_element(ours.begin(), ours.end()), median(bare));
    std::fflush(stdout);
  }
}

// Waits for 150 ms of play of each file, as long as an impatient listener does.
void open_many(const std::string& folder, bool engine, int count) {
  win32::Win32FileSystem files;
  win32::GraphMedia media(audio::media_facts(files));
  for (int i = 0; i < count; ++i) {
    const std::string path = folder + "\\" + kKinds[i % std::size(kKinds)];
    if (engine) {
      media.set_URL(path);
      while (media.playState() == system::Media::kOpening) Sleep(5);
      Sleep(150);
      media.close();
    } else {
      const BareGraph graph(path);
      Sleep(150);
    }
    if (i % 100 == 99) {
      std::printf("%d files\n", i + 1);
      std::fflush(stdout);
    }
  }
}

}  // namespace

int main(int count, char** words) {
  if (count != 2 && count != 4) {
    std::printf("sound_bench FOLDER [engine|graphs N]\n");
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  if (count == 2) {
    report_times(words[1]);
  } else {
    open_many(words[1], std::string(words[2]) == "engine", std::atoi(words[3]));
  }
  std::fflush(stdout);
  win32::end_process_despite_workers(0);
  return 0;
}
