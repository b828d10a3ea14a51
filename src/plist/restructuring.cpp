// Removes, moves, copies and renames keys.
#include <string_view>
#include <vector>

#include "framework/fault.h"
#include "framework/text/numbers.h"
#include "framework/text/text.h"
#include "plist/plist.h"

namespace sumlet {

// ---- Removing

void plistDict::Remove(const Variant& key) {
  const bool isElement = IsNumeric(key) && VarType(key) != VariantType::Text;
  if (isElement) {
    RemoveElement(VariantToInt32(key));
  } else {
    RemoveKey(VariantToString(key));
  }
}

void plistDict::RemoveKey(std::string_view key) {
  values_.Remove(String(key));
  types_.Remove(String(key));
  const std::vector<Int32> indexes = children_.IndexesOf(key);
  if (!indexes.empty()) RemoveChild(indexes.back());
}

// Assumes that an array with a container in it holds nothing else, so that element i is child i + 1. Keeps the names of
// the children after it.
void plistDict::RemoveElement(Int32 index) {
  if (!CheckArray()) return;
  const Int32 last = count() - 1;
  if (index < 0 || index > last) SetError(true, "Subscript out of range");
  if (IsContainer(GetType(Str(index)))) RemoveChild(index + 1);
  values_.Remove(Str(index));
  // A type that the next one overwrites keeps the position of its key.
  if (index >= last || !Exists(Str(index + 1))) types_.Remove(Str(index));
  for (Int32 j = index + 1; j <= last; ++j) {
    const String key = Str(j);
    if (!Exists(key)) continue;
    const String below = Str(j - 1);
    const String type = GetType(key);
    types_.SetValue(below, type);
    if (!IsContainer(type)) values_.SetValue(below, values_.Lookup(key, Variant("")));
  }
  values_.Remove(Str(last));
  types_.Remove(Str(last));
}

void plistDict::RemoveChild(Int32 index) {
  if (rootClass_ != nullptr && children_.At(index).Contains(rootClass_->foundDict)) rootClass_->foundDict = nullptr;
  children_.Remove(index);
}

// Whether `node` is this one or lies below it.
bool plistDict::Contains(const plistDict* node) const {
  while (node != nullptr && node != this) node = node->parent_;
  return node == this;
}

// ---- Moving

void plistDict::Move(std::string_view key, plistDict* destination, bool remove, std::string_view newKey) {
  SetError(false, {});
  if (destination == nullptr) {
    SetError(true, "Destination is nil");
    return;
  }
  if (!Exists(key)) {
    SetError(true, "Source does not exist.");
    return;
  }
  if (IsContainer(GetType(key)) && child(key).Contains(destination)) throw Fault("a recursion without end");
  if (plistDict* copy = Transfer(key, *destination, newKey.empty() ? key : newKey)) {
    plistDict& source = child(key);
    if (source.Contains(copy) || copy->Contains(&source)) throw Fault("a recursion without end");
    CopyKeys(source, *copy);
  }
  if (remove) RemoveKey(key);
}

// Terminates because source and destination have no node in common. Keeps the levels on a stack of its own, because a
// deep tree would exhaust the call stack. Each source's cursor marks where to resume.
void plistDict::CopyKeys(plistDict& source, plistDict& destination) {
  struct Level {
    plistDict& source;
    plistDict& destination;
  };
  std::vector<Level> levels;
  const auto enter = [&levels](plistDict& from, plistDict& to) {
    from.MoveFirst();
    if (from.count() > 0) levels.push_back({from, to});
    return from.count() > 0;
  };
  enter(source, destination);
  while (!levels.empty()) {
    const Level level = levels.back();
    if (level.source.eof()) {
      levels.pop_back();
      if (!levels.empty()) levels.back().source.MoveNext();
      continue;
    }
    const String key = level.source.CurrentKey();
    level.source.SetError(false, {});
    plistDict* copy = level.source.Transfer(key, level.destination, key);
    if (copy == nullptr || !enter(level.source.child(key), *copy)) level.source.MoveNext();
  }
}

// Returns a new, empty dictionary for the caller to fill when the key holds a container, otherwise nullptr. For an
// array destination that is a node created by looking it up, after the appended element, which stays empty.
plistDict* plistDict::Transfer(std::string_view key, plistDict& destination, std::string_view target) {
  const String type = GetType(key);
  const bool append = destination.isArray_;
  if (IsContainer(type)) {
    if (append) {
      destination.AppendDict();
      return &destination.child(Str(destination.count()));
    }
    destination.AddChild(target);
    return &destination.child(target);
  }
  if (SameText(type, "string")) {
    append ? destination.AppendString(GetString(key)) : destination.SetString(target, GetString(key));
  } else if (SameText(type, "boolean")) {
    append ? destination.AppendBoolean(GetBoolean(key)) : destination.SetBoolean(target, GetBoolean(key));
  } else if (SameText(type, "real")) {
    append ? destination.AppendDouble(GetDouble(key)) : destination.SetDouble(target, GetDouble(key));
  } else if (SameText(type, "integer")) {
    append ? destination.AppendInteger(GetInteger(key)) : destination.SetInteger(target, GetInteger(key));
  } else if (SameText(type, "data")) {
    append ? destination.AppendData(GetString(key)) : destination.SetData(target, GetString(key));
  } else if (SameText(type, "date")) {
    append ? destination.AppendDate(GetDate(key)) : destination.SetDate(target, GetDate(key));
  }
  return nullptr;
}

void plistDict::Rename(std::string_view key, std::string_view newKey) {
  SetError(false, {});
  if (Exists(newKey)) {
    SetError(true, "Key " + String(newKey) + " already exists.");
    return;
  }
  Move(key, this, true, newKey);
}

}  // namespace sumlet
