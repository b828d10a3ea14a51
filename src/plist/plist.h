// plist: a property list, read from a file into a tree of plistDict nodes, and written back.
//
// The files it is meant for have one pair of tags a line, indented with tabs, as the tools of macOS write them.
// A binary one is converted by such a tool. Failures are told by `error` and `errorMessage`.
#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "framework/file/folder_item.h"
#include "framework/text/array.h"
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
  Array<String> headers;           // the lines ahead of the keys, from index 1 on
  bool isBinary = false;           // the file was binary when it was read
  std::optional<FolderItem> org;   // the binary file; savePath is then that of its converted copy
  bool debug = false;              // every error of a node is shown in a message
  plistDict* foundDict = nullptr;  // where the last search found something; nullptr for nowhere, or when that node
  String foundKey;                 // has been removed
  String foundValue;
  String foundType;
  String lastSearch;  // the text given to Find
  // Part of the document's interface, and without a meaning.
  bool brk = false;
  bool findingNext = false;
  Int32 untitled = 0;

  // Drops the tree and reads the file anew. A file that does not exist gives an empty document and
  // "... does not exist"; one that is no property list, cannot be read or is larger than 8 MiB gives an empty tree and
  // "Not a plist file". One that is cut short gives what it holds, without an error.
  void Load(const FolderItem& file, const std::optional<FolderItem>& fallback);

  // Deletes the converted copy of a binary file, which is deleted with the document otherwise.
  void Cleanup();

  // Writes the document to savePath, and a binary one from there over the file it came from, as binary where the tool
  // for it exists. "Could not open file for saving" when savePath cannot be written; it is then unchanged, but the file
  // of a binary document is deleted all the same. The same error, and nothing is touched, for a document whose file
  // could not be read at all.
  void Save(bool cleanup = false);
  // The same, and hides the file. `file` is not looked at.
  void SaveAsInvisible(const FolderItem& file, bool cleanup = false);

  // Puts the text of the document on the clipboard; an aid for looking into it.
  void Dump() const;

  // Searches the values of all plain keys for a text, without regard to case, and sets the found fields to the first
  // key that has it. FindNext goes on behind it; with another text than Find's it begins anew at each call. A Fault in
  // a tree where an array of containers has lost an element, since its children no longer stand under their keys; this
  // holds for ClearSearch, too.
  bool Find(std::string_view text);
  bool FindNext(std::string_view text);
  // Marks all plain keys of the node and below as not reported yet.
  static void ClearSearch(plistDict& node);

 private:
  friend class plistDict;  // forgets a found node that goes

  void LoadNew();
  void ReadFrom(TextInputStream& stream, String line);
  std::optional<TextInputStream> OpenConverted(const FolderItem& source);
  void WriteTo(TextOutputStream& stream) const;
  [[nodiscard]] bool WriteFile() const;
  void SaveAs(bool visible, bool cleanup);
  void SaveBinary(bool visible);
  enum class SearchMode { Values, Keys };
  bool ReadStructure(plistDict& node, std::string_view text, SearchMode mode);
  // Calls visit for each plain key of `top` and below until it gives true, and says whether it did.
  static bool Walk(plistDict& top, const std::function<bool(plistDict& holder, const String& key)>& visit);

  std::unique_ptr<plistDict> root_;
  std::optional<FolderItem> copy_;  // the temporary file of a binary document
  bool isRead_ = false;             // the file has been read, or does not exist
};

}  // namespace sumlet
