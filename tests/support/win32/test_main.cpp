// The start of a test program on Windows. The tests run in a process of their own, and the first
// one gives on what they come to.
//
// Tests that play sound can leave threads that hang in a call of the system. Where Wine ends such a
// process it may crash, after the last test and with all of them counted: that is no failure of a
// test. A process that goes before its tests are done is one.
#include <windows.h>

#include <gmock/gmock.h>

#include <cstdio>

namespace {

constexpr const wchar_t* kInner = L"ORDELAN_TESTS_RUN_HERE";
// Added to what the tests come to, so that no way of going early passes for their success.
constexpr DWORD kDone = 0x0D00;

bool is_inner() {
  return GetEnvironmentVariableW(kInner, nullptr, 0) != 0;
}

int run_here(int count, char** words) {
  testing::InitGoogleMock(&count, words);
  const int result = RUN_ALL_TESTS();
  std::fflush(nullptr);
  const DWORD code = kDone + static_cast<DWORD>(result);
  if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr) {
    TerminateProcess(GetCurrentProcess(), code);
  }
  return static_cast<int>(code);
}

// If this process is ended, by a time limit for instance, the other one goes with it.
void tie(HANDLE process) {
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits) ||
      !AssignProcessToJobObject(job, process)) {
    std::printf("A time limit would leave the tests running: error %lu\n", GetLastError());
  }
}

int run_there() {
  SetEnvironmentVariableW(kInner, L"1");
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION inner{};
  if (!CreateProcessW(nullptr, GetCommandLineW(), nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr,
                      nullptr, &start, &inner)) {
    std::printf("The process of the tests could not be started: error %lu\n", GetLastError());
    return 1;
  }
  tie(inner.hProcess);
  ResumeThread(inner.hThread);
  WaitForSingleObject(inner.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(inner.hProcess, &code);
  if (code == kDone) return 0;
  if (code == kDone + 1) return 1;
  std::printf("The process of the tests ended before they were done, with code 0x%lX\n", code);
  return 1;
}

}  // namespace

int main(int count, char** words) {
  return is_inner() ? run_here(count, words) : run_there();
}
