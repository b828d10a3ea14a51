// The document: loads and saves a file, and searches it.
#include "plist/plist.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

#include "framework/desktop.h"
#include "framework/file/program.h"
#include "framework/file/temporary.h"

namespace sumlet {
namespace {

// A crafted file can expand to a tree of a hundred times its size.
constexpr std::size_t largestDocument = std::size_t{8} << 20;

constexpr std::string_view firstKeyLine = "<dict>";
constexpr std::string_view lastLines[] = {"</dict>", "</plist>"};

std::optional<TextInputStream> OpenDocument(const FolderItem& file) {
  std::optional<String> content = file.ReadBinaryFile();
  if (!content || content->size() > largestDocument) return {};
  return TextInputStream(std::move(*content));
}

enum class Form { Xml, Binary };

// Converts the property list in `file` in place, with plutil or, where that is missing, plistutil. Takes at most ten
// seconds. Does not report success, because the exit status of these tools is unreliable.
void Convert(const FolderItem& file, Form form) {
  constexpr std::chrono::seconds timeout(10);
  const bool toXml = form == Form::Xml;
  const String path = file.AbsolutePath();
  if (RunProgram({"plutil", "-convert", toXml ? "xml1" : "binary1", path}, timeout) != ProgramEnd::NotFound) return;
  RunProgram({"plistutil", "-i", path, "-o", path, "-f", toXml ? "xml" : "bin"}, timeout);
}

// Deletes a temporary file at the end of the block.
class TemporaryGuard {
 public:
  explicit TemporaryGuard(const FolderItem& item) : item_(item) {}
  TemporaryGuard(const TemporaryGuard&) = delete;
  TemporaryGuard& operator=(const TemporaryGuard&) = delete;
  ~TemporaryGuard() { DeleteTemporary(item_); }

 private:
  const FolderItem& item_;
};

}  // namespace

// ---- Loading

plist::plist(const FolderItem& file, const std::optional<FolderItem>& fallback) : savePath(file), headers{""} {
  Load(file, fallback);
}

plist::~plist() {
  if (copy_) DeleteTemporary(*copy_);
}

void plist::Load(const FolderItem& file, const std::optional<FolderItem>& fallback) {
  root_ = std::make_unique<plistDict>();
  foundDict = nullptr;
  headers.Redim(0);
  isBinary = false;
  savePath = file;
  const FolderItem& source = !file.Exists() && fallback ? *fallback : file;
  if (!source.Exists()) {
    error = true;
    errorMessage = source.AbsolutePath() + " does not exist";
    isRead_ = true;
    LoadNew();
    return;
  }
  std::optional<TextInputStream> stream = OpenDocument(source);
  String line;
  if (stream) line = stream->ReadLine();
  if (stream && SameText(Left(line, 6), "bplist")) {
    stream = OpenConverted(source);
  } else if (stream) {
    stream->Rewind();
  }
  isRead_ = stream.has_value();
  TextInputStream nothing({});
  ReadFrom(isRead_ ? *stream : nothing, std::move(line));
}

void plist::LoadNew() {
  for (const char* line : {R"(<?xml version="1.0" encoding="UTF-8"?>)",
                           R"(<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" )"
                           R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd">)",
                           R"(<plist version="1.0">)", "<dict>"}) {
    headers.Append(line);
  }
  root_->Load(nullptr, "root", false, nullptr, this, false);
}

// `line` is the first line of the source. A stream that was not converted yields it again.
void plist::ReadFrom(TextInputStream& stream, String line) {
  while (!stream.AtEnd() && !SameText(line, firstKeyLine)) {
    line = stream.ReadLine();
    headers.Append(line);
  }
  const bool hasKeys = isRead_ && SameText(line, firstKeyLine);
  error = !hasKeys;
  errorMessage = hasKeys ? "" : "Not a plist file";
  if (hasKeys) root_->Load(&stream, "root", false, nullptr, this, true);
}

// Converts a copy, so that the file itself stays unchanged.
std::optional<TextInputStream> plist::OpenConverted(const FolderItem& source) {
  const std::optional<FolderItem> copy = GetTemporaryFolderItem();
  if (!copy) return {};
  const TemporaryGuard guard(*copy);
  if (!source.CopyFileTo(*copy)) return {};
  isBinary = true;
  org = source;
  savePath = *copy;
  if (copy_) DeleteTemporary(*copy_);  // from an earlier Load
  copy_ = copy;
  Convert(*copy, Form::Xml);
  return OpenDocument(*copy);
}

void plist::Cleanup() {
  if (!isBinary) return;
  if (copy_ && copy_->Path() == savePath.Path()) {
    DeleteTemporary(savePath);
  } else {
    savePath.Delete();
  }
}

// ---- Saving

void plist::Save(bool cleanup) { SaveAs(true, cleanup); }

void plist::SaveAsInvisible(const FolderItem& /*file*/, bool cleanup) { SaveAs(false, cleanup); }

void plist::SaveAs(bool visible, bool cleanup) {
  error = !isRead_ || !WriteFile();
  errorMessage = error ? "Could not open file for saving" : "";
  if (!isRead_) return;
  if (!error && !visible) savePath.SetVisible(false);
  if (isBinary && org) SaveBinary(visible);
  if (cleanup) Cleanup();
}

// Composes the whole text before opening the file, so that a failure leaves the file unchanged.
bool plist::WriteFile() const {
  TextOutputStream stream;
  WriteTo(stream);
  const bool isCopy = isBinary && copy_ && copy_->Path() == savePath.Path();
  if (stream.Overflowed() || (isCopy && !RemakeTemporaryFolder(savePath))) return false;
  return savePath.WriteBinaryFile(stream.Content());
}

void plist::SaveBinary(bool visible) {
  Convert(savePath, Form::Binary);
  org->Delete();
  savePath.CopyFileTo(*org);
  if (!visible) org->SetVisible(false);
}

// ---- Text for a file or the clipboard

void plist::WriteTo(TextOutputStream& stream) const {
  for (Int32 i = 1; i <= headers.Ubound(); ++i) stream.WriteLine(headers[i]);
  root_->Write(stream, 1);
  for (const std::string_view line : lastLines) stream.WriteLine(line);
}

void plist::Dump() const {
  TextOutputStream head("\r");
  for (Int32 i = 1; i <= headers.Ubound(); ++i) head.WriteLine(headers[i]);
  SetClipboardText(head.Content());
  root_->Dump(1);
  TextOutputStream tail("\r");
  for (const std::string_view line : lastLines) tail.WriteLine(line);
  SetClipboardText(ClipboardText() + tail.Content());
}

// ---- The search
//
// Always begins at the top and marks each key that it has reported, so that FindNext continues after the last one. The
// traversal uses the cursors of the nodes to return to their parents, and so needs no recursion.

bool plist::Find(std::string_view text) {
  foundDict = nullptr;
  foundKey.clear();
  foundValue.clear();
  foundType.clear();
  ClearSearch(*root_);
  lastSearch = text;
  return ReadStructure(*root_, text, SearchMode::Values);
}

bool plist::FindNext(std::string_view text) {
  if (!SameText(text, lastSearch)) ClearSearch(*root_);
  return ReadStructure(*root_, text, SearchMode::Values);
}

void plist::ClearSearch(plistDict& node) {
  Walk(node, [](plistDict& holder, const String& key) {
    holder.searched_.SetValue(key, BooleanToVariant(false));
    return false;
  });
}

bool plist::ReadStructure(plistDict& node, std::string_view text, SearchMode mode) {
  return Walk(node, [&](plistDict& holder, const String& key) {
    String value = holder.GetValue(key);
    if (InStr(mode == SearchMode::Values ? value : key, text) == 0) return false;
    if (VariantToBoolean(holder.searched_.Lookup(key, BooleanToVariant(false)))) return false;
    holder.searched_.SetValue(key, BooleanToVariant(true));
    foundDict = &holder;
    foundKey = key;
    foundValue = std::move(value);
    foundType = holder.GetType(key);
    return true;
  });
}

// Visits a container at its position among the plain keys; one without keys has nothing to visit.
bool plist::Walk(plistDict& top, const std::function<bool(plistDict& holder, const String& key)>& visit) {
  std::vector<plistDict*> levels;
  const auto enter = [&levels](plistDict& node) {
    node.MoveFirst();
    if (node.count() > 0) levels.push_back(&node);
    return node.count() > 0;
  };
  enter(top);
  while (!levels.empty()) {
    plistDict& node = *levels.back();
    if (node.eof()) {
      levels.pop_back();
      if (!levels.empty()) levels.back()->MoveNext();
      continue;
    }
    const String key = node.CurrentKey();
    if (IsContainer(node.GetType(key))) {
      if (!enter(node.child(key))) node.MoveNext();
      continue;
    }
    if (visit(node, key)) return true;
    node.MoveNext();
  }
  return false;
}

}  // namespace sumlet
