// The node tree: children, keys, the cursor, paths, and error reporting.
#include "plist/plist_dict.h"

#include <memory>
#include <utility>
#include <vector>

#include "framework/desktop.h"
#include "framework/fault.h"
#include "framework/text/numbers.h"
#include "plist/plist.h"

namespace sumlet {

bool IsContainer(std::string_view type) { return SameText(type, "dict") || SameText(type, "array"); }

// Retrying would loop for ever when AddChild refuses because the key holds a plain value.
plistDict& plistDict::child(std::string_view key) {
  Int32 index = children_.IndexOf(key);
  if (index == 0) {
    AddChild(key);
    index = children_.IndexOf(key);
  }
  if (index == 0) throw Fault("a recursion without end");
  return children_.At(index);
}

plistDict* plistDict::index(Int32 index) const {
  const Int32 place = children_.IndexOf(Str(index));
  return place == 0 ? nullptr : &children_.At(place);
}

String plistDict::GetType(std::string_view key) const { return VariantToString(types_.Value(String(key))); }

void plistDict::AddChild(std::string_view key) { AddNode(key, false); }

bool plistDict::AddArray(std::string_view key) { return AddNode(key, true); }

bool plistDict::AddNode(std::string_view key, bool asArray) {
  SetError(false, {});
  if (Exists(key)) {
    SetError(true, String(asArray ? "Array" : "Child") + " exists: " + String(key) + " already exists");
    return false;
  }
  types_.SetValue(String(key), asArray ? "array" : "dict");
  const auto shared = std::make_shared<const String>(key);
  NewNode(shared, shared, asArray);
  searched_.SetValue(String(key), BooleanToVariant(false));
  return true;
}

const String& plistDict::name() const {
  static const String none;
  return name_ ? *name_ : none;
}

plistDict& plistDict::NewNode(SharedText key, SharedText name, bool asArray) {
  plistDict& node = children_.Append(std::move(key));
  node.name_ = std::move(name);
  node.isArray_ = asArray;
  node.parent_ = this;
  node.rootClass_ = rootClass_;
  return node;
}

void plistDict::MoveFirst() {
  currentIndex_ = 0;
  eof_ = false;
}

void plistDict::MoveLast() { currentIndex_ = count() - 1; }

void plistDict::MoveNext() {
  if (++currentIndex_ < count()) return;
  currentIndex_ = 0;
  eof_ = true;
}

String plistDict::CurrentKey() {
  if (currentIndex_ >= 0 && currentIndex_ < count()) return VariantToString(types_.Key(currentIndex_));
  currentIndex_ = 0;
  eof_ = true;
  return {};
}

String plistDict::AbsolutePath() const {
  String path = ":" + name();
  BuildPath(parent_, path);
  return path;
}

void plistDict::BuildPath(const plistDict* node, String& path) {
  std::vector<std::string_view> names;
  while (node != nullptr && !SameText(node->name(), "root")) {
    names.push_back(node->name());
    node = node->parent_;
  }
  if (node != nullptr) names.push_back("root");
  String above;
  for (auto name = names.rbegin(); name != names.rend(); ++name) above.append(":").append(*name);
  path.insert(0, above);
}

void plistDict::SetError(bool failed, std::string_view message) const {
  if (rootClass_ == nullptr) return;
  rootClass_->error = failed;
  rootClass_->errorMessage = message;
  if (failed && rootClass_->debug) MsgBox(message);
}

String plistDict::MakeTwo(Int32 n) { return String(n < 10 ? "0" : "").append(Str(n)); }

}  // namespace sumlet
