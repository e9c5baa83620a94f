#include "tools/program_run.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

extern char** environ;

namespace ordelan::studio {
namespace {

struct Pipe {
  int out = -1;
  int in = -1;

  Pipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
    out = ends[0];
    in = ends[1];
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;
  ~Pipe() {
    close_end(out);
    close_end(in);
  }

  static void close_end(int& end) {
    if (end >= 0) ::close(end);
    end = -1;
  }
};

// Appends what has come through the pipe; at its end the pipe is closed.
void drain(Pipe& pipe, std::string& text) {
  std::array<char, 4096> buffer{};
  const ssize_t came = ::read(pipe.out, buffer.data(), buffer.size());
  if (came > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(came));
  } else if (came == 0 || errno != EINTR) {
    Pipe::close_end(pipe.out);
  }
}

}  // namespace

ProgramResult run_program(const std::vector<std::string>& arguments) {
  ProgramResult result;
  Pipe output;
  Pipe errors;
  if (arguments.empty() || output.in < 0 || errors.in < 0) return result;

  std::vector<char*> texts;
  for (const std::string& argument : arguments)
    texts.push_back(const_cast<char*>(argument.c_str()));
  texts.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, output.in, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors.in, STDERR_FILENO);
  pid_t child = -1;
  result.started = ::posix_spawnp(&child, texts[0], &actions, nullptr, texts.data(), environ) == 0;
  posix_spawn_file_actions_destroy(&actions);
  if (!result.started) return result;

  Pipe::close_end(output.in);
  Pipe::close_end(errors.in);
  while (output.out >= 0 || errors.out >= 0) {
    std::array<pollfd, 2> waits = {pollfd{output.out, POLLIN, 0}, pollfd{errors.out, POLLIN, 0}};
    if (::poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR) break;
    if (output.out >= 0 && waits[0].revents != 0) drain(output, result.output);
    if (errors.out >= 0 && waits[1].revents != 0) drain(errors, result.errors);
  }
  int status = 0;
  while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status)) result.exit_code = WEXITSTATUS(status);
  return result;
}

}  // namespace ordelan::studio
