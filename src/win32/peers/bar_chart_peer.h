// The real chart of a ui::BarChart. Its window may also hold one that another part of the program
// puts into it, which it never paints over.
#pragma once

#include "ui/bar_chart.h"
#include "win32/paint/bar_picture.h"
#include "win32/peers/painted_peer.h"

namespace ordelan::win32 {

class BarChartPeer final : public PaintedPeer {
 public:
  BarChartPeer(WindowPeer& parent, ui::BarChart& chart);
  ~BarChartPeer() override;

  void appear();

 protected:
  void update(const Marks& marks) override;
  void paint(HDC context, const RECT& area) override;

 private:
  std::vector<RECT> redraw(SIZE size);
  SIZE size() const;

  ui::BarChart& chart_;
  BarPicture picture_;
  SIZE reported_size_{};
};

}  // namespace ordelan::win32
