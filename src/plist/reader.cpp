// The line-wise reader of property lists.
//
// This is not an XML parser. It reads one line after the other, takes the text between two tags as a value, and expects
// the layout of the macOS tools: one pair of tags a line, indented with tabs. The rules below also define the result
// for other layouts, and callers rely on it. The reader decodes only "&lt;" and "&gt;", and the writer encodes only
// these.
//
// Containers nest as deep as the file does. The reader keeps the levels on a stack of its own, because files of a few
// megabytes would exhaust the call stack.
#include <cstddef>
#include <deque>
#include <memory>
#include <string_view>
#include <utility>

#include "framework/fault.h"
#include "framework/text/array.h"
#include "framework/text/numbers.h"
#include "framework/text/search.h"
#include "framework/text/text.h"
#include "plist/plist_dict.h"

namespace sumlet {

namespace {

constexpr std::string_view CR = "\r";

// Truncates `text` before the first `mark`. Returns whether there was one.
bool CutBefore(String& text, std::string_view mark) {
  const Match match = FindText(text, mark, 0);
  if (match.found) text.erase(match.begin);
  return match.found;
}

// Whether the tag is "/" and the type's name.
bool Closes(std::string_view tag, std::string_view type) {
  return tag.starts_with('/') && SameText(tag.substr(1), type);
}

}  // namespace

class plistDict::Reader {
 public:
  explicit Reader(TextInputStream& stream) : stream_(stream) {}
  void Fill(plistDict& node);

 private:
  // The state of the reader for one node.
  struct Level {
    explicit Level(plistDict& toFill) : node(toFill) {}

    plistDict& node;
    Array<String> pieces;  // of the input line, not yet parsed
    Int32 nextPiece = 0;
    String line;  // the piece that is parsed now
    SharedText key = std::make_shared<const String>();
    Int32 typePlace = -1;   // the index of the key's type, -1 before it has one
    Int32 valuePlace = -1;  // the same for its value
    String type;
    String tag;      // the last one cut from a line
    String closing;  // the tag that closes it
    String value;    // as far as it has been read; may run over several lines
    bool inValue = false;
    bool selfClosed = false;
  };

  [[nodiscard]] static std::string_view EndTag(const Level& level) {
    return level.node.isArray_ ? "</array>" : "</dict>";
  }
  [[nodiscard]] bool IsDone(const Level& level) const;
  void ReadLine(Level& level);
  void TakePiece(Level& level);
  static bool TakeKey(Level& level);
  static void SetKey(Level& level, String key);
  static void StoreType(Level& level, const String& type);
  static void StoreValue(Level& level, String value);
  static void ContinueValue(Level& level);
  void TakeTag(Level& level, const Match& tagEnd);
  static void CloseValue(Level& level);
  static void OpenValue(Level& level, std::size_t behindTag);
  void OpenChild(Level& level);

  TextInputStream& stream_;
  std::deque<Level> levels_;  // outer to inner; references to them stay valid while one is added
};

void plistDict::Load(TextInputStream* stream, std::string_view name, bool asArray, plistDict* parent, plist* document,
                     bool read) {
  Begin(std::make_shared<const String>(name), asArray, parent, document);
  if (!read) return;
  if (stream == nullptr) throw Fault("a stream that was never opened");
  Reader(*stream).Fill(*this);
}

void plistDict::Begin(SharedText name, bool asArray, plistDict* parent, plist* document) {
  values_.Clear();
  types_.Clear();
  name_ = std::move(name);
  parent_ = parent;
  rootClass_ = document;
  indexOf_ = -1;
  isArray_ = asArray;
}

void plistDict::Reader::Fill(plistDict& node) {
  levels_.emplace_back(node);
  while (!levels_.empty()) {
    Level& level = levels_.back();
    if (level.nextPiece <= level.pieces.Ubound()) {
      level.line = std::move(level.pieces[level.nextPiece++]);
      TakePiece(level);
    } else if (IsDone(level)) {
      levels_.pop_back();
    } else {
      ReadLine(level);
    }
  }
}

bool plistDict::Reader::IsDone(const Level& level) const {
  return stream_.AtEnd() || SameText(level.line, EndTag(level)) || SameText(level.line, "<dict/>");
}

// Reads a line and splits it between adjacent tags, but not before a closing tag. The index of an array element counts
// the lines read, not the elements.
void plistDict::Reader::ReadLine(Level& level) {
  if (level.node.isArray_ && !level.inValue) SetKey(level, Str(++level.node.indexOf_));
  const std::string_view line = LStripNonPrintingChars(stream_.ReadLine());
  const String apart = ReplaceAll(line, "><", ">\r<");
  level.pieces = Split(ReplaceAll(apart, ">\r</", "></"), CR);
  level.nextPiece = 0;
}

void plistDict::Reader::TakePiece(Level& level) {
  if (TakeKey(level) || SameText(level.line, EndTag(level))) return;
  if (level.inValue && !SameText(level.line, level.closing)) {
    ContinueValue(level);
    return;
  }
  if (const Match tagEnd = FindText(level.line, ">", 0); tagEnd.found) TakeTag(level, tagEnd);
}

// Sets the key and returns true if the piece begins with one, also within a value of several lines.
bool plistDict::Reader::TakeKey(Level& level) {
  constexpr std::string_view opening = "<key>";
  constexpr std::string_view closing = "</key>";
  String& line = level.line;
  if (!SameText(Left(line, 5), opening)) return false;
  line.erase(0, FindText(line, opening, 0).end);
  if (SameText(Right(line, 6), closing)) line = Left(line, Len(line) - 6);
  SetKey(level, line);
  return true;
}

void plistDict::Reader::SetKey(Level& level, String key) {
  level.key = std::make_shared<const String>(std::move(key));
  level.typePlace = level.valuePlace = -1;
}

// Looks up the key once, because thousands of values can follow a long key.
void plistDict::Reader::StoreType(Level& level, const String& type) {
  if (level.typePlace < 0) {
    level.typePlace = level.node.types_.SetValue(*level.key, type);
  } else {
    level.node.types_.SetValueAt(level.typePlace, type);
  }
}

void plistDict::Reader::StoreValue(Level& level, String value) {
  if (level.valuePlace < 0) {
    level.valuePlace = level.node.values_.SetValue(*level.key, std::move(value));
  } else {
    level.node.values_.SetValueAt(level.valuePlace, std::move(value));
  }
}

void plistDict::Reader::ContinueValue(Level& level) {
  if (CutBefore(level.line, level.closing)) level.inValue = false;
  level.value += CodeToBrackets(level.line);
  if (!SameText(level.tag, "data")) level.value += CR;
  if (!level.inValue) StoreValue(level, CodeToBrackets(level.value));
}

// Attributes are part of the tag's name. The type of the last value stays valid until another tag opens, so a stray
// closing tag after a container opens a second container of its type.
void plistDict::Reader::TakeTag(Level& level, const Match& tagEnd) {
  level.tag = level.line.substr(0, tagEnd.begin);
  if (level.tag.starts_with('<')) level.tag.erase(0, 1);
  level.closing = "</" + level.tag + ">";
  const bool isTrue = SameText(level.tag, "true/");
  if (isTrue || SameText(level.tag, "false/")) {
    level.type = "boolean";
    StoreType(level, level.type);
    StoreValue(level, isTrue ? "true" : "false");
  } else if (Closes(level.tag, level.type) || SameText(level.tag, "/key")) {
    CloseValue(level);
  } else {
    OpenValue(level, tagEnd.end);
  }
  if (IsContainer(level.type)) OpenChild(level);
}

void plistDict::Reader::CloseValue(Level& level) {
  level.inValue = false;
  StoreValue(level, CodeToBrackets(level.value));
  level.value.clear();
}

void plistDict::Reader::OpenValue(Level& level, std::size_t behindTag) {
  level.type = level.tag;
  level.selfClosed = level.type.ends_with('/');
  if (level.selfClosed) level.type.pop_back();
  StoreType(level, level.type);
  if (IsContainer(level.type)) return;
  level.line.erase(0, behindTag);
  String text = level.line;
  if (CutBefore(text, "</" + level.type)) {
    level.value = std::move(text);
    StoreValue(level, CodeToBrackets(level.value));
    return;
  }
  level.inValue = true;
  level.value.clear();
  if (FindText(text, ">", 0).found) return;  // that first line is lost
  level.value = CodeToBrackets(text);
  if (!SameText(level.type, "data")) level.value += CR;
}

// The rest of this level's input line is parsed after the child.
void plistDict::Reader::OpenChild(Level& level) {
  const bool asArray = SameText(level.type, "array");
  plistDict& child = level.node.children_.Append(level.key);
  child.Begin(level.key, asArray, &level.node, level.node.rootClass_);
  if (!level.selfClosed) {
    levels_.emplace_back(child);
  } else if (!asArray) {
    level.line.clear();  // the line "<dict/>" would end this node, too
  }
}

String plistDict::CodeToBrackets(std::string_view text) {
  return ReplaceAll(ReplaceAll(text, "&lt;", "<"), "&gt;", ">");
}

std::string_view plistDict::LStripNonPrintingChars(std::string_view text) {
  std::size_t begin = 0;
  while (begin < text.size() && static_cast<unsigned char>(text[begin]) < ' ') ++begin;
  return text.substr(begin);
}

}  // namespace sumlet
