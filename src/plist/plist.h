// plist: a property list, read from a file into a tree of plistDict nodes, and written back.
//
// Reads the layout that the macOS tools write: one pair of tags a line, indented with tabs. `plutil` or
// `plistutil` converts binary files. Operations report failures in `error` and `errorMessage`.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "framework/file/folder_item.h"
#include "framework/text/array.h"
#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace sumlet {

class plist {
 public:
  // Reads `file`, or `fallback` when `file` does not exist. See Load.
  explicit plist(const FolderItem& file, const std::optional<FolderItem>& fallback = {});
  plist(plist&&) = delete;
  plist& operator=(plist&&) = delete;
  ~plist();

  [[nodiscard]] plistDict& root() const { return *root_; }

  bool error = false;  // the last operation failed
  String errorMessage;
  FolderItem savePath;             // where Save writes
  Array<String> headers;           // the lines before the keys, from index 1 on
  bool isBinary = false;           // the file was binary when it was read
  std::optional<FolderItem> org;   // the binary file; savePath is then that of its converted copy
  bool debug = false;              // show every error of a node in a message
  plistDict* foundDict = nullptr;  // the node of the last find; nullptr if none, or if that node has been removed
  String foundKey;
  String foundValue;
  String foundType;
  String lastSearch;  // the text given to Find
  // Part of the document's interface, but unused.
  bool brk = false;
  bool findingNext = false;
  Int32 untitled = 0;

  // Drops the tree and reads `file`, or `fallback` when `file` does not exist. If neither exists, the document is empty
  // and the error is "... does not exist". A file that is no property list, cannot be read or is larger than 8 MiB
  // results in an empty tree and "Not a plist file". A truncated file results in the keys it holds, without an error.
  void Load(const FolderItem& file, const std::optional<FolderItem>& fallback);

  // Deletes the converted copy of a binary file. The destructor does so otherwise.
  void Cleanup();

  // Writes the document to savePath. Converts a binary document back, where a tool for it exists, and copies it over
  // the file that it was read from. If savePath cannot be written, it stays unchanged and the error is "Could not open
  // file for saving"; the original of a binary document is then replaced by the unchanged copy. If Load could not read
  // the file, Save touches no file and reports the same error.
  void Save(bool cleanup = false);
  // The same, and hides the file. Ignores `file`, which is in the interface of documents only.
  void SaveAsInvisible(const FolderItem& file, bool cleanup = false);

  // Puts the text of the document on the clipboard, for debugging.
  void Dump() const;

  // Searches the values of all plain keys, ignoring case, and sets the found fields to the first key whose value
  // contains `text`. FindNext continues after it; with another text than Find's, it returns the first match each time.
  // Find, FindNext and ClearSearch throw a Fault after an element of an array of containers was removed, because its
  // children no longer match their keys.
  bool Find(std::string_view text);
  bool FindNext(std::string_view text);
  // Marks all plain keys of the node and below as not yet reported.
  static void ClearSearch(plistDict& node);

 private:
  friend class plistDict;  // resets foundDict when its node is removed

  void LoadNew();
  void ReadFrom(TextInputStream& stream, String line);
  std::optional<TextInputStream> OpenConverted(const FolderItem& source);
  void WriteTo(TextOutputStream& stream) const;
  [[nodiscard]] bool WriteFile() const;
  void SaveAs(bool visible, bool cleanup);
  void SaveBinary(bool visible);
  enum class SearchMode { Values, Keys };
  bool ReadStructure(plistDict& node, std::string_view text, SearchMode mode);
  // Calls `visit` for each plain key of `top` and below until it returns true. Returns whether it did.
  static bool Walk(plistDict& top, const std::function<bool(plistDict& holder, const String& key)>& visit);

  std::unique_ptr<plistDict> root_;
  std::optional<FolderItem> copy_;  // the temporary file of a binary document
  bool isRead_ = false;             // false when the file exists but could not be read
};

}  // namespace sumlet
