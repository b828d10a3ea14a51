// Helpers for tests of stored data: they collect alerts, write lists in short, and print the templates and windows that
// loading results in.
#pragma once

#include <initializer_list>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "framework/desktop.h"
#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "persistence/key_list.h"
#include "persistence/my_window_manager.h"
#include "persistence/preferences.h"
#include "templates/templates_manager.h"

namespace sumlet {

// The alerts that `action` shows.
template <typename Action>
std::vector<String> AlertsOf(Action action) {
  std::vector<String> texts;
  const HookGuard alerts = MsgBox.Set([&texts](std::string_view text) { texts.emplace_back(text); });
  action();
  return texts;
}

inline std::vector<String> UnknownFormats(const std::vector<const char*>& numbers) {
  std::vector<String> texts;
  for (const char* number : numbers) texts.push_back(String("Critical err: Input Format unknown: ") + number);
  return texts;
}

using Items = std::vector<std::pair<String, String>>;

inline String Bytes(const Items& items, bool optimized = true) {
  KeyList list;
  list.BinaryFormat = true;
  list.OptimizeBinaryLengthData = optimized;
  for (const auto& [key, value] : items) list.AddItem(key, value);
  return list.GetData();
}

// Reads the pieces one after the other as a binary list.
inline KeyList ReadList(std::initializer_list<std::string_view> pieces) {
  KeyList list;
  list.BinaryFormat = true;
  for (const std::string_view piece : pieces) list.AddData(piece);
  return list;
}

inline Items ItemsOf(const KeyList& list) {
  Items items(static_cast<std::size_t>(list.ItemCount()));
  for (Int32 i = 0; auto& [key, value] : items) list.BinGetItem(i++, key, value);
  return items;
}

// A window that stores these items as its record.
struct FakeWindow final : MyWindowManager::StoredWindow {
  explicit FakeWindow(Items items) : fields(std::move(items)) {}
  [[nodiscard]] bool operator==(const FakeWindow& other) const { return fields == other.fields; }
  void StoreRecord(KeyList& record) const override {
    for (const auto& [key, value] : fields) record.AddItem(key, value);
  }
  Items fields;
};

// All templates, each as "[name=text]".
inline String Templates() {
  String text;
  for (Int32 i = 0; i <= TemplatesManager::Key.Ubound(); ++i)
    text += "[" + TemplatesManager::Key[i] + "=" + TemplatesManager::EquationText[i] + "]";
  return text;
}

// The windows that loading has opened, in this order, each as "[text@left]" or "[chooser]".
inline String opened;

inline void RestoreEquation(const MyWindowManager::Record& record) {
  opened += "[" + DecodeURLComponent(record.GetString("equation", {}));
  opened += "@" + Str(record.GetInteger("left", 20));
  opened += record.GetBoolean("fullscreen", false) ? " full]" : "]";
}

// Shows an alert that is not about damage.
inline void RestoreChooser(const MyWindowManager::Record& /*record*/) {
  opened += "[chooser]";
  MsgBox("chooser");
}

// Registers both sections, and restorers that append to `opened`.
inline void RegisterStores() {
  TemplatesManager::RegisterSection();
  MyWindowManager::RegisterSection();
  MyWindowManager::RegisterRestorer({"template", RestoreChooser});
  MyWindowManager::RegisterRestorer({"equation", RestoreEquation});
}

// The bytes of the first hexadecimal block behind `heading` in docs/settings-format.md.
String PageBytes(std::string_view heading);

}  // namespace sumlet
