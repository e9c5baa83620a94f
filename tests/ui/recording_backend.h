// A backend that records its calls: which objects it was given, which changes their peers got,
// and which peers are gone.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/backend.h"
#include "ui/balloon.h"
#include "ui/bar_chart.h"
#include "ui/button.h"
#include "ui/check_box.h"
#include "ui/check_list_box.h"
#include "ui/image.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/progress_bar.h"
#include "ui/slider.h"
#include "ui/text_box.h"
#include "ui/timer.h"
#include "ui/waveform.h"
#include "ui/window.h"

namespace ordelan::test {

class RecordingBackend final : public ui::Backend {
 public:
  struct Change {
    std::string name;  // of the object that changed
    ui::Aspect aspect;
    friend bool operator==(const Change&, const Change&) = default;
  };

  std::vector<std::string> attached;  // names, in the order in which they came
  std::vector<std::string> gone;      // names, in the order in which their peers went
  std::vector<Change> changes;

  // The changes since the last look.
  std::map<std::string, ui::Size> picture_sizes;  // of the pictures that there are
  ui::CharacterWidths widths{};                   // in every font
  int dpi = 96;                                   // that they are measured at

  std::vector<Change> take() { return std::exchange(changes, {}); }

  std::unique_ptr<ui::Peer> attach(ui::Window& window) override { return made(window.name()); }
  std::unique_ptr<ui::Peer> attach(ui::BarChart& chart) override { return made(chart); }
  std::unique_ptr<ui::Peer> attach(ui::Button& button) override { return made(button); }
  std::unique_ptr<ui::Peer> attach(ui::CheckBox& box) override { return made(box); }
  std::unique_ptr<ui::Peer> attach(ui::CheckListBox& boxes) override { return made(boxes); }
  std::unique_ptr<ui::Peer> attach(ui::Image& image) override { return made(image); }
  std::unique_ptr<ui::Peer> attach(ui::Label& label) override { return made(label); }
  std::unique_ptr<ui::Peer> attach(ui::ListBox& list) override { return made(list); }
  std::unique_ptr<ui::Peer> attach(ui::ProgressBar& bar) override { return made(bar); }
  std::unique_ptr<ui::Peer> attach(ui::Slider& slider) override { return made(slider); }
  std::unique_ptr<ui::Peer> attach(ui::TextBox& box) override { return made(box); }
  std::unique_ptr<ui::Peer> attach(ui::Timer& timer) override { return made(timer); }
  std::unique_ptr<ui::Peer> attach(ui::Waveform& wave) override { return made(wave); }
  std::unique_ptr<ui::Peer> attach(ui::Class1&, ui::Window&, ui::Control* control) override {
    return made(control ? "balloon of " + control->name() : "balloon");
  }

  int line_count(const ui::TextBox&) override { return 1; }
  ui::CharacterWidths character_widths(const ui::Font&) override { return widths; }
  int measure_dpi() const override { return dpi; }
  std::optional<ui::Size> picture_size(const std::string& name) override {
    const auto known = picture_sizes.find(name);
    return known == picture_sizes.end() ? std::nullopt : std::optional(known->second);
  }
  void end() override { ended_ = true; }
  bool ended() const override { return ended_; }

 private:
  class RecordingPeer final : public ui::Peer {
   public:
    RecordingPeer(RecordingBackend& backend, std::string name)
        : backend_(backend), name_(std::move(name)) {}
    ~RecordingPeer() override { backend_.gone.push_back(name_); }
    RecordingPeer(const RecordingPeer&) = delete;
    RecordingPeer& operator=(const RecordingPeer&) = delete;
    void changed(ui::Aspect aspect) override { backend_.changes.push_back({name_, aspect}); }

   private:
    RecordingBackend& backend_;
    std::string name_;
  };

  // The controls of an array share a name and are distinguished by their number.
  std::unique_ptr<ui::Peer> made(const ui::Control& control) {
    const std::string number = control.index() < 0 ? "" : std::to_string(control.index());
    return made(control.name() + number);
  }
  std::unique_ptr<ui::Peer> made(const std::string& name) {
    attached.push_back(name);
    return std::make_unique<RecordingPeer>(*this, name);
  }

  bool ended_ = false;
};

}  // namespace ordelan::test
