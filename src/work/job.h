// One long run over the work in hand: opening a project, a sweep, the reports, a search.
#pragma once

#include "system/platform.h"
#include "work/display_pace.h"
#include "work/folder_tree.h"
#include "work/work_in_hand.h"

namespace ordelan::work {

class Job {
 public:
  // Begins a run: those that are under way are superseded by it. The arguments must outlive it.
  static Job begin(WorkInHand& work, const system::Platform& platform) {
    return {work, platform, work.begin_job()};
  }
  // Becomes a part of the run that is under way: it is superseded together with it.
  static Job join(WorkInHand& work, const system::Platform& platform) {
    return {work, platform, work.current_job()};
  }
  // Clears Descodificando if this run has set it, however the run ends; unless a newer run has
  // taken its place, to which the flag then belongs.
  ~Job() { set_idle(); }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

  // Gives the window its turn when one is due; any handler may run inside. False once the run has
  // to end.
  bool turn() {
    pacer_.turn();
    return !must_stop();
  }
  // The same; `show` is called after a turn that was due, to show how far the run has got. A run
  // that was superseded in that turn has nothing to show: the window is the newer one's.
  template <class Show>
  bool turn(Show&& show) {
    if (pacer_.turn() && !superseded()) show();
    return !must_stop();
  }

  // Whether what the run does now should be shown: ten times a second, as no user reads faster and
  // each showing costs the window time. True at the first call.
  bool display_due() { return display_.due(); }

  // The user has asked it to stop, or a newer run has taken its place. A run that was superseded
  // leaves the window as it is.
  bool must_stop() const { return work_.must_stop(number_); }
  bool superseded() const { return work_.superseded(number_); }
  bool cancelled() const { return work_.Cancelar; }
  JobNumber number() const { return number_; }

  // Sets Descodificando: no other decode begins meanwhile.
  void set_busy() {
    work_.Descodificando = true;
    busy_ = true;
  }
  // Clears it before the end of the run.
  void set_idle() {
    if (busy_ && !superseded()) work_.Descodificando = false;
    busy_ = false;
  }

  // The folders as this run has listed them, each once. They are forgotten with the run.
  FolderTree& folders() { return folders_; }
  // Frees the listings, with turns for the window: that takes a while for large trees. False once
  // a newer run has taken the place of this one.
  bool forget_folders() {
    folders_.forget([this] { pacer_.turn(); });
    return !superseded();
  }

 private:
  Job(WorkInHand& work, const system::Platform& platform, JobNumber number)
      : work_(work),
        display_(platform.clock),
        pacer_(platform.pump, platform.clock),
        number_(number),
        folders_(platform.files) {}

  WorkInHand& work_;
  DisplayPace display_;
  system::Pacer pacer_;
  JobNumber number_;
  bool busy_ = false;
  FolderTree folders_;
};

}  // namespace ordelan::work
