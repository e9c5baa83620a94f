// What goes wrong at which call: the part that the faulty file system and the faulty shell share.
#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/status.h"

namespace ordelan::test {

// Thrown out of the call at which the program is killed. What catches it looks at the disk as the
// next start of the program finds it.
struct Killed {};

// The calls of one service, counted, and what is to happen at some of them. `Call` is the
// enumeration of the calls that can go wrong.
template <class Call>
class Faults {
 public:
  struct Made {
    Call call;
    std::string path;
    bool operator==(const Made&) const = default;
  };

  // Which calls a fault is meant for: of one kind or of any, with one path or with any. The first
  // `after` of those go well.
  struct Which {
    std::optional<Call> call = std::nullopt;
    int after = 0;
    std::string path = {};  // the whole path in the spelling of the caller; empty for any
  };

  static constexpr int kForEver = std::numeric_limits<int>::max();

  // The calls that fit fail with `reason`, so many times from then on.
  void fail(Which which, system::Reason reason, int times = kForEver) {
    planned_.push_back({which, reason, times});
  }
  void fail(Call call, system::Reason reason = system::Reason::other) {
    fail({.call = call}, reason);
  }
  // The first call that fits throws `Killed` without having done anything, and every call after it
  // fails. How much a service loses besides is its own affair.
  void kill(Which which) { planned_.push_back({which, std::nullopt, 1}); }

  // No call fails from here on; a service that was killed lives again.
  void heal() {
    planned_.clear();
    killed_ = false;
  }

  // Called before each call, whether it is to fail or not: to change the world at that moment, to
  // move a clock as a slow disk would, or to press a button.
  std::function<void(Call, std::string_view path)> on_call;

  const std::vector<Made>& made() const { return made_; }
  int count() const { return static_cast<int>(made_.size()); }
  int count(Call call) const {
    int calls = 0;
    for (const Made& one : made_) calls += one.call == call ? 1 : 0;
    return calls;
  }
  bool killed() const { return killed_; }

  // For the services: reports a call, which may go on if this gives ok. `on_kill` is called at the
  // kill, before `Killed` is thrown.
  template <class OnKill>
  system::Status begin(Call call, std::string_view path, OnKill on_kill) {
    if (killed_) return system::Reason::other;
    made_.push_back({call, std::string(path)});
    if (on_call) on_call(call, path);
    for (Planned& plan : planned_) {
      if (plan.which.call && plan.which.call != call) continue;
      if (!plan.which.path.empty() && plan.which.path != path) continue;
      if (plan.which.after-- > 0) continue;
      if (!plan.reason) {
        killed_ = true;
        on_kill();
        throw Killed{};
      }
      if (plan.times == 0) continue;
      if (plan.times != kForEver) --plan.times;
      return *plan.reason;
    }
    return {};
  }

 private:
  struct Planned {
    Which which;
    std::optional<system::Reason> reason;  // nothing for a kill
    int times;
  };

  std::vector<Planned> planned_;
  std::vector<Made> made_;
  bool killed_ = false;
};

}  // namespace ordelan::test
