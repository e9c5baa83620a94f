// The thread that builds graphs and drives them, and what it shares with the program's thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <string>

#include "system/media.h"
#include "system/media_texts.h"
#include "win32/ports/media_graph.h"

namespace ordelan::win32 {

using Moment = std::chrono::steady_clock::time_point;

// A call of the system that takes longer than this may never come back.
constexpr auto kStuckCall = std::chrono::milliseconds(800);

struct GraphOrder {
  enum Kind { open, play, pause, stop, seek, loudness, device, close };
  Kind kind = close;
  std::string path = {};  // of `open`
  double seconds = 0;     // of `seek`
  double farthest = 0;    // and of those whose place it has taken
  Moment given = std::chrono::steady_clock::now();
};

// What the program is shown of the file.
struct GraphView {
  int state = system::Media::kUndefined;
  double position = 0;  // at the moment `at`; from there on it moves with the time if `moves`
  Moment at;
  bool moves = false;
  double duration = 0;
  std::string name;
  int kilobits = 0;
  std::string notice;
};

// Shared by the two threads; its members only change under the mutex, and `changed` is notified.
//
// The program's thread writes into the view what its orders will come to, so that it reads them at
// once. The other writes what has come of them, but only when it has carried out all of them.
struct GraphBoard {
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<GraphOrder> orders;
  GraphView view;
  int volume = 50;
  int balance = 0;
  std::string device;  // empty for the default one
  bool busy = false;   // the thread is in a call that may take any time, since `since`
  bool opens = false;  // and this call opens a file
  Moment since;
  GraphOrder in_hand;        // the order that it carries out, or the last one
  std::string path_in_hand;  // the file that it opened last, or is opening
  bool retired = false;      // the thread is to end; the view is not read any more
  bool ended = false;        // the thread has let go of everything
  const std::shared_ptr<SampleRing> samples = std::make_shared<SampleRing>();
};

// Starts a thread that serves the board until the board is retired. It runs on its own: a call of
// the system that never returns keeps only the thread and the board.
void start_graph_worker(std::shared_ptr<GraphBoard> board, MakeGraph make_graph,
                        system::MediaFacts facts);

// How many of these threads there are in the process.
std::size_t graph_workers();

// Ends the process with that code if one of these threads is still in a call of the system, and
// returns otherwise. A program calls it last of all, when it has written what it had to write: the
// usual way out would pull away from below such a thread what it uses, and may crash or hang.
void end_process_despite_workers(int code);

}  // namespace ordelan::win32
