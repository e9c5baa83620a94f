// What ticks for a ui::Timer.
#pragma once

#include "ui/peer.h"
#include "ui/timer.h"
#include "win32/desk.h"
#include "win32/handlers.h"

namespace ordelan::win32 {

class TimerPeer final : public ui::Peer {
 public:
  TimerPeer(Desk& desk, ui::Timer& timer) : desk_(desk), timer_(timer), id_(desk.enter(*this)) {
    changed(ui::Aspect::interval);
  }
  ~TimerPeer() override { desk_.leave(id_); }
  TimerPeer(const TimerPeer&) = delete;
  TimerPeer& operator=(const TimerPeer&) = delete;

  void changed(ui::Aspect aspect) override {
    if (aspect != ui::Aspect::interval) return;
    if (timer_.running()) {
      desk_.start(id_, static_cast<UINT>(timer_.interval().count()));
    } else {
      desk_.stop(id_);
    }
  }

  void tick() {
    if (timer_.running()) raise(timer_.on_tick);
  }

 private:
  Desk& desk_;
  ui::Timer& timer_;
  UINT_PTR id_;
};

}  // namespace ordelan::win32
