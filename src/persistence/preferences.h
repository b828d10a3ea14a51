// Preferences: the settings, and the one file in which everything lies that outlives a run: the settings themselves and
// the sections, the templates and the window session, that other modules register.
//
// The file is read once at start and written whole on each save. docs/settings-format.md draws it.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string_view>

#include "framework/file/folder_item.h"
#include "framework/text/text.h"
#include "framework/text/variant.h"
#include "persistence/key_list.h"

namespace sumlet {
class plist;
class plistDict;
}  // namespace sumlet

namespace sumlet::Preferences {

inline constexpr Int32 defaultTextSize = 13;  // points

extern Int32 RunCount;          // how many runs have saved; the value read at start, unchanged during a run
extern bool TemplatesOpen;      // the template chooser is open
extern Int32 TextSize;          // of new equation windows, in points; as stored, also where that is out of 1 to 1000
extern bool RememberEquations;  // the open equations come back at the next start
extern bool ShownReviewDialog;  // the review prompt has been shown
extern bool ShowLineValues;     // beside the lines of equations; stored only while it is set

// A part of the file that another module owns. Sections are written, and read, in the order of their registration;
// one registered under a key that is there takes that one's place.
struct Section {
  String key;
  std::function<String()> Store;                    // the value to be written
  std::function<void(std::string_view data)> Load;  // takes the value read; empty when the file has none
  std::function<void(plistDict& dict)> LoadOlder;   // takes the place of Load when there is no settings file
};
void RegisterSection(Section section);

// The path of the settings file, which need not exist. Nothing when its folders are not there and, with `create`,
// cannot be made either.
[[nodiscard]] std::optional<FolderItem> GetPrefFile(bool create);

// The older settings file, a property list, when Load has read it. Kept to the end of the program and read by nothing.
extern std::unique_ptr<plist> pref;

// Reads the file, or the recovery file where there is one, into the settings and the sections. What is missing takes
// its default; MsgBox reports damage in the words of KeyList. Where there is no file, or it cannot be opened, reads the
// older one, which is never written; where that is missing, too, everything takes its default. Damage there is not
// reported.
void Load();

// Writes the file anew. Where that is not possible it does nothing and says nothing. Flushes the file in the
// background.
void Save();

// Writes the recovery file (recovery.h), in the background. False while an earlier write is under way: call it again
// later.
[[nodiscard]] bool SaveRecovery();
[[nodiscard]] bool HasRecovery();

// Waits until what has been saved is on the disk. Call it before the program ends.
void FinishSaving();

// The value of `key`, or `fallback` when the list does not have it whole. What a list has is text.
[[nodiscard]] Variant LoadItem(KeyList& list, std::string_view key, const Variant& fallback);
// The same from the dictionary of an older settings file, whose values have types: that of `fallback`, a text, an Int32
// or a Boolean, is the one wanted. Adds the key when it is missing.
[[nodiscard]] Variant LoadItem(plistDict& dict, std::string_view key, const Variant& fallback);

}  // namespace sumlet::Preferences
