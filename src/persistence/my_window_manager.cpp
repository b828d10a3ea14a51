#include "persistence/my_window_manager.h"

#include <algorithm>
#include <set>
#include <utility>

#include "framework/text/numbers.h"
#include "framework/text/variant.h"
#include "persistence/preferences.h"
#include "plist/plist_dict.h"

namespace sumlet::MyWindowManager {
namespace {

std::vector<Restorer>& Restorers() {
  static std::vector<Restorer> restorers;
  return restorers;
}

void RestoreWindow(const Record& record) {
  const auto& restorers = Restorers();
  const auto holdsKey = [&record](const Restorer& restorer) { return record.HasItem(restorer.key); };
  const auto restorer = std::find_if(restorers.begin(), restorers.end(), holdsKey);
  if (restorer != restorers.end()) restorer->Restore(record);
}

}  // namespace

Hook<std::vector<const StoredWindow*>()> WindowList;

void RegisterRestorer(Restorer restorer) { RegisterByKey(Restorers(), std::move(restorer)); }

void Restore(KeyList& record) { RestoreWindow(KeyListRecord(record)); }

void RegisterSection() {
  Preferences::RegisterSection(
      {"WindowList", Store, [](std::string_view data) { Load(data); }, [](plistDict& dict) { Load(dict); }});
}

String Store() {
  if (!Preferences::RememberEquations) return {};
  KeyList outer = NewStoredList();
  Int32 index = 0;
  for (const StoredWindow* window : WindowList()) {
    KeyList record = NewStoredList();
    if (window != nullptr) window->StoreRecord(record);
    outer.AddItem(Str(index++), StringToVariant(record.GetData()));
  }
  return outer.GetData();
}

// Each window opens in front of the previous one, so the back one comes first. Suppresses repeated alerts about damaged
// records, but not the alerts of the windows themselves.
void Load(std::string_view data) {
  if (!Preferences::RememberEquations) return;
  KeyList outer;
  outer.AddData(data);
  std::set<String> shown;
  for (Int32 i = outer.ItemCount() - 1; i >= 0; --i) {
    KeyList record;
    {
      const RepeatedAlerts once(shown);
      record.AddData(outer.GetItem(Str(i)));
    }
    Restore(record);
  }
}

void Load(plistDict& dict) {
  if (!Preferences::RememberEquations) return;
  for (Int32 i = dict.count() - 1; i >= 0; --i) RestoreWindow(PropertyListRecord(dict.child(Str(i))));
}

}  // namespace sumlet::MyWindowManager
