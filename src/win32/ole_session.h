// The system's objects, ready for use on one thread for as long as it lives.
#pragma once

#include <windows.h>

#include <ole2.h>

namespace ordelan::win32 {

// Each caller of the shell has a session of its own. The system counts them, so their order does
// not matter; each must begin and end on the thread that uses it.
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
