#include "win32/ports/player_media.h"

#include <ocidl.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "system/media_texts.h"
#include "text/code_page.h"
#include "text/paths.h"
#include "win32/ansi_text.h"
#include "win32/ports/file_release.h"

namespace ordelan::win32 {
namespace {

constexpr CLSID kPlayer = {
    0x6BF52A52, 0x394A, 0x11D3, {0xB1, 0x53, 0x00, 0xC0, 0x4F, 0x79, 0xFA, 0xA6}};

// The player's own interface, which begins with those calls by name. Some players only give this
// one.
constexpr IID kPlayerInterface = {
    0x6C497D62, 0x8919, 0x413C, {0x82, 0xDB, 0xE9, 0x35, 0xFB, 0x3E, 0xC5, 0x84}};

ComPtr<IDispatch> systems_player() {
  ComPtr<IUnknown> player;
  CoCreateInstance(kPlayer, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, player.out_void());
  auto by_name = player.as<IDispatch>(IID_IDispatch);
  return by_name ? by_name : player.as<IDispatch>(kPlayerInterface);
}

// How long the program's thread waits for a file to be let go.
constexpr auto kLongestClose = std::chrono::milliseconds(250);

bool is_whole_path(std::string_view text) {
  return text.starts_with("\\\\") || (text.size() > 2 && text[1] == ':' && text[2] == '\\');
}

bool answers(const Dispatch& object, const wchar_t* name) {
  Variant value;
  return SUCCEEDED(object.read(name, value));
}

}  // namespace

PlayerMedia::PlayerMedia(MakePlayer make_player)
    : make_player_(make_player ? std::move(make_player) : MakePlayer(systems_player)) {}

PlayerMedia::~PlayerMedia() {
  end();
}

bool PlayerMedia::begin() {
  if (player_ || useless_) return static_cast<bool>(player_);
  player_ = Dispatch(make_player_());
  if (const auto stored =
          ComPtr<IDispatch>::shared(player_.get()).as<IPersistStreamInit>(IID_IPersistStreamInit)) {
    stored->InitNew();
  }
  if (!player_ || !is_complete()) {
    player_ = {};
    useless_ = true;
    return false;
  }
  set_up();
  show();
  return true;
}

bool PlayerMedia::has_taken_up() const {
  const std::string loaded = narrow_with_marks(media().text(L"sourceURL"));
  if (loaded.empty()) return static_cast<bool>(media());
  // Players may say it in a form of their own.
  return is_whole_path(loaded)
             ? text::equal_ignoring_case(loaded, url_)
             : text::equal_ignoring_case(text::file_name(loaded), text::file_name(url_));
}

void PlayerMedia::set_host(HWND window) {
  if (window == host_) return;
  site_.reset();
  host_ = window;
  show();
}

void PlayerMedia::fit() {
  if (site_) site_->fit();
}

void PlayerMedia::set_URL(const std::string& path) {
  if (path.empty()) {
    close();
    return;
  }
  if (!begin()) return;
  leave(url_);
  url_ = path;
  const std::wstring wide = widen(path);
  player_.set(L"URL", std::wstring_view(wide));
}

void PlayerMedia::close() {
  const std::string path = std::exchange(url_, "");
  if (!player_) return;
  controls().call(L"stop");
  player_.call(L"close");
  player_.set(L"URL", std::wstring_view());
  if (!path.empty() && !wait_until_free(path, kLongestClose)) leave(path);
}

void PlayerMedia::leave(const std::string& path) {
  constexpr std::size_t kMost = 16;
  std::erase(closed_, path);
  if (path.empty()) return;
  closed_.push_back(path);
  if (closed_.size() > kMost) closed_.erase(closed_.begin());
}

void PlayerMedia::play() {
  if (!url_.empty()) controls().call(L"play");
}

void PlayerMedia::pause() {
  if (!url_.empty()) controls().call(L"pause");
}

void PlayerMedia::stop() {
  if (!url_.empty()) controls().call(L"stop");
}

double PlayerMedia::currentPosition() const {
  return url_.empty() ? 0 : controls().fraction(L"currentPosition", 0);
}

void PlayerMedia::set_currentPosition(double seconds) {
  if (url_.empty() || !std::isfinite(seconds) || playState() == kStopped) return;
  controls().set(L"currentPosition", std::max(seconds, 0.0));
}

double PlayerMedia::duration() const {
  return url_.empty() ? 0 : media().fraction(L"duration", 0);
}

std::string PlayerMedia::durationString() const {
  return url_.empty() ? "" : narrow_with_marks(media().text(L"durationString"));
}

std::string PlayerMedia::name() const {
  return url_.empty() ? "" : narrow_with_marks(media().text(L"name"));
}

void PlayerMedia::set_volume(int volume) {
  volume_ = system::volume_in_range(volume);
  if (player_) settings().set(L"volume", long{volume_});
}

int PlayerMedia::balance() const {
  return player_ ? static_cast<int>(settings().number(L"balance", balance_)) : balance_;
}

void PlayerMedia::set_balance(int balance) {
  balance_ = system::balance_in_range(balance);
  if (player_) settings().set(L"balance", long{balance_});
}

std::string PlayerMedia::status() const {
  return narrow_with_marks(player_.text(L"status"));
}

int PlayerMedia::playState() const {
  return static_cast<int>(player_.number(L"playState", kUndefined));
}

bool PlayerMedia::holds(const std::string& path) const {
  std::erase_if(closed_, [](const std::string& closed) { return !is_held(closed); });
  return Media::holds(path) ||
         std::any_of(closed_.begin(), closed_.end(), [&](const std::string& closed) {
           return text::equal_ignoring_case(closed, path);
         });
}

std::string PlayerMedia::notice() const {
  if (url_.empty() || playState() != kReady) return "";
  return "No suena: el reproductor del sistema no puede abrir este archivo.";
}

void PlayerMedia::end() {
  if (player_) {
    close();
    site_.reset();
    if (const auto control =
            ComPtr<IDispatch>::shared(player_.get()).as<IOleObject>(IID_IOleObject)) {
      control->Close(OLECLOSE_NOSAVE);
    }
    player_ = {};
  }
  host_ = nullptr;
  url_.clear();
  volume_ = 50;
  balance_ = 0;
}

// A player that only looks like one answers some calls with nothing.
bool PlayerMedia::is_complete() const {
  return answers(player_, L"playState") && answers(player_, L"status") &&
         answers(player_, L"uiMode") && answers(settings(), L"volume") &&
         !is_not_there(controls().call(L"pause"));
}

void PlayerMedia::set_up() {
  player_.set(L"uiMode", std::wstring_view(L"none"));
  player_.set(L"enableContextMenu", false);
  const Dispatch options = settings();
  options.set(L"autoStart", true);
  options.set(L"enableErrorDialogs", false);
  options.set(L"playCount", 1L);
  options.set(L"rate", 1.0);
  options.set(L"volume", long{volume_});
  options.set(L"balance", long{balance_});
}

void PlayerMedia::show() {
  if (!player_ || !host_) return;
  if (auto control = ComPtr<IDispatch>::shared(player_.get()).as<IOleObject>(IID_IOleObject)) {
    site_.emplace(std::move(control), host_);
  }
}

}  // namespace ordelan::win32
