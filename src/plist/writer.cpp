// Writes the tree as the lines of a property list: to a file, or to the clipboard for debugging.
//
// Both use one traversal. A file has each container's lines between its opening and its closing tag; the clipboard gets
// the text of a node when the node is finished, after that of its children. The traversal keeps its levels on a stack
// of its own, because a deep tree would exhaust the call stack.
#include <algorithm>
#include <cstddef>
#include <deque>
#include <string_view>
#include <vector>

#include "framework/desktop.h"
#include "framework/file/text_streams.h"
#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace sumlet {

class plistDict::Writer {
 public:
  enum class Order { Nested, ChildrenFirst };
  Writer(TextOutputStream& stream, Order order) : stream_(stream), order_(order) {}
  void Write(const plistDict& node, Int32 indent);

 private:
  struct Level {
    Level(const plistDict& toWrite, std::string_view lineEnding) : node(toWrite), own(lineEnding) {}

    const plistDict& node;
    TextOutputStream own;  // the node's lines, when those of its children precede them
    Int32 nextKey = 0;
    std::vector<Int32> containers;  // children of the current key, not yet written
    String openTag;                 // of the child being written; empty if none
  };

  void Step(Level& level);
  void WriteKey(Level& level, const String& key);
  void WriteLeaf(Level& level, const String& key, const String& type);
  void WriteContainer(Level& level);
  void Line(Level& level, std::string_view text) {
    (order_ == Order::Nested ? stream_ : level.own).WriteLine(tabs_, text);
  }
  void Finish(Level& level);

  TextOutputStream& stream_;
  Order order_;
  std::deque<Level> levels_;  // outer to inner; references to them stay valid while one is added
  String tabs_;               // of the innermost level
};

void plistDict::Writer::Write(const plistDict& node, Int32 indent) {
  tabs_.assign(static_cast<std::size_t>(std::max(indent, 0)), '\t');
  levels_.emplace_back(node, stream_.LineEnding());
  while (!levels_.empty() && !stream_.Overflowed()) Step(levels_.back());
}

void plistDict::Writer::Step(Level& level) {
  if (!level.openTag.empty()) {
    Line(level, "</" + level.openTag + ">");
    level.openTag.clear();
  } else if (!level.containers.empty()) {
    WriteContainer(level);
  } else if (level.nextKey < level.node.count()) {
    WriteKey(level, VariantToString(level.node.types_.Key(level.nextKey++)));
  } else {
    Finish(level);
  }
}

void plistDict::Writer::WriteKey(Level& level, const String& key) {
  if (!level.node.isArray_) {
    Line(level, "<key>" + key + "</key>");
    if (order_ == Order::ChildrenFirst) Line(level, level.node.searched_.HasKey(key) ? "<search/>" : "<nosearch/>");
  }
  const String type = level.node.GetType(key);
  if (!IsContainer(type)) {
    WriteLeaf(level, key, type);
    return;
  }
  level.containers = level.node.children_.IndexesOf(key);
  std::reverse(level.containers.begin(), level.containers.end());
}

void plistDict::Writer::WriteLeaf(Level& level, const String& key, const String& type) {
  const String value = BracketsToCode(VariantToString(level.node.values_.Lookup(key, Variant(""))));
  if (SameText(type, "boolean")) {
    Line(level, SameText(value, "true") ? "<true/>" : "<false/>");
  } else if (SameText(type, "data")) {
    Line(level, "<data>");
    Line(level, value);
    Line(level, "</data>");
  } else {
    Line(level, "<" + type + ">" + value + "</" + type + ">");
  }
}

// The type of the key, which all its children share, decides what the child is.
void plistDict::Writer::WriteContainer(Level& level) {
  const Int32 index = level.containers.back();
  level.containers.pop_back();
  const plistDict& child = level.node.children_.At(index);
  const String type = Lowercase(level.node.GetType(level.node.children_.NameAt(index)));
  if (child.count() == 0) {
    Line(level, "<" + type + "/>");
    return;
  }
  Line(level, "<" + type + ">");
  level.openTag = type;
  tabs_ += '\t';
  levels_.emplace_back(child, stream_.LineEnding());
}

void plistDict::Writer::Finish(Level& level) {
  if (order_ == Order::ChildrenFirst) stream_.Add(level.own);
  if (!tabs_.empty()) tabs_.pop_back();
  levels_.pop_back();
}

void plistDict::Write(TextOutputStream& stream, Int32 indent) const {
  Writer(stream, Writer::Order::Nested).Write(*this, indent);
}

void plistDict::Dump(Int32 indent) const {
  TextOutputStream stream("\r");
  Writer(stream, Writer::Order::ChildrenFirst).Write(*this, indent);
  SetClipboardText(ClipboardText() + stream.Content());
}

String plistDict::BracketsToCode(std::string_view text) {
  return ReplaceAll(ReplaceAll(text, "<", "&lt;"), ">", "&gt;");
}

}  // namespace sumlet
