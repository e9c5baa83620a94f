// What all real controls share: one child window of a ui::Control.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>

#include "ui/control.h"
#include "ui/peer.h"
#include "win32/com_ptr.h"
#include "win32/peers/accessible_control.h"
#include "win32/peers/face.h"
#include "win32/peers/peer_registry.h"

namespace ordelan::win32 {

class WindowPeer;

class ControlPeer : public ui::Peer {
 public:
  ~ControlPeer() override;
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;

  // Makes the real control. To be called once, by the code that made the peer.
  void appear();

  HWND handle() const { return handle_; }
  ui::Control& control() const { return control_; }
  WindowPeer& parent() const { return parent_; }

  void changed(ui::Aspect aspect) final;

  // Shows everything that changed since the last time.
  void flush();

  // The same, unless the real control's own code is at work, which a reader of it may not disturb.
  void settle() {
    if (!marks_.empty() && inside_ == 0) flush();
  }

  // The window has moved to a screen of another density.
  void rescale();

  // What Windows sends to a control's parent is handed on to the control: a notification, the
  // request for its colours (null for the system's own), the request to draw an item.
  void notified(WORD code);
  virtual HBRUSH colors(HDC context);
  virtual void draw(const DRAWITEMSTRUCT&) {}

  // Whether a press of the mouse here is meant for the window: see Window::drag_by_background.
  virtual bool is_background() const { return false; }

  // The Enter key on a control that can be pressed. False where it means nothing.
  virtual bool press() { return false; }

  // What the control is to a screen reader; nothing where the system says it well. What
  // `Face::action` names is done by `act`, in a list to that row; the peer may be gone afterwards.
  virtual std::optional<Face> face() const { return std::nullopt; }
  virtual void act(int) {}
  // Takes a value that a screen reader gives the control. False for one that means nothing.
  virtual bool take_value(const std::wstring&) { return false; }

 protected:
  // A set of aspects.
  class Marks {
   public:
    void add(ui::Aspect aspect) { bits_ |= bit(aspect); }
    void add_all() { bits_ = ~0u; }
    bool has(ui::Aspect aspect) const { return (bits_ & bit(aspect)) != 0; }
    bool empty() const { return bits_ == 0; }

   private:
    static unsigned bit(ui::Aspect aspect) { return 1u << static_cast<unsigned>(aspect); }
    unsigned bits_ = 0;
  };

  // `window_class` and the styles make the real control; visibility and place come from the object.
  ControlPeer(WindowPeer& parent, ui::Control& control, const wchar_t* window_class, DWORD style,
              DWORD extended_style = 0);

  PeerRegistry& registry() const;
  int dpi() const;
  HFONT font() const;
  COLORREF text_color() const;
  LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const {
    return SendMessageW(handle_, message, w, l);
  }
  // Has the control painted anew, its background too where it does not paint that itself.
  void repaint() const { InvalidateRect(handle_, nullptr, TRUE); }
  // The control's own answer to a message, as Windows gives it.
  LRESULT standard(UINT message, WPARAM w, LPARAM l) const {
    return CallWindowProcW(standard_, handle_, message, w, l);
  }

  // The same without what the system's controls paint at once, unasked; all is painted anew
  // instead.
  LRESULT standard_unpainted(UINT message, WPARAM w, LPARAM l);

  // The place of the real control in its window, in pixels. One that has no room for all that the
  // object's bounds ask for gives less of them.
  virtual RECT area() const;

  // What a screen reader reads, and a caption where the control shows one.
  virtual std::wstring text() const;

  // Shows what has changed beyond the things that all controls have.
  virtual void update(const Marks&) {}

  // Reports to screen readers what is shown now.
  virtual void report(const Marks&) {}

  // The object that screen readers look at; null for the system's own.
  virtual ComPtr<Accessible> make_accessible();

  // A message that may raise an event at once. A result ends it there; the peer may be gone after
  // any event, so that nothing of it may be touched then.
  virtual std::optional<LRESULT> incoming(UINT message, WPARAM w, LPARAM l);

  // The message itself. May raise no event: the real control's own code is still at work.
  virtual LRESULT respond(UINT message, WPARAM w, LPARAM l) { return standard(message, w, l); }

  // A notification, which may come from inside `respond`. What the user has done is remembered here
  // and raised by `deliver`.
  virtual void command(WORD) {}

  // Raises what was remembered, once the real control's own code is through. The peer may be gone
  // afterwards.
  virtual void deliver() {}

  std::weak_ptr<void> alive() const { return alive_; }

  // Whether what changed is being shown: nothing that happens meanwhile is the user's doing.
  bool flushing() const { return flushing_; }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
  LRESULT process(UINT message, WPARAM w, LPARAM l);
  void place();
  void show(bool visible);
  void leave_focus();
  std::optional<LRESULT> access(UINT message, WPARAM w, LPARAM l);
  void announce(const Marks& marks);

  WindowPeer& parent_;
  ui::Control& control_;
  const wchar_t* window_class_;
  DWORD style_;
  DWORD extended_style_;
  HWND handle_ = nullptr;
  WNDPROC standard_ = nullptr;
  std::wstring name_;
  Marks marks_;
  int inside_ = 0;  // how deep in the real control's code
  bool flushing_ = false;
  bool appeared_ = false;
  ComPtr<Accessible> accessible_;  // made when it is first asked for
  LiveText live_text_;
  std::shared_ptr<void> alive_ = std::make_shared<char>();
};

}  // namespace ordelan::win32
