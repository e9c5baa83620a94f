// The real picture of a ui::Waveform.
#pragma once

#include "ui/waveform.h"
#include "win32/paint/wave_picture.h"
#include "win32/peers/painted_peer.h"

namespace ordelan::win32 {

class WaveformPeer final : public PaintedPeer {
 public:
  WaveformPeer(WindowPeer& parent, ui::Waveform& wave);

  bool is_background() const override { return !wave_.on_press; }

 protected:
  void update(const Marks& marks) override;
  void paint(HDC context, const RECT& area) override;
  void clicked(POINT place) override;

 private:
  std::vector<RECT> redraw(SIZE size);

  ui::Waveform& wave_;
  WavePicture picture_;
};

}  // namespace ordelan::win32
