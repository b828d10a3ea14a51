// New elements of an array node, and whole lists of text.
#include <algorithm>

#include "framework/text/numbers.h"
#include "plist/plist_dict.h"

namespace sumlet {

bool plistDict::CheckArray() {
  SetError(false, {});
  if (!isArray_) SetError(true, name() + " is not an array");
  return isArray_;
}

bool plistDict::AppendKey(std::string_view word, String& key) {
  if (!CheckArray()) return false;
  indexOf_ = count();
  key = Str(indexOf_);
  types_.SetValue(key, String(word));
  return true;
}

void plistDict::AppendValue(std::string_view word, std::string_view text) {
  String key;
  if (AppendKey(word, key)) values_.SetValue(key, String(text));
}

void plistDict::AppendString(std::string_view text) { AppendValue("string", text); }

void plistDict::AppendData(std::string_view text) { AppendValue("data", text); }

void plistDict::AppendInteger(Int32 value) { AppendValue("integer", Str(value)); }

void plistDict::AppendDouble(double value) { AppendValue("double", Str(value)); }

void plistDict::AppendBoolean(bool value) { AppendValue("boolean", value ? "true" : "false"); }

void plistDict::AppendDate(const Date& date) {
  AppendValue("date", Str(date.Year) + "-" + MakeTwo(date.Month) + "-" + MakeTwo(date.Day) + "T" + MakeTwo(date.Hour) +
                          ":" + MakeTwo(date.Minute) + ":" + MakeTwo(date.Second) + "Z");
}

void plistDict::AppendColor(Color color) { AppendValue("string", Hex(color.Red) + Hex(color.Green) + Hex(color.Blue)); }

// The new dictionary has no name of its own; the new array has its key.
void plistDict::AppendDict() {
  String key;
  if (AppendKey("dict", key)) NewNode(std::make_shared<const String>(key), {}, false);
}

void plistDict::AppendArray() {
  String key;
  if (!AppendKey("array", key)) return;
  const auto shared = std::make_shared<const String>(key);
  NewNode(shared, shared, true);
}

// ---- Lists

void plistDict::AppendTexts(const Array<String>& list, Int32 first, Int32 last) {
  for (Int32 i = std::max(first, 0); i <= std::min(last, list.Ubound()); ++i) AppendString(list[i]);
}

void plistDict::SetList(std::string_view key, const Array<String>& list, Int32 first, Int32 last) {
  if (Exists(key)) RemoveKey(key);
  if (AddArray(key)) child(key).AppendTexts(list, std::min(first, list.Ubound()), last);
}

void plistDict::GetList(std::string_view key, Array<String>& list, bool keepFirst) {
  list.Redim(-1);
  if (keepFirst) list.Append({});
  plistDict& elements = child(key);
  const Int32 count = elements.count();
  for (Int32 i = 0; i < count; ++i) list.Append(elements.GetString(Str(i)));
}

void plistDict::AppendList(const Array<String>& list, Int32 first, Int32 last) {
  if (!CheckArray()) return;
  AppendArray();
  child(Str(count() - 1)).AppendTexts(list, std::min(first, list.Ubound()), last);
}

}  // namespace sumlet
