// FolderItem: the path of a file or folder, which need not exist. SpecialFolder: the user's folders.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "framework/text/text.h"

namespace sumlet {

class FolderItem {
 public:
  explicit FolderItem(std::filesystem::path path) : path_(std::move(path)) {}

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  [[nodiscard]] FolderItem Child(std::string_view name) const;

  [[nodiscard]] bool Exists() const;
  // Whether the path exists and is a folder.
  [[nodiscard]] bool Directory() const;

  // Creates the folder and its parents, with access for their owner only. Check the outcome with Directory.
  void CreateAsFolder() const;

  // Returns the content of the file. Empty if it cannot be read.
  [[nodiscard]] std::optional<String> ReadBinaryFile() const;
  // Overwrites the content in place, or creates the file with access for its owner only. Returns false, with the old
  // content unchanged, if the file cannot be opened or created, or the disk is full.
  bool WriteBinaryFile(std::string_view content) const;

  // Copies the file over `target`. Returns whether that succeeded.
  bool CopyFileTo(const FolderItem& target) const;
  // Deletes the file, or the folder if it is empty. Does not report failure.
  void Delete() const;

  // The absolute path.
  [[nodiscard]] String AbsolutePath() const;

  // Whether file managers show the item. The setter has no effect on Linux, where only the name can hide a file.
  void SetVisible(bool visible) const;

 private:
  std::filesystem::path path_;
};

namespace SpecialFolder {

// The folder for program data ($XDG_DATA_HOME or ~/.local/share; ~/Library on macOS; %APPDATA% on Windows) and the one
// for the older preferences ($XDG_CONFIG_HOME or ~/.config; ~/Library/Preferences; %APPDATA%). Empty if the user has no
// home folder.
[[nodiscard]] std::optional<FolderItem> UserLibrary();
[[nodiscard]] std::optional<FolderItem> Preferences();

}  // namespace SpecialFolder

}  // namespace sumlet
