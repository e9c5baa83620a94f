// The system's objects, ready for use on one thread for as long as it lives.
#pragma once

#include <windows.h>

#include <ole2.h>

namespace ordelan::win32 {

// Whoever asks the shell has one of its own. They are counted, so that each may come and go as it
// likes; all must do so on the thread that they are used on.
class OleSession {
 public:
  OleSession() : begun_(SUCCEEDED(OleInitialize(nullptr))) {}
  ~OleSession() {
    if (begun_) OleUninitialize();
  }
  OleSession(const OleSession&) = delete;
  OleSession& operator=(const OleSession&) = delete;

 private:
  bool begun_;  // not where the thread has been set up in another way, which does as well
};

}  // namespace ordelan::win32
