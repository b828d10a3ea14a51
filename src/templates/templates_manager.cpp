#include "templates/templates_manager.h"

#include <set>
#include <utility>
#include <vector>

#include "framework/desktop.h"
#include "framework/text/bytes.h"
#include "framework/text/numbers.h"
#include "framework/text/variant.h"
#include "persistence/key_list.h"
#include "persistence/preferences.h"
#include "plist/plist_dict.h"

namespace sumlet::TemplatesManager {

Array<String> Key;
Array<String> EquationText;

namespace {

std::vector<std::weak_ptr<const std::function<void()>>>& Listeners() {
  static std::vector<std::weak_ptr<const std::function<void()>>> listeners;
  return listeners;
}

// Iterates over a copy, because a listener may subscribe another one.
void Notify() {
  for (const auto& listener : std::vector(Listeners()))
    if (const Subscription called = listener.lock()) (*called)();
}

void Append(std::string_view name, String equation) {
  EquationText.Append(std::move(equation));
  Key.Append(String(name));
}

void Clear() {
  EquationText.Redim(-1);
  Key.Redim(-1);
}

// Adds the examples only before the first save ever, so that deleted examples do not come back.
void AddDefaults() {
  if (Preferences::RunCount != 0) return;
  Append("Variables Example", ReplaceLineEndings("# You can use multiple variables\nx=2\ny=x+2\ny+2", EndOfLine));
  Append("Function Example",
         ReplaceLineEndings("# See Help menu for more functions \n\ny=max(ceil(30.9),30)", EndOfLine));
}

}  // namespace

void Add(std::string_view name, std::string_view equation) {
  const Int32 index = IndexOf(Key, name);
  if (index >= 0) {
    MessageDialog question;
    question.Message = "A template with this name already exists. Would you like to replace it?";
    question.ActionButton = "Replace";
    question.CancelButton = true;
    question.AlternateActionButton = "Save as New";
    const DialogButton answer = question.ShowModal();
    if (answer == DialogButton::Cancel) return;
    if (answer == DialogButton::Action) {
      EquationText[index] = equation;
      Notify();
      return;
    }
  }
  Append(name, String(equation));
  Notify();
}

void Insert(Int32 index, std::string_view name, std::string_view equation) {
  Key.Insert(index, String(name));
  EquationText.Insert(index, String(equation));
  Notify();
}

void Remove(Int32 index) {
  EquationText.Remove(index);
  Key.Remove(index);
  Notify();
}

void Rename(Int32 index, std::string_view name) {
  Key[index] = name;
  Notify();
}

Subscription NotifyOfChanges(std::function<void()> listener) {
  std::erase_if(Listeners(), [](const auto& other) { return other.expired(); });
  auto subscription = std::make_shared<const std::function<void()>>(std::move(listener));
  Listeners().push_back(subscription);
  return subscription;
}

void RegisterSection() {
  Preferences::RegisterSection(
      {"TemplateList", Store, [](std::string_view data) { Load(data); }, [](plistDict& dict) { Load(dict); }});
}

String Store() {
  KeyList outer = NewStoredList();
  for (Int32 i = 0; i <= EquationText.Ubound(); ++i) {
    KeyList record = NewStoredList();
    record.AddItem("equation", StringToVariant(EncodeURLComponent(EquationText[i])));
    record.AddItem("name", StringToVariant(Key[i]));
    outer.AddItem(Str(i), StringToVariant(record.GetData()));
  }
  return outer.GetData();
}

void Load(std::string_view data) {
  Clear();
  KeyList outer;
  outer.AddData(data);
  std::set<String> shown;
  const RepeatedAlerts once(shown);
  for (Int32 i = 0; i < outer.ItemCount(); ++i) {
    KeyList record;
    record.AddData(outer.GetItem(Str(i)));
    const String equation = record.GetItem("equation");
    const String name = record.GetItem("name");
    if (!equation.empty() && !name.empty()) Append(name, DecodeURLComponent(equation));
  }
  AddDefaults();
}

void Load(plistDict& dict) {
  Clear();
  const Int32 count = dict.count();
  for (Int32 i = 0; i < count; ++i) {
    plistDict& record = dict.child(Str(i));
    if (record.Exists("equation") && record.Exists("name"))
      Append(record.GetString("name"), DecodeURLComponent(record.GetString("equation")));
  }
  AddDefaults();
}

}  // namespace sumlet::TemplatesManager
