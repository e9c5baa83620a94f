// Windows without a screen: for the console program and for tests. Objects keep their state, events
// are raised by calling their handlers, and timers run inside the pump by the platform's clock.
#pragma once

#include <functional>
#include <map>

#include "system/clock.h"
#include "system/event_pump.h"
#include "ui/backend.h"

namespace ordelan::headless {

class HeadlessBackend final : public ui::Backend, public system::EventPump {
 public:
  explicit HeadlessBackend(system::Clock& clock) : clock_(clock) {}

  std::unique_ptr<ui::Peer> attach(ui::Window&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::BarChart&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::Button&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::CheckBox&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::CheckListBox&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::Image&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::Label&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::ListBox&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::ProgressBar&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::Slider&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::TextBox&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::Timer& timer) override;
  std::unique_ptr<ui::Peer> attach(ui::Waveform&) override { return nullptr; }
  std::unique_ptr<ui::Peer> attach(ui::Class1&, ui::Window&, ui::Control*) override {
    return nullptr;
  }

  // Lines are only what CR LF makes of the text: no width breaks them.
  int line_count(const ui::TextBox& box) override;

  // Every character is as wide as an average one of the interface's typeface.
  ui::CharacterWidths character_widths(const ui::Font& font) override;

  void end() override { ended_ = true; }
  bool ended() const override { return ended_; }

  // Ticks every timer that is due, then runs `on_pump`.
  void pump() override;

  // No user can act on windows without a screen: there is nothing to sleep for.
  void wait() override { pump(); }

  // Runs inside every pump: a test presses a button here, in the middle of a loop.
  std::function<void()> on_pump;

 private:
  class TimerPeer;

  system::Clock& clock_;
  std::map<ui::Timer*, system::Clock::Time> due_;
  bool ended_ = false;
};

}  // namespace ordelan::headless
