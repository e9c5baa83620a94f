// The pieces of the main window that other windows work with. They outlive every other window.
#pragma once

#include <functional>

#include "project/left_out.h"
#include "project/vip_reader.h"
#include "ui/control.h"
#include "work/clocks.h"
#include "work/status_strip.h"
#include "work/work_lists.h"

namespace ordelan::project {

struct MainPieces {
  work::WorkLists& lists;
  work::StatusStrip& strip;
  work::Clocks& clocks;
  VipReader& reader;
  LeftOut& left_out;
  ui::Control& cmdPerdidos;
  ui::Control& ActualizarVip;
  std::function<void()> cmdReset_Click;
};

}  // namespace ordelan::project
