#include "framework/file/program.h"

#if defined(_WIN32)

namespace sumlet {

// No program that this system calls exists there.
ProgramEnd RunProgram(const std::vector<String>& /*command*/, std::chrono::milliseconds /*patience*/) {
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

// A process group of its own, so that it can be killed with its children, and no signal blocked or ignored on account
// of this program.
void SetAttributes(posix_spawnattr_t& attributes) {
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&attributes, &signals);
  sigaddset(&signals, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setpgroup(&attributes, 0);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
}

// The process started, or 0.
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

// A small file can stand for a huge one, which the tool must not fill memory or disk with. The process runs already,
// but that it gets far in the meantime is no danger.
void Limit([[maybe_unused]] pid_t process) {
#if defined(__linux__)
  constexpr rlimit memory = {rlim_t{1} << 30, rlim_t{1} << 30};
  constexpr rlimit file = {rlim_t{1} << 28, rlim_t{1} << 28};
  prlimit(process, RLIMIT_AS, &memory, nullptr);
  prlimit(process, RLIMIT_FSIZE, &file, nullptr);
#endif
}

// Whether the process has ended. It stays on the system's list, so that nobody else gets its number.
bool HasEnded(pid_t process) {
  siginfo_t status = {};
  return waitid(P_PID, static_cast<id_t>(process), &status, WEXITED | WNOHANG | WNOWAIT) != 0 ||
         status.si_pid == process;
}

// Ends what is left of the process group, and takes the process off the system's list. One that cannot be
// ended, because the system itself holds it, is not waited for.
void End(pid_t process) {
  kill(-process, SIGKILL);
  for (int tries = 0; tries < 1000 && waitpid(process, nullptr, WNOHANG) != process && errno != ECHILD; ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

}  // namespace

// The tools end within milliseconds, so looking every millisecond costs nothing that anybody notices; waiting for the
// signal of a child's end would take it away from the toolkit.
ProgramEnd RunProgram(const std::vector<String>& command, std::chrono::milliseconds patience) {
  const Clock::time_point deadline = Clock::now() + patience;
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
