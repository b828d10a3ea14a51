// MyWindowManager: the window session. Encodes the open windows as one value of the settings file, and restores them.
//
// Does not depend on any window class. Each window writes its own record. The window classes register restorers, which
// open a window from a record; the key in the record selects the restorer.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "framework/hook.h"
#include "framework/text/text.h"
#include "persistence/key_list.h"
#include "persistence/record.h"

namespace sumlet::MyWindowManager {

// A window with a state to store. For every other window, Store writes an empty record, which Load skips.
class StoredWindow {
 public:
  virtual void StoreRecord(KeyList& record) const = 0;

 protected:
  ~StoredWindow() = default;
};

// Returns all open windows from front to back, including hidden ones; nullptr for a window without a state to store.
// Without a handler, returns none.
extern Hook<std::vector<const StoredWindow*>()> WindowList;

using sumlet::Record;

// Opens a window from each record that contains `key`. If a record contains several keys, the restorer registered first
// wins. Registering a key again replaces its restorer.
struct Restorer {
  String key;
  std::function<void(const Record& record)> Restore;
};
void RegisterRestorer(Restorer restorer);

// Opens a window from a record that StoreRecord has written.
void Restore(KeyList& record);

// Encodes the records of all windows as a KeyList; empty while RememberEquations is off.
[[nodiscard]] String Store();

// Registers the session as a section of the settings file.
void RegisterSection();

// Opens the windows of `data`, the front one last, so that they keep their order. Skips records without a restorer.
// Does nothing while RememberEquations is off.
void Load(std::string_view data);
// The same for the dictionary of an older settings file, with the keys "0", "1" and so on. Look-ups add
// missing keys to `dict`.
void Load(plistDict& dict);

}  // namespace sumlet::MyWindowManager
