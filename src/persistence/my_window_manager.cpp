#include "persistence/my_window_manager.h"

#include <algorithm>
#include <set>
#include <utility>

#include "framework/text/numbers.h"
#include "persistence/preferences.h"
#include "persistence/repeated_alerts.h"

namespace sumlet::MyWindowManager {
namespace {

WindowList& Windows() {
  static WindowList windows;
  return windows;
}

std::vector<Restorer>& Restorers() {
  static std::vector<Restorer> restorers;
  return restorers;
}

KeyList NewList() {
  KeyList list;
  list.BinaryFormat = true;
  list.OptimizeBinaryLengthData = true;
  return list;
}

class KeyListRecord final : public Record {
 public:
  explicit KeyListRecord(KeyList& list) : list_(list) {}
  [[nodiscard]] bool HasItem(std::string_view key) const override { return list_.HasItem(key); }
  [[nodiscard]] Variant LoadItem(std::string_view key, const Variant& fallback) const override {
    return Preferences::LoadItem(list_, key, fallback);
  }

 private:
  KeyList& list_;
};

void RestoreWindow(const Record& record) {
  const auto& restorers = Restorers();
  const auto holdsKey = [&record](const Restorer& restorer) { return record.HasItem(restorer.key); };
  const auto restorer = std::find_if(restorers.begin(), restorers.end(), holdsKey);
  if (restorer != restorers.end()) restorer->Restore(record);
}

}  // namespace

void SetWindowList(WindowList list) { Windows() = std::move(list); }

void RegisterRestorer(Restorer restorer) { Restorers().push_back(std::move(restorer)); }

String Store() {
  if (!Preferences::RememberEquations) return {};
  KeyList outer = NewList();
  Int32 index = 0;
  for (const StoredWindow* window : Windows()()) {
    KeyList record = NewList();
    if (window != nullptr) window->StoreRecord(record);
    outer.AddItem(Str(index++), StringToVariant(record.GetData()));
  }
  return outer.GetData();
}

// Each window opens in front of those before it, so the back one comes first. What a window itself has to tell is none
// of the damage to the records, and is told each time.
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
    RestoreWindow(KeyListRecord(record));
  }
}

}  // namespace sumlet::MyWindowManager
