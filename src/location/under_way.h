// Marks something as under way for as long as it is, whatever ends it.
#pragma once

namespace ordelan::location {

class UnderWay {
 public:
  // Sets `flag`, which must live longer, and clears it at the end.
  explicit UnderWay(bool& flag) : flag_(flag) { flag_ = true; }
  ~UnderWay() { flag_ = false; }
  UnderWay(const UnderWay&) = delete;
  UnderWay& operator=(const UnderWay&) = delete;

 private:
  bool& flag_;
};

}  // namespace ordelan::location
