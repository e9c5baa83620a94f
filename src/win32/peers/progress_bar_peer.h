// The real progress bar of a ui::ProgressBar.
#pragma once

#include <cstdint>
#include <optional>

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

  std::optional<Face> face() const override;

 protected:
  void update(const Marks& marks) override;
  void paint(HDC context, const RECT& area) override;
  void report(const Marks& marks) override;

 private:
  int percent() const;

  ui::ProgressBar& bar_;
  int reported_ = 0;  // the percentage that screen readers have heard of
};

}  // namespace ordelan::win32
