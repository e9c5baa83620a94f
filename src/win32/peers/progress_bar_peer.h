// The real progress bar of a ui::ProgressBar.
#pragma once

#include <cstdint>

#include "ui/progress_bar.h"
#include "win32/peers/dressed_peer.h"

namespace ordelan::win32 {

// The real bar counts in 32 bits, so that every range is shown in this many steps.
inline constexpr int kProgressSteps = 10000;

// How many of the steps a value stands for. Values outside of the range count as its ends; an empty
// range is not begun.
int progress_steps(std::int64_t minimum, std::int64_t maximum, std::int64_t value);

class ProgressBarPeer final : public DressedPeer {
 public:
  ProgressBarPeer(WindowPeer& parent, ui::ProgressBar& bar);

 protected:
  void update(const Marks& marks) override;
  void paint(HDC context, const RECT& area) override;

 private:
  ui::ProgressBar& bar_;
};

}  // namespace ordelan::win32
