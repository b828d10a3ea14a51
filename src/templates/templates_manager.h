// TemplatesManager: the named templates from which a new equation can start.
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

// Key[i] is the name of the text EquationText[i], in the order added. Names need not be unique.
extern Array<String> Key;
extern Array<String> EquationText;

// Adds a template. If one with this name exists, ignoring case, asks whether to replace the text of the first one, to
// cancel, or to add another.
void Add(std::string_view name, std::string_view equation);

// The index is 0-based; throws a Fault if it is out of range. Insert adds a template before that one, or at the end,
// without asking.
void Insert(Int32 index, std::string_view name, std::string_view equation);
void Remove(Int32 index);
void Rename(Int32 index, std::string_view name);

// Calls `listener` after each change by the functions above, until the caller releases the returned handle.
using Subscription = std::shared_ptr<const std::function<void()>>;
[[nodiscard]] Subscription NotifyOfChanges(std::function<void()> listener);

// Registers the templates as a section of the settings file.
void RegisterSection();

// Encodes all templates as a KeyList.
[[nodiscard]] String Store();

// Replaces all templates by those of `data`. Skips records without a name or a text. KeyList reports damage by MsgBox.
// Adds two examples if the settings have never been saved.
void Load(std::string_view data);
// The same for the dictionary of an older settings file, with the keys "0", "1" and so on. Look-ups add
// missing keys to `dict`.
void Load(plistDict& dict);

}  // namespace sumlet::TemplatesManager
