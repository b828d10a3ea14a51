// Replacing a file in place, so that whoever is killed while doing it leaves the old content or the new.
//
// The usual way, a new file put in the place of the old one, needs a second file and breaks links; here the bytes of
// the file itself are written over. A write of more than a page can be cut short by SIGKILL. So the writing is left to
// a child process that does nothing else: once it exists, killing the program does not stop it. What could fail,
// opening the file and room on the disk, is settled before the first old byte is lost; should writing fail all the
// same, the old bytes, which have room, are put back. A file that is new gets its name when it is whole, since an empty
// one is none that was ever saved. The program waits until the bytes are in place and not until the disk has them;
// that, too, is the child's business. A lock on the file keeps a reader, the next start of the program, from looking in
// between.
#include "framework/file/file_content.h"

#if defined(_WIN32)

#include <fstream>
#include <iterator>

namespace sumlet {

std::optional<String> ReadContent(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return {};
  return String(std::istreambuf_iterator<char>(file), {});
}

bool ReplaceContent(const std::filesystem::path& path, std::string_view content) {
  std::ofstream file(path, std::ios::binary);
  return static_cast<bool>(file.write(content.data(), static_cast<std::streamsize>(content.size())).flush());
}

}  // namespace sumlet

#else

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <utility>

#include "framework/file/descriptor.h"

namespace sumlet {
namespace {

// Another process holds the lock for the moment of a write only. One that holds it for longer, whatever it is, does not
// keep this one from going on.
void Lock(int file, int operation) {
  for (int tries = 0; tries < 400 && flock(file, operation | LOCK_NB) != 0 && errno == EWOULDBLOCK; ++tries) {
    usleep(5000);
  }
}

// The whole content of an open regular file.
std::optional<String> ReadAll(int file) {
  struct stat status = {};
  if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > static_cast<off_t>(largestContent))
    return {};
  String content(static_cast<std::size_t>(status.st_size), '\0');
  std::size_t length = 0;
  while (length < content.size()) {
    const ssize_t count = pread(file, content.data() + length, content.size() - length, static_cast<off_t>(length));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return {};
    if (count == 0) break;
    length += static_cast<std::size_t>(count);
  }
  content.resize(length);
  return content;
}

bool WriteAll(int file, std::string_view content) {
  off_t offset = 0;
  while (!content.empty()) {
    const ssize_t written = pwrite(file, content.data(), content.size(), offset);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
    offset += written;
  }
  return true;
}

bool WriteAndCut(int file, std::string_view content) {
  return WriteAll(file, content) && ftruncate(file, static_cast<off_t>(content.size())) == 0;
}

// False when the disk has no room for `size` bytes. A file system that cannot tell is believed to have it.
bool HasRoom(int file, std::size_t size) {
#if defined(__linux__)
  if (size == 0) return true;
  const int result = fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size));
  return result == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG && errno != EIO);
#else
  return file >= 0 && size <= largestContent;
#endif
}

// Where the content goes. A new file has no name before it is whole; `nameless` then leads to it.
struct Target {
  const char* path = nullptr;
  Descriptor file;
  bool isNew = false;
  String nameless;
  String oldContent;
};

Target OpenTarget(const std::filesystem::path& path) {
  Target target;
  target.path = path.c_str();
  target.file = Descriptor(open(target.path, O_RDWR | O_CLOEXEC | O_NONBLOCK));
  if (target.file.IsOpen() || errno != ENOENT) return target;
  target.isNew = true;
#if defined(__linux__)
  std::error_code error;
  if (!std::filesystem::is_symlink(path, error))  // a link that leads nowhere yet gets its file by the ordinary way
    target.file = Descriptor(open(path.parent_path().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR));
  if (target.file.IsOpen()) {
    target.nameless = "/proc/self/fd/" + std::to_string(target.file.Number());
    return target;
  }
#endif
  // Not every file system knows files without a name.
  target.file = Descriptor(open(target.path, O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, S_IRUSR | S_IWUSR));
  return target;
}

bool WriteTo(const Target& target, std::string_view content) {
  const int file = target.file.Number();
  const bool written = WriteAndCut(file, content);
  if (!target.nameless.empty())
    return written && linkat(AT_FDCWD, target.nameless.c_str(), AT_FDCWD, target.path, AT_SYMLINK_FOLLOW) == 0;
  if (!written && target.isNew) unlink(target.path);
  if (!written && !target.isNew) WriteAndCut(file, target.oldContent);
  return written;
}

// What else the program has open is not for the writer: its sockets would keep the next start waiting for a program
// that has ended, until the disk has the content.
void CloseAllBut([[maybe_unused]] int file, [[maybe_unused]] int report) {
#if defined(CLOSE_RANGE_CLOEXEC)  // the system's library has the call
  const auto [low, high] = std::minmax(file, report);
  close_range(STDERR_FILENO + 1, static_cast<unsigned>(low - 1), 0);
  close_range(static_cast<unsigned>(low + 1), static_cast<unsigned>(high - 1), 0);
  close_range(static_cast<unsigned>(high + 1), ~0U, 0);
#endif
}

// The whole life of the child. Only calls that are safe behind a fork of a program with several threads.
[[noreturn]] void RunWriter(const Target& target, int report, std::string_view content) {
  CloseAllBut(target.file.Number(), report);
  setsid();  // a signal for the program's group, as from a terminal, is not for the writer
  const char done = WriteTo(target, content) ? 1 : 0;
  [[maybe_unused]] const ssize_t told = write(report, &done, 1);
  fsync(target.file.Number());
  _exit(0);
}

pid_t previousWriter = 0;

// Takes the previous writer, finished long ago, off the system's list.
void CollectPreviousWriter() {
  if (previousWriter > 0) waitpid(previousWriter, nullptr, 0);
  previousWriter = 0;
}

// Nothing when there can be no second process.
std::optional<bool> WriteInChild(const Target& target, std::string_view content) {
  int ends[2];
  if (pipe(ends) != 0) return {};
  Descriptor report(ends[0]);
  Descriptor reported(ends[1]);
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  const pid_t writer = fork();
  if (writer == 0) RunWriter(target, reported.Number(), content);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  if (writer < 0) return {};
  previousWriter = writer;
  reported.Close();
  char done = 0;
  while (read(report.Number(), &done, 1) < 0 && errno == EINTR) {
  }
  return done == 1;
}

}  // namespace

std::optional<String> ReadContent(const std::filesystem::path& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) return {};
  Lock(file.Number(), LOCK_SH);
  return ReadAll(file.Number());
}

bool ReplaceContent(const std::filesystem::path& path, std::string_view content) {
  if (content.size() > largestContent) return false;  // nobody could read it any more
  CollectPreviousWriter();
  Target target = OpenTarget(path);
  if (!target.file.IsOpen()) return false;
  const int file = target.file.Number();
  Lock(file, LOCK_EX);
  std::optional<String> oldContent = ReadAll(file);
  if (!oldContent) return false;
  target.oldContent = std::move(*oldContent);
  if (!HasRoom(file, content.size())) {
    if (target.isNew && target.nameless.empty()) unlink(target.path);
    return false;
  }
  const std::optional<bool> written = WriteInChild(target, content);
  return written ? *written : WriteTo(target, content);
}

}  // namespace sumlet

#endif
