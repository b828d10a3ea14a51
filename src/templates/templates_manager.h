// TemplatesManager: the named texts that a new equation can start from.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "framework/text/array.h"
#include "framework/text/text.h"

namespace sumlet {
class plistDict;
}  // namespace sumlet

namespace sumlet::TemplatesManager {

// Element i of Key names the text in element i of EquationText. The order is that of adding. Names need not be unique.
extern Array<String> Key;
extern Array<String> EquationText;

// Adds a template. When one of this name exists, in whatever case, asks whether to replace the text of the first such,
// to cancel, or to add a second one.
void Add(std::string_view name, std::string_view equation);

// The index is 0-based; a Fault when there is no such template. Insert adds a template ahead of that one, or behind all
// others, and asks nothing.
void Insert(Int32 index, std::string_view name, std::string_view equation);
void Remove(Int32 index);
void Rename(Int32 index, std::string_view name);

// Calls `listener` after each change by the functions above, until the caller drops the returned handle.
using Subscription = std::shared_ptr<const std::function<void()>>;
[[nodiscard]] Subscription NotifyOfChanges(std::function<void()> listener);

// Makes the templates a section of the settings file.
void RegisterSection();

// All templates as a KeyList byte string.
[[nodiscard]] String Store();

// Replaces all templates by those of `data`; a record without name or text is passed over. Damage is told by MsgBox in
// words of KeyList. Before the first save ever, two examples are added.
void Load(std::string_view data);
// The same from the dictionary of an older settings file, whose keys are "0", "1" and so on. Adds those that are
// missing.
void Load(plistDict& dict);

}  // namespace sumlet::TemplatesManager
