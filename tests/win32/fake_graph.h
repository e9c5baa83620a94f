// A graph whose calls a test can hold up and have fail.
#pragma once

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "win32/ports/media_graph.h"

namespace ordelan::test {

// What the test and its graphs, which live on other threads, share. It must outlive them: those
// that are held up are let go at its end, and it waits for them.
class FakeGraphs {
 public:
  ~FakeGraphs() {
    std::unique_lock lock(mutex_);
    held_.clear();
    changed_.notify_all();
    changed_.wait(lock, [this] { return living_ == 0; });
  }

  win32::MakeGraph maker() {
    return [this](std::shared_ptr<win32::SampleRing>) { return std::make_unique<Graph>(*this); };
  }

  // From now on this call ("open D:\\a.wav", "stop") does not return, until it is let go.
  void hold(const std::string& call) {
    const std::scoped_lock lock(mutex_);
    held_.push_back(call);
  }
  // The same for the next such call alone.
  void hold_next(const std::string& call) {
    const std::scoped_lock lock(mutex_);
    held_next_.push_back(call);
  }
  void let_go(const std::string& call) {
    const std::scoped_lock lock(mutex_);
    std::erase(held_, call);
    std::erase(held_, kNext + call);
    changed_.notify_all();
  }
  void fail_opening(const std::string& path, win32::MediaGraph::Opening opening) {
    const std::scoped_lock lock(mutex_);
    openings_[path] = opening;
  }
  // The graph that plays now reports it.
  void report(win32::MediaGraph::Event event) {
    const std::scoped_lock lock(mutex_);
    event_ = event;
  }
  // All calls that have begun, in sequence.
  std::vector<std::string> calls() {
    const std::scoped_lock lock(mutex_);
    return calls_;
  }
  std::ptrdiff_t count(const std::string& call) {
    const std::scoped_lock lock(mutex_);
    return std::count(calls_.begin(), calls_.end(), call);
  }
  // Of every file, in seconds; to be set before one is opened.
  std::atomic<double> duration = 60;

  int living() {
    const std::scoped_lock lock(mutex_);
    return living_;
  }

 private:
  class Graph final : public win32::MediaGraph {
   public:
    explicit Graph(FakeGraphs& all) : all_(all) {
      const std::scoped_lock lock(all_.mutex_);
      ++all_.living_;
    }
    ~Graph() override {
      const std::scoped_lock lock(all_.mutex_);
      --all_.living_;
      all_.changed_.notify_all();
    }
    void set_device(const std::string& id) override {
      if (!id.empty()) all_.call("device " + id);
    }
    Opening open(const std::string& path) override {
      all_.call("open " + path);
      const std::scoped_lock lock(all_.mutex_);
      const auto found = all_.openings_.find(path);
      return found == all_.openings_.end() ? Opening::ok : found->second;
    }
    double duration() override { return all_.duration; }
    double position() override { return position_; }
    bool run() override { return all_.call("run"); }
    bool pause() override { return all_.call("pause"); }
    bool stop() override {
      position_ = 0;
      return all_.call("stop");
    }
    bool seek(double seconds) override {
      position_ = seconds;
      return all_.call("seek " + std::to_string(static_cast<int>(seconds)));
    }
    void set_gain(long gain) override { all_.call("gain " + std::to_string(gain)); }
    void set_balance(long balance) override { all_.call("balance " + std::to_string(balance)); }
    Event event() override {
      const std::scoped_lock lock(all_.mutex_);
      return std::exchange(all_.event_, Event::none);
    }

   private:
    FakeGraphs& all_;
    double position_ = 0;
  };

  bool call(const std::string& name) {
    std::unique_lock lock(mutex_);
    calls_.push_back(name);
    std::string held_as = name;
    if (std::erase(held_next_, name) > 0) held_.push_back(held_as = kNext + name);
    changed_.wait(lock,
                  [&] { return std::find(held_.begin(), held_.end(), held_as) == held_.end(); });
    return true;
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  static constexpr auto kNext = "next ";
  std::vector<std::string> held_;
  std::vector<std::string> held_next_;
  std::vector<std::string> calls_;
  std::map<std::string, win32::MediaGraph::Opening> openings_;
  win32::MediaGraph::Event event_ = win32::MediaGraph::Event::none;
  int living_ = 0;
};

}  // namespace ordelan::test
