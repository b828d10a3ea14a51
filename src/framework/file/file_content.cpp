// Overwriting a file in place keeps its links, owner and name. The steps that can fail, opening the file and reserving
// disk space, come before the first byte is overwritten. If writing fails nevertheless, the old bytes, for which there
// is space, are restored. The file is truncated to its new length after the new bytes are written.
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

bool OverwriteContent(const std::filesystem::path& path, std::string_view content) {
  std::ofstream file(path, std::ios::binary);
  return static_cast<bool>(file.write(content.data(), static_cast<std::streamsize>(content.size())).flush());
}

bool ReplaceFile(const std::filesystem::path& path, std::string_view content) {
  std::filesystem::path fresh = path;
  fresh += ".new";
  std::error_code error;
  if (!OverwriteContent(fresh, content)) return false;
  std::filesystem::rename(fresh, path, error);
  return !error;
}

bool FlushFile(const std::filesystem::path& /*path*/) { return true; }

}  // namespace sumlet

#else

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "framework/file/descriptor.h"

namespace sumlet {
namespace {

// Reads an open regular file.
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

// Returns false if the disk has no space for `size` bytes; true if the file system cannot tell.
bool HasRoom(int file, std::size_t size) {
#if defined(__linux__)
  if (size == 0) return true;
  const int result = fallocate(file, FALLOC_FL_KEEP_SIZE, 0, static_cast<off_t>(size));
  return result == 0 || (errno != ENOSPC && errno != EDQUOT && errno != EFBIG && errno != EIO);
#else
  return file >= 0 && size <= largestContent;
#endif
}

Descriptor Open(const std::filesystem::path& path, int flags) {
  return Descriptor(open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, S_IRUSR | S_IWUSR));
}

bool Flush(const Descriptor& file) { return file.IsOpen() && fsync(file.Number()) == 0; }

// Flushing the folder writes the name of a new or renamed file to the disk.
bool FlushFolderOf(const std::filesystem::path& path) {
  return Flush(Open(path.parent_path(), O_RDONLY | O_DIRECTORY));
}

}  // namespace

std::optional<String> ReadContent(const std::filesystem::path& path) {
  const Descriptor file = Open(path, O_RDONLY);
  if (!file.IsOpen()) return {};
  return ReadAll(file.Number());
}

bool OverwriteContent(const std::filesystem::path& path, std::string_view content) {
  if (content.size() > largestContent) return false;  // ReadContent could not read it
  Descriptor file = Open(path, O_RDWR);
  const bool isNew = !file.IsOpen() && errno == ENOENT;
  if (isNew) file = Open(path, O_RDWR | O_CREAT);
  if (!file.IsOpen()) return false;
  const std::optional<String> oldContent = ReadAll(file.Number());
  if (!oldContent) return false;
  const bool hasRoom = HasRoom(file.Number(), content.size());
  if (hasRoom && WriteAndCut(file.Number(), content)) return true;
  if (isNew)
    unlink(path.c_str());
  else if (hasRoom)
    WriteAndCut(file.Number(), *oldContent);
  return false;
}

bool ReplaceFile(const std::filesystem::path& path, std::string_view content) {
  if (content.size() > largestContent) return false;
  const String fresh = path.string() + ".new";
  {
    const Descriptor file = Open(fresh, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.IsOpen()) return false;
    if (!WriteAll(file.Number(), content) || !Flush(file)) {
      unlink(fresh.c_str());
      return false;
    }
  }
  return rename(fresh.c_str(), path.c_str()) == 0 && FlushFolderOf(path);
}

bool FlushFile(const std::filesystem::path& path) { return Flush(Open(path, O_RDONLY)) && FlushFolderOf(path); }

}  // namespace sumlet

#endif
