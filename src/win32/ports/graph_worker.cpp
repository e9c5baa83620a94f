#include "win32/ports/graph_worker.h"

#include <windows.h>

#include <ole2.h>

#include <cstdio>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

namespace ordelan::win32 {
namespace {

using system::Media;
using Clock = std::chrono::steady_clock;

// How often a playing graph is asked for its place and its events.
constexpr auto kPace = std::chrono::milliseconds(15);
constexpr auto kTurn = std::chrono::milliseconds(3);
// A graph that was built anew and has played for so long has proved good.
constexpr auto kGoodTime = std::chrono::seconds(30);
// How long a thread may take to end when it is in no such call.
constexpr auto kUsualEnd = std::chrono::milliseconds(300);

// The boards of all the threads.
struct Workers {
  std::mutex mutex;
  std::vector<std::shared_ptr<GraphBoard>> boards;
};
Workers& workers() {
  static auto& all = *new Workers;  // threads may outlive what is destroyed at the end
  return all;
}

// Whether a thread that has been left to itself is still in a call that may come back soon.
bool will_end_soon(GraphBoard& board) {
  const std::scoped_lock lock(board.mutex);
  const bool stuck = board.busy && Clock::now() - board.since >= kStuckCall;
  return board.retired && !board.ended && !stuck;
}

bool is_retired(GraphBoard& board) {
  const std::scoped_lock lock(board.mutex);
  return board.retired;
}

// The system's objects for a thread that has no windows.
class ManyThreadSession {
 public:
  ManyThreadSession() : begun_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED))) {}
  ~ManyThreadSession() {
    if (begun_) CoUninitialize();
  }
  ManyThreadSession(const ManyThreadSession&) = delete;
  ManyThreadSession& operator=(const ManyThreadSession&) = delete;

 private:
  bool begun_;
};

class Worker {
 public:
  Worker(std::shared_ptr<GraphBoard> board, MakeGraph make_graph, system::MediaFacts facts)
      : board_(std::move(board)), make_graph_(std::move(make_graph)), facts_(std::move(facts)) {}

  // Graphs that are built or taken apart by two threads at a time can crash inside the system:
  // those that are left to themselves come first, unless they are stuck.
  void wait_for(const std::vector<std::shared_ptr<GraphBoard>>& others) {
    for (const auto& other : others) {
      while (will_end_soon(*other) && !is_retired(*board_)) std::this_thread::sleep_for(kTurn);
    }
  }

  void serve() {
    std::unique_lock lock(board_->mutex);
    while (!board_->retired) {
      if (board_->orders.empty()) {
        const auto wanted = [this] { return board_->retired || !board_->orders.empty(); };
        if (state_ != Media::kPlaying) {
          board_->changed.wait(lock, wanted);
          continue;
        }
        board_->changed.wait_for(lock, kPace, wanted);
        if (wanted()) continue;
        begin_call(false);
        lock.unlock();
        watch();
      } else {
        const GraphOrder order = std::move(board_->orders.front());
        board_->orders.pop_front();
        begin_call(opens(order));
        board_->in_hand = order;
        if (order.kind == GraphOrder::open) board_->path_in_hand = order.path;
        lock.unlock();
        carry_out(order);
      }
      const GraphView view = look();
      lock.lock();
      board_->busy = board_->opens = false;
      if (board_->orders.empty() && !board_->retired) board_->view = view;
      board_->changed.notify_all();
    }
    begin_call(false);
    lock.unlock();
    graph_.reset();
  }

 private:
  void begin_call(bool opens) {
    board_->busy = true;
    board_->opens = opens;
    board_->since = Clock::now();
  }

  bool opens(const GraphOrder& order) const {
    return order.kind == GraphOrder::open || (order.kind == GraphOrder::play && tries_again(order));
  }
  // What has failed is tried once more: perhaps there is a device by now, or the file.
  bool tries_again(const GraphOrder& play) const {
    return state_ == Media::kReady && play.given > failed_at_;
  }

  void carry_out(const GraphOrder& order) {
    switch (order.kind) {
      case GraphOrder::open:
        path_ = order.path;
        rebuilt_at_.reset();
        open_anew();
        break;
      case GraphOrder::play:
        play(order);
        break;
      case GraphOrder::pause:
        if (state_ == Media::kPlaying && graph_->pause()) state_ = Media::kPaused;
        break;
      case GraphOrder::stop:
        if (is_open()) stop();
        break;
      case GraphOrder::seek:
        if (is_open()) seek(order);
        break;
      case GraphOrder::loudness:
        if (is_open()) set_loudness();
        break;
      case GraphOrder::device:
        if (is_open()) change_device();
        break;
      case GraphOrder::close:
        graph_.reset();
        state_ = Media::kUndefined;
        break;
    }
  }

  bool is_open() const {
    return state_ == Media::kPlaying || state_ == Media::kPaused || state_ == Media::kStopped;
  }

  void open_anew() {
    facts_view_ = {};
    // The file before is let go first: this one may never open.
    if (graph_) graph_->stop();
    graph_.reset();
    const auto opening = open_at(0, true);
    if (opening == MediaGraph::Opening::ok) return;
    fail(notice_of(opening));
    find_title();
  }

  // Makes the graph of the file, at that place, and brings it to that state: it plays, is paused or
  // is stopped.
  MediaGraph::Opening open_at(double seconds, bool anew, int state = Media::kPlaying) {
    state_ = Media::kUndefined;
    lost_ = false;
    graph_ = make_graph_(board_->samples);
    if (!graph_) return MediaGraph::Opening::no_engine;
    graph_->set_device(device());
    const auto opening = graph_->open(path_);
    if (opening != MediaGraph::Opening::ok) {
      graph_.reset();
      return opening;
    }
    set_loudness();
    if (seconds > 0) graph_->seek(seconds);
    facts_view_.duration = graph_->duration();
    // The disk may take its time over the facts. Nothing sounds until then, so that the program can
    // leave the file to this thread.
    if (anew) find_facts();
    if (is_retired(*board_)) {
      graph_.reset();
      return opening;
    }
    if (!bring_to(state)) {
      graph_.reset();
      return MediaGraph::Opening::no_device;
    }
    // The program may have given it up meanwhile, and play the same file elsewhere.
    if (is_retired(*board_)) graph_->stop();
    state_ = state;
    return opening;
  }

  bool bring_to(int state) {
    if (state == Media::kPlaying) return graph_->run();
    return state != Media::kPaused || graph_->pause();
  }

  std::string device() const {
    const std::scoped_lock lock(board_->mutex);
    return board_->device;
  }

  // A graph keeps the device that it was built with.
  void change_device() {
    const double position = state_ == Media::kStopped ? 0 : graph_->position();
    const auto opening = build_again(position, state_);
    if (opening != MediaGraph::Opening::ok) fail_later(notice_of(opening));
  }

  // The same file on a new graph.
  MediaGraph::Opening build_again(double position, int state) {
    const GraphView facts = facts_view_;
    graph_.reset();
    const auto opening = open_at(position, false, state);
    facts_view_ = facts;
    return opening;
  }

  // What has been open keeps its name.
  void fail_later(std::string notice) {
    std::string name = std::move(facts_view_.name);
    fail(std::move(notice));
    facts_view_.name = std::move(name);
  }

  void fail(std::string notice) {
    graph_.reset();
    state_ = Media::kReady;
    facts_view_ = {};
    facts_view_.notice = std::move(notice);
    failed_at_ = Clock::now();
  }

  void find_facts() {
    find_title();
    if (facts_.kilobits_of && !is_retired(*board_)) {
      facts_view_.kilobits = facts_.kilobits_of(path_, facts_view_.duration);
    }
  }
  void find_title() {
    if (is_retired(*board_)) return;
    if (facts_.title_of) facts_view_.name = facts_.title_of(path_);
    if (facts_view_.name.empty()) facts_view_.name = system::title_of_path(path_);
  }

  void play(const GraphOrder& order) {
    if (tries_again(order)) {
      open_anew();
    } else if (is_open() && state_ != Media::kPlaying) {
      if (graph_->run()) {
        state_ = Media::kPlaying;
      } else {
        rebuild(graph_->position());
      }
    }
  }

  void stop() {
    graph_->stop();
    graph_->event();  // what the stop itself has reported
    state_ = Media::kStopped;
    rebuilt_at_.reset();
  }

  void seek(const GraphOrder& order) {
    if (state_ == Media::kStopped) return;
    if (facts_view_.duration > 0 && order.farthest >= facts_view_.duration) {
      stop();
    } else {
      // An end that has come by now is not that of the new place.
      lost_ = lost_ || graph_->event() == MediaGraph::Event::device_lost;
      graph_->seek(order.seconds);
    }
  }

  void set_loudness() {
    int volume = 0;
    int balance = 0;
    {
      const std::scoped_lock lock(board_->mutex);
      volume = board_->volume;
      balance = board_->balance;
    }
    graph_->set_gain(system::gain_of(volume));
    graph_->set_balance(system::balance_gain_of(balance));
  }

  void watch() {
    switch (std::exchange(lost_, false) ? MediaGraph::Event::device_lost : graph_->event()) {
      case MediaGraph::Event::none:
        position_ = graph_->position();
        break;
      case MediaGraph::Event::ended:
        stop();
        break;
      case MediaGraph::Event::device_lost:
        rebuild(position_);
        break;
    }
  }

  // The default device may be another one by now. Not again soon: it would be lost again.
  void rebuild(double position) {
    const Moment now = Clock::now();
    const bool again = !rebuilt_at_ || now - *rebuilt_at_ >= kGoodTime;
    rebuilt_at_ = now;
    if (again && build_again(position, Media::kPlaying) == MediaGraph::Opening::ok) return;
    fail_later("Se ha perdido el dispositivo de sonido: el archivo no suena.");
  }

  // What is to be shown now.
  GraphView look() {
    GraphView view = facts_view_;
    view.state = state_;
    view.at = Clock::now();
    view.moves = state_ == Media::kPlaying;
    if (state_ == Media::kPlaying || state_ == Media::kPaused) {
      view.position = position_ = graph_->position();
      view.at = Clock::now();
    }
    return view;
  }

  std::shared_ptr<GraphBoard> board_;
  MakeGraph make_graph_;
  system::MediaFacts facts_;
  std::unique_ptr<MediaGraph> graph_;
  std::string path_;
  int state_ = Media::kUndefined;
  GraphView facts_view_;  // of it the duration, the name, the bit rate and the notice
  double position_ = 0;   // the last one while playing
  bool lost_ = false;     // the device, as was found out when nothing could be done about it
  std::optional<Moment> rebuilt_at_;
  Moment failed_at_;
};

}  // namespace

void start_graph_worker(std::shared_ptr<GraphBoard> board, MakeGraph make_graph,
                        system::MediaFacts facts) {
  std::vector<std::shared_ptr<GraphBoard>> others;
  {
    const std::scoped_lock lock(workers().mutex);
    others = workers().boards;
    workers().boards.push_back(board);
  }
  std::thread([board = std::move(board), make_graph = std::move(make_graph),
               facts = std::move(facts), others = std::move(others)]() mutable {
    {
      const ManyThreadSession session;
      Worker worker(board, std::move(make_graph), std::move(facts));
      worker.wait_for(std::exchange(others, {}));
      worker.serve();
    }
    {
      const std::scoped_lock lock(board->mutex);
      board->ended = true;
      board->changed.notify_all();
    }
    const std::scoped_lock lock(workers().mutex);
    std::erase(workers().boards, board);
  }).detach();
}

std::size_t graph_workers() {
  const std::scoped_lock lock(workers().mutex);
  return workers().boards.size();
}

void end_process_despite_workers(int code) {
  const Moment begin = Clock::now();
  while (graph_workers() > 0 && Clock::now() - begin < kUsualEnd)
    std::this_thread::sleep_for(kPace);
  if (graph_workers() == 0) return;
  std::fflush(nullptr);
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(code));
}

}  // namespace ordelan::win32
