// A top-level window: a place for controls.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ui/backend.h"
#include "ui/control.h"
#include "ui/geometry.h"
#include "ui/peer.h"

namespace ordelan::ui {

// A key that was pressed. A handler that sets `swallowed` keeps it from the control that has the
// focus.
struct Key {
  int code = 0;  // the system's virtual key code
  bool shift = false;
  bool control = false;
  bool alt = false;
  const Control* focus = nullptr;  // what has the focus; null for none
  bool swallowed = false;
};

// The picture, by name, whose outline a window has, and the colour of it that is cut out. Without
// a picture a window is rectangular.
struct Shape {
  std::string picture;
  Color mask = Color::button_face;
  friend bool operator==(const Shape&, const Shape&) = default;
};

class Window {
 public:
  // `backend` must outlive the window. Nothing is shown before `load`.
  Window(Backend& backend, std::string name);
  virtual ~Window();
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  // Makes the real window and those of its controls, and then runs `on_load`, once.
  void load();
  // Takes the real window away. The object stays as it is.
  void unload();
  bool loaded() const { return loaded_; }

  const std::string& name() const { return name_; }
  Backend& backend() const { return backend_; }
  const std::vector<Control*>& controls() const { return controls_; }

  // Puts the controls into this order: Tab goes through them so, and where two overlap the earlier
  // one covers the later. To be called before the window is loaded; controls not named come last.
  void set_order(const std::vector<Control*>& order);

  const std::string& title() const { return title_; }
  void set_title(std::string title);

  bool visible() const { return visible_; }
  void set_visible(bool visible);
  void show() { set_visible(true); }
  // Shows it and leaves the keys with the window that has them.
  void show_quietly();
  bool shows_quietly() const { return shows_quietly_; }  // while it comes to be shown
  void hide() { set_visible(false); }

  // The top left corner on the screen.
  Point position() const { return position_; }
  void set_position(Point position);
  // Stores the position that the user has dragged the window to; the peer is not notified.
  void moved_to(Point position) { position_ = position; }

  // The room for controls, without borders.
  Size size() const { return size_; }
  void set_size(Size size);

  // Whether the user can change the size by the window's edges, and how small it may become; to be
  // set before the window is loaded.
  bool resizable() const { return resizable_; }
  Size smallest_size() const { return smallest_size_; }
  void set_resizable(Size smallest) {
    resizable_ = true;
    smallest_size_ = smallest;
  }
  // Takes the size that the user has given the real window; the peer is not notified.
  void resized_to(Size size);

  Color back_color() const { return back_color_; }
  void set_back_color(Color color);

  // The picture on the window's ground, under its controls, by its name among the program's
  // resources; empty shows the back colour alone. In a window that can be resized it is stretched
  // in its middle only: corners and edges stay as they are drawn. It brings its own line round the
  // window where that is borderless.
  const std::string& background() const { return background_; }
  void set_background(std::string picture);
  // Gives the window the size of that picture. It keeps its own where the backend has no such
  // picture.
  void size_to_background();

  // Stays above the windows of other programs.
  bool topmost() const { return topmost_; }
  void set_topmost(bool topmost);

  bool minimized() const { return minimized_; }
  void set_minimized(bool minimized);
  void minimized_by_user(bool minimized) { minimized_ = minimized; }

  // Without title and frame, but for a thin line round it; to be set before the window is loaded.
  bool borderless() const { return borderless_; }
  void set_borderless(bool borderless) { borderless_ = borderless; }

  // Whether a borderless window has a button of its own by which the user minimises it; to be set
  // before the window is loaded. One without it that stays above all others is a tool: it takes no
  // place among the windows that the user can switch to until it is minimised after all.
  bool minimizable() const { return minimizable_; }
  void set_minimizable(bool minimizable) { minimizable_ = minimizable; }

  const Shape& shape() const { return shape_; }
  void set_shape(Shape shape);

  // Whether pressing the mouse on the background drags the window. Labels and pictures that no
  // click is meant for are background too.
  bool drag_by_background() const { return drag_by_background_; }
  void set_drag_by_background(bool drag) { drag_by_background_ = drag; }

  // The hourglass pointer, while something runs that cannot be interrupted.
  bool waiting() const { return waiting_; }
  void set_waiting(bool waiting);

  // Puts it before the others, unless it is minimised. One that stays on top does not take the keys
  // from the window that has them.
  void bring_to_front() { notify(Aspect::order); }

  std::function<void()> on_load;
  std::function<bool()> on_query_unload;  // before the window closes; false keeps it
  std::function<void()> on_unload;        // before the end of the real window
  std::function<void()> on_close;         // the user asks to close it; nothing else happens
  std::function<void(Key&)> on_key_down;  // before the control that has the focus
  // A button of the mouse is pressed anywhere on it, before what is there handles the press.
  std::function<void()> on_mouse_down;
  // The user asks for a menu: by its key, or by the right button of the mouse.
  std::function<void(bool by_key)> on_context_menu;
  // The Escape key, alone, where `on_key_down` has not kept it.
  std::function<void()> on_escape;
  // A window of another program has taken the place of this program's.
  std::function<void()> on_deactivate;
  std::function<void()> on_drag_end;  // once after each drag, by the title or the background
  std::function<void()> on_double_click;
  std::function<void()> on_visible;  // it is now shown, or hidden; not raised by `unload`
  std::function<void()> on_resize;   // the size has changed, by the user or by the program

 private:
  friend class Control;
  void add(Control& control);
  void remove(Control& control);
  void notify(Aspect aspect) {
    if (peer_) peer_->changed(aspect);
  }
  template <class T>
  void assign(T& field, T value, Aspect aspect) {
    if (field == value) return;
    field = std::move(value);
    notify(aspect);
  }

  Backend& backend_;
  std::string name_;
  std::string title_;
  std::vector<Control*> controls_;
  std::unique_ptr<Peer> peer_;
  bool loaded_ = false;
  bool visible_ = false;
  bool shows_quietly_ = false;
  bool topmost_ = false;
  bool minimized_ = false;
  bool borderless_ = false;
  bool minimizable_ = false;
  bool drag_by_background_ = false;
  bool waiting_ = false;
  bool resizable_ = false;
  Size smallest_size_;
  Point position_;
  Size size_;
  Color back_color_ = Color::button_face;
  Shape shape_;
  std::string background_;
};

}  // namespace ordelan::ui
