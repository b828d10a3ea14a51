#include "framework/file/folder_item.h"

#include <cstdlib>
#include <system_error>

#if !defined(_WIN32)
#include <sys/stat.h>
#endif

#include "framework/file/file_content.h"

#if defined(_WIN32)
#include <windows.h>
#elif defined(__APPLE__)
#include <unistd.h>
#endif

namespace sumlet {
namespace {

namespace fs = std::filesystem;

// Ignores a variable that is missing, empty or not an absolute path, as the XDG base directory rules require.
std::optional<fs::path> FolderVariable(const char* name) {
  const char* value = name == nullptr ? nullptr : std::getenv(name);
  if (value == nullptr || !fs::path(value).is_absolute()) return {};
  return fs::path(value);
}

std::optional<FolderItem> UserFolder(const char* variable, const char* belowHome) {
  if (const std::optional<fs::path> folder = FolderVariable(variable)) return FolderItem(*folder);
  if (const std::optional<fs::path> home = FolderVariable("HOME")) return FolderItem(*home / belowHome);
  return {};
}

}  // namespace

FolderItem FolderItem::Child(std::string_view name) const { return FolderItem(path_ / name); }

bool FolderItem::Exists() const {
  std::error_code error;
  return fs::exists(path_, error);
}

bool FolderItem::Directory() const {
  std::error_code error;
  return fs::is_directory(path_, error);
}

// The XDG base directory rules require mode 0700; std::filesystem would apply the user's umask.
void FolderItem::CreateAsFolder() const {
#if defined(_WIN32)
  std::error_code error;
  fs::create_directories(path_, error);
#else
  fs::path folder;
  for (const fs::path& name : path_) {
    folder /= name;
    mkdir(folder.c_str(), S_IRWXU);  // fails harmlessly for existing folders
  }
#endif
}

std::optional<String> FolderItem::ReadBinaryFile() const { return ReadContent(path_); }

bool FolderItem::WriteBinaryFile(std::string_view content) const { return OverwriteContent(path_, content); }

bool FolderItem::CopyFileTo(const FolderItem& target) const {
  const std::optional<String> content = ReadContent(path_);
  return content && OverwriteContent(target.path_, *content);
}

void FolderItem::Delete() const {
  std::error_code error;
  fs::remove(path_, error);
}

String FolderItem::AbsolutePath() const {
  std::error_code error;
  const fs::path absolute = fs::absolute(path_, error);
  return (error ? path_ : absolute).string();
}

#if defined(_WIN32)
void FolderItem::SetVisible(bool visible) const {
  SetFileAttributesW(path_.c_str(), visible ? FILE_ATTRIBUTE_NORMAL : FILE_ATTRIBUTE_HIDDEN);
}
#elif defined(__APPLE__)
void FolderItem::SetVisible(bool visible) const { chflags(path_.c_str(), visible ? 0 : UF_HIDDEN); }
#else
void FolderItem::SetVisible(bool /*visible*/) const {}
#endif

#if defined(_WIN32)
std::optional<FolderItem> SpecialFolder::UserLibrary() { return UserFolder("APPDATA", "AppData/Roaming"); }
std::optional<FolderItem> SpecialFolder::Preferences() { return UserFolder("APPDATA", "AppData/Roaming"); }
#elif defined(__APPLE__)
std::optional<FolderItem> SpecialFolder::UserLibrary() { return UserFolder(nullptr, "Library"); }
std::optional<FolderItem> SpecialFolder::Preferences() { return UserFolder(nullptr, "Library/Preferences"); }
#else
std::optional<FolderItem> SpecialFolder::UserLibrary() { return UserFolder("XDG_DATA_HOME", ".local/share"); }
std::optional<FolderItem> SpecialFolder::Preferences() { return UserFolder("XDG_CONFIG_HOME", ".config"); }
#endif

}  // namespace sumlet
