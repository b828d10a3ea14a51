#include "framework/file/program.h"

#if defined(_WIN32)

namespace sumlet {

// Windows has no tools for property lists.
ProgramEnd RunProgram(const std::vector<String>& /*command*/, std::chrono::milliseconds /*timeout*/) {
  return ProgramEnd::NotFound;
}

}  // namespace sumlet

#else

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <thread>

extern char** environ;

namespace sumlet {
namespace {

using Clock = std::chrono::steady_clock;

// Gives the child a process group of its own, to kill it with its children, and resets blocked and ignored signals.
void SetAttributes(posix_spawnattr_t& attributes) {
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  sigaddset(&signals, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setpgroup(&attributes, 0);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
}

// Returns the process ID, or 0 on failure.
pid_t Spawn(const std::vector<String>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const String& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);

  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
#if defined(__GLIBC__) && __GLIBC_PREREQ(2, 34)
  posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
#endif
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  SetAttributes(attributes);

  pid_t process = 0;
  const int error = posix_spawnp(&process, arguments[0], &files, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&files);
  return error == 0 ? process : 0;
}

// A small file can expand to a huge one, so the memory and the output of the tool are limited. The process is running
// already, but cannot get far before the limits apply.
void Limit([[maybe_unused]] pid_t process) {
#if defined(__linux__)
  constexpr rlimit memory = {rlim_t{1} << 30, rlim_t{1} << 30};
  constexpr rlimit file = {rlim_t{1} << 28, rlim_t{1} << 28};
  prlimit(process, RLIMIT_AS, &memory, nullptr);
  prlimit(process, RLIMIT_FSIZE, &file, nullptr);
#endif
}

// Whether the process has ended. Does not reap it, so that its process ID is not reused.
bool HasEnded(pid_t process) {
  siginfo_t status = {};
  return waitid(P_PID, static_cast<id_t>(process), &status, WEXITED | WNOHANG | WNOWAIT) != 0 ||
         status.si_pid == process;
}

// Kills the rest of the process group and reaps the process. Does not wait for a process that cannot be killed because
// it is blocked in the kernel.
void End(pid_t process) {
  kill(-process, SIGKILL);
  for (int tries = 0; tries < 1000 && waitpid(process, nullptr, WNOHANG) != process && errno != ECHILD; ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace

// Polls every millisecond, which is cheap because the tools end within milliseconds. A handler for SIGCHLD would
// replace that of the toolkit.
ProgramEnd RunProgram(const std::vector<String>& command, std::chrono::milliseconds timeout) {
  const Clock::time_point deadline = Clock::now() + timeout;
  const pid_t process = command.empty() ? 0 : Spawn(command);
  if (process == 0) return ProgramEnd::NotFound;
  Limit(process);
  while (!HasEnded(process) && Clock::now() < deadline) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  const ProgramEnd end = HasEnded(process) ? ProgramEnd::Ended : ProgramEnd::GivenUp;
  End(process);
  return end;
}

}  // namespace sumlet

#endif
