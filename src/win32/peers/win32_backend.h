// Windows on the screen: each object of src/ui is mirrored by a real window or control, and what
// the user does to those comes back as the objects' events.
#pragma once

#include <windows.h>

#include <functional>

#include "system/event_pump.h"
#include "ui/backend.h"
#include "win32/peers/peer_registry.h"

namespace ordelan::win32 {

class Win32Backend final : public ui::Backend, public system::EventPump {
 public:
  // `instance` is the program whose resources hold the pictures.
  explicit Win32Backend(HINSTANCE instance);

  std::unique_ptr<ui::Peer> attach(ui::Window& window) override;
  std::unique_ptr<ui::Peer> attach(ui::BarChart& chart) override;
  std::unique_ptr<ui::Peer> attach(ui::Button& button) override;
  std::unique_ptr<ui::Peer> attach(ui::CheckBox& box) override;
  std::unique_ptr<ui::Peer> attach(ui::CheckListBox& boxes) override;
  std::unique_ptr<ui::Peer> attach(ui::Image& image) override;
  std::unique_ptr<ui::Peer> attach(ui::Label& label) override;
  std::unique_ptr<ui::Peer> attach(ui::ListBox& list) override;
  std::unique_ptr<ui::Peer> attach(ui::ProgressBar& bar) override;
  std::unique_ptr<ui::Peer> attach(ui::Slider& slider) override;
  std::unique_ptr<ui::Peer> attach(ui::TextBox& box) override;
  std::unique_ptr<ui::Peer> attach(ui::Timer& timer) override;
  std::unique_ptr<ui::Peer> attach(ui::Waveform& wave) override;
  std::unique_ptr<ui::Peer> attach(ui::Class1& balloon, ui::Window& window,
                                   ui::Control* control) override;

  int line_count(const ui::TextBox& box) override;

  std::optional<int> row_at(const ui::ListBox& list, ui::Point place) override;

  // In pixels of the main screen, as rows are painted there. Bytes that the font has no picture for
  // are as wide as the mark it paints instead.
  ui::CharacterWidths character_widths(const ui::Font& font) override;
  int measure_dpi() const override { return registry_.measure_dpi(); }

  std::optional<ui::Size> picture_size(const std::string& name) override;

  void end() override;
  // Also once the system has asked the program to quit while a job of it pumps: the main loop is
  // left as soon as the job is.
  bool ended() const override { return registry_.ended() || quit_; }

  // Runs what is waiting, but no longer than a few milliseconds, so that a flood of events cannot
  // hold a job up; what is left waits for the next turn. Does nothing once the program has ended.
  void pump() override;

  // Pumps, and then sleeps until there is something to pump, or until a loop should look at what
  // else it waits for.
  void wait() override;

  // Runs events until the program ends. Gives the program's exit code.
  int run();

  // Called by `run` after each event, where no handler runs and no job is under way: what handlers
  // could not free while they ran can be freed here. Never called from inside a pump.
  std::function<void()> between_events;

  // Called with the real window of a chart, which can hold one of the system's that shows what it
  // plays: when the first chart comes, again when its size has changed, and with null before it
  // goes, at the latest with the last of the program's windows. To be set before the first window
  // is loaded. It may be called in the middle of any showing, so that it must not touch the
  // program's windows, and nothing that it throws gets out.
  std::function<void(HWND)> on_chart_window;

  // The window that a dialog belongs to: the one the user works in. Null when there is none.
  HWND owner() const;

 private:
  void dispatch(MSG& message);
  // Puts a control's peer to work, in the window that its control is in.
  template <class PeerKind, class ControlKind>
  std::unique_ptr<ui::Peer> attach_control(ControlKind& control);

  PeerRegistry registry_;
  bool quit_ = false;
  int exit_code_ = 0;
};

}  // namespace ordelan::win32
