// What shows the windows: the Windows backend, or the headless one that shows nothing.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "ui/geometry.h"
#include "ui/peer.h"

namespace ordelan::ui {

class BarChart;
class Button;
class CheckBox;
class CheckListBox;
class Class1;
class Control;
class Image;
class Label;
class ListBox;
class ProgressBar;
class Slider;
class TextBox;
class Timer;
class Waveform;
class Window;

// The width in pixels of each byte's character. Texts in one font are as wide as their characters
// together.
using CharacterWidths = std::array<int, 256>;

class Backend {
 public:
  virtual ~Backend() = default;

  // Each makes the real counterpart of an object, or gives null where there is nothing to show. The
  // object owns the peer, and outlives it.
  virtual std::unique_ptr<Peer> attach(Window& window) = 0;
  virtual std::unique_ptr<Peer> attach(BarChart& chart) = 0;
  virtual std::unique_ptr<Peer> attach(Button& button) = 0;
  virtual std::unique_ptr<Peer> attach(CheckBox& box) = 0;
  virtual std::unique_ptr<Peer> attach(CheckListBox& boxes) = 0;
  virtual std::unique_ptr<Peer> attach(Image& image) = 0;
  virtual std::unique_ptr<Peer> attach(Label& label) = 0;
  virtual std::unique_ptr<Peer> attach(ListBox& list) = 0;
  virtual std::unique_ptr<Peer> attach(ProgressBar& bar) = 0;
  virtual std::unique_ptr<Peer> attach(Slider& slider) = 0;
  virtual std::unique_ptr<Peer> attach(TextBox& box) = 0;
  virtual std::unique_ptr<Peer> attach(Timer& timer) = 0;
  virtual std::unique_ptr<Peer> attach(Waveform& wave) = 0;
  // A balloon goes with a window, or with one control of it; null for the window itself.
  virtual std::unique_ptr<Peer> attach(Class1& balloon, Window& window, Control* control) = 0;

  // How many lines the box's text takes in the width that the box has; at least 1.
  virtual int line_count(const TextBox& box) = 0;

  // The row of a list at a place of the list's, -1 where there is none. Nothing for a list that is
  // not shown.
  virtual std::optional<int> row_at(const ListBox&, Point) { return std::nullopt; }

  virtual CharacterWidths character_widths(const Font& font) = 0;
  // The dots per inch at which they are measured.
  virtual int measure_dpi() const { return kUnitsPerInch; }

  // How large one of the program's pictures is in the layout. Nothing for a missing one, or
  // where pictures are not shown.
  virtual std::optional<Size> picture_size(const std::string&) { return std::nullopt; }

  // Ends the program: the windows vanish at once, jobs that run see `ended` at their next look,
  // and the main loop returns.
  virtual void end() = 0;
  virtual bool ended() const = 0;
};

}  // namespace ordelan::ui
