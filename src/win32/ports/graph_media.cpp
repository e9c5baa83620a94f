#include "win32/ports/graph_media.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "win32/ports/filter_graph.h"
#include "win32/ports/sound_devices.h"

namespace ordelan::win32 {
namespace {

using system::Media;
using Clock = std::chrono::steady_clock;

// How long the program's thread waits for a file to be let go.
constexpr auto kLetGo = std::chrono::milliseconds(250);
// How far the position is carried on after the engine's thread was last heard of.
constexpr double kBlindSeconds = 0.5;
constexpr std::size_t kMostLeft = 16;
// Farther than any file goes.
constexpr double kFarthest = 1e9;
constexpr auto kNeverOpens = "No suena: el sistema no termina de abrir este archivo.";

double seconds_since(Moment moment) {
  return std::chrono::duration<double>(Clock::now() - moment).count();
}

double position_in(const GraphView& view) {
  double position = view.position;
  if (view.moves) position += std::clamp(seconds_since(view.at), 0.0, kBlindSeconds);
  return view.duration > 0 ? std::min(position, view.duration) : position;
}

GraphView view_of_failed(const std::string& path, std::string notice) {
  GraphView view;
  view.state = Media::kReady;
  view.name = system::title_of_path(path);
  view.notice = std::move(notice);
  return view;
}

// A slider that is drawn along gives many places or volumes; only the last one is of use.
void add(GraphBoard& board, GraphOrder order) {
  const bool outdates = order.kind == GraphOrder::seek || order.kind == GraphOrder::loudness;
  if (outdates && !board.orders.empty() && board.orders.back().kind == order.kind) {
    order.farthest = std::max(order.farthest, board.orders.back().farthest);
    board.orders.pop_back();
  }
  board.orders.push_back(std::move(order));
}

// Whether the thread is in a call of the system that may never come back. With the mutex held.
bool is_stuck(const GraphBoard& board) {
  return board.busy && Clock::now() - board.since >= kStuckCall;
}

bool has_ended(GraphBoard& board) {
  const std::scoped_lock lock(board.mutex);
  return board.ended;
}

}  // namespace

GraphMedia::GraphMedia(system::MediaFacts facts, MakeGraph make_graph)
    : facts_(std::move(facts)),
      make_graph_(make_graph ? std::move(make_graph) : MakeGraph(make_filter_graph)) {}

GraphMedia::~GraphMedia() {
  end();
}

void GraphMedia::set_URL(const std::string& path) {
  if (path.empty()) {
    close();
    return;
  }
  url_ = path;
  given_up_.reset();
  opened_at_ = tried_at_ = Clock::now();
  if (gave_up(path) || abandoned() >= kMostLeft) {
    let_go();
    given_up_ = view_of_failed(path, kNeverOpens);
    return;
  }
  find_worker();
  const std::scoped_lock lock(board_->mutex);
  board_->orders.clear();  // they were for the file before
  board_->orders.push_back({.kind = GraphOrder::open, .path = path});
  board_->view = {};
  board_->view.state = kOpening;
  board_->view.name = system::title_of_path(path);
  board_->changed.notify_all();
}

void GraphMedia::close() {
  url_.clear();
  given_up_.reset();
  let_go();
}

void GraphMedia::play() {
  order({.kind = GraphOrder::play}, [this](GraphView& view) {
    if (view.state == kStopped || view.state == kPaused) {
      view.state = kPlaying;
    } else if (view.state == kReady) {
      view.state = kOpening;
      opened_at_ = tried_at_ = Clock::now();
    }
  });
}

void GraphMedia::pause() {
  order({.kind = GraphOrder::pause}, [](GraphView& view) {
    if (view.state == kPlaying) view.state = kPaused;
  });
}

void GraphMedia::stop() {
  order({.kind = GraphOrder::stop}, [](GraphView& view) {
    if (view.state != kPlaying && view.state != kPaused) return;
    view.state = kStopped;
    view.position = 0;
  });
}

double GraphMedia::currentPosition() const {
  return position_in(view());
}

void GraphMedia::set_currentPosition(double seconds) {
  if (!std::isfinite(seconds)) return;
  seconds = std::clamp(seconds, 0.0, kFarthest);
  order({.kind = GraphOrder::seek, .seconds = seconds, .farthest = seconds},
        [seconds](GraphView& view) {
          if (view.state != kPlaying && view.state != kPaused) return;
          view.position = seconds;
          if (view.duration <= 0 || seconds < view.duration) return;
          view.state = kStopped;
          view.position = 0;
        });
}

double GraphMedia::duration() const {
  return view().duration;
}

std::string GraphMedia::durationString() const {
  return system::duration_text(duration());
}

std::string GraphMedia::name() const {
  return view().name;
}

void GraphMedia::set_volume(int volume) {
  volume_ = system::volume_in_range(volume);
  tell_loudness();
}

void GraphMedia::set_balance(int balance) {
  balance_ = system::balance_in_range(balance);
  tell_loudness();
}

std::vector<system::SoundDevice> GraphMedia::devices() {
  return sound_devices();
}

void GraphMedia::set_device(const std::string& id) {
  // The same one once more may be there again by now.
  if (id.empty() && device_.empty()) return;
  device_ = id;
  if (!board_) return;
  const std::scoped_lock lock(board_->mutex);
  board_->device = id;
  add(*board_, {.kind = GraphOrder::device});
  board_->changed.notify_all();
}

std::string GraphMedia::status() const {
  const GraphView now = view();
  return system::status_text(now.state, now.kilobits);
}

int GraphMedia::playState() const {
  return view().state;
}

system::Heard GraphMedia::heard(std::size_t samples) const {
  const GraphView now = view();
  if (now.state != kPlaying || !now.moves || !board_) return {};
  return board_->samples->before(position_in(now), samples);
}

bool GraphMedia::holds(const std::string& path) const {
  return Media::holds(path) ||
         (abandoned() > 0 && std::any_of(left_.begin(), left_.end(), [&](const Left& left) {
            return text::equal_ignoring_case(left.path, path);
          }));
}

std::string GraphMedia::notice() const {
  const GraphView now = view();
  if (now.state == kOpening && Clock::now() - opened_at_ >= slow) {
    return "El sistema tarda en abrir este archivo.";
  }
  return now.notice;
}

void GraphMedia::end() {
  url_.clear();
  given_up_.reset();
  volume_ = 50;
  balance_ = 0;
  device_.clear();
  const auto board = std::exchange(board_, nullptr);
  if (!board) return;
  std::unique_lock lock(board->mutex);
  board->retired = true;
  board->orders.clear();
  board->changed.notify_all();
  const auto ended = [&] { return board->ended; };
  if (!is_stuck(*board) && board->changed.wait_for(lock, kLetGo, ended)) return;
  left_.push_back({board, board->path_in_hand, false});
}

std::size_t GraphMedia::abandoned() const {
  std::erase_if(left_, [](const Left& left) { return has_ended(*left.board); });
  return left_.size();
}

GraphView GraphMedia::view() const {
  if (given_up_) return *given_up_;
  if (!board_ || url_.empty()) return {};
  bool stuck_before = false;
  bool once_more = false;
  bool room = false;
  {
    const std::scoped_lock lock(board_->mutex);
    const GraphView& shown = board_->view;
    if (shown.state != kOpening) return shown;
    room = abandoned() < kMostLeft;
    const auto waited = Clock::now() - tried_at_;
    const bool stuck = is_stuck(*board_);
    stuck_before = stuck && !board_->opens;
    once_more = stuck && board_->opens && room && tried_at_ == opened_at_ &&
                Clock::now() - board_->since >= again && waited < hopeless;
    if (!stuck_before && !once_more && waited < hopeless) return shown;
  }
  if ((stuck_before && room) || once_more) {
    move_to_another_worker(once_more);
    const std::scoped_lock lock(board_->mutex);
    return board_->view;
  }
  leave(true);
  given_up_ = view_of_failed(url_, kNeverOpens);
  return *given_up_;
}

template <class Foresee>
void GraphMedia::order(GraphOrder order, Foresee foreseen) {
  if (url_.empty() || given_up_ || !board_) return;
  const std::scoped_lock lock(board_->mutex);
  GraphView& shown = board_->view;
  shown.position = position_in(shown);
  shown.moves = false;
  foreseen(shown);
  add(*board_, std::move(order));
  board_->changed.notify_all();
}

void GraphMedia::find_worker() {
  if (board_) {
    bool free = true;
    {
      const std::scoped_lock lock(board_->mutex);
      free = !board_->busy || (!board_->opens && !is_stuck(*board_));
    }
    if (free) return;
    leave(false);
  }
  begin_worker();
}

void GraphMedia::begin_worker() const {
  board_ = std::make_shared<GraphBoard>();
  board_->volume = volume_;
  board_->balance = balance_;
  board_->device = device_;
  start_graph_worker(board_, make_graph_, facts_);
}

// The thread ends when it can; until then it stays with what it is in.
void GraphMedia::leave(bool hopeless_now) const {
  std::string path;
  {
    const std::scoped_lock lock(board_->mutex);
    board_->retired = true;
    board_->orders.clear();
    path = board_->path_in_hand;
    board_->changed.notify_all();
  }
  left_.push_back({std::exchange(board_, nullptr), path, hopeless_now});
}

void GraphMedia::move_to_another_worker(bool open_again) const {
  std::deque<GraphOrder> orders;
  GraphView shown;
  {
    const std::scoped_lock lock(board_->mutex);
    if (!is_stuck(*board_) || board_->opens != open_again) return;
    orders.swap(board_->orders);
    shown = board_->view;
    board_->retired = true;
    const auto opens = [](const GraphOrder& order) { return order.kind == GraphOrder::open; };
    if (std::none_of(orders.begin(), orders.end(), opens)) {
      // The file is open, or nearly; the other thread begins anew, with what was in hand after it.
      if (!open_again) orders.push_front(board_->in_hand);
      orders.push_front({.kind = GraphOrder::open, .path = url_});
    }
  }
  if (open_again) tried_at_ = Clock::now();
  leave(false);
  begin_worker();
  const std::scoped_lock lock(board_->mutex);
  board_->orders = std::move(orders);
  board_->view = std::move(shown);
  board_->changed.notify_all();
}

void GraphMedia::let_go() {
  if (!board_) return;
  std::unique_lock lock(board_->mutex);
  board_->orders.clear();
  board_->orders.push_back({.kind = GraphOrder::close});
  board_->view = {};
  board_->changed.notify_all();
  // What is stuck already is not waited for.
  const bool done = !is_stuck(*board_) && board_->changed.wait_for(lock, kLetGo, [this] {
    return board_->orders.empty() && !board_->busy;
  });
  lock.unlock();
  if (!done) leave(false);
}

void GraphMedia::tell_loudness() {
  if (!board_) return;
  const std::scoped_lock lock(board_->mutex);
  board_->volume = volume_;
  board_->balance = balance_;
  add(*board_, {.kind = GraphOrder::loudness});
  board_->changed.notify_all();
}

// Whether a thread still waits for the system to open this file, for longer than has any hope.
bool GraphMedia::gave_up(const std::string& path) const {
  return abandoned() > 0 && std::any_of(left_.begin(), left_.end(), [&](const Left& left) {
           const std::scoped_lock lock(left.board->mutex);
           return left.path == path && left.board->opens &&
                  (left.hopeless || Clock::now() - left.board->since >= hopeless);
         });
}

}  // namespace ordelan::win32
