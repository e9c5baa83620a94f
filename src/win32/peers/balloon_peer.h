// The real balloon of a ui::Class1.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "ui/balloon.h"
#include "ui/peer.h"
#include "win32/peers/peer_registry.h"

namespace ordelan::win32 {

class BalloonPeer final : public ui::Peer {
 public:
  // `parent` is the real thing that the balloon belongs to: `window`'s own, or that of one of its
  // controls.
  BalloonPeer(const WindowPeer& window, ui::Class1& balloon, HWND parent);
  ~BalloonPeer() override;
  BalloonPeer(const BalloonPeer&) = delete;
  BalloonPeer& operator=(const BalloonPeer&) = delete;

  void changed(ui::Aspect aspect) override;

  // Something real is about to go: the balloon goes first where it belongs to that.
  void parent_left(HWND parent);

 private:
  void destroy();
  void add_tool(UINT flags);
  LRESULT send(UINT message, WPARAM w, LPARAM l) const;
  LPARAM tool() { return reinterpret_cast<LPARAM>(&tool_); }
  void set_text(UINT message);
  void set_title();
  void set_colors();
  void set_times();
  void show();

  PeerRegistry& registry_;
  ui::Class1& balloon_;
  HWND parent_;
  bool themed_ = true;
  HWND window_ = nullptr;
  std::wstring text_;
  TTTOOLINFOW tool_{};
};

}  // namespace ordelan::win32
