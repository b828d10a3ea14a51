// Preferences: the settings, and the settings file, which holds them and the sections that other modules register: the
// templates and the window session.
//
// The program reads the file once, at start, and writes all of it on each save. docs/settings-format.md describes it.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"

namespace sumlet {
class plist;
class plistDict;
}  // namespace sumlet

namespace sumlet::Preferences {

inline constexpr Int32 defaultTextSize = 13;  // points

extern Int32 RunCount;          // the number of runs that have saved, as read at start
extern bool TemplatesOpen;      // the template chooser is open
extern Int32 TextSize;          // of new equation windows, in points; as stored: may be below 1 or above 1000
extern bool RememberEquations;  // restore the open equations at the next start
extern bool ShownReviewDialog;  // the review prompt has been shown
extern bool ShowLineValues;     // beside the lines of equations; stored only while it is set

// A part of the file that another module owns. Sections are written and read in the order of registration. Registering
// a key again replaces its section.
struct Section {
  String key;
  std::function<String()> Store;                    // returns the value to write
  std::function<void(std::string_view data)> Load;  // `data` is empty if the file has no such section
  std::function<void(plistDict& dict)> LoadOlder;   // called instead of Load if the older file is read
};
void RegisterSection(Section section);

// The path of the settings file, which need not exist. With `create`, creates its folder. Returns nothing if the folder
// does not exist or cannot be created.
[[nodiscard]] std::optional<FolderItem> GetPrefFile(bool create);

// The older settings file, a property list; nullptr unless Load has tried to read it. Only Load uses it.
extern std::unique_ptr<plist> pref;

// Reads the recovery file, if there is one, or else the settings file. Missing values take their defaults; KeyList
// reports damage by MsgBox. If the settings file does not exist or cannot be opened, reads the older file, which is
// never written, and does not report damage to it.
void Load();

// Overwrites the file, and flushes it in the background. Does not report failure.
void Save();

// Writes the recovery file (recovery.h) in the background. Returns false, and does nothing, while an earlier write is
// running; call it again later.
[[nodiscard]] bool SaveRecovery();
[[nodiscard]] bool HasRecovery();

// Blocks until all saves have reached the disk. Call it before the program ends.
void FinishSaving();

}  // namespace sumlet::Preferences

namespace sumlet {

// Adds an entry to a list that has one entry for each key, in the order of registration. `Entry` has a member `key`.
// Replaces an entry with the same key, compared by bytes, at its position.
template <typename Entry>
void RegisterByKey(std::vector<Entry>& entries, Entry entry) {
  const auto place =
      std::find_if(entries.begin(), entries.end(), [&](const Entry& other) { return other.key == entry.key; });
  if (place != entries.end())
    *place = std::move(entry);
  else
    entries.push_back(std::move(entry));
}

}  // namespace sumlet
