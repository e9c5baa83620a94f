// What ticks for a ui::Timer.
#pragma once

#include "ui/peer.h"
#include "ui/timer.h"
#include "win32/peers/handlers.h"
#include "win32/peers/peer_registry.h"

namespace ordelan::win32 {

class TimerPeer final : public ui::Peer {
 public:
  TimerPeer(PeerRegistry& registry, ui::Timer& timer)
      : registry_(registry), timer_(timer), id_(registry.enter(*this)) {
    changed(ui::Aspect::interval);
  }
  ~TimerPeer() override { registry_.leave(id_); }
  TimerPeer(const TimerPeer&) = delete;
  TimerPeer& operator=(const TimerPeer&) = delete;

  void changed(ui::Aspect aspect) override {
    if (aspect != ui::Aspect::interval) return;
    if (timer_.running()) {
      registry_.start(id_, static_cast<UINT>(timer_.interval().count()));
    } else {
      registry_.stop(id_);
    }
  }

  void tick() {
    if (timer_.running()) raise(timer_.on_tick);
  }

 private:
  PeerRegistry& registry_;
  ui::Timer& timer_;
  UINT_PTR id_;
};

}  // namespace ordelan::win32
