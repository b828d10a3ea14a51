// FolderItem: the path of a file or folder, which need not exist. SpecialFolder: the user's folders.
#pragma once

#include <filesystem>
#include <optional>
#include <utility>

#include "framework/text/text.h"

namespace sumlet {

class FolderItem {
 public:
  explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] FolderItem Child(std::string_view name) const;

  [[nodiscard]] bool Exists() const;
  // Whether it exists and is a folder.
  [[nodiscard]] bool Directory() const;

  // Makes the folder, and the folders above it, each for its owner alone. Whether that worked is told by Directory.
  void CreateAsFolder() const;

  // The content of the file, or nothing when it cannot be read: it does not exist, is a folder, is not the user's.
  [[nodiscard]] std::optional<String> ReadBinaryFile() const;
  // Overwrites the content in place, or creates the file, for its owner alone. False when the file cannot be opened or
  // created, or the disk is full; the old content is then unchanged.
  bool WriteBinaryFile(std::string_view content) const;

  // Copies the file to `target`, which is replaced. False when that cannot be.
  bool CopyFileTo(const FolderItem& target) const;
  // Deletes the file, or the folder if it is empty. What does not exist, or is not the user's, is left.
  void Delete() const;

  // The whole path, from the root on.
  [[nodiscard]] String AbsolutePath() const;

  // Whether file managers show the item. Where only a name hides a file, as on Linux, setting has no effect.
  void SetVisible(bool visible) const;

 private:
  std::filesystem::path path_;
};

namespace SpecialFolder {

// The folder for a program's own data ($XDG_DATA_HOME or ~/.local/share; ~/Library on macOS; %APPDATA% on Windows) and
// the one for its older preferences ($XDG_CONFIG_HOME or ~/.config; ~/Library/Preferences; %APPDATA%). Nothing where
// the user has no home.
[[nodiscard]] std::optional<FolderItem> UserLibrary();
[[nodiscard]] std::optional<FolderItem> Preferences();

}  // namespace SpecialFolder

}  // namespace sumlet
