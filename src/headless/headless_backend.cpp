#include "headless/headless_backend.h"

#include <vector>

#include "ui/text_box.h"
#include "ui/timer.h"

namespace ordelan::headless {

class HeadlessBackend::TimerPeer final : public ui::Peer {
 public:
  TimerPeer(HeadlessBackend& backend, ui::Timer& timer) : backend_(backend), timer_(timer) {
    changed(ui::Aspect::interval);
  }
  ~TimerPeer() override { backend_.due_.erase(&timer_); }
  TimerPeer(const TimerPeer&) = delete;
  TimerPeer& operator=(const TimerPeer&) = delete;

  void changed(ui::Aspect aspect) override {
    if (aspect != ui::Aspect::interval) return;
    if (timer_.running()) {
      backend_.due_[&timer_] = backend_.clock_.now() + timer_.interval();
    } else {
      backend_.due_.erase(&timer_);
    }
  }

 private:
  HeadlessBackend& backend_;
  ui::Timer& timer_;
};

std::unique_ptr<ui::Peer> HeadlessBackend::attach(ui::Timer& timer) {
  return std::make_unique<TimerPeer>(*this, timer);
}

int HeadlessBackend::line_count(const ui::TextBox& box) {
  int lines = 1;
  for (const char c : box.text()) lines += c == '\n' ? 1 : 0;
  return lines;
}

ui::CharacterWidths HeadlessBackend::character_widths(const ui::Font& font) {
  ui::CharacterWidths widths{};
  widths.fill(font.points * 2 / 3);
  return widths;
}

void HeadlessBackend::pump() {
  const auto now = clock_.now();
  std::vector<ui::Timer*> ready;
  for (const auto& [timer, due] : due_) {
    if (due <= now) ready.push_back(timer);
  }
  for (ui::Timer* timer : ready) {
    const auto due = due_.find(timer);
    // An earlier tick may have stopped it, started it anew, or pumped and so let it tick.
    if (due == due_.end() || due->second > now) continue;
    due->second = now + timer->interval();
    if (timer->on_tick) timer->on_tick();
  }
  if (on_pump) on_pump();
}

}  // namespace ordelan::headless
