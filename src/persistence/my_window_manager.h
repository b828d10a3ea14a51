// MyWindowManager: the window session. It turns the open windows into one value of the settings file and back.
//
// It knows no window class. A window writes its own record, and a record is turned back into a window by the restorer
// of the key that it holds; the window folders bring both, the application connects them.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "framework/text/text.h"
#include "framework/text/variant.h"
#include "persistence/key_list.h"

namespace sumlet {
class plistDict;
}  // namespace sumlet

namespace sumlet::MyWindowManager {

// A window that has something to store. A window of any other class leaves an empty record, which keeps its place.
class StoredWindow {
 public:
  virtual void StoreRecord(KeyList& record) const = 0;

 protected:
  ~StoredWindow() = default;
};

// All open windows front to back, hidden ones included; nullptr for one that has nothing to store.
using WindowList = std::function<std::vector<const StoredWindow*>()>;
void SetWindowList(WindowList list);

// The record of one window as it is read, whatever file it comes from.
class Record {
 public:
  virtual ~Record() = default;
  [[nodiscard]] virtual bool HasItem(std::string_view key) const = 0;
  // The stored value, or `fallback` when the record does not have it whole.
  [[nodiscard]] virtual Variant LoadItem(std::string_view key, const Variant& fallback) const = 0;
};

// Opens the window of a record that holds `key`. Of several restorers the one registered first is asked first;
// one registered under a key that is there takes that one's place.
struct Restorer {
  String key;
  std::function<void(const Record& record)> Restore;
};
void RegisterRestorer(Restorer restorer);

// Opens the window of one record, as StoreRecord has filled it.
void Restore(KeyList& record);

// The records of all windows as a KeyList byte string; empty while RememberEquations is off.
[[nodiscard]] String Store();

// Makes the session a section of the settings file.
void RegisterSection();

// Opens the windows of `data`, the front one last, so that they stand in their old order. Does nothing while
// RememberEquations is off. Records of unknown windows are passed over.
void Load(std::string_view data);
// The same from the dictionary of an older settings file, whose keys are "0", "1" and so on. Adds those that are
// missing.
void Load(plistDict& dict);

}  // namespace sumlet::MyWindowManager
