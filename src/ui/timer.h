// Something that happens again and again.
#pragma once

#include <chrono>
#include <functional>

#include "ui/control.h"

namespace ordelan::ui {

class Timer : public Control {
 public:
  using Interval = std::chrono::milliseconds;

  // Off at first.
  Timer(Window& window, std::string name, Interval interval)
      : Control(window, std::move(name)), interval_(interval) {}
  Timer(Inside inside, Window& window, std::string name, Interval interval)
      : Control(inside, window, std::move(name)), interval_(interval) {}
  void attach(Backend& backend) override;

  Interval interval() const { return interval_; }

  bool running() const { return running_; }
  // Starting a timer that runs begins its interval anew.
  void start();
  void stop() { assign(running_, false, Aspect::interval); }

  std::function<void()> on_tick;

 private:
  Interval interval_;
  bool running_ = false;
};

}  // namespace ordelan::ui
