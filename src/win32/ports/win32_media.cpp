#include "win32/ports/win32_media.h"

#include <map>
#include <utility>

#include "system/media_texts.h"
#include "text/code_page.h"

namespace ordelan::win32 {
namespace {

constexpr auto kPatience = std::chrono::seconds(3);
constexpr UINT kPaceMilliseconds = 100;

// The engines that wait, by their timers: the system hands a timer's function no more than that.
std::map<UINT_PTR, Win32Media*>& waiting() {
  static std::map<UINT_PTR, Win32Media*> engines;
  return engines;
}

}  // namespace

Motor motor_named(std::string_view name) {
  const std::string lower = text::lower(name);
  if (lower == "wmp") return Motor::player;
  if (lower == "directshow") return Motor::graph;
  return Motor::automatic;
}

Win32Media::Win32Media(system::Clock& clock, system::MediaFacts facts, Motor motor,
                       MakePlayer make_player, MakeGraph make_graph)
    : clock_(clock),
      motor_(motor),
      player_(std::move(make_player)),
      graph_(std::move(facts), std::move(make_graph)) {}

Win32Media::~Win32Media() {
  wait_no_more();
}

void Win32Media::set_host(HWND window) {
  player_.set_host(window);
}

void Win32Media::fit() {
  player_.fit();
}

void Win32Media::set_URL(const std::string& path) {
  wait_no_more();
  if (path.empty()) {
    close();
    return;
  }
  url_ = path;
  const bool player = is_for_player() && player_.begin();
  system::Media* next = player ? static_cast<system::Media*>(&player_) : &graph_;
  if (engine_ && engine_ != next) engine_->close();
  engine_ = next;
  engine_->set_volume(volume_);
  engine_->set_balance(balance_);
  engine_->set_URL(path);
  if (player) wait_for_sound();
}

void Win32Media::close() {
  wait_no_more();
  url_.clear();
  if (engine_) engine_->close();
}

void Win32Media::play() {
  engine().play();
  if (engine_ == &player_ && !url_.empty()) wait_for_sound();
}

void Win32Media::pause() {
  engine().pause();
  if (asked_ && rest_ == Rest::none) rest_ = Rest::paused;
}

void Win32Media::stop() {
  engine().stop();
  if (!asked_) return;
  rest_ = Rest::stopped;
  place_.reset();
}

double Win32Media::currentPosition() const {
  return engine().currentPosition();
}

void Win32Media::set_currentPosition(double seconds) {
  engine().set_currentPosition(seconds);
  if (asked_ && rest_ != Rest::stopped) place_ = seconds;
}

double Win32Media::duration() const {
  return engine().duration();
}

std::string Win32Media::durationString() const {
  return engine().durationString();
}

std::string Win32Media::name() const {
  return engine().name();
}

void Win32Media::set_volume(int volume) {
  volume_ = system::volume_in_range(volume);
  if (engine_) engine_->set_volume(volume_);
}

int Win32Media::balance() const {
  return engine_ ? engine_->balance() : balance_;
}

void Win32Media::set_balance(int balance) {
  balance_ = system::balance_in_range(balance);
  if (engine_) engine_->set_balance(balance_);
}

std::vector<system::SoundDevice> Win32Media::devices() {
  return motor_ == Motor::player ? std::vector<system::SoundDevice>() : graph_.devices();
}

void Win32Media::set_device(const std::string& id) {
  if (motor_ == Motor::player) return;
  device_ = id;
  graph_.set_device(id);
  if (engine_ != &player_ || url_.empty() || is_for_player()) return;
  const int state = player_.playState();
  const Rest rest = rest_;
  const auto place = asked_ ? place_ : std::optional(player_.currentPosition());
  const bool waits = asked_.has_value();
  wait_no_more();
  hand_to_graphs(place);
  if (waits ? rest == Rest::paused : state == kPaused) {
    graph_.pause();
  } else if (waits ? rest == Rest::stopped : state != kPlaying) {
    graph_.stop();
  }
}

std::string Win32Media::status() const {
  return url_.empty() ? "" : engine().status();
}

int Win32Media::playState() const {
  return url_.empty() ? int{kUndefined} : engine().playState();
}

system::Heard Win32Media::heard(std::size_t samples) const {
  return engine().heard(samples);
}

bool Win32Media::shows_itself() const {
  return engine_ == &player_;
}

bool Win32Media::holds(const std::string& path) const {
  return player_.holds(path) || graph_.holds(path);
}

std::string Win32Media::notice() const {
  return asked_ ? "" : engine().notice();
}

void Win32Media::end() {
  wait_no_more();
  url_.clear();
  player_.end();
  graph_.end();
  engine_ = nullptr;
  volume_ = 50;
  balance_ = 0;
  device_.clear();
}

void Win32Media::look() {
  if (!asked_) return;
  const int state = player_.playState();
  // A short file may have come to its end between two looks.
  const bool was_heard =
      player_.has_taken_up() &&
      (state == kPlaying || ((state == kStopped || state == kPaused) && player_.duration() > 0));
  if (!was_heard && clock_.now() - *asked_ < kPatience) return;
  const auto place = place_;
  const Rest rest = rest_;
  wait_no_more();
  if (was_heard) {
    // While it opens a file the player ignores orders.
    if (place && player_.currentPosition() < *place) player_.set_currentPosition(*place);
    if (rest == Rest::paused) player_.pause();
    if (rest == Rest::stopped) player_.stop();
    return;
  }
  if (motor_ == Motor::player || rest != Rest::none) return;
  hand_to_graphs(place);
}

bool Win32Media::is_for_player() const {
  return motor_ == Motor::player || (motor_ == Motor::automatic && device_.empty());
}

void Win32Media::hand_to_graphs(std::optional<double> place) {
  player_.close();
  engine_ = &graph_;
  graph_.set_volume(volume_);
  graph_.set_balance(balance_);
  graph_.set_URL(url_);
  if (place) graph_.set_currentPosition(*place);
}

void CALLBACK Win32Media::on_timer(HWND, UINT, UINT_PTR timer, DWORD) {
  const auto found = waiting().find(timer);
  if (found != waiting().end()) found->second->look();
}

// The graphs stand in where there is no file yet: they have none either.
system::Media& Win32Media::engine() const {
  return engine_ ? *engine_ : graph_;
}

void Win32Media::wait_for_sound() {
  asked_ = clock_.now();
  rest_ = Rest::none;
  if (timer_ != 0) return;
  timer_ = SetTimer(nullptr, 0, kPaceMilliseconds, on_timer);
  if (timer_ != 0) waiting()[timer_] = this;
}

void Win32Media::wait_no_more() {
  asked_.reset();
  place_.reset();
  rest_ = Rest::none;
  if (timer_ == 0) return;
  waiting().erase(timer_);
  KillTimer(nullptr, std::exchange(timer_, 0));
}

}  // namespace ordelan::win32
