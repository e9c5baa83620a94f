// The media engine over the system's graphs of filters.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "system/media.h"
#include "win32/ports/graph_worker.h"

namespace ordelan::win32 {

// A thread of its own does all that may take time. A file that the system does not finish opening
// leaves its thread to itself, and the next file gets another one. Only `close`, an empty `set_URL`
// and `end` wait for the file to be let go, a quarter of a second at most.
class GraphMedia final : public system::Media {
 public:
  // The facts are asked on the engine's thread. `make_graph` is for tests.
  explicit GraphMedia(system::MediaFacts facts, MakeGraph make_graph = {});
  ~GraphMedia() override;

  std::string URL() const override { return url_; }
  void set_URL(const std::string& path) override;
  void close() override;
  void play() override;
  void pause() override;
  void stop() override;
  double currentPosition() const override;
  void set_currentPosition(double seconds) override;
  double duration() const override;
  std::string durationString() const override;
  std::string name() const override;
  void set_volume(int volume) override;
  int balance() const override { return balance_; }
  void set_balance(int balance) override;
  std::vector<system::SoundDevice> devices() override;
  std::string device() const override { return device_; }
  void set_device(const std::string& id) override;
  std::string status() const override;
  int playState() const override;
  system::Heard heard(std::size_t samples) const override;
  bool holds(const std::string& path) const override;
  std::string notice() const override;
  void end() override;

  // How many threads wait for calls of the system that have not come back, of this engine.
  std::size_t abandoned() const;

  // After these times a file that is being opened has a notice, and is given up.
  std::chrono::milliseconds slow{3'000};
  std::chrono::milliseconds hopeless{10'000};
  // Between them it is opened once more, by another thread: some systems hang in one file of
  // thousands, and open the same file at the next try.
  std::chrono::milliseconds again{4'000};

 private:
  struct Left {
    std::shared_ptr<GraphBoard> board;
    std::string path;
    bool hopeless = false;  // its file has been given up
  };

  // The view as it is now; gives up a file that takes too long, or has another thread open it where
  // this one is stuck in something else.
  GraphView view() const;
  // Gives an order that `foreseen` makes visible at once in the view.
  template <class Foresee>
  void order(GraphOrder order, Foresee foreseen);
  // Sees to it that there is a thread that can take up a file at once.
  void find_worker();
  void begin_worker() const;
  void leave(bool hopeless) const;
  // Gives the orders to another thread: this one does not come to them, or not to the end of the
  // one in hand, the opening of a file, which the other then begins with.
  // Does nothing where the call in hand has come back meanwhile.
  void move_to_another_worker(bool open_again) const;
  void let_go();
  void tell_loudness();
  bool gave_up(const std::string& path) const;

  system::MediaFacts facts_;
  MakeGraph make_graph_;
  std::string url_;
  int volume_ = 50;
  int balance_ = 0;
  std::string device_;
  // All this only changes on the program's thread; reading may give up a file.
  mutable std::shared_ptr<GraphBoard> board_;
  mutable std::vector<Left> left_;
  mutable std::optional<GraphView> given_up_;  // what is shown of a file without a thread
  Moment opened_at_;
  mutable Moment tried_at_;  // when the try that counts began: each has its whole time
};

}  // namespace ordelan::win32
