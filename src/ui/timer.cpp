#include "ui/timer.h"

#include "ui/backend.h"

namespace ordelan::ui {

void Timer::attach(Backend& backend) {
  peer_ = backend.attach(*this);
}

void Timer::start() {
  running_ = true;
  notify(Aspect::interval);
}

}  // namespace ordelan::ui
