// What all controls share. A control holds its own state; a backend shows it through a Peer.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "ui/geometry.h"
#include "ui/mouse.h"
#include "ui/peer.h"

namespace ordelan::ui {

class Backend;
class Window;

class Control {
 public:
  // Takes its place in `window`, which must outlive it. `name` is what tests and assistive tools
  // find it by; `index` is its place in a control array, -1 for a control that stands alone.
  Control(Window& window, std::string name, int index = -1);
  // A part of another control: the window does not list it, and its owner attaches and detaches it.
  struct Inside {};
  Control(Inside, Window& window, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  int index() const { return index_; }
  Window& window() const { return window_; }

  bool visible() const { return visible_; }
  void set_visible(bool visible);
  void show() { set_visible(true); }
  void hide() { set_visible(false); }

  bool enabled() const { return enabled_; }
  void set_enabled(bool enabled);

  const Rect& bounds() const { return bounds_; }
  void set_bounds(const Rect& bounds);

  Color back_color() const { return back_color_; }
  void set_back_color(Color color);
  Color fore_color() const { return fore_color_; }
  void set_fore_color(Color color);

  const Font& font() const { return font_; }
  void set_font(const Font& font);

  // The tooltip.
  const std::string& tip() const { return tip_; }
  void set_tip(std::string tip);

  // What a screen reader says the control is; empty means that its caption says it.
  const std::string& description() const { return description_; }
  void set_description(std::string description);

  // Whether the text is news to the user: a screen reader reads it out when it changes while it is
  // shown, and when it comes to be shown, wherever the focus is.
  bool announced() const { return announced_; }
  void set_announced(bool announced) { announced_ = announced; }

  // What the program keeps with the control for itself; it is never shown.
  const std::string& tag() const { return tag_; }
  void set_tag(std::string tag) { tag_ = std::move(tag); }

  // Puts the control before its siblings, or after them all.
  void bring_to_front();

  std::function<void()> on_click;
  std::function<void()> on_double_click;
  std::function<void(const Mouse&)> on_mouse_move;

  // Makes the peer of this control's kind. Called by the window, once it is shown by a backend.
  virtual void attach(Backend& backend) = 0;
  // Takes it away again. What the user was doing to the control is over, and no event reports it.
  virtual void detach();

 protected:
  // The bounds have another size than before.
  virtual void resized() {}

  // Expires when the control is destroyed or detached. Any handler may do either, so a
  // caller that goes on after raising an event checks this first.
  std::weak_ptr<const void> alive() const { return alive_; }

  void notify(Aspect aspect) {
    if (peer_) peer_->changed(aspect);
  }

  // Stores a value, and notifies the peer if it has changed.
  template <class T>
  void assign(T& field, T value, Aspect aspect) {
    if (field == value) return;
    field = std::move(value);
    notify(aspect);
  }

  std::unique_ptr<Peer> peer_;

 private:
  Window& window_;
  std::string name_;
  int index_;
  bool visible_ = true;
  bool enabled_ = true;
  bool announced_ = false;
  Rect bounds_;
  Color back_color_ = Color::button_face;
  Color fore_color_ = Color::button_text;
  Font font_;
  std::string tip_;
  std::string description_;
  std::string tag_;
  std::shared_ptr<const void> alive_ = std::make_shared<char>();
};

}  // namespace ordelan::ui
