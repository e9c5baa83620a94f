// A short text with a title that is shown at a place until it is removed.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "ui/geometry.h"
#include "ui/peer.h"

namespace ordelan::ui {

class Backend;
class Control;
class Window;

class Class1 {
 public:
  // Where a balloon is shown: at a place in the room of a window. The window counts while `Show`
  // runs; it may be gone later.
  struct Place {
    const Window* window = nullptr;
    Point at;
    friend bool operator==(const Place&, const Place&) = default;
  };

  Class1() = default;
  ~Class1();
  Class1(const Class1&) = delete;
  Class1& operator=(const Class1&) = delete;

  // What a balloon that is up takes over at once, save for its style and for whether it is centred:
  // those count at the next `Create`.
  int style() const { return style_; }  // 0 a plain box, 1 a balloon
  void set_style(int style) { style_ = style; }
  bool centered() const { return centered_; }
  void set_centered(bool centered) { centered_ = centered; }
  int icon() const { return icon_; }  // beside the title: 0 none, 1 information, 2 warning, 3 error
  void set_icon(int icon) { assign(icon_, icon, Aspect::value); }
  // None means the system's own.
  std::optional<Color> fore_color() const { return fore_color_; }
  void set_fore_color(std::optional<Color> color) { assign(fore_color_, color, Aspect::colors); }
  std::optional<Color> back_color() const { return back_color_; }
  void set_back_color(std::optional<Color> color) { assign(back_color_, color, Aspect::colors); }
  const std::string& title() const { return title_; }
  void set_title(std::string title) { assign(title_, std::move(title), Aspect::value); }
  const std::string& tip_text() const { return tip_text_; }
  void set_tip_text(std::string text) { assign(tip_text_, std::move(text), Aspect::text); }
  // Both in milliseconds, for a balloon that comes by the pointer.
  int visible_time() const { return visible_time_; }
  void set_visible_time(int time) { assign(visible_time_, time, Aspect::interval); }
  int delay_time() const { return delay_time_; }
  void set_delay_time(int time) { assign(delay_time_, time, Aspect::interval); }

  // Makes the balloon, not shown yet, in place of an older one. It belongs to a window that is
  // loaded, or to a control of one, and goes with it at the latest; with a window that is not
  // loaded, there is no balloon. Until it is shown, it is the tooltip of what it belongs to: it
  // comes where the pointer rests there for the delay time, and stays for the visible time.
  void Create(Window& parent);
  void Create(Control& parent);
  // Shows it at a place in the units of a control, or of a window's room. It stays there until it
  // is destroyed, regardless of time and pointer. Without `Create` nothing
  // happens.
  void Show(int x, int y, const Control& over);
  void Show(int x, int y, const Window& over);
  // Takes it away.
  void Destroy();

  bool exists() const { return exists_; }
  // Where it was shown last; none while it is not shown.
  const std::optional<Place>& shown() const { return shown_; }

 private:
  void create(Window& window, Control* control);
  void notify(Aspect aspect) {
    if (peer_) peer_->changed(aspect);
  }
  template <class T>
  void assign(T& field, T value, Aspect aspect) {
    field = std::move(value);
    notify(aspect);
  }

  std::unique_ptr<Peer> peer_;
  bool exists_ = false;
  std::optional<Place> shown_;
  int style_ = 0;
  bool centered_ = false;
  int icon_ = 0;
  std::optional<Color> fore_color_;
  std::optional<Color> back_color_;
  std::string title_;
  std::string tip_text_;
  int visible_time_ = 0;
  int delay_time_ = 0;
};

}  // namespace ordelan::ui
