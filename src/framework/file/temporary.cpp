#include "framework/file/temporary.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "framework/text/text.h"

#if defined(_WIN32)
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace sumlet {
namespace {

namespace fs = std::filesystem;

#if defined(_WIN32)

// The folder for temporary files belongs to the user there.
std::optional<fs::path> NewFolder(const fs::path& parent) {
  std::error_code error;
  for (int tries = 0; tries < 100; ++tries) {
    const fs::path folder = parent / ("sumlet-" + Hex(ToInt32(Rnd() * 0x7FFFFFFF)));
    if (fs::create_directory(folder, error)) return folder;
  }
  return {};
}

bool MakeFolder(const fs::path& folder) {
  std::error_code error;
  return fs::create_directory(folder, error) || fs::is_directory(folder, error);
}

#else

std::optional<fs::path> NewFolder(const fs::path& parent) {
  String name = parent / "sumlet-XXXXXX";
  if (mkdtemp(name.data()) == nullptr) return {};
  return name;
}

bool MakeFolder(const fs::path& folder) {
  if (mkdir(folder.c_str(), S_IRWXU) == 0) return true;
  struct stat status = {};
  return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == geteuid() &&
         (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

#endif

}  // namespace

std::optional<FolderItem> GetTemporaryFolderItem() {
  std::error_code error;
  const fs::path parent = fs::temp_directory_path(error);
  if (error) return {};
  const std::optional<fs::path> folder = NewFolder(parent);
  if (!folder) return {};
  return FolderItem(*folder / "list.plist");
}

bool RemakeTemporaryFolder(const FolderItem& item) { return MakeFolder(item.Path().parent_path()); }

void DeleteTemporary(const FolderItem& item) {
  std::error_code error;
  fs::remove_all(item.Path().parent_path(), error);
}

}  // namespace sumlet
