// Typed access to the values of a node, and new elements of an array node. A getter stores its default under an absent
// key and then reads it, so that defaults stick. Every getter but GetBoolean and GetColor reads what it can from a
// value of any plain type.
#include <algorithm>
#include <memory>
#include <string_view>

#include "framework/text/array.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace sumlet {

// ---- Checks

bool plistDict::TypeOK(std::string_view key) {
  const String type = GetType(key);
  if (!IsContainer(type)) return true;
  SetError(true, "Illegal Type: " + String(key) + " is a " + type);
  return false;
}

Int32 plistDict::CheckType(std::string_view key, std::string_view type) {
  SetError(false, {});
  if (!Exists(key)) return 2;
  if (SameText(GetType(key), type)) return 1;
  ReportMismatch(key);
  return 0;
}

void plistDict::ReportMismatch(std::string_view key) const {
  SetError(true, "Type Mismatch: " + String(key) + " is a " + GetType(key));
}

// ---- Getters

String plistDict::GetValue(std::string_view key, std::string_view fallback) {
  if (!Exists(key)) SetString(key, fallback);
  SetError(false, {});
  if (!values_.HasKey(String(key))) {
    SetError(true, "Key " + String(key) + " does not exist");
    return {};
  }
  return TypeOK(key) ? VariantToString(values_.Value(String(key))) : String();
}

String plistDict::GetString(std::string_view key, std::string_view fallback) { return GetValue(key, fallback); }

String plistDict::GetData(std::string_view key, std::string_view fallback) { return GetValue(key, fallback); }

bool plistDict::NumberText(std::string_view key, String& text, double& errorValue) {
  SetError(false, {});
  errorValue = 0;
  if (!TypeOK(key)) return false;
  if (SameText(GetType(key), "date")) {
    ReportMismatch(key);
    errorValue = -1;
    return false;
  }
  text = GetValue(key);
  return true;
}

Int32 plistDict::GetInteger(std::string_view key, Int32 fallback) {
  if (!Exists(key)) SetInteger(key, fallback);
  return ToInt32(GetDouble(key));
}

double plistDict::GetDouble(std::string_view key, double fallback) {
  if (!Exists(key)) SetDouble(key, fallback);
  String text;
  double errorValue = 0;
  return NumberText(key, text, errorValue) ? CDbl(text) : errorValue;
}

double plistDict::GetReal(std::string_view key, double fallback) {
  if (!Exists(key)) SetReal(key, fallback);
  return GetDouble(key);
}

bool plistDict::GetBoolean(std::string_view key, bool fallback) {
  if (!Exists(key)) SetBoolean(key, fallback);
  if (CheckType(key, "boolean") == 0) return false;
  return SameText(GetValue(key), "true");
}

// Returns the current time for a text that is no date, as a new Date does.
Date plistDict::GetDate(std::string_view key, const Date& fallback) {
  if (!Exists(key)) SetDate(key, fallback);
  SetError(false, {});
  Date date;
  if (TypeOK(key)) date.SetSQLDateTime(GetValue(key));
  return date;
}

Color plistDict::GetColor(std::string_view key, Color fallback) {
  if (!Exists(key)) SetColor(key, fallback);
  if (CheckType(key, "string") == 0) return {};
  const String text = GetValue(key);
  const auto part = [](std::string_view digits) { return ToInt32(CDbl("&h" + String(digits))); };
  return RGB(part(Left(text, 2)), part(Mid(text, 3, 2)), part(Right(text, 2)));
}

// ---- Setters

void plistDict::Store(std::string_view key, std::string_view type, std::string_view text) {
  values_.SetValue(String(key), String(text));
  types_.SetValue(String(key), String(type));
  searched_.SetValue(String(key), BooleanToVariant(false));
}

void plistDict::StoreChecked(std::string_view key, std::string_view expectedType, std::string_view text,
                             std::string_view type) {
  if (CheckType(key, expectedType) != 0) Store(key, type, text);
}

void plistDict::SetString(std::string_view key, std::string_view text) { StoreChecked(key, "string", text, "string"); }

void plistDict::SetInteger(std::string_view key, double value) {
  StoreChecked(key, "integer", Format(value, "-#"), "integer");
}

void plistDict::SetDouble(std::string_view key, double value) {
  StoreChecked(key, "real", Format(value, "#.#"), "real");
}

void plistDict::SetReal(std::string_view key, double value) {
  StoreChecked(key, "double", Format(value, "#.#"), "real");
}

void plistDict::SetBoolean(std::string_view key, bool value) {
  StoreChecked(key, "boolean", value ? "true" : "false", "boolean");
  indexOf_ = -1;
}

void plistDict::SetDate(std::string_view key, const Date& date) {
  StoreChecked(key, "date", date.SQLDateTime(), "date");
}

void plistDict::SetData(std::string_view key, std::string_view text) { Store(key, "data", text); }

void plistDict::SetColor(std::string_view key, Color color) {
  if (CheckType(key, "string") == 0) return;
  Store(key, "string", Mid(VariantToString(ColorToVariant(color)), 3));
  indexOf_ = -1;
}

// ---- New elements of an array

bool plistDict::CheckArray() {
  SetError(false, {});
  if (!isArray_) SetError(true, name() + " is not an array");
  return isArray_;
}

bool plistDict::AppendKey(std::string_view type, String& key) {
  if (!CheckArray()) return false;
  indexOf_ = count();
  key = Str(indexOf_);
  types_.SetValue(key, String(type));
  return true;
}

void plistDict::AppendValue(std::string_view type, std::string_view text) {
  String key;
  if (AppendKey(type, key)) values_.SetValue(key, String(text));
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

// The new dictionary has an empty name; the new array's name is its key.
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
